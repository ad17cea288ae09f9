// SPDX-License-Identifier: GPL-3.0-or-later
// The course of the sun over day and year, as far as the weather of the sample station follows it.
#pragma once

#include "tools/makestation/StationPlan.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kelvrum::sample {

inline constexpr double TURN = 2 * std::numbers::pi;

/// Part of the day gone by at a minute, 0 to 1.
inline double dayPart(Minute minute) { return static_cast<double>(minute % DAY) / static_cast<double>(DAY); }

/// Part of the solar year gone by since about 21 December.
inline double yearPart(Minute minute) {
    constexpr double YEAR = 365.2425 * static_cast<double>(DAY);
    constexpr double SOLSTICE = -9.0 * static_cast<double>(DAY);
    return std::fmod((static_cast<double>(minute) - SOLSTICE) / YEAR, 1.0);
}

/// 0 in the middle of winter, 1 in the middle of summer.
inline double summer(Minute minute) { return 0.5 - 0.5 * std::cos(TURN * yearPart(minute)); }

/// Warming by the sun, 0 by night to 1 at a summer noon, for 51 degrees north.
inline double sunshine(Minute minute) {
    constexpr double SIN_LATITUDE = 0.777;
    constexpr double COS_LATITUDE = 0.629;
    constexpr double TILT = 0.409;
    const double declination = -TILT * std::cos(TURN * yearPart(minute));
    const double height = SIN_LATITUDE * std::sin(declination) -
                          COS_LATITUDE * std::cos(declination) * std::cos(TURN * dayPart(minute));
    constexpr double STEEPNESS = 2.5; // even a low sun makes the air lively
    return 1 - std::exp(-STEEPNESS * std::max(height, 0.0));
}

} // namespace kelvrum::sample
