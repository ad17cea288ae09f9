// SPDX-License-Identifier: GPL-3.0-or-later
// The drawing surface: a picture on the screen, a printed page, a recording.
#pragma once

#include "drawing/Colour.h"
#include "drawing/Font.h"

#include <optional>
#include <span>
#include <string_view>

namespace kelvrum {

// All coordinates are dots of the surface (device pixels, printer dots), x to the right, y downward.

struct Dot {
    int x = 0;
    int y = 0;

    bool operator==(const Dot&) const = default;
};

/// A line between two dots, both included.
struct Segment {
    Dot from;
    Dot to;

    bool operator==(const Segment&) const = default;
};

/// A rectangle of dots; right and bottom are the first dots beyond it.
struct Box {
    int left = 0;
    int top = 0;
    int right = 0;
    int bottom = 0;

    bool operator==(const Box&) const = default;
};

/// Whether a dot is in a box.
inline bool holds(const Box& box, Dot dot) {
    return dot.x >= box.left && dot.x < box.right && dot.y >= box.top && dot.y < box.bottom;
}

/// Width and height in dots.
struct Extent {
    int width = 0;
    int height = 0;

    bool operator==(const Extent&) const = default;
};

class Surface {
  public:
    Surface() = default;
    Surface(const Surface&) = delete;
    Surface& operator=(const Surface&) = delete;
    virtual ~Surface() = default;

    /// The drawable size.
    [[nodiscard]] virtual Extent size() const = 0;
    /// Dots for one unit of the layout (a screen pixel, a millimetre of the page).
    [[nodiscard]] virtual double scale() const = 0;

    /// Fills the whole surface.
    virtual void clear(Colour background) = 0;
    /// Colour of the lines and of the text drawn from now on; lines are solid, one pen wide.
    virtual void setPen(Colour colour) = 0;
    /// Limits drawing to a box, or lifts the limit.
    virtual void setClip(std::optional<Box> box) = 0;
    /// Draws a line, both ends included.
    virtual void line(Dot from, Dot to) = 0;
    /// Draws separate lines; one of no length draws its dot.
    virtual void lines(std::span<const Segment> segments) = 0;
    /// Fills boxes with a colour, without outline.
    virtual void fill(std::span<const Box> boxes, Colour colour) = 0;

    /// Draws the outline of an ellipse within a box, filled when there is a colour.
    virtual void ellipse(const Box& box, std::optional<Colour> fill) = 0;
    /// Draws a filled sector of the ellipse within a box, with outline: counter-clockwise, as it is seen,
    /// from the radial through `from` to the one through `to`; the whole ellipse when both are the same.
    virtual void pie(const Box& box, Dot from, Dot to, Colour fill) = 0;

    virtual void setFont(const Font& font) = 0;
    /// Draws UTF-8 text in the pen's colour with its upper left corner at a dot.
    virtual void text(Dot at, std::string_view text) = 0;
    /// Size of a text in the current font; an empty text has the height of a line.
    virtual Extent textExtent(std::string_view text) = 0;
};

} // namespace kelvrum
