// Where a station's data files lie.
#pragma once

#include "config/StationConfig.h"

#include <string>
#include <string_view>

namespace kelvrum {

/// The folder of the data files, as it is put in front of a file name. Ini form: DataFolder when it is
/// absolute, else BaseFolder + DataFolder. Binary form: BaseFolder.
std::string dataFolder(const StationConfig& station);

/// The project folder handed to the batch print dialog: the path of an ini file with every "QEL.ini" (any
/// case) replaced by "Data\"; empty when that has fewer than 6 characters.
std::string batchFolder(std::string_view iniPath);

} // namespace kelvrum
