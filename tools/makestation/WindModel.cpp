// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/makestation/WindModel.h"

#include "tools/makestation/Sun.h"

#include <algorithm>
#include <cmath>

namespace kelvrum::sample {

namespace {

constexpr double STARTING_SPEED = 0.35; // below it the cups stand still

/// A rise and fall between 0 and 1.
double hump(double part) { return part <= 0 || part >= 1 ? 0 : std::sin(TURN / 2 * part); }

double smooth(double part) { return part * part * (3 - 2 * part); }

} // namespace

WindValues WindModel::at(Minute minute, const Season& season) {
    const double heat = sunshine(minute);
    WindValues wind;
    wind.speed = speedAt(heat, season);
    wind.direction = directionAt(wind.speed, season);
    wind.vertical = verticalAt(wind.speed, heat);
    const double gustiness = random_.between(1.25, 1.6) + 0.25 * heat;
    wind.gust = wind.speed == 0 ? 0 : wind.speed * gustiness + 0.2;
    return wind;
}

/// Stronger by day than by night, with the weather of the days, a squall at the front and gusts.
double WindModel::speedAt(double heat, const Season& season) {
    constexpr double SQUALL_LENGTH = 150;
    const double calmer = 1.9 + 1.7 * heat + weather_.step(random_) + squall_.step(random_);
    const double front = 5.5 * hump(static_cast<double>(season.age) / SQUALL_LENGTH);
    const double flow = std::max(calmer, 0.0) + front;
    const double speed = flow * (1 + 0.16 * random_.bell());
    return speed < STARTING_SPEED ? 0 : speed;
}

/// From west over north to north-east while the front passes, then back the long way round by east and south
/// until the next one comes.
double WindModel::directionAt(double speed, const Season& season) {
    constexpr double BEFORE_FRONT = 285;
    constexpr double AFTER_FRONT = 405; // 45 degrees, by way of north
    constexpr double NEXT_FRONT = BEFORE_FRONT + 360;
    const double flow = BEFORE_FRONT + (AFTER_FRONT - BEFORE_FRONT) * smooth(season.passing) +
                        (NEXT_FRONT - AFTER_FRONT) * season.since;
    const double unsteady = 4 + 10 / (1 + speed);
    const double wanted = flow + meander_.step(random_) + unsteady * swing_.step(random_);
    if (speed > 0) {
        const double turned = std::fmod(wanted, 360);
        vane_ = turned <= 0 ? turned + 360 : turned;
    }
    return vane_;
}

/// Quiet by night; by day thermals lift the air for some minutes and let it sink more slowly in between.
double WindModel::verticalAt(double speed, double heat) {
    const double turbulence = 0.09 + 0.06 * speed + 0.9 * heat;
    const double lift = thermal_.step(random_);
    const double lively = 0.65 * lift + 0.15 * (lift * lift - 1) + 0.75 * eddy_.step(random_);
    constexpr double STRONGEST = 2.3;
    return STRONGEST * std::tanh(turbulence * lively / STRONGEST);
}

} // namespace kelvrum::sample
