// SPDX-License-Identifier: GPL-3.0-or-later
// What is above and below a limit, and for how long, computed by hand.
#include "tests/evaluation/MadeReadings.h"

#include <gtest/gtest.h>

#include <limits>

namespace kelvrum {
namespace {

using namespace kelvrum::testing;

DateTime hour(int i) { return JUNE_15 + i / 24.0; }

TEST(Exceedances, AValueEqualToTheLimitIsNeitherAboveNorBelow) {
    const Exceedances found = exceedancesOf({50, 50.000001, 49.999999, NONE, 50}, 50);
    EXPECT_EQ(found.above, 1);
    EXPECT_EQ(found.below, 1);
    EXPECT_EQ(found.values, 4);
    EXPECT_EQ(found.aboveShare(), 25);
    EXPECT_EQ(found.belowShare(), 25);
    EXPECT_EQ(found.minutesAbove, 60);
    EXPECT_EQ(found.minutesBelow, 60);
}

TEST(Exceedances, EpisodesAreRunsOfConsecutiveIntervals) {
    struct Row {
        const char* what;
        std::vector<double> values;
        std::int64_t episodes;
        std::optional<Episode> longest;
    };
    const auto episode = [](int first, int end, double maximum, int at) {
        return Episode{hour(first), hour(end), {maximum, hour(at)}};
    };
    const Row rows[] = {
        {"none", {1, 2, 3}, 0, std::nullopt},
        {"no values", {}, 0, std::nullopt},
        {"all", {9, 8, 9}, 1, episode(0, 3, 9, 0)},
        {"the end of the range ends it", {1, 9, 8}, 1, episode(1, 3, 9, 1)},
        {"a value at the limit ends it", {9, 9, 5, 9}, 2, episode(0, 2, 9, 0)},
        {"a gap ends it", {9, 9, NONE, 9}, 2, episode(0, 2, 9, 0)},
        {"the earlier of two equally long ones", {9, 7, 1, 8, 12}, 2, episode(0, 2, 9, 0)},
        {"the longer one later", {9, 7, 1, 8, 12, 11}, 2, episode(3, 6, 12, 4)},
        {"the first maximum on a tie", {6, 9, 7, 9}, 1, episode(0, 4, 9, 1)},
        {"single ones", {9, 1, 9, 1, 9}, 3, episode(0, 1, 9, 0)},
    };
    for (const Row& row : rows) {
        const Exceedances found = exceedancesOf(row.values, 5);
        EXPECT_EQ(found.episodes, row.episodes) << row.what;
        EXPECT_EQ(found.longestEpisode, row.longest) << row.what;
    }
}

TEST(Exceedances, AnEpisodeGoesOnOverMidnight) {
    std::vector<double> values(48, 1);
    values[23] = values[24] = 9;
    const Exceedances found = exceedancesOf(values, 5);
    EXPECT_EQ(found.episodes, 1);
    EXPECT_EQ(found.longestEpisode, (Episode{hour(23), hour(25), {9, hour(23)}}));
    EXPECT_EQ(found.days, 2);
}

TEST(Exceedances, DaysCountOnceByTheStartOfTheInterval) {
    std::vector<double> values(5 * 24, 1);
    values[0] = values[5] = values[23] = 9; // the first day
    values[48] = 9;                         // the third
    values[119] = 9;                        // the last hour of the fifth
    EXPECT_EQ(exceedancesOf(values, 5).days, 3);

    EvaluationRequest request = requestOf(3, 1440, JUNE_15 + 0.75); // days from 18:00 to 18:00
    request.limits[0] = 5;
    const Exceedances found = evaluate(request, readingOf({9, 9, 9}, 1440)).exceedances[0].value();
    EXPECT_EQ(found.days, 3);
    EXPECT_EQ(found.minutesAbove, 3 * 1440);
    EXPECT_EQ(found.longestEpisode, (Episode{JUNE_15 + 0.75, JUNE_15 + 3.75, {9, JUNE_15 + 0.75}}));
}

TEST(Exceedances, IntervalsThatDoNotCountEndAnEpisode) {
    EvaluationRequest request = requestOf(4);
    request.limits = {5, 100};
    request.onlyCovered = true;
    auto reading = readingOf({9, 9, 9, 9});
    reading[2].present = 44;
    const Evaluation found = evaluate(request, reading);
    EXPECT_EQ(found.exceedances[0]->episodes, 2);
    EXPECT_EQ(found.exceedances[0]->aboveShare(), 100); // of the three that count
    EXPECT_EQ(found.exceedances[1]->below, 3);

    reading.erase(reading.begin() + 1, reading.begin() + 3); // two that were not read
    EXPECT_EQ(evaluate(request, reading).exceedances[0]->episodes, 2);
}

TEST(Exceedances, LimitsThatCountAsNone) {
    for (const double limit : {NONE, -NONE, 1e9, std::numeric_limits<double>::infinity(),
                               std::numeric_limits<double>::quiet_NaN()}) {
        EvaluationRequest request = requestOf(1);
        request.limits = {limit, 3};
        const Evaluation found = evaluate(request, readingOf({5}));
        EXPECT_FALSE(found.exceedances[0]) << limit;
        EXPECT_EQ(found.exceedances[1]->above, 1);
        EXPECT_FALSE(found.request.limits[0]);
    }
    EXPECT_EQ(exceedancesOf({99999899}, 99999899).above, 0);
    EXPECT_EQ(exceedancesOf({99999899.5}, 99999899).above, 1);
}

TEST(Exceedances, AMeasuredZeroEqualsALimitOfZero) {
    for (const double limit : {0.0, ZERO_VALUE}) {
        const Exceedances found = exceedancesOf({ZERO_VALUE, 1e-9, -1e-9}, limit);
        EXPECT_EQ(found.above, 1);
        EXPECT_EQ(found.below, 1);
        EXPECT_EQ(found.limit, 0);
    }
}

TEST(Exceedances, NoValuesNoShares) {
    const Exceedances found = exceedancesOf({NONE, NONE}, 5);
    EXPECT_EQ(found.aboveShare(), std::nullopt);
    EXPECT_EQ(found.belowShare(), std::nullopt);
    EXPECT_EQ(found.days, 0);
}

TEST(Exceedances, OfDirectionsThereAreNone) {
    EvaluationRequest request = requestOf(1);
    request.kind = EvaluatedKind::direction;
    request.limits = {5, 7};
    const Evaluation found = evaluate(request, windOf({{90, 3}}));
    EXPECT_FALSE(found.exceedances[0]);
    EXPECT_FALSE(found.statistics);
    EXPECT_TRUE(found.wind);
}

} // namespace
} // namespace kelvrum
