// SPDX-License-Identifier: GPL-3.0-or-later
// The intervals of a range by number.
#pragma once

#include "util/DateTime.h"

#include <cstdint>

namespace kelvrum {

/// Parts of the calendar.
enum class CalendarUnit { hour, day, month };

/// The start of the hour, day or month that t lies in.
DateTime unitStart(DateTime t, CalendarUnit unit);

/// All intervals that begin in a range (its start included, its end excluded) and not after `now`.
class IntervalGrid {
  public:
    /// There are none when the interval is below 1 minute, the end is not after the start, the start is not
    /// finite, or a time is NaN.
    IntervalGrid(const TimeRange& range, std::int32_t interval, DateTime now);

    [[nodiscard]] std::int64_t count() const { return count_; }
    [[nodiscard]] std::int64_t minutes(std::int64_t intervals) const { return intervals * interval_; }

    /// The start of interval i, which is also the end of the one before it.
    [[nodiscard]] DateTime start(std::int64_t i) const;

    /// The first interval after i that begins in a later unit; count() when there is none.
    [[nodiscard]] std::int64_t nextUnit(std::int64_t i, CalendarUnit unit) const;

  private:
    DateTime from_;
    std::int32_t interval_;
    std::int64_t count_ = 0;
};

} // namespace kelvrum
