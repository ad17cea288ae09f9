// SPDX-License-Identifier: GPL-3.0-or-later
// The stopwatch on a counter made for the test.
#include "util/cTimer.h"

#include <gtest/gtest.h>
#include <vector>

namespace kelvrum {

namespace {

/// A counter that shows these readings one after the other.
CounterSource readings(std::vector<std::int64_t> values, std::int64_t frequency) {
    return {[values, next = std::size_t{0}]() mutable { return values.at(next++); }, frequency};
}

TEST(cTimer, IsZeroBeforeStartAndRightAfterCalibrating) {
    const cTimer fresh(readings({}, 1000));
    EXPECT_EQ(fresh.RunTime(), 0);
    cTimer calibrated(readings({100, 103}, 1000));
    calibrated.Calibrieren();
    EXPECT_EQ(calibrated.RunTime(), 0) << "calibrating overwrites both readings";
}

TEST(cTimer, MeasuresMillisecondsAndSubtractsTheOverhead) {
    cTimer timer(readings({100, 103, 1000, 1503}, 1000));
    timer.Calibrieren(); // 3 ms
    timer.Start();
    timer.Halt();
    EXPECT_EQ(timer.RunTime(), 500);
}

TEST(cTimer, ConvertsCountersFromTheirSignedHalves) {
    struct Case {
        std::int64_t count;
        double expected;
    };
    const Case cases[] = {
        {0, 0},
        {1, 1},
        {2147483647, 2147483647.0},
        {2147483648, 2147483649.0}, // top bit of the low half: one tick too high
        {4294967295, 4294967296.0},
        {4294967296, 4294967296.0},
        {4294967296 + 2147483648, 4294967296.0 + 2147483649.0},
        {-4294967296, 4294967296.0 * 4294967296.0}, // high half -1, low half 0
        {-1, 4294967296.0 * 4294967296.0 + 4294967296.0},
    };
    for (const Case& c : cases) {
        EXPECT_EQ(cTimer::countAsDouble(c.count), c.expected) << c.count;
    }
}

TEST(cTimer, IsOffByATickWhenOnlyOneReadingHasTheTopBit) {
    cTimer timer(readings({2147483647, 2147483648}, 1000));
    timer.Start();
    timer.Halt();
    EXPECT_EQ(timer.RunTime(), 2);
}

TEST(cTimer, RunsOnTheMachinesClock) {
    cTimer timer;
    timer.Calibrieren();
    timer.Start();
    timer.Halt();
    EXPECT_GT(timer.RunTime(), -1000);
}

TEST(TimeReport, HasSixDecimalsAndTheUnit) {
    EXPECT_EQ(timeReport(0), "Zeitmessung: 0.000000 ms");
    EXPECT_EQ(timeReport(1.5), "Zeitmessung: 1.500000 ms");
    EXPECT_EQ(timeReport(-0.0000001), "Zeitmessung: 0.000000 ms");
    EXPECT_EQ(timeReport(1234.5678905), "Zeitmessung: 1234.567891 ms");
}

} // namespace

} // namespace kelvrum
