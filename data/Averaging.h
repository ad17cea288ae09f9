// SPDX-License-Identifier: GPL-3.0-or-later
// How a block of minute values becomes one value.
#pragma once

#include "data/BlockReader.h"
#include "data/WindMean.h"
#include "util/Validity.h"

#include <cstdint>
#include <span>

namespace kelvrum {

/// The value of a block by the rule of a channel's Mode (sum, mean, wind direction), passed through the
/// validity test with the bounds. `paired` is used for wind directions only. Any other mode gives 0, whatever
/// the block.
double blockAverage(std::span<const double> block, std::int32_t mode, std::span<const double> paired,
                    double upper = UPPER_BOUND, double lower = LOWER_BOUND);

/// blockAverage of each block of a run; `results` has room for run.blocks values. `winds` is memory that is
/// kept from one run to the next.
void averageBlocks(const BlockRun& run, std::int32_t mode, std::span<double> results, WindMeans& winds);

} // namespace kelvrum
