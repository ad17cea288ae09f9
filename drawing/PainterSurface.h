// SPDX-License-Identifier: GPL-3.0-or-later
// A surface on any QPainter device.
#pragma once

#include "drawing/ShapedText.h"
#include "drawing/Surface.h"

#include <QColor>
#include <QFont>
#include <QLine>
#include <QPainter>
#include <map>
#include <memory>
#include <vector>

namespace kelvrum {

QColor toQColor(Colour colour);

/// How lengths become dots on a device.
struct Resolution {
    double scale = 1;        // dots for one unit of the layout
    double dotsPerPoint = 1; // of font sizes
    int penWidth = 1;        // dots

    /// A screen of 96 dots per inch, with this many device pixels for each of them; units are pixels.
    static Resolution screen(double devicePixelRatio);
    /// A page; units are millimetres.
    static Resolution page(double dotsPerInch);
};

/// The font of a surface, its size in dots.
QFont surfaceFont(const Font& font, double dotsPerPoint);

/// Draws on a device whose pixels are the dots. Lines are not smoothed.
class PainterSurface final : public Surface {
  public:
    /// The device must outlive the surface.
    PainterSurface(QPaintDevice& device, Extent size, const Resolution& resolution);
    /// On a picture for the screen.
    PainterSurface(QPaintDevice& device, Extent size, double devicePixelRatio)
        : PainterSurface(device, size, Resolution::screen(devicePixelRatio)) {}

    /// Goes on with a page at a place of the device. Numbers and times are laid out quickly from then on.
    void startPage(Dot corner, Extent size);
    /// Colours become greys of the same lightness.
    void setGrey(bool grey) { grey_ = grey; }

    /// Whether the device takes drawing.
    [[nodiscard]] bool isActive() const { return painter_.isActive(); }
    /// Ends the drawing; false when the device failed.
    bool end() { return painter_.end(); }

    [[nodiscard]] Extent size() const override { return size_; }
    [[nodiscard]] double scale() const override { return resolution_.scale; }
    void clear(Colour background) override;
    void setPen(Colour colour) override;
    void setClip(std::optional<Box> box) override;
    void line(Dot from, Dot to) override;
    void lines(std::span<const Segment> segments) override;
    void fill(std::span<const Box> boxes, Colour colour) override;
    void ellipse(const Box& box, std::optional<Colour> fill) override;
    void pie(const Box& box, Dot from, Dot to, Colour fill) override;
    void setFont(const Font& font) override;
    void text(Dot at, std::string_view text) override;
    Extent textExtent(std::string_view text) override;

  private:
    [[nodiscard]] QColor shown(Colour colour) const;
    ShapedText& shapedText();

    QPainter painter_;
    Extent size_;
    Resolution resolution_;
    std::vector<QLine> batch_; // kept for its memory
    bool grey_ = false;
    bool quickTexts_ = false;
    std::map<QString, std::unique_ptr<ShapedText>> shaped_; // by font
    ShapedText* shapedNow_ = nullptr;                       // of the current font, once it is needed
};

} // namespace kelvrum
