// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of the day files: which files, in which order, and which records.
#include "data/DayList.h"

#include "data/DataReader.h"
#include "tests/testing/Stations.h"
#include "tests/testing/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <filesystem>
#include <functional>
#include <stdexcept>

namespace kelvrum {
namespace {

using kelvrum::testing::dayRecord;
using kelvrum::testing::dayStation;
using kelvrum::testing::TempFolder;
using Floats = std::vector<float>;
using Names = std::vector<std::string>;

const DateTime JUNE_18 = dateSerial(2020, 6, 18);
const ReadingStep GO_ON = [] { return true; };

/// A record of a day of June 2020 whose first value tells where it came from.
std::string record(int day, int minute, float value) {
    return dayRecord(2020, 6, day, minute, Floats{value, 0.5});
}

DayRows rowsOf(const StationConfig& station, DateTime from, DateTime to) {
    const auto rows = readDayRows(station, {from, to}, openFile, GO_ON);
    EXPECT_TRUE(rows.has_value());
    return rows.value_or(DayRows{});
}

/// The values of all rows, one row after the other.
Floats allValues(const DayRows& rows) {
    Floats values;
    for (std::size_t row = 0; row < rows.count(); ++row) {
        const auto read = rows.values(row);
        EXPECT_EQ(read.size(), rows.channels()) << row;
        values.insert(values.end(), read.begin(), read.end());
    }
    return values;
}

/// The first values of all rows.
Floats firstValues(const DayRows& rows) {
    EXPECT_EQ(rows.channels(), 2U);
    const Floats all = allValues(rows);
    Floats values;
    for (std::size_t i = 0; i < all.size(); i += 2) {
        values.push_back(all[i]);
    }
    return values;
}

DateTime at(int day, int minute) { return dateSerial(2020, 6, day) + minute / 1440.0; }

/// A range may come from other arithmetic than a record's time, one bit or some seconds off.
TEST(DayList, RecordsAreComparedByTheMinute) {
    const TempFolder folder;
    folder.write("20200617.KMH", record(17, 1439, 1));
    folder.write("20200618.KMH",
                 record(18, 0, 2) + record(18, 600, 3) + record(18, 601, 4) + record(18, 1439, 5));
    folder.write("20200619.KMH", record(19, 0, 6) + record(19, 1, 7));
    const auto around = [](DateTime t) {
        constexpr double SECONDS = 20.0 / 86400;
        return std::array{t, std::nextafter(t, 0), std::nextafter(t, 1e9), t - SECONDS, t + SECONDS};
    };
    for (const DateTime from : around(at(18, 0))) {
        for (const DateTime to : around(at(18, 600))) {
            EXPECT_EQ(firstValues(rowsOf(dayStation(folder), from, to)), (Floats{2, 3})) << from << " " << to;
        }
    }
    for (const DateTime from : around(at(18, 601))) {
        for (const DateTime to : around(at(19, 0))) {
            EXPECT_EQ(firstValues(rowsOf(dayStation(folder), from, to)), (Floats{4, 5, 6}))
                << from << " " << to;
        }
    }
}

TEST(FilesOfDay, ByDateAndEnding) {
    const TempFolder folder;
    const Names names = {"20200617.KMH",  "20200618.KMH", "20200618.KMHx",
                         "20200618.txt",  "2020061.KMH",  "20200619.KMH",
                         "x20200618.KMH", "KMH",          "",
                         "20200618"};
    EXPECT_EQ(filesOfDay(folder.base(), names, JUNE_18, openFile), Names{"20200618.KMH"});
    EXPECT_EQ(filesOfDay(folder.base(), names, JUNE_18 + 0.75, openFile), Names{"20200618.KMH"});
    EXPECT_EQ(filesOfDay(folder.base(), names, JUNE_18 + 2, openFile), Names{});
    EXPECT_EQ(filesOfDay(folder.base(), {"20200618_b.kmh"}, JUNE_18, openFile), Names{"20200618_b.kmh"});
}

TEST(FilesOfDay, TheFirstTwoAreExchangedWhenTheFirstStartsEarlier) {
    struct Row {
        const char* what;
        int first, second; // minutes of the first records
        bool exchanged;
    };
    const Row rows[] = {
        {"earlier", 10, 20, true},
        {"later", 20, 10, false},
        {"equal", 10, 10, false},
        {"second byte", 255, 256, true},
        {"second byte back", 256, 255, false},
        {"signed", -1, 0, true},
        {"signed back", 0, -1, false},
        {"ends", 0, 1439, true},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const TempFolder folder;
        folder.write("20200618.KMH", record(18, row.first, 1));
        folder.write("20200618b.kmh", record(18, row.second, 2));
        folder.write("20200618c.KMH", record(18, 5, 3));
        const Names two = {"20200618.KMH", "20200618b.kmh"};
        const Names twoBack = {"20200618b.kmh", "20200618.KMH"};
        EXPECT_EQ(filesOfDay(folder.base(), two, JUNE_18, openFile), row.exchanged ? twoBack : two);
        const Names three = {"20200618.KMH", "20200618b.kmh", "20200618c.KMH"};
        const Names threeBack = {"20200618b.kmh", "20200618.KMH", "20200618c.KMH"};
        EXPECT_EQ(filesOfDay(folder.base(), three, JUNE_18, openFile), row.exchanged ? threeBack : three);
    }
}

TEST(FilesOfDay, FilesTooShortForAMinuteAndMissingOnes) {
    for (const std::size_t bytes : {0U, 4U, 5U}) {
        const TempFolder folder;
        folder.write("20200618.KMH", std::string(bytes, '\x01'));
        folder.write("20200618b.KMH", record(18, 10, 2));
        const Names names = {"20200618.KMH", "20200618b.KMH"};
        EXPECT_EQ(filesOfDay(folder.base(), names, JUNE_18, openFile).size(), 2U);
        EXPECT_EQ(firstValues(rowsOf(dayStation(folder), JUNE_18, JUNE_18 + 1)), Floats{2});
    }
    const TempFolder empty;
    EXPECT_EQ(firstValues(rowsOf(dayStation(empty), JUNE_18, JUNE_18 + 1)), Floats{});
}

TEST(DayRows, InclusiveAtBothEndsAndInDayOrder) {
    const TempFolder folder;
    folder.write("20200619.kmh", record(19, 0, 20) + record(19, 10, 21));
    folder.write("20200618.KMH",
                 record(18, 600, 1) + record(18, 610, 2) + record(18, 620, 3) + record(18, 1439, 4));
    folder.write("20200621.KMH", record(21, 0, 40));
    struct Row {
        DateTime from, to;
        Floats values;
    };
    const Row rows[] = {
        {at(18, 600), at(18, 620), {1, 2, 3}},
        {at(18, 601), at(18, 619), {2}},
        {at(18, 610), at(18, 610), {2}},
        {at(18, 611), at(18, 619), {}},
        {at(18, 620), at(18, 600), {}},
        {at(18, 0), at(19, 0), {1, 2, 3, 4, 20}}, // over midnight, the end itself included
        {at(18, 620), at(19, 5), {3, 4, 20}},
        {at(17, 0), at(22, 0), {1, 2, 3, 4, 20, 21, 40}}, // days without a file
        {at(19, 10), at(18, 0), {}},
        {at(22, 0), at(23, 0), {}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(firstValues(rowsOf(dayStation(folder), row.from, row.to)), row.values)
            << row.from << " to " << row.to;
    }
}

TEST(DayRows, EveryMinuteAtBothEnds) {
    const TempFolder folder;
    std::string bytes;
    for (int minute = 0; minute < 1440; ++minute) {
        bytes += record(18, minute, static_cast<float>(minute));
    }
    folder.write("20200618.KMH", bytes);
    for (int minute = 0; minute < 1440; minute += 13) {
        const DateTime t = JUNE_18 + timeSerial(minute / 60, minute % 60);
        EXPECT_EQ(firstValues(rowsOf(dayStation(folder), t, t)), Floats{static_cast<float>(minute)});
    }
}

TEST(DayRows, FileOrderWithoutSorting) {
    const TempFolder folder;
    folder.write("20200618.KMH", record(18, 30, 3) + record(18, 10, 1) + record(18, 20, 2));
    EXPECT_EQ(firstValues(rowsOf(dayStation(folder), JUNE_18, JUNE_18 + 1)), (Floats{3, 1, 2}));
    // A second file of the day that starts earlier comes second, one that starts later comes first.
    folder.write("20200618b.KMH", record(18, 40, 4));
    EXPECT_EQ(firstValues(rowsOf(dayStation(folder), JUNE_18, JUNE_18 + 1)), (Floats{4, 3, 1, 2}));
    folder.write("20200618b.KMH", record(18, 5, 4));
    EXPECT_EQ(firstValues(rowsOf(dayStation(folder), JUNE_18, JUNE_18 + 1)), (Floats{3, 1, 2, 4}));
}

TEST(DayRows, WhateverNumberTheFileHolds) {
    const TempFolder folder;
    folder.write("20200618.KMH", dayRecord(2020, 6, 18, 1, Floats{0, 99999900.0F}) +
                                     dayRecord(2020, 6, 18, 2, Floats{-1e30F, 0.1F}) +
                                     dayRecord(2020, 6, 31, 2, Floats{7, 7}) + // no such day
                                     dayRecord(2020, 6, 18, 1440, Floats{8, 8}) +
                                     record(18, 3, 9).substr(0, 13));
    const DayRows rows = rowsOf(dayStation(folder), JUNE_18, JUNE_18 + 30);
    EXPECT_EQ(allValues(rows), (Floats{0, 99999900.0F, -1e30F, 0.1F}));
    ASSERT_EQ(rows.count(), 2U);
    EXPECT_NEAR(rows.times()[0], at(18, 1), 1e-9);
    EXPECT_NEAR(rows.times()[1], at(18, 2), 1e-9);
}

TEST(DayRows, ARecordCountsByItsOwnDate) {
    const TempFolder folder;
    folder.write("20200618.KMH", record(18, 10, 1) + record(19, 5, 2) + record(17, 5, 3) + record(18, 11, 4));
    EXPECT_EQ(firstValues(rowsOf(dayStation(folder), at(18, 0), at(18, 1439))), (Floats{1, 4}));
    EXPECT_EQ(firstValues(rowsOf(dayStation(folder), at(18, 0), at(19, 5))), (Floats{1, 2, 4}));
}

TEST(DayRows, OfWideRecordsTheMeans) {
    const TempFolder folder;
    folder.write("20200618.KMH", dayRecord(2020, 6, 18, 1, Floats{5, 4, 6, 50, 40, 60}) +
                                     dayRecord(2020, 6, 18, 2, Floats{7, 1, 9, 70, 10, 90}));
    EXPECT_EQ(allValues(rowsOf(dayStation(folder, true), JUNE_18, JUNE_18 + 1)), (Floats{5, 50, 7, 70}));
}

TEST(DayRows, AStationWithoutChannelsHasNone) {
    const TempFolder folder;
    folder.write("20200618.KMH", record(18, 10, 1));
    StationConfig station;
    station.Kind = ConfigKind::binary;
    station.BaseFolder = folder.base();
    const DayRows rows = rowsOf(station, JUNE_18, JUNE_18 + 1);
    EXPECT_TRUE(rows.empty());
    EXPECT_TRUE(rows.times().empty());
}

/// Rows are read in pieces; any of them may be requested next, and some records have no row.
TEST(DayRows, ValuesInAnyOrder) {
    const TempFolder folder;
    const auto valueOf = [](int day, int minute) { return static_cast<float>(day * 10000 + minute + 1); };
    for (const int day : {18, 19, 20}) {
        std::string bytes;
        for (int minute = 0; minute < 1440; ++minute) {
            bytes += minute % 7 == 3 ? dayRecord(2020, 6, 31, minute, Floats{-1, -1}) // no such day
                                     : record(day, minute, valueOf(day, minute));
        }
        for (int again = 0; again < 6; ++again) { // several pieces
            bytes += bytes.substr(0, std::size_t{1440} * 14);
        }
        folder.write("202006" + std::to_string(day) + ".KMH", bytes);
    }
    const DayRows rows = rowsOf(dayStation(folder), at(18, 5), at(20, 1000));
    ASSERT_GT(rows.count(), 20000U);
    for (std::size_t i = 0; i < 1000; ++i) {
        const std::size_t row = i * 7919 % rows.count();
        const CalendarTime time = shownTime(rows.times()[row]);
        const auto values = rows.values(row);
        ASSERT_EQ(values.size(), 2U) << row;
        EXPECT_EQ(values[0], valueOf(time.day, time.hour * 60 + time.minute)) << row;
        EXPECT_EQ(values[1], 0.5F) << row;
    }
}

TEST(DayRows, NeighboursAreReadTogether) {
    const TempFolder folder;
    std::string bytes;
    for (int minute = 0; minute < 1440; ++minute) {
        bytes += record(18, minute, static_cast<float>(minute));
    }
    folder.write("20200618.KMH", bytes);
    std::size_t opened = 0;
    const FileOpener open = [&opened](std::string_view path) {
        ++opened;
        return openFile(path);
    };
    const auto rows = readDayRows(dayStation(folder), {JUNE_18, JUNE_18 + 1}, open, GO_ON);
    ASSERT_TRUE(rows.has_value());
    opened = 0;
    EXPECT_EQ(firstValues(*rows).size(), 1440U);
    EXPECT_EQ(opened, 1U);
}

/// A row never shows the values of another time.
TEST(DayRows, FilesThatChangeAfterTheReading) {
    struct Row {
        const char* what;
        std::function<void(const TempFolder&)> change;
        std::vector<Floats> values; // of the two rows
    };
    const std::string file = "20200618.KMH";
    const Row rows[] = {
        {"nothing", [](const TempFolder&) {}, {{1, 0.5}, {2, 0.5}}},
        {"gone", [&](const TempFolder& f) { std::filesystem::remove(f.path() / file); }, {{}, {}}},
        {"emptied", [&](const TempFolder& f) { f.write(file, ""); }, {{}, {}}},
        {"cut within the second record",
         [&](const TempFolder& f) { f.write(file, record(18, 10, 1) + record(18, 11, 2).substr(0, 13)); },
         {{1, 0.5}, {}}},
        {"longer",
         [&](const TempFolder& f) {
             f.write(file, record(18, 10, 1) + record(18, 11, 2) + record(18, 12, 3));
         },
         {{1, 0.5}, {2, 0.5}}},
        {"one record before",
         [&](const TempFolder& f) {
             f.write(file, record(18, 9, 0) + record(18, 10, 1) + record(18, 11, 2));
         },
         {{}, {}}},
        {"another day's",
         [&](const TempFolder& f) { f.write(file, record(17, 10, 1) + record(18, 11, 2)); },
         {{}, {2, 0.5}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const TempFolder folder;
        folder.write(file, record(18, 10, 1) + record(18, 11, 2));
        const DayRows read = rowsOf(dayStation(folder), JUNE_18, JUNE_18 + 1);
        ASSERT_EQ(read.count(), 2U);
        row.change(folder);
        for (std::size_t i = 0; i < 2; ++i) {
            const auto values = read.values(i);
            EXPECT_EQ(Floats(values.begin(), values.end()), row.values[i]) << i;
        }
    }
}

TEST(DayRows, AnErrorLeavesTheRowWithoutValues) {
    const TempFolder folder;
    folder.write("20200618.KMH", record(18, 10, 1));
    bool fails = false;
    const FileOpener open = [&fails](std::string_view path) {
        return fails ? throw std::runtime_error("no such disk") : openFile(path);
    };
    const auto rows = readDayRows(dayStation(folder), {JUNE_18, JUNE_18 + 1}, open, GO_ON);
    ASSERT_TRUE(rows.has_value());
    fails = true;
    EXPECT_TRUE(rows->values(0).empty());
}

TEST(DayRows, AFileThatCannotBeOpenedIsSkipped) {
    const TempFolder folder;
    folder.write("20200618.KMH", record(18, 10, 1));
    folder.write("20200619.KMH", record(19, 10, 2));
    folder.write("20200620.KMH", record(20, 10, 3));
    const FileOpener open = [](std::string_view path) -> std::unique_ptr<FileSource> {
        return path.find("20200619") == std::string_view::npos ? openFile(path) : nullptr;
    };
    const auto rows = readDayRows(dayStation(folder), {JUNE_18, JUNE_18 + 5}, open, GO_ON);
    ASSERT_TRUE(rows.has_value());
    EXPECT_EQ(firstValues(*rows), (Floats{1, 3}));
}

TEST(DayRows, AStepGivesUp) {
    const TempFolder folder;
    for (int day = 18; day < 22; ++day) {
        folder.write("202006" + std::to_string(day) + ".KMH", record(day, 10, 1));
    }
    DataReader reader;
    const TimeRange range = {JUNE_18, JUNE_18 + 5};
    EXPECT_FALSE(reader.readDayList(dayStation(folder), range, [] { return false; }).has_value());
    int steps = 0;
    EXPECT_FALSE(reader.readDayList(dayStation(folder), range, [&] { return ++steps < 3; }).has_value());
    EXPECT_EQ(steps, 3);
    const auto rows = reader.readDayList(dayStation(folder), range, GO_ON);
    ASSERT_TRUE(rows.has_value());
    EXPECT_EQ(rows->count(), 4U);
}

} // namespace
} // namespace kelvrum
