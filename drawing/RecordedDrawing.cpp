// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/RecordedDrawing.h"

#include <utility>

namespace kelvrum {

namespace {

/// Draws one primitive.
struct Player {
    Surface& surface;

    void operator()(const drawn::Clear& it) const { surface.clear(it.background); }
    void operator()(const drawn::Pen& it) const { surface.setPen(it.colour); }
    void operator()(const drawn::Clip& it) const { surface.setClip(it.box); }
    void operator()(const drawn::Line& it) const { surface.line(it.at.from, it.at.to); }
    void operator()(const drawn::Lines& it) const { surface.lines(it.at); }
    void operator()(const drawn::Fill& it) const { surface.fill(it.at, it.colour); }
    void operator()(const drawn::Ellipse& it) const { surface.ellipse(it.at, it.fill); }
    void operator()(const drawn::Pie& it) const { surface.pie(it.at, it.from, it.to, it.fill); }
    void operator()(const drawn::TextFont& it) const { surface.setFont(it.font); }
    void operator()(const drawn::Text& it) const { surface.text(it.at, it.text); }
};

} // namespace

void RecordedDrawing::play(Surface& surface) const {
    const Player player{surface};
    for (const Primitive& primitive : primitives) {
        std::visit(player, primitive);
    }
}

RecordingSurface::RecordingSurface(Extent size, double scale, std::unique_ptr<TextMeter> meter)
    : size_(size)
    , scale_(scale)
    , meter_(std::move(meter)) {
    meter_->setFont({});
}

void RecordingSurface::restart() {
    drawing_.primitives.clear();
    meter_->setFont({});
}

void RecordingSurface::clear(Colour background) { add(drawn::Clear{background}); }

void RecordingSurface::setPen(Colour colour) { add(drawn::Pen{colour}); }

void RecordingSurface::setClip(std::optional<Box> box) { add(drawn::Clip{box}); }

void RecordingSurface::line(Dot from, Dot to) { add(drawn::Line{{from, to}}); }

void RecordingSurface::lines(std::span<const Segment> segments) {
    add(drawn::Lines{{segments.begin(), segments.end()}});
}

void RecordingSurface::fill(std::span<const Box> boxes, Colour colour) {
    add(drawn::Fill{{boxes.begin(), boxes.end()}, colour});
}

void RecordingSurface::ellipse(const Box& box, std::optional<Colour> fill) { add(drawn::Ellipse{box, fill}); }

void RecordingSurface::pie(const Box& box, Dot from, Dot to, Colour fill) {
    add(drawn::Pie{box, from, to, fill});
}

void RecordingSurface::setFont(const Font& font) {
    meter_->setFont(font);
    add(drawn::TextFont{font});
}

void RecordingSurface::text(Dot at, std::string_view text) { add(drawn::Text{at, std::string(text)}); }

} // namespace kelvrum
