// SPDX-License-Identifier: GPL-3.0-or-later
#include "evaluation/Availability.h"

namespace kelvrum {

Availability AvailabilityTally::result(const IntervalGrid& grid, EvaluatedKind kind) const {
    Availability result = counts_;
    result.intervals = grid.count();
    result.minutes = grid.minutes(grid.count());
    result.notCovered = grid.count() - coveredIntervals_;
    if (kind != EvaluatedKind::sum) {
        result.percent = percentOf(result.withValue, result.intervals);
    }
    const Run outage = longer(longest_, {next_, grid.count() - next_});
    if (outage.length > 0) {
        result.longestOutage = {grid.start(outage.first), outage.length, grid.minutes(outage.length)};
    }
    if (result.evaluated > 0) {
        result.first = {countedValue(first_.value), grid.start(first_.index)};
        result.last = {countedValue(last_.value), grid.start(last_.index)};
    }
    return result;
}

} // namespace kelvrum
