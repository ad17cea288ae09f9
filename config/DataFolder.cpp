// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/DataFolder.h"

#include "config/ConfigForms.h"
#include "util/Paths.h"
#include "util/Text.h"

namespace kelvrum {

namespace {
constexpr std::size_t SHORTEST_BATCH_FOLDER = 6;
} // namespace

std::string dataFolder(const StationConfig& station) {
    if (formOf(station).dataPlace == DataPlace::baseFolder) {
        return station.BaseFolder;
    }
    return isAbsoluteFolder(station.DataFolder) ? station.DataFolder
                                                : station.BaseFolder + station.DataFolder;
}

std::vector<std::string> dataFilesIn(const std::string& folder) {
    return filesIn(folder.empty() ? "." : folder);
}

std::string batchFolder(std::string_view iniPath) {
    const std::string folder = replaceAllNoCase(iniPath, projectForm().fileName, "Data\\");
    return folder.size() < SHORTEST_BATCH_FOLDER ? std::string() : folder;
}

} // namespace kelvrum
