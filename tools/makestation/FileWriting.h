// SPDX-License-Identifier: GPL-3.0-or-later
// Whole files, written at once.
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <stdexcept>
#include <string_view>

namespace kelvrum::sample {

/// A file or folder could not be written; the text names it.
class WriteError : public std::runtime_error {
  public:
    explicit WriteError(const std::filesystem::path& path)
        : std::runtime_error("cannot write " + path.string()) {}
};

/// Makes a folder and the folders around it. Throws WriteError.
void makeFolder(const std::filesystem::path& folder);

/// Writes a file in place of an older one. Throws WriteError.
void writeFile(const std::filesystem::path& path, std::span<const std::byte> bytes);
void writeFile(const std::filesystem::path& path, std::string_view text);

} // namespace kelvrum::sample
