// SPDX-License-Identifier: GPL-3.0-or-later
#include "evaluation/Exceedances.h"

namespace kelvrum {

void ExceedanceTally::addAbove(double v, std::int64_t index, const IntervalGrid& grid) {
    ++counts_.above;
    if (index >= nextDay_) {
        ++counts_.days;
        nextDay_ = grid.nextUnit(index, CalendarUnit::day);
    }
    if (counts_.episodes == 0 || index != run_.end) {
        ++counts_.episodes;
        run_ = {index, index, index, v};
    }
    run_.end = index + 1;
    if (v > run_.maximum) {
        run_.maximum = v;
        run_.maximumAt = index;
    }
    if (run_.length() > longest_.length()) {
        longest_ = run_;
    }
}

Exceedances ExceedanceTally::result(const IntervalGrid& grid) const {
    Exceedances result = counts_;
    result.minutesAbove = grid.minutes(counts_.above);
    result.minutesBelow = grid.minutes(counts_.below);
    if (counts_.episodes > 0) {
        result.longestEpisode = {grid.start(longest_.first),
                                 grid.start(longest_.end),
                                 {longest_.maximum, grid.start(longest_.maximumAt)}};
    }
    return result;
}

} // namespace kelvrum
