// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/testing/FailingTargets.h"

#include <algorithm>
#include <memory>
#include <utility>

namespace kelvrum::testing {

class FailingTargets::Target final : public FileTarget {
  public:
    Target(std::unique_ptr<FileTarget> file, FailingTargets& all)
        : file_(std::move(file))
        , all_(all) {}

    std::error_code write(std::uint64_t offset, std::span<const std::byte> bytes) override {
        if (++all_.writes_ != all_.failing_) {
            return file_->write(offset, bytes);
        }
        const std::size_t taken = std::min(bytes.size(), all_.taken_.value_or(bytes.size() / 2));
        static_cast<void>(file_->write(offset, bytes.first(taken)));
        return std::make_error_code(std::errc::no_space_on_device);
    }

  private:
    std::unique_ptr<FileTarget> file_;
    FailingTargets& all_;
};

TargetOpener FailingTargets::opener() {
    return [this](std::string_view path) {
        OpenedTarget target = openTarget(path);
        if (target.file) {
            target.file = std::make_unique<Target>(std::move(target.file), *this);
        }
        return target;
    };
}

} // namespace kelvrum::testing
