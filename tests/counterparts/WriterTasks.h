// SPDX-License-Identifier: GPL-3.0-or-later
// What a process to be killed writes, and what its killer expects.
#pragma once

#include "batchprint/BatchRows.h"
#include "correction/Recalculation.h"
#include "util/DateTime.h"

#include <string>
#include <string_view>
#include <vector>

namespace kelvrum::testing {

/// Most of two years, from minute FIRST_MINUTE of the first to LAST_MINUTE of the second.
inline constexpr int FIRST_YEAR = 2020;
inline constexpr int FIRST_MINUTE = 7;
inline constexpr int LAST_MINUTE = 364 * 1440 + 100;

inline TimeRange killedRange() {
    return {dateSerial(FIRST_YEAR, 1, 1) + timeSerial(0, FIRST_MINUTE),
            dateSerial(FIRST_YEAR + 1, 12, 31) + timeSerial(1, 40)};
}

inline StationConfig killedStation(std::string_view folder) {
    StationConfig station;
    station.Kind = ConfigKind::ini;
    station.BaseFolder = folder;
    station.DataFolder = "Data\\";
    return station;
}

/// The settings of a saving; they tell its number.
inline std::vector<RowSettings> rowsOfSaving(int number) {
    std::vector<RowSettings> rows(ROW_COUNT);
    int row = 0;
    for (RowSettings& one : rows) {
        one.minimum = number;
        one.maximum = number + 0.1 * ++row;
        one.interval = number % 6;
        one.selected = number % 2 == 0;
    }
    return rows;
}

} // namespace kelvrum::testing
