// SPDX-License-Identifier: GPL-3.0-or-later
// The text of printed pages, read from a PDF document.
#pragma once

#include <QImage>
#include <QRectF>
#include <QSizeF>
#include <QString>
#include <QStringList>
#include <vector>

namespace kelvrum::testing {

/// All lengths in millimetres from the upper left corner of the page.
struct PrintedWord {
    QString text;
    QRectF box; // as high as a line of its font
};

struct PrintedPage {
    QSizeF size;
    std::vector<PrintedWord> words;

    /// Where words read so one after the other, each place as one word.
    [[nodiscard]] std::vector<PrintedWord> find(const QString& text) const;
    [[nodiscard]] bool has(const QString& text) const { return !find(text).empty(); }
};

/// The pages of a document. All functions throw std::runtime_error when it cannot be read.
std::vector<PrintedPage> printedPages(const QString& path);

/// A page as a picture of this many dots per millimetre. Pages count from 0.
QImage picturedPage(const QString& path, int page, int dotsPerMillimetre);

/// The lines that list a document's pictures, and those that list its fonts.
QStringList picturesIn(const QString& path);
QStringList fontsIn(const QString& path);

} // namespace kelvrum::testing
