// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/evaluation/EvaluationDifference.h"

#include <algorithm>
#include <cmath>
#include <optional>
#include <sstream>

namespace kelvrum::testing {

namespace {

/// Collects what differs.
class Comparison {
  public:
    Comparison(double tolerance, double magnitude)
        : slack_(tolerance * std::max(magnitude, 1e-300)) {}

    template<typename T>
    void same(const char* what, const T& one, const T& other) {
        if (!(one == other)) {
            note(what) << one << " and " << other;
        }
    }
    void near(const char* what, double one, double other, double slack) {
        if (!(std::fabs(one - other) <= slack)) {
            note(what) << one << " and " << other;
        }
    }
    void figure(const char* what, std::optional<double> one, std::optional<double> other, double parts = 1) {
        same(what, one.has_value(), other.has_value());
        near(what, one.value_or(0), other.value_or(0), slack_ * parts);
    }
    void time(const char* what, DateTime one, DateTime other) { near(what, one, other, 1e-9); }
    void angle(const char* what, std::optional<double> one, std::optional<double> other) {
        same(what, one.has_value(), other.has_value());
        near(what, std::remainder(one.value_or(0) - other.value_or(0), 360), 0, 1e-6);
    }
    void timed(const char* what, const std::optional<TimedValue>& one,
               const std::optional<TimedValue>& other) {
        same(what, one.has_value(), other.has_value());
        if (one && other) {
            same(what, one->value, other->value);
            time(what, one->time, other->time);
        }
    }
    [[nodiscard]] std::string text() const { return text_.str(); }

  private:
    std::ostream& note(const char* what) {
        text_.precision(17);
        return text_ << '\n' << what << ": ";
    }

    double slack_;
    std::ostringstream text_;
};

void compare(Comparison& c, const Availability& one, const Availability& other) {
    c.same("intervals", one.intervals, other.intervals);
    c.same("with value", one.withValue, other.withValue);
    c.same("evaluated", one.evaluated, other.evaluated);
    c.same("has percent", one.percent.has_value(), other.percent.has_value());
    c.near("percent", one.percent.value_or(0), other.percent.value_or(0), 1e-9);
    c.same("minutes", one.minutes, other.minutes);
    c.same("present minutes", one.presentMinutes, other.presentMinutes);
    c.same("not covered", one.notCovered, other.notCovered);
    c.timed("first", one.first, other.first);
    c.timed("last", one.last, other.last);
    const Outage outage = one.longestOutage.value_or(Outage{});
    const Outage otherOutage = other.longestOutage.value_or(Outage{});
    c.time("outage", outage.start, otherOutage.start);
    c.same("outage intervals", outage.intervals, otherOutage.intervals);
    c.same("outage minutes", outage.minutes, otherOutage.minutes);
}

void compare(Comparison& c, const Statistics& one, const Statistics& other, double count) {
    c.timed("minimum", one.minimum, other.minimum);
    c.timed("maximum", one.maximum, other.maximum);
    c.figure("mean", one.mean, other.mean);
    c.figure("deviation", one.deviation, other.deviation);
    c.figure("median", one.median, other.median);
    c.figure("5 %", one.percentile5, other.percentile5);
    c.figure("95 %", one.percentile95, other.percentile95);
    c.figure("98 %", one.percentile98, other.percentile98);
    c.figure("sum", one.sum, other.sum, count);
}

void compare(Comparison& c, const Exceedances& one, const Exceedances& other) {
    c.same("limit", one.limit, other.limit);
    c.same("compared", one.values, other.values);
    c.same("above", one.above, other.above);
    c.same("below", one.below, other.below);
    c.same("minutes above", one.minutesAbove, other.minutesAbove);
    c.same("minutes below", one.minutesBelow, other.minutesBelow);
    c.same("episodes", one.episodes, other.episodes);
    c.same("days", one.days, other.days);
    const Episode episode = one.longestEpisode.value_or(Episode{});
    const Episode otherEpisode = other.longestEpisode.value_or(Episode{});
    c.time("episode start", episode.start, otherEpisode.start);
    c.time("episode end", episode.end, otherEpisode.end);
    c.timed("episode maximum", episode.maximum, otherEpisode.maximum);
}

void compare(Comparison& c, const WindStatistics& one, const WindStatistics& other) {
    c.same("winds", one.intervals, other.intervals);
    c.same("calms", one.calms, other.calms);
    c.angle("weighted direction", one.weightedDirection, other.weightedDirection);
    c.angle("unit direction", one.unitDirection, other.unitDirection);
    c.same("has constancy", one.constancy.has_value(), other.constancy.has_value());
    c.near("constancy", one.constancy.value_or(0), other.constancy.value_or(0), 1e-12);
    for (std::size_t i = 0; i < DIRECTIONS; ++i) {
        for (std::size_t k = 0; k < SPEED_CLASSES.size(); ++k) {
            c.same("direction table", one.table[i][k], other.table[i][k]);
        }
    }
}

void compare(Comparison& c, const Breakdown& one, const Breakdown& other, EvaluatedKind kind) {
    c.same("unit", static_cast<int>(one.unit), static_cast<int>(other.unit));
    c.same("rows", one.rows.size(), other.rows.size());
    for (std::size_t i = 0; i < std::min(one.rows.size(), other.rows.size()); ++i) {
        const BreakdownRow& row = one.rows[i];
        const BreakdownRow& otherRow = other.rows[i];
        c.time("row", row.start, otherRow.start);
        c.same("row intervals", row.intervals, otherRow.intervals);
        c.same("row with value", row.withValue, otherRow.withValue);
        c.same("row minutes", row.minutes, otherRow.minutes);
        c.same("row present", row.presentMinutes, otherRow.presentMinutes);
        c.figure("row minimum", row.minimum, otherRow.minimum);
        c.figure("row maximum", row.maximum, otherRow.maximum);
        c.same("row above 1", row.above[0], otherRow.above[0]);
        c.same("row above 2", row.above[1], otherRow.above[1]);
        if (kind == EvaluatedKind::direction) {
            c.angle("row direction", row.mean, otherRow.mean);
        } else {
            c.figure("row mean", row.mean, otherRow.mean, static_cast<double>(row.withValue));
        }
    }
}

} // namespace

std::string differenceOf(const Evaluation& one, const Evaluation& other, double tolerance) {
    double magnitude = 0;
    if (one.statistics && one.statistics->minimum) {
        magnitude =
            std::max(std::fabs(one.statistics->minimum->value), std::fabs(one.statistics->maximum->value));
    }
    Comparison c(tolerance, magnitude);
    compare(c, one.availability, other.availability);
    c.same("has statistics", one.statistics.has_value(), other.statistics.has_value());
    compare(c, one.statistics.value_or(Statistics{}), other.statistics.value_or(Statistics{}),
            static_cast<double>(one.availability.evaluated));
    for (std::size_t i = 0; i < LIMITS; ++i) {
        c.same("has limit", one.exceedances[i].has_value(), other.exceedances[i].has_value());
        compare(c, one.exceedances[i].value_or(Exceedances{}), other.exceedances[i].value_or(Exceedances{}));
    }
    c.same("has wind", one.wind.has_value(), other.wind.has_value());
    compare(c, one.wind.value_or(WindStatistics{}), other.wind.value_or(WindStatistics{}));
    c.timed("smallest minimum", one.smallestMinimum, other.smallestMinimum);
    c.timed("greatest maximum", one.greatestMaximum, other.greatestMaximum);
    compare(c, one.breakdown, other.breakdown, one.request.kind);
    return c.text();
}

} // namespace kelvrum::testing
