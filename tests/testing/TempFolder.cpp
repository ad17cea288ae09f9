// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/testing/TempFolder.h"

#include <atomic>
#include <chrono>
#include <cstring>
#include <fstream>

namespace kelvrum::testing {

namespace fs = std::filesystem;

TempFolder::TempFolder() {
    static std::atomic<int> number = 0;
    const auto ticks = std::chrono::steady_clock::now().time_since_epoch().count();
    path_ = fs::temp_directory_path() /
            ("kelvrum-test-" + std::to_string(ticks) + "-" + std::to_string(++number));
    fs::create_directories(path_);
}

TempFolder::~TempFolder() {
    std::error_code ignored;
    fs::remove_all(path_, ignored);
}

std::string TempFolder::at(std::string_view name) const { return path_.string() + "/" + std::string(name); }

std::string TempFolder::write(std::string_view name, std::string_view bytes) const {
    const fs::path file = path_ / fs::path(name);
    fs::create_directories(file.parent_path());
    std::ofstream(file, std::ios::binary).write(bytes.data(), static_cast<std::streamsize>(bytes.size()));
    return file.string();
}

CurrentFolder::CurrentFolder(const fs::path& folder)
    : before_(fs::current_path()) {
    fs::current_path(folder);
}

CurrentFolder::~CurrentFolder() {
    std::error_code ignored;
    fs::current_path(before_, ignored);
}

namespace {

template<typename T>
void append(std::string& bytes, T value) {
    char raw[sizeof(T)];
    std::memcpy(raw, &value, sizeof(T));
    bytes.append(raw, sizeof(T));
}

} // namespace

std::string channelFile(std::span<const double> minutes) {
    std::string bytes(1024, '\0');
    bytes.append(reinterpret_cast<const char*>(minutes.data()), minutes.size_bytes());
    return bytes;
}

std::string dayRecord(int year, int month, int day, int minute, std::span<const float> fields) {
    std::string bytes;
    append(bytes, static_cast<std::int16_t>(year));
    append(bytes, static_cast<std::uint8_t>(month));
    append(bytes, static_cast<std::uint8_t>(day));
    append(bytes, static_cast<std::int16_t>(minute));
    for (const float v : fields) {
        append(bytes, v);
    }
    return bytes;
}

std::string varnixFile(std::string_view station, std::span<const std::string> names, bool wide) {
    std::string bytes(6545, '\0');
    bytes[0] = wide ? 1 : 0;
    bytes.replace(2, station.size(), station);
    for (std::size_t k = 0; k < names.size(); ++k) {
        if (names[k] != "-") {
            const std::size_t slot = 35 + 191 * k;
            bytes[slot] = 1;
            bytes.replace(slot + 2, names[k].size(), names[k]);
        }
    }
    return bytes;
}

} // namespace kelvrum::testing
