// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DayList.h"

#include "config/DataFolder.h"
#include "data/DayFormat.h"
#include "data/DayRecords.h"
#include "util/LittleEndian.h"
#include "util/Paths.h"
#include "util/Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <utility>

namespace kelvrum {

namespace {

/// The minute of a file's first record; 0 when it has none.
std::int16_t startMinute(const std::string& path, const FileOpener& open) {
    std::array<std::byte, 2> bytes{};
    const auto file = open(path);
    const bool read = file && file->read(kmh::MINUTE_AT, bytes) == bytes.size();
    return read ? loadLittle<std::int16_t>(bytes, 0) : std::int16_t{0};
}

/// The names that could be day files, by their first eight characters.
std::map<std::string, std::vector<std::string>> byDate(const std::vector<std::string>& names) {
    std::map<std::string, std::vector<std::string>> result;
    for (const std::string& name : names) {
        if (name.size() >= kmh::DATE_LENGTH && upperAscii(name).ends_with(kmh::EXTENSION)) {
            result[name.substr(0, kmh::DATE_LENGTH)].push_back(name);
        }
    }
    return result;
}

/// Days that a range touches, at most those of a year.
std::size_t daysOf(const TimeRange& range) {
    constexpr double YEAR = 366;
    return static_cast<std::size_t>(std::clamp(std::ceil(range.to - range.from), 1.0, YEAR));
}

} // namespace

std::vector<std::string> filesOfDay(const std::string& folder, const std::vector<std::string>& names,
                                    DateTime day, const FileOpener& open) {
    auto found = byDate(names)[dayName(day)];
    if (found.size() > 1 && startMinute(folder + found[0], open) < startMinute(folder + found[1], open)) {
        std::swap(found[0], found[1]);
    }
    return found;
}

std::optional<DayRows> readDayRows(const StationConfig& station, const TimeRange& range,
                                   const FileOpener& open, const ReadingStep& step) {
    DayRows rows;
    rows.channels = station.ActiveChannels.size();
    if (rows.channels == 0) {
        return rows;
    }
    const std::size_t fieldSize = station.WideRecords ? kmh::WIDE_FIELD : kmh::NARROW_FIELD;
    const std::size_t recordSize = kmh::recordSize(rows.channels, station.WideRecords);
    DayRecordReader records(recordSize);
    const std::string folder = dataFolder(station);
    const std::int64_t firstMinute = minuteNumber(range.from);
    const std::int64_t lastMinute = minuteNumber(range.to);
    const std::string first = dayName(range.from);
    const std::string last = dayName(range.to);
    for (const auto& [date, names] : byDate(filesIn(folder.empty() ? "." : folder))) {
        const auto day = parseDateTime(date.substr(0, 4) + "-" + date.substr(4, 2) + "-" + date.substr(6));
        if (date < first || date > last || !day) {
            continue;
        }
        for (const std::string& name : filesOfDay(folder, names, *day, open)) {
            const auto file = open(folder + name);
            if (!file) {
                continue;
            }
            if (rows.times.empty()) {
                rows.reserve(daysOf(range) *
                             (file->size() / recordSize)); // as if all were as long as the first
            }
            records.read(*file, [&](const DayRecord& record) {
                if (record.minute < firstMinute || record.minute > lastMinute) {
                    return;
                }
                rows.times.push_back(record.time);
                const std::size_t filled = rows.values.size();
                rows.values.resize(filled + rows.channels);
                for (std::size_t i = 0; i < rows.channels; ++i) {
                    rows.values[filled + i] = record.value(i * fieldSize);
                }
            });
            if (!runStep(step)) {
                return std::nullopt;
            }
        }
    }
    return rows;
}

} // namespace kelvrum
