// SPDX-License-Identifier: GPL-3.0-or-later
#include "evaluation/Breakdown.h"

#include <algorithm>
#include <limits>
#include <utility>

namespace kelvrum {

namespace {

constexpr std::int64_t LONGEST_IN_HOURS = MINUTES_PER_DAY;
constexpr std::int64_t LONGEST_IN_DAYS = 62LL * MINUTES_PER_DAY;

/// True when the range has at most this many minutes.
bool lasts(const TimeRange& range, std::int64_t minutes) {
    constexpr double ROUNDING = 1e-5; // minutes; below a millisecond
    return (range.to - range.from) * MINUTES_PER_DAY <= static_cast<double>(minutes) + ROUNDING;
}

} // namespace

CalendarUnit breakdownUnit(const TimeRange& range, std::int32_t interval) {
    if (!lasts(range, LONGEST_IN_DAYS) || interval > MINUTES_PER_DAY) {
        return CalendarUnit::month;
    }
    return lasts(range, LONGEST_IN_HOURS) && interval <= MINUTES_PER_HOUR ? CalendarUnit::hour
                                                                          : CalendarUnit::day;
}

BreakdownTally::BreakdownTally(const EvaluationRequest& request)
    : unit_(breakdownUnit(request.range, request.interval))
    , kind_(request.kind) {
    for (std::size_t i = 0; i < LIMITS; ++i) {
        limits_[i] = request.limits[i].value_or(std::numeric_limits<double>::infinity());
    }
}

void BreakdownTally::openRow(const IntervalGrid& grid) {
    closeRow();
    const std::int64_t first = end_;
    end_ = grid.nextUnit(first, unit_);
    BreakdownRow& row = rows_.emplace_back();
    row.start = unitStart(grid.start(first), unit_);
    row.intervals = end_ - first;
    row.minutes = grid.minutes(row.intervals);
}

void BreakdownTally::closeRow() {
    if (rows_.empty()) {
        return;
    }
    BreakdownRow& row = rows_.back();
    if (kind_ == EvaluatedKind::direction) {
        row.mean = wind_.direction();
    } else if (counted_ > 0) {
        row.mean = kind_ == EvaluatedKind::sum
                       ? sum_.value()
                       : std::clamp(sum_.value() / static_cast<double>(counted_), *row.minimum, *row.maximum);
    }
    counted_ = 0;
    sum_ = {};
    wind_ = {};
}

Breakdown BreakdownTally::result(const IntervalGrid& grid) {
    while (end_ < grid.count()) {
        openRow(grid);
    }
    closeRow();
    return {unit_, std::move(rows_)};
}

} // namespace kelvrum
