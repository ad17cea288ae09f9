// SPDX-License-Identifier: GPL-3.0-or-later
// Writing into files at byte offsets behind a small interface, so that tests can let a write fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <system_error>

namespace kelvrum {

class FileTarget {
  public:
    FileTarget() = default;
    FileTarget(const FileTarget&) = delete;
    FileTarget& operator=(const FileTarget&) = delete;
    virtual ~FileTarget() = default;

    /// Writes at a byte offset; other bytes stay as they are, a gap before it reads as zeros. Returns the
    /// system's reason when not all was written.
    [[nodiscard]] virtual std::error_code write(std::uint64_t offset, std::span<const std::byte> bytes) = 0;
};

/// A target that was opened, or the system's reason why not.
struct OpenedTarget {
    std::unique_ptr<FileTarget> file;
    std::error_code error;
};

/// Opens the file of a path as the station writes it for writing in place; a missing one is created.
using TargetOpener = std::function<OpenedTarget(std::string_view path)>;

/// The opener for real files.
OpenedTarget openTarget(std::string_view path);

} // namespace kelvrum
