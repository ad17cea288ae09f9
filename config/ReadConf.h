// SPDX-License-Identifier: GPL-3.0-or-later
// Opening a project: from the path of a configuration file to a StationConfig.
#pragma once

#include "config/StationConfig.h"
#include "util/FileSource.h"

#include <optional>
#include <string_view>

namespace kelvrum {

/// Reads the station of a configuration file. The form follows from the name in the path, in any case of
/// letters; with two names in it, the binary form's counts. Nothing when the path holds none: the open
/// project stays then. A file that cannot be read gives an empty station with its Kind and BaseFolder.
std::optional<StationConfig> readConf(std::string_view ConfFile, const FileOpener& open = openFile);

/// Opens the ini project in a folder, whether its configuration can be read or not. `folder` is not empty; it
/// may lack the separator at its end.
StationConfig readProjectFolder(std::string_view folder, const FileOpener& open = openFile);

/// The second station line of an ini project: "Location - DeviceNumber".
std::string stationSubtitle(const StationConfig& station);

} // namespace kelvrum
