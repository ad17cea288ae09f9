// SPDX-License-Identifier: GPL-3.0-or-later
// The evaluation beside a straightforward second implementation of the same figures.
#include "tests/evaluation/PlainEvaluation.h"
#include "tests/evaluation/EvaluationDifference.h"
#include "tests/evaluation/MadeEvaluations.h"

#include <gtest/gtest.h>

namespace kelvrum {
namespace {

using namespace kelvrum::testing;

std::string differenceFromPlain(const MadeEvaluation& made) {
    return differenceOf(evaluate(made.request, made.reading), plainEvaluation(made.request, made.reading));
}

TEST(PlainEvaluation, GivesTheSameFiguresForEveryMadeReading) {
    EXPECT_EQ(forAll(1, 4000, madeEvaluation, smallerEvaluations, differenceFromPlain), "");
}

TEST(PlainEvaluation, GivesTheSameFiguresForYearsAndLongRanges) {
    struct Row {
        const char* what;
        TimeRange range;
        std::int32_t interval;
    };
    const Row rows[] = {
        {"a year of days", {dateSerial(2025, 1, 1), dateSerial(2026, 1, 1)}, 1440},
        {"a leap year of days", {dateSerial(2024, 1, 1), dateSerial(2025, 1, 1)}, 1440},
        {"a year of days from noon", {dateSerial(2025, 1, 1) + 0.5, dateSerial(2026, 1, 1) + 0.5}, 1440},
        {"a year of hours", {dateSerial(2025, 1, 1), dateSerial(2026, 1, 1)}, 60},
        {"62 days", {dateSerial(2026, 6, 1), dateSerial(2026, 8, 2)}, 15},
        {"62 days and a minute", {dateSerial(2026, 6, 1), dateSerial(2026, 8, 2) + 1 / 1440.0}, 15},
        {"a day of minutes over New Year",
         {dateSerial(2025, 12, 31) + 0.75, dateSerial(2026, 1, 1) + 0.75},
         1},
        {"before the stations' calendar", {-400.25, -300}, 60},
    };
    for (const Row& row : rows) {
        Numbers numbers(7);
        MadeEvaluation made;
        made.request.range = row.range;
        made.request.interval = row.interval;
        for (const EvaluatedKind kind :
             {EvaluatedKind::value, EvaluatedKind::sum, EvaluatedKind::direction}) {
            made.request.kind = kind;
            made.request.limits = {20, 35};
            made.reading = madeReading(numbers, made.request, 40'000);
            EXPECT_EQ(differenceFromPlain(made), "") << row.what;
        }
    }
}

} // namespace
} // namespace kelvrum
