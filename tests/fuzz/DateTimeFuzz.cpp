// SPDX-License-Identifier: GPL-3.0-or-later
// Any text as a date and a time, and any number as a date-time.
#include "data/ChannelFiles.h"
#include "data/RangeSteps.h"
#include "tests/fuzz/Fuzzing.h"
#include "util/DateTime.h"
#include "util/Format.h"

#include <cmath>

namespace {

using namespace kelvrum;
using fuzzing::require;

bool isOfCalendar(DateTime t) { return t >= FIRST_DATE && t < LAST_DATE + 1; }

void checkParts(const CalendarTime& parts) {
    require(isDate(parts.year, parts.month, parts.day), "a date is one of the calendar");
    require(parts.hour >= 0 && parts.hour < 24 && parts.minute >= 0 && parts.minute < 60,
            "a time is one of a day");
    require(parts.second >= 0 && parts.second < 60 && parts.millisecond >= 0 && parts.millisecond < 1000,
            "seconds and their parts are not full");
    const double newYear = dateSerial(parts.year, 1, 1);
    require(dateSerial(parts.year, parts.month, parts.day) - newYear + 1 == parts.dayOfYear,
            "days count from 1");
}

void checkText(std::string_view text) {
    const auto read = parseDateTime(text);
    if (!read) {
        return;
    }
    require(isOfCalendar(*read), "a read time is of the calendar");
    for (const char* const format : {"dd.mm.yyyy hh:mm:ss", "yyyy-mm-dd hh:mm:ss"}) {
        require(parseDateTime(formatDateTime(*read, format, {})) == read, "a written time reads back");
    }
}

void checkTime(DateTime t) {
    constexpr double MILLISECOND = 1.0 / 86'400'000;
    const CalendarTime parts = calendarTime(t);
    checkParts(parts);
    checkParts(shownTime(t));
    require(shownTime(t).millisecond == 0, "a shown time is of whole seconds");
    if (isOfCalendar(t)) {
        const double there = dateSerial(parts.year, parts.month, parts.day) +
                             timeSerial(parts.hour, parts.minute, parts.second) +
                             parts.millisecond * MILLISECOND;
        require(std::fabs(there - t) <= MILLISECOND, "the parts of a time are near to it");
    }
    const int minute = MinuteIndex(t);
    require(minute >= 0 && minute <= 366 * MINUTES_PER_DAY, "a minute is one of the year");
}

void checkSteps(DateTime t, std::int32_t count) {
    require(isOfCalendar(addMonths(t, count)), "a month's step stays in the calendar");
    require(addMonths(t, 0) == addMonths(addMonths(t, 0), 0), "no step moves nothing");
    for (const int unit : {SCROLL_MINUTE, SCROLL_HOUR, SCROLL_DAY, SCROLL_MONTH}) {
        require(std::isfinite(shiftTime(t, unit, count)), "a moved time is a number");
    }
    const int minutes = ((count % MINUTES_PER_DAY) + MINUTES_PER_DAY) % MINUTES_PER_DAY;
    const int snapped = snapMinutes(minutes, count % 7, count % 61);
    require(snapped >= 0 && snapped < MINUTES_PER_DAY, "a snapped time is one of the day");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzzing::Input input(data, size);
    checkText(input.rest());
    const auto any = input.take<double>();
    const auto count = input.take<std::int32_t>();
    const double inCalendar =
        input.take<std::int32_t>() % 3'000'000 + input.take<std::uint32_t>() / 4294967296.0;
    for (const DateTime t : {any, inCalendar}) {
        checkTime(t);
        checkSteps(t, count);
    }
    return 0;
}
