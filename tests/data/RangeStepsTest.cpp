// SPDX-License-Identifier: GPL-3.0-or-later
// Snapping to the interval grid and shifting by scroll units.
#include "data/RangeSteps.h"

#include <gtest/gtest.h>

namespace kelvrum {
namespace {

TEST(SnapMinutes, Table) {
    struct Row {
        int minutes, previous, interval, snapped;
    };
    const Row rows[] = {
        {601, 600, 15, 615},    {599, 600, 15, 585}, {607, 607, 15, 600}, {615, 600, 15, 615},
        {600, 615, 15, 600},    {600, 600, 15, 600}, {1439, 0, 15, 0}, // up to 24:00
        {1439, 1439, 15, 1425}, {1, 0, 1440, 0},     {1439, 0, 1440, 0},  {719, 1439, 1440, 0},
        {601, 600, 1, 601},     {599, 600, 1, 599},  {601, 600, 5, 605},  {604, 605, 5, 600},
        {601, 600, 10, 610},    {601, 600, 60, 660}, {659, 660, 60, 600}, {0, 5, 5, 0},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(snapMinutes(row.minutes, row.previous, row.interval), row.snapped)
            << row.minutes << " after " << row.previous << " at " << row.interval;
    }
}

TEST(SnapMinutes, EveryTimeOnAGridStays) {
    for (const int interval : {1, 5, 10, 15, 60, 1440}) {
        for (int minutes = 0; minutes < 1440; minutes += interval) {
            EXPECT_EQ(snapMinutes(minutes, 0, interval), minutes);
            EXPECT_EQ(snapMinutes(minutes, 1439, interval), minutes);
        }
    }
}

TEST(ShiftTime, Table) {
    struct Row {
        DateTime from;
        int unit, count;
        DateTime to;
    };
    const DateTime time = timeSerial(7, 45);
    const Row rows[] = {
        {dateSerial(2020, 1, 31) + time, SCROLL_MONTH, 1, dateSerial(2020, 2, 29) + time},
        {dateSerial(2021, 1, 31) + time, SCROLL_MONTH, 1, dateSerial(2021, 2, 28) + time},
        {dateSerial(2020, 3, 31) + time, SCROLL_MONTH, -1, dateSerial(2020, 2, 29) + time},
        {dateSerial(2020, 12, 15), SCROLL_MONTH, 1, dateSerial(2021, 1, 15)},
        {dateSerial(2020, 2, 28), SCROLL_DAY, 1, dateSerial(2020, 2, 29)},
        {dateSerial(2020, 1, 1), SCROLL_DAY, -1, dateSerial(2019, 12, 31)},
        {dateSerial(2020, 1, 1), SCROLL_HOUR, -1, dateSerial(2019, 12, 31) + timeSerial(23, 0)},
        {dateSerial(2020, 1, 1) + timeSerial(23, 59), SCROLL_MINUTE, 1, dateSerial(2020, 1, 2)},
        {dateSerial(2020, 1, 1), SCROLL_MINUTE, -1, dateSerial(2019, 12, 31) + timeSerial(23, 59)},
        {dateSerial(2020, 1, 1), 'q', 1, dateSerial(2020, 1, 1)},
        {dateSerial(2020, 1, 1), 0, 1, dateSerial(2020, 1, 1)},
    };
    for (const Row& row : rows) {
        EXPECT_NEAR(shiftTime(row.from, row.unit, row.count), row.to, 1e-9) << row.unit << " " << row.count;
    }
    EXPECT_EQ(SCROLL_MINUTE, 110);
    EXPECT_EQ(SCROLL_HOUR, 104);
    EXPECT_EQ(SCROLL_DAY, 100);
    EXPECT_EQ(SCROLL_MONTH, 109);
}

TEST(ShiftTime, AThousandStepsDoNotDrift) {
    DateTime t = dateSerial(2020, 1, 1);
    for (int i = 0; i < 1440; ++i) {
        t = shiftTime(t, SCROLL_MINUTE, 1);
    }
    EXPECT_EQ(t, dateSerial(2020, 1, 2));
}

} // namespace
} // namespace kelvrum
