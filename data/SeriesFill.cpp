// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/SeriesFill.h"

#include "util/Validity.h"

#include <algorithm>
#include <array>

namespace kelvrum {

void intervalStarts(DateTime start, std::int64_t first, std::int32_t interval, std::span<DateTime> starts) {
    // Whole minutes are exact in a double; in this form the loop vectorises.
    const auto minutes = static_cast<double>(first * interval);
    for (std::size_t i = 0; i < starts.size(); ++i) {
        const double after = static_cast<double>(static_cast<std::int32_t>(i)) * interval;
        starts[i] = start + (minutes + after) / static_cast<double>(MINUTES_PER_DAY);
    }
}

SeriesFill::SeriesFill(SeriesTable& table, std::size_t expected)
    : table_(table) {
    table_.resize(expected);
}

void SeriesFill::reserveFor(std::size_t more) {
    if (columns_ + more > table_.columns()) {
        table_.resize(std::max(columns_ + more, table_.columns() * 2));
    }
}

void SeriesFill::add(DateTime start, double value) { add(start, 0, 0, std::array{value}); }

void SeriesFill::add(DateTime start, std::int64_t first, std::int32_t interval,
                     std::span<const double> values) {
    reserveFor(values.size());
    const std::span<double> times = table_.row(SeriesTable::TIME);
    const std::span<double> y1 = table_.row(SeriesTable::Y1);
    const std::span<double> y2 = table_.row(SeriesTable::Y2);
    std::size_t column = columns_;
    bool previousValid = previousValid_;
    for (std::size_t i = 0; i < values.size(); ++i) {
        const bool valid = values[i] != INVALID_VALUE;
        if (valid || previousValid) { // a value, or the one gap after it
            times[column] = intervalStart(start, first + static_cast<std::int64_t>(i), interval);
            y1[column] = values[i];
            y2[column] = INVALID_VALUE;
            ++column;
        }
        previousValid = valid;
    }
    columns_ = column;
    previousValid_ = previousValid;
}

void SeriesFill::add(DateTime start, std::int64_t first, std::int32_t interval,
                     std::span<const double> values, std::span<const double> seconds) {
    reserveFor(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        const bool valid = values[i] != INVALID_VALUE || seconds[i] != INVALID_VALUE;
        if (valid || previousValid_) {
            const DateTime time = intervalStart(start, first + static_cast<std::int64_t>(i), interval);
            table_.set(columns_, time, values[i], seconds[i]);
            ++columns_;
        }
        previousValid_ = valid;
    }
}

std::size_t SeriesFill::finish() {
    table_.resize(columns_);
    return columns_;
}

} // namespace kelvrum
