// What this processor (and the system, for the wide registers) offers, found once.
#pragma once

namespace tv::hash {

struct CpuFeatures {
    bool pclmul = false;      // carry-less multiply on 128-bit registers, with SSE4.1
    bool vpclmul256 = false;  // carry-less multiply on 256-bit registers, AVX2, saved by the system
    bool sha = false;         // SHA-1 instructions, with SSSE3 and SSE4.1
};

const CpuFeatures& cpuFeatures();

}  // namespace tv::hash
