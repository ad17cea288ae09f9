// SPDX-License-Identifier: GPL-3.0-or-later
// Date-times as the stations count them: days since 30 December 1899, the time of day as fraction.
// Time zones and daylight saving time are ignored.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>

namespace kelvrum {

/// Days since 1899-12-30 00:00; the fraction is the time of day.
using DateTime = double;

inline constexpr int MINUTES_PER_HOUR = 60;
inline constexpr int MINUTES_PER_DAY = 1440;

/// The serial numbers that have a calendar date: 1 January 100 to 31 December 9999.
inline constexpr DateTime FIRST_DATE = -657434;
inline constexpr DateTime LAST_DATE = 2958465;

/// A pair of date-times; the end may lie before the start.
struct TimeRange {
    DateTime from = 0;
    DateTime to = 0;
};

/// A date-time taken apart. `dayOfYear` counts from 1.
struct CalendarTime {
    int year = 0;
    int month = 0;
    int day = 0;
    int hour = 0;
    int minute = 0;
    int second = 0;
    int millisecond = 0;
    int dayOfYear = 0;
};

/// Takes t apart after rounding it to the nearest millisecond, a half to the even neighbour. What is
/// outside of the calendar is moved to its first or last day; a NaN counts as 0.
CalendarTime calendarTime(DateTime t);

/// The calendar time displayed for t: rounded to the nearest second.
CalendarTime shownTime(DateTime t);

/// Whole minutes since 1899-12-30 00:00: calendarTime(t) rounded to the nearest minute, a half to the even
/// neighbour. Times are compared by it, since equal ones that were computed differently may differ in the
/// last bits of their doubles.
std::int64_t minuteNumber(DateTime t);

/// Whether a is at an earlier minute than b.
bool isEarlier(DateTime a, DateTime b);

/// True for a day of the calendar, years 100 to 9999.
bool isDate(int year, int month, int day);

/// The serial number of a day's midnight. The day must be one of the calendar (isDate).
DateTime dateSerial(int year, int month, int day);

/// Hours, minutes and seconds as a fraction of a day.
DateTime timeSerial(int hour, int minute, int second = 0);

/// t moved by whole calendar months: the time of day stays, the day of month is cut to the month's last day.
/// A month outside of the calendar becomes its first or last one.
DateTime addMonths(DateTime t, int months);

/// t moved by whole minutes, hours or days given in minutes, without the drift of added fractions: the
/// result lies on the same millisecond grid as t. A step longer than the calendar counts as its length.
DateTime addMinutes(DateTime t, long long minutes);

/// Reads dd.mm.yyyy or yyyy-mm-dd, each with an optional hh:mm or hh:mm:ss after blanks.
/// Anything else gives nothing.
std::optional<DateTime> parseDateTime(std::string_view text);

} // namespace kelvrum
