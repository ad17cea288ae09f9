// SPDX-License-Identifier: GPL-3.0-or-later
// Mean winds and the table of directions, computed by hand.
#include "evaluation/WindStatistics.h"

#include "tests/evaluation/MadeReadings.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <numeric>

namespace kelvrum {
namespace {

using namespace kelvrum::testing;

using Winds = std::vector<std::pair<double, double>>; // direction, speed

Evaluation evaluationOfWinds(const Winds& winds) {
    EvaluationRequest request = requestOf(static_cast<std::int64_t>(winds.size()));
    request.kind = EvaluatedKind::direction;
    return evaluate(request, windOf(winds));
}

WindStatistics windStatisticsOf(const Winds& winds) { return evaluationOfWinds(winds).wind.value(); }

TEST(WindStatistics, DirectionsOfTheTable) {
    struct Row {
        double degrees;
        std::size_t direction;
    };
    const Row rows[] = {
        {360, 0},          {0, 0},          {14.9, 0},     {345, 0}, {344.9999995, 0}, {344.99999, 11},
        {15, 1},           {14.9999995, 1}, {14.99999, 0}, {30, 1},  {90, 3},          {75, 3},
        {74.9999995, 3},   {104.99, 3},     {105, 4},      {180, 6}, {270, 9},         {330, 11},
        {314.9999995, 11}, {-15, 0},        {-90, 9},      {720, 0}, {1e7, 9},         {-1e-300, 0},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(directionOf(row.degrees), row.direction) << row.degrees;
    }
}

TEST(WindStatistics, MeanDirections) {
    struct Row {
        const char* what;
        Winds winds;
        std::optional<double> weighted;
        std::optional<double> unit;
        std::optional<double> constancy;
    };
    const double half = std::sqrt(0.5);
    const double toDegrees = 180 / std::acos(-1.0);
    const Row rows[] = {
        {"none", {}, std::nullopt, std::nullopt, std::nullopt},
        {"north is 360", {{360, 3}}, 360, 360, 1},
        {"through north", {{350, 2}, {10, 2}}, 360, 360, std::cos(10 / toDegrees)},
        {"east", {{90, 3}}, 90, 90, 1},
        {"a right angle", {{360, 2}, {90, 2}}, 45, 45, half},
        {"weighted", {{360, 3}, {90, 4}}, std::atan2(4, 3) * toDegrees, 45, 5.0 / 7},
        {"cancel", {{180, 2}, {360, 2}}, std::nullopt, std::nullopt, 0},
        {"cancel in three", {{120, 2}, {240, 2}, {360, 2}}, std::nullopt, std::nullopt, 0},
        {"cancel without weight", {{180, 2}, {360, 3}}, 360, std::nullopt, 0.2},
        {"cancel with weight", {{90, 4}, {270, 2}, {270, 2}}, std::nullopt, 270, 0},
        {"a measured calm has no weight", {{90, ZERO_VALUE}}, std::nullopt, 90, std::nullopt},
        {"calms count in the means", {{360, 0.3}, {90, 0.4}}, std::atan2(4, 3) * toDegrees, 45, 5.0 / 7},
        {"no speed, no count", {{90, 2}, {180, NONE}}, 90, 90, 1},
        {"no direction, no count", {{90, 2}, {NONE, 7}}, 90, 90, 1},
    };
    for (const Row& row : rows) {
        const WindStatistics found = windStatisticsOf(row.winds);
        const auto near = [&](std::optional<double> got, std::optional<double> wanted, const char* figure) {
            ASSERT_EQ(got.has_value(), wanted.has_value()) << row.what << ", " << figure;
            EXPECT_NEAR(got.value_or(0), wanted.value_or(0), 1e-12) << row.what << ", " << figure;
        };
        near(found.weightedDirection, row.weighted, "weighted");
        near(found.unitDirection, row.unit, "unit");
        near(found.constancy, row.constancy, "constancy");
    }
}

TEST(WindStatistics, ClassesOfSpeed) {
    struct Row {
        double speed;
        int column; // -1: a calm
    };
    const Row rows[] = {{ZERO_VALUE, -1}, {0.4999, -1}, {0.5, 0},      {1.999, 0}, {2, 1},
                        {4, 2},           {6, 3},       {7.99, 3},     {8, 4},     {9.999, 4},
                        {10, 5},          {99, 5},      {99999899, 5}, {-3, -1}};
    for (const Row& row : rows) {
        const WindStatistics found = windStatisticsOf({{120, row.speed}});
        EXPECT_EQ(found.intervals, 1);
        EXPECT_EQ(found.calms, row.column < 0 ? 1 : 0) << row.speed;
        for (std::size_t column = 0; column < SPEED_CLASSES.size(); ++column) {
            EXPECT_EQ(found.table[4][column], static_cast<int>(column) == row.column ? 1 : 0) << row.speed;
        }
    }
}

TEST(WindStatistics, TheTableHoldsEachIntervalOnce) {
    Winds winds;
    for (int d = 1; d <= 360; ++d) {
        winds.emplace_back(d, 0.1 * d);
    }
    const WindStatistics found = windStatisticsOf(winds);
    std::int64_t total = found.calms;
    for (const auto& row : found.table) {
        total = std::accumulate(row.begin(), row.end(), total);
    }
    EXPECT_EQ(found.calms, 4);
    EXPECT_EQ(total, 360);
    EXPECT_EQ(std::accumulate(found.table[6].begin(), found.table[6].end(), 0), 30);
}

TEST(WindStatistics, OnlyCoveredIntervals) {
    EvaluationRequest request = requestOf(2);
    request.kind = EvaluatedKind::direction;
    request.onlyCovered = true;
    auto reading = windOf({{90, 3}, {180, 3}});
    reading[1].present = 44;
    EXPECT_EQ(evaluate(request, reading).wind->intervals, 1);
}

TEST(WindStatistics, NumbersThatAreNoWinds) {
    constexpr double NO_NUMBER = std::numeric_limits<double>::quiet_NaN();
    const WindStatistics found = windStatisticsOf({{NO_NUMBER, 3}, {90, NO_NUMBER}, {1e12, 3}, {90, 1e12}});
    EXPECT_EQ(found, WindStatistics{});
    const WindStatistics backwards = windStatisticsOf({{90, -5}, {90, 2}});
    EXPECT_GE(backwards.constancy.value(), 0);
    EXPECT_LE(backwards.constancy.value(), 1);
}

TEST(WindStatistics, ManyThatCancelLeaveNoDirection) {
    Winds winds;
    for (int i = 0; i < 100'000; ++i) {
        winds.emplace_back(i % 360 + 0.5, 3.3);
        winds.emplace_back((i + 180) % 360 + 0.5, 3.3);
    }
    const WindStatistics found = windStatisticsOf(winds);
    EXPECT_EQ(found.weightedDirection, std::nullopt);
    EXPECT_EQ(found.unitDirection, std::nullopt);
    EXPECT_NEAR(found.constancy.value(), 0, 1e-12);
}

} // namespace
} // namespace kelvrum
