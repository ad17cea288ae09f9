// SPDX-License-Identifier: GPL-3.0-or-later
// Readings made at random, and smaller ones to try in the place of one that breaks a property.
#pragma once

#include "evaluation/Evaluation.h"
#include "tests/testing/Property.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <ostream>
#include <utility>
#include <vector>

namespace kelvrum::testing {

struct MadeEvaluation {
    EvaluationRequest request;
    std::vector<IntervalReading> reading;

    friend std::ostream& operator<<(std::ostream& out, const MadeEvaluation& made) {
        const EvaluationRequest& asked = made.request;
        out.precision(17);
        out << asked.range.from << " to " << asked.range.to << ", " << asked.interval << " minutes, kind "
            << static_cast<int>(asked.kind) << ", now " << asked.now
            << (asked.onlyCovered ? ", only covered" : "") << ", limits "
            << asked.limits[0].value_or(INVALID_VALUE) << ' ' << asked.limits[1].value_or(INVALID_VALUE);
        for (const IntervalReading& interval : made.reading) {
            out << "\n  " << interval.index << ": " << interval.value << " at " << interval.speed << ", "
                << interval.present << " minutes, " << interval.minimum << " to " << interval.maximum;
        }
        return out;
    }
};

/// A value of an instrument, or one of the many ways not to be one.
inline double madeValue(Numbers& numbers, EvaluatedKind kind) {
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    constexpr std::array AWKWARD = {
        INVALID_VALUE, -INVALID_VALUE, 1e300, INFINITE, std::numeric_limits<double>::quiet_NaN(),
        ZERO_VALUE,    ZERO_VALUE};
    if (numbers.oneIn(8)) {
        return numbers.oneOf(AWKWARD);
    }
    if (kind == EvaluatedKind::direction) {
        return numbers.oneIn(2) ? 15.0 * numbers.whole(1, 24) : numbers.between(0.001, 360);
    }
    return numbers.oneIn(2) ? numbers.whole(-3, 40) : numbers.between(-50, 50);
}

inline double madeSpeed(Numbers& numbers) {
    constexpr std::array AWKWARD = {INVALID_VALUE, ZERO_VALUE, 0.5, 2.0, 10.0};
    return numbers.oneIn(4) ? numbers.oneOf(AWKWARD) : numbers.between(0.1, 14);
}

/// A reading with gaps for up to `maxCount` intervals of a request.
inline std::vector<IntervalReading> madeReading(Numbers& numbers, const EvaluationRequest& request,
                                                std::int64_t maxCount) {
    std::vector<IntervalReading> reading;
    const std::int64_t count =
        std::min(IntervalGrid(request.range, request.interval, LAST_DATE).count(), maxCount);
    const int gaps = numbers.oneOf(std::array{1000, 10, 2});
    for (std::int64_t i = 0; i < count; ++i) {
        if (numbers.oneIn(gaps)) {
            i += numbers.whole(0, 9);
            continue;
        }
        IntervalReading& interval = reading.emplace_back();
        interval.index = i;
        interval.value = madeValue(numbers, request.kind);
        interval.speed = madeSpeed(numbers);
        interval.present = numbers.oneIn(3) ? numbers.whole(0, request.interval) : request.interval;
        if (numbers.oneIn(5)) {
            interval.minimum = numbers.whole(-5, 5);
            interval.maximum = numbers.whole(5, 15);
        }
    }
    return reading;
}

inline MadeEvaluation madeEvaluation(Numbers& numbers) {
    MadeEvaluation made;
    EvaluationRequest& request = made.request;
    request.kind =
        numbers.oneOf(std::array{EvaluatedKind::value, EvaluatedKind::sum, EvaluatedKind::direction});
    request.interval = numbers.oneOf(std::array{1, 5, 10, 15, 60, 1440, 7, 90});
    const double minute = 1.0 / MINUTES_PER_DAY;
    request.range.from = dateSerial(2024, 1, 1) + numbers.whole(0, 800) + numbers.whole(0, 1439) * minute;
    const int maxIntervals = numbers.oneOf(std::array{0, 3, 30, 100, 300});
    const int minutes =
        request.interval * numbers.whole(-1, maxIntervals) + numbers.whole(0, request.interval);
    request.range.to = request.range.from + minutes * minute;
    if (numbers.oneIn(4)) {
        request.now = request.range.from + minutes * minute * numbers.between(-0.2, 1.2);
    }
    request.onlyCovered = numbers.oneIn(3);
    for (auto& limit : request.limits) {
        if (!numbers.oneIn(4)) {
            limit = numbers.oneIn(10) ? INVALID_VALUE : numbers.whole(-3, 40);
        }
    }
    made.reading = madeReading(numbers, request, 400);
    return made;
}

inline std::vector<MadeEvaluation> smallerEvaluations(const MadeEvaluation& made) {
    std::vector<MadeEvaluation> smaller;
    const auto calmer = [](const IntervalReading& interval) {
        std::vector<IntervalReading> candidates;
        for (const double v : smallerNumbers(interval.value)) {
            candidates.push_back(interval);
            candidates.back().value = v;
        }
        if (interval.minimum != INVALID_VALUE) {
            candidates.push_back(interval);
            candidates.back().minimum = candidates.back().maximum = INVALID_VALUE;
        }
        return candidates;
    };
    for (auto& reading : smallerLists(made.reading, calmer)) {
        smaller.push_back({made.request, std::move(reading)});
    }
    for (std::size_t i = 0; i < LIMITS; ++i) {
        if (made.request.limits[i]) {
            smaller.push_back(made);
            smaller.back().request.limits[i].reset();
        }
    }
    if (made.request.onlyCovered) {
        smaller.push_back(made);
        smaller.back().request.onlyCovered = false;
    }
    return smaller;
}

} // namespace kelvrum::testing
