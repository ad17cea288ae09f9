#include "config/ProjectSearch.h"

#include "config/IniFile.h"
#include "util/Paths.h"

#include <filesystem>

namespace kelvrum {

std::vector<FoundProject> findProjects(std::string_view folder, const FileOpener& open) {
    constexpr std::string_view NO_PROJECT = "@>"; // a name that stays when the file gives none
    std::vector<FoundProject> projects;
    const std::string base = withSeparator(folder);
    for (const std::string& name : foldersIn(folder)) {
        StationConfig station;
        station.ProjectName = NO_PROJECT;
        ReadIni(base + name + "\\QEL.ini", station, open);
        if (station.ProjectName != NO_PROJECT) {
            projects.push_back({station.ProjectName, base + name});
        }
    }
    return projects;
}

std::string folderAround(std::string_view folder) {
    std::error_code error;
    auto native = std::filesystem::absolute(nativePath(folder).value_or("."), error).lexically_normal();
    if (!native.has_filename()) {
        native = native.parent_path(); // a separator at the end
    }
    return stationPath(native.parent_path());
}

} // namespace kelvrum
