// SPDX-License-Identifier: GPL-3.0-or-later
// The labels of any time axis: in the axis, one to the right of the other, never too close.
#include "diagram/TimeTicks.h"

#include "tests/testing/Property.h"

#include <gtest/gtest.h>

#include <ostream>

namespace kelvrum {

/// How a failed case is reported.
inline std::ostream& operator<<(std::ostream& out, const TimeAxis& axis) {
    out.precision(17);
    return out << axis.range.from << " to " << axis.range.to << " on " << axis.width << ", labels "
               << axis.minLabelGap << ", ticks " << axis.minTickGap;
}

namespace {

using namespace kelvrum::testing;

TimeAxis madeAxis(Numbers& numbers) {
    const double spans[] = {1.0 / 1440, 1.0 / 96, 0.25, 1, 2, 7, 30, 99, 180, 359.99, 360, 366, 1000, 36'500};
    TimeAxis axis;
    axis.range.from = dateSerial(numbers.whole(1900, 2100), numbers.whole(1, 12), numbers.whole(1, 31)) +
                      (numbers.oneIn(2) ? 0 : numbers.whole(0, 1439) / 1440.0);
    const double span = numbers.oneOf(spans);
    axis.range.to = axis.range.from + (numbers.oneIn(2) ? span : span * numbers.between(0.01, 2));
    axis.width = numbers.oneIn(2) ? numbers.whole(1, 4000) : numbers.between(0.1, 400);
    if (numbers.oneIn(2)) { // dots of a printer
        axis.minLabelGap = 65 * 47.24;
        axis.minTickGap = 4 * 47.24;
        axis.width *= 10;
    }
    return axis;
}

std::vector<TimeAxis> simplerAxes(const TimeAxis& axis) {
    std::vector<TimeAxis> simpler;
    const double span = axis.range.to - axis.range.from;
    for (const double width : smallerNumbers(axis.width)) {
        simpler.push_back({axis.range, width, axis.minLabelGap, axis.minTickGap});
    }
    for (const double s : smallerNumbers(span)) {
        simpler.push_back(
            {{axis.range.from, axis.range.from + s}, axis.width, axis.minLabelGap, axis.minTickGap});
    }
    for (const double from : smallerNumbers(axis.range.from)) {
        simpler.push_back({{from, from + span}, axis.width, axis.minLabelGap, axis.minTickGap});
    }
    return simpler;
}

TEST(TimeTicksProperties, EachLabelKeepsTheMinimumDistanceFromThePreviousOne) {
    int labels = 0;
    const auto check = [&labels](const TimeAxis& axis) -> std::string {
        constexpr double ROUNDING = 2e-3; // of a dot
        const double perDay = axis.width / (axis.range.to - axis.range.from);
        const std::vector<TimeTick> ticks = timeTicks(axis, {});
        const TimeTick* label = nullptr; // the one before
        const TimeTick* tick = nullptr;
        for (const TimeTick& t : ticks) {
            const auto apart = [&](const TimeTick& other) { return (t.time - other.time) * perDay; };
            if (tick != nullptr && (t.time <= tick->time || apart(*tick) < axis.minTickGap - ROUNDING)) {
                return "a tick is " + std::to_string(apart(*tick)) + " after the previous one";
            }
            const double shortest = t.lower.empty() ? 28.0 / 31 : 1; // February beside a full month
            if (t.labelled && label != nullptr && apart(*label) < shortest * axis.minLabelGap - ROUNDING) {
                return t.upper + " " + t.lower + " is " + std::to_string(apart(*label)) + " after " +
                       label->upper;
            }
            if (t.time < axis.range.from || t.time > axis.range.to + 1e-6) {
                return "a tick outside of the axis";
            }
            tick = &t;
            label = t.labelled ? &t : label;
            labels += t.labelled ? 1 : 0;
        }
        return {};
    };
    EXPECT_EQ(forAll(1, 3000, madeAxis, simplerAxes, check), "");
    EXPECT_GT(labels, 0);
}

} // namespace
} // namespace kelvrum
