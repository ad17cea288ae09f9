// SPDX-License-Identifier: GPL-3.0-or-later
// Channel files in memory that count their reads and can fail, shrink or be torn at any byte.
#pragma once

#include "util/FileSource.h"

#include <algorithm>
#include <cstdint>
#include <cstring>
#include <limits>
#include <map>
#include <memory>
#include <span>
#include <stdexcept>
#include <string>
#include <string_view>
#include <vector>

namespace kelvrum::testing {

struct FakeFile {
    std::string bytes;
    /// No byte can be read from this offset on, though size() counts it.
    std::uint64_t failsAt = std::numeric_limits<std::uint64_t>::max();
    /// Reading after failsAt throws instead of coming back short.
    bool throws = false;
};

class FakeFiles {
  public:
    /// One call of read and what it got.
    struct Read {
        std::uint64_t offset = 0;
        std::size_t got = 0;
    };

    FakeFile& operator[](const std::string& path) { return files_[path]; }
    [[nodiscard]] const std::vector<Read>& reads(const std::string& path) { return reads_[path]; }
    [[nodiscard]] const std::vector<std::string>& opened() const { return opened_; }

    /// Opens by the exact path. This object must outlive the files.
    FileOpener opener() {
        return [this](std::string_view path) -> std::unique_ptr<FileSource> {
            opened_.emplace_back(path);
            const auto found = files_.find(std::string(path));
            if (found == files_.end()) {
                return nullptr;
            }
            return std::make_unique<Source>(found->second, reads_[found->first]);
        };
    }

  private:
    class Source : public FileSource {
      public:
        Source(const FakeFile& file, std::vector<Read>& reads)
            : file_(file)
            , reads_(reads) {}

        std::uint64_t size() override { return file_.bytes.size(); }

        std::size_t read(std::uint64_t offset, std::span<std::byte> into) override {
            const std::uint64_t end = std::min<std::uint64_t>(file_.bytes.size(), file_.failsAt);
            const std::size_t got =
                offset < end ? std::min(into.size(), static_cast<std::size_t>(end - offset)) : 0;
            if (file_.throws && offset + into.size() > end) {
                throw std::runtime_error("no such bytes");
            }
            if (got > 0) {
                std::memcpy(into.data(), file_.bytes.data() + offset, got);
            }
            reads_.push_back({offset, got});
            return got;
        }

      private:
        const FakeFile& file_;
        std::vector<Read>& reads_;
    };

    std::map<std::string, FakeFile> files_;
    std::map<std::string, std::vector<Read>> reads_;
    std::vector<std::string> opened_;
};

/// Minutes that tell where they come from: minute m holds m + 1 + `more`.
inline std::vector<double> countedMinutes(std::size_t count, double more = 0) {
    std::vector<double> minutes(count);
    for (std::size_t m = 0; m < count; ++m) {
        minutes[m] = static_cast<double>(m + 1) + more;
    }
    return minutes;
}

} // namespace kelvrum::testing
