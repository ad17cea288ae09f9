// SPDX-License-Identifier: GPL-3.0-or-later
// Stations whose data files are in a test's folder.
#pragma once

#include "config/StationConfig.h"
#include "tests/testing/TempFolder.h"

namespace kelvrum::testing {

/// Minute of the year 2020 at which the data of 18 June begin, the day that tests of windows take for today.
inline constexpr int TEST_DAY_MINUTE = (31 + 29 + 31 + 30 + 31 + 17) * 1440;

/// A station of channel files: 4 (speed), 5 (direction, paired with 4), 12 (sum) and 104 (mean). The paired
/// file is looked for without the project's folder, so the data folder is absolute.
StationConfig channelStation(const TempFolder& folder);

/// A station of day files with the channels 1 and 3.
StationConfig dayStation(const TempFolder& folder, bool wide = false);

} // namespace kelvrum::testing
