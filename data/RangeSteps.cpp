// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/RangeSteps.h"

namespace kelvrum {

int snapMinutes(int minutes, int previous, int interval) {
    if (interval < 1) {
        return minutes;
    }
    const int down = minutes - minutes % interval;
    const int snapped = minutes > previous && down != minutes ? down + interval : down;
    return snapped % MINUTES_PER_DAY;
}

DateTime shiftTime(DateTime t, int unit, int count) {
    switch (unit) {
    case SCROLL_MINUTE:
        return addMinutes(t, count);
    case SCROLL_HOUR:
        return addMinutes(t, 60LL * count);
    case SCROLL_DAY:
        return addMinutes(t, static_cast<long long>(MINUTES_PER_DAY) * count);
    case SCROLL_MONTH:
        return addMonths(t, count);
    default:
        return t;
    }
}

} // namespace kelvrum
