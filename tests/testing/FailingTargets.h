// SPDX-License-Identifier: GPL-3.0-or-later
// Real files of which one write fails.
#pragma once

#include "util/FileTarget.h"

#include <cstddef>
#include <optional>

namespace kelvrum::testing {

/// The n-th of all writes, counted from 1, takes only some of its bytes and then finds the disk full. The
/// others succeed.
class FailingTargets {
  public:
    /// `taken` is the number of bytes that the failing write takes, half of them when it is empty.
    explicit FailingTargets(int failing, std::optional<std::size_t> taken = {})
        : failing_(failing)
        , taken_(taken) {}

    [[nodiscard]] int writes() const { return writes_; }
    [[nodiscard]] bool hasFailed() const { return writes_ >= failing_; }

    /// This object must outlive the files.
    [[nodiscard]] TargetOpener opener();

  private:
    class Target;

    int failing_;
    std::optional<std::size_t> taken_;
    int writes_ = 0;
};

} // namespace kelvrum::testing
