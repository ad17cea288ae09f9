// SPDX-License-Identifier: GPL-3.0-or-later
// The readout overlay on a diagram control: which value is read out, and when.
#include "diagram/ReadoutOverlay.h"

#include "diagram/PolarSys.h"

#include "tests/diagram/TestDiagram.h"

#include <QKeySequence>
#include <QTest>
#include <initializer_list>
#include <optional>

namespace kelvrum {
namespace {

using kelvrum::testing::DAY;
using kelvrum::testing::fillSeries;

/// The middle of the plot, in pixels of the control.
QPointF middleOfPlot(const PolarSys& control) {
    const Box plot = control.lineShown()->plot.clip();
    const QPointF dot((plot.left + plot.right) / 2.0, (plot.top + plot.bottom) / 2.0);
    return dot / control.devicePixelRatioF();
}

} // namespace

class ReadoutOverlayTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cleanup() { seriesTable().clear(); }

    void aKeyWhileTheTableIsRefilledKeepsThePointer_data() {
        QTest::addColumn<int>("key");
        for (const int key :
             std::initializer_list<int>{0, Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End}) {
            QTest::addRow("%s",
                          qPrintable(key == 0 ? QStringLiteral("no key") : QKeySequence(key).toString()))
                << key;
        }
    }
    void aKeyWhileTheTableIsRefilledKeepsThePointer() {
        QFETCH(int, key);
        PolarSys control{LocaleTexts()};
        control.resize(400, 300);
        control.setXLow(DAY);
        control.setXHigh(DAY + 1);
        fillSeries(control, {{DAY + 0.25, 10}, {DAY + 0.5, 80}, {DAY + 0.75, 30}});
        ReadoutOverlay overlay(control, LocaleTexts());
        control.Draw();

        overlay.keepSeries();
        overlay.pointAt(middleOfPlot(control));
        switch (key) {
        case Qt::Key_Left:
            overlay.step(-1);
            break;
        case Qt::Key_Right:
            overlay.step(1);
            break;
        case Qt::Key_Home:
            overlay.toFirst();
            break;
        case Qt::Key_End:
            overlay.toLast();
            break;
        default:
            break;
        }
        QVERIFY(overlay.text().isEmpty()); // the table is not that of the picture
        control.Draw();
        QCOMPARE(overlay.readValue(), std::optional<double>(80));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::ReadoutOverlayTest)
#include "ReadoutOverlayTest.moc"
