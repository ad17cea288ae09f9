// SPDX-License-Identifier: GPL-3.0-or-later
// How the columns of a series are joined: gaps, lone points, passes, directions, bars.
#include "diagram/Curve.h"

#include "tests/diagram/TestDiagram.h"
#include "tests/testing/ShowDots.h"
#include "tests/testing/TestSurface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <optional>
#include <string>

namespace kelvrum {
namespace {

constexpr double HOUR = 1.0 / 24;

/// Records what the walk passes as text: "0,150-10,149" a line, "*0,150" a point, "#1" a pass,
/// "[l,t,r,b]" a bar. x counts from the left axis.
class TextSink {
  public:
    void pass(int number) { add("#" + std::to_string(number)); }
    void run(std::span<const Dot> dots) {
        if (dots.size() == 1) {
            add("*" + dot(dots[0]));
        }
        for (std::size_t i = 1; i < dots.size(); ++i) {
            add(dot(dots[i - 1]) + "-" + dot(dots[i]));
        }
    }
    void bar(const Box& b) {
        add("[" + std::to_string(b.left - 40) + "," + std::to_string(b.top) + "," +
            std::to_string(b.right - 40) + "," + std::to_string(b.bottom) + "]");
    }
    std::string all;

  private:
    static std::string dot(Dot d) { return std::to_string(d.x - 40) + "," + std::to_string(d.y); }
    void add(const std::string& one) { all += (all.empty() ? "" : " ") + one; }
};

/// A day over 240 dots, so that an hour has 10, and a height of 100 dots that ends at y = 150.
PlotArea dayPlot() { return {DiagramLayout(), {310, 190}, 1, {0, 1}}; }
ValueScale percentScale() { return dayPlot().scaleOf({0, 100}); }
/// One dot for 6 degrees: 0 at 150, 540 at 60, 600 at 50.
ValueScale directionScale() { return dayPlot().scaleOf({0, 600}); }

struct Walked {
    std::string drawn;
    int passes = 0;
};

struct Hours {
    std::vector<double> times;
    std::vector<double> values;
};

Hours hourly(std::vector<double> values) {
    Hours hours;
    for (std::size_t i = 0; i < values.size(); ++i) {
        hours.times.push_back(static_cast<double>(i) * HOUR);
    }
    hours.values = std::move(values);
    return hours;
}

Hours columns(std::initializer_list<std::pair<double, double>> hoursAndValues) {
    Hours hours;
    for (const auto& [hour, value] : hoursAndValues) {
        hours.times.push_back(hour * HOUR);
        hours.values.push_back(value);
    }
    return hours;
}

Walked lines(const Hours& series, bool detectPasses = true) {
    TextSink sink;
    const int passes =
        walkCurve(series.times, series.values, false, detectPasses, dayPlot(), percentScale(), sink);
    return {sink.all, passes};
}

Walked directions(const Hours& series) {
    TextSink sink;
    const int passes = walkCurve(series.times, series.values, true, true, dayPlot(), directionScale(), sink);
    return {sink.all, passes};
}

Walked bars(const Hours& series, double interval = HOUR, bool detectPasses = true) {
    TextSink sink;
    const int passes =
        walkBars(series.times, series.values, interval, detectPasses, dayPlot(), percentScale(), sink);
    return {sink.all, passes};
}

TEST(NearestDot, RoundsHalvesToEvenAndCutsToTheCoordinateRange) {
    const struct {
        double v;
        int dot;
    } rows[] = {{0.5, 0},
                {1.5, 2},
                {2.5, 2},
                {-0.5, 0},
                {-1.5, -2},
                {0.4999, 0},
                {0.5001, 1},
                {32767, 32767},
                {32768, 32767},
                {1e300, 32767},
                {-32769, -32768},
                {-1e300, -32768},
                {std::numeric_limits<double>::infinity(), 32767},
                {-std::numeric_limits<double>::infinity(), -32768},
                {std::numeric_limits<double>::quiet_NaN(), -32768}};
    for (const auto& [v, dot] : rows) {
        EXPECT_EQ(nearestDot(v), dot) << v;
    }
}

TEST(ReachablePart, CutsALineWhereItLeavesTheCoordinateRange) {
    constexpr double INF = std::numeric_limits<double>::infinity();
    constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
    const struct {
        const char* what;
        CurvePoint from, to;
        std::optional<Segment> part;
    } rows[] = {
        {"within", {1.4, 5}, {9.6, 6}, Segment{{1, 5}, {10, 6}}},
        {"at the ends", {-32768, 5}, {32767, 6}, Segment{{-32768, 5}, {32767, 6}}},
        {"to the right", {0, 0}, {65534, 100}, Segment{{0, 0}, {32767, 50}}},
        {"from the left", {-65536, 100}, {0, 0}, Segment{{-32768, 50}, {0, 0}}},
        {"both sides", {-65536, 0}, {65536, 4}, Segment{{-32768, 1}, {32767, 3}}},
        {"backward", {65534, 100}, {0, 0}, Segment{{32767, 50}, {0, 0}}},
        {"wholly left", {-1e6, 0}, {-40000, 4}, std::nullopt},
        {"wholly right", {1e6, 0}, {1e300, 4}, std::nullopt},
        {"wholly infinite", {INF, 0}, {INF, 4}, std::nullopt},
        {"to infinity", {0, 7}, {INF, 100}, Segment{{0, 7}, {32767, 7}}},
        {"from infinity", {-INF, 100}, {0, 7}, Segment{{-32768, 7}, {0, 7}}},
        {"from infinity to far", {-INF, 100}, {1e6, 7}, Segment{{-32768, 7}, {32767, 7}}},
        {"huge", {-1.7e308, 0}, {1.7e308, 32000}, Segment{{-32768, 16000}, {32767, 16000}}},
        {"no number", {NOT_A_NUMBER, 3}, {10, 4}, Segment{{-32768, 3}, {10, 4}}},
        {"from no number to far", {NOT_A_NUMBER, 3}, {1e9, 4}, Segment{{-32768, 3}, {32767, 4}}},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(reachablePart(row.from, row.to), row.part) << row.what;
    }
    const auto part = reachablePart({-INF, 1}, {INF, 9});
    ASSERT_TRUE(part);
    EXPECT_EQ(part->from.x, -32768);
    EXPECT_EQ(part->to.x, 32767);
}

TEST(Lines, KeepTheirSlopeFromFarOutside) {
    const double far = 65536.0 / 240; // days, 65536 dots
    const struct {
        const char* what;
        Hours series;
        const char* drawn;
    } rows[] = {
        {"from the left", columns({{-24 * far, 100}, {0, 0}, {1, 1}}), "-32808,100-0,150 0,150-10,149"},
        {"to the right", columns({{0, 0}, {1, 1}, {1 + 24 * far, 101}}), "0,150-10,149 10,149-32727,99"},
        {"far neighbours are not joined", columns({{-72 * far, 0}, {-48 * far, 0}, {-24 * far, 100}, {0, 0}}),
         "-32808,100-0,150"},
        {"to and fro", columns({{0, 0}, {24 * far, 100}, {1, 1}}), "0,150-32727,100 #1 *10,149"},
        {"a gap far out", columns({{-24 * far, 100}, {-1, 999999}, {0, 0}}), "*-32808,50 *0,150"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(lines(row.series).drawn, row.drawn) << row.what;
    }
    EXPECT_EQ(directions(columns({{-24 * far, 348}, {0, 12}})).drawn, "-32808,90-0,88");
}

TEST(Lines, JoinValidNeighboursAndBreakAtGaps) {
    const struct {
        const char* what;
        Hours series;
        const char* drawn;
    } rows[] = {
        {"nothing", hourly({}), ""},
        {"one gap", hourly({999999}), ""},
        {"one value", hourly({1}), "*0,149"},
        {"two", hourly({1, 2}), "0,149-10,148"},
        {"three", hourly({1, 2, 3}), "0,149-10,148 10,148-20,147"},
        {"zero is a value", hourly({0, 0}), "0,150-10,150"},
        {"gap in the middle", hourly({1, 2, 999999, 3, 4}), "0,149-10,148 30,147-40,146"},
        {"negative gap", hourly({1, 2, -999999, 3, 4}), "0,149-10,148 30,147-40,146"},
        {"not a number", hourly({1, 2, std::numeric_limits<double>::quiet_NaN(), 3, 4}),
         "0,149-10,148 30,147-40,146"},
        {"just below the marker", hourly({1, 999998, 1}), "0,149-10,-32768 10,-32768-20,149"},
        {"lone in the middle", hourly({1, 2, 99999900, 3, 99999900, 4, 5}),
         "0,149-10,148 *30,147 50,146-60,145"},
        {"lone at the ends", hourly({1, 999999, 2, 3, 999999, 4}), "*0,149 20,148-30,147 *50,146"},
        {"equal times", columns({{1, 5}, {1, 6}, {1, 7}}), "10,145-10,144 10,144-10,143"},
        {"before the axis", columns({{-2, 5}, {-1, 6}, {0, 7}}), "-20,145--10,144 -10,144-0,143"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(lines(row.series).drawn, row.drawn) << row.what;
        EXPECT_EQ(lines(row.series).passes, 1) << row.what;
    }
}

TEST(Lines, ALongRunLosesNoJoin) {
    for (const std::size_t length : {511U, 512U, 513U, 1023U, 1024U, 1025U, 5000U}) {
        SCOPED_TRACE(length);
        Hours series;
        for (std::size_t i = 0; i < length; ++i) {
            series.times.push_back(static_cast<double>(i) * HOUR / 10);
            series.values.push_back(static_cast<double>(i % 7));
        }
        const std::string drawn = lines(series).drawn;
        EXPECT_EQ(static_cast<std::size_t>(std::count(drawn.begin(), drawn.end(), '-')), length - 1);
        EXPECT_EQ(drawn.find('*'), std::string::npos);
        // And in directions, with a step of a full circle in between.
        series.values[length - 2] = 530;
        const std::string turned = directions(series).drawn;
        EXPECT_EQ(static_cast<std::size_t>(std::count(turned.begin(), turned.end(), '-')), length - 1);
        EXPECT_EQ(turned.find('*'), std::string::npos);
    }
}

TEST(Passes, StartWhereTheTimeGoesBack) {
    const struct {
        const char* what;
        Hours series;
        const char* drawn;
        int passes;
    } rows[] = {
        {"two passes are not joined", columns({{0, 1}, {1, 2}, {0, 3}, {1, 4}}),
         "0,149-10,148 #1 0,147-10,146", 2},
        {"three", columns({{0, 1}, {1, 2}, {0, 3}, {1, 4}, {0, 5}, {1, 6}}),
         "0,149-10,148 #1 0,147-10,146 #2 0,145-10,144", 3},
        {"a fourth is not drawn", columns({{0, 1}, {1, 2}, {0, 3}, {1, 4}, {0, 5}, {1, 6}, {0, 7}, {1, 8}}),
         "0,149-10,148 #1 0,147-10,146 #2 0,145-10,144", 3},
        {"equal times do not start one", columns({{0, 1}, {0, 2}, {1, 3}, {1, 4}}),
         "0,149-0,148 0,148-10,147 10,147-10,146", 1},
        {"negative offsets do not start one", columns({{1, 1}, {-1, 2}, {2, 3}}),
         "10,149--10,148 -10,148-20,147", 1},
        {"but stay the column before", columns({{-1, 1}, {-2, 2}, {0, 3}}), "-10,149--20,148 -20,148-0,147",
         1},
        {"offset 0 starts one", columns({{1, 1}, {0, 2}}), "*10,149 #1 *0,148", 2},
        {"a gap column starts one", columns({{0, 1}, {1, 2}, {0, 999999}, {1, 4}, {2, 5}}),
         "0,149-10,148 #1 10,146-20,145", 2},
        {"gaps count as the column before", columns({{0, 1}, {3, 999999}, {1, 2}, {2, 3}}),
         "*0,149 #1 10,148-20,147", 2},
        {"lone points of each pass", columns({{0, 1}, {0, 999999}, {1, 999999}, {0, 3}}), "*0,149 #1 *0,147",
         2},
    };
    for (const auto& row : rows) {
        const Walked walked = lines(row.series);
        EXPECT_EQ(walked.drawn, row.drawn) << row.what;
        EXPECT_EQ(walked.passes, row.passes) << row.what;
    }
}

TEST(Passes, ASecondSeriesHasNone) {
    const Walked walked = lines(columns({{0, 1}, {1, 2}, {0, 3}, {1, 4}}), false);
    EXPECT_EQ(walked.drawn, "0,149-10,148 10,148-0,147 0,147-10,146");
    EXPECT_EQ(walked.passes, 1);
}

TEST(Directions, TheNearerAlternativeIsJoined) {
    const struct {
        double previous, v, joined;
    } rows[] = {
        {350, 10, 370},  {10, 350, 350},  {370, 350, 350},       {0, 180, 180},  {180, 0, 0},
        {190, 0, 360},   {180, 360, 360}, // a tie keeps v
        {0, 359, 359},   {180, 359, 359}, {370, 20, 380},        {530, 10, 370}, {538, 340, 700},
        {539, 180, 540}, {10, 360, 0},    {10, 365, 5},          {0, -5, -5},    {350, -5, 355},
        {100, 100, 100}, {181, 361, 361}, {180.5, 360.5, 360.5}, {179, 360, 0}, // v >= 360 has v - 360
    };
    for (const auto& [previous, v, joined] : rows) {
        EXPECT_DOUBLE_EQ(joinedDirection(previous, v), joined) << previous << " to " << v;
    }
}

TEST(Directions, TheValueBeforeIsKeptWithin540) {
    const struct {
        double v, kept;
    } rows[] = {{0, 0},     {359, 359},    {539.9, 539.9}, {540, 180},
                {719, 359}, {-0.5, 359.5}, {-5, 355},      {360, 360}};
    for (const auto& [v, kept] : rows) {
        EXPECT_DOUBLE_EQ(keptDirection(v), kept) << v;
    }
}

TEST(Directions, AreJoinedTheShortWay) {
    const struct {
        const char* what;
        Hours series;
        const char* drawn;
    } rows[] = {
        {"through 360", hourly({348, 12}), "0,92-10,88"},
        {"and on from there", hourly({348, 12, 30, 330}), "0,92-10,88 10,88-20,85 20,85-30,95"},
        {"plain neighbours", hourly({60, 120}), "0,140-10,130"},
        {"up to 540, then from 180", hourly({348, 12, 90, 150, 180, 240}),
         "0,92-10,88 10,88-20,75 20,75-30,65 30,65-40,60 40,120-50,110"},
        {"a gap forgets the value before", hourly({348, 12, 999999, 12, 30}), "0,92-10,88 30,148-40,145"},
        {"a new pass forgets it too", columns({{0, 348}, {1, 12}, {0, 12}, {1, 30}}),
         "0,92-10,88 #1 0,148-10,145"},
        {"lone", hourly({90}), "*0,135"},
        {"the first one kept within 540 too", hourly({-12, 12}), "0,92-10,88"},
        {"from above", hourly({552, 180}), "0,118-10,120"},
        {"after a gap", hourly({90, 999999, -12, 12}), "*0,135 20,92-30,88"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(directions(row.series).drawn, row.drawn) << row.what;
    }
}

TEST(Bars, StartAtTheBaseLineAndAreAsWideAsTheInterval) {
    const struct {
        const char* what;
        Hours series;
        double interval;
        const char* drawn;
    } rows[] = {
        {"values of their own", hourly({5, 10, 20}), HOUR, "[0,145,10,150] [10,140,20,150] [20,130,30,150]"},
        {"zeros and gaps draw nothing", hourly({0, 999999, 5, -999999}), HOUR, "[20,145,30,150]"},
        {"at least one dot wide", hourly({5, 10}), 0, "[0,145,1,150] [10,140,11,150]"},
        {"a tiny interval", hourly({5}), 1e-9, "[0,145,1,150]"},
        {"lower than a dot", hourly({0.2, 1e-300}), HOUR, "[0,149,10,150] [10,149,20,150]"},
        {"negative", hourly({-5}), HOUR, ""},
        {"passes", columns({{0, 5}, {1, 6}, {0, 7}}), HOUR,
         "[0,145,10,150] [10,144,20,150] #1 [0,143,10,150]"},
        {"a fourth pass is not drawn", columns({{1, 5}, {0, 6}, {1, 999999}, {0, 7}, {1, 999999}, {0, 8}}),
         HOUR, "[10,145,20,150] #1 [0,144,10,150] #2 [0,143,10,150]"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(bars(row.series, row.interval).drawn, row.drawn) << row.what;
    }
}

/// Times of intervals are rounded: the end of one and the start of the next may differ by the last bit.
TEST(Bars, ThatTouchLeaveNoSlit) {
    // Half a dot a minute: every second start is on the border of two dots.
    const PlotArea plot(DiagramLayout(), {790, 190}, 1, {45292, 45293});
    for (const double interval : {1.0 / 1440, 5.0 / 1440, 10.0 / 1440, 15.0 / 1440, 1.0 / 24}) {
        std::vector<double> times;
        for (int i = 0; i * interval < 1; ++i) {
            times.push_back(45292 + i * interval);
        }
        int differing = 0;
        for (std::size_t i = 0; i + 1 < times.size(); ++i) {
            EXPECT_EQ(barRight(times, i, interval, plot), plot.x(times[i + 1])) << interval << ", " << i;
            differing += plot.x(times[i] + interval) == plot.x(times[i + 1]) ? 0 : 1;
        }
        EXPECT_EQ(barRight(times, times.size() - 1, interval, plot), plot.x(times.back() + interval));
        EXPECT_TRUE(differing > 0 || interval != 1.0 / 1440) << "the two roundings never differ here";
    }
    EXPECT_EQ(barRight(std::vector<double>{45292, 45292.5}, 0, 0.25, plot), plot.x(45292.25));
}

TEST(SampleInterval, IsTheSmallestPositiveDistance) {
    EXPECT_EQ(sampleInterval({}), 0);
    EXPECT_EQ(sampleInterval(std::vector<double>{5}), 0);
    EXPECT_EQ(sampleInterval(std::vector<double>{5, 5, 4}), 0);
    EXPECT_EQ(sampleInterval(std::vector<double>{1, 3, 4, 9, 1, 3}), 1);
    EXPECT_EQ(sampleInterval(std::vector<double>{1, 1, 3.5}), 2.5);
}

} // namespace
} // namespace kelvrum
