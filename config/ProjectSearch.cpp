// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/ProjectSearch.h"

#include "config/ConfigForms.h"
#include "config/IniFile.h"
#include "util/Paths.h"

namespace kelvrum {

std::vector<FoundProject> findProjects(std::string_view folder, const FileOpener& open) {
    constexpr std::string_view NO_PROJECT = "@>"; // kept as the name when the file has none
    std::vector<FoundProject> projects;
    const std::string base = withSeparator(folder);
    for (const std::string& name : foldersIn(folder)) {
        StationConfig station;
        station.ProjectName = NO_PROJECT;
        ReadIni(projectFile(base + name), station, open);
        if (station.ProjectName != NO_PROJECT) {
            projects.push_back({station.ProjectName, base + name});
        }
    }
    return projects;
}

} // namespace kelvrum
