// SPDX-License-Identifier: GPL-3.0-or-later
#include "evaluation/IntervalGrid.h"

#include "data/SeriesFill.h"

#include <algorithm>
#include <cmath>

namespace kelvrum {

namespace {

constexpr std::int64_t MS_PER_MINUTE = 60'000;
constexpr double MS_PER_DAY = static_cast<double>(MS_PER_MINUTE) * MINUTES_PER_DAY;

/// Whole milliseconds from one time to another: times are kept no finer. At most the length of the calendar.
std::int64_t milliseconds(DateTime from, DateTime to) {
    constexpr DateTime ALL_DAYS = LAST_DATE - FIRST_DATE + 1;
    return std::llround(std::clamp(to - from, -ALL_DAYS, ALL_DAYS) * MS_PER_DAY);
}

/// How many steps of a length begin before an end.
std::int64_t stepsBefore(std::int64_t end, std::int64_t step) { return (end + step - 1) / step; }

DateTime unitEnd(DateTime unit, CalendarUnit kind) {
    switch (kind) {
    case CalendarUnit::hour:
        return addMinutes(unit, MINUTES_PER_HOUR);
    case CalendarUnit::day:
        return addMinutes(unit, MINUTES_PER_DAY);
    case CalendarUnit::month:
        break;
    }
    return addMonths(unit, 1);
}

} // namespace

DateTime unitStart(DateTime t, CalendarUnit unit) {
    const CalendarTime parts = calendarTime(t);
    const DateTime day = dateSerial(parts.year, parts.month, unit == CalendarUnit::month ? 1 : parts.day);
    return unit == CalendarUnit::hour ? day + timeSerial(parts.hour, 0) : day;
}

IntervalGrid::IntervalGrid(const TimeRange& range, std::int32_t interval, DateTime now)
    : from_(range.from)
    , interval_(interval) {
    if (interval < 1 || !std::isfinite(range.from) || std::isnan(range.to) || std::isnan(now)) {
        return;
    }
    const std::int64_t length = milliseconds(range.from, range.to);
    const std::int64_t reached = milliseconds(range.from, now) + 1; // an interval that begins now counts
    count_ = stepsBefore(std::max<std::int64_t>(std::min(length, reached), 0), interval * MS_PER_MINUTE);
}

DateTime IntervalGrid::start(std::int64_t i) const { return intervalStart(from_, i, interval_); }

std::int64_t IntervalGrid::nextUnit(std::int64_t i, CalendarUnit unit) const {
    const std::int64_t end = milliseconds(from_, unitEnd(unitStart(start(i), unit), unit));
    const std::int64_t next = stepsBefore(std::max<std::int64_t>(end, 0), interval_ * MS_PER_MINUTE);
    return next > i ? std::min(next, count_) : count_; // the last unit of the calendar has no next one
}

} // namespace kelvrum
