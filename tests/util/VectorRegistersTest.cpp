// SPDX-License-Identifier: GPL-3.0-or-later
// The upper halves of the vector registers, filled and cleared.
#include "util/VectorRegisters.h"

#include "tests/testing/Registers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>

namespace kelvrum {
namespace {

using kelvrum::testing::fillUpperHalves;
using kelvrum::testing::hasUpperHalves;
using kelvrum::testing::upperHalves;

TEST(VectorRegisters, UpperHalvesAreCleared) {
    if (!hasUpperHalves()) {
        GTEST_SKIP() << "this processor has no such registers";
    }
    cleanVectorRegisters(); // asks for the processor once
    fillUpperHalves();
    const auto filled = upperHalves();
    fillUpperHalves();
    cleanVectorRegisters();
    const auto cleaned = upperHalves();
    for (std::size_t i = 0; i < filled.size(); ++i) {
        EXPECT_EQ(filled[i], ~std::uint64_t{0}) << i;
        EXPECT_EQ(cleaned[i], 0U) << i;
    }
}

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
