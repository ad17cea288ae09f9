// SPDX-License-Identifier: GPL-3.0-or-later
// From values to axes: statistics, ranges, steps, ticks and label formats.
#include "diagram/LineScale.h"

#include "tests/diagram/TestDiagram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kelvrum {
namespace {

using kelvrum::testing::TestDiagram;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();

TEST(ValidPoint, MagnitudesBelowTheMarkerCount) {
    for (const double v : {0.0, 1e-300, -1e-300, 999998.9999, -999998.9999}) {
        EXPECT_TRUE(isValidPoint(v)) << v;
    }
    for (const double v : {999999.0, -999999.0, 99999900.0, -99999900.0, 1e300, INF, -INF, NOT_A_NUMBER}) {
        EXPECT_FALSE(isValidPoint(v)) << v;
    }
}

struct ScanCase {
    std::vector<double> values;
    SeriesScan scan;
};
const ScanCase SCANS[] = {
    {{}, {-9999999, 9999999, 0, 0}},
    {{0, 0, -0.0}, {-9999999, 9999999, 0, 0}},
    {{999999, -999999, NOT_A_NUMBER, INF}, {-9999999, 9999999, 0, 0}},
    {{10, 0, 20, 999999, 15}, {20, 10, 45, 3}},
    {{-3}, {-3, -3, -3, 1}},
    {{1e-300}, {1e-300, 1e-300, 1e-300, 1}}, // a measured zero counts
};

TEST(Scan, SkipsGapsAndZeros) {
    for (const auto& [values, expected] : SCANS) {
        const SeriesScan scan = scanSeries(values);
        EXPECT_EQ(scan.maximum, expected.maximum);
        EXPECT_EQ(scan.minimum, expected.minimum);
        EXPECT_EQ(scan.sum, expected.sum);
        EXPECT_EQ(scan.count, expected.count);
    }
}

struct LeftCase {
    const char* what;
    std::int32_t kind;
    double y1Low, y1High, minLow;
    std::vector<double> values;
    double low, high;
};
constexpr double AUTO = 100000005;
const LeftCase LEFT_RANGES[] = {
    {"automatic", 0, AUTO, AUTO, 0, {10, 20}, 9.5, 20.5},
    {"precipitation starts at 0", 2, AUTO, AUTO, 0, {10, 20}, 0, 21},
    {"directions", 3, AUTO, AUTO, 0, {10, 20}, 9.5, 20.5},
    {"kind 4", 4, AUTO, AUTO, 0, {10, 20}, 9.5, 20.5},
    {"gaps and zeros do not count", 0, AUTO, AUTO, 0, {0, 10, 999999, 20, -999999, 0}, 9.5, 20.5},
    {"raised to Y1MinLow", 0, AUTO, AUTO, 10, {10, 12}, 9.5, 20.5},
    {"height above Y1MinLow", 0, AUTO, AUTO, 9, {10, 20}, 9.5, 20.5},
    {"precipitation raised to Y1MinLow", 2, AUTO, AUTO, 10, {1, 2}, 0, 10.5},
    {"one value", 0, AUTO, AUTO, 0, {5}, 5, 105},
    {"one value with Y1MinLow", 0, AUTO, AUTO, 10, {5}, 4.5, 15.5},
    {"negative values", 0, AUTO, AUTO, 0, {-20, -10}, -20.5, -9.5},
    {"negative precipitation", 2, AUTO, AUTO, 0, {-5}, 0, 100},
    {"nothing counted", 0, AUTO, AUTO, 0, {}, 0, 100},
    {"only zeros", 2, AUTO, AUTO, 0, {0, 0}, 0, 100},
    {"as given, no margins", 0, -5, 5, 50, {10, 20}, -5, 5},
    {"only one marker", 0, AUTO, 5, 0, {10, 20}, AUTO, 5},
    {"only the other marker", 0, 5, AUTO, 0, {10, 20}, 5, AUTO},
    {"inverted as given", 0, 100, 0, 0, {10, 20}, 100, 0},
    {"zero height", 0, 7, 7, 0, {10, 20}, 7, 107},
    {"huge", 0, -1e300, 1e300, 0, {10}, -1e300, 1e300},
};

TEST(LeftRange, IsGivenOrFollowsTheData) {
    for (const LeftCase& c : LEFT_RANGES) {
        TestDiagram diagram;
        diagram.setDiagTyp(c.kind);
        diagram.setY1Low(c.y1Low);
        diagram.setY1High(c.y1High);
        diagram.setY1MinLow(c.minLow);
        const ValueRange range = leftRange(diagram.properties(), scanSeries(c.values));
        EXPECT_DOUBLE_EQ(range.low, c.low) << c.what;
        EXPECT_DOUBLE_EQ(range.high, c.high) << c.what;
        EXPECT_EQ(diagram.Y1Low(), c.y1Low) << c.what << ": the left range is not written back";
    }
}

struct RightCase {
    const char* what;
    double y2Low, y2High;
    std::vector<double> values;
    double low, high;
};
const RightCase RIGHT_RANGES[] = {
    {"as given", 3, 8, {10, 20}, 3, 8},
    {"zero height is widened later", 3, 3, {10, 20}, 3, 3},
    {"only one marker", -1, 8, {10, 20}, -1, 8},
    {"automatic", -1, -1, {10, 20}, 9.5, 20.5},
    {"zeros count", -1, -1, {0, 20}, -1, 21},
    {"the marker counts", -1, -1, {-1, 999999}, -50001, 1049999},
    {"only markers", -1, -1, {999999, 999999}, 999999, 999999},
    {"beyond the start values", -1, -1, {99999900}, 5500003.95, 104499895.05},
    {"empty", -1, -1, {}, 0, 100},
    {"no number", -1, -1, {std::numeric_limits<double>::quiet_NaN()}, 0, 100},
};

TEST(RightRange, IsGivenOrFollowsEveryStoredValue) {
    for (const RightCase& c : RIGHT_RANGES) {
        TestDiagram diagram;
        diagram.setY2Low(c.y2Low);
        diagram.setY2High(c.y2High);
        const ValueRange range = rightRange(diagram.properties(), c.values);
        EXPECT_DOUBLE_EQ(range.low, c.low) << c.what;
        EXPECT_DOUBLE_EQ(range.high, c.high) << c.what;
    }
}

TEST(MarginedRange, OfTheValidValues) {
    const struct {
        std::vector<double> values;
        ValueRange range;
    } rows[] = {
        {{}, {0, 100}},
        {{NoValue, -NoValue, 99999900, std::nan("")}, {0, 100}},
        {{20, NoValue, 10, 15}, {9.5, 20.5}}, // gaps do not count
        {{-10, 0, 10}, {-11, 11}},
        {{7}, {7, 107}},      // one value
        {{-1, -1}, {-1, 99}}, // never the marker at both ends
        {{-999998, 999998}, {-999998 - 1999996 * 0.05, 999998 + 1999996 * 0.05}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(marginedRange(row.values), row.range);
    }
}

TEST(WithHeight, OnlyZeroHeightIsWidened) {
    EXPECT_EQ(withHeight({5, 5}), (ValueRange{5, 105}));
    EXPECT_EQ(withHeight({-5, -5}), (ValueRange{-5, 95}));
    EXPECT_EQ(withHeight({5, 5.001}), (ValueRange{5, 5.001}));
    EXPECT_EQ(withHeight({5, 4}), (ValueRange{5, 4}));
}

TEST(ValueSteps, AreTheTable) {
    const std::vector<double> expected = {0.001, 0.005, 0.01, 0.025, 0.05, 0.1,   0.2,   0.25, 0.5, 1,
                                          2,     2.5,   5,    10,    15,   20,    25,    30,   40,  50,
                                          60,    70,    80,   90,    100,  125,   150,   200,  250, 300,
                                          400,   500,   1000, 2000,  5000, 10000, 20000, 50000};
    ASSERT_EQ(expected.size(), 38U);
    EXPECT_EQ(valueStep(1e-9, 16), expected[0]);
    for (std::size_t i = 0; i < expected.size(); ++i) {
        EXPECT_EQ(valueStep(expected[i] * 16, 16), expected[i]) << "its product is the height itself";
        EXPECT_EQ(valueStep(expected[i] * 16 * 1.0001, 16), expected[std::min<std::size_t>(i + 1, 37)]);
    }
}

struct DivisionCase {
    double low, high;
    int divisions;
    double step;
    const char* format;
};
const DivisionCase DIVISIONS[] = {
    {0, 0.3, 10, 0.05, "######0.00"},
    {0, 0.25, 10, 0.025, "######0.000"},
    {0, 0.01, 10, 0.001, "######0.000"},
    {0, 0.0001, 10, 0.001, "######0.000"},
    {0, 1, 10, 0.1, "######0.00"},
    {0, 2.5, 10, 0.25, "######0.00"},
    {0, 2.6, 10, 0.5, "######0.0"},
    {0, 20, 10, 2, "######0.0"},
    {0, 25, 10, 2.5, "######0.0"},
    {0, 26, 10, 5, "######0"},
    {0, 100, 25, 5, "######0"},
    {0, 100, 1, 100, "######0"},
    {998.8, 999, 10, 0.025, "######0.000"},
    {-999, -998.8, 10, 0.025, "######0.000"},
    {999, 999.2, 10, 0.1, "######0.0"}, // above 999 the step is raised
    {-999.2, -999, 10, 0.1, "######0.0"},
    {1000, 1000.001, 10, 0.1, "######0.0"},
    {1000, 1000.9, 10, 0.1, "######0.0"},
    {1000, 1002, 10, 0.2, "######0.0"},
    {1000, 1002.5, 10, 0.25, "######0.0"},
    {1000, 1005, 10, 0.5, "######0.0"},
    {0, 500000, 10, 50000, "######0"},
    {0, 500001, 10, 50000, "######0"},
    {0, 1e300, 10, 50000, "######0"},
    {100, 0, 10, 10, "######0"}, // upside down
};

TEST(DivideRange, StepAndFormat) {
    for (const DivisionCase& c : DIVISIONS) {
        const ValueDivision division = divideRange({c.low, c.high}, c.divisions);
        EXPECT_EQ(division.step, c.step) << c.low << " to " << c.high << " over " << c.divisions;
        EXPECT_EQ(division.format, c.format) << c.low << " to " << c.high << " over " << c.divisions;
    }
}

std::vector<std::string> labels(ValueRange range, double length, const LocaleTexts& texts = {}) {
    std::vector<std::string> found;
    for (const ValueTick& tick : valueTicks(range, length, 20, texts)) {
        found.push_back(tick.label);
    }
    return found;
}

TEST(ValueTicks, AreMultiplesOfTheStepWithinTheRange) {
    EXPECT_THAT(labels({0, 0.3}, 200), ElementsAre("0,00", "0,05", "0,10", "0,15", "0,20", "0,25", "0,30"));
    EXPECT_THAT(labels({9.5, 20.5}, 200), ElementsAre("10,0", "12,0", "14,0", "16,0", "18,0", "20,0"));
    EXPECT_THAT(labels({-5, 5}, 219.9), ElementsAre("-5,0", "-4,0", "-3,0", "-2,0", "-1,0", "0,0", "1,0",
                                                    "2,0", "3,0", "4,0", "5,0"));
    EXPECT_THAT(labels({0, 100}, 40), ElementsAre("0", "50", "100"));
    EXPECT_THAT(labels({0, 100}, 39.9), ElementsAre("0", "100")) << "one division";
    EXPECT_THAT(labels({1000, 1000.4}, 200), ElementsAre("1000,0", "1000,1", "1000,2", "1000,3", "1000,4"));
    EXPECT_THAT(labels({-0.3, 0.3}, 120),
                ElementsAre("-0,30", "-0,20", "-0,10", "0,00", "0,10", "0,20", "0,30"))
        << "never -0";
    EXPECT_THAT(labels({100, 0}, 40), ElementsAre("0", "50", "100")) << "upside down";
}

/// The air pressure of an hour: its step would be finer than the labels of so large values.
TEST(ValueTicks, ARangeWithoutATickIsLabelledAtItsEnds) {
    const struct {
        ValueRange range;
        std::vector<std::string> labels;
    } rows[] = {
        {{1013.02, 1013.08}, {"1013,02", "1013,08"}},
        {{1013.08, 1013.02}, {"1013,02", "1013,08"}}, // upside down
        {{-1013.08, -1013.02}, {"-1013,08", "-1013,02"}},
        {{1013.021, 1013.024}, {"1013,021", "1013,024"}},
        {{1013.02, 1013.020001}, {"1013,020000", "1013,020001"}},
        {{1013.05, 1013.099}, {"1013,05", "1013,10"}},
        {{0.0002, 0.0008}, {"0,000", "0,001"}},
        {{0.00012, 0.00013}, {"0,00012", "0,00013"}},
        {{1013.02, 1013.12}, {"1013,1"}}, // a tick is there
    };
    for (const auto& row : rows) {
        EXPECT_EQ(labels(row.range, 510), row.labels) << row.range.low << " to " << row.range.high;
    }
    const auto ticks = valueTicks({1013.02, 1013.08}, 510, 20, {});
    ASSERT_EQ(ticks.size(), 2U);
    EXPECT_EQ(ticks[0].value, 1013.02);
    EXPECT_EQ(ticks[1].value, 1013.08);
}

TEST(ValueTicks, DecimalSeparatorIsTheLocales) {
    LocaleTexts english;
    english.decimalSeparator = ".";
    EXPECT_THAT(labels({0, 1}, 40, english), ElementsAre("0.0", "0.5", "1.0"));
}

TEST(ValueTicks, NoneWithoutARangeOrRoom) {
    EXPECT_THAT(labels({0, 100}, 19.9), IsEmpty());
    EXPECT_THAT(labels({0, 100}, 0), IsEmpty());
    EXPECT_THAT(labels({0, 100}, -50), IsEmpty());
    EXPECT_THAT(labels({5, 5}, 200), IsEmpty());
    EXPECT_THAT(labels({0, INF}, 200), IsEmpty());
    EXPECT_THAT(labels({-INF, INF}, 200), IsEmpty());
    EXPECT_THAT(labels({NOT_A_NUMBER, 5}, 200), IsEmpty());
    EXPECT_THAT(labels({0, 5}, NOT_A_NUMBER), IsEmpty());
}

TEST(ValueTicks, HugeAndTinyRangesEndAtOnceAndDoNotCrowd) {
    const ValueRange ranges[] = {{0, 1e7},        {0, 1e300},        {-1e300, 1e300},
                                 {1e300, -1e300}, {-1e308, 0},       {1e17, 1e17 + 1000},
                                 {0, 1e-300},     {0, 5e-324},       {1e15, 2e15},
                                 {-1e9, 1},       {999999, 1049999}, {1e300, 1.0000001e300},
                                 {0, 12345678},   {1e16, 1e16 + 2}};
    for (const ValueRange& range : ranges) {
        for (const double length : {20.0, 199.0, 510.0, 30000.0}) {
            SCOPED_TRACE(::testing::Message() << range.low << " to " << range.high << " on " << length);
            const double low = std::min(range.low, range.high);
            const double height = std::fabs(range.height());
            // Neighbouring doubles must be nearer than a dot for distances to be distinguished.
            const bool fine = height > 1e-6 && height > 1e-9 * (std::fabs(range.low) + std::fabs(range.high));
            const auto ticks = valueTicks(range, length, 20, {});
            ASSERT_LE(static_cast<double>(ticks.size()), length / 20 + 2);
            for (std::size_t i = 0; i < ticks.size(); ++i) {
                ASSERT_GE(ticks[i].value, low - height * 1e-6);
                ASSERT_LE(ticks[i].value, low + height * (1 + 1e-6));
                ASSERT_FALSE(ticks[i].label.empty());
                if (i > 0 && fine) {
                    ASSERT_GT(ticks[i].value, ticks[i - 1].value);
                    ASSERT_GE((ticks[i].value - ticks[i - 1].value) / height * length, 19.99);
                }
            }
        }
    }
}

} // namespace
} // namespace kelvrum
