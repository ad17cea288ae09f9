// SPDX-License-Identifier: GPL-3.0-or-later
// The figures of a reading hour by hour, day by day or month by month.
#pragma once

#include "evaluation/CompensatedSum.h"
#include "evaluation/EvaluationInput.h"
#include "evaluation/IntervalGrid.h"
#include "evaluation/WindStatistics.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <vector>

namespace kelvrum {

struct BreakdownRow {
    DateTime start = 0; // of the hour, day or month, which may lie before the range
    std::int64_t intervals = 0;
    std::int64_t withValue = 0;
    std::int64_t minutes = 0;
    std::int64_t presentMinutes = 0;
    std::optional<double> minimum; // none for directions, as the maximum
    std::optional<double> mean;    // for sums the sum, for directions the mean weighted with the speed
    std::optional<double> maximum;
    std::array<std::int64_t, LIMITS> above{}; // intervals above each limit

    [[nodiscard]] std::optional<double> coverage() const { return percentOf(presentMinutes, minutes); }

    bool operator==(const BreakdownRow&) const = default;
};

struct Breakdown {
    CalendarUnit unit = CalendarUnit::day;
    std::vector<BreakdownRow> rows; // all units in which an interval begins, in time order

    bool operator==(const Breakdown&) const = default;
};

/// Hours of the clock for a range of at most 24 hours, months for one of more than 62 times 24 hours, else
/// days; never finer than the interval.
CalendarUnit breakdownUnit(const TimeRange& range, std::int32_t interval);

class BreakdownTally {
  public:
    explicit BreakdownTally(const EvaluationRequest& request);

    /// The next interval that was read; its value, if it counts, follows with one of the next two.
    void add(const IntervalReading& interval, const IntervalGrid& grid) {
        while (interval.index >= end_) {
            openRow(grid);
        }
        rows_.back().presentMinutes += interval.present;
        rows_.back().withValue += hasValue(interval.value) ? 1 : 0;
    }
    void addValue(double v) {
        BreakdownRow& row = rows_.back();
        row.minimum = counted_ == 0 ? v : std::min(*row.minimum, v);
        row.maximum = counted_ == 0 ? v : std::max(*row.maximum, v);
        ++counted_;
        sum_.add(v);
        for (std::size_t i = 0; i < LIMITS; ++i) {
            row.above[i] += v > limits_[i] ? 1 : 0;
        }
    }
    void addWind(double sine, double cosine, double speed) { wind_.add(sine, cosine, speed); }

    /// Completes the rows up to the last interval of the grid.
    [[nodiscard]] Breakdown result(const IntervalGrid& grid);

  private:
    void openRow(const IntervalGrid& grid);
    void closeRow();

    CalendarUnit unit_;
    EvaluatedKind kind_;
    std::array<double, LIMITS> limits_{}; // infinite without one
    std::vector<BreakdownRow> rows_;
    std::int64_t end_ = 0;     // the interval after the last one of the last row
    std::int64_t counted_ = 0; // values of the last row
    CompensatedSum sum_;       // of them
    VectorSum wind_;           // of the last row
};

} // namespace kelvrum
