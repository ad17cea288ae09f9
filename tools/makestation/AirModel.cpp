// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/makestation/AirModel.h"

#include "tools/makestation/Sun.h"

#include <algorithm>
#include <cmath>

namespace kelvrum::sample {

namespace {

/// What a front leaves behind: 1 when it has passed, fading until the next one comes.
double afterFront(const Season& season) {
    const double left = 1 - season.since;
    return season.passing * left * left * left;
}

} // namespace

AirValues AirModel::at(Minute minute, const Season& season, double wet) {
    constexpr double COLDEST_YEAR_PART = 0.08; // the air lags a month behind the sun
    constexpr double WARMEST_DAY_PART = 0.63;  // and three hours
    const double warmth = -std::cos(TURN * (yearPart(minute) - COLDEST_YEAR_PART));
    const double clear = std::clamp(0.75 + cloud_.step(random_) - 0.5 * wet, 0.1, 1.0);
    const double range = (2.2 + 3.6 * summer(minute)) * clear;
    const double daily = range * std::cos(TURN * (dayPart(minute) - WARMEST_DAY_PART));

    AirValues air;
    air.temperature = 10.4 + 8.6 * warmth + daily + mildness_.step(random_) + ripple_.step(random_) -
                      5 * afterFront(season) - 1.5 * wet;
    const double damp = 80 - 6 * summer(minute) - 4.2 * daily + moisture_.step(random_) + 22 * wet;
    air.humidity = std::clamp(damp + 1.5 * ripple_.step(random_), 18.0, 100.0);

    // The pressure falls toward a front and rises after it; twice a day it breathes.
    const double trough = 7 * (season.since * season.since + 1 - season.passing) - 5 * afterFront(season);
    const double breath = 0.6 * std::cos(2 * TURN * (dayPart(minute) - 0.41));
    air.pressure = 1014 + 1.5 * std::cos(TURN * yearPart(minute)) + system_.step(random_) - trough + breath;
    return air;
}

} // namespace kelvrum::sample
