// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DayList.h"

#include "config/DataFolder.h"
#include "data/DayFiles.h"
#include "data/DayFormat.h"
#include "util/LittleEndian.h"
#include "util/Text.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <exception>
#include <iterator>
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

/// The length of a range in days, rounded up, from 1 to 366.
std::size_t daysOf(const TimeRange& range) {
    constexpr double YEAR = 366;
    return static_cast<std::size_t>(std::clamp(std::ceil(range.to - range.from), 1.0, YEAR));
}

constexpr std::size_t FETCHED_SIZE = 64UL * 1024; // bytes of a file read with a row, about

} // namespace

DayRows::DayRows(const StationConfig& station, FileOpener open)
    : open_(std::move(open))
    , channels_(station.ActiveChannels.size())
    , fieldSize_(station.WideRecords ? kmh::WIDE_FIELD : kmh::NARROW_FIELD)
    , recordSize_(kmh::recordSize(channels_, station.WideRecords)) {}

void DayRows::enterFile(std::string path) {
    files_.push_back(std::move(path));
    following_ = NO_RECORD;
}

void DayRows::add(const DayRecord& record) {
    if (record.number != following_) {
        runs_.push_back({times_.size(), files_.size() - 1, record.number});
    }
    following_ = record.number + 1;
    times_.push_back(record.time);
}

std::span<const float> DayRows::values(std::size_t row) const {
    if (fetched_.row != row) {
        fetched_.row = row;
        fetched_.values.clear();
        const auto bytes = recordOf(row);
        const auto record = bytes.empty() ? std::nullopt : DayDecoder().decode(0, bytes);
        if (record && record->time == times_[row]) {
            for (std::size_t i = 0; i < channels_; ++i) {
                fetched_.values.push_back(record->value(i * fieldSize_));
            }
        }
    }
    return fetched_.values;
}

/// The bytes of a row's record, none when the file does not hold it.
std::span<const std::byte> DayRows::recordOf(std::size_t row) const {
    const auto after = std::upper_bound(runs_.begin(), runs_.end(), row,
                                        [](std::size_t r, const Run& run) { return r < run.row; });
    const Run& run = *std::prev(after);
    const std::uint64_t number = run.record + (row - run.row);
    const std::size_t together = std::max<std::size_t>(FETCHED_SIZE / recordSize_, 1);
    const std::uint64_t first = number - number % together;
    if (fetched_.file != run.file || fetched_.first != first) {
        fetch(run.file, first, together);
    }
    const std::size_t at = static_cast<std::size_t>(number - first) * recordSize_;
    return at + recordSize_ <= fetched_.records.size()
               ? std::span<const std::byte>(fetched_.records).subspan(at, recordSize_)
               : std::span<const std::byte>();
}

/// Reads records of a file; those that cannot be read are missing.
void DayRows::fetch(std::size_t file, std::uint64_t first, std::size_t count) const {
    fetched_.file = file;
    fetched_.first = first;
    fetched_.records.resize(count * recordSize_);
    std::size_t got = 0;
    try {
        if (const auto source = open_(files_[file])) {
            got = source->read(first * recordSize_, fetched_.records);
        }
    } catch (const std::exception&) {
        got = 0; // as a file that is gone
    }
    fetched_.records.resize(got);
}

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
    DayRows rows(station, open);
    if (rows.channels() == 0) {
        return rows;
    }
    const std::size_t recordSize = kmh::recordSize(rows.channels(), station.WideRecords);
    DayRecordReader records(recordSize);
    const std::string folder = dataFolder(station);
    const std::int64_t firstMinute = minuteNumber(range.from);
    const std::int64_t lastMinute = minuteNumber(range.to);
    const std::string first = dayName(range.from);
    const std::string last = dayName(range.to);
    const auto days = byDate(dataFilesIn(folder));
    if (!runStep(step)) { // listing the folder may have taken long
        return std::nullopt;
    }
    for (const auto& [date, names] : days) {
        const auto day = parseDateTime(date.substr(0, 4) + "-" + date.substr(4, 2) + "-" + date.substr(6));
        if (date < first || date > last || !day) {
            continue;
        }
        for (const std::string& name : filesOfDay(folder, names, *day, open)) {
            const auto file = open(folder + name);
            if (!runStep(step)) {
                return std::nullopt;
            }
            if (!file) {
                continue;
            }
            if (rows.empty()) { // as if all were as long as the first
                rows.reserve(daysOf(range) * (file->size() / recordSize));
            }
            rows.enterFile(folder + name);
            records.read(*file, [&](const DayRecord& record) {
                if (record.minute >= firstMinute && record.minute <= lastMinute) {
                    rows.add(record);
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
