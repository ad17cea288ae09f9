// SPDX-License-Identifier: GPL-3.0-or-later
// How complete a reading is.
#pragma once

#include "evaluation/EvaluationInput.h"
#include "evaluation/IntervalGrid.h"

#include <cstdint>
#include <optional>

namespace kelvrum {

/// A run of intervals without value.
struct Outage {
    DateTime start = 0;
    std::int64_t intervals = 0;
    std::int64_t minutes = 0;

    bool operator==(const Outage&) const = default;
};

struct Availability {
    std::int64_t intervals = 0;
    std::int64_t withValue = 0;
    std::int64_t evaluated = 0;    // those with value that count in the figures of values
    std::optional<double> percent; // with value, of all; none for sums, none without intervals
    std::int64_t minutes = 0;      // of all intervals
    std::int64_t presentMinutes = 0;
    std::int64_t notCovered = 0;         // intervals with less than 75 % of their minutes
    std::optional<Outage> longestOutage; // the earlier one on a tie
    std::optional<TimedValue> first;     // of the values that count
    std::optional<TimedValue> last;

    [[nodiscard]] std::int64_t withoutValue() const { return intervals - withValue; }
    [[nodiscard]] std::optional<double> coverage() const { return percentOf(presentMinutes, minutes); }

    bool operator==(const Availability&) const = default;
};

class AvailabilityTally {
  public:
    /// The next interval that was read: whether it is covered, and whether its value counts in the figures of
    /// values.
    void add(const IntervalReading& interval, bool covered, bool evaluated) {
        counts_.presentMinutes += interval.present;
        coveredIntervals_ += covered ? 1 : 0;
        if (hasValue(interval.value)) {
            ++counts_.withValue;
            longest_ = longer(longest_, {next_, interval.index - next_});
            next_ = interval.index + 1;
        }
        if (evaluated) {
            last_ = {interval.value, interval.index};
            if (counts_.evaluated == 0) {
                first_ = last_;
            }
            ++counts_.evaluated;
        }
    }

    /// Intervals that were never added have no value and no minutes.
    [[nodiscard]] Availability result(const IntervalGrid& grid, EvaluatedKind kind) const;

  private:
    struct Run {
        std::int64_t first = 0;
        std::int64_t length = 0;
    };
    struct Value {
        double value = 0;
        std::int64_t index = 0;
    };
    /// Of two runs the longer one, the earlier on a tie.
    static Run longer(const Run& earlier, const Run& later) {
        return later.length > earlier.length ? later : earlier;
    }

    Availability counts_;
    std::int64_t coveredIntervals_ = 0;
    std::int64_t next_ = 0; // the interval after the last one with value
    Run longest_;
    Value first_; // of those that count
    Value last_;
};

} // namespace kelvrum
