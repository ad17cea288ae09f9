// SPDX-License-Identifier: GPL-3.0-or-later
// How complete a reading is, computed by hand.
#include "tests/evaluation/MadeReadings.h"

#include <gtest/gtest.h>

#include <limits>

namespace kelvrum {
namespace {

using namespace kelvrum::testing;

constexpr double HOUR = 1.0 / 24;

DateTime hour(int i) { return JUNE_15 + i * HOUR; }

TEST(Availability, CountsIntervalsAndMinutes) {
    EvaluationRequest request = requestOf(6);
    auto reading = readingOf({7, NONE, NONE, 8, 9});
    reading[0].present = 45; // exactly 75 %
    reading[3].present = 44;
    const Availability found = evaluate(request, reading).availability;
    EXPECT_EQ(found.intervals, 6); // the sixth was not reached
    EXPECT_EQ(found.withValue, 3);
    EXPECT_EQ(found.withoutValue(), 3);
    EXPECT_EQ(found.percent, 50);
    EXPECT_EQ(found.minutes, 360);
    EXPECT_EQ(found.presentMinutes, 45 + 44 + 60);
    EXPECT_DOUBLE_EQ(found.coverage().value(), 100.0 * 149 / 360);
    EXPECT_EQ(found.notCovered, 4);
    EXPECT_EQ(found.first, (TimedValue{7, hour(0)}));
    EXPECT_EQ(found.last, (TimedValue{9, hour(4)}));
}

TEST(Availability, TheLongestOutage) {
    struct Row {
        std::vector<double> values;
        std::int64_t total;
        std::optional<Outage> outage;
    };
    const Row rows[] = {
        {{1, 2, 3}, 3, std::nullopt},
        {{}, 0, std::nullopt},
        {{}, 3, Outage{hour(0), 3, 180}},
        {{NONE, NONE, 1}, 3, Outage{hour(0), 2, 120}},
        {{1, NONE, NONE, 1, NONE}, 5, Outage{hour(1), 2, 120}},
        {{1, NONE, NONE, 1, NONE, NONE}, 6, Outage{hour(1), 2, 120}}, // the earlier of two
        {{1, NONE, NONE, 1}, 7, Outage{hour(4), 3, 180}},             // what the reading did not reach
        {{1, NONE, 1}, 3, Outage{hour(1), 1, 60}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(evaluate(requestOf(row.total), readingOf(row.values)).availability.longestOutage,
                  row.outage)
            << row.values.size() << " of " << row.total;
    }
}

TEST(Availability, IntervalsLeftOutHaveNoValue) {
    auto reading = readingOf({1, 2, 3, 4, 5});
    reading.erase(reading.begin() + 1, reading.begin() + 4);
    const Availability found = evaluate(requestOf(5), reading).availability;
    EXPECT_EQ(found.withValue, 2);
    EXPECT_EQ(found.notCovered, 3);
    EXPECT_EQ(found.longestOutage, (Outage{hour(1), 3, 180}));
}

TEST(Availability, WhatBeginsAfterNowDoesNotCountAtAll) {
    EvaluationRequest request = requestOf(24);
    request.now = hour(3);
    const Availability found = evaluate(request, readingOf({1, 2, NONE, 4, 5, 6})).availability;
    EXPECT_EQ(found.intervals, 4);
    EXPECT_EQ(found.withValue, 3);
    EXPECT_EQ(found.minutes, 240);
    EXPECT_EQ(found.last, (TimedValue{4, hour(3)}));
    EXPECT_EQ(found.longestOutage, (Outage{hour(2), 1, 60}));
}

TEST(Availability, SumsHaveNone) {
    EvaluationRequest request = requestOf(4);
    request.kind = EvaluatedKind::sum;
    const Availability found = evaluate(request, readingOf({1, NONE, NONE, 2})).availability;
    EXPECT_EQ(found.percent, std::nullopt);
    EXPECT_EQ(found.withValue, 2);
}

TEST(Availability, NothingAtAll) {
    const Availability found = evaluate(requestOf(0), {}).availability;
    EXPECT_EQ(found, Availability{});
    EXPECT_EQ(found.coverage(), std::nullopt);
}

TEST(Availability, OnlyCoveredIntervalsCountInFiguresOfValues) {
    EvaluationRequest request = requestOf(4);
    auto reading = readingOf({1, 2, 3, 4});
    reading[0].present = 44;
    reading[3].present = 0;
    EXPECT_EQ(evaluate(request, reading).availability.evaluated, 4);
    request.onlyCovered = true;
    const Availability found = evaluate(request, reading).availability;
    EXPECT_EQ(found.evaluated, 2);
    EXPECT_EQ(found.first, (TimedValue{2, hour(1)}));
    EXPECT_EQ(found.last, (TimedValue{3, hour(2)}));
    EXPECT_EQ(found.withValue, 4); // they are there all the same
    EXPECT_EQ(found.percent, 100);
    EXPECT_EQ(found.longestOutage, std::nullopt);
}

TEST(Availability, ImpossibleMinutesAndNumbersOutOfOrder) {
    auto reading = readingOf({1, 2, 3});
    reading[0].present = 61;
    reading[1].present = -1;
    reading[2].present = std::numeric_limits<std::int32_t>::max();
    EXPECT_EQ(evaluate(requestOf(3), reading).availability.presentMinutes, 120);
    reading[1].index = -5;
    reading[2].index = 0;
    const Availability found = evaluate(requestOf(3), reading).availability;
    EXPECT_EQ(found.withValue, 1);
    EXPECT_EQ(found.longestOutage, (Outage{hour(1), 2, 120}));
}

} // namespace
} // namespace kelvrum
