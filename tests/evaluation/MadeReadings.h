// SPDX-License-Identifier: GPL-3.0-or-later
// Readings written down by their values.
#pragma once

#include "evaluation/Evaluation.h"

#include <cstdint>
#include <utility>
#include <vector>

namespace kelvrum::testing {

/// Stands for an interval without value in a list of values.
inline constexpr double NONE = INVALID_VALUE;

inline constexpr DateTime JUNE_15 = 46188; // 15 June 2026, a Monday

/// `count` intervals from a start on.
inline EvaluationRequest requestOf(std::int64_t count, std::int32_t interval = 60, DateTime from = JUNE_15) {
    EvaluationRequest request;
    request.range = {from, from + static_cast<double>(count * interval) / MINUTES_PER_DAY};
    request.interval = interval;
    return request;
}

/// Intervals from number 0 on; those with value have all their minutes.
inline std::vector<IntervalReading> readingOf(const std::vector<double>& values, std::int32_t interval = 60) {
    std::vector<IntervalReading> reading(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        reading[i].index = static_cast<std::int64_t>(i);
        reading[i].value = values[i];
        reading[i].present = hasValue(values[i]) ? interval : 0;
    }
    return reading;
}

/// Directions and the speeds that belong to them.
inline std::vector<IntervalReading> windOf(const std::vector<std::pair<double, double>>& winds,
                                           std::int32_t interval = 60) {
    std::vector<double> directions;
    for (const auto& wind : winds) {
        directions.push_back(wind.first);
    }
    std::vector<IntervalReading> reading = readingOf(directions, interval);
    for (std::size_t i = 0; i < winds.size(); ++i) {
        reading[i].speed = winds[i].second;
    }
    return reading;
}

/// The values of hours from 15 June 2026 00:00 on, evaluated.
inline Evaluation evaluationOf(const std::vector<double>& values) {
    return evaluate(requestOf(static_cast<std::int64_t>(values.size())), readingOf(values));
}

/// The same with a first limit.
inline Exceedances exceedancesOf(const std::vector<double>& values, double limit) {
    EvaluationRequest request = requestOf(static_cast<std::int64_t>(values.size()));
    request.limits[0] = limit;
    return evaluate(request, readingOf(values)).exceedances[0].value();
}

} // namespace kelvrum::testing
