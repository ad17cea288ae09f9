// SPDX-License-Identifier: GPL-3.0-or-later
// The first and last stored value of a channel.
#include "data/StoredValues.h"

#include "data/ChannelMinutes.h"
#include "tests/testing/Stations.h"
#include "tests/testing/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace kelvrum {
namespace {

using kelvrum::testing::channelFile;
using kelvrum::testing::channelStation;
using kelvrum::testing::dayRecord;
using kelvrum::testing::dayStation;
using kelvrum::testing::TempFolder;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

const ReadingStep GO_ON = [] { return true; };

/// A file whose minutes are missing but for those listed.
std::string minutesAt(std::size_t count, std::initializer_list<std::size_t> present, double value = 7) {
    std::vector<double> minutes(count, 0.0);
    for (const std::size_t m : present) {
        minutes[m] = value;
    }
    return channelFile(minutes);
}

DateTime minuteOf(int year, int minute) { return dateSerial(year, 1, 1) + minute / 1440.0; }

std::optional<DateTime> found(const StationConfig& station, std::int32_t channel, StoredEnd end) {
    const auto stored = findStored(station, channel, end, openFile, GO_ON);
    EXPECT_TRUE(stored.has_value());
    return stored ? stored->time : std::nullopt;
}

TEST(YearsWithFile, AreTakenFromTheNames) {
    const TempFolder folder;
    for (const char* name :
         {"Kanal04_2020.chn", "KANAL04_2018.CHN", "kanal04_2020.CHN", "Kanal04_x_2017.chn", "Kanal4_2016.chn",
          "Kanal04_20.chn", "Kanal04_20x1.chn", "Kanal04_0099.chn", "Kanal04_2021.chn.bak",
          "Kanal104_2015.chn", "Kanal04_2021.ch", "Kanal05_2014.chn"}) {
        folder.write(name, "");
    }
    const StationConfig station = channelStation(folder);
    EXPECT_THAT(yearsWithFile(station, 4), ElementsAre(2018, 2020));
    EXPECT_THAT(yearsWithFile(station, 104), ElementsAre(2015));
    EXPECT_THAT(yearsWithFile(station, 7), IsEmpty());
    EXPECT_TRUE(hasFile(station, 4));
    EXPECT_FALSE(hasFile(station, 7));
}

TEST(FindStored, LooksInTheOldestAndNewestYear) {
    const TempFolder folder;
    folder.write("Kanal04_2018.chn", minutesAt(50000, {12345, 40000}));
    folder.write("Kanal04_2019.chn", minutesAt(10, {3}));
    folder.write("Kanal04_2020.chn", minutesAt(50000, {77, 33333}));
    const StationConfig station = channelStation(folder);
    EXPECT_EQ(found(station, 4, StoredEnd::first), minuteOf(2018, 12345));
    EXPECT_EQ(found(station, 4, StoredEnd::last), minuteOf(2020, 33333));
}

TEST(FindStored, AtBothEndsOfAPieceAndOfTheFile) {
    for (const std::size_t minute :
         {0U, 8191U, 8192U, 16383U, 16384U, 20000U - 8192U, 20000U - 8193U, 19999U}) {
        const TempFolder folder;
        folder.write("Kanal04_2020.chn", minutesAt(20000, {minute}));
        const StationConfig station = channelStation(folder);
        EXPECT_EQ(found(station, 4, StoredEnd::first), minuteOf(2020, static_cast<int>(minute)));
        EXPECT_EQ(found(station, 4, StoredEnd::last), minuteOf(2020, static_cast<int>(minute)));
    }
}

TEST(FindStored, WhatAveragingTakesForMissingIsNoValue) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinity = std::numeric_limits<double>::infinity();
    const TempFolder folder;
    folder.write("Kanal04_2020.chn",
                 channelFile(std::vector<double>{0, nan, -99999900, 5, -5, 99999900, infinity, 0}));
    const StationConfig station = channelStation(folder);
    EXPECT_EQ(found(station, 4, StoredEnd::first), minuteOf(2020, 3));
    EXPECT_EQ(found(station, 4, StoredEnd::last), minuteOf(2020, 4));
}

TEST(FindStored, YearsWithoutAValueArePassedOver) {
    const TempFolder folder;
    folder.write("Kanal04_2017.chn", "");
    folder.write("Kanal04_2018.chn", minutesAt(10, {}));
    folder.write("Kanal04_2019.chn", minutesAt(10, {2, 5}));
    folder.write("Kanal04_2020.chn", channelFile(std::vector<double>{}) + "torn");
    const StationConfig station = channelStation(folder);
    EXPECT_EQ(found(station, 4, StoredEnd::first), minuteOf(2019, 2));
    EXPECT_EQ(found(station, 4, StoredEnd::last), minuteOf(2019, 5));
    EXPECT_EQ(found(station, 104, StoredEnd::last), std::nullopt);
}

TEST(FindStored, ADirectionNeedsItsSpeed) {
    const TempFolder folder;
    folder.write("Kanal05_2020.chn", minutesAt(100, {10, 20, 30, 40}));
    folder.write("Kanal04_2020.chn", minutesAt(35, {20, 30}));
    folder.write("Kanal05_2021.chn", minutesAt(100, {10})); // its speed has no file
    const StationConfig station = channelStation(folder);
    EXPECT_EQ(found(station, 5, StoredEnd::first), minuteOf(2020, 20));
    EXPECT_EQ(found(station, 5, StoredEnd::last), minuteOf(2020, 30));
}

TEST(FindStored, MinutesBeyondTheYearDoNotCount) {
    const TempFolder folder;
    folder.write("Kanal04_2021.chn", minutesAt(527040, {100, 525599, 525600}));
    EXPECT_EQ(found(channelStation(folder), 4, StoredEnd::last), minuteOf(2021, 525599));
    EXPECT_EQ(minutesOfYear(2020), 527040);
    EXPECT_EQ(minutesOfYear(2021), 525600);
    EXPECT_EQ(minutesOfYear(1900), 525600);
}

TEST(FindStored, AStepGivesItUp) {
    const TempFolder folder;
    folder.write("Kanal04_2020.chn", minutesAt(100000, {0}));
    const StationConfig station = channelStation(folder);
    int steps = 0;
    EXPECT_FALSE(findStored(station, 4, StoredEnd::last, openFile, [&] { return ++steps < 3; }));
    EXPECT_EQ(steps, 3);
    EXPECT_TRUE(findStored(station, 4, StoredEnd::last, openFile, {}).has_value());
}

TEST(FindStored, OfDayFiles) {
    const TempFolder folder;
    using Floats = std::vector<float>;
    folder.write("20200616.KMH", dayRecord(2020, 6, 16, 5, Floats{1, 0}));
    folder.write("20200617.KMH", dayRecord(2020, 6, 17, 700, Floats{1, 2}) +
                                     dayRecord(2020, 6, 17, 30, Floats{1, 2}) +
                                     dayRecord(2020, 6, 17, 20, Floats{1, 0}));
    folder.write("20200619.kmh",
                 dayRecord(2020, 6, 19, 8, Floats{1, 2}) + dayRecord(2020, 6, 19, 9, Floats{1, 99999900.0F}));
    folder.write("20200620.KMH", dayRecord(2020, 6, 20, 1, Floats{1, 0}));
    const StationConfig station = dayStation(folder);
    EXPECT_EQ(found(station, 3, StoredEnd::first), dateSerial(2020, 6, 17) + 30 / 1440.0);
    EXPECT_EQ(found(station, 3, StoredEnd::last), dateSerial(2020, 6, 19) + 8 / 1440.0);
    EXPECT_EQ(found(station, 1, StoredEnd::last), dateSerial(2020, 6, 20) + 1 / 1440.0);
    EXPECT_EQ(found(station, 2, StoredEnd::last), std::nullopt); // an inactive slot
    EXPECT_TRUE(hasFile(station, 3));
    EXPECT_FALSE(findStored(station, 3, StoredEnd::last, openFile, [] { return false; }));
}

} // namespace
} // namespace kelvrum
