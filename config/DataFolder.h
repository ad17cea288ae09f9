// SPDX-License-Identifier: GPL-3.0-or-later
// Where a station's data files are.
#pragma once

#include "config/StationConfig.h"

#include <string>
#include <string_view>
#include <vector>

namespace kelvrum {

/// The folder of the data files, as it is put before a file name, by the DataPlace of the station's
/// form: DataFolder when it is absolute, else BaseFolder + DataFolder; or BaseFolder.
std::string dataFolder(const StationConfig& station);

/// Names (UTF-8) of the files in a data folder, in byte order; an empty folder is the current one.
std::vector<std::string> dataFilesIn(const std::string& folder);

/// The project folder for the batch print dialog: the path of an ini configuration with every name of such a
/// file (in any case of letters) replaced by "Data\"; empty when that has fewer than 6 characters.
std::string batchFolder(std::string_view iniPath);

} // namespace kelvrum
