// SPDX-License-Identifier: GPL-3.0-or-later
// What counts as a value: the program-wide marker of a missing value and the tests that go with it.
#pragma once

#include <cmath>

namespace kelvrum {

/// Marks "no value" everywhere in the program.
inline constexpr double INVALID_VALUE = 99999900.0;

/// Represents a measured zero, so that it is never taken for an empty slot (which reads as 0).
inline constexpr double ZERO_VALUE = 1e-300;

/// The bounds that the readers and the limit fields pass to `validate`.
inline constexpr double UPPER_BOUND = 99999999.0;
inline constexpr double LOWER_BOUND = -99999999.0;

/// A raw minute value counts as present when it is a number of a magnitude below INVALID_VALUE and not
/// exactly 0. A reading of zero is a missing one on purpose: unwritten slots read as 0.
inline bool isPresent(double v) { return std::fabs(v) < INVALID_VALUE && v != 0; }

/// The validity test: INVALID_VALUE for NaN, for a magnitude of 99999900 or more and for values outside
/// of the bounds; ZERO_VALUE for exactly 0; otherwise v.
inline double validate(double v, double upper = UPPER_BOUND, double lower = LOWER_BOUND) {
    if (!(std::fabs(v) < INVALID_VALUE) || v > upper || v < lower) {
        return INVALID_VALUE;
    }
    return v == 0 ? ZERO_VALUE : v;
}

} // namespace kelvrum
