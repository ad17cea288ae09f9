// SPDX-License-Identifier: GPL-3.0-or-later
// Which intervals a range has, and where the next hour, day or month begins.
#include "evaluation/IntervalGrid.h"

#include <gtest/gtest.h>

#include <limits>

namespace kelvrum {
namespace {

const DateTime JUNE_15 = dateSerial(2026, 6, 15);
constexpr double DAY = MINUTES_PER_DAY;
constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NO_DATE = std::numeric_limits<double>::quiet_NaN();

TEST(IntervalGrid, AllThatBeginInTheRangeAndNotAfterNow) {
    struct Row {
        const char* what;
        TimeRange range;
        std::int32_t interval;
        DateTime now;
        std::int64_t count;
    };
    const Row rows[] = {
        {"a day of hours", {JUNE_15, JUNE_15 + 1}, 60, LAST_DATE, 24},
        {"one that the end cuts counts", {JUNE_15, JUNE_15 + 61 / DAY}, 60, LAST_DATE, 2},
        {"the end is excluded", {JUNE_15, JUNE_15 + 60 / DAY}, 60, LAST_DATE, 1},
        {"shorter than an interval", {JUNE_15, JUNE_15 + 1 / DAY}, 1440, LAST_DATE, 1},
        {"no length", {JUNE_15, JUNE_15}, 1, LAST_DATE, 0},
        {"the end before the start", {JUNE_15, JUNE_15 - 1}, 1, LAST_DATE, 0},
        {"one that begins now counts", {JUNE_15, JUNE_15 + 1}, 60, JUNE_15 + 120 / DAY, 3},
        {"a second before", {JUNE_15, JUNE_15 + 1}, 60, JUNE_15 + (120 - 1.0 / 60) / DAY, 2},
        {"now is the start", {JUNE_15, JUNE_15 + 1}, 60, JUNE_15, 1},
        {"now is before the start", {JUNE_15, JUNE_15 + 1}, 60, JUNE_15 - 1 / DAY, 0},
        {"now is after the end", {JUNE_15, JUNE_15 + 1}, 60, JUNE_15 + 2, 24},
        {"not on whole minutes", {JUNE_15 + 0.5 / DAY, JUNE_15 + 2.5 / DAY}, 1, LAST_DATE, 2},
        {"a leap year", {dateSerial(2024, 1, 1), dateSerial(2025, 1, 1)}, 1, LAST_DATE, 527'040},
        {"days of a year", {dateSerial(2025, 1, 1), dateSerial(2026, 1, 1)}, 1440, LAST_DATE, 365},
        {"the whole calendar", {FIRST_DATE, LAST_DATE + 1}, 1, LAST_DATE + 1, 5'206'896'000},
        {"no minutes", {JUNE_15, JUNE_15 + 1}, 0, LAST_DATE, 0},
        {"fewer", {JUNE_15, JUNE_15 + 1}, -60, LAST_DATE, 0},
        {"no start", {NO_DATE, JUNE_15}, 60, LAST_DATE, 0},
        {"no end", {JUNE_15, NO_DATE}, 60, LAST_DATE, 0},
        {"no now", {JUNE_15, JUNE_15 + 1}, 60, NO_DATE, 0},
        {"endless", {JUNE_15, INFINITE}, 60, JUNE_15 + 1, 25},
        {"since ever", {-INFINITE, JUNE_15}, 60, LAST_DATE, 0},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(IntervalGrid(row.range, row.interval, row.now).count(), row.count) << row.what;
    }
}

TEST(IntervalGrid, StartsOfHalfAMillionMinutesLieOnTheMinute) {
    const IntervalGrid grid({dateSerial(2024, 1, 1), dateSerial(2025, 1, 1)}, 1, LAST_DATE);
    for (std::int64_t i = 0; i < grid.count(); ++i) {
        const CalendarTime time = calendarTime(grid.start(i));
        ASSERT_EQ(time.hour * 60 + time.minute, i % MINUTES_PER_DAY);
        ASSERT_EQ(time.second * 1000 + time.millisecond, 0);
    }
}

TEST(IntervalGrid, TheFirstIntervalOfTheNextUnit) {
    struct Row {
        DateTime from;
        int days;
        std::int32_t interval;
        std::int64_t i;
        CalendarUnit unit;
        std::int64_t next;
    };
    const DateTime half18 = JUNE_15 + 18.5 / 24;
    const Row rows[] = {
        {JUNE_15, 2, 1, 0, CalendarUnit::hour, 60},
        {JUNE_15, 2, 1, 59, CalendarUnit::hour, 60},
        {JUNE_15, 2, 1, 60, CalendarUnit::hour, 120},
        {JUNE_15, 2, 1, 1439, CalendarUnit::hour, 1440},
        {JUNE_15, 2, 1, 0, CalendarUnit::day, 1440},
        {half18, 2, 1, 0, CalendarUnit::hour, 30},
        {half18, 2, 60, 0, CalendarUnit::hour, 1},
        {half18, 2, 60, 5, CalendarUnit::day, 6}, // 23:30, then 00:30
        {half18, 2, 1440, 0, CalendarUnit::day, 1},
        {half18, 2, 7, 0, CalendarUnit::hour, 5},                        // 19:05
        {dateSerial(2024, 2, 28), 90, 60, 0, CalendarUnit::month, 48},   // 28 and 29 February
        {dateSerial(2023, 2, 28), 90, 60, 0, CalendarUnit::month, 24},   // no 29 February
        {dateSerial(2025, 12, 31), 90, 1440, 0, CalendarUnit::month, 1}, // the next year
        {JUNE_15, 2, 1440, 1, CalendarUnit::day, 2},                     // the last one: count()
        {LAST_DATE, 5, 60, 3, CalendarUnit::day, 24},                    // the calendar ends here ...
        {LAST_DATE, 5, 60, 3, CalendarUnit::month, 120},                 // ... or has no next month
        {FIRST_DATE - 10, 15, 60, 3, CalendarUnit::day, 264},            // before it began
        {-1, 2, 60, 0, CalendarUnit::day, 24},                           // 29 December 1899
        {-0.5, 2, 60, 0, CalendarUnit::day, 12},
    };
    for (const Row& row : rows) {
        const IntervalGrid grid({row.from, row.from + row.days}, row.interval, LAST_DATE + 100);
        EXPECT_EQ(grid.nextUnit(row.i, row.unit), row.next)
            << row.from << ", " << row.interval << " minutes, interval " << row.i;
    }
}

TEST(IntervalGrid, StartsOfUnits) {
    const DateTime t = JUNE_15 + (18 * 60 + 59) / DAY;
    EXPECT_DOUBLE_EQ(unitStart(t, CalendarUnit::hour), JUNE_15 + 18.0 / 24);
    EXPECT_EQ(unitStart(t, CalendarUnit::day), JUNE_15);
    EXPECT_EQ(unitStart(t, CalendarUnit::month), dateSerial(2026, 6, 1));
}

} // namespace
} // namespace kelvrum
