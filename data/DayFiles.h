// SPDX-License-Identifier: GPL-3.0-or-later
// The day files of stations with a binary configuration.
#pragma once

#include "config/StationConfig.h"
#include "data/Reading.h"
#include "util/DateTime.h"
#include "util/FileSource.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <vector>

namespace kelvrum {

/// The date at the start of a day file's name, for example "20200618": the day of t's minute.
std::string dayName(DateTime t);

/// Name of the day file of a date, for example "20200618.KMH".
std::string dayFileName(DateTime day);

/// The names of the day files of the days from one date to another, in day order: those named by the date
/// alone, in any case of letters.
std::vector<std::string> dayFilesBetween(const std::string& folder, const TimeRange& range);

/// Byte offset of a channel's value field in the fields of a record; nothing when the channel is not active.
std::optional<std::size_t> fieldOffset(const StationConfig& station, std::int32_t channel);

/// What the records of one interval hold for one channel. INVALID_VALUE where no record has a value.
struct DayInterval {
    std::int64_t index = 0; // number of the interval from the range start
    double mean = 0;
    double minimum = 0;
    double maximum = 0;
    std::int64_t present = 0; // number of records averaged
};

/// Reads one channel over a range: the records from the start (inclusive) to the end (exclusive), both to the
/// minute, grouped into intervals of N minutes from the range start. Only intervals with records come back,
/// in time order. Nothing when the reading was given up.
std::optional<std::vector<DayInterval>> readDayIntervals(const StationConfig& station,
                                                         const ReadRequest& request, const FileOpener& open,
                                                         const ReadingStep& step);

} // namespace kelvrum
