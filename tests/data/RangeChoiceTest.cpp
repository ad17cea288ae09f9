// SPDX-License-Identifier: GPL-3.0-or-later
// Bands, zooms, presets and jumps: ranges chosen in one step.
#include "data/RangeChoice.h"

#include "util/Format.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

namespace kelvrum {
namespace {

DateTime at(const char* text) { return parseDateTime(text).value(); }

std::string shown(const TimeRange& range) {
    return formatDateTime(range.from, "dd.mm.yyyy hh:mm", {}) + " - " +
           formatDateTime(range.to, "dd.mm.yyyy hh:mm", {});
}

/// Whole minutes as the pickers add them up, not a sum of fractions.
void expectWholeMinutes(const TimeRange& range) {
    for (const DateTime t : {range.from, range.to}) {
        const CalendarTime c = calendarTime(t);
        EXPECT_EQ(t, dateSerial(c.year, c.month, c.day) + (c.hour * 60 + c.minute) / 1440.0);
    }
}

TEST(BandRange, RoundsOutwardOnTheGridFromMidnight) {
    struct Row {
        const char *one, *other;
        int interval;
        const char* expected;
    };
    const Row rows[] = {
        {"18.06.2020 10:07", "18.06.2020 11:01", 15, "18.06.2020 10:00 - 18.06.2020 11:15"},
        {"18.06.2020 11:01", "18.06.2020 10:07", 15, "18.06.2020 10:00 - 18.06.2020 11:15"}, // to the left
        {"18.06.2020 10:00", "18.06.2020 11:00", 60, "18.06.2020 10:00 - 18.06.2020 11:00"}, // on the grid
        {"18.06.2020 10:00:01", "18.06.2020 10:59:59", 60, "18.06.2020 10:00 - 18.06.2020 11:00"},
        {"18.06.2020 10:00:30", "18.06.2020 10:00:31", 1, "18.06.2020 10:00 - 18.06.2020 10:01"},
        {"18.06.2020 10:00", "18.06.2020 10:00", 1, "18.06.2020 10:00 - 18.06.2020 10:01"}, // never empty
        {"18.06.2020 10:00", "18.06.2020 10:00", 1440, "18.06.2020 00:00 - 19.06.2020 00:00"},
        {"18.06.2020 23:10", "18.06.2020 23:50", 60, "18.06.2020 23:00 - 19.06.2020 00:00"}, // 24:00
        {"18.06.2020 12:00", "19.06.2020 00:00", 1440, "18.06.2020 00:00 - 19.06.2020 00:00"},
        {"18.06.2020 12:00", "19.06.2020 00:01", 1440, "18.06.2020 00:00 - 20.06.2020 00:00"},
        {"31.12.2020 23:58", "31.12.2020 23:59", 5, "31.12.2020 23:55 - 01.01.2021 00:00"},
        {"28.02.2020 23:59", "29.02.2020 00:01", 10, "28.02.2020 23:50 - 29.02.2020 00:10"},
        {"18.06.2020 23:59", "18.06.2020 23:59", 7, "18.06.2020 23:55 - 19.06.2020 00:00"}, // cut at midnight
    };
    for (const Row& row : rows) {
        const TimeRange range = bandRange(at(row.one), at(row.other), row.interval);
        EXPECT_EQ(shown(range), row.expected) << row.interval;
        expectWholeMinutes(range);
    }
}

TEST(BandRange, AHairBesideTheGridIsOnIt) {
    const DateTime ten = at("18.06.2020 10:00");
    const TimeRange range = bandRange(ten - 1e-9, ten + 1.0 / 24 + 1e-9, 60);
    EXPECT_EQ(shown(range), "18.06.2020 10:00 - 18.06.2020 11:00");
}

TEST(BandRange, StaysInTheCalendar) {
    const double far = std::numeric_limits<double>::infinity();
    const TimeRange range = bandRange(-far, far, 1440);
    EXPECT_EQ(range.from, FIRST_DATE);
    EXPECT_EQ(range.to, LAST_DATE + 1);
    EXPECT_LT(bandRange(std::numeric_limits<double>::quiet_NaN(), 1, 60).from, 2);
}

TEST(ZoomedIn, HalvesAroundATime) {
    struct Row {
        const char *from, *to, *around;
        int interval;
        const char* expected;
    };
    const Row rows[] = {
        {"18.06.2020", "19.06.2020", "18.06.2020 12:00", 1, "18.06.2020 06:00 - 18.06.2020 18:00"},
        {"18.06.2020", "19.06.2020", "18.06.2020 00:00", 1, "18.06.2020 00:00 - 18.06.2020 12:00"},
        {"18.06.2020", "19.06.2020", "19.06.2020 00:00", 1, "18.06.2020 12:00 - 19.06.2020 00:00"},
        {"18.06.2020", "19.06.2020", "18.06.2020 08:00", 60, "18.06.2020 04:00 - 18.06.2020 16:00"},
        {"18.06.2020", "21.06.2020", "19.06.2020 12:00", 1440, "19.06.2020 00:00 - 21.06.2020 00:00"},
        {"18.06.2020", "20.06.2020", "18.06.2020 23:00", 1440, "18.06.2020 00:00 - 19.06.2020 00:00"},
        {"18.06.2020", "20.06.2020", "19.06.2020 01:00", 1440, "19.06.2020 00:00 - 20.06.2020 00:00"},
        {"18.06.2020 10:00", "18.06.2020 10:02", "18.06.2020 10:01:30", 1,
         "18.06.2020 10:01 - 18.06.2020 10:02"},
        // One interval is the minimum.
        {"18.06.2020 10:00", "18.06.2020 10:01", "18.06.2020 10:00", 1,
         "18.06.2020 10:00 - 18.06.2020 10:01"},
        {"18.06.2020", "19.06.2020", "18.06.2020 12:00", 1440, "18.06.2020 00:00 - 19.06.2020 00:00"},
        {"18.06.2020", "18.06.2020", "18.06.2020", 60, "18.06.2020 00:00 - 18.06.2020 01:00"}, // was empty
    };
    for (const Row& row : rows) {
        const TimeRange range = zoomedIn({at(row.from), at(row.to)}, at(row.around), row.interval);
        EXPECT_EQ(shown(range), row.expected) << row.around << " " << row.interval;
        expectWholeMinutes(range);
    }
}

TEST(ZoomedIn, EndsAtOneIntervalThatHoldsTheTime) {
    for (const int interval : {1, 5, 10, 15, 60, 1440}) {
        const DateTime around = at("18.06.2020 13:37:20");
        TimeRange range{at("01.01.2020"), at("01.01.2021")};
        for (int i = 0; i < 40; ++i) {
            range = zoomedIn(range, around, interval);
            ASSERT_LE(range.from, around) << interval << " " << i;
            ASSERT_GE(range.to, around) << interval << " " << i;
        }
        EXPECT_NEAR((range.to - range.from) * 1440, interval, 1e-6);
    }
}

TEST(ZoomedOut, DoublesUpToAYear) {
    struct Row {
        const char *from, *to, *around;
        int interval;
        const char* expected;
    };
    const Row rows[] = {
        {"18.06.2020", "19.06.2020", "18.06.2020 12:00", 1, "17.06.2020 12:00 - 19.06.2020 12:00"},
        {"18.06.2020", "19.06.2020", "18.06.2020 00:00", 1, "18.06.2020 00:00 - 20.06.2020 00:00"},
        {"18.06.2020", "19.06.2020", "18.06.2020 12:00", 1440, "18.06.2020 00:00 - 20.06.2020 00:00"},
        {"18.06.2020 10:00", "18.06.2020 10:01", "18.06.2020 10:01", 1,
         "18.06.2020 09:59 - 18.06.2020 10:01"},
        {"01.01.2020", "30.09.2020", "01.01.2020", 60, "01.01.2020 00:00 - 01.01.2021 00:00"},
        {"01.01.2020", "01.01.2021", "01.06.2020", 60,
         "01.01.2020 00:00 - 01.01.2021 00:00"}, // a year is all
        {"01.01.2018", "01.01.2021", "01.06.2020", 60,
         "01.01.2018 00:00 - 01.01.2021 00:00"}, // a longer one stays
        {"18.06.2020", "18.06.2020", "18.06.2020", 15, "18.06.2020 00:00 - 18.06.2020 00:15"},
    };
    for (const Row& row : rows) {
        const TimeRange range = zoomedOut({at(row.from), at(row.to)}, at(row.around), row.interval);
        EXPECT_EQ(shown(range), row.expected) << row.from << " " << row.to;
        expectWholeMinutes(range);
    }
}

TEST(PresetRange, HoldsTheTime) {
    struct Row {
        RangePreset preset;
        const char *holding, *expected;
    };
    const Row rows[] = {
        {RangePreset::day, "18.06.2020 13:37", "18.06.2020 00:00 - 19.06.2020 00:00"},
        {RangePreset::day, "31.12.2020", "31.12.2020 00:00 - 01.01.2021 00:00"},
        {RangePreset::week, "18.06.2020 13:37", "15.06.2020 00:00 - 22.06.2020 00:00"}, // a Thursday
        {RangePreset::week, "15.06.2020 00:00", "15.06.2020 00:00 - 22.06.2020 00:00"}, // a Monday
        {RangePreset::week, "21.06.2020 23:59", "15.06.2020 00:00 - 22.06.2020 00:00"}, // a Sunday
        {RangePreset::week, "01.01.2021", "28.12.2020 00:00 - 04.01.2021 00:00"},       // over New Year
        {RangePreset::week, "31.12.1899", "25.12.1899 00:00 - 01.01.1900 00:00"}, // a negative remainder
        {RangePreset::month, "29.02.2020 23:59", "01.02.2020 00:00 - 01.03.2020 00:00"},
        {RangePreset::month, "31.12.2020", "01.12.2020 00:00 - 01.01.2021 00:00"},
        {RangePreset::year, "18.06.2020 13:37", "01.01.2020 00:00 - 01.01.2021 00:00"},
        {RangePreset::year, "01.01.2021", "01.01.2021 00:00 - 01.01.2022 00:00"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(shown(presetRange(row.preset, at(row.holding))), row.expected) << row.holding;
    }
}

TEST(RangeUpTo, EndsWithTheValuesInterval) {
    struct Row {
        const char *value, *from, *to;
        int interval;
        const char* expected;
    };
    const Row rows[] = {
        {"18.06.2020 07:15", "01.01.2021", "02.01.2021", 1, "17.06.2020 07:16 - 18.06.2020 07:16"},
        {"18.06.2020 07:15", "01.01.2021", "02.01.2021", 15, "17.06.2020 07:30 - 18.06.2020 07:30"},
        {"18.06.2020 07:15", "01.01.2021", "08.01.2021", 1440, "12.06.2020 00:00 - 19.06.2020 00:00"},
        {"31.12.2020 23:59", "01.01.2021", "02.01.2021", 60, "31.12.2020 00:00 - 01.01.2021 00:00"},
        // Never before the year of the value: the length stays.
        {"03.01.2020 12:00", "01.02.2021", "01.03.2021", 60, "01.01.2020 00:00 - 29.01.2020 00:00"},
        {"18.06.2020 07:15", "01.01.2018", "01.01.2021", 60, "01.01.2020 00:00 - 01.01.2023 00:00"},
        {"18.06.2020 07:15", "01.01.2021", "01.01.2021", 60,
         "18.06.2020 07:00 - 18.06.2020 08:00"}, // was empty
    };
    for (const Row& row : rows) {
        const DateTime value = at(row.value);
        const TimeRange range = rangeUpTo(value, {at(row.from), at(row.to)}, row.interval, yearStart(value));
        EXPECT_EQ(shown(range), row.expected) << row.value;
        expectWholeMinutes(range);
    }
    const TimeRange free =
        rangeUpTo(at("03.01.2020 12:00"), {at("01.02.2021"), at("01.03.2021")}, 60, FIRST_DATE);
    EXPECT_EQ(shown(free), "06.12.2019 13:00 - 03.01.2020 13:00"); // day files know no years
}

TEST(RangeFrom, BeginsWithTheValuesInterval) {
    const TimeRange month{at("01.02.2021"), at("01.03.2021")};
    EXPECT_EQ(shown(rangeFrom(at("18.06.2020 07:17"), month, 15)), "18.06.2020 07:15 - 16.07.2020 07:15");
    EXPECT_EQ(shown(rangeFrom(at("18.06.2020 07:17"), month, 1440)), "18.06.2020 00:00 - 16.07.2020 00:00");
    EXPECT_EQ(shown(rangeFrom(at("31.12.2020 23:59"), month, 1)), "31.12.2020 23:59 - 28.01.2021 23:59");
}

} // namespace
} // namespace kelvrum
