// SPDX-License-Identifier: GPL-3.0-or-later
// Moving a time range: snapping to the interval grid and shifting by a scroll unit.
#pragma once

#include "util/DateTime.h"

namespace kelvrum {

/// A time of day (minutes, 0 to 1439) moved onto the grid of an interval (minutes): up to the next grid point
/// when it lies later than the one before the change, else down. A time on the grid stays. Snapping up to
/// 24:00 gives 0, that is 00:00 of the same date.
int snapMinutes(int minutes, int previous, int interval);

/// The character codes of the scroll units, as the scroll list carries them.
enum ScrollUnit : int {
    SCROLL_MINUTE = 'n',
    SCROLL_HOUR = 'h',
    SCROLL_DAY = 'd',
    SCROLL_MONTH = 'm',
};

/// t shifted by a number of scroll units. A month keeps the day of month, cut to the month's last day. An
/// unknown unit shifts nothing.
DateTime shiftTime(DateTime t, int unit, int count);

} // namespace kelvrum
