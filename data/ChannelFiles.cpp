// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ChannelFiles.h"

#include "config/DataFolder.h"
#include "data/ChannelFormat.h"
#include "util/LittleEndian.h"
#include "util/Numbers.h"

#include <algorithm>

namespace kelvrum {

namespace {

std::string padded(int value, std::size_t width) {
    std::string digits = std::to_string(value);
    return digits.size() < width ? std::string(width - digits.size(), '0') + digits : digits;
}

} // namespace

std::string channelFileName(std::int32_t channel, std::string_view suffix, int year) {
    std::string name = "Kanal" + padded(channel, 2) + "_";
    if (!suffix.empty()) {
        name.append(suffix).append("_");
    }
    return name + padded(year, 4) + ".chn";
}

std::string channelPath(const StationConfig& station, std::int32_t channel, std::string_view suffix,
                        int year) {
    return dataFolder(station) + channelFileName(channel, suffix, year);
}

std::string pairedChannelPath(const StationConfig& station, std::int32_t channel, std::string_view suffix,
                              int year) {
    return station.DataFolder + channelFileName(channel, suffix, year);
}

void readMinutes(FileSource* file, std::int64_t offset, std::span<double> values) {
    std::size_t read = 0;
    if (file != nullptr) {
        read =
            file->read(static_cast<std::uint64_t>(offset), std::as_writable_bytes(values)) / chn::VALUE_SIZE;
        fromLittle(values.first(read));
    }
    std::fill(values.begin() + static_cast<std::ptrdiff_t>(read), values.end(), 0.0);
}

std::int32_t MinuteIndex(DateTime t) {
    const CalendarTime parts = calendarTime(t);
    const int inDay = ((parts.hour * 60 + parts.minute) * 60 + parts.second) * 1000 + parts.millisecond;
    constexpr double MS_PER_MINUTE = 60'000;
    const double minutes =
        (parts.dayOfYear - 1) * static_cast<double>(MINUTES_PER_DAY) + inDay / MS_PER_MINUTE;
    return static_cast<std::int32_t>(roundHalfEven(minutes));
}

} // namespace kelvrum
