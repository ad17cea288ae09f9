// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/makestation/Fronts.h"

#include "tools/makestation/Random.h"

#include <algorithm>

namespace kelvrum::sample {

namespace {
constexpr Minute SHORTEST_PASSING = 45;
constexpr Minute LONGEST_PASSING = 100;
constexpr Minute SHORTEST_GAP = 3 * DAY;
constexpr Minute LONGEST_GAP = 8 * DAY;
} // namespace

std::vector<Front> frontsOf(const StationPlan& plan) {
    Random random(plan.seed, Stream::fronts);
    // Placed from the end to the beginning: the last front has a fixed time.
    const Minute lastDay = (plan.end() - 1) / DAY * DAY;
    std::vector<Front> fronts;
    Minute begin = lastDay - DAY + 14 * HOUR + random.minutes(0, 2 * HOUR);
    for (;;) {
        fronts.push_back({begin, random.minutes(SHORTEST_PASSING, LONGEST_PASSING)});
        if (begin + LONGEST_PASSING < plan.begin()) {
            break;
        }
        begin -= random.minutes(SHORTEST_GAP, LONGEST_GAP);
    }
    std::reverse(fronts.begin(), fronts.end());
    return fronts;
}

Season FrontClock::at(Minute minute) {
    const std::vector<Front>& fronts = *fronts_;
    while (current_ + 1 < fronts.size() && fronts[current_ + 1].begin <= minute) {
        ++current_;
    }
    const Front& front = fronts[current_];
    const Minute next = current_ + 1 < fronts.size() ? fronts[current_ + 1].begin : front.begin + LONGEST_GAP;
    const auto part = [](Minute done, Minute whole) {
        return std::clamp(static_cast<double>(done) / static_cast<double>(whole), 0.0, 1.0);
    };
    const Minute passed = front.begin + front.length;
    return {part(minute - front.begin, front.length), part(minute - passed, next - passed),
            minute - front.begin};
}

} // namespace kelvrum::sample
