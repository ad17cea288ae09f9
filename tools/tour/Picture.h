// SPDX-License-Identifier: GPL-3.0-or-later
// Pictures of windows: taken, framed, cut, numbered and written as small files.
#pragma once

#include <QColor>
#include <QImage>
#include <QPoint>
#include <QRect>
#include <QString>
#include <vector>

class QWidget;

namespace kelvrum::tour {

/// A window as displayed, with its open menus, lists and calendars.
QImage pictureOf(QWidget& window);

/// The same without popups, with this many dots for each of its pixels.
QImage enlarged(QWidget& window, int dotsPerPixel);

/// A picture with a plain title bar above it and a thin line around it, like a window on a screen.
QImage framed(const QImage& picture, const QString& title);

/// Where a numbered mark belongs: the middle of a disc, in dots of the picture.
struct Mark {
    QPoint at;
    int number = 0;
};

/// Paints numbered discs over a picture.
void mark(QImage& picture, const std::vector<Mark>& marks);

/// A picture with this many dots of white at its right edge.
QImage widened(const QImage& picture, int dots);

/// Reduces a picture to at most 256 colours, its most frequent ones; the others become the nearest of them.
QImage reduced(const QImage& picture);

/// Writes a picture as "name.png" into a folder. Throws std::runtime_error when it cannot be written or is
/// larger than a document should load.
void save(const QImage& picture, const QString& folder, const QString& name);

} // namespace kelvrum::tour
