// SPDX-License-Identifier: GPL-3.0-or-later
// The fixed lengths of a diagram: what distinguishes the screen from the page, apart from the surface.
#pragma once

#include <optional>

namespace kelvrum {

/// All lengths in units of the surface's scale (pixels on the screen, millimetres on the page).
struct DiagramLayout {
    double left = 40;           // start of the time axis
    double right = 30;          // margin right of the time axis
    double top = 50;            // margin above the value axes
    double bottom = 40;         // margin below the time axis (base line of the value axes)
    double foot = 0;            // height at the foot of the surface that is not used
    double minDivision = 20;    // smallest height of a division of a value axis
    double minLabelGap = 65;    // smallest distance of two labels of the time axis
    double minTickGap = 4;      // smallest distance of short ticks
    double titleY = 3;          // upper edge of HeadLine
    double title2Y = 16;        // upper edge of HeadLine2
    double bandBelowTitle = 19; // the title band is this much higher than the text of HeadLine
    double longTick = 4;
    double shortTick = 2;
    double loneDot = 3;       // side of the square that a value without neighbours is drawn as
    double textGap = 1;       // between a tick and its label, and at the surface's edges
    double rightLabelGap = 3; // the same on the right; closer, a tick looks like a minus sign
    double unitDrop = 1;      // unit and captions are one and a half lines above the plot, less this
    double rowPitch = 10;     // from the time of a label to the date below it
    int totalRow = 1;         // row of the precipitation total below the axis; 1 is shared with the dates
    bool totalAtEdge = true;  // the total ends at the surface's right edge; else at the right axis

    // Sizes in points; nothing: that of SkalaFont.
    std::optional<double> titlePoints;
    std::optional<double> title2Points;
    std::optional<double> textPoints;
    bool fitsTexts = false; // texts too wide for the surface become smaller, down to textPoints, or are cut

    bool background = true;        // drawn on BgCol; the paper of a page stays as it is
    bool titleBand = true;         // the titles are on a filled band
    std::optional<double> legendY; // upper edge of the legend of the passes; nothing: no legend
    double legendInset = 13;       // the first word is centred this much left of the middle
    double legendGap = 5;          // between the words

    /// A printed page, in millimetres from its upper left corner.
    static DiagramLayout page() {
        DiagramLayout layout;
        layout.left = 20;
        layout.right = 13;
        layout.top = 23;
        layout.bottom = 20;
        layout.foot = 20;
        layout.longTick = 2;
        layout.shortTick = 1;
        layout.loneDot = 0.5;
        layout.rightLabelGap = 1;
        layout.unitDrop = 0;
        layout.rowPitch = 3.5;
        layout.totalRow = 2;
        layout.totalAtEdge = false;
        layout.titlePoints = 12;
        layout.title2Points = 10;
        layout.textPoints = 8;
        layout.fitsTexts = true;
        layout.background = false;
        layout.titleBand = false;
        layout.legendY = layout.top - 14;
        return layout;
    }
};

} // namespace kelvrum
