// A surface on any QPainter device.
#pragma once

#include "diagram/Surface.h"

#include <QColor>
#include <QFont>
#include <QPainter>

namespace kelvrum {

QColor toQColor(Colour colour);

/// Draws on a pixmap or image whose pixels are the dots. Lines are not smoothed and as wide as one logical
/// pixel; text has the size that it has on a screen of 96 dots per inch, times the scale.
class PainterSurface final : public Surface {
  public:
    /// The device must outlive the surface. `scale` is its device pixel ratio; the painter itself works in
    /// device pixels.
    PainterSurface(QPaintDevice& device, Extent size, double scale);

    [[nodiscard]] Extent size() const override { return size_; }
    [[nodiscard]] double scale() const override { return scale_; }
    void clear(Colour background) override;
    void setPen(Colour colour) override;
    void setClip(std::optional<Box> box) override;
    void moveTo(Dot to) override { current_ = to; }
    void lineTo(Dot to) override;
    void lines(std::span<const Segment> segments) override;
    void fill(std::span<const Box> boxes, Colour colour) override;
    void setFont(const DiagramFont& font) override;
    void text(Dot at, std::string_view text) override;
    Extent textExtent(std::string_view text) override;

  private:
    QPainter painter_;
    Extent size_;
    double scale_;
    Dot current_;
};

} // namespace kelvrum
