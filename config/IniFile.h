// SPDX-License-Identifier: GPL-3.0-or-later
// The ini form of the station configuration, a text file.
#pragma once

#include "config/StationConfig.h"
#include "util/FileSource.h"

#include <cstdint>
#include <string_view>

namespace kelvrum {

/// Status of ReadIni.
inline constexpr std::int32_t INI_READ = 0;
inline constexpr std::int32_t INI_NOT_FOUND = 1; // the file cannot be opened

/// Lines longer than this many bytes are skipped.
inline constexpr std::size_t MAX_INI_LINE = 1024UL * 1024;

/// Empties the channel table of `station` and fills the station from the ini file `pfad`: fields that no line
/// names keep their value. Invalid lines are ignored silently. The file is decoded as UTF-8 when its
/// bytes are valid UTF-8, else as Windows-1252. Returns INI_READ or INI_NOT_FOUND.
std::int32_t ReadIni(std::string_view pfad, StationConfig& station, const FileOpener& open = openFile);

} // namespace kelvrum
