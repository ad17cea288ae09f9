// SPDX-License-Identifier: GPL-3.0-or-later
// How much of each day a channel has stored.
#include "data/DayCoverage.h"

#include "data/ChannelFiles.h"
#include "tests/testing/Stations.h"
#include "tests/testing/TempFolder.h"

#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace kelvrum {
namespace {

using kelvrum::testing::channelFile;
using kelvrum::testing::channelStation;
using kelvrum::testing::dayRecord;
using kelvrum::testing::dayStation;
using kelvrum::testing::TempFolder;

const ReadingStep GO_ON = [] { return true; };

/// The minutes of 2020 up to 1 July, `present` of them at the start of each of the days of June.
std::vector<double> june(std::initializer_list<int> present) {
    const auto first = static_cast<std::size_t>(MinuteIndex(dateSerial(2020, 6, 1)));
    std::vector<double> minutes(first + present.size() * 1440, 0.0);
    std::size_t day = 0;
    for (const int count : present) {
        std::fill_n(minutes.begin() + static_cast<std::ptrdiff_t>(first + day++ * 1440), count, 3.5);
    }
    return minutes;
}

MonthCoverage coverage(const StationConfig& station, std::int32_t channel, int year, int month) {
    const auto read = readCoverage(station, channel, year, month, openFile, GO_ON);
    EXPECT_TRUE(read.has_value());
    return read.value_or(MonthCoverage{});
}

TEST(DayCoverage, CountsTheMinutesOfEachDay) {
    const TempFolder folder;
    folder.write("Kanal04_2020.chn", channelFile(june({1440, 1426, 1425, 1, 0, 720, 0, 0, 9, 10, 1440})));
    const MonthCoverage month = coverage(channelStation(folder), 4, 2020, 6);
    struct Row {
        int day, minutes;
        Coverage mark;
        const char* text;
    };
    const Row rows[] = {
        {1, 1440, Coverage::full, "1440 von 1440 Minuten vorhanden"},
        {2, 1426, Coverage::full, "1426 von 1440 Minuten vorhanden"}, // 99 % are 1425.6
        {3, 1425, Coverage::partial, "1425 von 1440 Minuten vorhanden"},
        {4, 1, Coverage::partial, "1 von 1440 Minuten vorhanden"},
        {5, 0, Coverage::none, "Keine Werte"},
        {6, 720, Coverage::partial, "720 von 1440 Minuten vorhanden"},
        {9, 9, Coverage::partial, "9 von 1440 Minuten vorhanden"}, // in the second piece
        {11, 1440, Coverage::full, "1440 von 1440 Minuten vorhanden"},
        {12, 0, Coverage::none, "Keine Werte"}, // after the file's end
        {30, 0, Coverage::none, "Keine Werte"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(month.minutes[static_cast<std::size_t>(row.day - 1)], row.minutes) << row.day;
        EXPECT_EQ(coverageOf(month, row.day), row.mark) << row.day;
        EXPECT_EQ(coverageText(month, row.day), row.text) << row.day;
    }
    EXPECT_EQ(coverage(channelStation(folder), 4, 2020, 5).minutes, MonthCoverage{}.minutes);
    EXPECT_EQ(coverage(channelStation(folder), 4, 2021, 6).minutes, MonthCoverage{}.minutes); // no file
}

TEST(DayCoverage, OfASummedChannelOnlyDaysWithAValueAreMarked) {
    const TempFolder folder;
    folder.write("Kanal12_2020.chn", channelFile(june({0, 1, 30})));
    const MonthCoverage month = coverage(channelStation(folder), 12, 2020, 6);
    EXPECT_EQ(coverageOf(month, 1), Coverage::unmarked); // dry, or without data: the file cannot tell
    EXPECT_EQ(coverageText(month, 1), "");
    EXPECT_EQ(coverageOf(month, 2), Coverage::full);
    EXPECT_EQ(coverageText(month, 2), "1 Minute mit Wert");
    EXPECT_EQ(coverageText(month, 3), "30 Minuten mit Wert");
}

TEST(DayCoverage, ADirectionNeedsItsSpeed) {
    const TempFolder folder;
    folder.write("Kanal05_2020.chn", channelFile(june({1440, 1440, 100})));
    EXPECT_EQ(coverage(channelStation(folder), 5, 2020, 6).minutes[0], 0); // no speed at all
    folder.write("Kanal04_2020.chn", channelFile(june({1440, 700})));
    const MonthCoverage month = coverage(channelStation(folder), 5, 2020, 6);
    EXPECT_EQ(month.minutes[0], 1440);
    EXPECT_EQ(month.minutes[1], 700);
    EXPECT_EQ(month.minutes[2], 0);
}

TEST(DayCoverage, WhatAveragingTakesForMissingIsNotPresent) {
    const TempFolder folder;
    folder.write("Kanal04_2020.chn", channelFile(std::vector<double>{
                                         0, std::numeric_limits<double>::quiet_NaN(), 99999900, -99999900,
                                         std::numeric_limits<double>::infinity(), 1e-300, -4}));
    EXPECT_EQ(coverage(channelStation(folder), 4, 2020, 1).minutes[0], 2);
}

TEST(DayCoverage, OfTheLastDaysOfMonths) {
    const TempFolder folder;
    folder.write("Kanal04_2020.chn", channelFile(std::vector<double>(527040, 1.0)));
    folder.write("Kanal04_2021.chn", channelFile(std::vector<double>(527040, 1.0))); // a day too long
    const StationConfig station = channelStation(folder);
    const MonthCoverage leap = coverage(station, 4, 2020, 2);
    EXPECT_EQ(leap.minutes[28], 1440);
    EXPECT_EQ(leap.minutes[29], 0); // no 30 February
    EXPECT_EQ(coverage(station, 4, 2021, 2).minutes[28], 0);
    EXPECT_EQ(coverage(station, 4, 2020, 12).minutes[30], 1440);
    EXPECT_EQ(coverage(station, 4, 2021, 12).minutes[30], 1440);
}

TEST(DayCoverage, OfDayFilesCountsEachMinuteOnce) {
    const TempFolder folder;
    using Floats = std::vector<float>;
    folder.write("20200617.KMH", dayRecord(2020, 6, 17, 700, Floats{1, 2}) +
                                     dayRecord(2020, 6, 17, 700, Floats{1, 2}) +
                                     dayRecord(2020, 6, 17, 20, Floats{1, 0}) +
                                     dayRecord(2020, 6, 18, 1, Floats{1, 2})); // by its own date
    folder.write("20200630.KMH", dayRecord(2020, 6, 30, 1439, Floats{1, 2}));
    folder.write("20200701.KMH", dayRecord(2020, 7, 1, 0, Floats{1, 2}));
    const StationConfig station = dayStation(folder);
    const MonthCoverage month = coverage(station, 3, 2020, 6);
    EXPECT_EQ(month.minutes[16], 1);
    EXPECT_EQ(month.minutes[17], 1);
    EXPECT_EQ(month.minutes[29], 1);
    EXPECT_EQ(coverage(station, 1, 2020, 6).minutes[16], 2);
    EXPECT_EQ(coverage(station, 2, 2020, 6).minutes, MonthCoverage{}.minutes); // an inactive slot
    EXPECT_FALSE(readCoverage(station, 3, 2020, 6, openFile, [] { return false; }));
}

TEST(DayCoverage, AStepGivesItUp) {
    const TempFolder folder;
    folder.write("Kanal04_2020.chn", channelFile(std::vector<double>(527040, 1.0)));
    int steps = 0;
    EXPECT_FALSE(readCoverage(channelStation(folder), 4, 2020, 6, openFile, [&] { return ++steps < 2; }));
    EXPECT_EQ(steps, 2);
    EXPECT_TRUE(readCoverage(channelStation(folder), 4, 2020, 6, openFile, {}).has_value());
}

} // namespace
} // namespace kelvrum
