// SPDX-License-Identifier: GPL-3.0-or-later
// The surface on a painter: what its primitives paint.
#include "drawing/PainterSurface.h"

#include <QImage>
#include <QTest>

namespace kelvrum {
namespace {

/// Paints dark lines on white and tells which dots are painted, row by row.
QString painted(const QImage& image) {
    QString all;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            all += image.pixel(x, y) == qRgb(255, 255, 255) ? QLatin1Char('.') : QLatin1Char('#');
        }
        all += QLatin1Char('/');
    }
    return all;
}

} // namespace

class PainterSurfaceTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void coloursAreBlueGreenRed() {
        QCOMPARE(toQColor(255), QColor(255, 0, 0));
        QCOMPARE(toQColor(0xFF0000), QColor(0, 0, 255));
        QCOMPARE(toQColor(0x123456), QColor(0x56, 0x34, 0x12));
        QCOMPARE(toQColor(WHITE), QColor(255, 255, 255));
        QCOMPARE(toQColor(BLACK), QColor(0, 0, 0));
    }

    void linesIncludeBothEnds_data() {
        QTest::addColumn<double>("scale");
        QTest::addColumn<QString>("picture");
        QTest::newRow("1") << 1.0 << QStringLiteral("....../.####./....../.#..../....../");
        QTest::newRow("1.25") << 1.25 << QStringLiteral("....../.####./....../.#..../....../");
    }
    void linesIncludeBothEnds() {
        QFETCH(double, scale);
        QFETCH(QString, picture);
        const Segment segments[] = {{{1, 1}, {4, 1}}, {{1, 3}, {1, 3}}};
        QImage batch(6, 5, QImage::Format_RGB32);
        QImage single(6, 5, QImage::Format_RGB32);
        {
            PainterSurface surface(batch, {6, 5}, scale);
            surface.clear(WHITE);
            surface.setPen(RED);
            surface.lines(segments);
            PainterSurface other(single, {6, 5}, scale);
            other.clear(WHITE);
            other.setPen(RED);
            for (const Segment& segment : segments) {
                other.line(segment.from, segment.to);
            }
        }
        QCOMPARE(painted(batch), picture);
        QCOMPARE(single, batch);
        QCOMPARE(batch.pixel(2, 1), qRgb(255, 0, 0));
    }

    void aPenIsOneLogicalPixelWide_data() {
        QTest::addColumn<double>("scale");
        QTest::addColumn<int>("width");
        QTest::newRow("1") << 1.0 << 1;
        QTest::newRow("1.25") << 1.25 << 1;
        QTest::newRow("1.5") << 1.5 << 2;
        QTest::newRow("2") << 2.0 << 2;
        QTest::newRow("3") << 3.0 << 3;
    }
    void aPenIsOneLogicalPixelWide() {
        QFETCH(double, scale);
        QFETCH(int, width);
        QImage image(20, 20, QImage::Format_RGB32);
        {
            PainterSurface surface(image, {20, 20}, scale);
            surface.clear(WHITE);
            surface.setPen(BLACK);
            surface.line({5, 10}, {15, 10});
        }
        int dark = 0;
        for (int y = 0; y < 20; ++y) {
            dark += image.pixel(10, y) == qRgb(0, 0, 0) ? 1 : 0;
        }
        QCOMPARE(dark, width);
    }

    void boxesEndBeforeTheirRightAndBottom() {
        QImage image(6, 4, QImage::Format_RGB32);
        {
            PainterSurface surface(image, {6, 4}, 1);
            surface.clear(WHITE);
            const Box boxes[] = {{1, 1, 3, 3}, {4, 0, 5, 4}, {5, 2, 5, 3}};
            surface.fill(boxes, BLUE);
        }
        QCOMPARE(painted(image), QStringLiteral("....#./.##.#./.##.#./....#./"));
        QCOMPARE(image.pixel(1, 1), qRgb(0, 0, 255));
    }

    void theClipLimitsDrawingUntilItIsLifted() {
        QImage image(6, 3, QImage::Format_RGB32);
        {
            PainterSurface surface(image, {6, 3}, 1);
            surface.clear(WHITE);
            surface.setPen(BLACK);
            surface.setClip(Box{2, 0, 4, 3});
            surface.line({0, 0}, {5, 0});
            surface.setClip({});
            surface.line({0, 2}, {5, 2});
        }
        QCOMPARE(painted(image), QStringLiteral("..##../....../######/"));
    }

    void farLinesAreDrawnWhereTheyCross() {
        QImage image(5, 5, QImage::Format_RGB32);
        {
            PainterSurface surface(image, {5, 5}, 1);
            surface.clear(WHITE);
            surface.setPen(BLACK);
            const Segment segments[] = {{{2, -32768}, {2, 32767}}, {{-32768, 4}, {32767, 4}}};
            surface.lines(segments);
        }
        QCOMPARE(painted(image), QStringLiteral("..#../..#../..#../..#../#####/"));
    }

    void textsHaveTheSizeOfTheScreenTimesTheScale() {
        QImage image(400, 100, QImage::Format_RGB32);
        PainterSurface one(image, {400, 100}, 1);
        const Extent small = one.textExtent("Niederschlagssumme");
        const Extent nothing = one.textExtent("");
        QCOMPARE(nothing.width, 0);
        QCOMPARE(nothing.height, small.height);
        QVERIFY2(small.height >= 11 && small.height <= 16, "8 points are 11 pixels");
        QVERIFY(small.width > 60 && small.width < 140);
        one.setFont({"Arial", 8, true, false});
        QVERIFY(one.textExtent("Niederschlagssumme").width > small.width);
        one.setFont({"Arial", 16, false, false});
        QVERIFY(qAbs(one.textExtent("Niederschlagssumme").width - 2 * small.width) <= 12);
        QImage other(400, 100, QImage::Format_RGB32);
        PainterSurface two(other, {400, 100}, 2);
        QVERIFY(qAbs(two.textExtent("Niederschlagssumme").width - 2 * small.width) <= 12);
        QVERIFY(two.textExtent("µg/m³").width < two.textExtent("µg/m³µ").width);
    }

    void textIsRightBelowItsCorner() {
        QImage image(60, 40, QImage::Format_RGB32);
        Extent extent;
        {
            PainterSurface surface(image, {60, 40}, 1);
            surface.clear(WHITE);
            surface.setPen(RED);
            extent = surface.textExtent("Hg");
            surface.text({20, 10}, "Hg");
        }
        QRect dark;
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 60; ++x) {
                if (image.pixel(x, y) != qRgb(255, 255, 255)) {
                    dark |= QRect(x, y, 1, 1);
                }
            }
        }
        QVERIFY(!dark.isEmpty());
        QVERIFY(QRect(19, 10, extent.width + 2, extent.height).contains(dark));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::PainterSurfaceTest)
#include "PainterSurfaceTest.moc"
