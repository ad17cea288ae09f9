// SPDX-License-Identifier: GPL-3.0-or-later
// What a diagram shows, as text for screen readers.
#pragma once

#include "diagram/DiagramProperties.h"
#include "diagram/ReadoutText.h"
#include "diagram/SeriesTable.h"
#include "util/Format.h"

#include <cstdint>
#include <optional>
#include <string>

namespace kelvrum {

/// The titles, the range, and the number of values of series 1 with the smallest, greatest, mean and last
/// one and their unit; stored minima and maxima, which are further passes, are left out. Then the name of a
/// second series and the same for its values. For a polar diagram, the titles and the number of samples.
/// Exact zeros are not counted, as for the mean line. German, in whole sentences.
std::string diagramSummary(const DiagramProperties& properties, const Series& series, std::int32_t samples,
                           const std::optional<ReadoutSeries>& second, const LocaleTexts& texts);

} // namespace kelvrum
