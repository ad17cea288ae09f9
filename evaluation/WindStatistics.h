// SPDX-License-Identifier: GPL-3.0-or-later
// Figures of wind directions.
#pragma once

#include "evaluation/CompensatedSum.h"

#include <array>
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <optional>

namespace kelvrum {

/// The table of directions: centred at 0, 30, 60 ... degrees.
inline constexpr std::size_t DIRECTIONS = 12;
inline constexpr double DIRECTION_WIDTH = 30;

/// Slower winds are calms.
inline constexpr double CALM_BELOW = 0.5;

/// Lower borders of the classes of speed. A border belongs to the class above it.
inline constexpr std::array<double, 6> SPEED_CLASSES = {CALM_BELOW, 2, 4, 6, 8, 10};

/// The number of the direction that d (degrees) belongs to: 0 is north, 3 east. The lower border belongs to
/// it, also when d lies up to 1e-6 degrees below.
std::size_t directionOf(double d);

/// Wind vectors added up.
class VectorSum {
  public:
    /// A vector of a length, in the direction of an angle (from north to east) with this sine and cosine.
    void add(double sine, double cosine, double length) {
        x_.add(sine * length);
        y_.add(cosine * length);
        lengths_.add(std::fabs(length));
    }

    /// Degrees above 0 to 360, north is 360; nothing when the vectors cancel, or without any.
    [[nodiscard]] std::optional<double> direction() const;

    /// The length of the sum over the sum of the lengths, 0 to 1; nothing when all lengths are 0.
    [[nodiscard]] std::optional<double> constancy() const;

  private:
    [[nodiscard]] double length() const;

    CompensatedSum x_;
    CompensatedSum y_;
    CompensatedSum lengths_; // their magnitudes
};

struct WindStatistics {
    std::int64_t intervals = 0;              // with a direction and a speed
    std::optional<double> weightedDirection; // mean direction, weighted with the speed
    std::optional<double> unitDirection;     // mean direction, each interval the same weight
    std::optional<double> constancy;         // of the weighted vectors
    std::int64_t calms = 0;                  // they count in the means, in the table as one row of their own
    std::array<std::array<std::int64_t, SPEED_CLASSES.size()>, DIRECTIONS> table{};

    bool operator==(const WindStatistics&) const = default;
};

class WindTally {
  public:
    /// An interval with a direction (degrees) and a speed; the sine and cosine are those of the direction.
    void add(double direction, double speed, double sine, double cosine);

    [[nodiscard]] WindStatistics result() const;

  private:
    WindStatistics counts_;
    VectorSum weighted_;
    VectorSum unit_;
};

} // namespace kelvrum
