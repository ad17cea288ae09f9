// SPDX-License-Identifier: GPL-3.0-or-later
#include "evaluation/Evaluation.h"

#include <algorithm>
#include <cmath>
#include <numbers>

namespace kelvrum {

namespace {

constexpr double TO_RADIANS = std::numbers::pi / 180;

/// Reserves memory for a year of minutes; grows when needed.
constexpr std::int64_t MINUTES_OF_A_YEAR = 366LL * MINUTES_PER_DAY;

/// The limits as they are compared; one that no value can reach counts as none.
EvaluationRequest withUsableLimits(EvaluationRequest request) {
    for (std::optional<double>& limit : request.limits) {
        limit = limit && hasValue(*limit) ? std::optional(countedValue(*limit)) : std::nullopt;
    }
    return request;
}

} // namespace

Evaluator::Evaluator(const EvaluationRequest& request)
    : request_(withUsableLimits(request))
    , grid_(request_.range, request_.interval, request_.now)
    , breakdown_(request_) {
    for (std::size_t i = 0; i < LIMITS; ++i) {
        if (request_.limits[i]) {
            exceedances_[i].emplace(*request_.limits[i]);
        }
    }
    if (request_.kind != EvaluatedKind::direction) {
        statistics_.expect(static_cast<std::size_t>(std::min(grid_.count(), MINUTES_OF_A_YEAR)));
    }
}

void Evaluator::add(std::span<const IntervalReading> intervals) {
    for (IntervalReading interval : intervals) {
        if (interval.index >= next_ && interval.index < grid_.count()) {
            interval.present = std::clamp(interval.present, 0, request_.interval);
            add(interval);
            next_ = interval.index + 1;
        }
    }
}

void Evaluator::add(const IntervalReading& interval) {
    const bool covered = isCovered(interval.present, request_.interval);
    const bool counts = covered || !request_.onlyCovered;
    const bool valueCounts = counts && hasValue(interval.value);
    availability_.add(interval, covered, valueCounts);
    breakdown_.add(interval, grid_);
    if (valueCounts && request_.kind != EvaluatedKind::direction) {
        addValue(countedValue(interval.value), interval.index);
    } else if (valueCounts && hasValue(interval.speed)) {
        addWind(interval.value, countedValue(interval.speed));
    }
    if (counts && hasValue(interval.minimum)) {
        minimum_.addSmaller(interval.minimum, interval.index);
    }
    if (counts && hasValue(interval.maximum)) {
        maximum_.addGreater(interval.maximum, interval.index);
    }
}

void Evaluator::addValue(double v, std::int64_t index) {
    statistics_.add(v, index);
    breakdown_.addValue(v);
    for (std::optional<ExceedanceTally>& limit : exceedances_) {
        if (limit) {
            limit->add(v, index, grid_);
        }
    }
}

void Evaluator::addWind(double direction, double speed) {
    const double sine = std::sin(direction * TO_RADIANS);
    const double cosine = std::cos(direction * TO_RADIANS);
    wind_.add(direction, speed, sine, cosine);
    breakdown_.addWind(sine, cosine, speed);
}

Evaluation Evaluator::result() {
    Evaluation result;
    result.request = request_;
    result.availability = availability_.result(grid_, request_.kind);
    if (request_.kind == EvaluatedKind::direction) {
        result.wind = wind_.result();
    } else {
        result.statistics = statistics_.result(grid_);
        for (std::size_t i = 0; i < LIMITS; ++i) {
            if (exceedances_[i]) {
                result.exceedances[i] = exceedances_[i]->result(grid_);
            }
        }
    }
    result.smallestMinimum = minimum_.result(grid_);
    result.greatestMaximum = maximum_.result(grid_);
    result.breakdown = breakdown_.result(grid_);
    return result;
}

Evaluation evaluate(const EvaluationRequest& request, std::span<const IntervalReading> intervals) {
    Evaluator evaluator(request);
    evaluator.add(intervals);
    return evaluator.result();
}

} // namespace kelvrum
