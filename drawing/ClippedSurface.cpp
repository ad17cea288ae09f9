// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/ClippedSurface.h"

#include <algorithm>
#include <cmath>

namespace kelvrum {

std::optional<Segment> clipped(const Segment& line, const Box& box) {
    const double dx = line.to.x - line.from.x;
    const double dy = line.to.y - line.from.y;
    double start = 0; // shares of the line that lie within
    double end = 1;
    // Along each edge: how far the line lies inside at its start, and how much it loses on its way.
    const auto cut = [&](double loss, double inside) {
        if (loss == 0) {
            return inside >= 0;
        }
        const double share = inside / loss;
        if (loss > 0) {
            end = std::min(end, share);
        } else {
            start = std::max(start, share);
        }
        return start <= end;
    };
    const bool within = cut(-dx, line.from.x - box.left) && cut(dx, box.right - 1 - line.from.x) &&
                        cut(-dy, line.from.y - box.top) && cut(dy, box.bottom - 1 - line.from.y);
    if (!within) {
        return std::nullopt;
    }
    const auto at = [&](double share) {
        return Dot{static_cast<int>(std::lround(line.from.x + share * dx)),
                   static_cast<int>(std::lround(line.from.y + share * dy))};
    };
    return Segment{start > 0 ? at(start) : line.from, end < 1 ? at(end) : line.to};
}

std::optional<Box> clipped(const Box& one, const Box& other) {
    const Box common{std::max(one.left, other.left), std::max(one.top, other.top),
                     std::min(one.right, other.right), std::min(one.bottom, other.bottom)};
    return common.left < common.right && common.top < common.bottom ? std::optional(common) : std::nullopt;
}

void ClippedSurface::line(Dot from, Dot to) {
    const Segment whole{from, to};
    if (const auto seen = clip_ ? clipped(whole, *clip_) : whole) {
        surface_.line(seen->from, seen->to);
    }
}

void ClippedSurface::lines(std::span<const Segment> segments) {
    segments_.clear();
    for (const Segment& segment : segments) {
        if (const auto seen = clip_ ? clipped(segment, *clip_) : segment) {
            segments_.push_back(*seen);
        }
    }
    surface_.lines(segments_);
}

void ClippedSurface::fill(std::span<const Box> boxes, Colour colour) {
    boxes_.clear();
    for (const Box& box : boxes) {
        if (const auto seen = clip_ ? clipped(box, *clip_) : box) {
            boxes_.push_back(*seen);
        }
    }
    surface_.fill(boxes_, colour);
}

} // namespace kelvrum
