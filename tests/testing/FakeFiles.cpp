// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/testing/FakeFiles.h"

#include <algorithm>
#include <cstring>
#include <memory>
#include <stdexcept>
#include <utility>

namespace kelvrum::testing {

namespace {

class FakeSource final : public FileSource {
  public:
    FakeSource(std::shared_ptr<const FakeFile> file, ReadLog* log)
        : file_(std::move(file))
        , log_(log) {}

    std::uint64_t size() override { return file_->size.value_or(file_->bytes.size()); }

    std::size_t read(std::uint64_t offset, std::span<std::byte> into) override {
        const std::string& bytes = file_->bytes;
        const std::uint64_t length = file_->filler ? size() : bytes.size();
        const std::uint64_t end = std::min(length, file_->failsAt);
        const std::size_t got =
            offset < end ? static_cast<std::size_t>(std::min<std::uint64_t>(into.size(), end - offset)) : 0;
        if (file_->throws && offset + into.size() > end) {
            throw std::runtime_error("no such bytes");
        }
        std::fill_n(into.begin(), got, static_cast<std::byte>(file_->filler.value_or('\0')));
        if (offset < bytes.size()) {
            const auto at = static_cast<std::size_t>(offset);
            std::memcpy(into.data(), bytes.data() + at, std::min(got, bytes.size() - at));
        }
        if (log_ != nullptr) {
            log_->reads.push_back({offset, into.size(), got});
        }
        hasFailed_ = got < into.size();
        return got;
    }

    [[nodiscard]] std::error_code readError() const override {
        return hasFailed_ && file_->error ? std::make_error_code(*file_->error) : std::error_code();
    }

  private:
    std::shared_ptr<const FakeFile> file_;
    ReadLog* log_;
    bool hasFailed_ = false;
};

} // namespace

std::size_t ReadLog::largestRead() const {
    std::size_t largest = 0;
    for (const Read& read : reads) {
        largest = std::max(largest, read.requested);
    }
    return largest;
}

std::uint64_t ReadLog::bytesRead() const {
    std::uint64_t sum = 0;
    for (const Read& read : reads) {
        sum += read.got;
    }
    return sum;
}

FileOpener FakeFiles::opener() {
    return [this](std::string_view path) -> std::unique_ptr<FileSource> {
        opened_.emplace_back(path);
        const auto found = files_.find(std::string(path));
        if (found == files_.end()) {
            return nullptr;
        }
        // The map owns the file: it may be changed while it is open.
        const std::shared_ptr<const FakeFile> file(std::shared_ptr<void>(), &found->second);
        return std::make_unique<FakeSource>(file, &logs_[found->first]);
    };
}

FileOpener openerOf(FakeFile file, ReadLog* log) {
    return [shared = std::make_shared<const FakeFile>(std::move(file)), log](std::string_view path) {
        if (log != nullptr) {
            log->opened.emplace_back(path);
        }
        return std::make_unique<FakeSource>(shared, log);
    };
}

FileOpener openerOf(std::string bytes, ReadLog* log) {
    return openerOf(FakeFile{.bytes = std::move(bytes)}, log);
}

FileOpener noFile() {
    return [](std::string_view) { return std::unique_ptr<FileSource>(); };
}

} // namespace kelvrum::testing
