// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/DiagramSummary.h"

#include "diagram/Curve.h"
#include "diagram/LineScale.h"
#include "diagram/ReducedCurve.h"
#include "diagram/SeriesTable.h"

#include <algorithm>
#include <cstdint>
#include <span>

namespace kelvrum {

namespace {

/// "Titel." without a second full stop; an empty text stays empty.
std::string sentence(const std::string& text) {
    return text.empty() ? text : text + (text.ends_with('.') ? " " : ". ");
}

std::string counted(std::int64_t count) {
    return count == 0 ? "Keine Werte." : count == 1 ? "1 Wert." : std::to_string(count) + " Werte.";
}

/// Columns before a second pass over the range begins.
std::size_t firstPass(std::span<const DateTime> times, DateTime xLow) {
    if (isAscending(times)) {
        return times.size();
    }
    PassDetector passes(xLow);
    const auto second =
        std::find_if(times.begin(), times.end(), [&](DateTime t) { return passes.starts(t); });
    return static_cast<std::size_t>(second - times.begin());
}

std::string valuesOf(const DiagramProperties& properties, const Series& series, const LocaleTexts& texts) {
    const auto times = series.times;
    const auto values = series.y1.first(firstPass(times, properties.XLow));
    const SeriesScan scan = scanSeries(values);
    if (scan.count == 0) {
        return counted(0);
    }
    const std::string unit = properties.Einheit.empty() ? "" : " " + properties.Einheit;
    const auto shown = [&](double v) { return formatNumber(v, "########0.0##", texts) + unit; };
    std::size_t last = values.size() - 1;
    while (!isValidPoint(values[last]) || values[last] == 0) {
        --last;
    }
    return counted(scan.count) + " Kleinster " + shown(scan.minimum) + ", größter " + shown(scan.maximum) +
           ", Mittel " + shown(scan.sum / static_cast<double>(scan.count)) + ", letzter " +
           shown(values[last]) + " am " + rowTime(times[last], texts) + ".";
}

} // namespace

std::string diagramSummary(const DiagramProperties& properties, const Series& series, std::int32_t samples,
                           const LocaleTexts& texts) {
    std::string text = sentence(properties.HeadLine) + sentence(properties.HeadLine2);
    if (properties.DiagTyp == KIND_POLAR) {
        return text + "Windrose, " + counted(samples);
    }
    text += "Von " + rowTime(properties.XLow, texts) + " bis " + rowTime(properties.XHigh, texts) + ". ";
    return text + valuesOf(properties, series, texts);
}

} // namespace kelvrum
