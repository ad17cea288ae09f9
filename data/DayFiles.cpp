// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DayFiles.h"

#include "config/DataFolder.h"
#include "data/DayFormat.h"
#include "data/DayRecords.h"
#include "util/Format.h"
#include "util/Text.h"
#include "util/Validity.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <utility>

namespace kelvrum {

namespace {

/// Intervals by number, each with the sum of its present values in place of their mean. Records come nearly
/// always in time order: they are stored in sequence then.
class Intervals {
  public:
    /// Intervals of `minutes` minutes each, from the minute `first` on; reserves memory for `expected` of
    /// them.
    Intervals(std::int64_t first, std::int32_t minutes, std::size_t expected)
        : first_(first)
        , minutes_(minutes)
        , lastStart_(first - 2 * std::int64_t{minutes}) {
        inOrder_.reserve(expected);
    }

    /// The interval of a minute, which must not lie before the first one.
    DayInterval& at(std::int64_t minute) {
        const std::int64_t after = minute - lastStart_;
        if (after >= 2 * minutes_) {
            return append((minute - first_) / minutes_);
        }
        if (after >= minutes_) {
            return append(inOrder_.back().index + 1); // mostly; a division would take half of the time
        }
        return after >= 0 ? inOrder_.back() : earlier((minute - first_) / minutes_);
    }

    /// All of them by ascending number, the sums turned into means.
    std::vector<DayInterval> finish() {
        if (!late_.empty()) {
            const auto middle = static_cast<std::ptrdiff_t>(inOrder_.size());
            for (const auto& [index, interval] : late_) {
                inOrder_.push_back(interval);
            }
            std::inplace_merge(inOrder_.begin(), inOrder_.begin() + middle, inOrder_.end(),
                               [](const DayInterval& a, const DayInterval& b) { return a.index < b.index; });
        }
        for (DayInterval& one : inOrder_) {
            one.mean =
                one.present == 0 ? INVALID_VALUE : validate(one.mean / static_cast<double>(one.present));
        }
        return std::move(inOrder_);
    }

  private:
    static DayInterval empty(std::int64_t index) { return {index, 0, INVALID_VALUE, INVALID_VALUE, 0}; }

    DayInterval& append(std::int64_t index) {
        lastStart_ = first_ + index * minutes_;
        return inOrder_.emplace_back(empty(index));
    }

    DayInterval& earlier(std::int64_t index) {
        const auto found =
            std::lower_bound(inOrder_.begin(), inOrder_.end(), index,
                             [](const DayInterval& one, std::int64_t i) { return one.index < i; });
        return found->index == index ? *found : late_.try_emplace(index, empty(index)).first->second;
    }

    std::int64_t first_;
    std::int64_t minutes_;
    std::int64_t lastStart_; // the first minute of the last interval in sequence; none: far before all
    std::vector<DayInterval> inOrder_;
    std::map<std::int64_t, DayInterval> late_; // whose first record came after one of a later interval
};

void addMean(DayInterval& interval, double v) {
    if (isPresent(v)) {
        interval.mean += v;
        ++interval.present;
    }
}

void addMinimum(DayInterval& interval, double v) {
    if (isPresent(v) && (interval.minimum == INVALID_VALUE || v < interval.minimum)) {
        interval.minimum = v;
    }
}

void addMaximum(DayInterval& interval, double v) {
    if (isPresent(v) && (interval.maximum == INVALID_VALUE || v > interval.maximum)) {
        interval.maximum = v;
    }
}

/// The number of intervals that this many days can have, limited to a year.
std::size_t intervalsOf(std::size_t days, std::int32_t minutes) {
    constexpr std::size_t YEAR = 366;
    return std::min(days, YEAR) * static_cast<std::size_t>((MINUTES_PER_DAY - 1) / minutes + 1) + 1;
}

} // namespace

std::string dayName(DateTime t) {
    const double days = static_cast<double>(minuteNumber(t)) / MINUTES_PER_DAY;
    return formatDateTime(std::floor(days), "yyyymmdd", {});
}

std::string dayFileName(DateTime day) { return dayName(day) + std::string(kmh::EXTENSION); }

std::vector<std::string> dayFilesBetween(const std::string& folder, const TimeRange& range) {
    const std::string first = dayName(range.from);
    const std::string last = dayName(range.to);
    std::map<std::string, std::string> byDay;
    for (const std::string& name : dataFilesIn(folder)) {
        const std::string day = name.substr(0, kmh::DATE_LENGTH);
        const bool named = name.size() == kmh::DATE_LENGTH + kmh::EXTENSION.size() &&
                           upperAscii(name).ends_with(kmh::EXTENSION) &&
                           std::all_of(day.begin(), day.end(), isDigit);
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

std::optional<std::size_t> fieldOffset(const StationConfig& station, std::int32_t channel) {
    const auto& active = station.ActiveChannels;
    const auto slot = std::find(active.begin(), active.end(), channel);
    if (slot == active.end()) {
        return std::nullopt;
    }
    return static_cast<std::size_t>(slot - active.begin()) *
           (station.WideRecords ? kmh::WIDE_FIELD : kmh::NARROW_FIELD);
}

std::optional<std::vector<DayInterval>> readDayIntervals(const StationConfig& station,
                                                         const ReadRequest& request, const FileOpener& open,
                                                         const ReadingStep& step) {
    const auto offset = fieldOffset(station, request.channel);
    if (!offset || request.interval < 1) {
        return std::vector<DayInterval>();
    }
    const std::size_t field = *offset;
    const bool wide = station.WideRecords;
    const std::string folder = dataFolder(station);
    const std::int64_t first = minuteNumber(request.range.from);
    const std::int64_t end = minuteNumber(request.range.to);
    const std::vector<std::string> names = dayFilesBetween(folder, request.range);
    if (!runStep(step)) { // listing the folder may have taken long
        return std::nullopt;
    }
    DayRecordReader records(kmh::recordSize(station.ActiveChannels.size(), wide));
    Intervals intervals(first, request.interval, intervalsOf(names.size(), request.interval));
    for (const std::string& name : names) {
        const auto file = open(folder + name);
        if (!file) {
            continue;
        }
        records.read(*file, [&](const DayRecord& record) {
            if (record.minute < first || record.minute >= end) {
                return;
            }
            DayInterval& interval = intervals.at(record.minute);
            addMean(interval, record.value(field));
            if (wide) {
                addMinimum(interval, record.value(field + kmh::MINIMUM_AT));
                addMaximum(interval, record.value(field + kmh::MAXIMUM_AT));
            }
        });
        if (!runStep(step)) {
            return std::nullopt;
        }
    }
    return intervals.finish();
}

} // namespace kelvrum
