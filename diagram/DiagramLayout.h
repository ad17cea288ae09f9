// The fixed lengths of a diagram: what distinguishes the screen from the page, apart from the surface.
#pragma once

namespace kelvrum {

/// All lengths in units of the surface's scale (pixels on the screen, millimetres on the page).
struct DiagramLayout {
    double left = 40;           // start of the time axis
    double right = 30;          // margin right of the time axis
    double top = 50;            // margin above the value axes
    double bottom = 40;         // margin below the time axis (base line of the value axes)
    double minDivision = 20;    // least height of a division of a value axis
    double minLabelGap = 65;    // least distance of two labels of the time axis
    double minTickGap = 4;      // least distance of short ticks
    double titleY = 3;          // upper edge of HeadLine
    double title2Y = 16;        // upper edge of HeadLine2
    double bandBelowTitle = 19; // the title band is this much higher than the text of HeadLine
    double longTick = 4;
    double shortTick = 2;
    double textGap = 1;   // between a tick and its label, and at the surface's edges
    double rowPitch = 11; // from the time of a label to the date below it
};

} // namespace kelvrum
