// SPDX-License-Identifier: GPL-3.0-or-later
// Names, paths and values of the channel data files.
#pragma once

#include "config/StationConfig.h"
#include "util/DateTime.h"
#include "util/FileSource.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>

namespace kelvrum {

/// "Kanal", the channel with at least two digits, "_", the suffix and "_" when there is one, the year with
/// four digits, ".chn".
std::string channelFileName(std::int32_t channel, std::string_view suffix, int year);

/// Full path of a channel's file.
std::string channelPath(const StationConfig& station, std::int32_t channel, std::string_view suffix,
                        int year);

/// Full path of the paired channel's file. It is looked for in DataFolder alone, without BaseFolder, whatever
/// the form of DataFolder: an asymmetry that stations rely on.
std::string pairedChannelPath(const StationConfig& station, std::int32_t channel, std::string_view suffix,
                              int year);

/// Reads minute values of a channel's file from a byte offset on. Values that cannot be read become 0, that
/// is missing; without a file all of them.
void readMinutes(FileSource* file, std::int64_t offset, std::span<double> values);

/// Minute of the year from 0, the position of a value in its file: rounded to the nearest minute, a half to
/// the even neighbour.
std::int32_t MinuteIndex(DateTime t);

} // namespace kelvrum
