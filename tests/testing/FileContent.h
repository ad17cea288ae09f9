// SPDX-License-Identifier: GPL-3.0-or-later
// What is in a file.
#pragma once

#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>

namespace kelvrum::testing {

/// All bytes of a file; none when it cannot be read.
inline std::string contentOf(const std::filesystem::path& path) {
    std::ifstream in(path, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
}

} // namespace kelvrum::testing
