// SPDX-License-Identifier: GPL-3.0-or-later
// Angles: their units and the turn they are folded into.
#pragma once

#include <cstdint>
#include <optional>

namespace kelvrum {

inline constexpr double TWO_PI = 6.28318530717959;
inline constexpr double DEGREES_TO_RADIANS = 0.0174532925199433; // pi / 180
inline constexpr double RADIANS_TO_DEGREES = 57.2957795130823;
inline constexpr double GON_TO_RADIANS = 0.015707963267949; // pi / 200
inline constexpr double RADIANS_TO_GON = 63.6619772367581;

/// Unit of the angles that cross the control's interface (Bogenmass).
enum AngleUnit : std::int32_t { UNIT_RADIANS = 0, UNIT_DEGREES = 1, UNIT_GON = 2 };

/// From and to a unit. An unknown unit converts nothing: toRadians gives nothing, fromRadians 0.
std::optional<double> toRadians(double angle, std::int32_t unit);
double fromRadians(double angle, std::int32_t unit);

/// Folds an angle in radians into [0, 2 pi). An angle already there comes back unchanged; a NaN and the
/// infinities give 0, as do tiny negative angles.
double NormWinkel(double angle);

} // namespace kelvrum
