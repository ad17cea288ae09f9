// SPDX-License-Identifier: GPL-3.0-or-later
// What holds for the evaluation of every reading.
#include "tests/evaluation/MadeEvaluations.h"

#include <gtest/gtest.h>

#include <bit>
#include <numeric>
#include <sstream>
#include <string>

namespace kelvrum {
namespace {

using namespace kelvrum::testing;

/// Notes what does not hold.
class Findings {
  public:
    template<typename T>
    void same(const char* what, const T& one, const T& other) {
        if (!(one == other)) {
            text_ << what << ": " << one << " and " << other << '\n';
        }
    }
    void near(const char* what, std::optional<double> one, std::optional<double> other, double slack) {
        if (one.has_value() != other.has_value() || std::fabs(one.value_or(0) - other.value_or(0)) > slack) {
            text_ << what << ": " << one.value_or(NAN) << " and " << other.value_or(NAN) << '\n';
        }
    }
    void angle(const char* what, std::optional<double> one, std::optional<double> other) {
        near(what, std::remainder(one.value_or(0) - other.value_or(0), 360), 0.0, 1e-6);
        same(what, one.has_value(), other.has_value());
    }
    void holds(const char* what, bool condition) {
        if (!condition) {
            text_ << what << '\n';
        }
    }
    [[nodiscard]] std::string text() const { return text_.str(); }

  private:
    std::ostringstream text_;
};

std::optional<double> valueOf(const std::optional<TimedValue>& timed) {
    return timed ? std::optional(timed->value) : std::nullopt;
}

constexpr double SLACK = 1e-9; // for values up to some hundreds

/// Everything that does not depend on the order of the intervals.
void compareWithoutOrder(Findings& findings, const Evaluation& one, const Evaluation& other) {
    findings.same("with value", one.availability.withValue, other.availability.withValue);
    findings.same("present", one.availability.presentMinutes, other.availability.presentMinutes);
    findings.same("not covered", one.availability.notCovered, other.availability.notCovered);
    if (one.statistics && other.statistics) {
        findings.near("minimum", valueOf(one.statistics->minimum), valueOf(other.statistics->minimum), 0);
        findings.near("maximum", valueOf(one.statistics->maximum), valueOf(other.statistics->maximum), 0);
        findings.near("mean", one.statistics->mean, other.statistics->mean, SLACK);
        findings.near("deviation", one.statistics->deviation, other.statistics->deviation, SLACK);
        findings.near("median", one.statistics->median, other.statistics->median, 0);
        findings.near("5 %", one.statistics->percentile5, other.statistics->percentile5, 0);
        findings.near("95 %", one.statistics->percentile95, other.statistics->percentile95, 0);
        findings.near("98 %", one.statistics->percentile98, other.statistics->percentile98, 0);
    }
    for (std::size_t i = 0; i < LIMITS; ++i) {
        const Exceedances a = one.exceedances[i].value_or(Exceedances{});
        const Exceedances b = other.exceedances[i].value_or(Exceedances{});
        findings.same("above", a.above, b.above);
        findings.same("below", a.below, b.below);
    }
    if (one.wind && other.wind) {
        findings.holds("the table of directions differs", one.wind->table == other.wind->table);
        findings.same("calms", one.wind->calms, other.wind->calms);
        findings.near("constancy", one.wind->constancy, other.wind->constancy, SLACK);
        if (one.wind->constancy.value_or(0) > 1e-6) {
            findings.angle("weighted", one.wind->weightedDirection, other.wind->weightedDirection);
        }
    }
    findings.near("smallest minimum", valueOf(one.smallestMinimum), valueOf(other.smallestMinimum), 0);
    findings.near("greatest maximum", valueOf(one.greatestMaximum), valueOf(other.greatestMaximum), 0);
}

TEST(EvaluationProperties, PermutingTheValuesKeepsAllButEpisodesAndTimes) {
    const auto check = [](const MadeEvaluation& made) {
        MadeEvaluation other = made;
        other.request.now = LAST_DATE; // else other intervals would count
        const Evaluation before = evaluate(other.request, other.reading);
        std::vector<std::int64_t> numbers;
        for (const IntervalReading& interval : made.reading) {
            numbers.push_back(interval.index);
        }
        std::shuffle(other.reading.begin(), other.reading.end(), std::mt19937_64(made.reading.size()));
        for (std::size_t i = 0; i < numbers.size(); ++i) {
            other.reading[i].index = numbers[i];
        }
        Findings findings;
        compareWithoutOrder(findings, before, evaluate(other.request, other.reading));
        return findings.text();
    };
    EXPECT_EQ(forAll(11, 2000, madeEvaluation, smallerEvaluations, check), "");
}

TEST(EvaluationProperties, SplittingTheRangeAddsTheCounts) {
    const auto check = [](const MadeEvaluation& made) -> std::string {
        const IntervalGrid grid(made.request.range, made.request.interval, LAST_DATE);
        const std::int64_t at = grid.count() / 3;
        if (at == 0) {
            return {};
        }
        MadeEvaluation first = made;
        MadeEvaluation second = made;
        first.request.range.to = second.request.range.from = grid.start(at);
        std::erase_if(first.reading, [at](const auto& interval) { return interval.index >= at; });
        std::erase_if(second.reading, [at](const auto& interval) { return interval.index < at; });
        for (IntervalReading& interval : second.reading) {
            interval.index -= at;
        }
        const Evaluation whole = evaluate(made.request, made.reading);
        const Evaluation one = evaluate(first.request, first.reading);
        const Evaluation two = evaluate(second.request, second.reading);
        Findings findings;
        const auto adds = [&](const char* what, auto count) {
            findings.same(what, count(whole), count(one) + count(two));
        };
        adds("intervals", [](const Evaluation& e) { return e.availability.intervals; });
        adds("with value", [](const Evaluation& e) { return e.availability.withValue; });
        adds("evaluated", [](const Evaluation& e) { return e.availability.evaluated; });
        adds("minutes", [](const Evaluation& e) { return e.availability.minutes; });
        adds("present", [](const Evaluation& e) { return e.availability.presentMinutes; });
        adds("not covered", [](const Evaluation& e) { return e.availability.notCovered; });
        for (std::size_t i = 0; i < LIMITS; ++i) {
            const auto of = [i](const Evaluation& e) { return e.exceedances[i].value_or(Exceedances{}); };
            adds("above", [of](const Evaluation& e) { return of(e).above; });
            adds("below", [of](const Evaluation& e) { return of(e).below; });
            adds("minutes above", [of](const Evaluation& e) { return of(e).minutesAbove; });
            const std::int64_t episodes = of(one).episodes + of(two).episodes - of(whole).episodes;
            findings.holds("the split may cut one episode in two", episodes == 0 || episodes == 1);
        }
        adds("winds", [](const Evaluation& e) { return e.wind ? e.wind->intervals : 0; });
        adds("calms", [](const Evaluation& e) { return e.wind ? e.wind->calms : 0; });
        const auto sumOf = [](const Evaluation& e) {
            return e.statistics ? e.statistics->sum.value_or(0) : 0;
        };
        findings.near("sum", sumOf(whole), sumOf(one) + sumOf(two), SLACK);
        return findings.text();
    };
    EXPECT_EQ(forAll(12, 2000, madeEvaluation, smallerEvaluations, check), "");
}

TEST(EvaluationProperties, TheRowsOfTheTableAddUp) {
    const auto check = [](const MadeEvaluation& made) {
        const Evaluation found = evaluate(made.request, made.reading);
        BreakdownRow total;
        for (const BreakdownRow& row : found.breakdown.rows) {
            total.intervals += row.intervals;
            total.withValue += row.withValue;
            total.minutes += row.minutes;
            total.presentMinutes += row.presentMinutes;
            total.above[0] += row.above[0];
            total.above[1] += row.above[1];
        }
        Findings findings;
        findings.same("intervals", total.intervals, found.availability.intervals);
        findings.same("with value", total.withValue, found.availability.withValue);
        findings.same("minutes", total.minutes, found.availability.minutes);
        findings.same("present", total.presentMinutes, found.availability.presentMinutes);
        for (std::size_t i = 0; i < LIMITS; ++i) {
            findings.same("above", total.above[i], found.exceedances[i].value_or(Exceedances{}).above);
        }
        if (found.wind) {
            std::int64_t winds = found.wind->calms;
            for (const auto& row : found.wind->table) {
                winds = std::accumulate(row.begin(), row.end(), winds);
            }
            findings.same("winds", winds, found.wind->intervals);
        }
        return findings.text();
    };
    EXPECT_EQ(forAll(13, 2000, madeEvaluation, smallerEvaluations, check), "");
}

TEST(EvaluationProperties, AddingAConstantShiftsMeanAndPercentiles) {
    const auto generate = [](Numbers& numbers) {
        MadeEvaluation made = madeEvaluation(numbers);
        made.request.kind = EvaluatedKind::value;
        made.reading = madeReading(numbers, made.request, 300);
        return made;
    };
    const auto check = [](const MadeEvaluation& made) {
        constexpr double SHIFT = 1000;
        MadeEvaluation shifted = made;
        for (IntervalReading& interval : shifted.reading) {
            interval.value = hasValue(interval.value) ? countedValue(interval.value) + SHIFT : interval.value;
        }
        for (auto& limit : shifted.request.limits) {
            limit = limit && hasValue(*limit) ? std::optional(*limit + SHIFT) : limit;
        }
        const Evaluation before = evaluate(made.request, made.reading);
        const Evaluation after = evaluate(shifted.request, shifted.reading);
        const Statistics& one = *before.statistics;
        const Statistics& other = *after.statistics;
        Findings findings;
        const auto moved = [](std::optional<double> v) { return v ? std::optional(*v + SHIFT) : v; };
        findings.near("mean", moved(one.mean), other.mean, SLACK);
        findings.near("median", moved(one.median), other.median, SLACK);
        findings.near("5 %", moved(one.percentile5), other.percentile5, SLACK);
        findings.near("95 %", moved(one.percentile95), other.percentile95, SLACK);
        findings.near("98 %", moved(one.percentile98), other.percentile98, SLACK);
        findings.near("deviation", one.deviation, other.deviation, SLACK);
        for (std::size_t i = 0; i < LIMITS; ++i) {
            const Exceedances a = before.exceedances[i].value_or(Exceedances{});
            const Exceedances b = after.exceedances[i].value_or(Exceedances{});
            findings.same("above", a.above, b.above);
            findings.same("below", a.below, b.below);
            findings.same("episodes", a.episodes, b.episodes);
            findings.same("days", a.days, b.days);
        }
        return findings.text();
    };
    EXPECT_EQ(forAll(14, 2000, generate, smallerEvaluations, check), "");
}

TEST(EvaluationProperties, TurningTheWindTurnsTheMeanDirections) {
    const auto generate = [](Numbers& numbers) {
        MadeEvaluation made = madeEvaluation(numbers);
        made.request.kind = EvaluatedKind::direction;
        made.reading = madeReading(numbers, made.request, 300);
        return made;
    };
    const auto check = [](const MadeEvaluation& made) {
        const Evaluation before = evaluate(made.request, made.reading);
        Findings findings;
        for (const std::size_t steps : {1U, 3U, 7U}) {
            MadeEvaluation turned = made;
            const double angle = DIRECTION_WIDTH * static_cast<double>(steps);
            for (IntervalReading& interval : turned.reading) {
                interval.value =
                    hasValue(interval.value) ? std::fmod(interval.value + angle, 360) : interval.value;
            }
            const Evaluation after = evaluate(turned.request, turned.reading);
            const auto moved = [angle](std::optional<double> d) { return d ? std::optional(*d + angle) : d; };
            // Where the vectors nearly cancel, rounding decides on the direction.
            if (before.wind->constancy.value_or(0) > 1e-6) {
                findings.angle("weighted", moved(before.wind->weightedDirection),
                               after.wind->weightedDirection);
            }
            findings.near("constancy", before.wind->constancy, after.wind->constancy, SLACK);
            findings.same("calms", before.wind->calms, after.wind->calms);
            for (std::size_t i = 0; i < DIRECTIONS; ++i) {
                findings.holds("the table does not turn",
                               before.wind->table[i] == after.wind->table[(i + steps) % DIRECTIONS]);
            }
        }
        return findings.text();
    };
    EXPECT_EQ(forAll(15, 1000, generate, smallerEvaluations, check), "");
}

TEST(EvaluationProperties, AnyBitsGiveSensibleFigures) {
    const auto generate = [](Numbers& numbers) {
        MadeEvaluation made = madeEvaluation(numbers);
        const auto anyNumber = [&] { return std::bit_cast<double>(numbers.bits()); };
        for (IntervalReading& interval : made.reading) {
            interval.value = numbers.oneIn(2) ? anyNumber() : interval.value;
            interval.speed = numbers.oneIn(2) ? anyNumber() : interval.speed;
            interval.minimum = numbers.oneIn(2) ? anyNumber() : interval.minimum;
            interval.maximum = anyNumber();
            interval.present = static_cast<std::int32_t>(numbers.bits());
            interval.index = numbers.oneIn(20) ? static_cast<std::int64_t>(numbers.bits()) : interval.index;
        }
        if (numbers.oneIn(5)) {
            made.request.limits[0] = anyNumber();
            made.request.range.from = anyNumber();
        }
        if (numbers.oneIn(5)) {
            made.request.range.to = anyNumber();
            made.request.now = numbers.oneIn(2) ? anyNumber() : made.request.range.from + 3;
        }
        return made;
    };
    const auto check = [](const MadeEvaluation& made) {
        const Evaluation found = evaluate(made.request, made.reading);
        Findings findings;
        const auto share = [&](const char* what, std::optional<double> percent) {
            findings.holds(what, !percent || (*percent >= 0 && *percent <= 100));
        };
        share("availability", found.availability.percent);
        share("coverage", found.availability.coverage());
        for (const auto& limit : found.exceedances) {
            share("above", limit ? limit->aboveShare() : std::nullopt);
            share("below", limit ? limit->belowShare() : std::nullopt);
        }
        if (found.statistics && found.statistics->mean) {
            const Statistics& s = *found.statistics;
            findings.holds("percentiles do not ascend",
                           s.minimum->value <= *s.percentile5 && *s.percentile5 <= *s.median &&
                               *s.median <= *s.percentile95 && *s.percentile95 <= *s.percentile98 &&
                               *s.percentile98 <= s.maximum->value);
            findings.holds("mean", s.minimum->value <= *s.mean && *s.mean <= s.maximum->value);
            findings.holds("deviation", !s.deviation || (*s.deviation >= 0 && std::isfinite(*s.deviation)));
        }
        if (found.wind) {
            const auto direction = [&](std::optional<double> d) {
                findings.holds("direction", !d || (*d > 0 && *d <= 360));
            };
            direction(found.wind->weightedDirection);
            direction(found.wind->unitDirection);
            const double constancy = found.wind->constancy.value_or(0);
            findings.holds("constancy", constancy >= 0 && constancy <= 1);
        }
        for (const BreakdownRow& row : found.breakdown.rows) {
            share("row", row.coverage());
            findings.holds("an empty row", row.intervals > 0);
        }
        return findings.text();
    };
    EXPECT_EQ(forAll(16, 3000, generate, smallerEvaluations, check), "");
}

} // namespace
} // namespace kelvrum
