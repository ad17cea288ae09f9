// SPDX-License-Identifier: GPL-3.0-or-later
// The polar diagram: a wind rose of the control's samples, on any surface.
#pragma once

#include "diagram/DiagramState.h"
#include "drawing/Surface.h"
#include "util/Format.h"

#include <cstdint>
#include <optional>
#include <vector>

namespace kelvrum {

/// How many samples fall into each direction class. Class k holds the directions from k · sector − half up
/// to, but not including, (k + 1) · sector − half.
struct DirectionClasses {
    std::vector<std::int32_t> counts; // one for each class, and one spare at the end
    std::int32_t calm = 0;            // samples slower than 0.5; kept, but shown nowhere
    double maxCount = 0;              // of the classes, the spare one left out
};

/// Classifies samples by their directions.
DirectionClasses classify(const PolarSamples& samples, std::int32_t classCount);

/// The fixed points of the drawing, in dots.
struct PolarGeometry {
    int top = 0; // height of the head band
    int xCentre = 0;
    int yCentre = 0;
    double stepX = 0; // distance of two rings
    double stepY = 0;
    std::int32_t rings = 1;

    /// `headHeight` is the height of the head line's text; `scale` the dots of a drawing unit.
    PolarGeometry(Extent size, int headHeight, std::int32_t rings, double scale);

    /// Radii of ring i, from 1.
    [[nodiscard]] int dx(std::int32_t i) const;
    [[nodiscard]] int dy(std::int32_t i) const;
};

/// What a drawing returns.
struct PolarDrawing {
    PolarGeometry geometry;
    DirectionClasses classes;            // empty without samples
    std::int64_t samples = 0;            // calms included
    double startAngle = 0;               // screen angle of direction 0, in radians
    std::optional<std::int32_t> yCentre; // in drawing units; nothing on an empty surface
    std::vector<Box> texts = {};         // where ring labels, compass letters and footnote are
};

/// Draws rings, spokes, sectors, labels, compass letters, footnote, frame and head line. Throws
/// std::overflow_error when count times radius of a sector exceeds 32 bits, or the start angle is not a
/// number.
PolarDrawing drawPolarDiagram(Surface& surface, const DiagramProperties& properties,
                              const PolarSamples& samples, const LocaleTexts& texts);

/// Draws the samples of a control and sets its Ycenter, even if the drawing throws.
PolarDrawing drawPolarDiagram(Surface& surface, DiagramState& control, const LocaleTexts& texts);

/// The same on a printed page (units: millimetres), centred and as large as the margins allow, in the
/// proportions of a picture of `picture` pixels.
void printPolarDiagram(Surface& page, Extent picture, DiagramState& control, const LocaleTexts& texts);

} // namespace kelvrum
