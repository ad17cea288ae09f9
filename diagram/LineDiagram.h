// SPDX-License-Identifier: GPL-3.0-or-later
// The line diagram: kinds 0 and 4 (lines), 2 (precipitation) and 3 (directions), on any surface.
#pragma once

#include "diagram/DiagramLayout.h"
#include "diagram/DiagramState.h"
#include "diagram/PlotArea.h"
#include "drawing/Surface.h"
#include "util/Format.h"

#include <optional>

namespace kelvrum {

/// What a drawing returns.
struct LineDrawing {
    PlotArea plot;
    ValueRange left; // of the value axes
    ValueRange right;
    std::optional<ValueRange>
        automaticRight; // the right range found when it follows the data, not yet widened
    int passes = 1;     // passes of series 1 that were drawn: 2 = minima too, 3 = maxima too
    std::int32_t kind = KIND_LINE;
};

/// Draws a series. Without a positive time span there are axes and titles, but no curve.
LineDrawing drawLineDiagram(Surface& surface, const DiagramProperties& properties, const Series& series,
                            const DiagramLayout& layout, const LocaleTexts& texts);

/// Draws what a control has in use, and writes an automatic right range back into its Y2Low and Y2High.
LineDrawing drawLineDiagram(Surface& surface, DiagramState& control, const DiagramLayout& layout,
                            const LocaleTexts& texts);

} // namespace kelvrum
