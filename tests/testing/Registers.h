// SPDX-License-Identifier: GPL-3.0-or-later
// The upper halves of the vector registers as painting may leave them, where the processor has them.
#pragma once

#include <algorithm>
#include <array>
#include <cstdint>

namespace kelvrum::testing {

#if defined(__x86_64__) && defined(__GNUC__)

inline bool hasUpperHalves() { return __builtin_cpu_supports("avx") != 0; }

/// All bits of the last two registers are set.
__attribute__((noinline)) inline void fillUpperHalves() {
    asm volatile("vcmptrueps %%ymm14, %%ymm14, %%ymm14\n\t"
                 "vcmptrueps %%ymm15, %%ymm15, %%ymm15"
                 :
                 :
                 : "xmm14", "xmm15");
}

/// The upper halves of both registers.
__attribute__((noinline)) inline std::array<std::uint64_t, 4> upperHalves() {
    std::array<std::uint64_t, 4> halves{};
    asm volatile("vextractf128 $1, %%ymm14, (%0)\n\t"
                 "vextractf128 $1, %%ymm15, 16(%0)"
                 :
                 : "r"(halves.data())
                 : "memory");
    return halves;
}

#else

inline bool hasUpperHalves() { return false; }
inline void fillUpperHalves() {}
inline std::array<std::uint64_t, 4> upperHalves() { return {}; }

#endif

inline bool areUpperHalvesClean() {
    const auto halves = upperHalves();
    return std::all_of(halves.begin(), halves.end(), [](std::uint64_t half) { return half == 0; });
}

} // namespace kelvrum::testing
