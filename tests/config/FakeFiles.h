// SPDX-License-Identifier: GPL-3.0-or-later
// Files made up in memory for the readers of configurations: texts, and files that are cut or far too big.
#pragma once

#include "config/ChannelTable.h"
#include "util/FileSource.h"

#include <algorithm>
#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <utility>

namespace kelvrum::testing {

/// What a reader asked of a fake file.
struct ReadLog {
    std::string path; // of the last opening
    int openings = 0;
    std::size_t largestRead = 0;
    std::uint64_t bytesRead = 0;
};

/// A file that holds a text at its front and one byte over and over up to its size. Reads from `cut` on fail.
class FakeFile : public FileSource {
  public:
    FakeFile(std::string front, std::uint64_t size, char filler, std::uint64_t cut, ReadLog* log)
        : front_(std::move(front))
        , size_(size)
        , filler_(filler)
        , cut_(cut)
        , log_(log) {}

    std::uint64_t size() override { return size_; }

    std::size_t read(std::uint64_t offset, std::span<std::byte> into) override {
        const std::uint64_t end = std::min(size_, cut_);
        const std::size_t count =
            offset >= end ? 0 : static_cast<std::size_t>(std::min<std::uint64_t>(into.size(), end - offset));
        std::fill_n(into.begin(), count, static_cast<std::byte>(filler_));
        for (std::size_t i = 0; i < count && offset + i < front_.size(); ++i) {
            into[i] = static_cast<std::byte>(front_[offset + i]);
        }
        if (log_ != nullptr) {
            log_->largestRead = std::max(log_->largestRead, into.size());
            log_->bytesRead += count;
        }
        return count;
    }

  private:
    std::string front_;
    std::uint64_t size_;
    char filler_;
    std::uint64_t cut_;
    ReadLog* log_;
};

/// Every path opens the same fake file of `size` bytes.
inline FileOpener bigFile(const std::string& front, std::uint64_t size, char filler, ReadLog* log = nullptr,
                          std::uint64_t cut = UINT64_MAX) {
    return [=](std::string_view path) {
        if (log != nullptr) {
            log->path = path;
            ++log->openings;
        }
        return std::make_unique<FakeFile>(front, size, filler, cut, log);
    };
}

/// Every path opens a file of these bytes.
inline FileOpener fileOf(std::string bytes, ReadLog* log = nullptr) {
    const std::uint64_t size = bytes.size();
    return bigFile(std::move(bytes), size, '\0', log);
}

/// No path opens anything.
inline FileOpener noFile() {
    return [](std::string_view) { return std::unique_ptr<FileSource>(); };
}

/// The sixteen fields of a channel in their order, separated by "|".
inline std::string fields(const ChannelInfo& c) {
    std::ostringstream out;
    out.imbue(std::locale::classic());
    out << c.LowerLimit << '|' << c.UpperLimit << '|' << c.Unit << '|' << c.Comment << '|' << c.Tag << '|'
        << c.Name << '|' << c.Mode << '|' << c.PairedChannel << '|' << c.Code << '|' << c.Offset << '|'
        << c.Factor << '|' << (c.Flag ? "true" : "false") << '|' << c.DirIn << '|' << c.DirOut << '|'
        << c.Limit1 << '|' << c.Limit2;
    return out.str();
}

/// The fields of an entry that no line defines.
inline constexpr std::string_view EMPTY_CHANNEL = "0|0|||||0|0|0|0|0|false|||0|0";

} // namespace kelvrum::testing
