// SPDX-License-Identifier: GPL-3.0-or-later
// A second channel beside the first one, in row 2 of the series.
#include "data/DataReader.h"
#include "diagram/DiagramState.h"
#include "diagram/SeriesTable.h"
#include "tests/testing/FakeFiles.h"
#include "tests/testing/TempFolder.h"
#include "util/Validity.h"

#include <array>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <random>
#include <tuple>
#include <utility>
#include <vector>

namespace kelvrum {
namespace {

using kelvrum::testing::channelFile;
using kelvrum::testing::dayRecord;
using kelvrum::testing::FakeFiles;
using kelvrum::testing::TempFolder;
using ::testing::ElementsAre;

constexpr double GAP = INVALID_VALUE;
const DateTime NEW_YEAR = dateSerial(2020, 1, 1);
using Column = std::tuple<int, double, double>; // minute, Y1, Y2

StationConfig iniStation() {
    StationConfig station;
    station.Kind = ConfigKind::ini;
    station.ChannelTable.grow(4).Mode = MODE_MEAN;
    station.ChannelTable.grow(5).Mode = MODE_WIND_DIRECTION;
    station.ChannelTable.grow(5).PairedChannel = 4;
    station.ChannelTable.grow(7).Mode = MODE_SUM;
    return station;
}

StationConfig wideStation(const TempFolder& folder) {
    StationConfig station;
    station.Kind = ConfigKind::binary;
    station.BaseFolder = folder.base();
    station.ActiveChannels = {1, 3};
    station.WideRecords = true;
    station.ChannelTable.grow(1).Mode = MODE_MEAN;
    station.ChannelTable.grow(3).Mode = MODE_MEAN;
    return station;
}

std::vector<Column> columnsOf(const DiagramState& diagram) {
    const Series series = diagram.series();
    std::vector<Column> columns;
    for (std::size_t i = 0; i < series.times.size(); ++i) {
        columns.emplace_back(static_cast<int>((series.times[i] - NEW_YEAR) * 1440 + 0.5), series.y1[i],
                             series.y2[i]);
    }
    return columns;
}

ReadRequest firstMinutes(int minutes, std::int32_t channel, std::int32_t second, std::int32_t interval = 1) {
    return {channel, {}, {NEW_YEAR, NEW_YEAR + minutes / 1440.0}, interval, second};
}

class SecondChannel : public ::testing::Test {
  protected:
    void write(int channel, const std::vector<double>& minutes) {
        file(channel).bytes = channelFile(minutes);
    }
    kelvrum::testing::FakeFile& file(int channel) {
        return files["Kanal0" + std::to_string(channel) + "_2020.chn"];
    }
    std::vector<Column> read(const ReadRequest& request) {
        EXPECT_EQ(reader.readSeries(station, request, {}, diagram, {}), ReadStatus::complete);
        EXPECT_EQ(seriesTable().columns(),
                  std::max<std::size_t>(1, static_cast<std::size_t>(diagram.DataCount())));
        EXPECT_EQ(diagram.columnInterval(), request.interval / 1440.0);
        return columnsOf(diagram);
    }

    FakeFiles files;
    StationConfig station = iniStation();
    FileOpener open = files.opener();
    DataReader reader{[this](std::string_view path) { return open(path); }};
    DiagramState diagram;
};

TEST_F(SecondChannel, AColumnIsThereWhereEitherHasAValue) {
    write(4, {1, 0, 0, 0, 5, 6});
    write(7, {0, 20, 0, 0, 50, 0});
    EXPECT_THAT(read(firstMinutes(6, 4, 7)),
                ElementsAre(Column{0, 1, GAP}, Column{1, GAP, 20}, Column{2, GAP, GAP}, Column{4, 5, 50},
                            Column{5, 6, GAP}));
    // And without it nothing of it is left.
    EXPECT_THAT(read(firstMinutes(6, 4, 0)),
                ElementsAre(Column{0, 1, GAP}, Column{1, GAP, GAP}, Column{4, 5, GAP}, Column{5, 6, GAP}));
}

TEST_F(SecondChannel, EachIsAveragedByItsOwnMode) {
    write(4, {1, 3, 5, 7});
    write(5, {90, 90, 90, 90});
    write(7, {1, 3, 5, 7});
    EXPECT_THAT(read(firstMinutes(4, 4, 7, 2)), ElementsAre(Column{0, 2, 4}, Column{2, 6, 12}));
    EXPECT_THAT(read(firstMinutes(4, 7, 5, 2)), ElementsAre(Column{0, 4, 90}, Column{2, 12, 90}));
    EXPECT_THAT(read(firstMinutes(4, 5, 7, 2)), ElementsAre(Column{0, 90, 4}, Column{2, 90, 12}));
    // A true zero is a value of either channel.
    write(4, {1, -1, 5, 7});
    EXPECT_THAT(read(firstMinutes(4, 7, 4, 2)), ElementsAre(Column{0, 4, ZERO_VALUE}, Column{2, 12, 6}));
}

TEST_F(SecondChannel, MayBeTheFirstOne) {
    write(4, {1, 0, 3});
    EXPECT_THAT(read(firstMinutes(3, 4, 4)),
                ElementsAre(Column{0, 1, 1}, Column{1, GAP, GAP}, Column{2, 3, 3}));
}

TEST_F(SecondChannel, FilesOfDifferentLengthOverSeveralPieces) {
    write(4, std::vector<double>(20000, 1.0));
    write(7, std::vector<double>(17000, 2.0));
    for (const bool isLonger : {true, false}) {
        const auto columns = read(firstMinutes(20000, isLonger ? 4 : 7, isLonger ? 7 : 4));
        ASSERT_EQ(columns.size(), 20000U);
        for (int i = 0; i < 20000; ++i) {
            const double other = i < 17000 ? 2 : GAP;
            ASSERT_EQ(columns[static_cast<std::size_t>(i)],
                      isLonger ? Column(i, 1, other) : Column(i, other, 1));
        }
    }
}

TEST_F(SecondChannel, AMissingFileLeavesTheOtherChannel) {
    write(4, {1, 0, 3});
    EXPECT_THAT(read(firstMinutes(3, 4, 9)),
                ElementsAre(Column{0, 1, GAP}, Column{1, GAP, GAP}, Column{2, 3, GAP}));
    EXPECT_THAT(read(firstMinutes(3, 9, 4)),
                ElementsAre(Column{0, GAP, 1}, Column{1, GAP, GAP}, Column{2, GAP, 3}));
    EXPECT_THAT(read(firstMinutes(3, 9, 8)), ElementsAre());
    EXPECT_THAT(read({4, {}, {NEW_YEAR + 5, NEW_YEAR + 6}, 1, 4}), ElementsAre()); // after the end of both
}

/// As at the end of its file; the other channel goes on.
TEST_F(SecondChannel, AFileThatFailsEndsItsOwnChannel) {
    constexpr int MANY = 40000; // over several pieces
    write(4, std::vector<double>(MANY, 1.0));
    write(7, std::vector<double>(MANY, 2.0));
    for (const int failing : {4, 7}) {
        for (const int values : {0, 16384}) { // whole pieces
            const int from = values == 0 ? 0 : 20000;
            file(4).failsAt = file(7).failsAt = std::numeric_limits<std::uint64_t>::max();
            file(failing).failsAt = static_cast<std::uint64_t>(from) * 8;
            file(failing).throws = true;
            const auto columns = read(firstMinutes(MANY, 4, 7));
            ASSERT_EQ(columns.size(), static_cast<std::size_t>(MANY));
            for (int i = 0; i < MANY; ++i) {
                const auto valueOf = [&](int channel, double v) {
                    return channel == failing && i >= values ? GAP : v;
                };
                ASSERT_EQ(columns[static_cast<std::size_t>(i)], Column(i, valueOf(4, 1), valueOf(7, 2)));
            }
        }
    }
}

/// Whatever the gaps, each channel has the values that it has alone, and a run without any has one column.
TEST_F(SecondChannel, HasWhatEachChannelHasAlone) {
    std::mt19937 numbers(20260618);
    for (int round = 0; round < 40; ++round) {
        constexpr int LENGTH = 3000;
        for (const int channel : {4, 7}) {
            std::vector<double> minutes(LENGTH - numbers() % 500);
            for (std::size_t m = 0; m < minutes.size();) {
                const bool missing = numbers() % 2 == 0;
                for (std::size_t run = 1 + numbers() % 60; run > 0 && m < minutes.size(); --run, ++m) {
                    minutes[m] = missing ? 0 : 1 + static_cast<double>(numbers() % 1000);
                }
            }
            write(channel, minutes);
        }
        const std::int32_t interval = std::array{1, 5, 60}[static_cast<std::size_t>(round % 3)];
        const auto both = read(firstMinutes(LENGTH, 4, 7, interval));
        for (const int row : {1, 2}) {
            std::vector<std::pair<int, double>> values;
            for (const auto& [minute, y1, y2] : both) {
                if (const double v = row == 1 ? y1 : y2; v != GAP) {
                    values.emplace_back(minute, v);
                }
            }
            std::vector<std::pair<int, double>> alone;
            for (const auto& [minute, y1, y2] : read(firstMinutes(LENGTH, row == 1 ? 4 : 7, 0, interval))) {
                if (y1 != GAP) {
                    alone.emplace_back(minute, y1);
                }
            }
            ASSERT_EQ(values, alone) << "round " << round;
        }
        const auto isGap = [](const Column& c) { return std::get<1>(c) == GAP && std::get<2>(c) == GAP; };
        for (std::size_t i = 0; i < both.size(); ++i) {
            ASSERT_FALSE(isGap(both[i]) && (i == 0 || isGap(both[i - 1]))) << "round " << round;
        }
    }
}

TEST_F(SecondChannel, AReadingThatIsGivenUpShowsNothing) {
    write(4, std::vector<double>(40000, 1.0));
    write(7, std::vector<double>(40000, 2.0));
    for (const int when : {1, 2, 3}) {
        int steps = 0;
        const ReadingStep nest = [&] {
            if (++steps < when) {
                return true;
            }
            EXPECT_EQ(reader.readSeries(station, firstMinutes(10, 7, 4), {"innen", {}}, diagram, {}),
                      ReadStatus::complete);
            return false;
        };
        EXPECT_EQ(reader.readSeries(station, firstMinutes(40000, 4, 7), {"aussen", {}}, diagram, nest),
                  ReadStatus::givenUp);
        EXPECT_EQ(steps, when);
        const auto columns = columnsOf(diagram); // of the newer reading
        ASSERT_EQ(columns.size(), 10U);
        EXPECT_EQ(columns[9], Column(9, 2, 1));
    }
}

TEST_F(SecondChannel, OfDayFilesGoesWithTheMeans) {
    const TempFolder folder;
    using Floats = std::vector<float>;
    folder.write("20200101.KMH", dayRecord(2020, 1, 1, 0, Floats{10, 9, 11, 20, 19, 21}) +
                                     dayRecord(2020, 1, 1, 1, Floats{0, 0, 0, 30, 29, 31}) +
                                     dayRecord(2020, 1, 1, 4, Floats{14, 13, 15, 0, 0, 0}));
    station = wideStation(folder);
    open = openFile;
    EXPECT_THAT(read(firstMinutes(5, 1, 3)),
                ElementsAre(Column{0, 10, 20}, Column{1, GAP, 30}, Column{2, GAP, GAP}, Column{4, 14, GAP},
                            Column{0, 9, GAP}, Column{1, GAP, GAP}, Column{4, 13, GAP}, Column{0, 11, GAP},
                            Column{1, GAP, GAP}, Column{4, 15, GAP}));
    station.WideRecords = false;
    folder.write("20200101.KMH",
                 dayRecord(2020, 1, 1, 0, Floats{10, 20}) + dayRecord(2020, 1, 1, 3, Floats{14, 24}));
    EXPECT_THAT(read(firstMinutes(5, 3, 1)),
                ElementsAre(Column{0, 20, 10}, Column{1, GAP, GAP}, Column{3, 24, 14}, Column{4, GAP, GAP}));
    EXPECT_THAT(read(firstMinutes(5, 3, 2)), ElementsAre(Column{0, 20, GAP}, Column{1, GAP, GAP},
                                                         Column{3, 24, GAP}, Column{4, GAP, GAP}));
}

/// The file cannot be read when the second channel's turn comes: the first one keeps its values.
TEST_F(SecondChannel, ADayFileThatFailsForTheSecondLeavesTheFirst) {
    const TempFolder folder;
    folder.write("20200101.KMH", dayRecord(2020, 1, 1, 0, std::vector<float>{10, 20}));
    station = wideStation(folder);
    station.WideRecords = false;
    int opened = 0;
    open = [&opened](std::string_view path) -> std::unique_ptr<FileSource> {
        if (++opened == 2) {
            throw std::runtime_error("unreadable");
        }
        return openFile(path);
    };
    EXPECT_THAT(read(firstMinutes(1, 1, 3)), ElementsAre(Column{0, 10, GAP}));
    EXPECT_EQ(opened, 2);
}

} // namespace
} // namespace kelvrum
