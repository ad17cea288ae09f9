// SPDX-License-Identifier: GPL-3.0-or-later
// What the overlay draws, and where: lines, rings and the field of the readout, the band.
#include "diagram/PolarSys.h"
#include "diagram/ReadoutOverlay.h"

#include <QFontMetrics>
#include <QPaintEvent>
#include <QPainter>
#include <algorithm>
#include <cmath>

namespace kelvrum {

namespace {

// Lengths in pixels of the control.
constexpr int RING = 4;    // radius
constexpr int GAP = 10;    // from a ring to the field
constexpr int PADDING = 4; // in the field
constexpr int BAND_TEXT_TOP = 4;

const QColor LINE(96, 96, 96);
const QColor MARK_LINE(150, 150, 150);
const QColor RING_COLOUR(0, 0, 0);
const QColor FIELD(255, 255, 232);
const QColor FIELD_EDGE(128, 128, 128);
const QColor BAND(0, 96, 192, 48);
const QColor BAND_EDGE(0, 96, 192);

QRect rectOf(const Box& box) { return {box.left, box.top, box.right - box.left, box.bottom - box.top}; }

} // namespace

int ReadoutOverlay::dots(int pixels) const { return static_cast<int>(std::lround(pixels * ratio())); }

Extent ReadoutOverlay::fieldSize() const {
    const QFontMetrics metrics(font());
    int width = 0;
    for (const std::string& line : lines_) {
        width = std::max(width, metrics.horizontalAdvance(QString::fromStdString(line)));
    }
    return {dots(width + 2 * PADDING),
            dots(metrics.height() * static_cast<int>(lines_.size()) + 2 * PADDING)};
}

/// A ring at each value of a column within the plot.
void ReadoutOverlay::addRings(Marks& marks, const ReadValue& value) {
    const LineDrawing& line = *diagram_.lineShown();
    const auto add = [&](double v, const ValueRange& range) {
        const Dot dot{line.plot.x(value.time), line.plot.scaleOf(range).y(v)};
        if (holds(line.plot.clip(), dot)) {
            marks.rings.push_back(dot);
        }
    };
    const bool directions = line.kind == KIND_DIRECTION;
    if (value.y1) {
        add(directions ? reader().joinedAt(value.column) : *value.y1, line.left);
    }
    if (value.y2 && second_) {
        add(directions ? reader().joinedAt(value.column, SeriesTable::Y2) : *value.y2, line.right);
    }
}

/// Places everything anew and repaints what was and what will be covered, no more.
void ReadoutOverlay::layOut() {
    const QRegion before = region();
    marks_ = {};
    Dot anchor = sectorPlace_;
    if (hasPlot()) {
        const PlotArea& plot = diagram_.lineShown()->plot;
        if (mark_) {
            marks_.mark = plot.x(mark_->time);
            addRings(marks_, *mark_);
        }
        const std::size_t ofMark = marks_.rings.size();
        if (readout_) {
            marks_.line = plot.x(readout_->value ? readout_->value->time : readTime_);
            anchor = {*marks_.line, static_cast<int>(plot.top + plot.height() / 2)};
            if (readout_->value) {
                addRings(marks_, *readout_->value);
            }
            if (marks_.rings.size() > ofMark) {
                anchor = marks_.rings[ofMark];
            }
        }
    }
    if (!lines_.empty()) {
        marks_.field = placedField(anchor);
    }
    const QRegion after = region();
    if (after != before || !lines_.empty()) {
        update(before + after);
    }
}

/// Beside the point that it names, in the part of the control that is visible. It covers no ring and nothing
/// of the sector that it tells about.
Box ReadoutOverlay::placedField(Dot anchor) const {
    const Extent size = fieldSize();
    const Box visible{0, 0, dots(width()), dots(std::max(height() - COVERED_FOOT, 0))};
    const std::vector<Dot> free = sector_ ? sectorDots(*diagram_.polarShown(), *sector_) : marks_.rings;
    const Dot at = placeField(size, anchor, visible, dots(GAP), free);
    return {at.x, at.y, at.x + size.width, at.y + size.height};
}

QRegion ReadoutOverlay::region() const {
    QRegion region;
    const int height = dots(this->height());
    for (const std::optional<int>& x : {marks_.line, marks_.mark}) {
        if (x) {
            region += QRect(*x - 1, 0, dots(1) + 2, height);
        }
    }
    for (const Dot& ring : marks_.rings) {
        const int r = dots(RING + 2);
        region += QRect(ring.x - r, ring.y - r, 2 * r + 1, 2 * r + 1);
    }
    if (marks_.field) {
        region += rectOf(*marks_.field).adjusted(-1, -1, 1, 1);
    }
    QRegion pixels;
    for (const QRect& box : region) {
        const QRectF scaled(box.x() / ratio(), box.y() / ratio(), box.width() / ratio(),
                            box.height() / ratio());
        pixels += scaled.toAlignedRect();
    }
    return pixels;
}

void ReadoutOverlay::paintEvent(QPaintEvent* /*event*/) {
    QPainter painter(this);
    painter.scale(1 / ratio(), 1 / ratio()); // drawn in the picture's dots
    if (hasPlot()) {
        paintBand(painter);
        paintLines(painter);
        paintBandTimes(painter);
    }
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(RING_COLOUR, dots(1)));
    painter.setBrush(Qt::NoBrush);
    for (const Dot& ring : marks_.rings) {
        painter.drawEllipse(QPointF(ring.x + 0.5, ring.y + 0.5), dots(RING), dots(RING));
    }
    painter.setRenderHint(QPainter::Antialiasing, false);
    if (marks_.field) {
        paintField(painter, *marks_.field);
    }
}

void ReadoutOverlay::paintLines(QPainter& painter) const {
    const PlotArea& plot = diagram_.lineShown()->plot;
    const int top = nearestDot(plot.top);
    const int height = nearestDot(plot.bottom) - top;
    if (marks_.mark) {
        painter.fillRect(*marks_.mark, top, dots(1), height, MARK_LINE);
    }
    if (marks_.line) {
        painter.fillRect(*marks_.line, top, dots(1), height, LINE);
    }
}

void ReadoutOverlay::paintField(QPainter& painter, const Box& field) const {
    painter.setPen(QPen(FIELD_EDGE, dots(1)));
    painter.setBrush(FIELD);
    painter.drawRect(rectOf(field).adjusted(0, 0, -1, -1));
    painter.save();
    painter.translate(field.left, field.top);
    painter.scale(ratio(), ratio());
    painter.setPen(Qt::black);
    const QFontMetrics metrics(font());
    int y = PADDING;
    for (const std::string& line : lines_) {
        painter.drawText(PADDING, y + metrics.ascent(), QString::fromStdString(line));
        y += metrics.height();
    }
    painter.restore();
}

/// The part of the band that the plot shows.
Box ReadoutOverlay::bandBox() const {
    const PlotArea& plot = diagram_.lineShown()->plot;
    const auto within = [&](DateTime t) {
        return std::clamp(plot.x(t), nearestDot(plot.left), nearestDot(plot.right));
    };
    return {within(band_->from), nearestDot(plot.top), within(band_->to), nearestDot(plot.bottom)};
}

void ReadoutOverlay::paintBand(QPainter& painter) const {
    if (!band_) {
        return;
    }
    const Box box = bandBox();
    const int height = box.bottom - box.top;
    painter.fillRect(box.left, box.top, box.right - box.left + 1, height, BAND);
    painter.fillRect(box.left, box.top, dots(1), height, BAND_EDGE);
    painter.fillRect(box.right, box.top, dots(1), height, BAND_EDGE);
}

/// The two times of the band at its upper end, which no line crosses.
void ReadoutOverlay::paintBandTimes(QPainter& painter) const {
    if (!band_) {
        return;
    }
    const Box box = bandBox();
    const QString text =
        QString::fromStdString(rowTime(band_->from, texts_) + " – " + rowTime(band_->to, texts_));
    const QFontMetrics metrics(font());
    const Extent size{dots(metrics.horizontalAdvance(text) + 2 * PADDING), dots(metrics.height())};
    const int last = std::max(0, dots(width()) - size.width);
    const int x = std::clamp((box.left + box.right - size.width) / 2, 0, last);
    painter.save();
    painter.translate(x, box.top + dots(BAND_TEXT_TOP));
    painter.fillRect(0, 0, size.width, size.height, FIELD);
    painter.scale(ratio(), ratio());
    painter.setPen(Qt::black);
    painter.drawText(PADDING, metrics.ascent(), text);
    painter.restore();
}

} // namespace kelvrum
