// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/makestation/FileWriting.h"

#include <fstream>

namespace kelvrum::sample {

void makeFolder(const std::filesystem::path& folder) {
    std::error_code error;
    std::filesystem::create_directories(folder, error);
    if (!std::filesystem::is_directory(folder, error)) {
        throw WriteError(folder);
    }
}

void writeFile(const std::filesystem::path& path, std::span<const std::byte> bytes) {
    std::ofstream file(path, std::ios::binary | std::ios::trunc);
    file.write(reinterpret_cast<const char*>(bytes.data()), static_cast<std::streamsize>(bytes.size()));
    file.close();
    if (!file) {
        throw WriteError(path);
    }
}

void writeFile(const std::filesystem::path& path, std::string_view text) {
    writeFile(path, std::as_bytes(std::span(text)));
}

} // namespace kelvrum::sample
