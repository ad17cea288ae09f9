// SPDX-License-Identifier: GPL-3.0-or-later
// Reads the input of an evaluation: the intervals of the picture, with everything else that it needs.
#pragma once

#include "config/StationConfig.h"
#include "data/Reading.h"
#include "evaluation/EvaluationInput.h"
#include "util/FileSource.h"

#include <cstdint>
#include <functional>
#include <span>

namespace kelvrum {

/// Which figures make sense for a channel of a station.
EvaluatedKind evaluatedKind(const StationConfig& station, std::int32_t channel);

/// Passes the intervals of a request to `consume`, many at a time, by ascending number. Values are those that
/// the list and the diagram show; intervals that the reading does not reach are left out. An end that is
/// not after the start gives none.
///
/// Present minutes are counted as averaging counts them: a magnitude below 99999900 and not exactly 0. A
/// minute of a wind direction is present when its direction and its speed are, since only then it counts in
/// the mean. In day files each record with a value is a minute.
///
/// Between pieces `step` is called; false gives the reading up.
ReadStatus readIntervals(const StationConfig& station, const ReadRequest& request, const FileOpener& open,
                         const std::function<void(std::span<const IntervalReading>)>& consume,
                         const ReadingStep& step);

} // namespace kelvrum
