// SPDX-License-Identifier: GPL-3.0-or-later
// The history of shown ranges, with back and forward as in a browser.
#pragma once

#include "util/DateTime.h"

#include <cstddef>
#include <optional>
#include <vector>

namespace kelvrum {

/// Keeps the exact times of at most LIMIT ranges, the oldest ones are dropped.
class RangeHistory {
  public:
    static constexpr std::size_t LIMIT = 100;

    /// A range was shown. It becomes the current one and drops the ranges ahead; a range that is current
    /// already changes nothing.
    void shown(const TimeRange& range);

    /// Makes the range before or after the current one the current one and returns it; nothing at the ends.
    std::optional<TimeRange> back();
    std::optional<TimeRange> forward();

    [[nodiscard]] bool hasBack() const { return current_ > 0; }
    [[nodiscard]] bool hasForward() const { return current_ + 1 < ranges_.size(); }

    void clear();

  private:
    std::vector<TimeRange> ranges_;
    std::size_t current_ = 0; // 0 too while there is none
};

} // namespace kelvrum
