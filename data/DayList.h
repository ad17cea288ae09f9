// SPDX-License-Identifier: GPL-3.0-or-later
// The raw records of day files, as the data list shows them: one row for each record, one column for each
// channel.
#pragma once

#include "config/StationConfig.h"
#include "data/DayFiles.h"
#include "data/Reading.h"
#include "util/DateTime.h"
#include "util/FileSource.h"

#include <optional>
#include <string>
#include <vector>

namespace kelvrum {

struct DayRows {
    std::size_t channels = 0;
    std::vector<DateTime> times;
    std::vector<float> values; // rows x channels; of wide records the means

    /// Reserves memory for this many rows.
    void reserve(std::size_t rows) {
        times.reserve(rows);
        values.reserve(rows * channels);
    }
};

/// The files of one day: those whose name starts with the date and ends in ".KMH" (any case), in byte order;
/// but of two or more, the first two are exchanged when the first one starts at the earlier minute.
std::vector<std::string> filesOfDay(const std::string& folder, const std::vector<std::string>& names,
                                    DateTime day, const FileOpener& open);

/// All records of the range, start and end included to the minute, in file order from day to day. Nothing
/// when the reading was given up.
std::optional<DayRows> readDayRows(const StationConfig& station, const TimeRange& range,
                                   const FileOpener& open, const ReadingStep& step);

} // namespace kelvrum
