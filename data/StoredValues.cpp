// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/StoredValues.h"

#include "config/ConfigForms.h"
#include "config/DataFolder.h"
#include "data/ChannelFiles.h"
#include "data/ChannelMinutes.h"
#include "data/DayFiles.h"
#include "data/DayFormat.h"
#include "data/DayRecords.h"
#include "util/Text.h"
#include "util/Validity.h"

#include <algorithm>
#include <exception>
#include <string>

namespace kelvrum {

namespace {

constexpr std::int64_t PIECE_MINUTES = 8 * std::int64_t{1024}; // read at once

/// The calendar's days, for the names of day files.
constexpr TimeRange ALL_DAYS{FIRST_DATE, LAST_DATE};

/// The first or last minute of a year's file that is present. `givenUp` tells that a step ended the search.
std::optional<std::int64_t> presentMinute(ChannelMinutes& minutes, StoredEnd end, const ReadingStep& step,
                                          bool& givenUp) {
    for (std::int64_t done = 0; done < minutes.count(); done += PIECE_MINUTES) {
        if (!runStep(step)) {
            givenUp = true;
            return std::nullopt;
        }
        const std::int64_t size = std::min(PIECE_MINUTES, minutes.count() - done);
        const std::int64_t first = end == StoredEnd::first ? done : minutes.count() - done - size;
        const auto& present = minutes.present(first, static_cast<std::size_t>(size));
        if (end == StoredEnd::first) {
            const auto found = std::find(present.begin(), present.end(), true);
            if (found != present.end()) {
                return first + (found - present.begin());
            }
        } else {
            const auto found = std::find(present.rbegin(), present.rend(), true);
            if (found != present.rend()) {
                return first + size - 1 - (found - present.rbegin());
            }
        }
    }
    return std::nullopt;
}

std::optional<StoredTime> findInYears(const StationConfig& station, std::int32_t channel, StoredEnd end,
                                      const FileOpener& open, const ReadingStep& step) {
    std::vector<int> years = yearsWithFile(station, channel);
    if (end == StoredEnd::last) {
        std::reverse(years.begin(), years.end());
    }
    for (const int year : years) {
        if (!runStep(step)) { // listing the folder may have taken long
            return std::nullopt;
        }
        bool givenUp = false;
        try {
            ChannelMinutes minutes(station, channel, year, open);
            if (const auto minute = presentMinute(minutes, end, step, givenUp)) {
                return StoredTime{dateSerial(year, 1, 1) + static_cast<double>(*minute) / MINUTES_PER_DAY};
            }
        } catch (const std::exception&) {
            continue; // as a file without values
        }
        if (givenUp) {
            return std::nullopt;
        }
    }
    return StoredTime{};
}

/// The earliest or latest time at which a day file has a value of a field.
std::optional<DateTime> timeInDay(FileSource& file, DayRecordReader& records, std::size_t field,
                                  StoredEnd end) {
    std::optional<DateTime> found;
    records.read(file, [&](const DayRecord& record) {
        if (isPresent(record.value(field)) &&
            (!found || (end == StoredEnd::first ? record.time < *found : record.time > *found))) {
            found = record.time;
        }
    });
    return found;
}

std::optional<StoredTime> findInDays(const StationConfig& station, std::int32_t channel, StoredEnd end,
                                     const FileOpener& open, const ReadingStep& step) {
    const auto field = fieldOffset(station, channel);
    if (!field) {
        return StoredTime{};
    }
    const std::string folder = dataFolder(station);
    std::vector<std::string> names = dayFilesBetween(folder, ALL_DAYS);
    if (end == StoredEnd::last) {
        std::reverse(names.begin(), names.end());
    }
    DayRecordReader records(kmh::recordSize(station.ActiveChannels.size(), station.WideRecords));
    for (const std::string& name : names) {
        if (!runStep(step)) {
            return std::nullopt;
        }
        try {
            const auto file = open(folder + name);
            if (const auto time = file ? timeInDay(*file, records, *field, end) : std::nullopt) {
                return StoredTime{time};
            }
        } catch (const std::exception&) {
            continue;
        }
    }
    return StoredTime{};
}

} // namespace

std::vector<int> yearsWithFile(const StationConfig& station, std::int32_t channel) {
    constexpr std::size_t YEAR_DIGITS = 4;
    const std::string folder = dataFolder(station);
    const std::string sample = upperAscii(channelFileName(channel, {}, 0));
    const std::size_t yearAt = sample.rfind('_') + 1;
    std::vector<int> years;
    for (const std::string& name : dataFilesIn(folder)) {
        std::string pattern = upperAscii(name); // the files are found in any case of letters
        if (pattern.size() != sample.size()) {
            continue;
        }
        const std::string year = pattern.substr(yearAt, YEAR_DIGITS);
        pattern.replace(yearAt, YEAR_DIGITS, "0000");
        if (pattern == sample && std::all_of(year.begin(), year.end(), isDigit) &&
            isDate(std::stoi(year), 1, 1)) {
            years.push_back(std::stoi(year));
        }
    }
    std::sort(years.begin(), years.end());
    years.erase(std::unique(years.begin(), years.end()), years.end());
    return years;
}

bool hasFile(const StationConfig& station, std::int32_t channel) {
    return hasDayFiles(station) ? !dayFilesBetween(dataFolder(station), ALL_DAYS).empty()
                                : !yearsWithFile(station, channel).empty();
}

std::optional<StoredTime> findStored(const StationConfig& station, std::int32_t channel, StoredEnd end,
                                     const FileOpener& open, const ReadingStep& step) {
    return hasDayFiles(station) ? findInDays(station, channel, end, open, step)
                                : findInYears(station, channel, end, open, step);
}

} // namespace kelvrum
