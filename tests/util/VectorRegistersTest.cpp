// SPDX-License-Identifier: GPL-3.0-or-later
// The upper halves of the vector registers, filled and cleared.
#include "util/VectorRegisters.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <cstdint>

namespace kelvrum {
namespace {

#if defined(__x86_64__) && defined(__GNUC__)

/// As painting may leave them: all bits of the last two registers are set.
__attribute__((noinline)) void fillRegisters() {
    asm volatile("vcmptrueps %%ymm14, %%ymm14, %%ymm14\n\t"
                 "vcmptrueps %%ymm15, %%ymm15, %%ymm15"
                 :
                 :
                 : "xmm14", "xmm15");
}

/// The upper halves of both registers.
__attribute__((noinline)) std::array<std::uint64_t, 4> upperHalves() {
    std::array<std::uint64_t, 4> halves{};
    asm volatile("vextractf128 $1, %%ymm14, (%0)\n\t"
                 "vextractf128 $1, %%ymm15, 16(%0)"
                 :
                 : "r"(halves.data())
                 : "memory");
    return halves;
}

TEST(VectorRegisters, UpperHalvesAreCleared) {
    if (__builtin_cpu_supports("avx") == 0) {
        GTEST_SKIP() << "this processor has no such registers";
    }
    cleanVectorRegisters(); // asks for the processor once
    fillRegisters();
    const auto filled = upperHalves();
    fillRegisters();
    cleanVectorRegisters();
    const auto cleaned = upperHalves();
    for (std::size_t i = 0; i < filled.size(); ++i) {
        EXPECT_EQ(filled[i], ~std::uint64_t{0}) << i;
        EXPECT_EQ(cleaned[i], 0U) << i;
    }
}

#endif

TEST(VectorRegisters, ValuesAreKept) {
    double sum = 0;
    for (int i = 0; i < 1000; ++i) {
        const double sine = std::sin(i);
        cleanVectorRegisters();
        sum += sine;
        cleanVectorRegisters();
        sum -= std::sin(i);
    }
    EXPECT_EQ(sum, 0);
}

} // namespace
} // namespace kelvrum
