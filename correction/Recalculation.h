// SPDX-License-Identifier: GPL-3.0-or-later
// Recomputing the stored corrected channels with a new factor.
#pragma once

#include "config/StationConfig.h"
#include "util/DateTime.h"
#include "util/FileSource.h"
#include "util/FileTarget.h"

#include <cstdint>
#include <functional>
#include <optional>
#include <string>

namespace kelvrum {

/// Which correction is made.
enum class CorrectionMode : std::int32_t {
    wind = 1, // channel 6 from channels 4 and 5
    dust = 2, // channel 15 from channel 7
};

/// The leading number of a factor as the user types it, with "," or "." as decimal point; no number gives 0.
double factorOf(const std::string& text);

/// What is to be recomputed.
struct Correction {
    CorrectionMode mode = CorrectionMode::wind;
    TimeRange range; // its end is included
    double factor = 0;
};

/// How files are reached, and what runs after each year.
struct CorrectionFiles {
    FileOpener openSource = openFile;
    TargetOpener openTarget = kelvrum::openTarget;
    std::function<void()> afterYear;
};

/// Rewrites the values of the range in the target channel's yearly files, in place and in large pieces;
/// nothing else changes. A target value is source · factor, of two sources a · b · factor from left to right,
/// and 0 where a source is exactly 0. Each year ends with the shortest source; a missing source leaves its
/// year unchanged. A missing target is created when there is a value to write. Returns the message of the
/// first failure to read or to write, which ends the run, with the file and the system's reason.
std::optional<std::string> recalculate(const StationConfig& station, const Correction& correction,
                                       const CorrectionFiles& files = {});

} // namespace kelvrum
