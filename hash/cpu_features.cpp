#include "hash/cpu_features.h"

#if defined(__x86_64__) || defined(__i386__)
#include <cpuid.h>
#endif

namespace tv::hash {
namespace {

#if defined(__x86_64__) || defined(__i386__)
bool bit(unsigned word, int n) { return (word >> n) & 1u; }

// What CPUID reports, and whether the system saves the SSE and AVX registers
// across task switches (XGETBV), read once.
CpuFeatures detect() {
    CpuFeatures f;
    unsigned eax = 0, ebx = 0, ecx = 0, edx = 0;
    if (!__get_cpuid(1, &eax, &ebx, &ecx, &edx)) return f;
    const bool pclmul = bit(ecx, 1), ssse3 = bit(ecx, 9), sse41 = bit(ecx, 19);
    const bool osxsave = bit(ecx, 27), avx = bit(ecx, 28);
    bool ymmSaved = false;
    if (osxsave) {
        unsigned lo, hi;
        __asm__ volatile("xgetbv" : "=a"(lo), "=d"(hi) : "c"(0));
        ymmSaved = (lo & 6u) == 6u;
    }
    unsigned ebx7 = 0, ecx7 = 0;
    if (__get_cpuid_count(7, 0, &eax, &ebx7, &ecx7, &edx)) {
        f.sha = ssse3 && sse41 && bit(ebx7, 29);
        f.vpclmul256 = pclmul && sse41 && avx && ymmSaved && bit(ebx7, 5) && bit(ecx7, 10);
    }
    f.pclmul = pclmul && sse41;
    return f;
}
#else
CpuFeatures detect() { return {}; }
#endif

}  // namespace

const CpuFeatures& cpuFeatures() {
    static const CpuFeatures features = detect();
    return features;
}

}  // namespace tv::hash
