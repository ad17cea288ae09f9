// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DayFiles.h"

#include "config/DataFolder.h"
#include "data/DayFormat.h"
#include "util/Format.h"
#include "util/LittleEndian.h"
#include "util/Paths.h"
#include "util/Text.h"
#include "util/Validity.h"

#include <algorithm>
#include <cmath>
#include <map>

namespace kelvrum {

namespace {

constexpr std::size_t PIECE_SIZE = 256UL * 1024; // bytes fetched with one read, about

/// A record with its fields; nothing when its date or minute is impossible.
std::optional<DayRecord> recordOf(std::span<const std::byte> record) {
    const int year = loadLittle<std::int16_t>(record, kmh::YEAR_AT);
    const int month = loadLittle<std::uint8_t>(record, kmh::MONTH_AT);
    const int day = loadLittle<std::uint8_t>(record, kmh::DAY_AT);
    const int minute = loadLittle<std::int16_t>(record, kmh::MINUTE_AT);
    if (!isDate(year, month, day) || minute < 0 || minute >= MINUTES_PER_DAY) {
        return std::nullopt;
    }
    const DateTime date = dateSerial(year, month, day);
    return DayRecord{date + static_cast<double>(minute) / MINUTES_PER_DAY,
                     static_cast<std::int64_t>(date) * MINUTES_PER_DAY + minute,
                     record.subspan(kmh::FIELDS_AT)};
}

/// The present values of one field of an interval's records.
struct Gathered {
    double sum = 0;
    std::int64_t count = 0;
    double minimum = INVALID_VALUE;
    double maximum = INVALID_VALUE;

    void addMean(double v) {
        if (isPresent(v)) {
            sum += v;
            ++count;
        }
    }
    void addMinimum(double v) {
        if (isPresent(v) && (minimum == INVALID_VALUE || v < minimum)) {
            minimum = v;
        }
    }
    void addMaximum(double v) {
        if (isPresent(v) && (maximum == INVALID_VALUE || v > maximum)) {
            maximum = v;
        }
    }
    [[nodiscard]] double mean() const {
        return count == 0 ? INVALID_VALUE : validate(sum / static_cast<double>(count));
    }
};

struct Interval {
    std::int64_t index;
    Gathered gathered;
};

/// Intervals by number. Records come nearly always in time order: they are stored in sequence then.
class Intervals {
  public:
    Gathered& at(std::int64_t index) {
        if (inOrder_.empty() || index > inOrder_.back().index) {
            inOrder_.push_back({index, {}});
        }
        if (index == inOrder_.back().index) {
            return inOrder_.back().gathered;
        }
        const auto found =
            std::lower_bound(inOrder_.begin(), inOrder_.end(), index,
                             [](const Interval& one, std::int64_t i) { return one.index < i; });
        return found->index == index ? found->gathered : late_[index];
    }

    /// Passes all of them to `consume(index, gathered)` by ascending number.
    template<typename Consume>
    void each(Consume consume) const {
        auto late = late_.begin();
        for (const Interval& one : inOrder_) {
            for (; late != late_.end() && late->first < one.index; ++late) {
                consume(late->first, late->second);
            }
            consume(one.index, one.gathered);
        }
    }

    [[nodiscard]] std::size_t count() const { return inOrder_.size() + late_.size(); }

  private:
    std::vector<Interval> inOrder_;
    std::map<std::int64_t, Gathered> late_; // whose first record came after one of a later interval
};

} // namespace

std::string dayName(DateTime t) {
    const double days = static_cast<double>(minuteNumber(t)) / MINUTES_PER_DAY;
    return formatDateTime(std::floor(days), "yyyymmdd", {});
}

std::string dayFileName(DateTime day) { return dayName(day) + std::string(kmh::EXTENSION); }

float DayRecord::value(std::size_t at) const { return loadLittle<float>(fields, at); }

void readDayRecords(FileSource& file, std::size_t recordSize,
                    const std::function<void(const DayRecord&)>& consume) {
    std::vector<std::byte> piece(std::max<std::size_t>(PIECE_SIZE / recordSize, 1) * recordSize);
    std::uint64_t offset = 0;
    for (;;) {
        const std::size_t got = file.read(offset, piece);
        const std::size_t records = got / recordSize;
        for (std::size_t i = 0; i < records; ++i) {
            const auto bytes = std::span<const std::byte>(piece).subspan(i * recordSize, recordSize);
            if (const auto record = recordOf(bytes)) {
                consume(*record);
            }
        }
        if (got < piece.size()) {
            return;
        }
        offset += got;
    }
}

std::vector<std::string> dayFilesBetween(const std::string& folder, const TimeRange& range) {
    const std::string first = dayName(range.from);
    const std::string last = dayName(range.to);
    std::map<std::string, std::string> byDay;
    for (const std::string& name : filesIn(folder.empty() ? "." : folder)) {
        const std::string day = name.substr(0, kmh::DATE_LENGTH);
        const bool named = name.size() == kmh::DATE_LENGTH + kmh::EXTENSION.size() &&
                           upperAscii(name).ends_with(kmh::EXTENSION) &&
                           std::all_of(day.begin(), day.end(), [](char c) { return c >= '0' && c <= '9'; });
        if (named && day >= first && day <= last) {
            byDay.emplace(day, name); // of names that differ in case only, the first in byte order: ".KMH"
        }
    }
    std::vector<std::string> names;
    names.reserve(byDay.size());
    for (const auto& [day, name] : byDay) {
        names.push_back(name);
    }
    return names;
}

std::optional<std::vector<DayInterval>> readDayIntervals(const StationConfig& station,
                                                         const ReadRequest& request, const FileOpener& open,
                                                         const ReadingStep& step) {
    std::vector<DayInterval> result;
    const auto& active = station.ActiveChannels;
    const auto slot = std::find(active.begin(), active.end(), request.channel);
    if (slot == active.end() || request.interval < 1) {
        return result;
    }
    const bool wide = station.WideRecords;
    const std::size_t field =
        static_cast<std::size_t>(slot - active.begin()) * (wide ? kmh::WIDE_FIELD : kmh::NARROW_FIELD);
    const std::string folder = dataFolder(station);
    const std::int64_t first = minuteNumber(request.range.from);
    const std::int64_t end = minuteNumber(request.range.to);
    Intervals intervals;
    for (const std::string& name : dayFilesBetween(folder, request.range)) {
        const auto file = open(folder + name);
        if (!file) {
            continue;
        }
        readDayRecords(*file, kmh::recordSize(active.size(), wide), [&](const DayRecord& record) {
            if (record.minute < first || record.minute >= end) {
                return;
            }
            Gathered& interval = intervals.at((record.minute - first) / request.interval);
            interval.addMean(record.value(field));
            if (wide) {
                interval.addMinimum(record.value(field + kmh::MINIMUM_AT));
                interval.addMaximum(record.value(field + kmh::MAXIMUM_AT));
            }
        });
        if (step && !step()) {
            return std::nullopt;
        }
    }
    result.reserve(intervals.count());
    intervals.each([&result](std::int64_t index, const Gathered& gathered) {
        result.push_back({index, gathered.mean(), gathered.minimum, gathered.maximum, gathered.count});
    });
    return result;
}

} // namespace kelvrum
