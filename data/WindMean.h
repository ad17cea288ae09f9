// The speed-weighted mean of wind directions.
#pragma once

#include <cstddef>
#include <span>

namespace kelvrum {

/// Direction in degrees, above 0 and at most 360 (north is 360), of the vector sum of the minutes whose
/// direction and speed are both present; INVALID_VALUE when there is none. `directions` in degrees and
/// `speeds` are equally long; an empty `speeds` stands for a channel without its pair.
double windMean(std::span<const double> directions, std::span<const double> speeds);

/// windMean of each block of `minutes` minutes; `results` has a value for each block.
void windMeans(std::span<const double> directions, std::span<const double> speeds, std::size_t minutes,
               std::span<double> results);

/// The same, minute by minute: after each minute the running vector is turned into direction and magnitude
/// and back. windMean carries the vector as X and Y instead and falls back to this for blocks in which the
/// two ways would round differently; nowhere do they lie more than 1e-7 degrees apart.
double windMeanByMinutes(std::span<const double> directions, std::span<const double> speeds);

} // namespace kelvrum
