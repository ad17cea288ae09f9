// A file by the calls of the system. Every failure is the error that the call gave.
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
        existing,      // to read and to write; fails when there is none
        createMissing, // the same, and makes the file when there is none
        createNew,     // fails when there is one, a link too
    };

    NativeFile() = default;
    NativeFile(const NativeFile&) = delete;
    NativeFile& operator=(const NativeFile&) = delete;
    ~NativeFile() { close(); }

    /// A file that is made can be read by its owner alone when `isPrivate`, else by whom the system lets.
    [[nodiscard]] std::error_code open(const std::filesystem::path& path, Open how, bool isPrivate = false);

    /// Writes all bytes from an offset on. After an error some of them may have been written.
    [[nodiscard]] std::error_code write(std::uint64_t offset, std::span<const std::byte> bytes);

    /// Returns when the contents are on the disk.
    [[nodiscard]] std::error_code sync();

    /// Takes the file for this object until it is closed. False when another holds it, or when the file
    /// system knows no such thing.
    [[nodiscard]] bool lock();

    void close();

  private:
    int file_ = -1;
};

} // namespace kelvrum
