// SPDX-License-Identifier: GPL-3.0-or-later
// Precipitation: dry weeks and wet days with showers, measured by a tipping bucket.
#pragma once

#include "tools/makestation/Fronts.h"
#include "tools/makestation/Random.h"

#include <cstddef>
#include <vector>

namespace kelvrum::sample {

struct Shower {
    Minute begin = 0;
    Minute length = 0;
    double peak = 0; // mm in a minute
};

struct RainValues {
    double tipped = 0; // mm that the bucket counted in this minute; 0 in a dry one
    double wet = 0;    // how wet the air is, 0 to 1: rises in a shower, dries off within hours
};

class RainModel {
  public:
    RainModel(const StationPlan& plan, const std::vector<Front>& fronts);

    /// Minutes must come in ascending order.
    RainValues at(Minute minute);

  private:
    Random random_;
    std::vector<Shower> showers_; // in time order, one after the other
    std::size_t current_ = 0;
    double bucket_ = 0;
    double wet_ = 0;
};

} // namespace kelvrum::sample
