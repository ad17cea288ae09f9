// SPDX-License-Identifier: GPL-3.0-or-later
// The validity of a value: the marker, zeros, bounds and what is no number.
#include "util/Validity.h"

#include <gtest/gtest.h>

#include <limits>

namespace kelvrum {
namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double ENDLESS = std::numeric_limits<double>::infinity();

TEST(Validity, Present) {
    const struct {
        double v;
        bool present;
    } cases[] = {
        {0, false},
        {-0.0, false},
        {99999900, false},
        {-99999900, false},
        {99999899.999, true},
        {-99999899.999, true},
        {1e300, false},
        {ENDLESS, false},
        {-ENDLESS, false},
        {NOT_A_NUMBER, false},
        {1, true},
        {-1, true},
        {5e-324, true},
        {ZERO_VALUE, true},
        {INVALID_VALUE, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(isPresent(c.v), c.present) << c.v;
    }
}

TEST(Validity, Validate) {
    const struct {
        double v, upper, lower, result;
    } cases[] = {
        {0, UPPER_BOUND, LOWER_BOUND, ZERO_VALUE},
        {-0.0, UPPER_BOUND, LOWER_BOUND, ZERO_VALUE},
        {7.5, UPPER_BOUND, LOWER_BOUND, 7.5},
        {99999899.999, UPPER_BOUND, LOWER_BOUND, 99999899.999},
        {99999900, UPPER_BOUND, LOWER_BOUND, INVALID_VALUE},
        {-99999900, UPPER_BOUND, LOWER_BOUND, INVALID_VALUE},
        {99999999, UPPER_BOUND, LOWER_BOUND, INVALID_VALUE},
        {ENDLESS, UPPER_BOUND, LOWER_BOUND, INVALID_VALUE},
        {-ENDLESS, UPPER_BOUND, LOWER_BOUND, INVALID_VALUE},
        {NOT_A_NUMBER, UPPER_BOUND, LOWER_BOUND, INVALID_VALUE},
        {10, 10, -10, 10},
        {-10, 10, -10, -10},
        {10.001, 10, -10, INVALID_VALUE},
        {-10.001, 10, -10, INVALID_VALUE},
        {0, 10, 1, INVALID_VALUE},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(validate(c.v, c.upper, c.lower), c.result) << c.v;
    }
    EXPECT_EQ(validate(3), 3);
    EXPECT_EQ(validate(0), 1e-300);
    EXPECT_EQ(validate(1e9), 99999900);
}

} // namespace
} // namespace kelvrum
