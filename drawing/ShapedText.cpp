// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/ShapedText.h"

#include <QFontMetrics>
#include <QFontMetricsF>
#include <QString>
#include <algorithm>

namespace kelvrum {

ShapedText::ShapedText(const QFont& font, QPaintDevice* device)
    : font_(font)
    , device_(device)
    , raw_(QRawFont::fromFont(font)) {
    const QFontMetrics metrics = device != nullptr ? QFontMetrics(font, device) : QFontMetrics(font);
    height_ = metrics.height();
    ascent_ = metrics.ascent();
}

bool ShapedText::covers(std::string_view text) {
    return text.find_first_not_of(COVERED) == std::string_view::npos;
}

double ShapedText::measured(std::string_view text) const {
    const QString shown = QString::fromLatin1(text.data(), static_cast<qsizetype>(text.size()));
    return device_ != nullptr ? QFontMetricsF(font_, device_).horizontalAdvance(shown)
                              : QFontMetricsF(font_).horizontalAdvance(shown);
}

double ShapedText::advance(char character, char next) {
    const std::size_t column = next == 0 ? CHARACTERS : indexOf(next);
    std::optional<double>& known = advances_[indexOf(character) * (CHARACTERS + 1) + column];
    if (!known) {
        const std::array<char, 2> pair = {character, next};
        known = next == 0 ? measured({&character, 1})
                          : measured({pair.data(), pair.size()}) - measured({&pair[1], 1});
    }
    return *known;
}

double ShapedText::width(std::string_view text) {
    double sum = 0;
    for (std::size_t i = 0; i < text.size(); ++i) {
        sum += advance(text[i], i + 1 < text.size() ? text[i + 1] : '\0');
    }
    return sum;
}

quint32 ShapedText::glyph(char character) {
    quint32& known = glyphs_[indexOf(character)];
    if (known == 0) {
        known = raw_.glyphIndexesForString(QString(QLatin1Char(character))).value(0);
    }
    return known;
}

QGlyphRun ShapedText::glyphs(std::string_view text) {
    const std::size_t first = std::min(text.find_first_not_of(' '), text.size());
    const std::size_t end = text.find_last_not_of(' ') + 1; // 0 for a text of blanks
    QList<quint32> indexes;
    QList<QPointF> places;
    double x = 0;
    for (std::size_t i = 0; i < end; ++i) {
        if (i >= first) {
            indexes.push_back(glyph(text[i]));
            places.push_back({x, 0});
        }
        x += advance(text[i], i + 1 < text.size() ? text[i + 1] : '\0');
    }
    QGlyphRun run;
    run.setRawFont(raw_);
    run.setGlyphIndexes(indexes);
    run.setPositions(places);
    return run;
}

} // namespace kelvrum
