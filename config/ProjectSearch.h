// SPDX-License-Identifier: GPL-3.0-or-later
// Finding the projects below a folder.
#pragma once

#include "util/FileSource.h"

#include <string>
#include <string_view>
#include <vector>

namespace kelvrum {

/// A project folder and the name that its configuration gives it.
struct FoundProject {
    std::string name;
    std::string folder; // without a separator at its end

    bool operator==(const FoundProject&) const = default;
};

/// The subfolders of a folder whose ini configuration has a "PROJEKTNAME" line, in byte order of their names.
/// The open project is not changed.
std::vector<FoundProject> findProjects(std::string_view folder, const FileOpener& open = openFile);

} // namespace kelvrum
