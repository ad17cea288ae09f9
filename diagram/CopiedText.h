// SPDX-License-Identifier: GPL-3.0-or-later
// What a diagram shows as tab-separated text, for the clipboard.
#pragma once

#include "diagram/Readout.h"
#include "diagram/ReadoutText.h"
#include "util/Format.h"

#include <optional>
#include <span>
#include <string>

namespace kelvrum {

/// What the times of values mean: the first line of every copy of values over time, and a note in print.
inline constexpr const char* TIME_NOTE = "Zeit: Beginn des Intervalls, ohne Sommerzeit";

/// The head of a column of values: the channel's name, "Wert" and the unit in brackets.
std::string valueHeader(const ReadoutSeries& series);

/// The values of a line diagram: note, header and a line for each interval with a value; then the minima and
/// maxima, or the second series, where there are any. Numbers as in the data list.
std::string copiedSeries(const SeriesReader& reader, const ReadoutSeries& first,
                         const std::optional<ReadoutSeries>& second, const LocaleTexts& texts);

/// The samples of a polar diagram: direction in degrees and speed. `directions` are in radians.
std::string copiedSamples(std::span<const double> directions, std::span<const double> speeds,
                          const ReadoutSeries& direction, const ReadoutSeries& speed,
                          const LocaleTexts& texts);

} // namespace kelvrum
