// SPDX-License-Identifier: GPL-3.0-or-later
// Readings that a step gives up, and readings that start within a step of another one.
#include "data/DataReader.h"
#include "diagram/DiagramState.h"

#include "tests/testing/FakeFiles.h"
#include "tests/testing/MadeMinutes.h"
#include "tests/testing/TempFolder.h"

#include <gtest/gtest.h>

namespace kelvrum {
namespace {

using kelvrum::testing::channelFile;
using kelvrum::testing::countedMinutes;
using kelvrum::testing::FakeFiles;

constexpr std::size_t YEAR = 527040;

const ReadingStep GO_ON = [] { return true; };

class ReadingSteps : public ::testing::Test {
  protected:
    ReadingSteps() {
        station.DataFolder = "X:\\";
        station.Title = "T";
        station.ChannelTable.grow(1).Mode = MODE_MEAN;
        station.ChannelTable.grow(1).Name = "aussen";
        station.ChannelTable.grow(1).Unit = "a";
        station.ChannelTable.grow(2).Mode = MODE_MEAN;
        station.ChannelTable.grow(2).Name = "innen";
        station.ChannelTable.grow(2).Unit = "i";
        files["X:\\Kanal01_2020.chn"].bytes = channelFile(countedMinutes(YEAR));
        files["X:\\Kanal02_2020.chn"].bytes = channelFile(countedMinutes(YEAR, 1e6));
    }

    static ReadRequest year(std::int32_t channel, std::int32_t interval) {
        return {channel, "", {dateSerial(2020, 1, 1), dateSerial(2020, 1, 1)}, interval};
    }

    FakeFiles files;
    StationConfig station;
    DataReader reader{files.opener()};
    DiagramState diagram;
};

TEST_F(ReadingSteps, ALongReadingTakesSteps) {
    int steps = 0;
    const ReadingStep count = [&] {
        ++steps;
        return true;
    };
    EXPECT_EQ(reader.readDiagram(station, year(1, 1), {}, diagram, count), ReadStatus::complete);
    EXPECT_GT(steps, 1);
    EXPECT_EQ(diagram.DataCount(), static_cast<int>(YEAR));
    EXPECT_EQ(seriesTable().row(SeriesTable::Y1)[YEAR - 1], static_cast<double>(YEAR));
}

TEST_F(ReadingSteps, GivingUpTheDiagramLeavesNoCount) {
    reader.readDiagram(station, {1, "", {dateSerial(2020, 1, 1), dateSerial(2020, 1, 1) + 5 / 1440.0}, 1}, {},
                       diagram, GO_ON);
    ASSERT_EQ(diagram.DataCount(), 5);
    int steps = 0;
    const ReadingStep third = [&] {
        EXPECT_EQ(diagram.DataCount(), 0) << "a drawing meanwhile would show half a curve";
        return ++steps < 3;
    };
    EXPECT_EQ(reader.readDiagram(station, year(2, 1), {}, diagram, third), ReadStatus::givenUp);
    EXPECT_EQ(steps, 3);
    EXPECT_EQ(diagram.DataCount(), 0);
}

TEST_F(ReadingSteps, GivingUpTheListPassesNoMoreRows) {
    std::size_t rows = 0;
    std::size_t rowsWhenGivenUp = 0;
    int steps = 0;
    const ReadingStep second = [&] {
        rowsWhenGivenUp = rows;
        return ++steps < 2;
    };
    EXPECT_EQ(
        reader.readList(
            station, year(1, 1),
            [&](std::span<const DateTime> /*starts*/, std::span<const double> more) { rows += more.size(); },
            second),
        ReadStatus::givenUp);
    EXPECT_EQ(steps, 2);
    EXPECT_EQ(rows, rowsWhenGivenUp);
    EXPECT_LT(rows, YEAR);
}

TEST_F(ReadingSteps, ADiagramWithinADiagramWins) {
    for (const std::int32_t interval : {1, 60}) {
        for (const int when : {1, 2, 3}) {
            int steps = 0;
            const ReadingStep nest = [&] {
                if (++steps < when) {
                    return true;
                }
                EXPECT_EQ(steps, when) << "a step after the reading was given up";
                EXPECT_EQ(reader.readDiagram(station, year(2, interval), {"innen", AuxiliaryLines{2, 3}},
                                             diagram, GO_ON),
                          ReadStatus::complete);
                return false;
            };
            ASSERT_EQ(
                reader.readDiagram(station, year(1, 1), {"aussen", AuxiliaryLines{8, 9}}, diagram, nest),
                ReadStatus::givenUp);
            const std::size_t count = YEAR / static_cast<std::size_t>(interval);
            ASSERT_EQ(diagram.DataCount(), static_cast<int>(count));
            ASSERT_EQ(seriesTable().columns(), count);
            for (std::size_t i = 0; i < count; ++i) {
                const double middle = (interval - 1) / 2.0;
                ASSERT_DOUBLE_EQ(seriesTable().row(SeriesTable::Y1)[i],
                                 1e6 + 1 + static_cast<double>(i) * interval + middle);
            }
            EXPECT_EQ(diagram.HeadLine(), "T - innen [i]");
            EXPECT_EQ(diagram.HeadLine2(), " - innen Mittelwert");
            EXPECT_EQ(diagram.Einheit(), "i");
            EXPECT_EQ(diagram.Hilfslinie1(), 2);
            EXPECT_EQ(diagram.Hilfslinie2(), 3);
        }
    }
}

TEST_F(ReadingSteps, AListWithinAListWins) {
    std::vector<double> inner;
    std::size_t outer = 0;
    std::size_t outerWhenNested = 0;
    const ReadingStep nest = [&] {
        outerWhenNested = outer;
        EXPECT_EQ(reader.readList(
                      station, year(2, 1),
                      [&](std::span<const DateTime> /*starts*/, std::span<const double> more) {
                          inner.insert(inner.end(), more.begin(), more.end());
                      },
                      GO_ON),
                  ReadStatus::complete);
        return false;
    };
    EXPECT_EQ(
        reader.readList(
            station, year(1, 1),
            [&](std::span<const DateTime> /*starts*/, std::span<const double> more) { outer += more.size(); },
            nest),
        ReadStatus::givenUp);
    EXPECT_EQ(outer, outerWhenNested);
    EXPECT_TRUE(inner == countedMinutes(YEAR, 1e6));
}

} // namespace
} // namespace kelvrum
