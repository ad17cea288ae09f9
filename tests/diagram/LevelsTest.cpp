// SPDX-License-Identifier: GPL-3.0-or-later
// Limit lines and the mean line.
#include "diagram/LineDiagram.h"

#include "tests/diagram/TestDiagram.h"
#include "tests/testing/TestSurface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelvrum {
namespace {

using kelvrum::testing::Column;
using kelvrum::testing::DAY;
using kelvrum::testing::fillSeries;
using kelvrum::testing::TestDiagram;
using kelvrum::testing::TestSurface;

/// The y of all lines over the whole plot, of a diagram from low to high; a plot of 100 dots ends at 150.
std::vector<int> levelsOf(TestDiagram& diagram, double low, double high) {
    diagram.setXLow(DAY);
    diagram.setXHigh(DAY + 1);
    diagram.setY1Low(low);
    diagram.setY1High(high);
    TestSurface surface({310, 190});
    drawLineDiagram(surface, diagram, DiagramLayout(), {});
    return surface.levels();
}

TEST(LimitLines, AreDrawnWithinTheRangeUnlessZero) {
    const struct {
        const char* what;
        double low, high, line1, line2;
        std::vector<int> levels;
    } rows[] = {
        {"none", 0, 100, 0, 0, {}},
        {"both", 0, 100, 20, 70, {130, 80}},
        {"only the second", 0, 100, 0, 70, {80}},
        {"a measured zero is not 0", 0, 100, 1e-300, 0, {150}},
        {"at the ends", 0, 100, 1e-300, 100, {150, 50}},
        {"outside", 0, 100, -0.001, 100.001, {}},
        {"0 within the range", -50, 50, 0, 0, {}},
        {"negative", -50, 50, -25, 25, {125, 75}},
        {"low end of a range", 10, 110, 10, 9.999, {150}},
        {"zero height is widened", 10, 10, 60, 111, {100}},
        {"upside down has no inside", 100, 0, 50, 0, {}},
        {"not a number", 0, 100, std::numeric_limits<double>::quiet_NaN(), 0, {}},
        {"infinite", 0, 100, std::numeric_limits<double>::infinity(), 0, {}},
    };
    for (const auto& row : rows) {
        TestDiagram diagram;
        diagram.setHilfslinie1(row.line1);
        diagram.setHilfslinie2(row.line2);
        EXPECT_EQ(levelsOf(diagram, row.low, row.high), row.levels) << row.what;
    }
}

TEST(LimitLines, FollowTheAutomaticRange) {
    TestDiagram diagram;
    diagram.setHilfslinie1(15);
    diagram.setHilfslinie2(9.4);
    fillSeries(diagram, {{DAY, 10}, {DAY + 0.5, 20}});
    EXPECT_EQ(levelsOf(diagram, AUTOMATIC_RANGE, AUTOMATIC_RANGE), std::vector<int>{100});
}

TEST(MeanLine, IsTheMeanOfValidValuesOtherThanZero) {
    const struct {
        const char* what;
        std::vector<double> values;
        std::vector<int> levels;
    } rows[] = {
        {"no values", {}, {}},
        {"only zeros", {0, 0, 0}, {}},
        {"only gaps", {999999, -999999}, {}},
        {"one", {30}, {120}},
        {"zeros and gaps do not count", {10, 0, 999999, 30}, {130}},
        {"measured zeros count", {1e-300, 20}, {140}},
    };
    for (const auto& row : rows) {
        for (const std::int32_t kind : {0, 2, 3, 4}) {
            for (const bool shown : {false, true}) {
                TestDiagram diagram;
                diagram.setDiagTyp(kind);
                diagram.setShowMittel(shown);
                std::vector<Column> columns;
                for (const double v : row.values) {
                    columns.push_back({DAY + static_cast<double>(columns.size()) / 24, v});
                }
                fillSeries(diagram, columns);
                diagram.SetArray(static_cast<std::int32_t>(columns.size()));
                EXPECT_EQ(levelsOf(diagram, 0, 100), shown ? row.levels : std::vector<int>()) << row.what;
            }
        }
    }
}

TEST(MeanLine, RunsOverAllColumnsWhateverTheRange) {
    TestDiagram diagram;
    diagram.setShowMittel(true);
    fillSeries(diagram, {{DAY - 5, 10}, {DAY + 0.5, 20}, {DAY + 50, 60}});
    EXPECT_EQ(levelsOf(diagram, 0, 100), std::vector<int>{120});
}

TEST(Levels, ThereAreNoneWithoutATimeSpan) {
    TestDiagram diagram;
    diagram.setXLow(DAY);
    diagram.setXHigh(DAY);
    diagram.setHilfslinie1(50);
    diagram.setShowMittel(true);
    fillSeries(diagram, {{DAY, 10}});
    TestSurface surface({310, 190});
    drawLineDiagram(surface, diagram, DiagramLayout(), {});
    EXPECT_TRUE(surface.levels().empty());
}

} // namespace
} // namespace kelvrum
