// SPDX-License-Identifier: GPL-3.0-or-later
// The plot of a line diagram on its surface and the one mapping from time and value to dots.
#pragma once

#include "diagram/DiagramLayout.h"
#include "diagram/LineScale.h"
#include "drawing/Surface.h"
#include "util/DateTime.h"

namespace kelvrum {

/// The 16-bit range of surface coordinates.
inline constexpr double LOWEST_DOT = -32768;
inline constexpr double HIGHEST_DOT = 32767;

/// The nearest dot of a coordinate, a half to the even neighbour. Anything outside the range of surface
/// coordinates is moved to its edge, a NaN to the lower one.
inline int nearestDot(double v) {
    // Adding and taking off 1.5 * 2^52 leaves a double rounded to whole numbers, half to even.
    constexpr double ROUNDING = 6755399441055744.0;
    const double cut = v > LOWEST_DOT ? (v < HIGHEST_DOT ? v : HIGHEST_DOT) : LOWEST_DOT;
    return static_cast<int>((cut + ROUNDING) - ROUNDING);
}

/// One value axis on the plot.
struct ValueScale {
    double base = 0;        // y of the lower end, in dots
    double low = 0;         // value at the base
    double dotsPerUnit = 0; // upward

    [[nodiscard]] int y(double value) const { return nearestDot(base - (value - low) * dotsPerUnit); }
};

/// The rectangle between the axes, its edges being the axes themselves, and the time scale.
struct PlotArea {
    double left = 0;
    double top = 0;
    double right = 0;
    double bottom = 0;
    DateTime xLow = 0;
    double dotsPerDay = 0;

    PlotArea(const DiagramLayout& layout, Extent size, double scale, const TimeRange& range)
        : left(layout.left * scale)
        , top(layout.top * scale)
        , right(size.width - layout.right * scale)
        , bottom(size.height - (layout.foot + layout.bottom) * scale)
        , xLow(range.from)
        , dotsPerDay(range.to > range.from ? (right - left) / (range.to - range.from) : 0) {}

    [[nodiscard]] double width() const { return right - left; }
    [[nodiscard]] double height() const { return bottom - top; }
    [[nodiscard]] bool hasTimeScale() const { return dotsPerDay > 0; }
    /// The coordinate of a time before it is rounded and cut to the range of surface coordinates.
    [[nodiscard]] double exactX(DateTime t) const { return left + (t - xLow) * dotsPerDay; }
    [[nodiscard]] int x(DateTime t) const { return nearestDot(exactX(t)); }
    [[nodiscard]] ValueScale scaleOf(const ValueRange& range) const {
        // A range too far from 0 to be widened has no height: everything is on the base line then.
        return {bottom, range.low, range.height() != 0 ? height() / range.height() : 0};
    }
    /// The dots on and between the axes.
    [[nodiscard]] Box clip() const {
        return {nearestDot(left), nearestDot(top), nearestDot(right) + 1, nearestDot(bottom) + 1};
    }
};

} // namespace kelvrum
