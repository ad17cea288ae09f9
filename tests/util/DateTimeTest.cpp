// SPDX-License-Identifier: GPL-3.0-or-later
// Date-times: the calendar, rounding to milliseconds and seconds, moving by months and minutes, reading
// texts.
#include "util/DateTime.h"

#include <gtest/gtest.h>

#include <array>
#include <climits>
#include <cmath>
#include <cstdint>
#include <cstdio>
#include <limits>
#include <string>

namespace kelvrum {
namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double ENDLESS = std::numeric_limits<double>::infinity();
constexpr double SECOND = 1.0 / 86400;

std::string text(const CalendarTime& c) {
    char line[96];
    std::snprintf(line, sizeof line, "%04d-%02d-%02d %02d:%02d:%02d.%03d day %d", c.year, c.month, c.day,
                  c.hour, c.minute, c.second, c.millisecond, c.dayOfYear);
    return line;
}

TEST(DateTime, DaysOfTheCalendar) {
    const struct {
        int year, month, day;
        DateTime serial;
        int dayOfYear;
    } cases[] = {
        {100, 1, 1, FIRST_DATE, 1}, {9999, 12, 31, LAST_DATE, 365}, {1899, 12, 30, 0, 364},
        {1899, 12, 29, -1, 363},    {1899, 12, 31, 1, 365},         {1900, 1, 1, 2, 1},
        {1900, 2, 28, 60, 59},      {1900, 3, 1, 61, 60},           {1970, 1, 1, 25569, 1},
        {2000, 2, 29, 36585, 60},   {2000, 3, 1, 36586, 61},        {2019, 12, 31, 43830, 365},
        {2020, 1, 1, 43831, 1},     {2020, 2, 29, 43890, 60},       {2020, 3, 1, 43891, 61},
        {2020, 6, 18, 44000, 170},  {2020, 12, 31, 44196, 366},     {2021, 1, 1, 44197, 1},
        {2100, 2, 28, 73109, 59},   {2100, 3, 1, 73110, 60},
    };
    for (const auto& c : cases) {
        SCOPED_TRACE(c.serial);
        EXPECT_EQ(dateSerial(c.year, c.month, c.day), c.serial);
        const CalendarTime got = calendarTime(c.serial);
        EXPECT_EQ(text(got), text({c.year, c.month, c.day, 0, 0, 0, 0, c.dayOfYear}));
    }
}

TEST(DateTime, EveryDayOfAThousandYearsComesBack) {
    int year = 1600;
    int dayOfYear = 0;
    for (DateTime t = dateSerial(1600, 1, 1); t < dateSerial(2600, 1, 1); ++t) {
        const CalendarTime c = calendarTime(t);
        ASSERT_TRUE(isDate(c.year, c.month, c.day)) << t;
        ASSERT_EQ(dateSerial(c.year, c.month, c.day), t);
        dayOfYear = c.year == year ? dayOfYear + 1 : 1;
        year = c.year;
        ASSERT_EQ(c.dayOfYear, dayOfYear) << t;
    }
    EXPECT_EQ(year, 2599);
}

TEST(DateTime, IsDate) {
    const struct {
        int year, month, day;
        bool valid;
    } cases[] = {
        {99, 12, 31, false},
        {100, 1, 1, true},
        {9999, 12, 31, true},
        {10000, 1, 1, false},
        {2019, 2, 29, false},
        {2020, 2, 29, true},
        {2020, 2, 30, false},
        {1900, 2, 29, false},
        {2000, 2, 29, true},
        {2020, 4, 31, false},
        {2020, 4, 30, true},
        {2020, 0, 1, false},
        {2020, 13, 1, false},
        {2020, 1, 0, false},
        {2020, 1, 32, false},
        {2020, -1, 1, false},
        {2020, 1, -1, false},
        {-2020, 1, 1, false},
        {0, 1, 1, false},
        {2020, 12, 31, true},
        {2020, 257, 1, false},
        {2020, 1, 257, false},
        {2020, INT_MAX, INT_MIN, false},
        {INT_MAX, 1, 1, false},
        {INT_MIN, 1, 1, false},
        {2020 + 65536, 1, 1, false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(isDate(c.year, c.month, c.day), c.valid) << c.year << "-" << c.month << "-" << c.day;
    }
}

TEST(DateTime, TakingApartRoundsToMilliseconds) {
    const struct {
        DateTime t;
        const char* calendar;
        const char* shown;
    } cases[] = {
        {44000.5 - 0.4 * SECOND, "2020-06-18 11:59:59.600 day 170", "2020-06-18 12:00:00.000 day 170"},
        {44000.5 - 0.6 * SECOND, "2020-06-18 11:59:59.400 day 170", "2020-06-18 11:59:59.000 day 170"},
        {44000.5 - 0.0004 * SECOND, "2020-06-18 12:00:00.000 day 170", "2020-06-18 12:00:00.000 day 170"},
        {44000.5 - 0.0006 * SECOND, "2020-06-18 11:59:59.999 day 170", "2020-06-18 12:00:00.000 day 170"},
        {44000.5 + 0.0004 * SECOND, "2020-06-18 12:00:00.000 day 170", "2020-06-18 12:00:00.000 day 170"},
        {44000.5 + 0.0006 * SECOND, "2020-06-18 12:00:00.001 day 170", "2020-06-18 12:00:00.000 day 170"},
        {44197 - 0.0004 * SECOND, "2021-01-01 00:00:00.000 day 1", "2021-01-01 00:00:00.000 day 1"},
        {44197 - 0.4 * SECOND, "2020-12-31 23:59:59.600 day 366", "2021-01-01 00:00:00.000 day 1"},
        {43890 - 0.4 * SECOND, "2020-02-28 23:59:59.600 day 59", "2020-02-29 00:00:00.000 day 60"},
        {44000 + 1.0 / 1440, "2020-06-18 00:01:00.000 day 170", "2020-06-18 00:01:00.000 day 170"},
        {44000 + 1.0 / 3, "2020-06-18 08:00:00.000 day 170", "2020-06-18 08:00:00.000 day 170"},
        {0.75, "1899-12-30 18:00:00.000 day 364", "1899-12-30 18:00:00.000 day 364"},
        {NOT_A_NUMBER, "1899-12-30 00:00:00.000 day 364", "1899-12-30 00:00:00.000 day 364"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(text(calendarTime(c.t)), c.calendar);
        EXPECT_EQ(text(shownTime(c.t)), c.shown);
    }
}

TEST(DateTime, HalfMillisecondsGoToTheEvenNeighbour) {
    // A day has 84,375 * 2^10 milliseconds: odd 2048ths of a day are exact halves.
    const struct {
        double part;
        const char* calendar;
    } cases[] = {
        {1.0 / 2048, "2020-06-18 00:00:42.188 day 170"},  // 42,187.5
        {3.0 / 2048, "2020-06-18 00:02:06.562 day 170"},  // 126,562.5
        {5.0 / 2048, "2020-06-18 00:03:30.938 day 170"},  // 210,937.5
        {7.0 / 2048, "2020-06-18 00:04:55.312 day 170"},  // 295,312.5
        {-1.0 / 2048, "2020-06-17 23:59:17.812 day 169"}, // 812.5 of the last second but 42
        {-3.0 / 2048, "2020-06-17 23:57:53.438 day 169"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(text(calendarTime(44000 + c.part)), c.calendar);
    }
    EXPECT_EQ(text(calendarTime(-1.0 / 2048)), "1899-12-29 23:59:17.812 day 363");
    EXPECT_EQ(text(calendarTime(-3.0 / 2048)), "1899-12-29 23:57:53.438 day 363");
    EXPECT_EQ(text(calendarTime(3.0 / 2048)), "1899-12-30 00:02:06.562 day 364");
    // Steps keep the grid of milliseconds, and so round the same.
    EXPECT_EQ(text(calendarTime(addMinutes(44000 + 3.0 / 2048, 1))), "2020-06-18 00:03:06.562 day 170");
    EXPECT_EQ(text(calendarTime(addMonths(44000 + 3.0 / 2048, 1))), "2020-07-18 00:02:06.562 day 200");
}

TEST(DateTime, MinuteNumber) {
    const double bit = std::nextafter(44000, ENDLESS) - 44000;
    const struct {
        DateTime t;
        std::int64_t minute;
    } cases[] = {
        {0, 0},
        {1, 1440},
        {-1, -1440},
        {-0.5, -720},
        {44000, 63360000},
        {44000 + bit, 63360000},
        {44000 - bit, 63360000},
        {44000 + 601 / 1440.0, 63360601},
        {44000 + 601 / 1440.0 + bit, 63360601},
        {44000 + 601 / 1440.0 - bit, 63360601},
        {44000 + 29 * SECOND, 63360000},
        {44000 + 30 * SECOND, 63360000}, // halves to the even minute
        {44000 + 31 * SECOND, 63360001},
        {44000 + 90 * SECOND, 63360002},
        {NOT_A_NUMBER, 0},
        {FIRST_DATE, static_cast<std::int64_t>(FIRST_DATE) * 1440},
        {-ENDLESS, static_cast<std::int64_t>(FIRST_DATE) * 1440},
        {LAST_DATE, static_cast<std::int64_t>(LAST_DATE) * 1440},
        {ENDLESS, static_cast<std::int64_t>(LAST_DATE + 1) * 1440},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(minuteNumber(c.t), c.minute) << c.t;
    }
}

TEST(DateTime, EarlierByTheMinute) {
    const DateTime t = 44000 + 601 / 1440.0;
    for (const DateTime same : {t, std::nextafter(t, 0), std::nextafter(t, ENDLESS), t + 20 * SECOND}) {
        EXPECT_FALSE(isEarlier(t, same));
        EXPECT_FALSE(isEarlier(same, t));
    }
    EXPECT_TRUE(isEarlier(t, t + 1 / 1440.0));
    EXPECT_FALSE(isEarlier(t + 1 / 1440.0, t));
}

TEST(DateTime, WhatLiesOutsideMovesToTheCalendarsEnds) {
    for (const DateTime t : {LAST_DATE, LAST_DATE + 1, 1e9, 1e18, 1e19, 1e300, ENDLESS}) {
        for (const CalendarTime& c : {calendarTime(t), shownTime(t)}) {
            EXPECT_EQ((std::array{c.year, c.month, c.day}), (std::array{9999, 12, 31})) << t;
        }
        const CalendarTime first = calendarTime(-t);
        EXPECT_EQ((std::array{first.year, first.month, first.day}), (std::array{100, 1, 1})) << -t;
        EXPECT_TRUE(isDate(shownTime(-t).year, shownTime(-t).month, shownTime(-t).day)) << -t;
    }
    const CalendarTime last = shownTime(LAST_DATE + 1 - 0.1 * SECOND);
    EXPECT_TRUE(isDate(last.year, last.month, last.day)) << text(last);
}

TEST(DateTime, TheLastMomentIsShownAsTheLastSecond) {
    for (const DateTime t : {LAST_DATE + 1 - 0.4 * SECOND, LAST_DATE + 1, ENDLESS}) {
        EXPECT_EQ(text(shownTime(t)), "9999-12-31 23:59:59.000 day 365") << t;
    }
}

TEST(DateTime, TimeSerial) {
    EXPECT_EQ(timeSerial(0, 0), 0);
    EXPECT_EQ(timeSerial(12, 0), 0.5);
    EXPECT_EQ(timeSerial(18, 0, 0), 0.75);
    EXPECT_EQ(timeSerial(24, 0), 1);
    EXPECT_DOUBLE_EQ(timeSerial(0, 1), 1.0 / 1440);
    EXPECT_DOUBLE_EQ(timeSerial(23, 59, 59), 1 - SECOND);
}

TEST(DateTime, AddMonthsCutsToTheMonthsLastDay) {
    const struct {
        int year, month, day, months;
        const char* result;
    } cases[] = {
        {2020, 1, 31, 1, "2020-02-29 18:30:00.000 day 60"},
        {2019, 1, 31, 1, "2019-02-28 18:30:00.000 day 59"},
        {2020, 3, 31, -1, "2020-02-29 18:30:00.000 day 60"},
        {2020, 5, 31, 1, "2020-06-30 18:30:00.000 day 182"},
        {2020, 2, 29, 12, "2021-02-28 18:30:00.000 day 59"},
        {2020, 2, 29, 48, "2024-02-29 18:30:00.000 day 60"},
        {2020, 2, 29, 1, "2020-03-29 18:30:00.000 day 89"},
        {2020, 12, 15, 1, "2021-01-15 18:30:00.000 day 15"},
        {2020, 1, 15, -1, "2019-12-15 18:30:00.000 day 349"},
        {2020, 1, 15, -13, "2018-12-15 18:30:00.000 day 349"},
        {2020, 6, 18, 0, "2020-06-18 18:30:00.000 day 170"},
        {2020, 11, 30, 3, "2021-02-28 18:30:00.000 day 59"},
        {2020, 6, 18, -1200, "1920-06-18 18:30:00.000 day 170"},
    };
    for (const auto& c : cases) {
        const DateTime t = dateSerial(c.year, c.month, c.day) + timeSerial(18, 30);
        EXPECT_EQ(text(calendarTime(addMonths(t, c.months))), c.result)
            << c.year << "-" << c.month << "-" << c.day << " " << c.months;
    }
}

TEST(DateTime, HugeStepsEndAtTheCalendarsEnds) {
    for (const DateTime t : {44000.0, FIRST_DATE, LAST_DATE, ENDLESS, -ENDLESS, NOT_A_NUMBER}) {
        for (const int months : {INT_MAX, 200001, 150000}) {
            const CalendarTime last = calendarTime(addMonths(t, months));
            EXPECT_EQ((std::array{last.year, last.month}), (std::array{9999, 12})) << t << " " << months;
            const CalendarTime first = calendarTime(addMonths(t, -months - 1));
            EXPECT_EQ((std::array{first.year, first.month}), (std::array{100, 1})) << t << " " << -months - 1;
        }
        for (const long long minutes : {LLONG_MAX, 1LL << 40, 6000000000LL}) {
            EXPECT_EQ(calendarTime(addMinutes(t, minutes)).year, 9999) << t << " " << minutes;
            EXPECT_EQ(calendarTime(addMinutes(t, -minutes - 1)).year, 100) << t << " " << -minutes - 1;
        }
    }
}

TEST(DateTime, AddMinutes) {
    const DateTime start = dateSerial(2020, 1, 1);
    const struct {
        DateTime t;
        long long minutes;
        const char* result;
    } cases[] = {
        {start, 0, "2020-01-01 00:00:00.000 day 1"},
        {start, 1, "2020-01-01 00:01:00.000 day 1"},
        {start, -1, "2019-12-31 23:59:00.000 day 365"},
        {start, 1440, "2020-01-02 00:00:00.000 day 2"},
        {start, 527039, "2020-12-31 23:59:00.000 day 366"},
        {start, 527040, "2021-01-01 00:00:00.000 day 1"},
        {start + timeSerial(23, 59, 30), 1, "2020-01-02 00:00:30.000 day 2"},
        {start, -1440 * 366, "2018-12-31 00:00:00.000 day 365"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(text(calendarTime(addMinutes(c.t, c.minutes))), c.result) << c.minutes;
    }
}

TEST(DateTime, AYearOfSingleMinutesDoesNotDrift) {
    DateTime t = dateSerial(2020, 1, 1);
    for (int minute = 1; minute <= 527040; ++minute) {
        t = addMinutes(t, 1);
        const CalendarTime c = calendarTime(t);
        ASSERT_EQ(c.second + c.millisecond, 0) << minute;
        ASSERT_EQ(c.hour * 60 + c.minute, minute % 1440) << minute;
    }
    EXPECT_EQ(t, dateSerial(2021, 1, 1));
}

TEST(DateTime, ReadsBothForms) {
    const struct {
        const char* text;
        const char* result;
    } cases[] = {
        {"18.06.2020", "2020-06-18 00:00:00.000 day 170"},
        {"18.06.2020 12:30", "2020-06-18 12:30:00.000 day 170"},
        {"18.06.2020 12:30:15", "2020-06-18 12:30:15.000 day 170"},
        {"18.06.2020   12:30", "2020-06-18 12:30:00.000 day 170"},
        {"18.06.2020 23:59:59", "2020-06-18 23:59:59.000 day 170"},
        {"18.06.2020 00:00", "2020-06-18 00:00:00.000 day 170"},
        {"2020-06-18", "2020-06-18 00:00:00.000 day 170"},
        {"2020-06-18 12:30", "2020-06-18 12:30:00.000 day 170"},
        {"2020-06-18 12:30:15", "2020-06-18 12:30:15.000 day 170"},
        {"2020-02-29", "2020-02-29 00:00:00.000 day 60"},
        {"29.02.2020", "2020-02-29 00:00:00.000 day 60"},
        {"30.12.1899", "1899-12-30 00:00:00.000 day 364"},
        {"31.12.9999", "9999-12-31 00:00:00.000 day 365"},
    };
    for (const auto& c : cases) {
        const auto got = parseDateTime(c.text);
        ASSERT_TRUE(got.has_value()) << c.text;
        EXPECT_EQ(text(calendarTime(*got)), c.result) << c.text;
    }
    EXPECT_EQ(parseDateTime("18.06.2020 18:00"), 44000.75);
}

TEST(DateTime, AnythingElseIsNoDate) {
    for (const char* bad : {"",
                            " ",
                            "abc",
                            "18",
                            "18.06",
                            "18.06.",
                            "18.06.20",
                            "18.06.2020x",
                            "18.06.2020 12",
                            "18.06.2020 12:",
                            "18.06.2020 12:3x",
                            "18.06.2020 24:00",
                            "18.06.2020 12:60",
                            "18.06.2020 12:30:60",
                            "18.06.2020 12:30:",
                            "18.06.2020 12:30:15.5",
                            "18.06.2020 12:30 Uhr",
                            "18.06.2020T12:30",
                            "18.06.202012:30",
                            "2020-06-18T12:30",
                            "18.06.2020 -1:30",
                            "18.06.2020 12:-3",
                            "18.06.2020 12:30:-1",
                            "06/18/2020",
                            "18/06/2020",
                            "2020/06/18",
                            "2020.06.18",
                            "18-06-2020",
                            "20200618",
                            "31.04.2020",
                            "29.02.2019",
                            "2019-02-29",
                            "2020-13-01",
                            "2020-00-01",
                            "2020-01-00",
                            "00.01.2020",
                            "01.00.2020",
                            "-18.06.2020",
                            "18.-6.2020",
                            "18.06.-2020",
                            "+18.06.2020",
                            "18..2020",
                            "18,06,2020",
                            "18.06-2020",
                            "44000",
                            "44000.5",
                            "18.06.0001",
                            "99999999999.06.2020",
                            "18.06.99999999999",
                            "18.06.12020",
                            "4294967314.06.2020",
                            "18. Juni 2020"}) {
        EXPECT_FALSE(parseDateTime(bad).has_value()) << bad;
    }
    EXPECT_FALSE(parseDateTime(std::string_view("18.06.2020\0", 11)).has_value());
}

} // namespace
} // namespace kelvrum
