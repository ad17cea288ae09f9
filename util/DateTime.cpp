// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/DateTime.h"

#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <charconv>
#include <chrono>
#include <cmath>

namespace kelvrum {

namespace {

constexpr std::int64_t MS_PER_DAY = 86'400'000;
constexpr std::int64_t UNIX_EPOCH = 25569; // 1970-01-01 in days since 1899-12-30

/// Whole milliseconds since 1899-12-30, kept within the calendar.
std::int64_t milliseconds(DateTime t) {
    if (std::isnan(t)) {
        return 0;
    }
    const double cut = std::clamp(t, FIRST_DATE, LAST_DATE + 1.0);
    const auto ms = static_cast<std::int64_t>(roundHalfEven(cut * static_cast<double>(MS_PER_DAY)));
    return std::min(ms, (static_cast<std::int64_t>(LAST_DATE) + 1) * MS_PER_DAY - 1);
}

CalendarTime fromMilliseconds(std::int64_t ms) {
    using namespace std::chrono;
    std::int64_t day = ms / MS_PER_DAY;
    std::int64_t rest = ms % MS_PER_DAY;
    if (rest < 0) {
        rest += MS_PER_DAY;
        --day;
    }
    const sys_days date{days{day - UNIX_EPOCH}};
    const year_month_day ymd{date};
    const sys_days newYear{ymd.year() / January / 1};

    CalendarTime result;
    result.year = static_cast<int>(ymd.year());
    result.month = static_cast<int>(static_cast<unsigned>(ymd.month()));
    result.day = static_cast<int>(static_cast<unsigned>(ymd.day()));
    result.dayOfYear = static_cast<int>((date - newYear).count()) + 1;
    const int inDay = static_cast<int>(rest);
    result.hour = inDay / 3'600'000;
    result.minute = inDay / 60'000 % 60;
    result.second = inDay / 1'000 % 60;
    result.millisecond = inDay % 1'000;
    return result;
}

/// Reads a run of minDigits to maxDigits digits and removes it from the start of text.
std::optional<int> takeNumber(std::string_view& text, std::size_t minDigits, std::size_t maxDigits) {
    std::size_t n = 0;
    while (n < text.size() && n < maxDigits && isDigit(text[n])) {
        ++n;
    }
    if (n < minDigits) {
        return std::nullopt;
    }
    int value = 0;
    std::from_chars(text.data(), text.data() + n, value);
    text.remove_prefix(n);
    return value;
}

bool takeChar(std::string_view& text, char c) {
    if (text.empty() || text.front() != c) {
        return false;
    }
    text.remove_prefix(1);
    return true;
}

/// hh:mm or hh:mm:ss up to the end of the text.
std::optional<DateTime> parseTime(std::string_view text) {
    const auto hour = takeNumber(text, 1, 2);
    if (!hour || !takeChar(text, ':')) {
        return std::nullopt;
    }
    const auto minute = takeNumber(text, 2, 2);
    std::optional<int> second = 0;
    if (takeChar(text, ':')) {
        second = takeNumber(text, 2, 2);
    }
    if (!minute || !second || !text.empty() || *hour > 23 || *minute > 59 || *second > 59) {
        return std::nullopt;
    }
    return timeSerial(*hour, *minute, *second);
}

} // namespace

CalendarTime calendarTime(DateTime t) { return fromMilliseconds(milliseconds(t)); }

CalendarTime shownTime(DateTime t) {
    const std::int64_t ms = milliseconds(t);
    const std::int64_t second = 1000;
    const std::int64_t rest = ((ms % second) + second) % second;
    const std::int64_t rounded = ms - rest + (rest >= second / 2 ? second : 0);
    const std::int64_t last = (static_cast<std::int64_t>(LAST_DATE) + 1) * MS_PER_DAY - second;
    return fromMilliseconds(std::min(rounded, last));
}

std::int64_t minuteNumber(DateTime t) {
    constexpr double MS_PER_MINUTE = 60'000;
    return static_cast<std::int64_t>(roundHalfEven(static_cast<double>(milliseconds(t)) / MS_PER_MINUTE));
}

bool isEarlier(DateTime a, DateTime b) { return minuteNumber(a) < minuteNumber(b); }

bool isDate(int year, int month, int day) {
    using namespace std::chrono;
    // The calendar types keep months and days in one byte: larger numbers would wrap into valid ones.
    return year >= 100 && year <= 9999 && month >= 1 && month <= 12 && day >= 1 && day <= 31 &&
           (std::chrono::year{year} / month / day).ok();
}

DateTime dateSerial(int year, int month, int day) {
    using namespace std::chrono;
    const sys_days date{std::chrono::year{year} / month / day};
    return static_cast<double>(date.time_since_epoch().count() + UNIX_EPOCH);
}

DateTime timeSerial(int hour, int minute, int second) {
    return static_cast<double>((hour * 60 + minute) * 60 + second) / 86400.0;
}

DateTime addMonths(DateTime t, int months) {
    using namespace std::chrono;
    const std::int64_t ms = milliseconds(t);
    const CalendarTime parts = fromMilliseconds(ms);
    const std::int64_t target = std::int64_t{parts.year} * 12 + parts.month - 1 + months;
    const int count = static_cast<int>(std::clamp<std::int64_t>(target, 100L * 12, 9999L * 12 + 11));
    const int year = count / 12;
    const int month = count % 12 + 1;
    const year_month_day_last end{std::chrono::year{year} / month / last};
    const int lastDay = static_cast<int>(static_cast<unsigned>(end.day()));
    const std::int64_t inDay = ((ms % MS_PER_DAY) + MS_PER_DAY) % MS_PER_DAY;
    return dateSerial(year, month, std::min(parts.day, lastDay)) +
           static_cast<double>(inDay) / static_cast<double>(MS_PER_DAY);
}

DateTime addMinutes(DateTime t, long long minutes) {
    constexpr auto ALL_MINUTES = static_cast<long long>(LAST_DATE - FIRST_DATE + 1) * MINUTES_PER_DAY;
    const long long step = std::clamp(minutes, -ALL_MINUTES, ALL_MINUTES);
    return static_cast<double>(milliseconds(t) + step * 60'000) / static_cast<double>(MS_PER_DAY);
}

std::optional<DateTime> parseDateTime(std::string_view text) {
    text = trimBlanks(text);
    std::optional<int> day;
    std::optional<int> month;
    std::optional<int> year;
    if (text.size() > 4 && text[4] == '-') {
        year = takeNumber(text, 4, 4);
        takeChar(text, '-');
        month = takeNumber(text, 1, 2);
        if (!takeChar(text, '-')) {
            return std::nullopt;
        }
        day = takeNumber(text, 1, 2);
    } else {
        day = takeNumber(text, 1, 2);
        if (!takeChar(text, '.')) {
            return std::nullopt;
        }
        month = takeNumber(text, 1, 2);
        if (!takeChar(text, '.')) {
            return std::nullopt;
        }
        year = takeNumber(text, 4, 4);
    }
    if (!year || !month || !day || !isDate(*year, *month, *day)) {
        return std::nullopt;
    }
    const DateTime date = dateSerial(*year, *month, *day);
    if (text.empty()) {
        return date;
    }
    if (text.front() != ' ') {
        return std::nullopt;
    }
    const auto time = parseTime(trimBlanks(text));
    return time ? std::optional(date + *time) : std::nullopt;
}

} // namespace kelvrum
