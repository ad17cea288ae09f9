// SPDX-License-Identifier: GPL-3.0-or-later
// Reading a line diagram: which value is under a pointer, next to another value, a day further.
#pragma once

#include "diagram/PlotArea.h"
#include "diagram/SeriesTable.h"
#include "util/DateTime.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

namespace kelvrum {

/// The smallest and greatest of several values.
struct ValueSpread {
    double smallest = 0;
    double greatest = 0;
    std::int64_t count = 0; // valid values; 0: smallest and greatest mean nothing

    bool operator==(const ValueSpread&) const = default;
};

/// What a column of a series shows. A series without a value there has nothing.
struct ReadValue {
    std::size_t column = 0;
    DateTime time = 0; // start of the interval
    std::optional<double> y1;
    std::optional<double> y2;
    std::optional<double> minimum; // of the interval, where a second pass has it
    std::optional<double> maximum; // and a third one
};

/// Looks up the columns of a line diagram. Construction scans the times once; times are then found by binary
/// search, and columns without a value are skipped one by one. The series must outlive it unchanged.
class SeriesReader {
  public:
    SeriesReader() = default;
    /// `interval` is that of the columns in days; 0 when it is not known.
    SeriesReader(const Series& series, DateTime xLow, double interval);

    /// The number of passes, at most three: means, minima, maxima.
    [[nodiscard]] int passes() const { return passes_; }

    /// The column with a value nearest to a time, the earlier one on a tie; nothing in a gap, that
    /// is where neither the interval that holds the time nor the nearest start of an interval has a value
    /// and no value lies within `reach` days.
    [[nodiscard]] std::optional<ReadValue> at(DateTime t, double reach) const;

    /// The column with a value nearest to a time, however far.
    [[nodiscard]] std::optional<ReadValue> nearest(DateTime t) const;

    /// The last column with a value before a time, and the first one after it.
    [[nodiscard]] std::optional<ReadValue> before(DateTime t) const;
    [[nodiscard]] std::optional<ReadValue> after(DateTime t) const;

    /// The next column with a value before or after one.
    [[nodiscard]] std::optional<ReadValue> previous(std::size_t column) const;
    [[nodiscard]] std::optional<ReadValue> next(std::size_t column) const;

    /// The first and last column with a value.
    [[nodiscard]] std::optional<ReadValue> first() const;
    [[nodiscard]] std::optional<ReadValue> last() const;

    /// The spread of series 1 over the columns that share a column of dots with one.
    [[nodiscard]] ValueSpread spreadAround(std::size_t column, const PlotArea& plot) const;

    /// Where the direction of a column is drawn: its value, or a full circle above when the curve came to it
    /// that way. The first call for a row walks the series once. `row` selects the series.
    [[nodiscard]] double joinedAt(std::size_t column, SeriesTable::Row row = SeriesTable::Y1) const;

  private:
    [[nodiscard]] std::size_t count() const { return ends_[0]; }
    [[nodiscard]] bool isValue(std::size_t column) const;
    [[nodiscard]] ReadValue read(std::size_t column) const;
    [[nodiscard]] std::optional<double> inPass(int pass, DateTime t) const;
    /// The first column of the means that is not before a time.
    [[nodiscard]] std::size_t columnAt(DateTime t) const;

    Series series_;
    double interval_ = 0;
    int passes_ = 0;
    std::array<std::size_t, 3> ends_{};                   // of each pass
    mutable std::array<std::vector<double>, 2> joined_{}; // directions of both series, empty until wanted
};

/// The time of a column of dots of a plot.
DateTime timeAt(const PlotArea& plot, double x);

/// The point of the compass of a direction in degrees, one of 16 in German: N, NNO, NO, ONO, O ...; an empty
/// text for what is no number.
std::string_view compassPoint(double degrees);

/// b − a; of directions the shorter way round, −180 to 180.
double valueDifference(double a, double b, bool directions);

} // namespace kelvrum
