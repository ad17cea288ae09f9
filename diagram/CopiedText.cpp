// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/CopiedText.h"

#include "diagram/Angles.h"

#include <algorithm>
#include <cmath>

namespace kelvrum {

namespace {

std::string cell(const std::optional<double>& v, const LocaleTexts& texts) {
    return v ? shownValue(*v, texts) : std::string();
}

std::string header(const std::string& name, const char* what, const std::string& unit) {
    return name + (name.empty() ? "" : " ") + what + (unit.empty() ? "" : " [" + unit + "]");
}

} // namespace

std::string valueHeader(const ReadoutSeries& series) { return header(series.name, "Wert", series.unit); }

std::string copiedSeries(const SeriesReader& reader, const ReadoutSeries& first,
                         const std::optional<ReadoutSeries>& second, const LocaleTexts& texts) {
    const int passes = reader.passes();
    std::string text = TIME_NOTE;
    text += "\nZeit\t" + valueHeader(first);
    text += passes > 1 ? "\t" + header({}, "Minimum", first.unit) : "";
    text += passes > 2 ? "\t" + header({}, "Maximum", first.unit) : "";
    text += second ? "\t" + valueHeader(*second) : "";
    text += "\n";
    for (auto value = reader.first(); value; value = reader.next(value->column)) {
        text += rowTime(value->time, texts) + "\t" + cell(value->y1, texts);
        text += passes > 1 ? "\t" + cell(value->minimum, texts) : "";
        text += passes > 2 ? "\t" + cell(value->maximum, texts) : "";
        text += second ? "\t" + cell(value->y2, texts) : "";
        text += "\n";
    }
    return text;
}

std::string copiedSamples(std::span<const double> directions, std::span<const double> speeds,
                          const ReadoutSeries& direction, const ReadoutSeries& speed,
                          const LocaleTexts& texts) {
    constexpr double DIGITS = 1e9; // per degree: digits beyond come from the conversion to radians
    std::string text = valueHeader(direction) + "\t" + valueHeader(speed) + "\n";
    for (std::size_t i = 0; i < std::min(directions.size(), speeds.size()); ++i) {
        const double degrees = std::round(directions[i] * RADIANS_TO_DEGREES * DIGITS) / DIGITS;
        text += cell(degrees, texts) + "\t" + cell(speeds[i], texts) + "\n";
    }
    return text;
}

} // namespace kelvrum
