// SPDX-License-Identifier: GPL-3.0-or-later
// How files are fetched: few large reads, each byte once, and nothing stale when a read fails.
#include "data/BlockReader.h"

#include "tests/testing/FakeFiles.h"
#include "tests/testing/MadeMinutes.h"
#include "tests/testing/TempFolder.h"

#include <gtest/gtest.h>

namespace kelvrum {
namespace {

using kelvrum::testing::channelFile;
using kelvrum::testing::countedMinutes;
using kelvrum::testing::FakeFiles;
using kelvrum::testing::ReadLog;

const char* const FILE_2020 = "X:\\Kanal07_2020.chn";
const char* const WIND_2020 = "X:\\Kanal08_2020.chn";
const char* const PAIR_2020 = "X:\\Kanal04_2020.chn";

constexpr std::size_t YEAR = 527040; // minutes of 2020

StationConfig testStation() {
    StationConfig station;
    station.Kind = ConfigKind::ini;
    station.DataFolder = "X:\\";
    station.ChannelTable.grow(7).Mode = MODE_MEAN;
    station.ChannelTable.grow(8).Mode = MODE_WIND_DIRECTION;
    station.ChannelTable.grow(8).PairedChannel = 4;
    return station;
}

ReadRequest yearOf(std::int32_t channel, std::int32_t interval) {
    return {channel, "", {dateSerial(2020, 1, 1), dateSerial(2021, 1, 1)}, interval};
}

struct Values {
    std::vector<double> values;
    std::vector<double> paired;
    int pieces = 0;
};

Values readAll(const ReadRequest& request, const FileOpener& open, ReadBuffers& buffers) {
    BlockReader reader(testStation(), request, open, buffers);
    Values all;
    for (BlockRun run = reader.next(); !run.empty(); run = reader.next()) {
        ++all.pieces;
        all.values.insert(all.values.end(), run.values.begin(), run.values.end());
        all.paired.insert(all.paired.end(), run.paired.begin(), run.paired.end());
    }
    return all;
}

/// Fails unless the reads are contiguous from the first value to the end of the file.
void expectEachByteOnce(const std::vector<ReadLog::Read>& reads, std::uint64_t end) {
    std::uint64_t at = 1024;
    for (const ReadLog::Read& read : reads) {
        EXPECT_EQ(read.offset, at);
        at += read.got;
    }
    EXPECT_EQ(at, end);
}

TEST(BlockSource, AYearComesInFewPiecesAndEachByteOnce) {
    FakeFiles files;
    files[FILE_2020].bytes = channelFile(countedMinutes(YEAR));
    files[WIND_2020].bytes = channelFile(countedMinutes(YEAR));
    files[PAIR_2020].bytes = channelFile(countedMinutes(YEAR, 0.25));
    for (const std::int32_t interval : {1, 60, 1440}) {
        FakeFiles fresh = files;
        ReadBuffers buffers;
        readAll(yearOf(7, interval), fresh.opener(), buffers);
        EXPECT_LE(fresh.reads(FILE_2020).size(), 100U) << interval;
        expectEachByteOnce(fresh.reads(FILE_2020), 1024 + 8 * YEAR);

        readAll(yearOf(8, interval), fresh.opener(), buffers);
        EXPECT_LE(fresh.reads(WIND_2020).size() + fresh.reads(PAIR_2020).size(), 200U) << interval;
        expectEachByteOnce(fresh.reads(WIND_2020), 1024 + 8 * YEAR);
        expectEachByteOnce(fresh.reads(PAIR_2020), 1024 + 8 * YEAR);
    }
}

TEST(BlockSource, OnlyTheRangeIsFetched) {
    FakeFiles files;
    files[FILE_2020].bytes = channelFile(countedMinutes(YEAR));
    ReadBuffers buffers;
    const DateTime day = dateSerial(2020, 6, 18);
    readAll({7, "", {day, day + 1}, 10}, files.opener(), buffers);
    ASSERT_EQ(files.reads(FILE_2020).size(), 1U);
    EXPECT_EQ(files.reads(FILE_2020)[0].offset, 1024U + 8U * 1440U * 169U);
    EXPECT_EQ(files.reads(FILE_2020)[0].got, 8U * 1440U);
}

TEST(BlockSource, ReadingInPiecesIsReadingWhole) {
    constexpr std::size_t WRITTEN = YEAR - 12345;
    FakeFiles files;
    files[WIND_2020].bytes = channelFile(countedMinutes(WRITTEN));
    files[PAIR_2020].bytes = channelFile(countedMinutes(WRITTEN - 777, 0.5));
    const std::size_t start = 1000;
    for (const std::int32_t interval : {1, 5, 7, 10, 15, 60, 1440, 9999, 100000, 600000}) {
        const auto N = static_cast<std::size_t>(interval);
        // The last block is the last one that holds any byte of the file.
        const std::size_t minutes = (WRITTEN - start + N - 1) / N * N;
        std::vector<double> values(minutes);
        std::vector<double> paired(minutes);
        for (std::size_t i = 0; i < minutes; ++i) {
            const auto value = static_cast<double>(start + i + 1);
            values[i] = start + i < WRITTEN ? value : 0;
            paired[i] = start + i < WRITTEN - 777 ? value + 0.5 : 0;
        }
        ReadRequest request = yearOf(8, interval);
        request.range.from += static_cast<double>(start) / 1440.0;
        ReadBuffers buffers;
        const Values all = readAll(request, files.opener(), buffers);
        EXPECT_TRUE(all.values == values) << interval;
        EXPECT_TRUE(all.paired == paired) << interval;
        if (interval == 1) {
            EXPECT_GT(all.pieces, 1);
        }
    }
}

TEST(BlockSource, BuffersAreKeptAndNeverShowOldValues) {
    FakeFiles files;
    files[FILE_2020].bytes = channelFile(countedMinutes(YEAR));
    files[WIND_2020].bytes = channelFile(countedMinutes(100));
    files[PAIR_2020].bytes = channelFile(countedMinutes(30));
    ReadBuffers buffers;
    readAll(yearOf(7, 1), files.opener(), buffers);
    readAll(yearOf(7, 1440), files.opener(), buffers);
    const Values all = readAll(yearOf(8, 1440), files.opener(), buffers);
    ASSERT_EQ(all.values.size(), 1440U);
    ASSERT_EQ(all.paired.size(), 1440U);
    for (std::size_t i = 0; i < 1440; ++i) {
        ASSERT_EQ(all.values[i], i < 100 ? static_cast<double>(i + 1) : 0);
        ASSERT_EQ(all.paired[i], i < 30 ? static_cast<double>(i + 1) : 0);
    }
}

TEST(BlockSource, AReadThatFailsLeavesTheRestMissing) {
    // In the first piece, in the middle of a value, far after it, and at the very first value.
    for (const std::uint64_t whole :
         {std::uint64_t{0}, std::uint64_t{7}, std::uint64_t{300000}, std::uint64_t{527039}}) {
        for (const std::uint64_t odd : {0U, 1U, 7U}) {
            FakeFiles files;
            files[FILE_2020].bytes = channelFile(countedMinutes(YEAR, 5));
            ReadBuffers buffers;
            readAll(yearOf(7, 1), files.opener(),
                    buffers); // fills the buffers with values that are stale later
            files[FILE_2020].bytes = channelFile(countedMinutes(YEAR));
            files[FILE_2020].failsAt = 1024 + 8 * whole + odd;
            for (const std::int32_t interval : {1, 60}) {
                const Values all = readAll(yearOf(7, interval), files.opener(), buffers);
                ASSERT_LE(all.values.size(), YEAR);
                ASSERT_GE(all.values.size(), whole);
                for (std::size_t i = 0; i < all.values.size(); ++i) {
                    ASSERT_EQ(all.values[i], i < whole ? static_cast<double>(i + 1) : 0) << whole << " " << i;
                }
            }
        }
    }
}

TEST(BlockSource, AFileThatIsCutWhileItIsRead) {
    FakeFiles files;
    files[FILE_2020].bytes = channelFile(countedMinutes(YEAR));
    ReadBuffers buffers;
    BlockReader reader(testStation(), yearOf(7, 1), files.opener(), buffers);
    std::size_t at = 0;
    std::size_t whole = YEAR;
    for (BlockRun run = reader.next(); !run.empty(); run = reader.next()) {
        for (const double value : run.values) {
            ASSERT_EQ(value, at < whole ? static_cast<double>(at + 1) : 0) << at;
            ++at;
        }
        if (whole == YEAR) {
            whole = at + 10;
            files[FILE_2020].bytes.resize(1024 + 8 * whole + 3);
        }
    }
    EXPECT_GE(at, whole);
    EXPECT_LT(whole, YEAR);
}

} // namespace
} // namespace kelvrum
