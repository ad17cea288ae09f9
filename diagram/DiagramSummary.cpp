// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/DiagramSummary.h"

#include "diagram/Curve.h"
#include "diagram/LineScale.h"
#include "diagram/SeriesTable.h"
#include "util/VectorRegisters.h"

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

std::string valuesOf(std::span<const DateTime> times, std::span<const double> values, const std::string& unit,
                     const LocaleTexts& texts) {
    const SeriesScan scan = scanSeries(values);
    if (scan.count == 0) {
        return counted(0);
    }
    const auto shown = [&](double v) {
        return formatNumber(v, "########0.0##", texts) + (unit.empty() ? "" : " " + unit);
    };
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
                           const std::optional<ReadoutSeries>& second, const LocaleTexts& texts) {
    std::string text = sentence(properties.HeadLine) + sentence(properties.HeadLine2);
    if (properties.DiagTyp == KIND_POLAR) {
        return text + "Windrose, " + (samples == 0 ? "keine Werte." : counted(samples));
    }
    text += "Von " + rowTime(properties.XLow, texts) + " bis " + rowTime(properties.XHigh, texts) + ". ";
    cleanVectorRegisters(); // windows may have been painted
    const std::size_t columns = firstPass(series.times, properties.XLow);
    text += valuesOf(series.times, series.y1.first(columns), properties.Einheit, texts);
    if (second) {
        text += " Zweiter Kanal: " + second->name + ". " +
                valuesOf(series.times, series.y2.first(columns), second->unit, texts);
    }
    return text;
}

} // namespace kelvrum
