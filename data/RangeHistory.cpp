// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/RangeHistory.h"

namespace kelvrum {

namespace {

bool isSameRange(const TimeRange& a, const TimeRange& b) {
    return minuteNumber(a.from) == minuteNumber(b.from) && minuteNumber(a.to) == minuteNumber(b.to);
}

} // namespace

void RangeHistory::shown(const TimeRange& range) {
    if (!ranges_.empty()) {
        if (isSameRange(ranges_[current_], range)) {
            return;
        }
        ranges_.resize(current_ + 1);
    }
    ranges_.push_back(range);
    if (ranges_.size() > LIMIT) {
        ranges_.erase(ranges_.begin());
    }
    current_ = ranges_.size() - 1;
}

std::optional<TimeRange> RangeHistory::back() {
    if (!hasBack()) {
        return std::nullopt;
    }
    return ranges_[--current_];
}

std::optional<TimeRange> RangeHistory::forward() {
    if (!hasForward()) {
        return std::nullopt;
    }
    return ranges_[++current_];
}

void RangeHistory::clear() {
    ranges_.clear();
    current_ = 0;
}

} // namespace kelvrum
