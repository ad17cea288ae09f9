// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/testing/PrintedDocument.h"

#include "tests/testing/PrivateCups.h"

#include <QXmlStreamReader>
#include <stdexcept>

namespace kelvrum::testing {

namespace {

constexpr double MM_PER_POINT = 25.4 / 72;

double millimetres(const QXmlStreamAttributes& attributes, QLatin1String name) {
    return attributes.value(name).toDouble() * MM_PER_POINT;
}

QRectF boxOf(const QXmlStreamAttributes& attributes) {
    return {QPointF(millimetres(attributes, QLatin1String("xMin")),
                    millimetres(attributes, QLatin1String("yMin"))),
            QPointF(millimetres(attributes, QLatin1String("xMax")),
                    millimetres(attributes, QLatin1String("yMax")))};
}

/// The lines of a poppler table below its two lines of head.
QStringList tableOf(const QString& program, const QStringList& arguments) {
    constexpr int HEAD = 2;
    return QString::fromUtf8(outputOf(program, arguments))
        .split(QLatin1Char('\n'), Qt::SkipEmptyParts)
        .mid(HEAD);
}

} // namespace

std::vector<PrintedWord> PrintedPage::find(const QString& text) const {
    std::vector<PrintedWord> places;
    for (std::size_t first = 0; first < words.size(); ++first) {
        if (!text.startsWith(words[first].text)) {
            continue;
        }
        PrintedWord found = words[first];
        for (std::size_t next = first + 1; next < words.size() && found.text.size() < text.size(); ++next) {
            found.text += QLatin1Char(' ') + words[next].text;
            found.box |= words[next].box;
        }
        if (found.text == text) {
            places.push_back(found);
        }
    }
    return places;
}

std::vector<PrintedPage> printedPages(const QString& path) {
    std::vector<PrintedPage> pages;
    QXmlStreamReader reader(
        outputOf(QStringLiteral("pdftotext"), {QStringLiteral("-bbox"), path, QStringLiteral("-")}));
    while (!reader.atEnd()) {
        if (reader.readNext() != QXmlStreamReader::StartElement) {
            continue;
        }
        const QXmlStreamAttributes attributes = reader.attributes();
        if (reader.name() == QLatin1String("page")) {
            pages.push_back({QSizeF(millimetres(attributes, QLatin1String("width")),
                                    millimetres(attributes, QLatin1String("height"))),
                             {}});
        } else if (reader.name() == QLatin1String("word") && !pages.empty()) {
            pages.back().words.push_back({reader.readElementText(), boxOf(attributes)});
        }
    }
    if (reader.hasError()) {
        throw std::runtime_error(reader.errorString().toStdString());
    }
    return pages;
}

QImage picturedPage(const QString& path, int page, int dotsPerMillimetre) {
    const QString number = QString::number(page + 1);
    const QImage picture = QImage::fromData(outputOf(
        QStringLiteral("pdftoppm"),
        {QStringLiteral("-png"), QStringLiteral("-aa"), QStringLiteral("no"), QStringLiteral("-aaVector"),
         QStringLiteral("no"), QStringLiteral("-r"), QString::number(dotsPerMillimetre * 25.4),
         QStringLiteral("-f"), number, QStringLiteral("-l"), number, path}));
    if (picture.isNull()) {
        throw std::runtime_error("no picture of page " + number.toStdString());
    }
    return picture.convertToFormat(QImage::Format_RGB32);
}

QStringList picturesIn(const QString& path) {
    return tableOf(QStringLiteral("pdfimages"), {QStringLiteral("-list"), path});
}

QStringList fontsIn(const QString& path) { return tableOf(QStringLiteral("pdffonts"), {path}); }

} // namespace kelvrum::testing
