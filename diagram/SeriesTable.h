// SPDX-License-Identifier: GPL-3.0-or-later
// The program-wide table of the values that a diagram draws.
#pragma once

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace kelvrum {

/// Marks "no value" in the table; any magnitude of this or more is a gap.
inline constexpr double NoValue = 999999;

/// 3 rows by N columns of doubles, columns indexed from 0. There is one for the whole program (seriesTable);
/// the readers and the diagram controls share it.
class SeriesTable {
  public:
    enum Row : std::size_t {
        TIME = 0, // date-time of the sample
        Y1 = 1,   // value of series 1, left axis
        Y2 = 2,   // value of series 2, right axis; NoValue = none
    };
    static constexpr std::size_t ROWS = 3;

    SeriesTable() { clear(); }

    /// Resets to one column of zeros.
    void clear();

    [[nodiscard]] std::size_t columns() const { return rows_[TIME].size(); }

    /// Changes the number of columns; those that stay keep their contents, new ones hold zeros. At least one
    /// column stays. The memory is kept for the next series.
    void resize(std::size_t columns);

    /// The values of one row.
    [[nodiscard]] std::span<const double> row(Row row) const { return rows_[row]; }
    [[nodiscard]] std::span<double> row(Row row) { return rows_[row]; }

    /// Sets one column, which must exist.
    void set(std::size_t column, double time, double y1, double y2);

    bool operator==(const SeriesTable&) const = default;

  private:
    std::array<std::vector<double>, ROWS> rows_;
};

/// The one table of the program.
SeriesTable& seriesTable();

/// Columns of the table in use: three rows of equal length.
struct Series {
    std::span<const double> times;
    std::span<const double> y1;
    std::span<const double> y2;
    double interval = 0; // of the columns in days; 0: it follows from their times
};

/// The first `dataCount` columns of the program's table, at most those that there are.
Series seriesInUse(std::int32_t dataCount);

} // namespace kelvrum
