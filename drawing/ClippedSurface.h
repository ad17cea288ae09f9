// SPDX-License-Identifier: GPL-3.0-or-later
// A surface that clips by itself, for devices that do not.
#pragma once

#include "drawing/Surface.h"

#include <optional>
#include <vector>

namespace kelvrum {

/// The part of a line within a box; nothing when it lies outside.
std::optional<Segment> clipped(const Segment& line, const Box& box);

/// The part of a box within another; nothing when they have no dot in common.
std::optional<Box> clipped(const Box& one, const Box& other);

/// Passes every primitive on to another surface, which must outlive it: of lines and boxes only what lies in
/// the clip, which the other surface never sees. Ellipses, pies and texts are not clipped.
class ClippedSurface final : public Surface {
  public:
    explicit ClippedSurface(Surface& surface)
        : surface_(surface) {}

    [[nodiscard]] Extent size() const override { return surface_.size(); }
    [[nodiscard]] double scale() const override { return surface_.scale(); }
    void clear(Colour background) override { surface_.clear(background); }
    void setPen(Colour colour) override { surface_.setPen(colour); }
    void setClip(std::optional<Box> box) override { clip_ = box; }
    void line(Dot from, Dot to) override;
    void lines(std::span<const Segment> segments) override;
    void fill(std::span<const Box> boxes, Colour colour) override;
    void ellipse(const Box& box, std::optional<Colour> fill) override { surface_.ellipse(box, fill); }
    void pie(const Box& box, Dot from, Dot to, Colour fill) override { surface_.pie(box, from, to, fill); }
    void setFont(const Font& font) override { surface_.setFont(font); }
    void text(Dot at, std::string_view text) override { surface_.text(at, text); }
    Extent textExtent(std::string_view text) override { return surface_.textExtent(text); }

  private:
    Surface& surface_;
    std::optional<Box> clip_;
    std::vector<Segment> segments_; // memory that is used again
    std::vector<Box> boxes_;
};

} // namespace kelvrum
