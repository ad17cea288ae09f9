#include "config/DataFolder.h"

#include "util/Paths.h"
#include "util/Text.h"

namespace kelvrum {

namespace {
constexpr std::size_t SHORTEST_BATCH_FOLDER = 6;
} // namespace

std::string dataFolder(const StationConfig& station) {
    if (station.Kind == ConfigKind::binary) {
        return station.BaseFolder;
    }
    return isAbsoluteFolder(station.DataFolder) ? station.DataFolder
                                                : station.BaseFolder + station.DataFolder;
}

std::string batchFolder(std::string_view iniPath) {
    const std::string folder = replaceAllNoCase(iniPath, "QEL.ini", "Data\\");
    return folder.size() < SHORTEST_BATCH_FOLDER ? std::string() : folder;
}

} // namespace kelvrum
