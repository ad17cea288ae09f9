// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/LineScale.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kelvrum {

namespace {

constexpr double AUTOMATIC_MARGIN = 0.05; // of the range, at each end
constexpr double EMPTY_HEIGHT = 100;
constexpr double TICK_TOLERANCE = 1e-9; // of a step

constexpr std::array<double, 38> VALUE_STEPS = {0.001, 0.005, 0.01, 0.025, 0.05, 0.1,   0.2,   0.25, 0.5, 1,
                                                2,     2.5,   5,    10,    15,   20,    25,    30,   40,  50,
                                                60,    70,    80,   90,    100,  125,   150,   200,  250, 300,
                                                400,   500,   1000, 2000,  5000, 10000, 20000, 50000};

/// The labels of a range that contains no multiple of the step: its ends, with two decimals, and more until
/// they differ.
std::vector<ValueTick> endTicks(double low, double high, const LocaleTexts& texts) {
    constexpr int MAX_DECIMALS = 15; // a double has no more significant digits
    std::string format = "######0.00";
    std::vector<ValueTick> ticks = {{low, {}}, {high, {}}};
    for (int decimals = 2; decimals <= MAX_DECIMALS && ticks[0].label == ticks[1].label; ++decimals) {
        for (ValueTick& tick : ticks) {
            tick.label = formatNumber(tick.value, format, texts);
        }
        format += '0';
    }
    return ticks;
}

} // namespace

SeriesScan scanSeries(std::span<const double> values) {
    SeriesScan scan;
    for (const double v : values) {
        if (isValidPoint(v) && v != 0) {
            scan.maximum = std::max(scan.maximum, v);
            scan.minimum = std::min(scan.minimum, v);
            scan.sum += v;
            ++scan.count;
        }
    }
    return scan;
}

ValueRange withHeight(ValueRange range) {
    if (range.height() == 0) {
        range.high = range.low + EMPTY_HEIGHT;
    }
    return range;
}

ValueRange leftRange(const DiagramProperties& properties, const SeriesScan& scan) {
    if (properties.Y1Low != AUTOMATIC_RANGE || properties.Y1High != AUTOMATIC_RANGE) {
        return withHeight({properties.Y1Low, properties.Y1High});
    }
    if (scan.count == 0) {
        return {};
    }
    const bool fromZero = properties.DiagTyp == KIND_PRECIPITATION;
    ValueRange range{fromZero ? 0 : scan.minimum, scan.maximum};
    if (range.height() < properties.Y1MinLow) {
        range.high = range.low + properties.Y1MinLow;
    }
    const double margin = range.height() * AUTOMATIC_MARGIN;
    range.high += margin;
    if (!fromZero) {
        range.low -= margin;
    }
    return withHeight(range);
}

ValueRange rightRange(const DiagramProperties& properties, std::span<const double> values) {
    if (!properties.hasAutomaticRightRange()) {
        return {properties.Y2Low, properties.Y2High};
    }
    if (values.empty()) {
        return {};
    }
    ValueRange range{9999999, -9999999};
    for (const double v : values) {
        range.low = std::min(range.low, v);
        range.high = std::max(range.high, v);
    }
    if (range.low > range.high) {
        return {}; // no number among them
    }
    const double margin = range.height() * AUTOMATIC_MARGIN;
    return {range.low - margin, range.high + margin};
}

ValueRange marginedRange(std::span<const double> values) {
    bool any = false;
    ValueRange range;
    for (const double v : values) {
        if (isValidPoint(v)) {
            range.low = any ? std::min(range.low, v) : v;
            range.high = any ? std::max(range.high, v) : v;
            any = true;
        }
    }
    const double margin = any ? range.height() * AUTOMATIC_MARGIN : 0;
    return withHeight({range.low - margin, range.high + margin});
}

double valueStep(double height, int divisions) {
    const auto* const found = std::find_if(VALUE_STEPS.begin(), VALUE_STEPS.end(),
                                           [&](double step) { return step * divisions >= height; });
    return found == VALUE_STEPS.end() ? VALUE_STEPS.back() : *found;
}

ValueDivision divideRange(ValueRange range, int divisions) {
    constexpr double LARGEST_WITH_FINE_LABELS = 999;
    double step = valueStep(std::fabs(range.height()), divisions);
    if (step < 0.5) {
        if (std::fabs(range.low) <= LARGEST_WITH_FINE_LABELS &&
            std::fabs(range.high) <= LARGEST_WITH_FINE_LABELS) {
            return {step, step < 0.05 ? "######0.000" : "######0.00"};
        }
        return {std::max(step, 0.1), "######0.0"};
    }
    return {step, step >= 5 ? "######0" : "######0.0"};
}

std::vector<ValueTick> valueTicks(ValueRange range, double length, double minDivision,
                                  const LocaleTexts& texts) {
    std::vector<ValueTick> ticks;
    const double height = std::fabs(range.height());
    const double room = length / minDivision;
    const int divisions = room > 0 ? static_cast<int>(std::min(room, 10000.0)) : 0; // none if it is NaN
    if (divisions < 1 || !(height > 0) || !std::isfinite(height)) {
        return ticks;
    }
    const auto [step, format] = divideRange(range, divisions);
    // Beyond the last table step the ticks would crowd: only every n-th is kept then.
    const double every = std::max(1.0, std::ceil(minDivision / (step * length / height) - TICK_TOLERANCE));
    const double low = std::min(range.low, range.high);
    const double high = std::max(range.low, range.high);
    const double first = std::floor(low / step); // the largest multiple of the step not above low
    for (int k = 0; k <= divisions + 1; ++k) {
        const double value = (first + k * every) * step;
        if (value > high + step * TICK_TOLERANCE) {
            break;
        }
        if (value >= low - step * TICK_TOLERANCE) { // the first multiple may be below the axis
            ticks.push_back({value, formatNumber(value, format, texts)});
        }
    }
    return ticks.empty() ? endTicks(low, high, texts) : ticks;
}

} // namespace kelvrum
