// SPDX-License-Identifier: GPL-3.0-or-later
// What is left of a long series on a surface.
#include "diagram/ReducedCurve.h"

#include "tests/testing/ShowDots.h"
#include "tests/testing/TestSurface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <vector>

namespace kelvrum {
namespace {

using kelvrum::testing::TestSurface;
using ::testing::ElementsAre;

/// A day over 240 dots, so that an hour has 10, and a height of 100 dots that ends at y = 150.
PlotArea dayPlot() { return {DiagramLayout(), {310, 190}, 1, {0, 1}}; }

TEST(ReducedCurve, DrawsNoMoreThanTheDotsCanShow) {
    TestSurface surface({310, 190});
    const std::vector<Colour> colours = {GREEN, BLUE, RED};
    std::vector<double> times;
    std::vector<double> values;
    for (int i = 0; i < 1000000; ++i) {
        times.push_back(i / 1e6);
        values.push_back(i % 9973 == 0 ? 999999 : 50 + 40 * std::sin(i * 0.37));
    }
    const PlotArea plot = dayPlot();
    EXPECT_EQ(
        drawCurve(surface, {times, values, plot, plot.scaleOf({0, 100}), isAscending(times)}, false, colours),
        1);
    EXPECT_GT(surface.drawnLines().size(), 240U);
    EXPECT_LE(surface.drawnLines().size(), 4U * 310U);
    for (const auto& line : surface.drawnLines()) {
        EXPECT_EQ(line.pen, GREEN);
    }
}

TEST(ReducedBars, ThoseThatBeginOnOneDotKeepTheirOwnEnds) {
    TestSurface surface({310, 190});
    const std::vector<Colour> colours = {GREEN, BLUE, RED};
    const std::vector<double> times = {0, 0.0019}; // both on the dot of the left axis
    const std::vector<double> values = {50, 80};
    const PlotArea plot = dayPlot();
    const double interval = 0.0055; // 1.3 dots
    EXPECT_EQ(drawBars(surface, {times, values, plot, plot.scaleOf({0, 100}), isAscending(times)}, interval,
                       colours),
              1);
    EXPECT_THAT(surface.boxesOf(GREEN), ElementsAre(Box{40, 70, 42, 150}));
}

/// Each second value is missing: a square for each of the others, those of a column as one box where they
/// touch.
TEST(ReducedCurve, LoneValuesOfAColumnShareTheirBoxes) {
    TestSurface surface({310, 190});
    const std::vector<Colour> colours = {GREEN, BLUE, RED};
    std::vector<double> times;
    std::vector<double> values;
    for (int i = 0; i < 1000000; ++i) {
        times.push_back(i / 1e6);
        values.push_back(i % 2 == 0 ? 50 + 40 * std::sin(i * 0.37) : 999999);
    }
    const PlotArea plot = dayPlot();
    drawCurve(surface, {times, values, plot, plot.scaleOf({0, 100}), true, true, 3}, false, colours);
    EXPECT_TRUE(surface.drawnLines().empty());
    EXPECT_EQ(surface.boxesOf(GREEN).size(), 241U);
}

TEST(Ascend, HoldsForEqualTimesAndNotForNoTime) {
    const double nan = std::numeric_limits<double>::quiet_NaN();
    EXPECT_TRUE(isAscending({}));
    EXPECT_TRUE(isAscending(std::vector<double>{3}));
    EXPECT_TRUE(isAscending(std::vector<double>{3, 3, 4}));
    EXPECT_FALSE(isAscending(std::vector<double>{3, 4, 3.999}));
    EXPECT_FALSE(isAscending(std::vector<double>{3, nan, 4}));
    std::vector<double> pieces(3000, 1);
    EXPECT_TRUE(isAscending(pieces));
    pieces[1025] = 0;
    EXPECT_FALSE(isAscending(pieces));
}

TEST(ReducedCurve, EachPassHasItsPen) {
    TestSurface surface({310, 190});
    const std::vector<Colour> colours = {GREEN, BLUE, RED};
    ReducedCurve curve(surface, colours, dayPlot().clip(), 3);
    const Dot sloped[] = {{50, 100}, {60, 90}};
    const Dot lone[] = {{70, 80}};
    const Dot upright[] = {{80, 70}, {80, 75}};
    const Dot overlapping[] = {{80, 72}, {80, 79}};
    curve.run(sloped);
    curve.pass(1);
    curve.run(lone);
    curve.pass(2);
    curve.run(upright);
    curve.run(overlapping);
    curve.finish();
    EXPECT_THAT(surface.linesOf(GREEN), ::testing::Contains(Segment{{50, 100}, {60, 90}}));
    EXPECT_THAT(surface.boxesOf(BLUE), ElementsAre(Box{69, 79, 72, 82}));
    EXPECT_THAT(surface.linesOf(RED), ElementsAre(Segment{{80, 70}, {80, 79}}));
}

} // namespace
} // namespace kelvrum
