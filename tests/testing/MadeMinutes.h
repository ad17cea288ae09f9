// SPDX-License-Identifier: GPL-3.0-or-later
// Minutes of a channel: counted ones, and random ones for properties of readings and means.
#pragma once

#include "tests/testing/Property.h"
#include "util/Validity.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <limits>
#include <sstream>
#include <string>
#include <vector>

namespace kelvrum::testing {

/// Minutes that tell where they come from: minute m holds m + 1 + `more`.
inline std::vector<double> countedMinutes(std::size_t count, double more = 0) {
    std::vector<double> minutes(count);
    for (std::size_t m = 0; m < count; ++m) {
        minutes[m] = static_cast<double>(m + 1) + more;
    }
    return minutes;
}

/// A minute: a value not far from the middle, or one of the many ways not to be one.
inline double madeMinute(Numbers& numbers, double middle = 0, double spread = 1e6) {
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    constexpr std::array NO_VALUES = {
        0.0, -0.0, INVALID_VALUE, -INVALID_VALUE, 1e300, INFINITE, std::numeric_limits<double>::quiet_NaN()};
    if (numbers.oneIn(4)) {
        return numbers.oneOf(NO_VALUES);
    }
    const double v = middle + numbers.between(-spread, spread);
    return numbers.oneIn(3) ? std::floor(v) : v;
}

inline std::vector<double> madeMinutes(Numbers& numbers, std::uint64_t maxCount) {
    const double middle = numbers.oneOf(std::array{0.0, -300.0, 1e6});
    const double spread = numbers.oneOf(std::array{0.0, 5.0, 1e6});
    std::vector<double> minutes(numbers.below(maxCount + 1));
    for (double& v : minutes) {
        v = madeMinute(numbers, middle, spread);
    }
    return minutes;
}

inline std::vector<std::vector<double>> smallerMinutes(const std::vector<double>& minutes) {
    return smallerLists(minutes, [](double v) { return smallerNumbers(v); });
}

/// All digits of all values, for the report.
inline std::string textOf(const std::vector<double>& values) {
    std::ostringstream out;
    out.precision(std::numeric_limits<double>::max_digits10);
    for (const double v : values) {
        out << v << ' ';
    }
    return out.str();
}

} // namespace kelvrum::testing
