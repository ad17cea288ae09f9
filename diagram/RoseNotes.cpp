// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/RoseNotes.h"

#include <algorithm>
#include <array>

namespace kelvrum {

namespace {

bool intersects(const Box& a, const Box& b) {
    return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

bool contains(const Box& outer, const Box& inner) {
    return inner.left >= outer.left && inner.right <= outer.right && inner.top >= outer.top &&
           inner.bottom <= outer.bottom;
}

/// Whether a box, widened by a gap, reaches into the outermost ring or a text.
bool touchesRose(Box box, const PolarDrawing& rose, int gap) {
    box = {box.left - gap, box.top - gap, box.right + gap, box.bottom + gap};
    const PolarGeometry& g = rose.geometry;
    // The box's point that is nearest to the centre, in radii.
    const double x =
        (std::clamp(g.xCentre, box.left, box.right) - g.xCentre) / std::max(1.0, 1.0 * g.dx(g.rings));
    const double y =
        (std::clamp(g.yCentre, box.top, box.bottom) - g.yCentre) / std::max(1.0, 1.0 * g.dy(g.rings));
    return x * x + y * y <= 1 || std::any_of(rose.texts.begin(), rose.texts.end(),
                                             [&box](const Box& text) { return intersects(box, text); });
}

} // namespace

std::optional<NotesPlace> placeNotes(const NotesSize& notes, const PolarDrawing& rose, const Box& area,
                                     int gap) {
    struct Corner {
        bool isRight;
        bool isUpper;
    };
    constexpr std::array<Corner, 4> CORNERS = {{{false, false}, {false, true}, {true, true}, {true, false}}};
    if (notes.widths.empty()) {
        return std::nullopt;
    }
    const int width = *std::max_element(notes.widths.begin(), notes.widths.end());
    const int height = notes.lineHeight * static_cast<int>(notes.widths.size());
    for (const auto& [isRight, isUpper] : CORNERS) {
        const Dot corner{isRight ? area.right - width : area.left, isUpper ? area.top : area.bottom - height};
        const Box block{corner.x, corner.y, corner.x + width, corner.y + height};
        bool isFree = contains(area, block);
        for (std::size_t i = 0; i < notes.widths.size() && isFree; ++i) {
            const int top = block.top + static_cast<int>(i) * notes.lineHeight;
            const int left = isRight ? block.right - notes.widths[i] : block.left;
            isFree = !touchesRose({left, top, left + notes.widths[i], top + notes.lineHeight}, rose, gap);
        }
        if (isFree) {
            return NotesPlace{block, isRight};
        }
    }
    return std::nullopt;
}

} // namespace kelvrum
