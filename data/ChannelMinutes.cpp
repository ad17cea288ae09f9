// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ChannelMinutes.h"

#include "data/ChannelFiles.h"
#include "data/ChannelFormat.h"
#include "util/DateTime.h"
#include "util/LittleEndian.h"
#include "util/Validity.h"

#include <algorithm>
#include <span>

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

void ChannelMinutes::fetch(FileSource* file, std::int64_t first, std::vector<double>& values) const {
    std::size_t read = 0;
    if (file != nullptr) {
        const auto offset = static_cast<std::uint64_t>(chn::valueOffset(first));
        read = file->read(offset, std::as_writable_bytes(std::span(values))) / chn::VALUE_SIZE;
        fromLittle(std::span(values).first(read));
    }
    std::fill(values.begin() + static_cast<std::ptrdiff_t>(read), values.end(), 0.0);
}

const std::vector<bool>& ChannelMinutes::present(std::int64_t first, std::size_t count) {
    values_.resize(count);
    fetch(file_.get(), first, values_);
    if (hasPair_) {
        pairedValues_.resize(count);
        fetch(paired_.get(), first, pairedValues_);
    }
    present_.resize(count);
    for (std::size_t i = 0; i < count; ++i) {
        present_[i] = isPresent(values_[i]) && (!hasPair_ || isPresent(pairedValues_[i]));
    }
    return present_;
}

} // namespace kelvrum
