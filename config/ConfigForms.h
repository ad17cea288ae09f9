// SPDX-License-Identifier: GPL-3.0-or-later
// The forms of a station's configuration: one row each with its file name, its reader and the properties of
// its stations.
#pragma once

#include "config/StationConfig.h"
#include "util/FileSource.h"

#include <span>
#include <string>
#include <string_view>

namespace kelvrum {

/// Where a station keeps its data files.
enum class DataPlace {
    dataFolder, // DataFolder, below BaseFolder unless it is absolute
    baseFolder,
};

/// What the data files are, and with them the columns of the data list.
enum class DataFiles {
    byChannel, // one for each channel and year: "Zeit" and "Wert" of the selected channel
    byDay,     // one for each day, with all active slots: "Uhrzeit" and a column for each of them
};

struct ConfigForm {
    ConfigKind kind;
    std::string_view fileName;    // found in any case of letters
    std::string_view description; // of such files, in the file dialog
    /// Fills a station that has nothing but its Kind and BaseFolder from the file at `path`. It gets nothing
    /// more when the file cannot be read.
    void (*read)(std::string_view path, StationConfig& station, const FileOpener& open);
    DataPlace dataPlace;
    DataFiles dataFiles;
    bool offersPolar;    // wind directions come with their speeds, for the polar diagram
    bool hasBatchFolder; // the batch print gets a project folder
};

/// All forms, in the order of the file dialog.
std::span<const ConfigForm> configForms();

/// The form of a station. One that was never opened counts as of the first form.
const ConfigForm& formOf(const StationConfig& station);

/// Whether a station keeps its data in day files.
bool hasDayFiles(const StationConfig& station);

/// The form of the projects that are found in folders, the start-up project among them.
const ConfigForm& projectForm();

/// The path of the configuration file of the project in a folder.
std::string projectFile(std::string_view folder);

} // namespace kelvrum
