// SPDX-License-Identifier: GPL-3.0-or-later
// From values to axes: what a series holds, the ranges of the value axes and their ticks.
#pragma once

#include "diagram/DiagramProperties.h"
#include "diagram/SeriesTable.h"
#include "util/Format.h"

#include <cstdint>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvrum {

/// A value of magnitude 999999 or more, and a NaN, is a gap.
inline bool isValidPoint(double v) { return v < NoValue && v > -NoValue; }

/// Statistics of series 1 over its valid values other than 0.
struct SeriesScan {
    double maximum = -9999999;
    double minimum = 9999999;
    double sum = 0;
    std::int64_t count = 0;
};
SeriesScan scanSeries(std::span<const double> values);

/// The range of a value axis.
struct ValueRange {
    double low = 0;
    double high = 100;

    [[nodiscard]] double height() const { return high - low; }
    bool operator==(const ValueRange&) const = default;
};

/// The left range: as set, or from the scan when both bounds carry AUTOMATIC_RANGE; widened by withHeight.
ValueRange leftRange(const DiagramProperties& properties, const SeriesScan& scan);

/// The right range of series 2: as set, or from its values when both bounds carry AUTOMATIC_RIGHT_RANGE.
/// Every stored value counts then, the NoValue marker included, on purpose. Not yet widened to a height.
ValueRange rightRange(const DiagramProperties& properties, std::span<const double> values);

/// A range of zero height becomes 100 high, unless its values are too large for a double to show that.
ValueRange withHeight(ValueRange range);

/// The range of the valid values, wider by 5 % of its height at both ends; a single value is the lower end of
/// 100. 0 to 100 without any.
ValueRange marginedRange(std::span<const double> values);

/// The first step whose product with the number of divisions reaches a height, at most the last one.
double valueStep(double height, int divisions);

/// How a value axis is divided.
struct ValueDivision {
    double step = 0;
    std::string_view format; // of the labels
};

/// Step and label format for a range over a number of divisions.
ValueDivision divideRange(ValueRange range, int divisions);

struct ValueTick {
    double value = 0;
    std::string label;
};

/// The ticks of a value axis within its range, from the lower end on; the two ends of the range when
/// it contains no tick. `length` is the axis' length and `minDivision` the smallest distance of two ticks,
/// both in the same unit.
std::vector<ValueTick> valueTicks(ValueRange range, double length, double minDivision,
                                  const LocaleTexts& texts);

} // namespace kelvrum
