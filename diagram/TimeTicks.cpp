// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/TimeTicks.h"

#include <array>
#include <cmath>
#include <optional>

namespace kelvrum {

namespace {

struct StepRule {
    double longestSpan; // days
    double step;        // days
};
constexpr std::array<StepRule, 4> STEP_RULES = {{
    {2, 1.0 / 96}, // every 15 minutes
    {7, 0.5},
    {99, 1},
    {366, 31},
}};
constexpr double TENTH = 10;
constexpr double SPAN_TOLERANCE = 1e-6; // days: a span that misses its rule by rounding only
constexpr double END_TOLERANCE = 1e-6;  // of a step: an end that misses its tick by rounding only
constexpr double GAP_TOLERANCE = 1e-3;  // of a unit of width: a gap that is too small by rounding only
constexpr double FULL_MONTH = 31;       // days

DateTime firstOfMonth(DateTime t) {
    const CalendarTime parts = calendarTime(t);
    return dateSerial(parts.year, parts.month, 1);
}

/// The possible times of ticks, ascending: every step from the start on.
std::vector<DateTime> plainSteps(const TimeRange& range, double step) {
    std::vector<DateTime> times;
    const double count = std::floor((range.to - range.from) / step + END_TOLERANCE);
    for (int k = 0; k <= count; ++k) {
        times.push_back(range.from + k * step);
    }
    return times;
}

/// Each step rounded down to the first of its month; one that lands on the month before it moves a month on.
std::vector<DateTime> monthSteps(const TimeRange& range, double step) {
    std::vector<DateTime> times;
    for (const DateTime t : plainSteps(range, step)) {
        DateTime month = firstOfMonth(t);
        if (!times.empty() && month <= times.back()) {
            month = addMonths(times.back(), 1);
        }
        if (month >= range.from && month <= range.to) {
            times.push_back(month);
        }
    }
    return times;
}

/// The distance of two labels in days. Months count as equally long, so that February does not cost March its
/// label.
double labelDistance(DateTime from, DateTime to, bool months) {
    if (!months) {
        return to - from;
    }
    const CalendarTime a = calendarTime(from);
    const CalendarTime b = calendarTime(to);
    return ((b.year - a.year) * 12 + b.month - a.month) * FULL_MONTH;
}

} // namespace

double timeStep(double span) {
    for (const StepRule& rule : STEP_RULES) {
        if (span <= rule.longestSpan + SPAN_TOLERANCE) {
            return rule.step;
        }
    }
    return span / TENTH;
}

std::vector<TimeTick> timeTicks(const TimeAxis& axis, const LocaleTexts& texts) {
    std::vector<TimeTick> ticks;
    const double span = axis.range.to - axis.range.from;
    if (!(span > 0) || !std::isfinite(span) || !(axis.width > 0)) {
        return ticks;
    }
    const bool months = span >= MONTH_LABEL_SPAN - SPAN_TOLERANCE;
    const double step = timeStep(span);
    const double perDay = axis.width / span;
    std::optional<DateTime> label; // the last one
    double tick = 0;               // offset of the last tick
    for (const DateTime t : months ? monthSteps(axis.range, step) : plainSteps(axis.range, step)) {
        const double offset = (t - axis.range.from) * perDay;
        if (!label || labelDistance(*label, t, months) * perDay >= axis.minLabelGap - GAP_TOLERANCE) {
            // Short ticks that would crowd the label give way to it.
            while (!ticks.empty() && !ticks.back().labelled &&
                   offset - (ticks.back().time - axis.range.from) * perDay <
                       axis.minTickGap - GAP_TOLERANCE) {
                ticks.pop_back();
            }
            if (months) {
                ticks.push_back({t, true, formatDateTime(t, "m/yyyy", texts), {}});
            } else {
                ticks.push_back(
                    {t, true, formatDateTime(t, "hh:mm", texts), formatDateTime(t, "dd/mm/yy", texts)});
            }
            label = t;
            tick = offset;
        } else if (offset >= tick + axis.minTickGap - GAP_TOLERANCE) {
            ticks.push_back({t, false, {}, {}});
            tick = offset;
        }
    }
    return ticks;
}

} // namespace kelvrum
