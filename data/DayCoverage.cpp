// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DayCoverage.h"

#include "config/ConfigForms.h"
#include "config/DataFolder.h"
#include "data/ChannelFiles.h"
#include "data/ChannelMinutes.h"
#include "data/DayFiles.h"
#include "data/DayFormat.h"
#include "data/DayRecords.h"
#include "util/Validity.h"

#include <algorithm>
#include <bitset>
#include <exception>
#include <vector>

namespace kelvrum {

namespace {

constexpr int FULL_PERCENT = 99;
constexpr std::int64_t PIECE_DAYS = 8; // read at once

int daysOf(int year, int month) {
    int day = 31;
    while (!isDate(year, month, day)) {
        --day;
    }
    return day;
}

bool countYearFile(const StationConfig& station, std::int32_t channel, const FileOpener& open,
                   const ReadingStep& step, MonthCoverage& result) {
    ChannelMinutes minutes(station, channel, result.year, open);
    const std::int64_t first = MinuteIndex(dateSerial(result.year, result.month, 1));
    const std::int64_t end =
        std::min(first + std::int64_t{daysOf(result.year, result.month)} * MINUTES_PER_DAY, minutes.count());
    for (std::int64_t at = first; at < end; at += PIECE_DAYS * MINUTES_PER_DAY) {
        if (!runStep(step)) {
            return false;
        }
        const auto size = static_cast<std::size_t>(std::min(PIECE_DAYS * MINUTES_PER_DAY, end - at));
        const auto& present = minutes.present(at, size);
        for (std::size_t i = 0; i < size; ++i) {
            const std::int64_t day = (at - first + static_cast<std::int64_t>(i)) / MINUTES_PER_DAY;
            result.minutes[static_cast<std::size_t>(day)] += present[i] ? 1 : 0;
        }
    }
    return true;
}

bool countDayFiles(const StationConfig& station, std::int32_t channel, const FileOpener& open,
                   const ReadingStep& step, MonthCoverage& result) {
    const auto field = fieldOffset(station, channel);
    if (!field) {
        return true;
    }
    const DateTime first = dateSerial(result.year, result.month, 1);
    const std::int64_t firstMinute = minuteNumber(first);
    const int days = daysOf(result.year, result.month);
    std::vector<std::bitset<MINUTES_PER_DAY>> present(static_cast<std::size_t>(days));
    const std::string folder = dataFolder(station);
    DayRecordReader records(kmh::recordSize(station.ActiveChannels.size(), station.WideRecords));
    for (const std::string& name : dayFilesBetween(folder, {first, first + days - 1})) {
        if (!runStep(step)) {
            return false;
        }
        const auto file = open(folder + name);
        if (!file) {
            continue;
        }
        records.read(*file, [&](const DayRecord& record) {
            // A record counts by its own date, whatever the file's.
            const std::int64_t minute = record.minute - firstMinute;
            if (minute >= 0 && minute < std::int64_t{days} * MINUTES_PER_DAY &&
                isPresent(record.value(*field))) {
                present[static_cast<std::size_t>(minute / MINUTES_PER_DAY)].set(
                    static_cast<std::size_t>(minute % MINUTES_PER_DAY));
            }
        });
    }
    for (std::size_t day = 0; day < present.size(); ++day) {
        result.minutes[day] = static_cast<int>(present[day].count());
    }
    return true;
}

} // namespace

Coverage coverageOf(const MonthCoverage& month, int day) {
    const int minutes = month.minutes.at(static_cast<std::size_t>(day - 1));
    if (month.summed) {
        return minutes > 0 ? Coverage::full : Coverage::unmarked;
    }
    return minutes == 0                                      ? Coverage::none
           : minutes * 100 >= MINUTES_PER_DAY * FULL_PERCENT ? Coverage::full
                                                             : Coverage::partial;
}

std::string coverageText(const MonthCoverage& month, int day) {
    const std::string minutes = std::to_string(month.minutes.at(static_cast<std::size_t>(day - 1)));
    switch (coverageOf(month, day)) {
    case Coverage::unmarked:
        return {};
    case Coverage::none:
        return "Keine Werte";
    default:
        return month.summed ? minutes + (minutes == "1" ? " Minute" : " Minuten") + " mit Wert"
                            : minutes + " von " + std::to_string(MINUTES_PER_DAY) + " Minuten vorhanden";
    }
}

std::optional<MonthCoverage> readCoverage(const StationConfig& station, std::int32_t channel, int year,
                                          int month, const FileOpener& open, const ReadingStep& step) {
    MonthCoverage result{year, month, station.ChannelTable.at(channel).Mode == MODE_SUM, {}};
    if (!isDate(year, month, 1)) {
        return result;
    }
    try {
        const bool complete = hasDayFiles(station) ? countDayFiles(station, channel, open, step, result)
                                                   : countYearFile(station, channel, open, step, result);
        if (!complete) {
            return std::nullopt;
        }
    } catch (const std::exception&) {
        return result; // what was counted before the error
    }
    return result;
}

} // namespace kelvrum
