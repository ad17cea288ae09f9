// SPDX-License-Identifier: GPL-3.0-or-later
// Where notes have room beside a rose.
#pragma once

#include "diagram/PolarDiagram.h"

#include <optional>
#include <vector>

namespace kelvrum {

/// Lines of text, in dots.
struct NotesSize {
    std::vector<int> widths; // of each line
    int lineHeight = 0;
};

/// Where they are: lines in a right corner end at the block's right edge, others begin at its left one.
struct NotesPlace {
    Box block;
    bool isRight = false;

    bool operator==(const NotesPlace&) const = default;
};

/// The first corner of `area`, from the lower left one clockwise, in which no line comes closer to the
/// outermost ring or to a text of the drawing than `gap`; nothing when there is none.
std::optional<NotesPlace> placeNotes(const NotesSize& notes, const PolarDrawing& rose, const Box& area,
                                     int gap);

} // namespace kelvrum
