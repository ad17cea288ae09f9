// SPDX-License-Identifier: GPL-3.0-or-later
// Where a channel's stored values begin and end, found by the names of its files and read from their ends.
#pragma once

#include "config/StationConfig.h"
#include "data/Reading.h"
#include "util/FileSource.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace kelvrum {

/// The years for which a channel of the ini form has files, ascending.
std::vector<int> yearsWithFile(const StationConfig& station, std::int32_t channel);

/// Whether the channel has any file: a year's file, or in the binary form any day file.
bool hasFile(const StationConfig& station, std::int32_t channel);

enum class StoredEnd { first, last };

/// The time of the first or last minute of a channel that averaging counts: a wind direction needs its speed
/// too. Years (days) without one are skipped.
struct StoredTime {
    std::optional<DateTime> time; // nothing: the channel has no value
};

/// Nothing when a step gave the search up. Files are read in pieces, starting at the requested end; one that
/// cannot be read has no values.
std::optional<StoredTime> findStored(const StationConfig& station, std::int32_t channel, StoredEnd end,
                                     const FileOpener& open, const ReadingStep& step);

} // namespace kelvrum
