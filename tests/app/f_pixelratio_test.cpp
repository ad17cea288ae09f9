// SPDX-License-Identifier: GPL-3.0-or-later
// The window on screens with more than one dot per pixel; CTest runs it once for each ratio
// (QT_SCALE_FACTOR).
#include "diagram/PolarSys.h"
#include "tests/app/WindowFixture.h"

#include <QAbstractButton>
#include <QImage>
#include <QLabel>
#include <QRegularExpression>
#include <QTest>
#include <cmath>
#include <set>

namespace kelvrum {

using namespace kelvrum::testing;

class f_pixelratio_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void thePictureHasAllDots() {
        const WindowFixture fixture;
        const auto& ks = fixture.the<PolarSys>("KS");
        const double ratio = qEnvironmentVariable("QT_SCALE_FACTOR", QStringLiteral("1")).toDouble();
        QCOMPARE(ks.devicePixelRatioF(), ratio);
        QCOMPARE(ks.picture().size(), (QSizeF(ks.size()) * ratio).toSize());
    }

    /// Around the left axis there are but the axis, its ticks and the curve, none of them blurred.
    void linesAreCrisp() {
        const WindowFixture fixture;
        const auto& ks = fixture.the<PolarSys>("KS");
        const double ratio = ks.devicePixelRatioF();
        const QImage picture = ks.picture().toImage().convertToFormat(QImage::Format_RGB32);
        const auto dots = [ratio](double pixels) { return static_cast<int>(std::lround(pixels * ratio)); };
        std::set<QRgb> colours;
        for (int x = dots(37); x < dots(60); ++x) {
            for (int y = dots(60); y < picture.height() - dots(60); ++y) {
                colours.insert(picture.pixel(x, y));
            }
        }
        const std::set<QRgb> pure = {qRgb(255, 255, 255), qRgb(0, 0, 0x40), qRgb(0, 0, 255)};
        QVERIFY(colours == pure);
    }

    void captionsAreUncut() {
        const WindowFixture fixture;
        const QRegularExpression mnemonic(QStringLiteral("&(?=.)"));
        const auto check = [&](const QWidget& control, QString caption) {
            const int needed = control.fontMetrics().horizontalAdvance(caption.remove(mnemonic));
            QVERIFY2(needed <= control.width() && control.fontMetrics().height() <= control.height(),
                     qPrintable(control.objectName()));
        };
        for (const auto* button : fixture.window->centralWidget()->findChildren<QAbstractButton*>()) {
            check(*button, button->text());
        }
        for (const auto* label : fixture.window->centralWidget()->findChildren<QLabel*>()) {
            check(*label, label->text());
        }
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_pixelratio_test)
#include "f_pixelratio_test.moc"
