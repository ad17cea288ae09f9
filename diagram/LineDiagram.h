// The line diagram: kinds 0 and 4 (lines), 2 (precipitation) and 3 (directions), on any surface.
#pragma once

#include "diagram/DiagramLayout.h"
#include "diagram/DiagramState.h"
#include "diagram/PlotArea.h"
#include "drawing/Surface.h"
#include "util/Format.h"

namespace kelvrum {

/// What a drawing returns.
struct LineDrawing {
    PlotArea plot;
    ValueRange left; // of the value axes
    ValueRange right;
    int passes = 1; // passes of series 1 that were drawn: 2 = minima too, 3 = maxima too
};

/// Draws the first DataCount columns of the shared table. An automatic right range is written back into
/// Y2Low and Y2High. Without a positive time span there are axes and titles, but no curve.
LineDrawing drawLineDiagram(Surface& surface, DiagramState& state, const DiagramLayout& layout,
                            const LocaleTexts& texts);

} // namespace kelvrum
