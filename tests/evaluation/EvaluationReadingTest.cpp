// SPDX-License-Identifier: GPL-3.0-or-later
// The intervals that are evaluated are those of the list and of the diagram.
#include "evaluation/EvaluationReading.h"

#include "data/DataReader.h"
#include "data/DayFiles.h"
#include "evaluation/Evaluation.h"
#include "tests/testing/FakeFiles.h"
#include "tests/testing/TempFolder.h"

#include <gtest/gtest.h>

#include <array>

namespace kelvrum {
namespace {

using kelvrum::testing::channelFile;
using kelvrum::testing::dayRecord;
using kelvrum::testing::FakeFiles;
using kelvrum::testing::TempFolder;

const DateTime JANUARY = dateSerial(2020, 1, 1);
constexpr double DAY = MINUTES_PER_DAY;

constexpr std::int32_t SPEED = 4;
constexpr std::int32_t DIRECTION = 5;
constexpr std::int32_t RAIN = 6;
constexpr std::int32_t LONELY_DIRECTION = 8; // its speed has no file
constexpr std::int32_t OTHER_MODE = 9;

StationConfig testStation() {
    StationConfig station;
    station.Kind = ConfigKind::ini;
    station.DataFolder = "X:\\";
    station.ChannelTable.grow(SPEED).Mode = MODE_MEAN;
    station.ChannelTable.grow(DIRECTION).Mode = MODE_WIND_DIRECTION;
    station.ChannelTable.grow(DIRECTION).PairedChannel = SPEED;
    station.ChannelTable.grow(RAIN).Mode = MODE_SUM;
    station.ChannelTable.grow(LONELY_DIRECTION).Mode = MODE_WIND_DIRECTION;
    station.ChannelTable.grow(LONELY_DIRECTION).PairedChannel = 77;
    station.ChannelTable.grow(OTHER_MODE).Mode = 3;
    return station;
}

ReadRequest minutesOf(std::int32_t channel, int from, int to, std::int32_t interval) {
    return {channel, "", {JANUARY + from / DAY, JANUARY + to / DAY}, interval};
}

std::vector<IntervalReading> readingOf(const StationConfig& station, const ReadRequest& request,
                                       const FileOpener& open) {
    std::vector<IntervalReading> all;
    EXPECT_EQ(readIntervals(station, request, open,
                            [&all](std::span<const IntervalReading> some) {
                                all.insert(all.end(), some.begin(), some.end());
                            },
                            {}),
              ReadStatus::complete);
    return all;
}

TEST(EvaluationReading, KindsOfChannels) {
    StationConfig station = testStation();
    EXPECT_EQ(evaluatedKind(station, SPEED), EvaluatedKind::value);
    EXPECT_EQ(evaluatedKind(station, DIRECTION), EvaluatedKind::direction);
    EXPECT_EQ(evaluatedKind(station, RAIN), EvaluatedKind::sum);
    EXPECT_EQ(evaluatedKind(station, OTHER_MODE), EvaluatedKind::value);
    station.Kind = ConfigKind::binary; // always averaged as means
    EXPECT_EQ(evaluatedKind(station, RAIN), EvaluatedKind::value);
}

TEST(EvaluationReading, PresentMinutesAreThoseOfTheAverage) {
    FakeFiles files;
    files["X:\\Kanal04_2020.chn"].bytes =
        channelFile(std::vector<double>{1, 3, 0, 5, 0, 0, INVALID_VALUE, -INVALID_VALUE, 2, 7});
    files["X:\\Kanal05_2020.chn"].bytes =
        channelFile(std::vector<double>{90, 90, 90, 0, 90, 90, 90, 90, 0, 90});
    files["X:\\Kanal08_2020.chn"].bytes = files["X:\\Kanal05_2020.chn"].bytes;
    struct Row {
        std::int32_t channel;
        std::vector<std::int32_t> present;
        std::vector<double> speeds;
    };
    const Row rows[] = {
        {SPEED, {3, 0, 2}, {INVALID_VALUE, INVALID_VALUE, INVALID_VALUE}},
        // Of a direction the minutes with both; the speed is the mean of all of its minutes.
        {DIRECTION, {2, 0, 1}, {3, INVALID_VALUE, 4.5}},
        {LONELY_DIRECTION, {0, 0, 0}, {INVALID_VALUE, INVALID_VALUE, INVALID_VALUE}},
    };
    for (const Row& row : rows) {
        const auto reading = readingOf(testStation(), minutesOf(row.channel, 0, 100, 4), files.opener());
        ASSERT_EQ(reading.size(), 3U);
        for (std::size_t i = 0; i < reading.size(); ++i) {
            EXPECT_EQ(reading[i].index, static_cast<std::int64_t>(i));
            EXPECT_EQ(reading[i].present, row.present[i]) << row.channel << ", " << i;
            EXPECT_EQ(reading[i].speed, row.speeds[i]) << row.channel << ", " << i;
        }
    }
}

TEST(EvaluationReading, ValuesAreThoseOfTheList) {
    FakeFiles files;
    std::vector<double> minutes(40'000);
    for (std::size_t m = 0; m < minutes.size(); ++m) {
        minutes[m] = m % 7 == 0 ? 0 : static_cast<double>(m * 31 % 360) + 0.25;
    }
    for (const char* name : {"04", "05", "06", "09"}) {
        files["X:\\Kanal" + std::string(name) + "_2020.chn"].bytes = channelFile(minutes);
    }
    for (const std::int32_t channel : {SPEED, DIRECTION, RAIN, OTHER_MODE}) {
        for (const std::int32_t interval : {1, 10, 60, 1440}) {
            const ReadRequest request = minutesOf(channel, 30, 50'000, interval);
            std::vector<double> list;
            DataReader(files.opener())
                .readList(testStation(), request,
                          [&](std::span<const DateTime> /*starts*/, std::span<const double> more) {
                              list.insert(list.end(), more.begin(), more.end());
                          },
                          {});
            const auto reading = readingOf(testStation(), request, files.opener());
            ASSERT_EQ(reading.size(), list.size());
            for (std::size_t i = 0; i < list.size(); ++i) {
                ASSERT_EQ(reading[i].index, static_cast<std::int64_t>(i));
                ASSERT_EQ(reading[i].value, list[i]) << channel << ", " << interval;
            }
        }
    }
}

TEST(EvaluationReading, WhatTheReadingDoesNotReachHasNoValue) {
    FakeFiles files;
    files["X:\\Kanal04_2020.chn"].bytes = channelFile(std::vector<double>(100, 2)); // ends at 01:40
    files["X:\\Kanal04_2021.chn"].bytes = channelFile(std::vector<double>(1440, 9));
    struct Row {
        const char* what;
        TimeRange range;
        std::int64_t intervals;
        std::int64_t withValue;
        std::int64_t present;
    };
    const Row rows[] = {
        {"the file's end", {JANUARY, JANUARY + 1}, 24, 2, 100},
        {"one that the end cuts is read whole", {JANUARY, JANUARY + 61 / DAY}, 2, 2, 100},
        {"a later year", {JANUARY + 366 - 60 / DAY, JANUARY + 367}, 25, 0, 0},
        {"no file", {JANUARY - 1, JANUARY - 0.5}, 12, 0, 0},
        {"the end is the start", {JANUARY, JANUARY}, 0, 0, 0},
        {"the end before the start", {JANUARY + 60 / DAY, JANUARY}, 0, 0, 0},
    };
    for (const Row& row : rows) {
        const ReadRequest request{SPEED, "", row.range, 60};
        EvaluationRequest evaluation;
        evaluation.range = row.range;
        evaluation.interval = 60;
        const Availability found =
            evaluate(evaluation, readingOf(testStation(), request, files.opener())).availability;
        EXPECT_EQ(found.intervals, row.intervals) << row.what;
        EXPECT_EQ(found.withValue, row.withValue) << row.what;
        EXPECT_EQ(found.presentMinutes, row.present) << row.what;
    }
}

TEST(EvaluationReading, AStepGivesItUp) {
    FakeFiles files;
    files["X:\\Kanal04_2020.chn"].bytes = channelFile(std::vector<double>(100'000, 2));
    int steps = 0;
    std::size_t seen = 0;
    const auto count = [&seen](std::span<const IntervalReading> some) { seen += some.size(); };
    EXPECT_EQ(readIntervals(testStation(), minutesOf(SPEED, 0, 100'000, 1), files.opener(), count,
                            [&steps] { return ++steps < 3; }),
              ReadStatus::givenUp);
    EXPECT_EQ(steps, 3);
    EXPECT_GT(seen, 0U);
    EXPECT_LT(seen, 100'000U);
}

TEST(EvaluationReading, AnErrorEndsItAsTheFilesEndDoes) {
    FakeFiles files;
    files["X:\\Kanal04_2020.chn"].bytes = channelFile(std::vector<double>(100'000, 2));
    files["X:\\Kanal04_2020.chn"].failsAt = 500'000;
    files["X:\\Kanal04_2020.chn"].throws = true;
    const auto reading = readingOf(testStation(), minutesOf(SPEED, 0, 100'000, 1), files.opener());
    EXPECT_GT(reading.size(), 0U);
    EXPECT_LT(reading.size(), 100'000U);
}

// --- day files ---

StationConfig dayStation(const TempFolder& folder, bool wide) {
    StationConfig station;
    station.Kind = ConfigKind::binary;
    station.BaseFolder = folder.base();
    station.ActiveChannels = {3, 7};
    station.WideRecords = wide;
    return station;
}

TEST(EvaluationReading, DayFilesCountRecordsWithAValue) {
    const TempFolder folder;
    std::string file;
    for (const int minute : {0, 1, 2, 3, 60, 61, 61, 130}) {
        const float value = minute == 2 ? 0 : minute == 3 ? 99999900.0F : static_cast<float>(minute + 1);
        file += dayRecord(2020, 1, 1, minute, std::array{1.0F, value});
    }
    folder.write("20200101.KMH", file);
    const auto reading = readingOf(dayStation(folder, false), minutesOf(7, 0, 1440, 2), openFile);
    struct Row {
        std::int64_t index;
        double value;
        std::int32_t present;
    };
    const Row rows[] = {{0, 1.5, 2},
                        {1, INVALID_VALUE, 0},
                        {30, 185.0 / 3, 2},
                        {65, 131, 1}}; // no more than the interval has
    ASSERT_EQ(reading.size(), std::size(rows));
    for (std::size_t i = 0; i < reading.size(); ++i) {
        EXPECT_EQ(reading[i].index, rows[i].index);
        EXPECT_DOUBLE_EQ(reading[i].value, rows[i].value);
        EXPECT_EQ(reading[i].present, rows[i].present);
        EXPECT_EQ(reading[i].minimum, INVALID_VALUE);
        EXPECT_EQ(reading[i].maximum, INVALID_VALUE);
    }
}

TEST(EvaluationReading, WideRecordsBringMinimaAndMaxima) {
    const TempFolder folder;
    std::string file;
    file += dayRecord(2020, 1, 1, 0, std::array{1.0F, 1.0F, 1.0F, 5.0F, 4.0F, 6.0F});
    file += dayRecord(2020, 1, 1, 1, std::array{1.0F, 1.0F, 1.0F, 7.0F, 2.0F, 9.0F});
    file += dayRecord(2020, 1, 1, 70, std::array{1.0F, 1.0F, 1.0F, 8.0F, 7.0F, 20.0F});
    folder.write("20200101.KMH", file);
    const auto reading = readingOf(dayStation(folder, true), minutesOf(7, 0, 1440, 60), openFile);
    EvaluationRequest request;
    request.range = {JANUARY, JANUARY + 1};
    request.interval = 60;
    const Evaluation found = evaluate(request, reading);
    EXPECT_EQ(found.statistics->minimum, (TimedValue{6, JANUARY})); // everything from the means
    EXPECT_EQ(found.statistics->maximum, (TimedValue{8, JANUARY + 1.0 / 24}));
    EXPECT_EQ(found.smallestMinimum, (TimedValue{2, JANUARY}));
    EXPECT_EQ(found.greatestMaximum, (TimedValue{20, JANUARY + 1.0 / 24}));
    EXPECT_EQ(found.availability.presentMinutes, 3);
}

TEST(EvaluationReading, DayFilesGivenUp) {
    const TempFolder folder;
    folder.write("20200101.KMH", dayRecord(2020, 1, 1, 0, std::array{1.0F, 2.0F}));
    EXPECT_EQ(readIntervals(
                  dayStation(folder, false), minutesOf(7, 0, 1440, 1), openFile,
                  [](std::span<const IntervalReading>) { FAIL(); }, [] { return false; }),
              ReadStatus::givenUp);
}

} // namespace
} // namespace kelvrum
