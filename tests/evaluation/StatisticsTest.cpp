// SPDX-License-Identifier: GPL-3.0-or-later
// Statistics computed by hand, awkward values first.
#include "evaluation/Statistics.h"

#include "evaluation/CompensatedSum.h"
#include "tests/evaluation/MadeReadings.h"

#include <gtest/gtest.h>

#include <array>
#include <cmath>
#include <limits>
#include <numeric>

namespace kelvrum {
namespace {

using namespace kelvrum::testing;

constexpr double INFINITE = std::numeric_limits<double>::infinity();
constexpr double NO_NUMBER = std::numeric_limits<double>::quiet_NaN();

Statistics statisticsOf(const std::vector<double>& values) { return evaluationOf(values).statistics.value(); }

DateTime hour(int i) { return JUNE_15 + i / 24.0; }

TEST(CompensatedSums, KeepWhatAnAdditionRoundsOff) {
    struct Row {
        std::vector<double> values;
        double sum;
    };
    const Row rows[] = {
        {{}, 0},
        {{1, 1e100, 1, -1e100}, 2},
        {{1e100, 1, -1e100}, 1},
        {{1e-300, 1, -1}, 1e-300},
        {{99999899, 1e-9, -99999899}, 1e-9},
    };
    for (const Row& row : rows) {
        CompensatedSum sum;
        for (const double v : row.values) {
            sum.add(v);
        }
        EXPECT_EQ(sum.value(), row.sum);
    }
    CompensatedSum tenths;
    for (int i = 0; i < 1'000'000; ++i) {
        tenths.add(0.1);
    }
    EXPECT_EQ(tenths.value(), 100'000); // a plain sum is off by 1e-6
}

TEST(Statistics, OfNoValue) {
    EXPECT_EQ(statisticsOf({}), Statistics{});
    EXPECT_EQ(statisticsOf({NONE, NO_NUMBER, INFINITE, -INFINITE, -NONE, 1e9}), Statistics{});
}

TEST(Statistics, OfOneValue) {
    const Statistics found = statisticsOf({NONE, 7.5, NONE});
    const TimedValue only{7.5, hour(1)};
    EXPECT_EQ(found.minimum, only);
    EXPECT_EQ(found.maximum, only);
    EXPECT_EQ(found.mean, 7.5);
    EXPECT_EQ(found.deviation, std::nullopt);
    for (const auto& percentile : {found.median, found.percentile5, found.percentile95, found.percentile98}) {
        EXPECT_EQ(percentile, 7.5);
    }
    EXPECT_EQ(found.sum, 7.5);
}

TEST(Statistics, OfEightValues) {
    const Statistics found = statisticsOf({2, 4, 4, 4, NONE, 5, 5, 7, 9});
    EXPECT_EQ(found.minimum, (TimedValue{2, hour(0)}));
    EXPECT_EQ(found.maximum, (TimedValue{9, hour(8)}));
    EXPECT_EQ(found.mean, 5);
    EXPECT_DOUBLE_EQ(found.deviation.value(), std::sqrt(32.0 / 7));
    EXPECT_EQ(found.median, 4.5);
    EXPECT_DOUBLE_EQ(found.percentile5.value(), 2 + 0.35 * 2);  // position 0.35
    EXPECT_DOUBLE_EQ(found.percentile95.value(), 7 + 0.65 * 2); // position 6.65
    EXPECT_DOUBLE_EQ(found.percentile98.value(), 7 + 0.86 * 2); // position 6.86
    EXPECT_EQ(found.sum, 40);
}

TEST(Statistics, OfEqualValues) {
    for (const double v : {0.1, 1.0 / 3, -45.6, 99999899.9}) {
        const Statistics found = statisticsOf(std::vector<double>(1009, v));
        EXPECT_EQ(found.mean, v);
        EXPECT_EQ(found.deviation, 0);
        EXPECT_EQ(found.median, v);
        EXPECT_EQ(found.percentile98, v);
        EXPECT_EQ(found.minimum, (TimedValue{v, hour(0)})); // the first of all
        EXPECT_EQ(found.maximum, (TimedValue{v, hour(0)}));
    }
}

TEST(Statistics, AMeasuredZeroIsZero) {
    const Statistics found = statisticsOf({ZERO_VALUE, 3, ZERO_VALUE, -1});
    EXPECT_EQ(found.mean, 0.5);
    EXPECT_EQ(found.median, 0);
    EXPECT_EQ(statisticsOf({5, ZERO_VALUE, ZERO_VALUE}).minimum, (TimedValue{0, hour(1)}));
    EXPECT_EQ(evaluationOf({ZERO_VALUE}).availability.first, (TimedValue{0, hour(0)}));
}

TEST(Statistics, SumsAndDeviationsOfHugeAndTinyValues) {
    const Statistics found = statisticsOf({99999899, 1e-9, -99999899});
    EXPECT_EQ(found.sum, 1e-9);
    EXPECT_DOUBLE_EQ(found.mean.value(), 1e-9 / 3);
    // Squares of values of this size lose the deviation altogether.
    const Statistics close = statisticsOf({9e7 + 1, 9e7 + 2, 9e7 + 3});
    EXPECT_EQ(close.mean, 9e7 + 2);
    EXPECT_EQ(close.deviation, 1);
}

TEST(Statistics, PercentilesAtWholePositionsAreExact) {
    std::vector<double> values(101);
    std::iota(values.begin(), values.end(), 0.0);
    std::reverse(values.begin(), values.end());
    const Statistics found = statisticsOf(values);
    EXPECT_EQ(found.percentile5, 5);
    EXPECT_EQ(found.median, 50);
    EXPECT_EQ(found.percentile95, 95);
    EXPECT_EQ(found.percentile98, 98);
}

TEST(Statistics, SortingForPercentilesEqualsSortingAll) {
    constexpr std::array<std::size_t, 6> PERCENTS = {0, 5, 50, 95, 98, 100};
    for (std::size_t n = 1; n < 300; ++n) {
        std::vector<double> values(n);
        for (std::size_t i = 0; i < n; ++i) {
            values[i] = static_cast<double>((i * 7919) % 101);
        }
        std::vector<double> sorted = values;
        std::sort(sorted.begin(), sorted.end());
        sortPercentiles(values, PERCENTS);
        for (const std::size_t percent : PERCENTS) {
            ASSERT_EQ(percentile(values, percent), percentile(sorted, percent)) << percent << " % of " << n;
        }
    }
}

TEST(Statistics, OnlyCoveredIntervals) {
    EvaluationRequest request = requestOf(4);
    request.onlyCovered = true;
    auto reading = readingOf({1, 2, 3, 100});
    reading[3].present = 44;
    const Statistics found = evaluate(request, reading).statistics.value();
    EXPECT_EQ(found.maximum, (TimedValue{3, hour(2)}));
    EXPECT_EQ(found.mean, 2);
    EXPECT_EQ(found.sum, 6);
}

TEST(Statistics, ExtremesOfWideRecords) {
    EvaluationRequest request = requestOf(4);
    auto reading = readingOf({5, 6, NONE, 7});
    const std::array<double, 4> minima = {4, 1, 1, NONE};
    const std::array<double, 4> maxima = {9, NONE, 12, 12};
    for (std::size_t i = 0; i < reading.size(); ++i) {
        reading[i].minimum = minima[i];
        reading[i].maximum = maxima[i];
    }
    reading[1].present = 10;
    const Evaluation found = evaluate(request, reading);
    EXPECT_EQ(found.smallestMinimum, (TimedValue{1, hour(1)}));
    EXPECT_EQ(found.greatestMaximum, (TimedValue{12, hour(2)}));
    request.onlyCovered = true;
    const Evaluation covered = evaluate(request, reading);
    EXPECT_EQ(covered.smallestMinimum, (TimedValue{4, hour(0)}));
    EXPECT_EQ(covered.greatestMaximum, (TimedValue{12, hour(3)}));
    EXPECT_EQ(evaluationOf({1}).smallestMinimum, std::nullopt);
}

} // namespace
} // namespace kelvrum
