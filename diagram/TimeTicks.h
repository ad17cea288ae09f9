// SPDX-License-Identifier: GPL-3.0-or-later
// The ticks and labels of the time axis, as a pure function of its range and width.
#pragma once

#include "util/DateTime.h"
#include "util/Format.h"

#include <string>
#include <vector>

namespace kelvrum {

/// From this span (days) on the labels are months.
inline constexpr double MONTH_LABEL_SPAN = 360;

/// Distance of two ticks in days for a span in days.
double timeStep(double span);

/// A tick of the time axis. A labelled one carries "hh:mm" over "dd/mm/yy", or "m/yyyy" alone.
struct TimeTick {
    DateTime time = 0;
    bool labelled = false;
    std::string upper;
    std::string lower;
};

/// Lengths in the same unit: the axis' width, the smallest distance of two labels (months count as 31 days
/// each), the smallest distance of two ticks (nearer unlabelled ones are left out).
struct TimeAxis {
    TimeRange range;
    double width = 0;
    double minLabelGap = 65;
    double minTickGap = 4;
};

/// The ticks from the start to the end of the axis, ascending; none when the end is not after the start.
std::vector<TimeTick> timeTicks(const TimeAxis& axis, const LocaleTexts& texts);

} // namespace kelvrum
