#include "drawing/PagePicture.h"

#include <QFontMetrics>
#include <QString>
#include <string>

namespace kelvrum {

PagePicture::PagePicture(Extent size, const Resolution& resolution)
    : size_(size)
    , resolution_(resolution) {
    useFont({});
}

void PagePicture::restart() {
    steps_.clear();
    useFont({});
}

void PagePicture::useFont(const Font& font) {
    font_ = surfaceFont(font, resolution_.dotsPerPoint);
    auto& known = shaped_[font_.toString()];
    if (!known) {
        known = std::make_unique<ShapedText>(font_);
    }
    shapedNow_ = known.get();
}

void PagePicture::play(Surface& surface) const {
    for (const auto& step : steps_) {
        step(surface);
    }
}

void PagePicture::clear(Colour background) {
    steps_.emplace_back([background](Surface& s) { s.clear(background); });
}

void PagePicture::setPen(Colour colour) {
    steps_.emplace_back([colour](Surface& s) { s.setPen(colour); });
}

void PagePicture::setClip(std::optional<Box> box) {
    steps_.emplace_back([box](Surface& s) { s.setClip(box); });
}

void PagePicture::moveTo(Dot to) {
    steps_.emplace_back([to](Surface& s) { s.moveTo(to); });
}

void PagePicture::lineTo(Dot to) {
    steps_.emplace_back([to](Surface& s) { s.lineTo(to); });
}

void PagePicture::lines(std::span<const Segment> segments) {
    steps_.emplace_back(
        [kept = std::vector<Segment>(segments.begin(), segments.end())](Surface& s) { s.lines(kept); });
}

void PagePicture::fill(std::span<const Box> boxes, Colour colour) {
    steps_.emplace_back(
        [kept = std::vector<Box>(boxes.begin(), boxes.end()), colour](Surface& s) { s.fill(kept, colour); });
}

void PagePicture::ellipse(const Box& box, std::optional<Colour> fill) {
    steps_.emplace_back([box, fill](Surface& s) { s.ellipse(box, fill); });
}

void PagePicture::pie(const Box& box, Dot from, Dot to, Colour fill) {
    steps_.emplace_back([box, from, to, fill](Surface& s) { s.pie(box, from, to, fill); });
}

void PagePicture::setFont(const Font& font) {
    useFont(font);
    steps_.emplace_back([font](Surface& s) { s.setFont(font); });
}

void PagePicture::text(Dot at, std::string_view text) {
    steps_.emplace_back([at, kept = std::string(text)](Surface& s) { s.text(at, kept); });
}

Extent PagePicture::textExtent(std::string_view text) {
    if (ShapedText::covers(text)) {
        return {qRound(shapedNow_->width(text)), shapedNow_->height()};
    }
    const QFontMetrics metrics(font_);
    return {metrics.horizontalAdvance(QString::fromUtf8(text.data(), static_cast<qsizetype>(text.size()))),
            metrics.height()};
}

} // namespace kelvrum
