// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/makestation/Outages.h"

#include <algorithm>

namespace kelvrum::sample {

namespace {

/// One sort of outage: how often it comes and how long it lasts.
struct Sort {
    Minute shortestGap;
    Minute longestGap;
    Minute shortest;
    Minute longest;
    Minute quietEnd; // none of them begins within so many minutes before the end
};

constexpr Sort SORTS[] = {
    //     from one to the next        length               none at the end
    {.shortestGap = 6 * HOUR, .longestGap = 5 * DAY, .shortest = 1, .longest = 20, .quietEnd = HOUR},
    {.shortestGap = 9 * DAY,
     .longestGap = 45 * DAY,
     .shortest = HOUR,
     .longest = 11 * HOUR,
     .quietEnd = 3 * DAY},
    {.shortestGap = 80 * DAY,
     .longestGap = 200 * DAY,
     .shortest = DAY,
     .longest = 5 * DAY,
     .quietEnd = 8 * DAY},
};

} // namespace

std::vector<Outage> outagesOf(const StationPlan& plan) {
    Random random(plan.seed, Stream::outages);
    std::vector<Outage> all;
    for (const Sort& sort : SORTS) {
        Minute begin = plan.begin() + random.minutes(sort.shortestGap / 2, sort.longestGap / 2);
        while (begin < plan.end() - sort.quietEnd) {
            const Minute length = random.minutes(sort.shortest, sort.longest);
            all.push_back({begin, begin + length});
            begin += length + random.minutes(sort.shortestGap, sort.longestGap);
        }
    }
    std::sort(all.begin(), all.end(), [](const Outage& a, const Outage& b) { return a.begin < b.begin; });
    std::vector<Outage> apart;
    for (const Outage& outage : all) {
        if (!apart.empty() && outage.begin <= apart.back().end) {
            apart.back().end = std::max(apart.back().end, outage.end);
        } else {
            apart.push_back(outage);
        }
    }
    return apart;
}

} // namespace kelvrum::sample
