// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/tour/Picture.h"

#include <QApplication>
#include <QFileInfo>
#include <QHash>
#include <QImageWriter>
#include <QPainter>
#include <QPixmap>
#include <QWidget>
#include <algorithm>
#include <limits>
#include <stdexcept>

namespace kelvrum::tour {

namespace {

constexpr int TITLE_HEIGHT = 26;
constexpr int TITLE_PIXELS = 13;
constexpr int MARK_RADIUS = 12;
constexpr qint64 LARGEST_FILE = 60'000; // bytes
const QColor TITLE_COLOUR(222, 226, 230);
const QColor EDGE_COLOUR(120, 126, 132);
const QColor MARK_COLOUR(176, 0, 32);

QFont pictureFont(int pixels) {
    QFont font(QStringLiteral("Arial"));
    font.setPixelSize(pixels);
    font.setBold(true);
    return font;
}

QImage imageOf(QWidget& widget) { return widget.grab().toImage().convertToFormat(QImage::Format_RGB32); }

int distance(QRgb a, QRgb b) {
    const int red = qRed(a) - qRed(b);
    const int green = qGreen(a) - qGreen(b);
    const int blue = qBlue(a) - qBlue(b);
    return red * red + green * green + blue * blue;
}

/// The colours of a picture, the most frequent first.
std::vector<QRgb> coloursOf(const QImage& picture) {
    QHash<QRgb, int> counts;
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            ++counts[picture.pixel(x, y)];
        }
    }
    const QList<QRgb> keys = counts.keys();
    std::vector<QRgb> colours(keys.begin(), keys.end());
    std::sort(colours.begin(), colours.end(), [&counts](QRgb a, QRgb b) {
        return counts[a] != counts[b] ? counts[a] > counts[b] : a < b; // the same order in every run
    });
    return colours;
}

int nearest(QRgb colour, const QList<QRgb>& table) {
    int best = 0;
    int shortest = std::numeric_limits<int>::max();
    for (int i = 0; i < static_cast<int>(table.size()); ++i) {
        if (const int far = distance(colour, table[i]); far < shortest) {
            shortest = far;
            best = i;
        }
    }
    return best;
}

} // namespace

QImage pictureOf(QWidget& window) {
    QImage picture = imageOf(window);
    const QPoint origin = window.mapToGlobal(QPoint(0, 0));
    QPainter painter(&picture);
    for (QWidget* other : QApplication::topLevelWidgets()) {
        if (other->isVisible() && other->windowType() == Qt::Popup) {
            const QPoint at = other->mapToGlobal(QPoint(0, 0)) - origin;
            painter.drawImage(at, imageOf(*other));
            painter.setPen(EDGE_COLOUR);
            painter.drawRect(QRect(at, other->size()).adjusted(-1, -1, 0, 0));
        }
    }
    return picture;
}

QImage enlarged(QWidget& window, int dotsPerPixel) {
    QImage picture(window.size() * dotsPerPixel, QImage::Format_RGB32);
    picture.setDevicePixelRatio(dotsPerPixel);
    picture.fill(Qt::white);
    window.render(&picture);
    picture.setDevicePixelRatio(1);
    return picture;
}

QImage framed(const QImage& picture, const QString& title) {
    QImage whole(picture.width() + 2, picture.height() + TITLE_HEIGHT + 2, QImage::Format_RGB32);
    whole.fill(TITLE_COLOUR);
    QPainter painter(&whole);
    painter.drawImage(1, TITLE_HEIGHT + 1, picture);
    painter.setPen(EDGE_COLOUR);
    painter.drawRect(whole.rect().adjusted(0, 0, -1, -1));
    painter.setPen(Qt::black);
    painter.setFont(pictureFont(TITLE_PIXELS));
    painter.drawText(QRect(0, 1, whole.width(), TITLE_HEIGHT), Qt::AlignCenter, title);
    return whole;
}

void mark(QImage& picture, const std::vector<Mark>& marks) {
    QPainter painter(&picture);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setFont(pictureFont(MARK_RADIUS + 3));
    for (const Mark& one : marks) {
        const QRect disc(one.at - QPoint(MARK_RADIUS, MARK_RADIUS), QSize(2, 2) * MARK_RADIUS);
        painter.setPen(QPen(Qt::white, 2));
        painter.setBrush(MARK_COLOUR);
        painter.drawEllipse(disc);
        painter.drawText(disc, Qt::AlignCenter, QString::number(one.number));
    }
}

QImage widened(const QImage& picture, int dots) {
    QImage whole(picture.width() + dots, picture.height(), QImage::Format_RGB32);
    whole.fill(Qt::white);
    QPainter(&whole).drawImage(0, 0, picture);
    return whole;
}

QImage reduced(const QImage& picture) {
    constexpr std::size_t MAX_COLOURS = 256;
    const std::vector<QRgb> colours = coloursOf(picture);
    const std::size_t kept = std::min(colours.size(), MAX_COLOURS);
    const QList<QRgb> table(colours.begin(), colours.begin() + static_cast<std::ptrdiff_t>(kept));
    QHash<QRgb, int> indices;
    for (const QRgb colour : colours) {
        indices[colour] = nearest(colour, table);
    }
    QImage indexed(picture.size(), QImage::Format_Indexed8);
    indexed.setColorTable(table);
    for (int y = 0; y < picture.height(); ++y) {
        for (int x = 0; x < picture.width(); ++x) {
            indexed.setPixel(x, y, static_cast<uint>(indices[picture.pixel(x, y)]));
        }
    }
    return indexed;
}

void save(const QImage& picture, const QString& folder, const QString& name) {
    const QString path = folder + QLatin1Char('/') + name + QStringLiteral(".png");
    QImageWriter writer(path, "png");
    writer.setCompression(100); // takes its time, loses nothing
    if (!writer.write(reduced(picture))) {
        throw std::runtime_error(path.toStdString() + ": " + writer.errorString().toStdString());
    }
    if (const qint64 size = QFileInfo(path).size(); size > LARGEST_FILE) {
        throw std::runtime_error(path.toStdString() + ": " + std::to_string(size) + " bytes are too many");
    }
}

} // namespace kelvrum::tour
