// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/evaluation/PlainEvaluation.h"

#include <algorithm>
#include <cmath>
#include <map>
#include <set>
#include <utility>
#include <vector>

namespace kelvrum::testing {

namespace {

/// One interval with all that is known of it.
struct Plain {
    DateTime start = 0;
    bool hasValue = false;
    bool counts = false; // in figures of values
    double value = 0;
    double speed = INVALID_VALUE;
    double minimum = INVALID_VALUE;
    double maximum = INVALID_VALUE;
    std::int64_t present = 0;
};

bool isNumber(double v) { return v > -INVALID_VALUE && v < INVALID_VALUE; }
double shownZero(double v) { return v == ZERO_VALUE ? 0 : v; }

std::vector<Plain> listOf(const EvaluationRequest& request, std::span<const IntervalReading> intervals) {
    std::vector<Plain> list;
    constexpr DateTime HALF_MS = 0.5 / 86'400'000;
    for (std::int64_t i = 0;; ++i) {
        const DateTime start = addMinutes(request.range.from, i * request.interval);
        if (!(start < request.range.to - HALF_MS) || !(start < request.now + HALF_MS)) {
            break;
        }
        list.push_back({start});
    }
    for (const IntervalReading& read : intervals) {
        if (read.index < 0 || read.index >= static_cast<std::int64_t>(list.size())) {
            continue;
        }
        Plain& plain = list[static_cast<std::size_t>(read.index)];
        plain.present = std::max(0, std::min(read.present, request.interval));
        plain.hasValue = isNumber(read.value);
        plain.counts = !request.onlyCovered || static_cast<double>(plain.present) / request.interval >= 0.75;
        plain.value = shownZero(read.value);
        plain.speed = shownZero(read.speed);
        plain.minimum = read.minimum;
        plain.maximum = read.maximum;
    }
    return list;
}

double meanOf(const std::vector<double>& values) {
    long double sum = 0;
    for (const double v : values) {
        sum += v;
    }
    return static_cast<double>(sum / static_cast<long double>(values.size()));
}

std::vector<double> valuesOf(const std::vector<Plain>& list) {
    std::vector<double> values;
    for (const Plain& plain : list) {
        if (plain.hasValue && plain.counts) {
            values.push_back(plain.value);
        }
    }
    return values;
}

Availability availabilityOf(const EvaluationRequest& request, const std::vector<Plain>& list) {
    Availability found;
    found.intervals = static_cast<std::int64_t>(list.size());
    found.minutes = found.intervals * request.interval;
    std::int64_t run = 0;
    for (std::size_t i = 0; i < list.size(); ++i) {
        const Plain& plain = list[i];
        found.presentMinutes += plain.present;
        found.withValue += plain.hasValue ? 1 : 0;
        found.notCovered += static_cast<double>(plain.present) / request.interval < 0.75 ? 1 : 0;
        run = plain.hasValue ? 0 : run + 1;
        if (run > 0 && (!found.longestOutage || run > found.longestOutage->intervals)) {
            found.longestOutage = {list[i + 1 - static_cast<std::size_t>(run)].start, run,
                                   run * request.interval};
        }
        if (plain.hasValue && plain.counts) {
            ++found.evaluated;
            found.last = {plain.value, plain.start};
            found.first = found.first ? found.first : found.last;
        }
    }
    if (!list.empty() && request.kind != EvaluatedKind::sum) {
        found.percent = 100.0 * static_cast<double>(found.withValue) / static_cast<double>(found.intervals);
    }
    return found;
}

double percentileOf(const std::vector<double>& sorted, long double part) {
    const long double position = static_cast<long double>(sorted.size() - 1) * part;
    const auto below = static_cast<std::size_t>(position + 1e-12L);
    const long double rest = std::max(position - static_cast<long double>(below), 0.0L);
    const std::size_t above = std::min(below + 1, sorted.size() - 1);
    return static_cast<double>(sorted[below] +
                               (static_cast<long double>(sorted[above]) - sorted[below]) * rest);
}

Statistics statisticsOf(const std::vector<Plain>& list) {
    Statistics found;
    std::vector<double> values = valuesOf(list);
    if (values.empty()) {
        return found;
    }
    for (const Plain& plain : list) {
        if (!plain.hasValue || !plain.counts) {
            continue;
        }
        if (!found.minimum || plain.value < found.minimum->value) {
            found.minimum = {plain.value, plain.start};
        }
        if (!found.maximum || plain.value > found.maximum->value) {
            found.maximum = {plain.value, plain.start};
        }
    }
    const double mean = meanOf(values);
    found.mean = mean;
    found.sum = mean * static_cast<double>(values.size());
    if (values.size() > 1) {
        long double squares = 0;
        for (const double v : values) {
            squares += (static_cast<long double>(v) - mean) * (static_cast<long double>(v) - mean);
        }
        found.deviation =
            static_cast<double>(std::sqrt(squares / static_cast<long double>(values.size() - 1)));
    }
    std::sort(values.begin(), values.end());
    found.percentile5 = percentileOf(values, 0.05L);
    found.median = percentileOf(values, 0.5L);
    found.percentile95 = percentileOf(values, 0.95L);
    found.percentile98 = percentileOf(values, 0.98L);
    return found;
}

Exceedances exceedancesOf(const EvaluationRequest& request, const std::vector<Plain>& list, double limit) {
    Exceedances found;
    found.limit = shownZero(limit);
    std::set<DateTime> days;
    std::vector<std::vector<Plain>> episodes(1);
    for (const Plain& plain : list) {
        const bool counts = plain.hasValue && plain.counts;
        found.values += counts ? 1 : 0;
        found.below += counts && plain.value < found.limit ? 1 : 0;
        if (counts && plain.value > found.limit) {
            ++found.above;
            days.insert(unitStart(plain.start, CalendarUnit::day));
            episodes.back().push_back(plain);
        } else if (!episodes.back().empty()) {
            episodes.emplace_back();
        }
    }
    std::erase_if(episodes, [](const auto& episode) { return episode.empty(); });
    found.minutesAbove = found.above * request.interval;
    found.minutesBelow = found.below * request.interval;
    found.episodes = static_cast<std::int64_t>(episodes.size());
    found.days = static_cast<std::int64_t>(days.size());
    std::size_t longest = 0;
    for (const auto& episode : episodes) {
        if (episode.size() > longest) {
            longest = episode.size();
            const Plain& highest =
                *std::max_element(episode.begin(), episode.end(),
                                  [](const Plain& a, const Plain& b) { return a.value < b.value; });
            found.longestEpisode = {episode.front().start,
                                    addMinutes(episode.back().start, request.interval),
                                    {highest.value, highest.start}};
        }
    }
    return found;
}

struct Vectors {
    long double x = 0;
    long double y = 0;
    long double lengths = 0;

    void add(double degrees, double length) {
        const long double angle = static_cast<long double>(degrees) * std::acos(-1.0L) / 180;
        x += std::sin(angle) * length;
        y += std::cos(angle) * length;
        lengths += std::fabs(length);
    }
    [[nodiscard]] std::optional<double> direction() const {
        if (std::hypot(x, y) <= 1e-12L * lengths) {
            return std::nullopt;
        }
        const auto degrees = static_cast<double>(std::atan2(x, y) * 180 / std::acos(-1.0L));
        const double turned = degrees < 0 ? degrees + 360 : degrees;
        return turned < 1e-9 || turned > 360 - 1e-9 ? 360 : turned;
    }
    [[nodiscard]] std::optional<double> constancy() const {
        return lengths > 0 ? std::optional(static_cast<double>(std::min(std::hypot(x, y) / lengths, 1.0L)))
                           : std::nullopt;
    }
};

bool isWind(const Plain& plain) { return plain.hasValue && plain.counts && isNumber(plain.speed); }

WindStatistics windOf(const std::vector<Plain>& list) {
    WindStatistics found;
    Vectors weighted;
    Vectors unit;
    for (const Plain& plain : list) {
        if (!isWind(plain)) {
            continue;
        }
        ++found.intervals;
        weighted.add(plain.value, plain.speed);
        unit.add(plain.value, 1);
        if (plain.speed < 0.5) {
            ++found.calms;
            continue;
        }
        std::size_t direction = 0;
        for (std::size_t i = 1; i < DIRECTIONS; ++i) {
            const double border = 30.0 * static_cast<double>(i) - 15;
            direction = plain.value >= border - 1e-6 && plain.value < 345 - 1e-6 ? i : direction;
        }
        const double borders[] = {2, 4, 6, 8, 10};
        std::size_t column = 0;
        for (const double border : borders) {
            column += plain.speed >= border ? 1 : 0;
        }
        ++found.table[direction][column];
    }
    found.weightedDirection = weighted.direction();
    found.unitDirection = unit.direction();
    found.constancy = weighted.constancy();
    return found;
}

Breakdown breakdownOf(const EvaluationRequest& request, const std::vector<Plain>& list) {
    const DateTime hours = (request.range.to - request.range.from) * 24;
    CalendarUnit unit = CalendarUnit::day;
    if (hours > 62 * 24 + 1e-6) {
        unit = CalendarUnit::month;
    } else if (hours < 24 + 1e-6 && request.interval <= 60) {
        unit = CalendarUnit::hour;
    }
    std::map<DateTime, std::vector<Plain>> parts;
    for (const Plain& plain : list) {
        parts[unitStart(plain.start, unit)].push_back(plain);
    }
    Breakdown found{unit, {}};
    for (const auto& [start, part] : parts) {
        BreakdownRow row;
        const Availability availability = availabilityOf(request, part);
        const Statistics statistics = statisticsOf(part);
        row.start = start;
        row.intervals = availability.intervals;
        row.withValue = availability.withValue;
        row.minutes = availability.minutes;
        row.presentMinutes = availability.presentMinutes;
        if (request.kind == EvaluatedKind::direction) {
            row.mean = windOf(part).weightedDirection;
        } else if (statistics.mean) {
            row.minimum = statistics.minimum->value;
            row.maximum = statistics.maximum->value;
            row.mean = request.kind == EvaluatedKind::sum ? statistics.sum : statistics.mean;
            for (std::size_t i = 0; i < LIMITS; ++i) {
                const bool has = request.limits[i] && isNumber(*request.limits[i]);
                row.above[i] = has ? exceedancesOf(request, part, *request.limits[i]).above : 0;
            }
        }
        found.rows.push_back(row);
    }
    return found;
}

} // namespace

Evaluation plainEvaluation(const EvaluationRequest& request, std::span<const IntervalReading> intervals) {
    const std::vector<Plain> list = listOf(request, intervals);
    Evaluation found;
    found.request = request;
    found.availability = availabilityOf(request, list);
    if (request.kind == EvaluatedKind::direction) {
        found.wind = windOf(list);
    } else {
        found.statistics = statisticsOf(list);
        for (std::size_t i = 0; i < LIMITS; ++i) {
            if (request.limits[i] && isNumber(*request.limits[i])) {
                found.exceedances[i] = exceedancesOf(request, list, *request.limits[i]);
            }
        }
    }
    for (const Plain& plain : list) {
        if (plain.counts && isNumber(plain.minimum) &&
            (!found.smallestMinimum || plain.minimum < found.smallestMinimum->value)) {
            found.smallestMinimum = {plain.minimum, plain.start};
        }
        if (plain.counts && isNumber(plain.maximum) &&
            (!found.greatestMaximum || plain.maximum > found.greatestMaximum->value)) {
            found.greatestMaximum = {plain.maximum, plain.start};
        }
    }
    found.breakdown = breakdownOf(request, list);
    return found;
}

} // namespace kelvrum::testing
