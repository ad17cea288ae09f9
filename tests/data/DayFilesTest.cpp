// SPDX-License-Identifier: GPL-3.0-or-later
// Names, records and intervals of the day files.
#include "data/DayFiles.h"

#include "data/DayFormat.h"
#include "data/DayRecords.h"
#include "tests/testing/FakeFiles.h"
#include "tests/testing/Stations.h"
#include "tests/testing/TempFolder.h"
#include "util/Validity.h"

#include <gtest/gtest.h>

#include <cmath>
#include <filesystem>
#include <limits>

namespace kelvrum {
namespace {

using kelvrum::testing::dayRecord;
using kelvrum::testing::dayStation;
using kelvrum::testing::FakeFiles;
using kelvrum::testing::TempFolder;
using Floats = std::vector<float>;

const DateTime JUNE_18 = dateSerial(2020, 6, 18);
const ReadingStep GO_ON = [] { return true; };

/// A record of 18 June 2020 whose second field, that of channel 3, holds `value`.
std::string narrow(int minute, float value) { return dayRecord(2020, 6, 18, minute, Floats{-1, value}); }

std::string wide(int minute, float mean, float minimum, float maximum) {
    return dayRecord(2020, 6, 18, minute, Floats{-1, -2, -3, mean, minimum, maximum});
}

ReadRequest minutesOf(std::int32_t channel, int from, int to, std::int32_t interval) {
    return {channel, "", {JUNE_18 + from / 1440.0, JUNE_18 + to / 1440.0}, interval};
}

std::vector<DayInterval> intervalsOf(const StationConfig& station, const ReadRequest& request) {
    const auto intervals = readDayIntervals(station, request, openFile, GO_ON);
    EXPECT_TRUE(intervals.has_value());
    return intervals.value_or(std::vector<DayInterval>{});
}

void expectMeans(const std::vector<DayInterval>& intervals,
                 const std::vector<std::pair<std::int64_t, double>>& expected) {
    ASSERT_EQ(intervals.size(), expected.size());
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(intervals[i].index, expected[i].first);
        EXPECT_DOUBLE_EQ(intervals[i].mean, expected[i].second) << expected[i].first;
    }
}

TEST(DayFiles, NamesAndRecordSizes) {
    EXPECT_EQ(dayFileName(JUNE_18), "20200618.KMH");
    EXPECT_EQ(dayFileName(JUNE_18 + 0.99), "20200618.KMH");
    EXPECT_EQ(dayFileName(std::nextafter(JUNE_18, 0)), "20200618.KMH");
    EXPECT_EQ(dayFileName(dateSerial(2021, 1, 2)), "20210102.KMH");
    EXPECT_EQ(dayFileName(LAST_DATE + 0.99999), "99991231.KMH");
    EXPECT_EQ(dayFileName(dateSerial(850, 11, 30)), "08501130.KMH");
    EXPECT_EQ(kmh::recordSize(0, false), 6U);
    EXPECT_EQ(kmh::recordSize(3, false), 18U);
    EXPECT_EQ(kmh::recordSize(3, true), 42U);
}

TEST(DayFiles, RecordsOneByOne) {
    struct Row {
        const char* what;
        int year, month, day, minute;
        bool read;
    };
    const Row rows[] = {
        {"first minute", 2020, 6, 18, 0, true},   {"last minute", 2020, 6, 18, 1439, true},
        {"24:00", 2020, 6, 18, 1440, false},      {"minute before", 2020, 6, 18, -1, false},
        {"no minute", 2020, 6, 18, 32767, false}, {"smallest minute", 2020, 6, 18, -32768, false},
        {"leap day", 2020, 2, 29, 5, true},       {"no leap day", 2021, 2, 29, 5, false},
        {"30 February", 2020, 2, 30, 5, false},   {"31 June", 2020, 6, 31, 5, false},
        {"day 0", 2020, 6, 0, 5, false},          {"day 255", 2020, 6, 255, 5, false},
        {"month 0", 2020, 0, 18, 5, false},       {"month 13", 2020, 13, 18, 5, false},
        {"month 255", 2020, 255, 18, 5, false},   {"year 0", 0, 6, 18, 5, false},
        {"year 99", 99, 6, 18, 5, false},         {"year 100", 100, 6, 18, 0, true},
        {"year 10000", 10000, 6, 18, 5, false},   {"year below 0", -2020, 6, 18, 5, false},
        {"all zero", 0, 0, 0, 0, false},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        FakeFiles files;
        // The record under test is between two good ones.
        files["f"].bytes = dayRecord(2020, 1, 1, 1, Floats{1, 2}) +
                           dayRecord(row.year, row.month, row.day, row.minute, Floats{3, 4}) +
                           dayRecord(2020, 1, 1, 2, Floats{5, 6});
        std::vector<DateTime> times;
        Floats values;
        DayRecordReader(14).read(*files.opener()("f"), [&](const DayRecord& record) {
            times.push_back(record.time);
            values.push_back(record.value(0));
            values.push_back(record.value(4));
        });
        if (row.read) {
            EXPECT_EQ(values, (Floats{1, 2, 3, 4, 5, 6}));
            ASSERT_EQ(times.size(), 3U);
            EXPECT_NEAR(times[1], dateSerial(row.year, row.month, row.day) + row.minute / 1440.0, 1e-9);
        } else {
            EXPECT_EQ(values, (Floats{1, 2, 5, 6}));
        }
    }
}

TEST(DayFiles, ATornLastRecordIsDropped) {
    std::string bytes = narrow(1, 10) + narrow(2, 20) + narrow(3, 30);
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
        FakeFiles files;
        files["f"].bytes = bytes.substr(0, cut);
        std::size_t records = 0;
        DayRecordReader(14).read(*files.opener()("f"), [&](const DayRecord& record) {
            ++records;
            EXPECT_EQ(record.value(4), 10.0F * static_cast<float>(records));
            EXPECT_EQ(record.fields.size(), 8U);
        });
        EXPECT_EQ(records, cut / 14) << cut;
    }
}

TEST(DayFiles, AReadThatFailsEndsTheFile) {
    std::string bytes;
    for (int minute = 0; minute < 1440; ++minute) {
        bytes += narrow(minute, static_cast<float>(minute));
    }
    for (const std::size_t whole : {0U, 1U, 700U, 1439U}) {
        FakeFiles files;
        files["f"].bytes = bytes;
        files["f"].failsAt = 14 * whole + 9;
        std::size_t records = 0;
        DayRecordReader(14).read(*files.opener()("f"), [&](const DayRecord& record) {
            EXPECT_EQ(record.value(4), static_cast<float>(records));
            ++records;
        });
        EXPECT_EQ(records, whole);
    }
}

TEST(DayFiles, AllRecordsOfALongFileInFewReads) {
    std::string bytes;
    for (int i = 0; i < 100000; ++i) {
        bytes += dayRecord(2020, 6, 18, i % 1440, Floats{static_cast<float>(i), 0, 0});
    }
    FakeFiles files;
    files["f"].bytes = bytes;
    int records = 0;
    DayRecordReader(18).read(*files.opener()("f"), [&](const DayRecord& record) {
        EXPECT_EQ(record.value(0), static_cast<float>(records));
        ++records;
    });
    EXPECT_EQ(records, 100000);
    EXPECT_LE(files.reads("f").size(), 200U);
}

TEST(DayFiles, FilesOfADayRange) {
    const TempFolder folder;
    for (const char* name :
         {"20200617.KMH", "20200618.KMH", "20200619.kmh", "20200620.Kmh", "20200622.KMH", "20200619a.KMH",
          "x20200619.KMH", "20200619.KM", "20200619.KMHx", "2020061.KMH"}) {
        folder.write(name, "");
    }
    std::filesystem::create_directory(folder.path() / "20200621.KMH");
    using Names = std::vector<std::string>;
    EXPECT_EQ(dayFilesBetween(folder.base(), {JUNE_18 + 0.5, JUNE_18 + 3.25}),
              (Names{"20200618.KMH", "20200619.kmh", "20200620.Kmh"}));
    EXPECT_EQ(dayFilesBetween(folder.base(), {JUNE_18 + 0.2, JUNE_18 + 0.3}), (Names{"20200618.KMH"}));
    EXPECT_EQ(dayFilesBetween(folder.base(), {JUNE_18 + 3, JUNE_18}), Names{});
    EXPECT_EQ(dayFilesBetween(folder.base(), {dateSerial(2019, 1, 1), dateSerial(2019, 12, 31)}), Names{});
    EXPECT_EQ(dayFilesBetween(folder.at("missing"), {JUNE_18, JUNE_18 + 3}), Names{});
}

TEST(DayFiles, NamesThatDifferInCaseOnlyAreOneDay) {
    const TempFolder folder;
    folder.write("20200618.KMH", "");
    folder.write("20200618.kmh", "");
    EXPECT_EQ(dayFilesBetween(folder.base(), {JUNE_18, JUNE_18 + 1}),
              std::vector<std::string>{"20200618.KMH"});
}

TEST(DayIntervals, GroupsFromTheRangeStart) {
    const TempFolder folder;
    folder.write("20200618.KMH", narrow(59, 1) + narrow(60, 2) + narrow(61, 4) + narrow(69, 9) +
                                     narrow(70, 5) + narrow(95, 6) + narrow(99, 8) + narrow(100, 7) +
                                     narrow(101, 70));
    struct Row {
        int from, to;
        std::int32_t interval;
        std::vector<std::pair<std::int64_t, double>> means;
    };
    const Row rows[] = {
        {60, 100, 10, {{0, 5}, {1, 5}, {3, 7}}}, // start inclusive, end exclusive
        {60, 101, 10, {{0, 5}, {1, 5}, {3, 7}, {4, 7}}},
        {61, 100, 10, {{0, 6}, {3, 7}}}, // the grid is that of the range
        {55, 75, 5, {{0, 1}, {1, 3}, {2, 9}, {3, 5}}},
        {60, 101, 1, {{0, 2}, {1, 4}, {9, 9}, {10, 5}, {35, 6}, {39, 8}, {40, 7}}},
        {0, 1440, 1440, {{0, (1 + 2 + 4 + 9 + 5 + 6 + 8 + 7 + 70) / 9.0}}},
        {102, 200, 10, {}},
        {60, 60, 10, {}},
        {100, 60, 10, {}},
        {60, 100, 0, {}},
        {60, 100, -1, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(::testing::Message() << row.from << " to " << row.to << " by " << row.interval);
        expectMeans(intervalsOf(dayStation(folder), minutesOf(3, row.from, row.to, row.interval)), row.means);
    }
}

/// A range may come from other arithmetic than a record's time, one bit or some seconds off.
TEST(DayIntervals, RecordsAreComparedByTheMinute) {
    const TempFolder folder;
    folder.write("20200618.KMH", narrow(599, 1) + narrow(600, 2) + narrow(609, 3) + narrow(610, 4) +
                                     narrow(619, 5) + narrow(620, 6) + narrow(1439, 7));
    folder.write("20200619.KMH", dayRecord(2020, 6, 19, 0, Floats{-1, 8}));
    constexpr double ENDLESS = std::numeric_limits<double>::infinity();
    constexpr double SECONDS = 20.0 / 86400;
    const std::vector<std::pair<std::int64_t, double>> expected = {{0, 2.5}, {1, 4.5}};
    const DateTime from = JUNE_18 + 600 / 1440.0;
    const DateTime to = JUNE_18 + 620 / 1440.0;
    for (const DateTime near :
         {from, std::nextafter(from, 0), std::nextafter(from, ENDLESS), from - SECONDS, from + SECONDS}) {
        for (const DateTime end :
             {to, std::nextafter(to, 0), std::nextafter(to, ENDLESS), to - SECONDS, to + SECONDS}) {
            expectMeans(intervalsOf(dayStation(folder), {3, "", {near, end}, 10}), expected);
        }
    }
    const std::vector<std::pair<std::int64_t, double>> lastHour = {{5, 7}};
    for (const DateTime midnight : {JUNE_18 + 1, std::nextafter(JUNE_18 + 1, 0), JUNE_18 + 1 + SECONDS}) {
        expectMeans(intervalsOf(dayStation(folder), {3, "", {JUNE_18 + 23.0 / 24, midnight}, 10}), lastHour);
        expectMeans(intervalsOf(dayStation(folder), {3, "", {midnight, JUNE_18 + 2}, 10}), {{0, 8}});
    }
}

TEST(DayIntervals, EveryMinuteFallsIntoItsInterval) {
    const TempFolder folder;
    std::string bytes;
    for (int minute = 0; minute < 1440; ++minute) {
        bytes += narrow(minute, static_cast<float>(minute + 1));
    }
    folder.write("20200618.KMH", bytes);
    for (const int start : {0, 1, 7, 427, 719}) {
        for (const std::int32_t interval : {1, 5, 15, 60}) {
            const auto intervals = intervalsOf(dayStation(folder), minutesOf(3, start, 1440, interval));
            ASSERT_EQ(intervals.size(), static_cast<std::size_t>((1440 - start + interval - 1) / interval));
            for (std::size_t i = 0; i < intervals.size(); ++i) {
                const int first = start + static_cast<int>(i) * interval;
                const int last = std::min(first + interval, 1440) - 1;
                ASSERT_EQ(intervals[i].index, static_cast<std::int64_t>(i));
                ASSERT_DOUBLE_EQ(intervals[i].mean, (first + last) / 2.0 + 1) << start << " " << i;
            }
        }
    }
}

TEST(DayIntervals, TheFieldOfTheChannel) {
    const TempFolder folder;
    folder.write("20200618.KMH", dayRecord(2020, 6, 18, 0, Floats{11, 33}));
    expectMeans(intervalsOf(dayStation(folder), minutesOf(1, 0, 10, 1)), {{0, 11}});
    expectMeans(intervalsOf(dayStation(folder), minutesOf(3, 0, 10, 1)), {{0, 33}});
    for (const std::int32_t inactive : {0, 2, 4, -1}) {
        for (const DayInterval& interval : intervalsOf(dayStation(folder), minutesOf(inactive, 0, 10, 1))) {
            EXPECT_EQ(interval.mean, INVALID_VALUE) << inactive;
        }
    }
}

TEST(DayIntervals, ZerosAndMarkersAreAbsent) {
    const TempFolder folder;
    folder.write("20200618.KMH", narrow(0, 0) + narrow(1, 6) + narrow(2, 99999900.0F) +
                                     narrow(3, -99999900.0F) + narrow(4, 2) +
                                     narrow(5, std::numeric_limits<float>::quiet_NaN()) +
                                     narrow(6, std::numeric_limits<float>::infinity()) + narrow(20, 0) +
                                     narrow(30, 1) + narrow(31, -1));
    expectMeans(intervalsOf(dayStation(folder), minutesOf(3, 0, 60, 10)),
                {{0, 4}, {2, INVALID_VALUE}, {3, 1e-300}});
}

TEST(DayIntervals, WideRecordsGiveMeansMinimaAndMaxima) {
    const TempFolder folder;
    folder.write("20200618.KMH", wide(0, 4, 2, 9) + wide(1, 6, 3, 7) + wide(2, 0, 0, 0) +
                                     wide(3, 99999900.0F, -99999900.0F, 99999900.0F) + wide(10, 5, 0, 8) +
                                     wide(20, 0, -3, 0) + wide(21, 0, -4, 99999900.0F) + wide(30, 0, 0, 0));
    const auto intervals = intervalsOf(dayStation(folder, true), minutesOf(3, 0, 60, 10));
    struct Row {
        std::int64_t index;
        double mean, minimum, maximum;
    };
    const Row rows[] = {{0, 5, 2, 9},
                        {1, 5, INVALID_VALUE, 8},
                        {2, INVALID_VALUE, -4, INVALID_VALUE},
                        {3, INVALID_VALUE, INVALID_VALUE, INVALID_VALUE}};
    ASSERT_EQ(intervals.size(), std::size(rows));
    for (std::size_t i = 0; i < intervals.size(); ++i) {
        EXPECT_EQ(intervals[i].index, rows[i].index);
        EXPECT_DOUBLE_EQ(intervals[i].mean, rows[i].mean) << i;
        EXPECT_DOUBLE_EQ(intervals[i].minimum, rows[i].minimum) << i;
        EXPECT_DOUBLE_EQ(intervals[i].maximum, rows[i].maximum) << i;
    }
    const auto first = intervalsOf(dayStation(folder, true), minutesOf(1, 0, 10, 1440));
    ASSERT_EQ(first.size(), 1U);
    EXPECT_EQ(first[0].mean, -1);
    EXPECT_EQ(first[0].minimum, -2);
    EXPECT_EQ(first[0].maximum, -3);
}

TEST(DayIntervals, RecordsCountByTheirOwnDateInAnyOrder) {
    const TempFolder folder;
    // The file of the 18th holds a record of the 19th, one of the 17th and its own in disorder.
    folder.write("20200618.KMH", narrow(30, 3) + dayRecord(2020, 6, 19, 5, Floats{0, 40}) + narrow(10, 1) +
                                     dayRecord(2020, 6, 17, 10, Floats{0, 99}) + narrow(20, 2) +
                                     narrow(31, 5));
    // The 19th is missing; the 20th comes in small letters.
    folder.write("20200620.kmh", dayRecord(2020, 6, 20, 0, Floats{0, 7}));
    const std::vector<std::pair<std::int64_t, double>> expected = {
        {1, 1}, {2, 2}, {3, 4}, {144, 40}, {288, 7}};
    expectMeans(intervalsOf(dayStation(folder), minutesOf(3, 0, 3 * 1440, 10)), expected);
}

TEST(DayIntervals, NothingToRead) {
    const TempFolder folder;
    EXPECT_TRUE(intervalsOf(dayStation(folder), minutesOf(3, 0, 1440, 10)).empty());
    folder.write("20200618.KMH", "");
    folder.write("20200619.KMH", "short");
    EXPECT_TRUE(intervalsOf(dayStation(folder), minutesOf(3, 0, 3000, 10)).empty());
}

TEST(DayIntervals, AStepGivesUp) {
    const TempFolder folder;
    for (const char* name : {"20200618.KMH", "20200619.KMH", "20200620.KMH", "20200621.KMH"}) {
        folder.write(name, narrow(0, 1));
    }
    const ReadRequest request = minutesOf(3, 0, 4 * 1440, 10);
    EXPECT_FALSE(readDayIntervals(dayStation(folder), request, openFile, [] { return false; }).has_value());
    int steps = 0;
    EXPECT_FALSE(
        readDayIntervals(dayStation(folder), request, openFile, [&] { return ++steps < 3; }).has_value());
    EXPECT_EQ(steps, 3);
}

} // namespace
} // namespace kelvrum
