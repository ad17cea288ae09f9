// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/VectorRegisters.h"

#if defined(__x86_64__) && defined(__GNUC__)
#include <immintrin.h>
#endif

namespace kelvrum {

#if defined(__x86_64__) && defined(__GNUC__)

namespace {

__attribute__((target("avx"))) void clearUpperHalves() { _mm256_zeroupper(); }

} // namespace

void cleanVectorRegisters() {
    static const bool hasThem = __builtin_cpu_supports("avx") != 0; // and the system keeps them
    if (hasThem) {
        clearUpperHalves();
    }
}

#else

void cleanVectorRegisters() {}

#endif

} // namespace kelvrum
