// SPDX-License-Identifier: GPL-3.0-or-later
// The binary form of the station configuration, a record file.
#pragma once

#include "config/StationConfig.h"
#include "util/FileSource.h"

#include <string_view>

namespace kelvrum {

/// Fills the station from a binary configuration file: its name as Title, the wide-record switch and one
/// channel for each active slot (averaged as mean, tagged with the key of its list column). A file that
/// cannot be read or has another length leaves the station as it is; the result is false then.
bool ReadVarnix(std::string_view path, StationConfig& station, const FileOpener& open = openFile);

} // namespace kelvrum
