// SPDX-License-Identifier: GPL-3.0-or-later
// Which value is under a pointer, next to another value, a day further.
#include "diagram/Readout.h"

#include "diagram/Curve.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>
#include <vector>

namespace kelvrum {
namespace {

constexpr double GAP = 99999900;
constexpr double HOUR = 1.0 / 24;
constexpr DateTime DAY = 44000;
const double NAN_VALUE = std::numeric_limits<double>::quiet_NaN();

/// A series whose columns lie at hours of a day.
struct Hours {
    std::vector<double> times;
    std::vector<double> y1;
    std::vector<double> y2;

    Hours& add(double hour, double v1, double v2 = GAP) {
        times.push_back(DAY + hour * HOUR);
        y1.push_back(v1);
        y2.push_back(v2);
        return *this;
    }
    [[nodiscard]] SeriesReader reader(double interval = HOUR) const {
        return {Series{times, y1, y2}, DAY, interval};
    }
};

/// The hour of what was read; −1 for nothing.
double hourOf(const std::optional<ReadValue>& value) {
    return value ? std::round((value->time - DAY) * 24 * 1e6) / 1e6 : -1;
}

double hourAt(const SeriesReader& reader, double hour, double reach = 0) {
    return hourOf(reader.at(DAY + hour * HOUR, reach));
}

TEST(SeriesReader, FindsTheNearestValue) {
    // 0 1 2 (gap from 3) 6 7, the data end before the range does
    const Hours hours = Hours().add(0, 10).add(1, 11).add(2, 12).add(3, GAP).add(6, 16).add(7, 17);
    const SeriesReader reader = hours.reader();
    struct Row {
        double hour, expected;
    };
    const Row rows[] = {
        {0, 0},    {0.49, 0}, {0.5, 0},                                 // the earlier one on a tie
        {0.51, 1}, {1, 1},    {1.5, 1},  {1.6, 2},  {2.5, 2}, {2.6, 2}, // its interval has a value
        {2.99, 2}, {3, -1},   {4.4, -1}, {5.4, -1},                     // the gap begins after it
        {5.5, 6},  {6, 6},    {6.5, 6},  {6.6, 7},  {7.9, 7}, {8, 7},   // the last interval has no neighbour
        {8.1, -1}, {20, -1},  {-0.4, 0}, {-3, -1},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(hourAt(reader, row.hour), row.expected) << row.hour;
    }
    EXPECT_EQ(hourAt(reader, 4.4, 1.6 * HOUR), 6); // both share a column of dots
    EXPECT_EQ(reader.at(DAY + HOUR, 0)->y1, 11);
    EXPECT_EQ(reader.at(DAY + HOUR, 0)->y2, std::nullopt);
    EXPECT_EQ(reader.passes(), 1);
}

TEST(SeriesReader, WithoutAnIntervalTheColumnsDecide) {
    const Hours hours = Hours().add(0, 10).add(4, 14).add(8, GAP).add(20, 20);
    const SeriesReader reader = hours.reader(0);
    EXPECT_EQ(hourAt(reader, 1.9), 0);
    EXPECT_EQ(hourAt(reader, 5.9), 4);
    EXPECT_EQ(hourAt(reader, 7), -1);
    EXPECT_EQ(hourAt(reader, 13), -1);
    EXPECT_EQ(hourAt(reader, 15), 20);
    EXPECT_EQ(hourAt(reader, 30), 20);
}

TEST(SeriesReader, OfNothing) {
    EXPECT_FALSE(SeriesReader().first());
    EXPECT_FALSE(SeriesReader().at(DAY, 1));
    EXPECT_FALSE(SeriesReader().last());
    for (const double v : {GAP, 999999.0, -999999.0, NAN_VALUE, std::numeric_limits<double>::infinity()}) {
        const Hours hours = Hours().add(0, v).add(1, v).add(2, v, NAN_VALUE);
        const SeriesReader reader = hours.reader();
        EXPECT_FALSE(reader.at(DAY + HOUR, 1));
        EXPECT_FALSE(reader.nearest(DAY));
        EXPECT_FALSE(reader.first());
        EXPECT_FALSE(reader.last());
    }
}

TEST(SeriesReader, OfOneValue) {
    const Hours hours = Hours().add(5, 1e-300);
    const SeriesReader reader = hours.reader();
    EXPECT_EQ(hourAt(reader, 5.2), 5);
    EXPECT_EQ(hourAt(reader, 4.4), -1);
    EXPECT_EQ(hourOf(reader.nearest(DAY + 90)), 5);
    EXPECT_EQ(hourOf(reader.first()), 5);
    EXPECT_EQ(hourOf(reader.last()), 5);
    EXPECT_FALSE(reader.previous(0));
    EXPECT_FALSE(reader.next(0));
}

TEST(SeriesReader, StepsFromValueToValue) {
    const Hours hours =
        Hours().add(0, GAP).add(1, 11).add(2, NAN_VALUE).add(3, 13).add(4, GAP).add(9, 19).add(10, GAP);
    const SeriesReader reader = hours.reader();
    EXPECT_EQ(hourOf(reader.first()), 1);
    EXPECT_EQ(hourOf(reader.next(1)), 3);
    EXPECT_EQ(hourOf(reader.next(3)), 9);
    EXPECT_FALSE(reader.next(5));
    EXPECT_EQ(hourOf(reader.last()), 9);
    EXPECT_EQ(hourOf(reader.previous(5)), 3);
    EXPECT_EQ(hourOf(reader.previous(3)), 1);
    EXPECT_FALSE(reader.previous(1));
    EXPECT_EQ(hourOf(reader.before(DAY + 6 * HOUR)), 3); // from the middle of a gap
    EXPECT_EQ(hourOf(reader.after(DAY + 6 * HOUR)), 9);
    EXPECT_EQ(hourOf(reader.before(DAY + 3 * HOUR)), 1);
    EXPECT_EQ(hourOf(reader.after(DAY + 3 * HOUR)), 9);
    EXPECT_EQ(hourOf(reader.after(DAY - HOUR)), 1);
    EXPECT_FALSE(reader.before(DAY + HOUR));
    EXPECT_FALSE(reader.after(DAY + 9 * HOUR));
    EXPECT_EQ(hourOf(reader.nearest(DAY + 2 * HOUR)), 1); // a tie over a gap
    EXPECT_EQ(hourOf(reader.nearest(DAY + 24 * HOUR)), 9);
    EXPECT_EQ(hourOf(reader.nearest(DAY - 24 * HOUR)), 1);
}

TEST(SeriesReader, PassesBelongToTheirInterval) {
    Hours hours;
    for (const double more : {0, -5, 5, 100}) { // a fourth pass is not shown
        hours.add(0, 20 + more).add(1, 21 + more).add(2, GAP).add(4, more == -5 ? GAP : 24 + more);
    }
    const SeriesReader reader = hours.reader();
    EXPECT_EQ(reader.passes(), 3);
    const auto one = reader.at(DAY + HOUR, 0);
    ASSERT_TRUE(one);
    EXPECT_EQ(one->y1, 21);
    EXPECT_EQ(one->minimum, 16);
    EXPECT_EQ(one->maximum, 26);
    const auto four = reader.last();
    ASSERT_TRUE(four);
    EXPECT_EQ(hourOf(four), 4);
    EXPECT_EQ(four->minimum, std::nullopt);
    EXPECT_EQ(four->maximum, 29);
    EXPECT_FALSE(reader.next(four->column));
}

TEST(SeriesReader, EachSeriesHasItsOwnGaps) {
    const Hours hours = Hours().add(0, 10, 1).add(1, GAP, 2).add(2, 12, GAP).add(3, GAP, GAP);
    const SeriesReader reader = hours.reader();
    const auto one = reader.at(DAY + HOUR, 0);
    ASSERT_TRUE(one);
    EXPECT_EQ(one->y1, std::nullopt);
    EXPECT_EQ(one->y2, 2);
    EXPECT_EQ(reader.at(DAY + 2 * HOUR, 0)->y2, std::nullopt);
    EXPECT_EQ(hourAt(reader, 3), -1);
}

TEST(SeriesReader, SpreadOfAColumnOfDots) {
    Hours hours;
    for (int minute = 0; minute < 1440; ++minute) {
        hours.add(minute / 60.0, minute % 10 == 3 ? GAP : 100 + minute % 7);
    }
    const SeriesReader reader = hours.reader(HOUR / 60);
    const PlotArea plot(DiagramLayout{}, {40 + 30 + 240, 200}, 1, {DAY, DAY + 1}); // 6 minutes a dot
    for (const std::size_t column : {0U, 1U, 700U, 1439U}) {
        ValueSpread expected;
        for (std::size_t i = 0; i < hours.times.size(); ++i) {
            if (plot.x(hours.times[i]) == plot.x(hours.times[column]) && hours.y1[i] != GAP) {
                expected.smallest =
                    expected.count == 0 ? hours.y1[i] : std::min(expected.smallest, hours.y1[i]);
                expected.greatest =
                    expected.count == 0 ? hours.y1[i] : std::max(expected.greatest, hours.y1[i]);
                ++expected.count;
            }
        }
        EXPECT_GT(expected.count, 1);
        EXPECT_EQ(reader.spreadAround(column, plot), expected) << column;
    }
}

TEST(SeriesReader, TenMillionColumnsAreSearched) {
    constexpr std::size_t MANY = 10'000'000;
    std::vector<double> times(MANY);
    std::vector<double> values(MANY, 5.0);
    for (std::size_t i = 0; i < MANY; ++i) {
        times[i] = DAY + static_cast<double>(i) / 1440;
    }
    const SeriesReader reader(Series{times, values, values}, DAY, 1.0 / 1440);
    for (const std::size_t column : {std::size_t{0}, std::size_t{4'999'999}, MANY - 1}) {
        const auto value = reader.at(times[column] + 0.3 / 1440, 0);
        ASSERT_TRUE(value);
        EXPECT_EQ(value->column, column);
    }
    EXPECT_EQ(reader.last()->column, MANY - 1);
    EXPECT_EQ(reader.nearest(times[123'456] + 1)->column, 123'456U + 1440);
}

/// Keeps the dots of a curve; a direction that goes on a full circle away begins a new run.
struct LastDots {
    std::vector<Dot> dots;
    void pass(int /*number*/) {}
    void run(std::span<const Dot> run) { dots.insert(dots.end(), run.begin(), run.end()); }
};

TEST(SeriesReader, DirectionsLieWhereTheCurveIs) {
    const std::vector<double> values = {350, 10, 20, 350, 10, 190, 5, GAP, 5, 170, 340, 100, 80, 60, 10, 300,
                                        20, 30, 40, GAP, 90, 300, 10, 170,
                                        // A channel that does not hold directions.
                                        GAP, 10, 400, 20, -10, 5, 539, 100, -30, 170, GAP, 720, 30};
    Hours hours;
    for (std::size_t i = 0; i < values.size(); ++i) {
        hours.add(static_cast<double>(i), values[i]);
    }
    const SeriesReader reader = hours.reader();
    const PlotArea plot(DiagramLayout{}, {2000, 1000}, 1, {DAY, DAY + 1});
    const ValueScale scale = plot.scaleOf({0, 540});
    LastDots curve;
    walkCurve(hours.times, hours.y1, true, false, plot, scale, curve);
    for (std::size_t i = 0; i < values.size(); ++i) {
        if (isValidPoint(values[i])) {
            const Dot ring{plot.x(hours.times[i]), scale.y(reader.joinedAt(i))};
            EXPECT_NE(std::find(curve.dots.begin(), curve.dots.end(), ring), curve.dots.end())
                << i << ": " << values[i] << " at " << reader.joinedAt(i);
        }
    }
    EXPECT_EQ(reader.joinedAt(1), 370); // 350, then over north
    EXPECT_EQ(reader.joinedAt(8), 5);   // starts anew after the gap
}

/// Values that have no direction above 180 degrees: the way back to the start of the curve is long.
TEST(SeriesReader, ALongCurveIsJoinedOnce) {
    constexpr std::size_t YEAR = 525'600;
    std::vector<double> times(YEAR);
    std::vector<double> values(YEAR, 5.0);
    for (std::size_t i = 0; i < YEAR; ++i) {
        times[i] = DAY + static_cast<double>(i) / 1440;
    }
    values[0] = 350;
    const SeriesReader reader(Series{times, values, values}, DAY, 1.0 / 1440);
    for (std::size_t column = 1; column < YEAR; column += 7) { // 75,000 lookups
        ASSERT_EQ(reader.joinedAt(column), 365);
    }
}

TEST(SeriesReader, DirectionsOfTheSecondSeriesLieOnItsCurve) {
    Hours hours;
    hours.add(0, 10, 350);
    hours.add(1, 350, 10);
    hours.add(2, 20, 20);
    const SeriesReader reader = hours.reader();
    EXPECT_EQ(reader.joinedAt(1), 350);
    EXPECT_EQ(reader.joinedAt(1, SeriesTable::Y2), 370);
    EXPECT_EQ(reader.joinedAt(2), 380);
    EXPECT_EQ(reader.joinedAt(2, SeriesTable::Y2), 380);
}

TEST(TimeAt, IsTheTimeOfADot) {
    const PlotArea plot(DiagramLayout{}, {40 + 30 + 240, 200}, 1, {DAY, DAY + 1});
    EXPECT_DOUBLE_EQ(timeAt(plot, 40), DAY);
    EXPECT_DOUBLE_EQ(timeAt(plot, 160), DAY + 0.5);
    EXPECT_DOUBLE_EQ(timeAt(plot, 280), DAY + 1);
    const PlotArea empty(DiagramLayout{}, {300, 200}, 1, {DAY, DAY});
    EXPECT_EQ(timeAt(empty, 100), DAY);
}

TEST(CompassPoint, Table) {
    struct Row {
        double degrees;
        const char* expected;
    };
    const Row rows[] = {
        {0, "N"},        {11.24, "N"},   {11.25, "NNO"}, {22.5, "NNO"},  {45, "NO"},  {67.5, "ONO"},
        {90, "O"},       {112.5, "OSO"}, {135, "SO"},    {157.5, "SSO"}, {180, "S"},  {202.5, "SSW"},
        {225, "SW"},     {247.5, "WSW"}, {270, "W"},     {292.5, "WNW"}, {315, "NW"}, {337.5, "NNW"},
        {348.74, "NNW"}, {348.75, "N"},  {360, "N"},     {-45, "NW"},    {765, "NO"}, {NAN_VALUE, ""},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(compassPoint(row.degrees), row.expected) << row.degrees;
    }
}

TEST(ValueDifference, OfDirectionsIsTheShorterWay) {
    EXPECT_EQ(valueDifference(10, 350, false), 340);
    EXPECT_EQ(valueDifference(10, 350, true), -20);
    EXPECT_EQ(valueDifference(350, 10, true), 20);
    EXPECT_EQ(valueDifference(90, 270, true), 180);
    EXPECT_EQ(valueDifference(270, 90, true), -180);
    EXPECT_TRUE(std::isnan(valueDifference(NAN_VALUE, 1, true)));
}

} // namespace
} // namespace kelvrum
