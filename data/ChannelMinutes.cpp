// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ChannelMinutes.h"

#include "data/ChannelFiles.h"
#include "data/ChannelFormat.h"
#include "util/DateTime.h"
#include "util/Validity.h"

#include <algorithm>

namespace kelvrum {

std::int64_t minutesOfYear(int year) {
    constexpr int DAYS = 365;
    return std::int64_t{isDate(year, 2, 29) ? DAYS + 1 : DAYS} * MINUTES_PER_DAY;
}

ChannelMinutes::ChannelMinutes(const StationConfig& station, std::int32_t channel, int year,
                               const FileOpener& open)
    : file_(open(channelPath(station, channel, {}, year))) {
    if (!file_) {
        return;
    }
    const ChannelInfo& info = station.ChannelTable.at(channel);
    if (info.Mode == MODE_WIND_DIRECTION) {
        hasPair_ = true;
        paired_ = open(pairedChannelPath(station, info.PairedChannel, {}, year));
    }
    const auto bytes = static_cast<std::int64_t>(file_->size()) - static_cast<std::int64_t>(chn::HEADER_SIZE);
    count_ =
        std::clamp<std::int64_t>(bytes / static_cast<std::int64_t>(chn::VALUE_SIZE), 0, minutesOfYear(year));
}

const std::vector<bool>& ChannelMinutes::present(std::int64_t first, std::size_t count) {
    values_.resize(count);
    readMinutes(file_.get(), chn::valueOffset(first), values_);
    if (hasPair_) {
        pairedValues_.resize(count);
        readMinutes(paired_.get(), chn::valueOffset(first), pairedValues_);
    }
    present_.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        present_[i] = isPresent(values_[i]) && (!hasPair_ || isPresent(pairedValues_[i]));
    }
    return present_;
}

} // namespace kelvrum
