// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/PlacedSurface.h"

#include <vector>

namespace kelvrum {

void PlacedSurface::lines(std::span<const Segment> segments) {
    std::vector<Segment> there;
    there.reserve(segments.size());
    for (const Segment& segment : segments) {
        there.push_back({moved(segment.from), moved(segment.to)});
    }
    surface_.lines(there);
}

void PlacedSurface::fill(std::span<const Box> boxes, Colour colour) {
    std::vector<Box> there;
    there.reserve(boxes.size());
    for (const Box& box : boxes) {
        there.push_back(moved(box));
    }
    surface_.fill(there, colour);
}

void PlacedSurface::setFont(const Font& font) {
    Font there = font;
    there.Size *= fontFactor_;
    surface_.setFont(there);
}

} // namespace kelvrum
