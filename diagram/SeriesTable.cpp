// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/SeriesTable.h"

#include <algorithm>

namespace kelvrum {

void SeriesTable::clear() {
    for (auto& row : rows_) {
        row.assign(1, 0.0);
    }
}

void SeriesTable::resize(std::size_t columns) {
    for (auto& row : rows_) {
        row.resize(std::max<std::size_t>(columns, 1));
    }
}

void SeriesTable::set(std::size_t column, double time, double y1, double y2) {
    rows_[TIME][column] = time;
    rows_[Y1][column] = y1;
    rows_[Y2][column] = y2;
}

SeriesTable& seriesTable() {
    static SeriesTable table;
    return table;
}

Series seriesInUse(std::int32_t dataCount) {
    const SeriesTable& table = seriesTable();
    const std::size_t count = std::min(static_cast<std::size_t>(std::max(dataCount, 0)), table.columns());
    return {table.row(SeriesTable::TIME).first(count), table.row(SeriesTable::Y1).first(count),
            table.row(SeriesTable::Y2).first(count), 0};
}

} // namespace kelvrum
