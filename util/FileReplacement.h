// Replacing a file as a whole.
#pragma once

#include <cstddef>
#include <filesystem>
#include <span>
#include <string_view>
#include <system_error>

namespace kelvrum {

/// Gives the file of a station path new contents: they are written beside it and take its place when they are
/// complete, with its rights; a link stays one. When anything fails the old file stays as it was; the result
/// says what the system objected to, and is empty after success. A write-protected file is not replaced.
[[nodiscard]] std::error_code replaceFile(std::string_view path, std::span<const std::byte> bytes);

/// The same for contents that the caller writes: into `fresh`, a file beside the target. It takes the
/// target's place with `commit`; without that it is removed and the target stays as it was.
class FileReplacement {
  public:
    /// `error` says why the target, a native path, cannot be replaced.
    FileReplacement(const std::filesystem::path& target, std::error_code& error);
    FileReplacement(const FileReplacement&) = delete;
    FileReplacement& operator=(const FileReplacement&) = delete;
    ~FileReplacement();

    /// Where the contents are to be written. The file need not exist yet.
    [[nodiscard]] const std::filesystem::path& fresh() const { return fresh_; }

    /// Gives the fresh file the target's name and rights. To be called once, when it is closed.
    [[nodiscard]] std::error_code commit();

  private:
    std::filesystem::path file_;
    std::filesystem::path fresh_;
    std::filesystem::file_status before_;
};

} // namespace kelvrum
