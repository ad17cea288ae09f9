// SPDX-License-Identifier: GPL-3.0-or-later
// The rows by hour, day and month.
#include "evaluation/Breakdown.h"

#include "tests/evaluation/MadeReadings.h"

#include <gtest/gtest.h>

namespace kelvrum {
namespace {

using namespace kelvrum::testing;

constexpr double DAY = MINUTES_PER_DAY;

TEST(Breakdown, UnitsOfRanges) {
    struct Row {
        double days;
        std::int32_t interval;
        CalendarUnit unit;
    };
    const Row rows[] = {
        {1, 1, CalendarUnit::hour},
        {1, 60, CalendarUnit::hour},
        {1 / DAY, 1, CalendarUnit::hour},
        {1 + 1 / DAY, 1, CalendarUnit::day},
        {1, 1440, CalendarUnit::day}, // never finer than the interval
        {62, 1, CalendarUnit::day},
        {62, 1440, CalendarUnit::day},
        {62 + 1 / DAY, 1, CalendarUnit::month},
        {365, 1440, CalendarUnit::month},
        {1, 90, CalendarUnit::day},
        {1, 2880, CalendarUnit::month},
    };
    for (const Row& row : rows) {
        for (const DateTime from : {JUNE_15, JUNE_15 + 1 / 3.0, JUNE_15 + 1439 / DAY}) {
            EXPECT_EQ(breakdownUnit({from, from + row.days}, row.interval), row.unit)
                << row.days << " days of " << row.interval << " minutes";
        }
    }
}

TEST(Breakdown, HoursOfTheClockAcrossMidnight) {
    EvaluationRequest request = requestOf(16, 15, JUNE_15 + 22.5 / 24); // 22:30 to 02:30
    request.limits = {5, 8};
    std::vector<double> values(16, 1);
    values[0] = 6; // 22:30
    values[2] = 9; // 23:00
    values[6] = NONE;
    const Breakdown found = evaluate(request, readingOf(values, 15)).breakdown;
    EXPECT_EQ(found.unit, CalendarUnit::hour);
    ASSERT_EQ(found.rows.size(), 5U);
    const std::int64_t intervals[] = {2, 4, 4, 4, 2};
    for (std::size_t i = 0; i < found.rows.size(); ++i) {
        EXPECT_NEAR(found.rows[i].start, JUNE_15 + (22.0 + static_cast<double>(i)) / 24, 1e-9);
        EXPECT_EQ(found.rows[i].intervals, intervals[i]);
        EXPECT_EQ(found.rows[i].minutes, 15 * intervals[i]);
    }
    EXPECT_EQ(found.rows[0].mean, 3.5);
    EXPECT_EQ(found.rows[0].above, (std::array<std::int64_t, 2>{1, 0}));
    EXPECT_EQ(found.rows[1].above, (std::array<std::int64_t, 2>{1, 1}));
    EXPECT_EQ(found.rows[1].maximum, 9);
    EXPECT_EQ(found.rows[1].minimum, 1);
    EXPECT_EQ(found.rows[2].withValue, 3);
    EXPECT_EQ(found.rows[2].coverage(), 75);
}

TEST(Breakdown, TwentyFourHoursThatBeginWithinAnHourTouchTwentyFive) {
    const Breakdown found =
        evaluate(requestOf(1440, 1, JUNE_15 + 18.5 / 24), readingOf(std::vector<double>(1440, 1), 1))
            .breakdown;
    ASSERT_EQ(found.rows.size(), 25U);
    EXPECT_EQ(found.rows.front().intervals, 30);
    EXPECT_EQ(found.rows.back().intervals, 30);
    EXPECT_NEAR(found.rows.back().start, JUNE_15 + 1 + 18.0 / 24, 1e-9);
}

TEST(Breakdown, RowsWithoutValuesAreIncluded) {
    auto reading = readingOf(std::vector<double>(24, 2));
    for (auto& interval : readingOf(std::vector<double>(24, 4))) {
        interval.index += 3 * 24;
        reading.push_back(interval);
    }
    const Breakdown found = evaluate(requestOf(6 * 24), reading).breakdown;
    EXPECT_EQ(found.unit, CalendarUnit::day);
    ASSERT_EQ(found.rows.size(), 6U);
    for (std::size_t day = 0; day < 6; ++day) {
        const BreakdownRow& row = found.rows[day];
        const bool has = day == 0 || day == 3;
        EXPECT_EQ(row.start, JUNE_15 + static_cast<double>(day));
        EXPECT_EQ(row.intervals, 24);
        EXPECT_EQ(row.withValue, has ? 24 : 0);
        EXPECT_EQ(row.coverage(), has ? 100 : 0);
        EXPECT_EQ(row.mean.has_value(), has);
        EXPECT_EQ(row.minimum.has_value(), has);
        EXPECT_EQ(row.maximum.has_value(), has);
    }
    EXPECT_EQ(found.rows[3].mean, 4);
}

TEST(Breakdown, MonthsOfAYearOfDays) {
    EvaluationRequest request = requestOf(366, 1440, dateSerial(2024, 1, 1));
    std::vector<double> values(366);
    for (std::size_t i = 0; i < values.size(); ++i) {
        values[i] = static_cast<double>(i + 1);
    }
    const Breakdown found = evaluate(request, readingOf(values, 1440)).breakdown;
    EXPECT_EQ(found.unit, CalendarUnit::month);
    const std::int64_t days[] = {31, 29, 31, 30, 31, 30, 31, 31, 30, 31, 30, 31};
    ASSERT_EQ(found.rows.size(), 12U);
    double first = 1;
    for (std::size_t month = 0; month < 12; ++month) {
        const BreakdownRow& row = found.rows[month];
        const auto last = first + static_cast<double>(days[month]) - 1;
        EXPECT_EQ(row.start, dateSerial(2024, static_cast<int>(month) + 1, 1));
        EXPECT_EQ(row.intervals, days[month]);
        EXPECT_EQ(row.minimum, first);
        EXPECT_EQ(row.maximum, last);
        EXPECT_EQ(row.mean, (first + last) / 2);
        first = last + 1;
    }
}

TEST(Breakdown, SumsAndMeanDirections) {
    EvaluationRequest request = requestOf(2 * 24);
    request.kind = EvaluatedKind::sum;
    const Breakdown sums = evaluate(request, readingOf(std::vector<double>(24, 0.1))).breakdown;
    EXPECT_DOUBLE_EQ(sums.rows[0].mean.value(), 2.4);
    EXPECT_EQ(sums.rows[1].mean, std::nullopt);

    request.kind = EvaluatedKind::direction;
    request.limits = {5, 5};
    std::vector<std::pair<double, double>> winds(24, {90, 3});
    winds.insert(winds.end(), 12, {180, 2});
    winds.insert(winds.end(), 12, {360, 2});
    const Breakdown directions = evaluate(request, windOf(winds)).breakdown;
    EXPECT_NEAR(directions.rows[0].mean.value(), 90, 1e-12);
    EXPECT_EQ(directions.rows[0].minimum, std::nullopt);
    EXPECT_EQ(directions.rows[0].above, (std::array<std::int64_t, 2>{}));
    EXPECT_EQ(directions.rows[1].mean, std::nullopt); // they cancel
    EXPECT_EQ(directions.rows[1].withValue, 24);
}

TEST(Breakdown, OnlyCoveredIntervals) {
    EvaluationRequest request = requestOf(4);
    request.onlyCovered = true;
    request.limits[0] = 1;
    auto reading = readingOf({1, 2, 3, 4}, 60);
    reading[1].present = 44;
    const Breakdown found = evaluate(request, reading).breakdown;
    EXPECT_EQ(found.rows[1].withValue, 1); // it is there, but does not count
    EXPECT_EQ(found.rows[1].mean, std::nullopt);
    EXPECT_EQ(found.rows[1].above[0], 0);
    EXPECT_EQ(found.rows[2].mean, 3);
}

TEST(Breakdown, NothingNoRows) {
    EXPECT_TRUE(evaluate(requestOf(0), {}).breakdown.rows.empty());
    EvaluationRequest request = requestOf(24);
    request.now = JUNE_15 + 2.5 / 24;
    EXPECT_EQ(evaluate(request, {}).breakdown.rows.size(), 3U); // none for hours that are still to come
}

TEST(Breakdown, ARangeOfMillennia) {
    EvaluationRequest request;
    request.range = {FIRST_DATE, LAST_DATE + 1};
    request.now = LAST_DATE + 1;
    const Evaluation found = evaluate(request, {});
    EXPECT_EQ(found.breakdown.rows.size(), 9900U * 12);
    EXPECT_EQ(found.availability.longestOutage->intervals, found.availability.intervals);
}

} // namespace
} // namespace kelvrum
