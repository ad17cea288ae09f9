// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/makestation/DustModel.h"

#include "tools/makestation/Sun.h"

#include <algorithm>
#include <cmath>

namespace kelvrum::sample {

namespace {

/// A bell over the day around an hour, some hours wide.
double around(double hour, double centre, double width) {
    const double distance = (hour - centre) / width;
    return std::exp(-distance * distance);
}

/// Traffic of the hour, 0 to about 1; half as much on Saturdays and Sundays.
double traffic(Minute minute) {
    const double hour = 24 * dayPart(minute);
    const bool weekend = (minute / DAY) % 7 <= 1; // day 0 was a Saturday
    return (around(hour, 7.5, 1.6) + 0.8 * around(hour, 17.5, 2.2)) * (weekend ? 0.5 : 1);
}

} // namespace

/// A truck, a bonfire, a spider in the inlet: every day or two, for some minutes.
double DustModel::outlier() {
    constexpr double EACH_MINUTE = 1.0 / 2200;
    if (outlierLeft_ > 0) {
        --outlierLeft_;
    } else if (random_.chance(EACH_MINUTE)) {
        outlierLeft_ = static_cast<int>(random_.minutes(0, 3));
        outlierFactor_ = random_.between(6, 28);
    } else {
        outlierFactor_ = 1;
    }
    return outlierFactor_;
}

DustValues DustModel::at(Minute minute, double wet, double windSpeed) {
    constexpr double HIGHEST = 985; // end of the instrument's scale
    const double winter = 1 - summer(minute);
    const double usual =
        (13 + 9 * winter + 14 * traffic(minute)) * (1 - 0.6 * wet) / (0.8 + 0.08 * windSpeed);
    const double level = usual * std::exp(weather_.step(random_) + plume_.step(random_));
    const double part = std::clamp(0.56 + 0.1 * winter + share_.step(random_), 0.35, 0.9);
    const double spike = outlier();
    DustValues dust;
    dust.coarse = std::clamp(level * spike, 0.5, HIGHEST);
    dust.fine = std::min(level * part * (1 + 0.15 * (spike - 1)), dust.coarse);
    return dust;
}

} // namespace kelvrum::sample
