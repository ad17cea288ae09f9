// SPDX-License-Identifier: GPL-3.0-or-later
#include "evaluation/WindStatistics.h"

#include "data/WindMean.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kelvrum {

namespace {

constexpr double TO_DEGREES = 180 / std::numbers::pi;
constexpr double FULL_CIRCLE = 360;

std::size_t classOf(double speed) {
    const auto above = std::upper_bound(SPEED_CLASSES.begin(), SPEED_CLASSES.end(), speed);
    return static_cast<std::size_t>(above - SPEED_CLASSES.begin()) - 1;
}

} // namespace

std::size_t directionOf(double d) {
    constexpr double BORDER_TOLERANCE = 1e-6;
    double turned = std::fmod(d + DIRECTION_WIDTH / 2 + BORDER_TOLERANCE, FULL_CIRCLE);
    turned += turned < 0 ? FULL_CIRCLE : 0;
    return static_cast<std::size_t>(turned / DIRECTION_WIDTH) % DIRECTIONS;
}

double VectorSum::length() const { return std::hypot(x_.value(), y_.value()); }

std::optional<double> VectorSum::direction() const {
    if (!(length() > CANCELLED * lengths_.value())) {
        return std::nullopt;
    }
    double d = std::atan2(x_.value(), y_.value()) * TO_DEGREES;
    d += d < 0 ? FULL_CIRCLE : 0;
    return isNorth(d) ? FULL_CIRCLE : d;
}

std::optional<double> VectorSum::constancy() const {
    if (!(lengths_.value() > 0)) {
        return std::nullopt;
    }
    return std::min(length() / lengths_.value(), 1.0);
}

void WindTally::add(double direction, double speed, double sine, double cosine) {
    ++counts_.intervals;
    weighted_.add(sine, cosine, speed);
    unit_.add(sine, cosine, 1);
    if (speed < CALM_BELOW) {
        ++counts_.calms;
    } else {
        ++counts_.table[directionOf(direction)][classOf(speed)];
    }
}

WindStatistics WindTally::result() const {
    WindStatistics result = counts_;
    result.weightedDirection = weighted_.direction();
    result.unitDirection = unit_.direction();
    result.constancy = weighted_.constancy();
    return result;
}

} // namespace kelvrum
