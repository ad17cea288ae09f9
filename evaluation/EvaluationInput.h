// SPDX-License-Identifier: GPL-3.0-or-later
// The input of an evaluation: a reading, interval by interval, and its options.
#pragma once

#include "util/DateTime.h"
#include "util/Validity.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace kelvrum {

/// Which figures make sense for a channel.
enum class EvaluatedKind {
    value,     // statistics and limits
    sum,       // the same with a total; no availability, since a dry minute is stored as a missing one
    direction, // wind: mean directions and a table of directions by speed
};

/// The limits of a channel, in the order of their numbers.
inline constexpr std::size_t LIMITS = 2;

struct EvaluationRequest {
    TimeRange range;
    std::int32_t interval = 1; // minutes
    EvaluatedKind kind = EvaluatedKind::value;
    std::array<std::optional<double>, LIMITS> limits; // one of a magnitude of 99999900 or more counts as none
    DateTime now = LAST_DATE;                         // intervals that begin later are not evaluated at all
    bool onlyCovered = false; // intervals with less than 75 % of their minutes count in no figure of values
};

/// What was read of one interval.
struct IntervalReading {
    std::int64_t index = 0; // number of the interval from the range start
    double value = INVALID_VALUE;
    double speed = INVALID_VALUE;   // wind directions: mean of the paired channel over the same minutes
    double minimum = INVALID_VALUE; // wide day records: smallest minimum and greatest maximum of the records
    double maximum = INVALID_VALUE;
    std::int32_t present = 0; // minutes with a measurement; more than the interval has count as all
};

/// A value and the start of its interval.
struct TimedValue {
    double value = 0;
    DateTime time = 0;

    bool operator==(const TimedValue&) const = default;
};

inline bool hasValue(double v) { return std::fabs(v) < INVALID_VALUE; }

/// A value as it counts: the stand-in for a measured zero is 0.
inline double countedValue(double v) { return v == ZERO_VALUE ? 0 : v; }

/// True when at least 75 % of an interval's minutes are present.
inline bool isCovered(std::int64_t present, std::int32_t interval) { return 4 * present >= 3LL * interval; }

/// part of whole in percent; nothing when there is no whole.
inline std::optional<double> percentOf(std::int64_t part, std::int64_t whole) {
    return whole > 0 ? std::optional(100.0 * static_cast<double>(part) / static_cast<double>(whole))
                     : std::nullopt;
}

} // namespace kelvrum
