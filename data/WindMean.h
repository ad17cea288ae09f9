// SPDX-License-Identifier: GPL-3.0-or-later
// The speed-weighted mean of wind directions.
#pragma once

#include <cstddef>
#include <memory>
#include <span>

namespace kelvrum {

/// Vectors whose sum is at most this part of their lengths cancel each other.
inline constexpr double CANCELLED = 1e-12;

/// Whether a direction (degrees, 0 to 360) is reported as north: as 360, never as 0 or a value next to it.
inline bool isNorth(double d) {
    constexpr double TOLERANCE = 1e-9;
    return d <= TOLERANCE || d >= 360 - TOLERANCE;
}

/// Direction in degrees, above 0 and at most 360 (north is 360), of the vector sum of the minutes whose
/// direction and speed are both present; INVALID_VALUE when there is none. `directions` in degrees and
/// `speeds` are equally long. Taken minute by minute: after each minute the running vector is turned into
/// direction and magnitude and back. WindMeans carries the vector as X and Y instead and falls back to this
/// for blocks in which the two ways would round differently; they never differ by more than 1e-7 degrees.
double windMeanByMinutes(std::span<const double> directions, std::span<const double> speeds);

/// Means of many blocks, with memory that is kept from one call to the next: a third of a megabyte.
class WindMeans {
  public:
    WindMeans();
    WindMeans(const WindMeans&) = delete;
    WindMeans& operator=(const WindMeans&) = delete;
    ~WindMeans();

    /// The mean of each block of `minutes` minutes, as windMeanByMinutes describes it; `results` has a value
    /// for each block. An empty `speeds` stands for a channel without its pair: INVALID_VALUE.
    void of(std::span<const double> directions, std::span<const double> speeds, std::size_t minutes,
            std::span<double> results);

  private:
    struct Memory;
    std::unique_ptr<Memory> memory_;
};

} // namespace kelvrum
