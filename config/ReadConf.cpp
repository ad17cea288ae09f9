#include "config/ReadConf.h"

#include "config/IniFile.h"
#include "config/VarnixFile.h"
#include "util/Paths.h"
#include "util/Text.h"

namespace kelvrum {

std::string stationSubtitle(const StationConfig& station) {
    return station.Location + " - " + station.DeviceNumber;
}

StationConfig readProjectFolder(std::string_view folder, const FileOpener& open) {
    StationConfig station;
    station.Kind = ConfigKind::ini;
    station.BaseFolder = withSeparator(folder);
    ReadIni(station.BaseFolder + "QEL.ini", station, open);
    station.Title = station.ProjectName;
    station.Subtitle = stationSubtitle(station);
    return station;
}

std::optional<StationConfig> readConf(std::string_view ConfFile, const FileOpener& open) {
    StationConfig station;
    std::size_t name = findNoCase(ConfFile, "VARNIX.CFG");
    if (name != std::string_view::npos) {
        station.Kind = ConfigKind::binary;
        station.BaseFolder = ConfFile.substr(0, name);
        ReadVarnix(ConfFile, station, open);
        return station;
    }
    name = findNoCase(ConfFile, "QEL.ini");
    if (name == std::string_view::npos) {
        return std::nullopt;
    }
    station.Kind = ConfigKind::ini;
    station.BaseFolder = ConfFile.substr(0, name);
    if (ReadIni(ConfFile, station, open) == INI_READ) {
        station.Title = station.ProjectName;
        station.Subtitle = stationSubtitle(station);
    }
    return station;
}

} // namespace kelvrum
