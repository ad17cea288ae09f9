// SPDX-License-Identifier: GPL-3.0-or-later
// From interval values to the columns of the SeriesTable.
#pragma once

#include "diagram/SeriesTable.h"
#include "util/DateTime.h"

#include <cstddef>
#include <cstdint>
#include <span>

namespace kelvrum {

/// The start of interval i of a range: never a running sum, which would drift.
inline DateTime intervalStart(DateTime start, std::int64_t i, std::int32_t interval) {
    return start + static_cast<double>(i * interval) / static_cast<double>(MINUTES_PER_DAY);
}

/// intervalStart of consecutive intervals, the first of which has the number `first`.
void intervalStarts(DateTime start, std::int64_t first, std::int32_t interval, std::span<DateTime> starts);

/// Lays interval values into a table from its first column on: a column for each value, and one gap column
/// after the last value before a run of missing intervals. Missing intervals before the first value leave
/// none.
class SeriesFill {
  public:
    /// The table must outlive the fill; it gets room for `expected` columns at once.
    SeriesFill(SeriesTable& table, std::size_t expected);

    /// Adds the next interval in time order.
    void add(DateTime start, double value);

    /// Adds consecutive intervals of the reading that starts at `start`; the first has the number `first`.
    void add(DateTime start, std::int64_t first, std::int32_t interval, std::span<const double> values);

    /// The same for two series with as many values each: a column where either has one, and one gap column
    /// where both are missing.
    void add(DateTime start, std::int64_t first, std::int32_t interval, std::span<const double> values,
             std::span<const double> seconds);

    /// The next interval begins a new pass over the range: no gap precedes its first value.
    void startPass() { previousValid_ = false; }

    /// Shrinks the table to the columns added, at least one, and returns how many were added.
    std::size_t finish();

  private:
    void reserveFor(std::size_t more);

    SeriesTable& table_;
    std::size_t columns_ = 0;
    bool previousValid_ = false;
};

} // namespace kelvrum
