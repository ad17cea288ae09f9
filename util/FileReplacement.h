// SPDX-License-Identifier: GPL-3.0-or-later
// Replacing a file as a whole.
#pragma once

#include "util/NativeFile.h"

#include <cstddef>
#include <filesystem>
#include <span>
#include <string_view>
#include <system_error>

namespace kelvrum {

/// Gives the file of a station path new contents: they are written next to it, and replace it when they
/// are complete and on the disk, with its permissions; a link to an existing file is kept. When anything
/// fails the old file stays as it was; the result is the system's reason, and empty after success. A
/// write-protected file is not replaced.
[[nodiscard]] std::error_code replaceFile(std::string_view path, std::span<const std::byte> bytes);

/// The same for contents that the caller writes: into `fresh`, a file in the target's folder. It takes the
/// target's place with `commit`; without that it is removed and the target stays as it was.
class FileReplacement {
  public:
    /// `error` says why the target, a native path, cannot be replaced. Fresh files that killed programs
    /// have left in the folder are removed.
    FileReplacement(std::filesystem::path target, std::error_code& error);
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    ~FileReplacement();

    /// Where to write the contents: an empty file with a unique name.
    [[nodiscard]] const std::filesystem::path& fresh() const { return fresh_; }

    /// Writes all of the contents.
    [[nodiscard]] std::error_code write(std::span<const std::byte> bytes) { return file_.write(0, bytes); }

    /// Gives the fresh file the target's rights and, once it is on the disk, its name. To be called once,
    /// when the caller has closed it.
    [[nodiscard]] std::error_code commit();

  private:
    [[nodiscard]] std::error_code makeFresh();

    std::filesystem::path target_;
    std::filesystem::file_status before_;
    std::filesystem::path fresh_; // empty while there is none
    NativeFile file_;             // the fresh file, locked
};

} // namespace kelvrum
