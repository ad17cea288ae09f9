// SPDX-License-Identifier: GPL-3.0-or-later
// The list reader and the diagram reader of channel files.
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

const DateTime JANUARY = dateSerial(2020, 1, 1);

const ReadingStep GO_ON = [] { return true; };

StationConfig testStation() {
    StationConfig station;
    station.Kind = ConfigKind::ini;
    station.DataFolder = "X:\\";
    station.Title = "Deponie Süd";
    station.Subtitle = "Halle - 4711";
    ChannelInfo& speed = station.ChannelTable.grow(4);
    speed.Name = "Windgeschwindigkeit";
    speed.Unit = "m/s";
    speed.Mode = MODE_MEAN;
    ChannelInfo& direction = station.ChannelTable.grow(5);
    direction.Name = "Windrichtung";
    direction.Unit = "Grad";
    direction.Mode = MODE_WIND_DIRECTION;
    direction.PairedChannel = 4;
    ChannelInfo& rain = station.ChannelTable.grow(6);
    rain.Name = "Niederschlag";
    rain.Mode = MODE_SUM;
    station.ChannelTable.grow(9).Mode = 3;
    return station;
}

ReadRequest minutesOf(std::int32_t channel, int from, int to, std::int32_t interval) {
    return {channel, "", {JANUARY + from / 1440.0, JANUARY + to / 1440.0}, interval};
}

std::vector<IntervalValue> listOf(FakeFiles& files, const ReadRequest& request) {
    DataReader reader(files.opener());
    std::vector<IntervalValue> rows;
    EXPECT_EQ(reader.readList(
                  testStation(), request,
                  [&](std::span<const DateTime> starts, std::span<const double> values) {
                      for (std::size_t i = 0; i < values.size(); ++i) {
                          rows.push_back({starts[i], values[i]});
                      }
                  },
                  GO_ON),
              ReadStatus::complete);
    return rows;
}

TEST(ListReader, EveryIntervalValidOrNot) {
    FakeFiles files;
    files["X:\\Kanal04_2020.chn"].bytes =
        channelFile(std::vector<double>{2, 4, 0, 0, INVALID_VALUE, 0, 1, -1, 0, 8});
    struct Row {
        ReadRequest request;
        std::vector<double> values;
    };
    const Row rows[] = {
        {minutesOf(4, 0, 10, 2), {3, INVALID_VALUE, INVALID_VALUE, 1e-300, 8}},
        {minutesOf(4, 0, 10, 5), {3, 8.0 / 3}},
        {minutesOf(4, 1, 6, 2), {4, INVALID_VALUE, 1}},
        {minutesOf(4, 8, 300, 1), {INVALID_VALUE, 8}},
        {minutesOf(4, 10, 300, 1), {}},
        {minutesOf(4, 0, 10, 0), {}},
        {minutesOf(4, 0, 10, -1), {}},
        {minutesOf(12, 0, 10, 1), {}}, // no such file
    };
    for (const Row& row : rows) {
        const std::vector<IntervalValue> list = listOf(files, row.request);
        ASSERT_EQ(list.size(), row.values.size());
        for (std::size_t i = 0; i < list.size(); ++i) {
            EXPECT_DOUBLE_EQ(list[i].value, row.values[i]);
            EXPECT_EQ(list[i].start,
                      row.request.range.from + static_cast<double>(i) * row.request.interval / 1440.0);
        }
    }
}

TEST(ListReader, ModesOfTheChannels) {
    FakeFiles files;
    files["X:\\Kanal04_2020.chn"].bytes = channelFile(std::vector<double>{1, 3, 0, 5});
    files["X:\\Kanal05_2020.chn"].bytes = channelFile(std::vector<double>{170, 0, 90, 170});
    files["X:\\Kanal06_2020.chn"].bytes = channelFile(std::vector<double>{1, 3, 0, 5});
    files["X:\\Kanal09_2020.chn"].bytes = channelFile(std::vector<double>{1, 3, 0, 5});
    EXPECT_EQ(listOf(files, minutesOf(4, 0, 4, 4)), (std::vector<IntervalValue>{{JANUARY, 3}}));
    EXPECT_EQ(listOf(files, minutesOf(6, 0, 4, 4)), (std::vector<IntervalValue>{{JANUARY, 9}}));
    EXPECT_EQ(listOf(files, minutesOf(9, 0, 4, 4)), (std::vector<IntervalValue>{{JANUARY, 0}}));
    const std::vector<IntervalValue> wind = listOf(files, minutesOf(5, 0, 4, 4));
    ASSERT_EQ(wind.size(), 1U);
    EXPECT_NEAR(wind[0].value, 170, 1e-9);
}

TEST(ListReader, TimesOfHalfAMillionIntervals) {
    FakeFiles files;
    files["X:\\Kanal04_2020.chn"].bytes = channelFile(countedMinutes(527040));
    const std::vector<IntervalValue> list = listOf(files, minutesOf(4, 0, 0, 1));
    ASSERT_EQ(list.size(), 527040U);
    for (std::size_t i = 0; i < list.size(); ++i) {
        ASSERT_EQ(list[i].value, static_cast<double>(i + 1));
        const CalendarTime time = calendarTime(list[i].start);
        ASSERT_EQ(time.hour * 60 + time.minute, static_cast<int>(i % 1440)) << i;
        ASSERT_EQ(time.second * 1000 + time.millisecond, 0) << i;
    }
}

TEST(DiagramReader, FillsTheTableWithTheGapRules) {
    FakeFiles files;
    files["X:\\Kanal04_2020.chn"].bytes =
        channelFile(std::vector<double>{0, 9, 8, 0, 0, INVALID_VALUE, 0, 0, 6, 1});
    DataReader reader(files.opener());
    DiagramState diagram;
    ASSERT_EQ(reader.readDiagram(testStation(), minutesOf(4, 0, 10, 1), {"1 Minute", {}}, diagram, GO_ON),
              ReadStatus::complete);
    const int minutes[] = {1, 2, 3, 8, 9};
    const double values[] = {9, 8, INVALID_VALUE, 6, 1};
    ASSERT_EQ(diagram.DataCount(), 5);
    EXPECT_EQ(diagram.columnInterval(), 1 / 1440.0);
    ASSERT_EQ(seriesTable().columns(), 5U);
    for (std::size_t i = 0; i < 5; ++i) {
        EXPECT_EQ(seriesTable().row(SeriesTable::TIME)[i], JANUARY + minutes[i] / 1440.0);
        EXPECT_EQ(seriesTable().row(SeriesTable::Y1)[i], values[i]);
        EXPECT_EQ(seriesTable().row(SeriesTable::Y2)[i], INVALID_VALUE);
    }
}

TEST(DiagramReader, TellsTheBlocksThatCameNotThoseAnnounced) {
    FakeFiles files;
    files["X:\\Kanal04_2020.chn"].bytes = channelFile(countedMinutes(400));
    DataReader reader(files.opener());
    DiagramState diagram;
    reader.readDiagram(testStation(), minutesOf(4, 0, 80, 60), {}, diagram, GO_ON);
    ASSERT_EQ(diagram.DataCount(), 2);
    EXPECT_EQ(seriesTable().columns(), 2U);
    EXPECT_EQ(seriesTable().row(SeriesTable::Y1)[0], 30.5);
    EXPECT_EQ(seriesTable().row(SeriesTable::Y1)[1], 90.5);

    reader.readDiagram(testStation(), minutesOf(4, 0, 1400, 60), {}, diagram, GO_ON);
    EXPECT_EQ(diagram.DataCount(), 7);
    EXPECT_EQ(seriesTable().columns(), 7U);
}

TEST(DiagramReader, HeadlinesAndUnit) {
    FakeFiles files;
    files["X:\\Kanal04_2020.chn"].bytes = channelFile(countedMinutes(10));
    DataReader reader(files.opener());
    DiagramState diagram;
    reader.readDiagram(testStation(), minutesOf(4, 0, 10, 10), {"10 Minuten", {}}, diagram, GO_ON);
    EXPECT_EQ(diagram.HeadLine(), "Deponie Süd - Windgeschwindigkeit [m/s]");
    EXPECT_EQ(diagram.HeadLine2(), "Halle - 4711 - 10 Minuten Mittelwert");
    EXPECT_EQ(diagram.Einheit(), "m/s");
    EXPECT_EQ(firstHeadline(testStation(), 6), "Deponie Süd - Niederschlag []");
    EXPECT_EQ(firstHeadline(testStation(), 77), "Deponie Süd -  []");
    EXPECT_EQ(secondHeadline(testStation(), "1 Tag"), "Halle - 4711 - 1 Tag Mittelwert");
    EXPECT_EQ(secondHeadline(StationConfig{}, "1 Tag"), " - 1 Tag Mittelwert");
}

TEST(DiagramReader, AMissingFileLeavesNoOldCurveButHeadlines) {
    FakeFiles files;
    files["X:\\Kanal04_2020.chn"].bytes = channelFile(countedMinutes(10));
    DataReader reader(files.opener());
    for (const ReadRequest& empty :
         {minutesOf(6, 0, 10, 1), minutesOf(6, 0, 10, 0), minutesOf(6, 10, 0, 1)}) {
        DiagramState diagram;
        reader.readDiagram(testStation(), minutesOf(4, 0, 10, 1), {"1 Minute", {}}, diagram, GO_ON);
        ASSERT_EQ(diagram.DataCount(), 10);
        const DiagramSettings settings = {"1 Stunde", AuxiliaryLines{3, 4}};
        EXPECT_EQ(reader.readDiagram(testStation(), empty, settings, diagram, GO_ON), ReadStatus::complete);
        EXPECT_EQ(diagram.DataCount(), 0);
        EXPECT_EQ(seriesTable().columns(), 1U);
        EXPECT_EQ(diagram.HeadLine(), "Deponie Süd - Niederschlag []");
        EXPECT_EQ(diagram.HeadLine2(), "Halle - 4711 - 1 Stunde Mittelwert");
        EXPECT_EQ(diagram.Einheit(), "");
        EXPECT_EQ(diagram.Hilfslinie1(), 3);
        EXPECT_EQ(diagram.Hilfslinie2(), 4);
    }
}

TEST(DiagramReader, AuxiliaryLines) {
    struct Row {
        std::optional<AuxiliaryLines> requested;
        double first, second;
    };
    const Row rows[] = {
        {{}, 11, 12}, // not requested: unchanged
        {AuxiliaryLines{5, -7.5}, 5, -7.5},
        {AuxiliaryLines{0, 123456789}, 1e-300, 99999900},
        {AuxiliaryLines{-123456789, 99999900}, 99999900, 99999900},
        {AuxiliaryLines{99999899, -99999899}, 99999899, -99999899},
    };
    FakeFiles files;
    files["X:\\Kanal04_2020.chn"].bytes = channelFile(countedMinutes(10));
    DataReader reader(files.opener());
    for (const Row& row : rows) {
        DiagramState diagram;
        diagram.setHilfslinie1(11);
        diagram.setHilfslinie2(12);
        reader.readDiagram(testStation(), minutesOf(4, 0, 10, 1), {"", row.requested}, diagram, GO_ON);
        EXPECT_EQ(diagram.Hilfslinie1(), row.first);
        EXPECT_EQ(diagram.Hilfslinie2(), row.second);
    }
}

TEST(DiagramReader, AFileThatFailsInTheMiddleGivesWhatCame) {
    FakeFiles files;
    files["X:\\Kanal04_2020.chn"].bytes = channelFile(countedMinutes(200));
    files["X:\\Kanal04_2020.chn"].failsAt = 1024 + 8 * 100 + 3;
    DataReader reader(files.opener());
    DiagramState diagram;
    EXPECT_EQ(reader.readDiagram(testStation(), minutesOf(4, 0, 200, 1), {}, diagram, GO_ON),
              ReadStatus::complete);
    // A gap column may follow the last value.
    ASSERT_GE(diagram.DataCount(), 100);
    ASSERT_LE(diagram.DataCount(), 101);
    EXPECT_EQ(seriesTable().row(SeriesTable::Y1)[99], 100);
    if (diagram.DataCount() == 101) {
        EXPECT_EQ(seriesTable().row(SeriesTable::Y1)[100], INVALID_VALUE);
    }
}

TEST(DiagramReader, AnErrorWhileReadingIsTrapped) {
    FakeFiles files;
    files["X:\\Kanal04_2020.chn"].bytes = channelFile(countedMinutes(527040));
    files["X:\\Kanal04_2020.chn"].failsAt = 1024 + 8 * 400000;
    files["X:\\Kanal04_2020.chn"].throws = true;
    DataReader reader(files.opener());
    DiagramState diagram;
    EXPECT_EQ(reader.readDiagram(testStation(), minutesOf(4, 0, 0, 1), {}, diagram, GO_ON),
              ReadStatus::complete);
    // The pieces before stay.
    ASSERT_GT(diagram.DataCount(), 0);
    ASSERT_LE(diagram.DataCount(), 400000);
    const auto count = static_cast<std::size_t>(diagram.DataCount());
    EXPECT_EQ(seriesTable().columns(), count);
    EXPECT_EQ(seriesTable().row(SeriesTable::Y1)[count - 1], static_cast<double>(count));
    // The reader is as good as new.
    files["X:\\Kanal04_2020.chn"].throws = false;
    reader.readDiagram(testStation(), minutesOf(4, 0, 100, 1), {}, diagram, GO_ON);
    EXPECT_EQ(diagram.DataCount(), 100);
}

} // namespace
} // namespace kelvrum
