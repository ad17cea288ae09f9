// SPDX-License-Identifier: GPL-3.0-or-later
// A year of minutes for the benchmarks: 525,600 values, 4 % of them missing.
#pragma once

#include <cmath>
#include <cstddef>
#include <random>
#include <vector>

namespace kelvrum::bench {

inline constexpr std::size_t YEAR = 525'600;
inline constexpr double MISSING_PART = 0.04;

/// The values of an instrument that delivers this many steps per unit: 10 for tenths.
inline std::vector<double> inSteps(std::vector<double> values, double stepsToTheUnit) {
    for (double& value : values) {
        value = std::round(value * stepsToTheUnit) / stepsToTheUnit;
    }
    return values;
}

/// Values around `middle`, hardly two of them alike; the same on every run.
inline std::vector<double> yearOfMinutes(double middle, double swing) {
    std::mt19937_64 random(4);
    const auto unit = [&random] { return static_cast<double>(random() >> 11U) * 0x1p-53; };
    std::vector<double> values(YEAR);
    for (std::size_t i = 0; i < values.size(); ++i) {
        const double course = std::sin(static_cast<double>(i) / 230.0);
        values[i] = unit() < MISSING_PART ? 0 : middle + swing * (course + unit() - 0.5) / 1.5;
    }
    return values;
}

} // namespace kelvrum::bench
