// SPDX-License-Identifier: GPL-3.0-or-later
// A part of another surface, used like a surface of its own.
#pragma once

#include "drawing/Surface.h"

namespace kelvrum {

/// Forwards every primitive except clear, moved to a corner of the other surface. Lengths and fonts count in
/// units of its own scale, so that a picture keeps its proportions on a page.
class PlacedSurface final : public Surface {
  public:
    /// `fontFactor` is what a font size is multiplied with on the other surface, which must outlive this one.
    PlacedSurface(Surface& surface, Dot corner, Extent size, double scale, double fontFactor)
        : surface_(surface)
        , corner_(corner)
        , size_(size)
        , scale_(scale)
        , fontFactor_(fontFactor) {}

    [[nodiscard]] Extent size() const override { return size_; }
    [[nodiscard]] double scale() const override { return scale_; }
    void clear(Colour /*background*/) override {} // the paper is white
    void setPen(Colour colour) override { surface_.setPen(colour); }
    void setClip(std::optional<Box> box) override {
        surface_.setClip(box ? std::optional(moved(*box)) : std::nullopt);
    }
    void line(Dot from, Dot to) override { surface_.line(moved(from), moved(to)); }
    void lines(std::span<const Segment> segments) override;
    void fill(std::span<const Box> boxes, Colour colour) override;
    void ellipse(const Box& box, std::optional<Colour> fill) override { surface_.ellipse(moved(box), fill); }
    void pie(const Box& box, Dot from, Dot to, Colour fill) override {
        surface_.pie(moved(box), moved(from), moved(to), fill);
    }
    void setFont(const Font& font) override;
    void text(Dot at, std::string_view text) override { surface_.text(moved(at), text); }
    Extent textExtent(std::string_view text) override { return surface_.textExtent(text); }

  private:
    [[nodiscard]] Dot moved(Dot dot) const { return {dot.x + corner_.x, dot.y + corner_.y}; }
    [[nodiscard]] Box moved(const Box& box) const {
        return {box.left + corner_.x, box.top + corner_.y, box.right + corner_.x, box.bottom + corner_.y};
    }

    Surface& surface_;
    Dot corner_;
    Extent size_;
    double scale_;
    double fontFactor_;
};

} // namespace kelvrum
