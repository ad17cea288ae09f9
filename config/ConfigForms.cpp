// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/ConfigForms.h"

#include "config/IniFile.h"
#include "config/ReadConf.h"
#include "config/VarnixFile.h"
#include "util/Paths.h"

#include <algorithm>
#include <iterator>

namespace kelvrum {

namespace {

void readIniForm(std::string_view path, StationConfig& station, const FileOpener& open) {
    if (ReadIni(path, station, open) == INI_READ) {
        station.Title = station.ProjectName;
        station.Subtitle = stationSubtitle(station);
    }
}

void readBinaryForm(std::string_view path, StationConfig& station, const FileOpener& open) {
    ReadVarnix(path, station, open);
}

constexpr ConfigForm FORMS[] = {
    {.kind = ConfigKind::ini,
     .fileName = "QEL.ini",
     .description = "QEL-Datenbank",
     .read = readIniForm,
     .dataPlace = DataPlace::dataFolder,
     .dataFiles = DataFiles::byChannel,
     .offersPolar = true,
     .hasBatchFolder = true},
    {.kind = ConfigKind::binary,
     .fileName = "VARNIX.CFG",
     .description = "Varnix Konfigurationsdateien",
     .read = readBinaryForm,
     .dataPlace = DataPlace::baseFolder,
     .dataFiles = DataFiles::byDay,
     .offersPolar = false,
     .hasBatchFolder = false},
};

} // namespace

std::span<const ConfigForm> configForms() { return FORMS; }

const ConfigForm& formOf(const StationConfig& station) {
    const auto form = std::find_if(std::begin(FORMS), std::end(FORMS),
                                   [&station](const ConfigForm& one) { return one.kind == station.Kind; });
    return form == std::end(FORMS) ? FORMS[0] : *form;
}

bool hasDayFiles(const StationConfig& station) { return formOf(station).dataFiles == DataFiles::byDay; }

const ConfigForm& projectForm() { return FORMS[0]; }

std::string projectFile(std::string_view folder) {
    return withSeparator(folder).append(projectForm().fileName);
}

} // namespace kelvrum
