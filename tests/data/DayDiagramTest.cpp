// SPDX-License-Identifier: GPL-3.0-or-later
// The diagram of day files: one pass for narrow records, three for wide ones.
#include "data/DataReader.h"
#include "diagram/DiagramState.h"

#include "tests/testing/TempFolder.h"

#include <gtest/gtest.h>

namespace kelvrum {
namespace {

using kelvrum::testing::dayRecord;
using kelvrum::testing::TempFolder;
using Floats = std::vector<float>;

const DateTime DAY = dateSerial(2020, 6, 18);
const ReadingStep GO_ON = [] { return true; };

StationConfig testStation(const TempFolder& folder, bool wide) {
    StationConfig station;
    station.Kind = ConfigKind::binary;
    station.BaseFolder = folder.base();
    station.Title = "Halde";
    station.ActiveChannels = {2};
    station.ChannelTable.grow(2).Mode = MODE_MEAN;
    station.ChannelTable.grow(2).Name = "Staub";
    station.ChannelTable.setCount(1);
    station.WideRecords = wide;
    return station;
}

std::string narrow(int minute, float value) { return dayRecord(2020, 6, 18, minute, Floats{value}); }

std::string wide(int minute, float mean, float minimum, float maximum) {
    return dayRecord(2020, 6, 18, minute, Floats{mean, minimum, maximum});
}

ReadRequest minutesOf(int from, int to, std::int32_t interval) {
    return {2, "", {DAY + from / 1440.0, DAY + to / 1440.0}, interval};
}

/// A column: minute of the day and value.
struct Column {
    double minute;
    double value;
};

void expectSeries(const DiagramState& diagram, const std::vector<Column>& expected) {
    ASSERT_EQ(diagram.DataCount(), static_cast<int>(expected.size()));
    ASSERT_EQ(seriesTable().columns(), std::max<std::size_t>(expected.size(), 1));
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_NEAR(seriesTable().row(SeriesTable::TIME)[i], DAY + expected[i].minute / 1440.0, 1e-9) << i;
        EXPECT_DOUBLE_EQ(seriesTable().row(SeriesTable::Y1)[i], expected[i].value) << i;
        EXPECT_EQ(seriesTable().row(SeriesTable::Y2)[i], INVALID_VALUE) << i;
    }
}

TEST(DayDiagram, NarrowIsOnePassWithGaps) {
    const TempFolder folder;
    folder.write("20200618.KMH", narrow(10, 1) + narrow(11, 3) + narrow(20, 4) + narrow(30, 0) +
                                     narrow(70, 6) + narrow(80, 7));
    DataReader reader;
    DiagramState diagram;
    struct Row {
        const char* what;
        int from, to;
        std::vector<Column> columns;
    };
    const Row rows[] = {
        {"gap at the first missing interval, also at the end",
         0,
         120,
         {{10, 2}, {20, 4}, {30, INVALID_VALUE}, {70, 6}, {80, 7}, {90, INVALID_VALUE}}},
        {"ends with a value", 0, 90, {{10, 2}, {20, 4}, {30, INVALID_VALUE}, {70, 6}, {80, 7}}},
        {"leading ones leave none", 40, 80, {{70, 6}}},
        {"only missing ones", 30, 70, {}},
        {"empty", 50, 50, {}},
        {"reversed", 90, 0, {}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        EXPECT_EQ(reader.readDayDiagram(testStation(folder, false), minutesOf(row.from, row.to, 10),
                                        {"10 Minuten", {}}, diagram, GO_ON),
                  ReadStatus::complete);
        expectSeries(diagram, row.columns);
        EXPECT_EQ(diagram.columnInterval(), 10 / 1440.0);
    }
}

TEST(DayDiagram, WideIsThreePassesOneAfterTheOther) {
    const TempFolder folder;
    folder.write("20200618.KMH",
                 wide(0, 4, 2, 9) + wide(1, 6, 3, 7) + wide(10, 5, 0, 8) + wide(30, 0, -1, 0));
    DataReader reader;
    DiagramState diagram;
    EXPECT_EQ(reader.readDayDiagram(testStation(folder, true), minutesOf(0, 40, 10), {"10 Minuten", {}},
                                    diagram, GO_ON),
              ReadStatus::complete);
    expectSeries(diagram, {{0, 5},
                           {10, 5},
                           {20, INVALID_VALUE},
                           // minima
                           {0, 2},
                           {10, INVALID_VALUE},
                           {30, -1},
                           // maxima
                           {0, 9},
                           {10, 8},
                           {20, INVALID_VALUE}});
}

TEST(DayDiagram, TheGapRulesStartAnewWithEachPass) {
    const TempFolder folder;
    // The means end with a value, the minima start with missing intervals: no gap separates the passes.
    folder.write("20200618.KMH", wide(0, 1, 0, 0) + wide(10, 2, 0, 0) + wide(20, 3, 7, 8));
    DataReader reader;
    DiagramState diagram;
    reader.readDayDiagram(testStation(folder, true), minutesOf(0, 30, 10), {}, diagram, GO_ON);
    expectSeries(diagram, {{0, 1}, {10, 2}, {20, 3}, {20, 7}, {20, 8}});
}

TEST(DayDiagram, HeadlinesUnitLinesAndNoFile) {
    const TempFolder folder;
    DataReader reader;
    DiagramState diagram;
    diagram.setEinheit("alt");
    diagram.setHilfslinie1(11);
    diagram.setHilfslinie2(12);
    diagram.SetArray(1);
    EXPECT_EQ(reader.readDayDiagram(testStation(folder, false), minutesOf(0, 30, 10), {"1 Tag", {}}, diagram,
                                    GO_ON),
              ReadStatus::complete);
    expectSeries(diagram, {});
    EXPECT_EQ(diagram.HeadLine(), "Halde - Staub []");
    EXPECT_EQ(diagram.HeadLine2(), " - 1 Tag Mittelwert");
    EXPECT_EQ(diagram.Einheit(), "");
    EXPECT_EQ(diagram.Hilfslinie1(), 11);
    EXPECT_EQ(diagram.Hilfslinie2(), 12);
    reader.readDayDiagram(testStation(folder, false), minutesOf(0, 30, 10),
                          {"", AuxiliaryLines{0, 123456789}}, diagram, GO_ON);
    EXPECT_EQ(diagram.Hilfslinie1(), 1e-300);
    EXPECT_EQ(diagram.Hilfslinie2(), 99999900);
}

class NestedDayDiagram : public ::testing::Test {
  protected:
    NestedDayDiagram() {
        for (int day = 18; day < 24; ++day) {
            folder.write("202006" + std::to_string(day) + ".KMH",
                         dayRecord(2020, 6, day, 600, Floats{static_cast<float>(day)}));
        }
    }
    static ReadRequest days(int from, int to) { return {2, "", {DAY + from, DAY + to}, 1440}; }

    TempFolder folder;
    StationConfig station = testStation(folder, false);
    DataReader reader;
    DiagramState diagram;
};

TEST_F(NestedDayDiagram, GivingUpLeavesNoCount) {
    reader.readDayDiagram(station, days(0, 2), {}, diagram, GO_ON);
    ASSERT_EQ(diagram.DataCount(), 2);
    EXPECT_EQ(reader.readDayDiagram(station, days(0, 5), {}, diagram, [] { return false; }),
              ReadStatus::givenUp);
    EXPECT_EQ(diagram.DataCount(), 0);
}

TEST_F(NestedDayDiagram, TheInnerOneWins) {
    for (const int when : {1, 2, 3}) {
        int steps = 0;
        const ReadingStep nest = [&] {
            if (++steps < when) {
                return true;
            }
            EXPECT_EQ(reader.readDayDiagram(station, days(3, 5), {"innen", {}}, diagram, GO_ON),
                      ReadStatus::complete);
            return false;
        };
        EXPECT_EQ(reader.readDayDiagram(station, days(0, 6), {"aussen", {}}, diagram, nest),
                  ReadStatus::givenUp);
        expectSeries(diagram, {{3 * 1440, 21}, {4 * 1440, 22}});
        EXPECT_EQ(diagram.HeadLine2(), " - innen Mittelwert");
    }
}

} // namespace
} // namespace kelvrum
