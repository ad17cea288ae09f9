// SPDX-License-Identifier: GPL-3.0-or-later
// Gap rules of the series, and the times of its columns.
#include "data/SeriesFill.h"

#include "data/ChannelFiles.h"
#include "util/Validity.h"

#include <gtest/gtest.h>

#include <utility>
#include <vector>

namespace kelvrum {
namespace {

constexpr double NONE = INVALID_VALUE;

/// A column as interval number and value.
using Columns = std::vector<std::pair<int, double>>;

constexpr DateTime START = 43831; // 2020-01-01

Columns columnsOf(const SeriesTable& table, std::size_t count) {
    Columns columns;
    for (std::size_t i = 0; i < count; ++i) {
        EXPECT_EQ(table.row(SeriesTable::Y2)[i], INVALID_VALUE);
        columns.emplace_back(MinuteIndex(table.row(SeriesTable::TIME)[i]), table.row(SeriesTable::Y1)[i]);
    }
    return columns;
}

TEST(SeriesFill, GapRules) {
    struct Row {
        const char* what;
        std::vector<double> values;
        Columns columns;
    };
    const Row rows[] = {
        {"nothing", {}, {}},
        {"all missing", {NONE, NONE, NONE}, {}},
        {"one value", {5}, {{0, 5}}},
        {"3 to 7 missing",
         {9, 8, 7, NONE, NONE, NONE, NONE, NONE, 6},
         {{0, 9}, {1, 8}, {2, 7}, {3, NONE}, {8, 6}}},
        {"leading", {NONE, NONE, 4, 3}, {{2, 4}, {3, 3}}},
        {"trailing", {4, 3, NONE, NONE}, {{0, 4}, {1, 3}, {2, NONE}}},
        {"every other",
         {1, NONE, 2, NONE, 3, NONE},
         {{0, 1}, {1, NONE}, {2, 2}, {3, NONE}, {4, 3}, {5, NONE}}},
        {"zero stand-in and plain zero are values",
         {ZERO_VALUE, 0, NONE},
         {{0, ZERO_VALUE}, {1, 0}, {2, NONE}}},
        {"beyond the diagram's marker", {999999, -5e6}, {{0, 999999}, {1, -5e6}}},
    };
    for (const Row& row : rows) {
        SCOPED_TRACE(row.what);
        for (const std::size_t expected :
             {std::size_t{0}, std::size_t{1}, row.values.size(), std::size_t{50}}) {
            SeriesTable one;
            SeriesFill single(one, expected);
            for (std::size_t i = 0; i < row.values.size(); ++i) {
                single.add(intervalStart(START, static_cast<std::int64_t>(i), 1), row.values[i]);
            }
            EXPECT_EQ(single.finish(), row.columns.size());
            EXPECT_EQ(one.columns(), std::max<std::size_t>(row.columns.size(), 1));
            EXPECT_EQ(columnsOf(one, row.columns.size()), row.columns);

            SeriesTable whole;
            SeriesFill run(whole, expected);
            run.add(START, 0, 1, row.values);
            EXPECT_EQ(run.finish(), row.columns.size());
            EXPECT_EQ(columnsOf(whole, row.columns.size()), row.columns);
        }
    }
}

TEST(SeriesFill, TheGapRulesRunOnFromPieceToPiece) {
    SeriesTable table;
    SeriesFill fill(table, 8);
    fill.add(START, 0, 1, std::vector<double>{NONE, 1});
    fill.add(START, 2, 1, std::vector<double>{NONE});
    fill.add(START, 3, 1, std::vector<double>{});
    fill.add(START, 3, 1, std::vector<double>{NONE, NONE});
    fill.add(START, 5, 1, std::vector<double>{2, 3});
    fill.add(START, 7, 1, std::vector<double>{NONE});
    ASSERT_EQ(fill.finish(), 5U);
    EXPECT_EQ(columnsOf(table, 5), (Columns{{1, 1}, {2, NONE}, {5, 2}, {6, 3}, {7, NONE}}));
}

TEST(SeriesFill, ANewPassStartsWithoutAGap) {
    SeriesTable table;
    SeriesFill fill(table, 6);
    fill.add(START, 0, 1, std::vector<double>{1, 2});
    fill.startPass();
    fill.add(START, 0, 1, std::vector<double>{NONE, 3});
    ASSERT_EQ(fill.finish(), 3U);
    EXPECT_EQ(columnsOf(table, 3), (Columns{{0, 1}, {1, 2}, {1, 3}}));
}

TEST(SeriesFill, AnEmptySeriesLeavesOneColumnOfALongOne) {
    SeriesTable table;
    table.resize(500);
    SeriesFill fill(table, 10);
    fill.add(START, NONE);
    EXPECT_EQ(fill.finish(), 0U);
    EXPECT_EQ(table.columns(), 1U);
}

TEST(IntervalStart, NeverDrifts) {
    const DateTime starts[] = {dateSerial(2020, 1, 1), dateSerial(2020, 1, 1) + timeSerial(7, 7),
                               dateSerial(1999, 1, 1) + timeSerial(0, 1)};
    for (const DateTime start : starts) {
        const std::int32_t offset = MinuteIndex(start);
        for (std::int32_t i = 0; i < 525000; ++i) {
            const CalendarTime time = calendarTime(intervalStart(start, i, 1));
            const int minute = (i + offset) % 1440;
            ASSERT_EQ(time.hour * 60 + time.minute, minute) << i;
            ASSERT_EQ(time.second * 1000 + time.millisecond, 0) << i;
        }
    }
}

TEST(IntervalStarts, AreTheStartsOfEach) {
    for (const std::int32_t interval : {1, 5, 15, 1440, 100000}) {
        for (const std::int64_t first : {0LL, 7LL, 525'599LL, 40'000'000LL}) {
            std::vector<DateTime> starts(700);
            intervalStarts(START + 0.3, first, interval, starts);
            for (std::size_t i = 0; i < starts.size(); ++i) {
                ASSERT_EQ(starts[i],
                          intervalStart(START + 0.3, first + static_cast<std::int64_t>(i), interval));
            }
        }
    }
}

TEST(IntervalStart, OfHalfAMillionIntervalsOfADay) {
    // Beyond 32 bits in minutes.
    EXPECT_EQ(intervalStart(0, 2'000'000, 1440), 2'000'000);
    EXPECT_EQ(intervalStart(START, 500'000, 1440), START + 500'000);
    EXPECT_EQ(intervalStart(START, 720, 1), START + 0.5);
    EXPECT_EQ(intervalStart(START, 6, 60), START + 0.25);
}

} // namespace
} // namespace kelvrum
