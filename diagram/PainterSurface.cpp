#include "diagram/PainterSurface.h"

#include <QFontMetrics>
#include <QLine>
#include <QString>
#include <algorithm>
#include <cmath>
#include <type_traits>

namespace kelvrum {

namespace {

constexpr double DOTS_PER_POINT = 96.0 / 72.0;

QString toQString(std::string_view text) {
    return QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()));
}

// A batch of segments is handed to the painter as it stands.
static_assert(sizeof(Segment) == sizeof(QLine) && std::is_trivially_copyable_v<Segment> &&
              std::is_standard_layout_v<QLine>);

} // namespace

QColor toQColor(Colour colour) {
    return {static_cast<int>(colour & 0xFFU), static_cast<int>((colour >> 8U) & 0xFFU),
            static_cast<int>((colour >> 16U) & 0xFFU)};
}

PainterSurface::PainterSurface(QPaintDevice& device, Extent size, double scale)
    : painter_(&device)
    , size_(size)
    , scale_(scale) {
    painter_.setRenderHint(QPainter::Antialiasing, false);
    setFont({});
}

void PainterSurface::clear(Colour background) {
    painter_.fillRect(0, 0, size_.width, size_.height, toQColor(background));
}

void PainterSurface::setPen(Colour colour) {
    QPen pen(toQColor(colour));
    pen.setWidth(std::max(1, static_cast<int>(std::lround(scale_))));
    pen.setCapStyle(Qt::SquareCap); // both ends of a line belong to it
    painter_.setPen(pen);
}

void PainterSurface::setClip(std::optional<Box> box) {
    painter_.setClipping(box.has_value());
    if (box) {
        painter_.setClipRect(box->left, box->top, box->right - box->left, box->bottom - box->top);
    }
}

void PainterSurface::lineTo(Dot to) {
    painter_.drawLine(current_.x, current_.y, to.x, to.y);
    current_ = to;
}

void PainterSurface::lines(std::span<const Segment> segments) {
    painter_.drawLines(reinterpret_cast<const QLine*>(segments.data()), static_cast<int>(segments.size()));
}

void PainterSurface::fill(std::span<const Box> boxes, Colour colour) {
    const QColor brush = toQColor(colour);
    for (const Box& box : boxes) {
        painter_.fillRect(box.left, box.top, box.right - box.left, box.bottom - box.top, brush);
    }
}

void PainterSurface::setFont(const DiagramFont& font) {
    QFont face(toQString(font.Name));
    face.setStyleHint(QFont::SansSerif);
    face.setPixelSize(std::max(1, static_cast<int>(std::lround(font.Size * DOTS_PER_POINT * scale_))));
    face.setBold(font.Bold);
    face.setItalic(font.Italic);
    painter_.setFont(face);
}

void PainterSurface::text(Dot at, std::string_view text) {
    painter_.drawText(at.x, at.y + painter_.fontMetrics().ascent(), toQString(text));
}

Extent PainterSurface::textExtent(std::string_view text) {
    const QFontMetrics metrics = painter_.fontMetrics();
    return {metrics.horizontalAdvance(toQString(text)), metrics.height()};
}

} // namespace kelvrum
