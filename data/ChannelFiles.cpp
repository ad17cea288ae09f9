// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ChannelFiles.h"

#include "config/DataFolder.h"
#include "util/Numbers.h"

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

std::int32_t MinuteIndex(DateTime t) {
    const CalendarTime parts = calendarTime(t);
    const int inDay = ((parts.hour * 60 + parts.minute) * 60 + parts.second) * 1000 + parts.millisecond;
    constexpr double MS_PER_MINUTE = 60'000;
    const double minutes =
        (parts.dayOfYear - 1) * static_cast<double>(MINUTES_PER_DAY) + inDay / MS_PER_MINUTE;
    return static_cast<std::int32_t>(roundHalfEven(minutes));
}

} // namespace kelvrum
