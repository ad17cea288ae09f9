// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/Paths.h"

#include "util/CaseFolding.h"
#include "util/Text.h"

#include <algorithm>

namespace kelvrum {

namespace fs = std::filesystem;

namespace {

#ifdef _WIN32
constexpr bool HAS_DRIVES = true;
#else
constexpr bool HAS_DRIVES = false;
#endif

bool isSeparator(char c) { return c == '\\' || c == '/'; }

bool isLetter(char c) { return (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z'); }

bool hasDrive(std::string_view path) { return path.size() >= 2 && isLetter(path[0]) && path[1] == ':'; }

fs::path fromUtf8(std::string_view text) {
    return {std::u8string(reinterpret_cast<const char8_t*>(text.data()), text.size())};
}

std::string toUtf8(const fs::path& path) {
    const std::u8string text = path.u8string();
    return {reinterpret_cast<const char*>(text.data()), text.size()};
}

bool existsAsWritten(const fs::path& path) {
    std::error_code error;
    return fs::exists(fs::symlink_status(path, error));
}

/// The entry of a folder whose name equals `name` but for the case of letters; the first in byte order.
std::optional<std::string> matchNoCase(const fs::path& folder, std::string_view name) {
    std::optional<std::string> best;
    const std::string wanted = foldCase(name);
    std::error_code error;
    fs::directory_iterator entry(folder.empty() ? fs::path(".") : folder, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::string found = toUtf8(entry->path().filename());
        if (foldCase(found) == wanted && (!best || found < *best)) {
            best = std::move(found);
        }
    }
    return best;
}

template<typename Accept>
std::vector<std::string> namesIn(std::string_view folder, Accept accept) {
    std::vector<std::string> names;
    const auto native = nativePath(folder);
    if (!native) {
        return names;
    }
    std::error_code error;
    fs::directory_iterator entry(*native, error);
    for (; !error && entry != fs::directory_iterator(); entry.increment(error)) {
        std::error_code ignored;
        if (accept(*entry, ignored)) {
            names.push_back(toUtf8(entry->path().filename()));
        }
    }
    std::sort(names.begin(), names.end());
    return names;
}

} // namespace

bool fileExists(std::string_view path) {
    std::string lower = foldCase(path);
    if (path.size() == 1 && isLetter(path[0])) {
        lower += ":\\";
    } else if (path.size() == 2 && hasDrive(path)) {
        lower += '\\';
    }
    const auto exists = [](std::string_view text) {
        const auto native = nativePath(text);
        std::error_code error;
        return native && fs::exists(*native, error) && !error;
    };
    // Where letters matter the path as written comes first: a folder on the way may not be listed.
    return exists(lower.size() > 3 ? path : lower) || exists(lower);
}

std::optional<fs::path> nativePath(std::string_view path) {
    if (path.empty() || path.find('\0') != std::string_view::npos) {
        return std::nullopt;
    }
    if (HAS_DRIVES) {
        return fromUtf8(path);
    }
    if (hasDrive(path)) {
        return std::nullopt;
    }
    std::string slashed(path);
    std::replace(slashed.begin(), slashed.end(), '\\', '/');
    const fs::path whole = fromUtf8(slashed);
    if (existsAsWritten(whole)) {
        return whole;
    }
    fs::path result = isSeparator(path[0]) ? fs::path("/") : fs::path();
    bool known = true; // all components so far exist
    for (const std::string_view name : split(slashed, '/')) {
        if (name.empty()) {
            continue;
        }
        fs::path next = result / fromUtf8(name);
        if (known && !existsAsWritten(next)) {
            const auto match = matchNoCase(result, name);
            known = match.has_value();
            if (match) {
                next = result / fromUtf8(*match);
            }
        }
        result = std::move(next);
    }
    return result;
}

std::string folderAround(std::string_view folder) {
    std::error_code error;
    fs::path native = fs::absolute(nativePath(folder).value_or("."), error).lexically_normal();
    if (!native.has_filename()) {
        native = native.parent_path(); // a separator at the end, or the dot
    }
    return stationPath(native.parent_path());
}

std::string nativeText(std::string_view path) {
    const auto native = nativePath(path);
    return native ? stationPath(*native) : std::string();
}

std::string stationPath(const fs::path& path) { return toUtf8(path); }

bool isAbsoluteFolder(std::string_view folder) {
    return folder.starts_with("\\\\") || folder.find(':') != std::string_view::npos ||
           (!HAS_DRIVES && folder.starts_with('/'));
}

bool endsInSeparator(std::string_view path) { return !path.empty() && isSeparator(path.back()); }

std::string withSeparator(std::string_view path) {
    std::string result(path);
    if (!result.empty() && !endsInSeparator(path)) {
        result += '\\';
    }
    return result;
}

std::vector<std::string> filesIn(std::string_view folder) {
    return namesIn(folder, [](const fs::directory_entry& entry, std::error_code& error) {
        return entry.is_regular_file(error);
    });
}

std::vector<std::string> foldersIn(std::string_view folder) {
    return namesIn(folder, [](const fs::directory_entry& entry, std::error_code& error) {
        return entry.is_directory(error);
    });
}

} // namespace kelvrum
