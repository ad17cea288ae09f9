// SPDX-License-Identifier: GPL-3.0-or-later
// From the intervals of day files to the columns of the SeriesTable.
#pragma once

#include "data/DayFiles.h"
#include "data/Reading.h"

#include <cstddef>
#include <vector>

namespace kelvrum {

/// Lays intervals into the shared table and returns the number of columns: the means, and with `wide` the
/// minima and the maxima as further passes over the range. `seconds`, the means of a second channel, are part
/// of the first pass.
std::size_t fillPasses(const std::vector<DayInterval>& intervals, const std::vector<DayInterval>& seconds,
                       const ReadRequest& request, bool wide);

} // namespace kelvrum
