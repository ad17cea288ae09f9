// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/ChannelTable.h"

#include <algorithm>

namespace kelvrum {

void ChannelTable::clear() {
    count_ = 0;
    entries_.clear();
}

const ChannelInfo& ChannelTable::at(std::int32_t channel) const {
    static const ChannelInfo empty;
    const auto found = entries_.find(channel);
    return found == entries_.end() ? empty : found->second;
}

ChannelInfo& ChannelTable::grow(std::int32_t channel) {
    count_ = std::max(count_, channel);
    return entries_[channel];
}

} // namespace kelvrum
