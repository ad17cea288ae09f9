// SPDX-License-Identifier: GPL-3.0-or-later
// Figures of all values of a reading.
#pragma once

#include "evaluation/CompensatedSum.h"
#include "evaluation/EvaluationInput.h"
#include "evaluation/IntervalGrid.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace kelvrum {

/// The smallest or the greatest of the values added so far, with the number of its interval: the first one on
/// a tie.
class Extreme {
  public:
    void addSmaller(double v, std::int64_t index) {
        if (index_ < 0 || v < value_) {
            value_ = v;
            index_ = index;
        }
    }
    void addGreater(double v, std::int64_t index) {
        if (index_ < 0 || v > value_) {
            value_ = v;
            index_ = index;
        }
    }
    [[nodiscard]] std::optional<TimedValue> result(const IntervalGrid& grid) const {
        return index_ < 0 ? std::nullopt : std::optional(TimedValue{value_, grid.start(index_)});
    }

  private:
    double value_ = 0;
    std::int64_t index_ = -1; // none yet
};

/// Without values all are empty.
struct Statistics {
    std::optional<TimedValue> minimum;
    std::optional<TimedValue> maximum;
    std::optional<double> mean;
    std::optional<double> deviation; // standard deviation (n - 1); needs two values
    std::optional<double> median;
    std::optional<double> percentile5;
    std::optional<double> percentile95;
    std::optional<double> percentile98;
    std::optional<double> sum;

    bool operator==(const Statistics&) const = default;
};

/// Keeps the values, which order statistics need, and nothing else for each of them.
class StatisticsTally {
  public:
    /// Reserves memory for this many values.
    void expect(std::size_t values) { values_.reserve(values); }

    /// A value that counts.
    void add(double v, std::int64_t index) {
        minimum_.addSmaller(v, index);
        maximum_.addGreater(v, index);
        sum_.add(v);
        values_.push_back(v);
    }

    /// Puts the kept values into another order.
    [[nodiscard]] Statistics result(const IntervalGrid& grid);

  private:
    Extreme minimum_;
    Extreme maximum_;
    CompensatedSum sum_;
    std::vector<double> values_;
};

/// The percentile of values at the position (n - 1) · percent / 100 of their ascending order, interpolated
/// linearly between the two values around it. Needs at least one value, sorted at least as far as
/// `sortPercentiles` does.
double percentile(std::span<const double> values, std::size_t percent);

/// Puts the values that these percentiles need into the places of their ascending order.
void sortPercentiles(std::span<double> values, std::span<const std::size_t> percents);

} // namespace kelvrum
