// SPDX-License-Identifier: GPL-3.0-or-later
// The polar diagram as a picture: each sector covers its own class and no other.
#include "diagram/PolarDiagram.h"
#include "diagram/PolarSys.h"
#include "drawing/PainterSurface.h"

#include <QImage>
#include <QTest>
#include <cmath>

namespace kelvrum {

namespace {

constexpr Extent SQUARE{500, 500};
constexpr QRgb YELLOW = 0xFFFFFF00;

class Rose : public DiagramState {
  public:
    explicit Rose(std::int32_t classes) {
        initialise();
        setRadRaster(classes);
        setLongRaster(4);
        setBogenmass(UNIT_DEGREES);
    }
};

QImage pictureOf(DiagramState& rose, Extent size) {
    QImage picture(size.width, size.height, QImage::Format_RGB32);
    PainterSurface surface(picture, size, 1.0);
    drawPolarDiagram(surface, rose, {});
    return picture;
}

} // namespace

class PolarPictureTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void sectors_data() {
        QTest::addColumn<int>("classes");
        QTest::addColumn<int>("width");
        QTest::addColumn<int>("height");
        for (const Extent size : {SQUARE, Extent{900, 400}, Extent{450, 800}}) {
            for (const int classes : {4, 8, 12, 16, 36}) {
                QTest::addRow("%d classes, %d x %d", classes, size.width, size.height)
                    << classes << size.width << size.height;
            }
        }
    }
    void sectors() {
        QFETCH(int, classes);
        QFETCH(int, width);
        QFETCH(int, height);
        const Extent size{width, height};
        const double sector = 360.0 / classes;
        for (int filled = 0; filled < classes; ++filled) {
            Rose rose(classes);
            rose.AddItem(3, filled * sector);
            const QImage picture = pictureOf(rose, size);
            QFontMetrics metrics(surfaceFont({}, 96.0 / 72));
            const PolarGeometry g(size, metrics.height(), 4, 1);
            for (int j = 0; j < classes; ++j) {
                // Beside the spoke's middle, between two rings and clear of their labels.
                for (const double beside : {-0.35, 0.35}) {
                    const double angle = ((j + beside) * sector - 90) * M_PI / 180;
                    const QRgb pixel =
                        picture.pixel(static_cast<int>(g.xCentre + 0.87 * g.dx(4) * std::cos(angle)),
                                      static_cast<int>(g.yCentre + 0.87 * g.dy(4) * std::sin(angle)));
                    QVERIFY2(
                        (pixel == YELLOW) == (j == filled),
                        qPrintable(
                            QStringLiteral("class %1 of %2, filled %3").arg(j).arg(classes).arg(filled)));
                }
            }
        }
    }

    void theControlDrawsIt() {
        PolarSys control{LocaleTexts()};
        control.resize(SQUARE.width, SQUARE.height);
        control.setDiagTyp(KIND_POLAR);
        control.AddItem(3, 0.0);
        control.show();
        QVERIFY(QTest::qWaitForWindowExposed(&control));
        QCOMPARE(control.drawings(), 1);
        QVERIFY(control.Ycenter() > SQUARE.height / 2);
        const QImage picture = control.picture().toImage();
        QCOMPARE(picture.pixel(SQUARE.width / 2 + 3, control.Ycenter() - 100), YELLOW);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::PolarPictureTest)
#include "PolarPictureTest.moc"
