// SPDX-License-Identifier: GPL-3.0-or-later
// Files in memory that count their reads and can fail, shrink, lie about their length or be torn at any byte.
#pragma once

#include "util/FileSource.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <map>
#include <optional>
#include <string>
#include <system_error>
#include <vector>

namespace kelvrum::testing {

/// What is in a file and how reading it goes wrong.
struct FakeFile {
    std::string bytes = {};
    /// What size() returns, where it is not the length of `bytes`.
    std::optional<std::uint64_t> size = {};
    /// This byte follows `bytes` up to `size`.
    std::optional<char> filler = {};
    /// No byte can be read from this offset on, though size() counts it.
    std::uint64_t failsAt = std::numeric_limits<std::uint64_t>::max();
    /// Reading after failsAt throws instead of coming back short.
    bool throws = false;
    /// What readError() returns after that; empty when the file has merely become shorter.
    std::optional<std::errc> error = {};
};

/// What a reader did with fake files.
struct ReadLog {
    /// One call of read and what it got.
    struct Read {
        std::uint64_t offset = 0;
        std::size_t requested = 0;
        std::size_t got = 0;
    };
    std::vector<std::string> opened; // paths, in order
    std::vector<Read> reads;

    [[nodiscard]] std::size_t largestRead() const;
    [[nodiscard]] std::uint64_t bytesRead() const;
};

/// Files by their paths.
class FakeFiles {
  public:
    FakeFile& operator[](const std::string& path) { return files_[path]; }
    [[nodiscard]] const std::vector<ReadLog::Read>& reads(const std::string& path) {
        return logs_[path].reads;
    }
    [[nodiscard]] const std::vector<std::string>& opened() const { return opened_; }

    /// Opens by the exact path. This object must outlive the files.
    FileOpener opener();

  private:
    std::map<std::string, FakeFile> files_;
    std::map<std::string, ReadLog> logs_;
    std::vector<std::string> opened_; // found or not
};

/// Every path opens this file, or one of these bytes. The log must outlive the opener and its files.
FileOpener openerOf(FakeFile file, ReadLog* log = nullptr);
FileOpener openerOf(std::string bytes, ReadLog* log = nullptr);

/// No path opens anything.
FileOpener noFile();

} // namespace kelvrum::testing
