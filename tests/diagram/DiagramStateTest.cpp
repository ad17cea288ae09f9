// SPDX-License-Identifier: GPL-3.0-or-later
// The two data stores of the diagram control and the folding of angles.
#include "tests/diagram/TestDiagram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <stdexcept>

namespace kelvrum {
namespace {

using kelvrum::testing::fillSeries;
using kelvrum::testing::TestDiagram;
using ::testing::DoubleNear;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

std::vector<double> rowOf(SeriesTable::Row row) {
    const auto values = std::as_const(seriesTable()).row(row);
    return {values.begin(), values.end()};
}

TEST(DiagramProperties, AreKeptAndPutBackWhole) {
    TestDiagram diagram;
    EXPECT_EQ(diagram.properties(), DiagramProperties());
    diagram.setHeadLine("Titel");
    diagram.setY1Low(-5);
    diagram.setEnabledState(false);
    const DiagramProperties kept = diagram.properties();
    EXPECT_EQ(kept.HeadLine, "Titel");
    EXPECT_EQ(kept.Y1Low, -5);
    EXPECT_FALSE(kept.Enabled);
    diagram.initialise();
    EXPECT_EQ(diagram.properties(), DiagramProperties());
    diagram.setProperties(kept);
    EXPECT_EQ(diagram.properties(), kept);
    EXPECT_FALSE(diagram.Enabled());
}

TEST(SeriesTable, StartsWithOneColumnOfZeros) {
    const SeriesTable table;
    EXPECT_EQ(table.columns(), 1U);
    EXPECT_THAT(table.row(SeriesTable::TIME), ElementsAre(0));
    EXPECT_THAT(table.row(SeriesTable::Y1), ElementsAre(0));
    EXPECT_THAT(table.row(SeriesTable::Y2), ElementsAre(0));
}

TEST(SeriesTable, ResizingKeepsWhatStaysAndFillsWithZeros) {
    SeriesTable table;
    table.set(0, 1, 2, 3);
    table.resize(3);
    table.set(2, 4, 5, 6);
    EXPECT_THAT(table.row(SeriesTable::TIME), ElementsAre(1, 0, 4));
    EXPECT_THAT(table.row(SeriesTable::Y1), ElementsAre(2, 0, 5));
    EXPECT_THAT(table.row(SeriesTable::Y2), ElementsAre(3, 0, 6));
    table.resize(0);
    EXPECT_EQ(table.columns(), 1U);
    table.resize(3);
    EXPECT_THAT(table.row(SeriesTable::Y1), ElementsAre(2, 0, 0)) << "old contents may not come back";
    table.clear();
    EXPECT_EQ(table.columns(), 1U);
    EXPECT_THAT(table.row(SeriesTable::Y1), ElementsAre(0));
}

TEST(Series, SetArrayOnlySetsTheCounts) {
    TestDiagram diagram;
    fillSeries(diagram, {{1, 2, 3}, {4, 5, 6}});
    diagram.take();
    diagram.SetArray(5);
    EXPECT_EQ(diagram.DataCount(), 5);
    EXPECT_EQ(diagram.DataIndex(), 4);
    EXPECT_THAT(rowOf(SeriesTable::TIME), ElementsAre(1, 4));
    diagram.SetArray(0);
    EXPECT_EQ(diagram.DataCount(), 0);
    EXPECT_EQ(diagram.DataIndex(), -1);
    EXPECT_EQ(seriesTable().columns(), 2U);
    EXPECT_THAT(diagram.events, IsEmpty());
}

TEST(Series, AddDataAppendsOrSetsAColumn) {
    TestDiagram diagram;
    diagram.AddData(10, 1.5, 2.5);
    EXPECT_EQ(diagram.DataCount(), 1);
    EXPECT_EQ(diagram.DataIndex(), 0);
    EXPECT_EQ(seriesTable().columns(), 1U);
    diagram.AddData(11, 3);
    diagram.AddData(12, 4, 0);
    EXPECT_EQ(diagram.DataCount(), 3);
    EXPECT_EQ(diagram.DataIndex(), 2);
    diagram.AddData(13, 5, {}, 0);
    EXPECT_EQ(diagram.DataCount(), 3);
    EXPECT_EQ(diagram.DataIndex(), 0);
    EXPECT_THAT(rowOf(SeriesTable::TIME), ElementsAre(13, 11, 12));
    EXPECT_THAT(rowOf(SeriesTable::Y1), ElementsAre(5, 3, 4));
    EXPECT_THAT(rowOf(SeriesTable::Y2), ElementsAre(999999, 999999, 0)) << "a missing Y2 is marked";
    EXPECT_THAT(diagram.events, IsEmpty());
}

TEST(Series, AddDataGrowsToTheCountThatSetArrayGave) {
    TestDiagram diagram;
    diagram.SetArray(3);
    diagram.AddData(7, 8, 9);
    EXPECT_EQ(diagram.DataCount(), 4);
    EXPECT_EQ(diagram.DataIndex(), 3);
    EXPECT_THAT(rowOf(SeriesTable::TIME), ElementsAre(0, 0, 0, 7));
}

TEST(Series, AddDataToAMissingColumnWritesNothing) {
    for (const std::int32_t bad : {-1, 2, 3, 2147483647, std::numeric_limits<std::int32_t>::min()}) {
        SCOPED_TRACE(bad);
        TestDiagram diagram;
        fillSeries(diagram, {{1, 2, 3}, {4, 5, 6}});
        EXPECT_THROW(diagram.AddData(7, 8, 9, bad), std::out_of_range);
        EXPECT_EQ(diagram.DataCount(), 2);
        EXPECT_EQ(diagram.DataIndex(), 1);
        EXPECT_THAT(rowOf(SeriesTable::TIME), ElementsAre(1, 4));
        EXPECT_THAT(rowOf(SeriesTable::Y1), ElementsAre(2, 5));
        EXPECT_THAT(rowOf(SeriesTable::Y2), ElementsAre(3, 6));
    }
}

TEST(Series, AllControlsShareOneTable) {
    TestDiagram one;
    TestDiagram other;
    one.AddData(1, 2, 3);
    one.AddData(4, 5, 6);
    EXPECT_EQ(other.DataCount(), 0) << "the use count is each control's own";
    other.Clear();
    EXPECT_EQ(seriesTable().columns(), 1U);
    EXPECT_THAT(rowOf(SeriesTable::TIME), ElementsAre(0));
    EXPECT_EQ(one.DataCount(), 2);
}

TEST(PolarLists, AddItemAppendsOrSetsAnElement) {
    TestDiagram diagram;
    EXPECT_THAT(diagram.speedList(), ElementsAre(0)) << "one element, none of them in use";
    EXPECT_THAT(diagram.directionList(), ElementsAre(0));
    diagram.AddItem(3, 0.5);
    EXPECT_EQ(diagram.ListCount(), 1);
    EXPECT_EQ(diagram.ListIndex(), 0);
    diagram.AddItem(4);
    diagram.AddItem(5, 1.5, 0);
    EXPECT_EQ(diagram.ListCount(), 2);
    EXPECT_EQ(diagram.sampleCount(), 2);
    EXPECT_EQ(diagram.ListIndex(), 0);
    diagram.AddItem(6, {}, 0);
    EXPECT_THAT(diagram.speedList(), ElementsAre(6, 4));
    EXPECT_THAT(diagram.directionList(), ElementsAre(1.5, 0)) << "without Richtung the direction stays";
    EXPECT_THAT(diagram.events, ElementsAre("repaint", "repaint", "repaint", "repaint"));
    EXPECT_EQ(diagram.speed(1), 4);
    diagram.setSpeed(1, -8);
    EXPECT_EQ(diagram.speed(1), -8);
}

TEST(PolarLists, AMissingElementIsAnErrorAndNothingIsWritten) {
    for (const std::int16_t bad : std::initializer_list<std::int16_t>{-1, 2, 32767, -32768}) {
        SCOPED_TRACE(bad);
        TestDiagram diagram;
        diagram.AddItem(3, 0.5);
        diagram.AddItem(4, 0.75);
        diagram.take();
        EXPECT_THROW((void)diagram.speed(bad), std::out_of_range);
        EXPECT_THROW((void)diagram.Direction(bad), std::out_of_range);
        EXPECT_THROW(diagram.setSpeed(bad, 9), std::out_of_range);
        EXPECT_THROW(diagram.setDirection(bad, 9), std::out_of_range);
        EXPECT_THROW(diagram.AddItem(9, 9.0, bad), std::out_of_range);
        EXPECT_THAT(diagram.speedList(), ElementsAre(3, 4));
        EXPECT_THAT(diagram.directionList(), ElementsAre(0.5, 0.75));
        EXPECT_EQ(diagram.ListCount(), 2);
        EXPECT_EQ(diagram.ListIndex(), 1);
        EXPECT_THAT(diagram.events, IsEmpty());
    }
}

TEST(PolarLists, CountAndIndexOverflowBeyond16Bits) {
    TestDiagram diagram;
    for (int i = 0; i < 32767; ++i) {
        diagram.AddItem(i);
    }
    EXPECT_EQ(diagram.ListCount(), 32767);
    EXPECT_EQ(diagram.ListIndex(), 32766);
    diagram.AddItem(1);
    EXPECT_THROW((void)diagram.ListCount(), std::overflow_error);
    EXPECT_EQ(diagram.ListIndex(), 32767);
    diagram.AddItem(2);
    EXPECT_THROW((void)diagram.ListCount(), std::overflow_error);
    EXPECT_THROW((void)diagram.ListIndex(), std::overflow_error);
    EXPECT_EQ(diagram.sampleCount(), 32769);
    EXPECT_EQ(diagram.speedList().size(), 32769U);
    diagram.Clear();
    EXPECT_EQ(diagram.ListCount(), 0);
}

TEST(Clear, EmptiesBothStoresAndRequestsARepaint) {
    TestDiagram diagram;
    fillSeries(diagram, {{1, 2, 3}, {4, 5, 6}});
    diagram.AddItem(3, 0.5);
    diagram.AddItem(4, 0.75);
    diagram.setY1High(7);
    diagram.setHeadLine("bleibt");
    diagram.take();
    diagram.Clear();
    EXPECT_THAT(diagram.speedList(), ElementsAre(0));
    EXPECT_THAT(diagram.directionList(), ElementsAre(0));
    EXPECT_EQ(diagram.ListIndex(), -1);
    EXPECT_EQ(diagram.ListCount(), 0);
    EXPECT_EQ(diagram.DataIndex(), -1);
    EXPECT_EQ(diagram.DataCount(), 0);
    EXPECT_THAT(rowOf(SeriesTable::TIME), ElementsAre(0));
    EXPECT_THAT(rowOf(SeriesTable::Y1), ElementsAre(0));
    EXPECT_THAT(rowOf(SeriesTable::Y2), ElementsAre(0));
    EXPECT_THAT(diagram.events, ElementsAre("repaint"));
    EXPECT_EQ(diagram.Y1High(), 7);
    EXPECT_EQ(diagram.HeadLine(), "bleibt");
}

struct FoldCase {
    double angle;
    double folded;
};
const FoldCase FOLDS[] = {
    {-0.5, 5.78318530717959},
    {6.28318530717959, 0},
    {-6.28318530717959, 0},
    {0, 0},
    {7, 0.71681469282041},
    {-7, 5.56637061435918},
    {12.5663706143592, 0}, // two turns, within rounding
    {100, 5.75222039230620},
    {-100, 0.53096491487339},
    {-1e-17, 0},
    {-5e-324, 0},
    {INF, 0},
    {-INF, 0},
    {NOT_A_NUMBER, 0},
};

TEST(NormWinkel, FoldsIntoOneTurn) {
    for (const auto& [angle, folded] : FOLDS) {
        EXPECT_THAT(DiagramState::NormWinkel(angle), DoubleNear(folded, 1e-11)) << angle;
    }
}

TEST(NormWinkel, LeavesWhatIsInRange) {
    for (const double angle : {0.0, 5e-324, 1e-17, 0.1, 3.14159265358979, std::nextafter(TWO_PI, 0)}) {
        EXPECT_EQ(DiagramState::NormWinkel(angle), angle);
    }
}

TEST(NormWinkel, AlwaysEndsWithinTheRange) {
    for (const double magnitude : {1e-320, 1e-15, 6.2831853071795, 6.28318530717959, 6.2831853071796, 1e3,
                                   1e9, 1e17, 1e100, 1e300, 1.7976931348623157e308}) {
        for (const double angle : {magnitude, -magnitude}) {
            const double folded = DiagramState::NormWinkel(angle);
            EXPECT_GE(folded, 0) << angle;
            EXPECT_LT(folded, TWO_PI) << angle;
        }
    }
}

} // namespace
} // namespace kelvrum
