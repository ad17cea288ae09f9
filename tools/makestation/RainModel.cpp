// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/makestation/RainModel.h"

#include "tools/makestation/Sun.h"

#include <algorithm>
#include <cmath>

namespace kelvrum::sample {

namespace {

constexpr double BUCKET = 0.1; // mm for one tip

/// Wet spells of a day or two with showers, and up to two dry weeks between them.
std::vector<Shower> showersOf(const StationPlan& plan, Random& random) {
    std::vector<Shower> showers;
    Minute time = plan.begin() + random.minutes(0, 2 * DAY);
    while (time < plan.end()) {
        const Minute spellEnd = time + random.minutes(8 * HOUR, 60 * HOUR);
        while (time < spellEnd) {
            const Minute length = random.minutes(8, 95);
            showers.push_back({time, length, random.between(0.01, 0.07)});
            time += length + random.minutes(30, 5 * HOUR);
        }
        time = spellEnd + random.minutes(2 * DAY, 15 * DAY);
    }
    return showers;
}

/// The last front brings a shower; the others are wet when they fall into a wet spell.
void addFrontShower(std::vector<Shower>& showers, const Front& front) {
    constexpr double HEAVY = 0.22;
    const Shower shower{front.begin + front.length / 3, 50, HEAVY};
    std::erase_if(showers, [&shower](const Shower& other) {
        return other.begin < shower.begin + shower.length && shower.begin < other.begin + other.length;
    });
    const auto next = std::find_if(showers.begin(), showers.end(),
                                   [&shower](const Shower& other) { return other.begin > shower.begin; });
    showers.insert(next, shower);
}

} // namespace

RainModel::RainModel(const StationPlan& plan, const std::vector<Front>& fronts)
    : random_(plan.seed, Stream::rain)
    , showers_(showersOf(plan, random_)) {
    addFrontShower(showers_, fronts.back());
}

RainValues RainModel::at(Minute minute) {
    while (current_ < showers_.size() && showers_[current_].begin + showers_[current_].length <= minute) {
        ++current_;
    }
    double rate = 0;
    if (current_ < showers_.size() && showers_[current_].begin <= minute) {
        const Shower& shower = showers_[current_];
        const double wave = std::sin(TURN / 2 * (static_cast<double>(minute - shower.begin) + 0.5) /
                                     static_cast<double>(shower.length));
        rate = shower.peak * wave * wave * random_.between(0.4, 1.6);
    }
    constexpr double DRYING = 0.996; // a minute
    wet_ = std::min(1.0, wet_ * DRYING + rate);
    bucket_ += rate;
    const double tips = std::floor(bucket_ / BUCKET);
    bucket_ -= tips * BUCKET;
    return {tips * BUCKET, wet_};
}

} // namespace kelvrum::sample
