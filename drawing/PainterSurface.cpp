// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/PainterSurface.h"

#include <QFontMetrics>
#include <QRectF>
#include <QString>
#include <QtMath>
#include <algorithm>
#include <cmath>

namespace kelvrum {

namespace {

constexpr double POINTS_PER_INCH = 72;
constexpr double SCREEN_DOTS_PER_INCH = 96;
constexpr double MM_PER_INCH = 25.4;
constexpr double PAGE_PEN = 0.15; // millimetres

QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

/// The middle of the outline's pen, for a smooth outline within the box.
QRectF outlineOf(const Box& box) {
    constexpr double HALF_DOT = 0.5;
    return {box.left + HALF_DOT, box.top + HALF_DOT, box.right - box.left - 1.0, box.bottom - box.top - 1.0};
}

} // namespace

QColor toQColor(Colour colour) {
    return {static_cast<int>(colour & 0xFFU), static_cast<int>((colour >> 8U) & 0xFFU),
            static_cast<int>((colour >> 16U) & 0xFFU)};
}

Resolution Resolution::screen(double devicePixelRatio) {
    return {devicePixelRatio, devicePixelRatio * SCREEN_DOTS_PER_INCH / POINTS_PER_INCH,
            std::max(1, static_cast<int>(std::lround(devicePixelRatio)))};
}

Resolution Resolution::page(double dotsPerInch) {
    const double scale = dotsPerInch / MM_PER_INCH;
    return {scale, dotsPerInch / POINTS_PER_INCH,
            std::max(1, static_cast<int>(std::lround(PAGE_PEN * scale)))};
}

QFont surfaceFont(const Font& font, double dotsPerPoint) {
    QFont face(toQString(font.Name));
    face.setStyleHint(QFont::SansSerif);
    face.setPixelSize(std::max(1, static_cast<int>(std::lround(font.Size * dotsPerPoint))));
    face.setBold(font.Bold);
    face.setItalic(font.Italic);
    return face;
}

PainterSurface::PainterSurface(QPaintDevice& device, Extent size, const Resolution& resolution)
    : painter_(&device)
    , size_(size)
    , resolution_(resolution) {
    painter_.setRenderHint(QPainter::Antialiasing, false);
    setFont({});
}

void PainterSurface::startPage(Dot corner, Extent size) {
    quickTexts_ = true;
    size_ = size;
    painter_.setClipping(false);
    painter_.resetTransform();
    painter_.translate(corner.x, corner.y);
}

QColor PainterSurface::shown(Colour colour) const {
    const QColor full = toQColor(colour);
    const int lightness = qGray(full.rgb());
    return grey_ ? QColor(lightness, lightness, lightness) : full;
}

void PainterSurface::clear(Colour background) {
    painter_.fillRect(0, 0, size_.width, size_.height, shown(background));
}

void PainterSurface::setPen(Colour colour) {
    QPen pen(shown(colour));
    pen.setWidth(resolution_.penWidth);
    pen.setCapStyle(Qt::SquareCap); // both ends of a line belong to it
    painter_.setPen(pen);
}

void PainterSurface::setClip(std::optional<Box> box) {
    painter_.setClipping(box.has_value());
    if (box) {
        painter_.setClipRect(box->left, box->top, box->right - box->left, box->bottom - box->top);
    }
}

void PainterSurface::line(Dot from, Dot to) { painter_.drawLine(from.x, from.y, to.x, to.y); }

void PainterSurface::lines(std::span<const Segment> segments) {
    batch_.clear();
    batch_.reserve(segments.size());
    for (const auto& [from, to] : segments) {
        batch_.emplace_back(from.x, from.y, to.x, to.y);
    }
    painter_.drawLines(batch_.data(), static_cast<int>(batch_.size()));
}

void PainterSurface::fill(std::span<const Box> boxes, Colour colour) {
    const QColor brush = shown(colour);
    for (const Box& box : boxes) {
        painter_.fillRect(box.left, box.top, box.right - box.left, box.bottom - box.top, brush);
    }
}

void PainterSurface::ellipse(const Box& box, std::optional<Colour> fill) {
    painter_.setBrush(fill ? QBrush(shown(*fill)) : QBrush(Qt::NoBrush));
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.drawEllipse(outlineOf(box));
    painter_.setRenderHint(QPainter::Antialiasing, false);
}

void PainterSurface::pie(const Box& box, Dot from, Dot to, Colour fill) {
    constexpr double FULL_CIRCLE = 360;
    constexpr double STEPS_PER_DEGREE = 16; // of the painter's angles
    if (box.right <= box.left || box.bottom <= box.top) {
        return;
    }
    const double xc = (box.left + box.right) / 2.0;
    const double yc = (box.top + box.bottom) / 2.0;
    // The painter counts angles on the circle that the ellipse is a stretched picture of.
    const double rx = (box.right - box.left) / 2.0;
    const double ry = (box.bottom - box.top) / 2.0;
    const auto angle = [&](Dot dot) {
        return qRadiansToDegrees(std::atan2((yc - dot.y) / ry, (dot.x - xc) / rx));
    };
    double span = angle(to) - angle(from);
    if (span <= 0) {
        span += FULL_CIRCLE;
    }
    painter_.setBrush(shown(fill));
    painter_.setRenderHint(QPainter::Antialiasing);
    painter_.drawPie(outlineOf(box), static_cast<int>(std::lround(angle(from) * STEPS_PER_DEGREE)),
                     static_cast<int>(std::lround(span * STEPS_PER_DEGREE)));
    painter_.setRenderHint(QPainter::Antialiasing, false);
}

void PainterSurface::setFont(const Font& font) {
    painter_.setFont(surfaceFont(font, resolution_.dotsPerPoint));
    shapedNow_ = nullptr;
}

ShapedText& PainterSurface::shapedText() {
    if (shapedNow_ == nullptr) {
        auto& known = shaped_[painter_.font().toString()];
        if (!known) {
            known = std::make_unique<ShapedText>(painter_.font(), painter_.device());
        }
        shapedNow_ = known.get();
    }
    return *shapedNow_;
}

void PainterSurface::text(Dot at, std::string_view text) {
    if (quickTexts_ && ShapedText::covers(text)) {
        ShapedText& shaped = shapedText();
        painter_.drawGlyphRun(QPointF(at.x, at.y + shaped.ascent()), shaped.glyphs(text));
    } else {
        painter_.drawText(at.x, at.y + painter_.fontMetrics().ascent(), toQString(text));
    }
}

Extent PainterSurface::textExtent(std::string_view text) {
    const QFontMetrics metrics = painter_.fontMetrics();
    return {metrics.horizontalAdvance(toQString(text)), metrics.height()};
}

} // namespace kelvrum
