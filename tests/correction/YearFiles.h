// SPDX-License-Identifier: GPL-3.0-or-later
// A station whose channel files are all known to the last byte, and what a correction has to make of them.
#pragma once

#include "config/StationConfig.h"
#include "tests/testing/FileContent.h"
#include "tests/testing/TempFolder.h"
#include "util/DateTime.h"

#include <array>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <limits>
#include <map>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

namespace kelvrum::testing {

inline constexpr int MINUTES_OF_YEAR = 525'600;
inline constexpr int MINUTES_OF_LEAP_YEAR = 527'040;

/// A time as people write it.
struct Moment {
    int year;
    int month;
    int day;
    int hour;
    int minute;

    [[nodiscard]] DateTime serial() const { return dateSerial(year, month, day) + timeSerial(hour, minute); }
};

inline TimeRange between(const Moment& from, const Moment& to) { return {from.serial(), to.serial()}; }

/// Names and bytes of the files in a folder.
using FileBytes = std::map<std::string, std::string>;

/// Any value, the awkward ones among them: zeros of both signs, markers, NaN, infinities, tiny and huge ones.
inline double madeValue(int channel, int year, int minute) {
    constexpr double INF = std::numeric_limits<double>::infinity();
    constexpr std::array AWKWARD = {
        0.0,  -0.0,   99999900.0, -99999900.0, std::numeric_limits<double>::quiet_NaN(),
        INF,  -INF,   1e-300,     -1e-300,     1e300,
        -1.5, 5e-324, 0.1,        1e-200,      -1e-200};
    // Unsigned, so that it may wrap.
    const auto number = [](int value) { return static_cast<std::uint32_t>(value); };
    const std::uint32_t mixed = number(minute) * 7919U + number(channel) * 104'729U + number(year) * 31U;
    return mixed % 11 == 0 ? AWKWARD[mixed / 11 % AWKWARD.size()] : 0.1 + mixed % 10'007 / 97.0;
}

/// A channel file with a header that is not empty, the minutes of a year from the first one on and an odd
/// tail.
inline std::string yearFile(int channel, int year, int minutes, int tail = 0) {
    std::string bytes(1024 + 8 * static_cast<std::size_t>(minutes), '\0');
    for (std::size_t i = 0; i < 1024; ++i) {
        bytes[i] = static_cast<char>((i * 7 + static_cast<std::size_t>(channel)) % 251);
    }
    for (int m = 0; m < minutes; ++m) {
        const double v = madeValue(channel, year, m);
        std::memcpy(&bytes[1024 + 8 * static_cast<std::size_t>(m)], &v, sizeof v);
    }
    return bytes.append(static_cast<std::size_t>(tail), '\x5a');
}

/// The target after a correction of the minutes first to last (included), made position by position.
inline std::string corrected(std::string target, const std::vector<std::string>& sources, int first, int last,
                             double factor) {
    for (int m = first; m <= last; ++m) {
        const std::size_t at = 1024 + 8 * static_cast<std::size_t>(m);
        std::array<double, 2> v = {1, 1};
        for (std::size_t i = 0; i < sources.size(); ++i) {
            if (sources[i].size() < at + 8) {
                return target;
            }
            std::memcpy(&v[i], &sources[i][at], 8);
        }
        const bool zero = v[0] == 0 || v[1] == 0;
        const double value = zero ? 0 : sources.size() == 1 ? v[0] * factor : v[0] * v[1] * factor;
        if (target.size() < at + 8) {
            target.resize(at + 8);
        }
        std::memcpy(&target[at], &value, 8);
    }
    return target;
}

/// Empty when both hold the same files with the same bytes; else the first difference in words.
inline std::string difference(const FileBytes& expected, const FileBytes& actual) {
    for (const auto& [name, bytes] : expected) {
        const auto found = actual.find(name);
        if (found == actual.end()) {
            return name + " is missing";
        }
        const std::string& others = found->second;
        if (bytes != others) {
            std::size_t at = 0;
            while (at < bytes.size() && at < others.size() && bytes[at] == others[at]) {
                ++at;
            }
            return name + " differs at byte " + std::to_string(at) + "; " + std::to_string(bytes.size()) +
                   " bytes expected, " + std::to_string(others.size()) + " found";
        }
    }
    for (const auto& [name, bytes] : actual) {
        if (!expected.contains(name)) {
            return name + " is unexpected";
        }
    }
    return {};
}

/// A station in a folder of its own. `files` is what was laid there, and what is expected later on.
class YearFiles {
  public:
    YearFiles() {
        std::filesystem::create_directories(folder.path() / "Data");
        station.Kind = ConfigKind::ini;
        station.BaseFolder = folder.base();
        station.DataFolder = "Data\\";
    }

    static std::string name(int channel, int year) {
        return std::string(channel < 10 ? "Kanal0" : "Kanal") + std::to_string(channel) + "_" +
               std::to_string(year) + ".chn";
    }
    /// The path as the program names it.
    [[nodiscard]] std::string path(int channel, int year) const {
        return station.BaseFolder + station.DataFolder + name(channel, year);
    }
    [[nodiscard]] std::filesystem::path onDisk(int channel, int year) const {
        return folder.path() / "Data" / name(channel, year);
    }
    void lay(int channel, int year, const std::string& bytes) {
        folder.write("Data/" + name(channel, year), bytes);
        files[name(channel, year)] = bytes;
    }
    void lay(int channel, int year, int minutes, int tail = 0) {
        lay(channel, year, yearFile(channel, year, minutes, tail));
    }
    /// Expects the correction of a year's minutes first to last in channel `target`.
    void expect(const std::vector<int>& sources, int target, int year, int first, int last, double factor) {
        std::vector<std::string> bytes;
        for (const int source : sources) {
            bytes.push_back(files.contains(name(source, year)) ? files[name(source, year)] : std::string());
        }
        const auto before = files.find(name(target, year));
        std::string after =
            corrected(before == files.end() ? std::string() : before->second, bytes, first, last, factor);
        if (before != files.end() || !after.empty()) {
            files[name(target, year)] = std::move(after);
        }
    }
    /// What the folder holds now; only files.
    [[nodiscard]] FileBytes found() const {
        FileBytes all;
        for (const auto& entry : std::filesystem::directory_iterator(folder.path() / "Data")) {
            std::error_code error;
            if (entry.is_regular_file(error)) {
                all[entry.path().filename().string()] = contentOf(entry.path());
            }
        }
        return all;
    }
    [[nodiscard]] std::string changes() const { return difference(files, found()); }

    TempFolder folder;
    StationConfig station;
    FileBytes files;
};

} // namespace kelvrum::testing
