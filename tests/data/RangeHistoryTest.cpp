// SPDX-License-Identifier: GPL-3.0-or-later
// Back and forward through the ranges shown.
#include "data/RangeHistory.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kelvrum {
namespace {

TimeRange day(int number) { return {44000.0 + number, 44001.0 + number}; }

double fromOf(const std::optional<TimeRange>& range) { return range ? range->from - 44000 : -1; }

TEST(RangeHistory, StartsWithoutAnywhereToGo) {
    RangeHistory history;
    EXPECT_FALSE(history.hasBack());
    EXPECT_FALSE(history.hasForward());
    EXPECT_FALSE(history.back());
    EXPECT_FALSE(history.forward());
    history.shown(day(1));
    EXPECT_FALSE(history.back());
    EXPECT_FALSE(history.forward());
}

TEST(RangeHistory, GoesBackAndForward) {
    RangeHistory history;
    for (const int n : {1, 2, 3}) {
        history.shown(day(n));
    }
    EXPECT_EQ(fromOf(history.back()), 2);
    history.shown(day(2)); // the load of the step itself
    EXPECT_EQ(fromOf(history.back()), 1);
    EXPECT_FALSE(history.hasBack());
    EXPECT_EQ(fromOf(history.forward()), 2);
    EXPECT_EQ(fromOf(history.forward()), 3);
    EXPECT_FALSE(history.hasForward());
}

TEST(RangeHistory, ANewRangeCutsWhatWasAhead) {
    RangeHistory history;
    for (const int n : {1, 2, 3}) {
        history.shown(day(n));
    }
    history.back();
    history.back();
    history.shown(day(9));
    EXPECT_FALSE(history.hasForward());
    EXPECT_EQ(fromOf(history.back()), 1);
    EXPECT_EQ(fromOf(history.forward()), 9);
}

TEST(RangeHistory, TheSameRangeTwiceIsOneEntryUnlessAnotherLiesBetween) {
    RangeHistory history;
    for (const int n : {1, 1, 2, 1, 1}) {
        history.shown(day(n));
    }
    EXPECT_EQ(fromOf(history.back()), 2);
    EXPECT_EQ(fromOf(history.back()), 1);
    EXPECT_FALSE(history.hasBack());
}

TEST(RangeHistory, KeepsExactTimes) {
    const TimeRange odd{44000.0 + 607.0 / 1440, 44000.0 + 659.0 / 1440};
    RangeHistory history;
    history.shown(odd);
    history.shown({odd.from, odd.to + 1.0 / 1440}); // a minute is a difference
    const auto back = history.back();
    ASSERT_TRUE(back);
    EXPECT_EQ(back->from, odd.from);
    EXPECT_EQ(back->to, odd.to);
}

/// Ends that were computed in another way may differ in the last bits of their doubles.
TEST(RangeHistory, TheSameMinutesAreTheSameRange) {
    RangeHistory history;
    const TimeRange range = day(1);
    history.shown(range);
    history.shown({std::nextafter(range.from, 0), std::nextafter(range.to, 1e9)});
    history.shown({std::nextafter(range.from, 1e9), std::nextafter(range.to, 0)});
    EXPECT_FALSE(history.hasBack());
}

TEST(RangeHistory, DropsTheOldestBeyondAHundred) {
    RangeHistory history;
    for (int n = 0; n < 150; ++n) {
        history.shown(day(n));
    }
    int steps = 0;
    double oldest = 0;
    while (const auto range = history.back()) {
        ++steps;
        oldest = fromOf(range);
    }
    EXPECT_EQ(steps, 99);
    EXPECT_EQ(oldest, 50);
}

TEST(RangeHistory, IsEmptyAfterClear) {
    RangeHistory history;
    history.shown(day(1));
    history.shown(day(2));
    history.clear();
    EXPECT_FALSE(history.hasBack());
    history.shown(day(2)); // an entry of its own again
    history.shown(day(3));
    EXPECT_EQ(fromOf(history.back()), 2);
}

} // namespace
} // namespace kelvrum
