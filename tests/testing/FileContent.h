// SPDX-License-Identifier: GPL-3.0-or-later
// What is in a file.
#pragma once

#include <filesystem>
#include <fstream>
#include <sstream>
#include <string>
#include <utility>

namespace kelvrum::testing {

/// All bytes of a file; none when it cannot be read.
inline std::string contentOf(const std::filesystem::path& path) {
    std::ostringstream bytes;
    bytes << std::ifstream(path, std::ios::binary).rdbuf();
    return std::move(bytes).str();
}

} // namespace kelvrum::testing
