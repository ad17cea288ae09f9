// SPDX-License-Identifier: GPL-3.0-or-later
// A file accessed by system calls. Every failure is the error of the call.
#pragma once

#include <cstddef>
#include <cstdint>
#include <filesystem>
#include <span>
#include <system_error>

namespace kelvrum {

class NativeFile {
  public:
    enum class Open {
        reading,       // to read only; fails when it is no ordinary file
        existing,      // to read and to write; fails when there is none
        createMissing, // the same, and creates the file when there is none
        createNew,     // fails when there is one, a link too
    };

    NativeFile() = default;
    NativeFile(const NativeFile&) = delete;
    NativeFile& operator=(const NativeFile&) = delete;
    ~NativeFile() { close(); }

    /// A created file is readable only by its owner when `isPrivate`, else as the system's defaults say.
    [[nodiscard]] std::error_code open(const std::filesystem::path& path, Open how, bool isPrivate = false);

    /// The length in bytes; 0 when it is unknown.
    [[nodiscard]] std::uint64_t size() const;

    /// Reads from an offset on and returns the number of bytes read; fewer than requested only at the end of
    /// the file or after an error.
    [[nodiscard]] std::size_t read(std::uint64_t offset, std::span<std::byte> into);

    /// The error that ended the last read early; none when it ended at the end of the file.
    [[nodiscard]] std::error_code readError() const { return readError_; }

    /// Writes all bytes from an offset on. After an error some of them may have been written.
    [[nodiscard]] std::error_code write(std::uint64_t offset, std::span<const std::byte> bytes);

    /// Returns when the contents are on the disk.
    [[nodiscard]] std::error_code sync();

    /// Locks the file for this object until it is closed. False when it is locked already, or when the file
    /// system has no locks.
    [[nodiscard]] bool lock();

    void close();

  private:
    int file_ = -1;
    std::error_code readError_;
};

} // namespace kelvrum
