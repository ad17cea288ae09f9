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

/// The titles, the range, and of series 1 the number of values, the smallest, greatest, mean and last one
/// with their unit; of stored minima and maxima, which follow as further passes, nothing. Then the name of a
/// second series and the same of its values. Of a polar diagram the titles and the number of its samples.
/// German, in whole sentences.
std::string diagramSummary(const DiagramProperties& properties, const Series& series, std::int32_t samples,
                           const std::optional<ReadoutSeries>& second, const LocaleTexts& texts);

} // namespace kelvrum
