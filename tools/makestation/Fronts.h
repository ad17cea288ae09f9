// SPDX-License-Identifier: GPL-3.0-or-later
// Cold fronts: every few days one turns the wind from west by north to north-east, within an hour or so.
#pragma once

#include "tools/makestation/StationPlan.h"

#include <cstddef>
#include <vector>

namespace kelvrum::sample {

struct Front {
    Minute begin = 0;
    Minute length = 0;
};

/// The fronts of a plan in time order. The last one passes on the afternoon before the last day, so that
/// yesterday's wind always has one to show. The first one is before the plan's begin.
std::vector<Front> frontsOf(const StationPlan& plan);

/// The position of a minute between the fronts.
struct Season {
    double passing = 0; // 0 to 1 while the last front passes, then 1
    double since = 0;   // 0 when the last front has passed, to 1 when the next one begins
    Minute age = 0;     // minutes since the last front began
};

/// Follows the fronts minute by minute; minutes must come in ascending order, from the plan's begin on.
class FrontClock {
  public:
    explicit FrontClock(const std::vector<Front>& fronts)
        : fronts_(&fronts) {}

    Season at(Minute minute);

  private:
    const std::vector<Front>* fronts_;
    std::size_t current_ = 0;
};

} // namespace kelvrum::sample
