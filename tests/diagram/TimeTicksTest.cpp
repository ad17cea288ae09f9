// SPDX-License-Identifier: GPL-3.0-or-later
// Ticks and labels of the time axis.
#include "diagram/TimeTicks.h"

#include "tests/diagram/TestDiagram.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <limits>

namespace kelvrum {
namespace {

using kelvrum::testing::DAY;
using ::testing::IsEmpty;

TEST(TimeStep, BySpan) {
    const struct {
        double span, step;
    } rows[] = {
        {1e-9, 1.0 / 96}, {1, 1.0 / 96},        {2, 1.0 / 96}, {2.0001, 0.5}, {3, 0.5},
        {7, 0.5},         {7.0001, 1},          {99, 1},       {99.0001, 31}, {360, 31},
        {366, 31},        {366.0001, 36.60001}, {400, 40},     {3660, 366},   {1e6, 1e5},
    };
    for (const auto& [span, step] : rows) {
        EXPECT_DOUBLE_EQ(timeStep(span), step) << span;
    }
}

std::vector<TimeTick> ticksOf(double from, double span, double width, const LocaleTexts& texts = {}) {
    return timeTicks({{from, from + span}, width, 65, 4}, texts);
}

/// The labels in one text: "upper lower" of each, with blanks between parts and "|" between labels.
std::string labelsOf(const std::vector<TimeTick>& ticks) {
    std::string all;
    for (const TimeTick& tick : ticks) {
        if (tick.labelled) {
            all += (all.empty() ? "" : "|") + tick.upper + (tick.lower.empty() ? "" : " " + tick.lower);
        }
    }
    return all;
}

TEST(TimeTicks, LabelsOfKnownAxes) {
    const struct {
        const char* what;
        double from, span, width;
        const char* labels;
    } rows[] = {
        {"3 days, every 12 hours", DAY, 3, 930,
         "00:00 01.01.24|12:00 01.01.24|00:00 02.01.24|12:00 02.01.24|00:00 03.01.24|12:00 03.01.24|"
         "00:00 04.01.24"},
        {"3 days, too narrow for 12 hours", DAY, 3, 300,
         "00:00 01.01.24|00:00 02.01.24|00:00 03.01.24|00:00 04.01.24"},
        {"exactly 65 pixels between labels", DAY, 3, 390,
         "00:00 01.01.24|12:00 01.01.24|00:00 02.01.24|12:00 02.01.24|00:00 03.01.24|12:00 03.01.24|"
         "00:00 04.01.24"},
        {"just less", DAY, 3, 389.9, "00:00 01.01.24|00:00 02.01.24|00:00 03.01.24|00:00 04.01.24"},
        {"1 day: 7 steps of 15 minutes", DAY, 1, 930,
         "00:00 01.01.24|01:45 01.01.24|03:30 01.01.24|05:15 01.01.24|07:00 01.01.24|08:45 01.01.24|"
         "10:30 01.01.24|12:15 01.01.24|14:00 01.01.24|15:45 01.01.24|17:30 01.01.24|19:15 01.01.24|"
         "21:00 01.01.24|22:45 01.01.24"},
        {"steps count from the start", DAY + 7.0 / 1440, 0.0625, 390,
         "00:07 01.01.24|00:22 01.01.24|00:37 01.01.24|00:52 01.01.24|01:07 01.01.24|01:22 01.01.24|"
         "01:37 01.01.24"},
        {"shorter than a step", DAY, 0.001, 930, "00:00 01.01.24"},
        {"narrower than a label", DAY, 1, 10, "00:00 01.01.24"},
        {"10 days, every day", DAY, 10, 930,
         "00:00 01.01.24|00:00 02.01.24|00:00 03.01.24|00:00 04.01.24|00:00 05.01.24|00:00 06.01.24|"
         "00:00 07.01.24|00:00 08.01.24|00:00 09.01.24|00:00 10.01.24|00:00 11.01.24"},
        {"200 days, every 31 days", DAY, 200, 930,
         "00:00 01.01.24|00:00 01.02.24|00:00 03.03.24|00:00 03.04.24|00:00 04.05.24|00:00 04.06.24|"
         "00:00 05.07.24"},
        {"400 days, months", 43831, 400, 930,
         "1.2020|2.2020|3.2020|4.2020|6.2020|7.2020|8.2020|10.2020|11.2020|12.2020|2.2021"},
        {"360 days are months", 44197, 360, 930,
         "1.2021|2.2021|3.2021|4.2021|5.2021|6.2021|7.2021|8.2021|9.2021|10.2021|11.2021|12.2021"},
        {"365 days: February costs March no label", 37257, 365, 800,
         "1.2002|2.2002|3.2002|4.2002|5.2002|6.2002|7.2002|8.2002|9.2002|10.2002|11.2002|12.2002"},
        {"365 days, a month is less than a label", 37257, 365, 760,
         "1.2002|3.2002|5.2002|7.2002|9.2002|11.2002"},
        {"just less are days", 44197, 359.9, 465,
         "00:00 01.01.21|00:00 04.03.21|00:00 05.05.21|00:00 06.07.21|00:00 06.09.21|00:00 07.11.21"},
        {"a month that began before the axis has no label", 44197 + 14, 360, 930,
         "2.2021|3.2021|4.2021|5.2021|6.2021|7.2021|8.2021|9.2021|10.2021|11.2021|12.2021"},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(labelsOf(ticksOf(row.from, row.span, row.width)), row.labels) << row.what;
    }
}

TEST(TimeTicks, TheSlashIsTheLocalesDateSeparator) {
    LocaleTexts texts;
    texts.dateSeparator = "-";
    EXPECT_EQ(labelsOf(ticksOf(DAY, 1, 66, texts)), "00:00 01-01-24|23:45 01-01-24");
    EXPECT_EQ(labelsOf(ticksOf(DAY, 400, 150, texts)), "1-2024|7-2024|2-2025");
}

TEST(TimeTicks, ShortTicksAreBetweenLabels) {
    const auto ticks = ticksOf(DAY, 1, 960); // 10 pixels a step
    ASSERT_EQ(ticks.size(), 97U);
    for (std::size_t i = 0; i < ticks.size(); ++i) {
        EXPECT_NEAR(ticks[i].time, DAY + static_cast<double>(i) / 96, 1e-9);
        EXPECT_EQ(ticks[i].labelled, i % 7 == 0) << i;
        EXPECT_EQ(ticks[i].upper.empty(), !ticks[i].labelled);
    }
}

TEST(TimeTicks, NoneForAnEmptySpanOrWidth) {
    constexpr double INF = std::numeric_limits<double>::infinity();
    constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
    EXPECT_THAT(labelsOf(ticksOf(DAY, 0, 930)), IsEmpty());
    for (const double span : {0.0, -1.0, -1e300, INF, -INF, NOT_A_NUMBER}) {
        EXPECT_TRUE(ticksOf(DAY, span, 930).empty()) << span;
    }
    for (const double width : {0.0, -1.0, -60.0, NOT_A_NUMBER}) {
        EXPECT_TRUE(ticksOf(DAY, 1, width).empty()) << width;
    }
}

TEST(TimeTicks, KeepTheirRulesForManySpansAndWidths) {
    for (const double from : {DAY, DAY + 0.3, DAY + 14.0, DAY + 30.999, 36525.0, 1.0}) {
        for (double span = 0.004; span < 60000; span *= 1.37) {
            for (const double width : {1.0, 64.0, 65.0, 66.0, 230.0, 930.0, 4000.0}) {
                SCOPED_TRACE(::testing::Message() << from << " + " << span << " on " << width);
                const auto ticks = ticksOf(from, span, width);
                const double perDay = width / span;
                double label = -1e9;
                double before = -1e9;
                for (const TimeTick& tick : ticks) {
                    const double offset = (tick.time - from) * perDay;
                    ASSERT_GE(offset, -1e-6);
                    ASSERT_LE(offset, width * (1 + 1e-6));
                    ASSERT_GE(offset, before + 4 - 2e-3) << "ticks too near";
                    before = offset;
                    if (tick.labelled) {
                        const double shortest = span >= 360 ? 28.0 / 31 : 1; // February beside a full month
                        ASSERT_GE(offset, label + shortest * 65 - 2e-3) << "labels too near";
                        label = offset;
                    }
                    if (span >= 360) {
                        const CalendarTime parts = calendarTime(tick.time);
                        ASSERT_EQ(parts.day, 1) << "no first of a month";
                        ASSERT_EQ(parts.hour + parts.minute, 0);
                    }
                }
                ASSERT_TRUE(span >= 360 ||
                            (!ticks.empty() && ticks.front().labelled && ticks.front().time == from));
            }
        }
    }
}

TEST(TimeTicks, SurviveTheEndsOfTheCalendar) {
    for (const double from :
         {FIRST_DATE - 1000, FIRST_DATE, LAST_DATE - 500, LAST_DATE + 1000, 1e15, -1e15}) {
        for (const double span : {1.0, 50.0, 400.0, 5000.0, 1e9}) {
            const auto ticks = ticksOf(from, span, 930);
            EXPECT_LE(ticks.size(), 300U) << from << " + " << span;
            for (std::size_t i = 1; i < ticks.size(); ++i) {
                EXPECT_GT(ticks[i].time, ticks[i - 1].time) << from << " + " << span;
            }
        }
    }
    EXPECT_LE(ticksOf(-1e300, 2e300, 930).size(), 300U);
}

} // namespace
} // namespace kelvrum
