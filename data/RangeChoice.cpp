// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/RangeChoice.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kelvrum {

namespace {

constexpr double ROUNDING = 1e-4; // minutes that a time may lack from a point of the grid

/// Whole minutes since 1899-12-30, within the calendar.
std::int64_t minutesOf(DateTime t, double (*round)(double)) {
    const double cut = std::isnan(t) ? 0 : std::clamp(t, FIRST_DATE, LAST_DATE + 1.0);
    return static_cast<std::int64_t>(round(cut * MINUTES_PER_DAY));
}

std::int64_t dayOf(std::int64_t minutes) {
    const std::int64_t day = minutes / MINUTES_PER_DAY;
    return minutes % MINUTES_PER_DAY < 0 ? day - 1 : day;
}

/// The time as the pickers hold it: the day plus the minutes of the day.
DateTime timeOf(std::int64_t minutes) {
    const std::int64_t day = dayOf(minutes);
    const std::int64_t inDay = minutes - day * MINUTES_PER_DAY;
    return static_cast<double>(day) + static_cast<double>(inDay) / MINUTES_PER_DAY;
}

std::int64_t gridOf(std::int32_t interval) { return std::clamp(interval, 1, MINUTES_PER_DAY); }

/// The last point of the grid that is not after t.
std::int64_t gridDown(DateTime t, std::int32_t interval) {
    const std::int64_t minutes = minutesOf(t, [](double m) { return std::floor(m + ROUNDING); });
    const std::int64_t midnight = dayOf(minutes) * MINUTES_PER_DAY;
    return minutes - (minutes - midnight) % gridOf(interval);
}

/// The first point of the grid that is not before t.
std::int64_t gridUp(DateTime t, std::int32_t interval) {
    const std::int64_t minutes = minutesOf(t, [](double m) { return std::ceil(m - ROUNDING); });
    const std::int64_t midnight = dayOf(minutes) * MINUTES_PER_DAY;
    const std::int64_t grid = gridOf(interval);
    const std::int64_t inDay = (minutes - midnight + grid - 1) / grid * grid;
    return midnight + std::min<std::int64_t>(inDay, MINUTES_PER_DAY);
}

std::int64_t lengthOf(const TimeRange& range) {
    const auto nearest = [](double m) { return std::floor(m + 0.5); };
    return std::max<std::int64_t>(minutesOf(range.to, nearest) - minutesOf(range.from, nearest), 0);
}

/// `length` minutes, placed so that the range contains the time and the time keeps its relative position.
TimeRange placed(const TimeRange& range, DateTime around, std::int64_t length, std::int32_t interval) {
    const double before = range.to > range.from ? (around - range.from) / (range.to - range.from) : 0;
    const double share = std::clamp(before, 0.0, 1.0);
    const DateTime start = around - share * static_cast<double>(length) / MINUTES_PER_DAY;
    const std::int64_t grid = gridOf(interval);
    const std::int64_t down = gridDown(start, interval);
    std::int64_t from =
        (start - timeOf(down)) * MINUTES_PER_DAY * 2 < static_cast<double>(grid) ? down : down + grid;
    if (timeOf(from) > around) {
        from = gridDown(around, interval);
    } else if (timeOf(from + length) < around) {
        from = gridUp(around, interval) - length;
    }
    return {timeOf(from), timeOf(from + length)};
}

/// A length as a whole number of intervals, at least one.
std::int64_t inIntervals(std::int64_t length, std::int32_t interval) {
    const std::int64_t grid = gridOf(interval);
    return std::max<std::int64_t>((length + grid / 2) / grid, 1) * grid;
}

} // namespace

TimeRange bandRange(DateTime one, DateTime other, std::int32_t interval) {
    if (other < one) {
        std::swap(one, other);
    }
    const std::int64_t from = gridDown(one, interval);
    std::int64_t to = gridUp(other, interval);
    if (to <= from) {
        to = gridUp(timeOf(from + 1), interval);
    }
    return {timeOf(from), timeOf(to)};
}

TimeRange zoomedIn(const TimeRange& range, DateTime around, std::int32_t interval) {
    const std::int64_t length = lengthOf(range);
    const std::int64_t half = inIntervals(length / 2, interval);
    return half >= length && length > 0 ? range : placed(range, around, half, interval);
}

TimeRange zoomedOut(const TimeRange& range, DateTime around, std::int32_t interval) {
    constexpr std::int64_t LONGEST = std::int64_t{LONGEST_ZOOM_DAYS} * MINUTES_PER_DAY;
    const std::int64_t length = lengthOf(range);
    if (length >= LONGEST) {
        return range;
    }
    return placed(range, around, std::min(inIntervals(length * 2, interval), LONGEST), interval);
}

TimeRange presetRange(RangePreset preset, DateTime holding) {
    const CalendarTime parts = calendarTime(holding);
    const DateTime day = dateSerial(parts.year, parts.month, parts.day);
    switch (preset) {
    case RangePreset::day:
        return {day, day + 1};
    case RangePreset::week: {
        // Day 2 of the count, 1 January 1900, was a Monday.
        const auto sinceMonday = static_cast<std::int64_t>(day) - 2;
        const DateTime monday = day - static_cast<double>((sinceMonday % 7 + 7) % 7);
        return {monday, monday + 7};
    }
    case RangePreset::month: {
        const DateTime first = dateSerial(parts.year, parts.month, 1);
        return {first, addMonths(first, 1)};
    }
    case RangePreset::year:
        break;
    }
    const DateTime first = dateSerial(parts.year, 1, 1);
    return {first, addMonths(first, 12)};
}

TimeRange rangeUpTo(DateTime value, const TimeRange& range, std::int32_t interval, DateTime earliest) {
    const std::int64_t length = std::max<std::int64_t>(lengthOf(range), gridOf(interval));
    const std::int64_t to = gridDown(value, interval) + gridOf(interval);
    const std::int64_t first = gridUp(earliest, 1);
    const std::int64_t from = std::max(to - length, first);
    return {timeOf(from), timeOf(from + length)};
}

TimeRange rangeFrom(DateTime value, const TimeRange& range, std::int32_t interval) {
    const std::int64_t length = std::max<std::int64_t>(lengthOf(range), gridOf(interval));
    const std::int64_t from = gridDown(value, interval);
    return {timeOf(from), timeOf(from + length)};
}

DateTime yearStart(DateTime t) { return dateSerial(calendarTime(t).year, 1, 1); }

} // namespace kelvrum
