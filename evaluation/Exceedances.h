// SPDX-License-Identifier: GPL-3.0-or-later
// When and how long values lay above or below a limit.
#pragma once

#include "evaluation/EvaluationInput.h"
#include "evaluation/IntervalGrid.h"

#include <cstdint>
#include <optional>

namespace kelvrum {

/// A run of consecutive intervals above the limit.
struct Episode {
    DateTime start = 0;
    DateTime end = 0; // of its last interval
    TimedValue maximum;

    bool operator==(const Episode&) const = default;
};

/// Above and below are strict: a value equal to the limit is neither.
struct Exceedances {
    double limit = 0;
    std::int64_t values = 0; // that were compared
    std::int64_t above = 0;
    std::int64_t below = 0;
    std::int64_t minutesAbove = 0;
    std::int64_t minutesBelow = 0;
    std::int64_t episodes = 0;             // runs above; an interval that does not count ends one
    std::optional<Episode> longestEpisode; // the earlier one on a tie
    std::int64_t days = 0;                 // calendar days on which an interval above begins

    [[nodiscard]] std::optional<double> aboveShare() const { return percentOf(above, values); }
    [[nodiscard]] std::optional<double> belowShare() const { return percentOf(below, values); }

    bool operator==(const Exceedances&) const = default;
};

class ExceedanceTally {
  public:
    explicit ExceedanceTally(double limit) { counts_.limit = limit; }

    /// The next value that counts. Intervals that are left out between two values end an episode.
    void add(double v, std::int64_t index, const IntervalGrid& grid) {
        ++counts_.values;
        counts_.below += v < counts_.limit ? 1 : 0;
        if (v > counts_.limit) {
            addAbove(v, index, grid);
        }
    }

    [[nodiscard]] Exceedances result(const IntervalGrid& grid) const;

  private:
    struct Run {
        std::int64_t first = 0;
        std::int64_t end = 0; // the interval after its last one
        std::int64_t maximumAt = 0;
        double maximum = 0;
        [[nodiscard]] std::int64_t length() const { return end - first; }
    };

    void addAbove(double v, std::int64_t index, const IntervalGrid& grid);

    Exceedances counts_;
    Run run_;
    Run longest_;
    std::int64_t nextDay_ = 0; // the first interval of the day after the last one that was counted
};

} // namespace kelvrum
