// SPDX-License-Identifier: GPL-3.0-or-later
// Random-access reading of files behind a small interface, so that tests can count reads, slow them down or
// let them fail.
#pragma once

#include <cstddef>
#include <cstdint>
#include <functional>
#include <memory>
#include <span>
#include <string_view>
#include <system_error>

namespace kelvrum {

class FileSource {
  public:
    FileSource() = default;
    FileSource(const FileSource&) = delete;
    FileSource& operator=(const FileSource&) = delete;
    virtual ~FileSource() = default;

    /// Length of the file in bytes; 0 when it is unknown.
    virtual std::uint64_t size() = 0;

    /// Reads from a byte offset on and returns the number of bytes read; fewer than requested only at the end
    /// of the file or when reading fails.
    virtual std::size_t read(std::uint64_t offset, std::span<std::byte> into) = 0;

    /// The error that ended the last read early; none when it ended at the end of the file.
    [[nodiscard]] virtual std::error_code readError() const { return {}; }
};

/// Opens the file of a path as the station writes it; an empty pointer when it cannot be read.
using FileOpener = std::function<std::unique_ptr<FileSource>(std::string_view path)>;

/// The opener for real files. Only ordinary files are opened: no folder, pipe or device.
std::unique_ptr<FileSource> openFile(std::string_view path);

} // namespace kelvrum
