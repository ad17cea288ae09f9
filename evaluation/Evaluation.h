// SPDX-License-Identifier: GPL-3.0-or-later
// The evaluation of a reading: how complete it is, its statistics, what was above the limits, and all of it
// by calendar. Figures that do not exist are empty.
#pragma once

#include "evaluation/Availability.h"
#include "evaluation/Breakdown.h"
#include "evaluation/EvaluationInput.h"
#include "evaluation/Exceedances.h"
#include "evaluation/IntervalGrid.h"
#include "evaluation/Statistics.h"
#include "evaluation/WindStatistics.h"

#include <array>
#include <optional>
#include <span>

namespace kelvrum {

struct Evaluation {
    EvaluationRequest request;
    Availability availability;
    std::optional<Statistics> statistics;                       // none for directions, as the exceedances
    std::array<std::optional<Exceedances>, LIMITS> exceedances; // none without a limit
    std::optional<WindStatistics> wind;                         // for directions only
    std::optional<TimedValue> smallestMinimum;                  // of wide day records
    std::optional<TimedValue> greatestMaximum;
    Breakdown breakdown;
};

/// Evaluates a reading while it is read. Memory grows with the values that order statistics need, not with
/// the intervals.
class Evaluator {
  public:
    explicit Evaluator(const EvaluationRequest& request);

    /// The next intervals that were read, by ascending number; those that are left out have no value. What
    /// is not in the range, begins after now, or is out of order is ignored.
    void add(std::span<const IntervalReading> intervals);

    /// The figures of everything that was added. Call it once.
    [[nodiscard]] Evaluation result();

  private:
    void add(const IntervalReading& interval);
    void addValue(double v, std::int64_t index);
    void addWind(double direction, double speed);

    EvaluationRequest request_;
    IntervalGrid grid_;
    std::int64_t next_ = 0; // the lowest number that may follow
    AvailabilityTally availability_;
    StatisticsTally statistics_;
    std::array<std::optional<ExceedanceTally>, LIMITS> exceedances_;
    WindTally wind_;
    Extreme minimum_;
    Extreme maximum_;
    BreakdownTally breakdown_;
};

/// The evaluation of a reading that is complete.
Evaluation evaluate(const EvaluationRequest& request, std::span<const IntervalReading> intervals);

} // namespace kelvrum
