// SPDX-License-Identifier: GPL-3.0-or-later
// Which blocks a time range gives.
#include "data/BlockReader.h"

#include "data/Averaging.h"
#include "tests/testing/FakeFiles.h"
#include "tests/testing/MadeMinutes.h"
#include "tests/testing/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <limits>

namespace kelvrum {
namespace {

using kelvrum::testing::channelFile;
using kelvrum::testing::countedMinutes;
using kelvrum::testing::FakeFiles;

const char* const FILE_2020 = "X:\\Data\\Kanal07_2020.chn";
const char* const PAIR_2020 = "X:\\Data\\Kanal04_2020.chn";

StationConfig stationAt(const std::string& dataFolder) {
    StationConfig station;
    station.Kind = ConfigKind::ini;
    station.DataFolder = dataFolder;
    station.ChannelTable.grow(7).Mode = MODE_MEAN;
    ChannelInfo& wind = station.ChannelTable.grow(8);
    wind.Mode = MODE_WIND_DIRECTION;
    wind.PairedChannel = 4;
    return station;
}

ReadRequest request(DateTime from, DateTime to, std::int32_t interval, std::int32_t channel = 7) {
    return {channel, "", {from, to}, interval};
}

/// Everything that a reading delivers.
struct Blocks {
    std::int64_t promised = 0;
    std::int64_t count = 0;
    std::vector<double> values;
    std::vector<double> paired;
};

Blocks readAll(const StationConfig& station, const ReadRequest& what, const FileOpener& open) {
    ReadBuffers buffers;
    // Values left by an earlier reading must not appear.
    buffers.values.assign(1000, 77);
    buffers.paired.assign(1000, 77);
    BlockReader reader(station, what, open, buffers);
    Blocks all;
    all.promised = reader.blocks();
    for (BlockRun run = reader.next(); !run.empty(); run = reader.next()) {
        EXPECT_EQ(run.first, all.count);
        EXPECT_EQ(run.values.size(), run.blocks * static_cast<std::size_t>(what.interval));
        all.count += static_cast<std::int64_t>(run.blocks);
        all.values.insert(all.values.end(), run.values.begin(), run.values.end());
        all.paired.insert(all.paired.end(), run.paired.begin(), run.paired.end());
    }
    EXPECT_TRUE(reader.next().empty());
    EXPECT_EQ(all.promised, all.count);
    return all;
}

/// The values that a file of counted minutes has from a minute on; missing ones are 0.
std::vector<double> countedFrom(std::size_t minute, std::size_t count, std::size_t fileMinutes) {
    std::vector<double> values(count);
    for (std::size_t i = 0; i < count; ++i) {
        values[i] = minute + i < fileMinutes ? static_cast<double>(minute + i + 1) : 0;
    }
    return values;
}

const DateTime JANUARY = dateSerial(2020, 1, 1);

TEST(BlockReader, RangesOfAShortFile) {
    struct Row {
        const char* what;
        int from, to; // minutes of the year
        std::int32_t interval;
        std::int64_t blocks;
    };
    const std::size_t fileMinutes = 200;
    const Row rows[] = {
        {"an hour of minutes", 0, 60, 1, 60},
        {"from the middle", 17, 30, 1, 13},
        {"80 minutes at N = 60 are two blocks", 0, 80, 60, 2},
        {"90 minutes are two blocks", 0, 90, 60, 2},
        {"30 minutes are one block", 0, 30, 60, 1},
        {"150 minutes are three blocks", 0, 150, 60, 3},
        {"whole hours", 60, 180, 60, 2},
        {"partly after the end", 0, 240, 60, 4},
        {"wholly after the end from the fourth on", 0, 600, 60, 4},
        {"the last block ends with the file", 0, 600, 100, 2},
        {"starts with the last minute", 199, 260, 60, 1},
        {"starts at the end", 200, 260, 60, 0},
        {"starts after the end", 300, 400, 1, 0},
        {"end is start: to the file's end", 190, 190, 1, 10},
        {"end before start: to the file's end", 140, 20, 60, 1},
        {"end is start, blocks partly after the file's end", 130, 130, 60, 2},
        {"block of a day", 0, 1440, 1440, 1},
    };
    FakeFiles files;
    files[FILE_2020].bytes = channelFile(countedMinutes(fileMinutes));
    const StationConfig station = stationAt("X:\\Data\\");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        const Blocks all =
            readAll(station, request(JANUARY + row.from / 1440.0, JANUARY + row.to / 1440.0, row.interval),
                    files.opener());
        ASSERT_EQ(all.count, row.blocks);
        EXPECT_EQ(all.values,
                  countedFrom(static_cast<std::size_t>(row.from), all.values.size(), fileMinutes));
        EXPECT_TRUE(all.paired.empty());
    }
}

TEST(BlockReader, ARangeAfterTheEndThatRunsToTheEndIsEmpty) {
    FakeFiles files;
    files[FILE_2020].bytes = channelFile(countedMinutes(100));
    const Blocks all = readAll(stationAt("X:\\Data\\"), request(JANUARY + 2, JANUARY + 1, 1), files.opener());
    EXPECT_EQ(all.count, 0);
}

TEST(BlockReader, OverAYearsEnd) {
    FakeFiles files;
    files[FILE_2020].bytes = channelFile(countedMinutes(527040));
    files["X:\\Data\\Kanal07_2021.chn"].bytes = channelFile(std::vector<double>(5000, 3));
    const StationConfig station = stationAt("X:\\Data\\");

    // The end lies before the start within its year: the file is read to its end.
    const Blocks rest = readAll(
        station, request(dateSerial(2020, 12, 31) + 0.5, dateSerial(2021, 1, 2) + 0.5, 1), files.opener());
    EXPECT_EQ(rest.values, countedFrom(527040 - 720, 720, 527040));

    // The end lies after the start within its year: as far as there, in the file of the start's year.
    const Blocks part =
        readAll(station, request(JANUARY, dateSerial(2021, 1, 1) + 1 / 24.0, 1), files.opener());
    EXPECT_EQ(part.values, countedFrom(0, 60, 527040));

    EXPECT_EQ(files.opened(), (std::vector<std::string>(2, FILE_2020)));
}

TEST(BlockReader, TheFileFollowsFromChannelSuffixAndStart) {
    FakeFiles files;
    StationConfig station = stationAt("Data\\");
    station.BaseFolder = "D:\\Projekte\\A\\";
    ReadRequest what = request(dateSerial(2021, 12, 31) + timeSerial(23, 59), dateSerial(2022, 1, 1), 1, 8);
    what.suffix = "korr";
    EXPECT_EQ(readAll(station, what, files.opener()).count, 0);
    files["D:\\Projekte\\A\\Data\\Kanal08_korr_2021.chn"].bytes = channelFile(countedMinutes(525600));
    files["Data\\Kanal04_korr_2021.chn"].bytes = channelFile(countedMinutes(525600, 0.5));
    const Blocks all = readAll(station, what, files.opener());
    EXPECT_EQ(all.values, std::vector<double>{525600});
    EXPECT_EQ(all.paired, std::vector<double>{525600.5});
}

TEST(BlockReader, FilesCutAnywhere) {
    struct Row {
        std::size_t bytes;
        std::int64_t blocks;       // at N = 1
        std::vector<double> whole; // the values that are whole
    };
    const Row rows[] = {
        {0, 0, {}},        {1, 0, {}},        {1023, 0, {}},     {1024, 0, {}},
        {1025, 1, {0}},    {1031, 1, {0}},    {1032, 1, {1}},    {1033, 2, {1, 0}},
        {1034, 2, {1, 0}}, {1035, 2, {1, 0}}, {1036, 2, {1, 0}}, {1037, 2, {1, 0}},
        {1038, 2, {1, 0}}, {1039, 2, {1, 0}}, {1040, 2, {1, 2}}, {1047, 3, {1, 2, 0}},
    };
    const StationConfig station = stationAt("X:\\Data\\");
    const std::string bytes = channelFile(countedMinutes(20));
    for (const Row& row : rows) {
        FakeFiles files;
        files[FILE_2020].bytes = bytes.substr(0, row.bytes);
        for (const DateTime end : {JANUARY, JANUARY + 1}) {
            SCOPED_TRACE(row.bytes);
            EXPECT_EQ(readAll(station, request(JANUARY, end, 1), files.opener()).values, row.whole);

            const Blocks five = readAll(station, request(JANUARY, end, 5), files.opener());
            EXPECT_EQ(five.count, row.blocks > 0 ? 1 : 0);
            std::vector<double> padded = row.whole;
            padded.resize(row.blocks > 0 ? 5 : 0);
            EXPECT_EQ(five.values, padded);
        }
    }
}

TEST(BlockReader, TheHeaderIsNeverLookedAt) {
    FakeFiles files;
    std::string bytes = channelFile(countedMinutes(3));
    std::fill_n(bytes.begin(), 1024, '\xFF');
    files[FILE_2020].bytes = bytes;
    const Blocks all = readAll(stationAt("X:\\Data\\"), request(JANUARY, JANUARY + 1, 1), files.opener());
    EXPECT_EQ(all.values, (std::vector<double>{1, 2, 3}));
}

TEST(BlockReader, WhatIsNoNumberIsNotPresent) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    const double infinite = std::numeric_limits<double>::infinity();
    FakeFiles files;
    files[FILE_2020].bytes = channelFile(
        std::vector<double>{nan, infinite, -infinite, 99999900, -99999900, 0, nan, 4, 0, infinite});
    ReadBuffers buffers;
    BlockReader reader(stationAt("X:\\Data\\"), request(JANUARY, JANUARY + 10 / 1440.0, 5), files.opener(),
                       buffers);
    const BlockRun run = reader.next();
    ASSERT_EQ(run.blocks, 2U);
    std::vector<double> means(2);
    WindMeans winds;
    averageBlocks(run, MODE_MEAN, means, winds);
    EXPECT_EQ(means, (std::vector<double>{INVALID_VALUE, 4}));
}

TEST(BlockReader, AnIntervalBelowOneReadsNothing) {
    FakeFiles files;
    files[FILE_2020].bytes = channelFile(countedMinutes(100));
    for (const std::int32_t interval : {0, -1, -1440, std::numeric_limits<std::int32_t>::min()}) {
        ReadBuffers buffers;
        BlockReader reader(stationAt("X:\\Data\\"), request(JANUARY, JANUARY + 1, interval), files.opener(),
                           buffers);
        EXPECT_EQ(reader.blocks(), 0) << interval;
        EXPECT_TRUE(reader.next().empty()) << interval;
    }
    EXPECT_TRUE(files.reads(FILE_2020).empty());
}

TEST(BlockReader, PairedFiles) {
    struct Row {
        const char* what;
        int pairedMinutes; // -1: no file
    };
    const Row rows[] = {{"as long", 120}, {"longer", 500}, {"shorter", 70}, {"empty", 0}, {"missing", -1}};
    const StationConfig station = stationAt("X:\\Data\\");
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        FakeFiles files;
        files["X:\\Data\\Kanal08_2020.chn"].bytes = channelFile(std::vector<double>(120, 180));
        if (row.pairedMinutes >= 0) {
            files[PAIR_2020].bytes = channelFile(countedMinutes(static_cast<std::size_t>(row.pairedMinutes)));
        }
        const ReadRequest what = request(JANUARY, JANUARY + 2 / 24.0, 1, 8);
        const Blocks all = readAll(station, what, files.opener());
        EXPECT_EQ(all.values, std::vector<double>(120, 180));
        if (row.pairedMinutes >= 0) {
            EXPECT_EQ(all.paired, countedFrom(0, 120, static_cast<std::size_t>(row.pairedMinutes)));
        }

        ReadBuffers buffers;
        BlockReader reader(station, what, files.opener(), buffers);
        const BlockRun run = reader.next();
        ASSERT_EQ(run.blocks, 120U);
        std::vector<double> directions(run.blocks);
        WindMeans winds;
        averageBlocks(run, MODE_WIND_DIRECTION, directions, winds);
        for (int i = 0; i < 120; ++i) {
            EXPECT_NEAR(directions[static_cast<std::size_t>(i)], i < row.pairedMinutes ? 180 : INVALID_VALUE,
                        1e-9)
                << i;
        }
    }
}

TEST(BlockReader, RealFiles) {
    const testing::TempFolder folder;
    folder.write("Data/Kanal07_2020.chn", channelFile(countedMinutes(50)));
    std::filesystem::create_directories(folder.path() / "Data/Kanal08_2020.chn");
    folder.write("Data/Kanal04_2020.chn", channelFile(countedMinutes(50)));
    StationConfig station = stationAt("data\\");
    station.BaseFolder = folder.base();
    EXPECT_EQ(readAll(station, request(JANUARY, JANUARY, 1), openFile).values, countedMinutes(50));
    // A folder of the file's name is no file.
    EXPECT_EQ(readAll(station, request(JANUARY, JANUARY, 1, 8), openFile).count, 0);
    EXPECT_EQ(readAll(station, request(JANUARY, JANUARY, 1, 9), openFile).count, 0);
}

} // namespace
} // namespace kelvrum
