#include "hash/cpu_features.h"

namespace tv::hash {
namespace {

#if defined(__x86_64__) || defined(__i386__)
// The system saves the SSE and AVX register state across task switches.
bool systemSavesYmm() {
    unsigned eax, ebx, ecx, edx;
    __asm__("cpuid" : "=a"(eax), "=b"(ebx), "=c"(ecx), "=d"(edx) : "a"(1), "c"(0));
    if (!(ecx & (1u << 27))) return false;  // OSXSAVE
    unsigned lo, hi;
    __asm__("xgetbv" : "=a"(lo), "=d"(hi) : "c"(0));
    return (lo & 6u) == 6u;
}

CpuFeatures detect() {
    __builtin_cpu_init();  // namespace-scope initialisers may run before libgcc's own
    CpuFeatures f;
    const bool sse41 = __builtin_cpu_supports("sse4.1");
    f.pclmul = sse41 && __builtin_cpu_supports("pclmul");
    f.vpclmul256 = f.pclmul && __builtin_cpu_supports("avx2") &&
                   __builtin_cpu_supports("vpclmulqdq") && systemSavesYmm();
    f.sha = sse41 && __builtin_cpu_supports("ssse3") && __builtin_cpu_supports("sha");
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
