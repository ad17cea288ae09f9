// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/ReadConf.h"

#include "config/ConfigForms.h"
#include "config/IniFile.h"
#include "util/Paths.h"
#include "util/Text.h"

namespace kelvrum {

std::string stationSubtitle(const StationConfig& station) {
    return station.Location + " - " + station.DeviceNumber;
}

StationConfig readProjectFolder(std::string_view folder, const FileOpener& open) {
    StationConfig station;
    station.Kind = projectForm().kind;
    station.BaseFolder = withSeparator(folder);
    ReadIni(projectFile(folder), station, open);
    station.Title = station.ProjectName;
    station.Subtitle = stationSubtitle(station);
    return station;
}

std::optional<StationConfig> readConf(std::string_view ConfFile, const FileOpener& open) {
    const auto forms = configForms();
    // NOLINTNEXTLINE(modernize-loop-convert): the second compiler cannot reverse a span
    for (auto form = forms.rbegin(); form != forms.rend(); ++form) { // with two names, the later form wins
        const std::size_t name = findNoCase(ConfFile, form->fileName);
        if (name != std::string_view::npos) {
            StationConfig station;
            station.Kind = form->kind;
            station.BaseFolder = ConfFile.substr(0, name);
            form->read(ConfFile, station, open);
            return station;
        }
    }
    return std::nullopt;
}

} // namespace kelvrum
