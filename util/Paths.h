// SPDX-License-Identifier: GPL-3.0-or-later
// Paths are kept as the station writes them, with "\" or "/" as separator. Here, and only here, they become
// native paths.
#pragma once

#include <filesystem>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvrum {

/// The file existence test. The path is lower-cased; a bare drive letter ("a" or "a:") becomes the drive's
/// root; true when the system has attributes for it. An empty path does not exist, nor does a
/// path with a drive letter on a system without drives.
bool fileExists(std::string_view path);

/// The native path of a station path: both separators are accepted, and each component that does not
/// exist as written is matched without regard to the case of letters, in any script (the first in byte order
/// when several match).
/// Components that do not exist at all stay as written. Nothing for an empty path, for one with a NUL in it
/// and, on a system without drives, for a path with a drive letter.
std::optional<std::filesystem::path> nativePath(std::string_view path);

/// The station path of a native path (UTF-8, native separators).
std::string stationPath(const std::filesystem::path& path);

/// The native path of a station path as text; empty when there is none.
std::string nativeText(std::string_view path);

/// The parent of a folder, as a native path; for an empty text the parent of the current folder.
std::string folderAround(std::string_view folder);

/// True when a folder is absolute and not relative to the project: it begins with two
/// backslashes or holds a ":"; on a system without drives also when it begins with "/".
bool isAbsoluteFolder(std::string_view folder);

/// True when the text ends in "\" or "/".
bool endsInSeparator(std::string_view path);

/// The text with a "\" after it, unless it is empty or ends in a separator.
std::string withSeparator(std::string_view path);

/// Names (UTF-8) of the files in a folder, in byte order; empty when it cannot be listed.
std::vector<std::string> filesIn(std::string_view folder);

/// Names (UTF-8) of the folders in a folder, in byte order; empty when it cannot be listed.
std::vector<std::string> foldersIn(std::string_view folder);

} // namespace kelvrum
