// SPDX-License-Identifier: GPL-3.0-or-later
// The notes of a page below its diagram.
#pragma once

#include "drawing/Surface.h"

#include <string>

namespace kelvrum {

/// Empty texts are left out.
struct PageNotes {
    std::string left;      // below the plot, at its left end
    std::string right;     // and at its right end
    std::string polarFoot; // on the page of a polar diagram: a line of its own, centred

    bool operator==(const PageNotes&) const = default;
};

/// Writes the notes into the height at the foot of the page that the diagram does not use.
void drawPageNotes(Surface& page, const PageNotes& notes, bool polar);

} // namespace kelvrum
