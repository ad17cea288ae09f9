// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/Angles.h"

#include <cmath>

namespace kelvrum {

namespace {

constexpr double MANY_TURNS = 100 * TWO_PI;

} // namespace

std::optional<double> toRadians(double angle, std::int32_t unit) {
    switch (unit) {
    case UNIT_RADIANS:
        return angle;
    case UNIT_DEGREES:
        return angle * DEGREES_TO_RADIANS;
    case UNIT_GON:
        return angle * GON_TO_RADIANS;
    default:
        return std::nullopt;
    }
}

double fromRadians(double angle, std::int32_t unit) {
    switch (unit) {
    case UNIT_RADIANS:
        return angle;
    case UNIT_DEGREES:
        return angle * RADIANS_TO_DEGREES;
    case UNIT_GON:
        return angle * RADIANS_TO_GON;
    default:
        return 0;
    }
}

double NormWinkel(double angle) {
    if (!std::isfinite(angle)) {
        return 0;
    }
    if (std::fabs(angle) > MANY_TURNS) {
        angle = std::fmod(angle, TWO_PI); // the loops below must end at once
    }
    while (angle >= TWO_PI) {
        angle -= TWO_PI;
    }
    while (angle < 0) {
        angle += TWO_PI;
    }
    return angle < TWO_PI ? angle : 0; // a tiny negative angle rounds up to the full turn
}

} // namespace kelvrum
