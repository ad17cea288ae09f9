// SPDX-License-Identifier: GPL-3.0-or-later
// The diagram control as a widget: when it draws, and what it shows.
#include "diagram/PolarSys.h"

#include "tests/diagram/TestDiagram.h"

#include <QImage>
#include <QTest>
#include <QVBoxLayout>

namespace kelvrum {
namespace {

using kelvrum::testing::DAY;
using kelvrum::testing::fillSeries;

void fill(PolarSys& control) {
    control.setXLow(DAY);
    control.setXHigh(DAY + 1);
    fillSeries(control, {{DAY, 10}, {DAY + 0.25, 80}, {DAY + 0.5, 30}, {DAY + 0.75, 60}});
}

bool shows(const PolarSys& control, QRgb colour) {
    const QImage image = control.picture().toImage();
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            if ((image.pixel(x, y) & 0xFFFFFFU) == (colour & 0xFFFFFFU)) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

class PolarSysTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void cleanup() { seriesTable().clear(); }

    void aNewControlHasTheDefaults() {
        fillSeries(*std::make_unique<PolarSys>(LocaleTexts()), {{1, 2}, {3, 4}});
        const PolarSys control{LocaleTexts()};
        QCOMPARE(seriesTable().columns(), std::size_t(1)); // making a control empties the shared table
        QCOMPARE(control.DiagTyp(), 0);
        QCOMPARE(control.Y1High(), 100.0);
        QCOMPARE(control.XLow(), 37257.0);
        QCOMPARE(control.BgCol(), WHITE);
        QCOMPARE(control.ListIndex(), std::int16_t(-1));
        QCOMPARE(control.drawings(), 0);
        QVERIFY(control.Enabled());
        QCOMPARE(control.palette().color(QPalette::Window), QColor(255, 255, 255));
    }

    void thePictureFillsTheControl() {
        PolarSys control{LocaleTexts()};
        fill(control);
        control.resize(431, 287);
        control.show();
        QVERIFY(QTest::qWaitForWindowExposed(&control));
        QCOMPARE(control.devicePixelRatioF(), 1.0);
        QCOMPARE(control.picture().size(), QSize(431, 287));
        QCOMPARE(control.grab().toImage().convertToFormat(QImage::Format_RGB32),
                 control.picture().toImage().convertToFormat(QImage::Format_RGB32));
        QVERIFY(shows(control, qRgb(255, 0, 0)));
    }

    void aMereRepaintDrawsNothingAnew() {
        PolarSys control{LocaleTexts()};
        fill(control);
        control.resize(400, 300);
        control.show();
        QVERIFY(QTest::qWaitForWindowExposed(&control));
        const int before = control.drawings();
        QVERIFY(before >= 1);
        const QImage picture = control.picture().toImage();
        for (int i = 0; i < 5; ++i) {
            control.repaint();
            control.update();
            QTest::qWait(1);
        }
        control.hide();
        control.show();
        QVERIFY(QTest::qWaitForWindowExposed(&control));
        QCOMPARE(control.drawings(), before);
        QCOMPARE(control.picture().toImage(), picture);
    }

    void propertiesWaitForTheNextDraw() {
        PolarSys control{LocaleTexts()};
        fill(control);
        control.resize(400, 300);
        control.show();
        QVERIFY(QTest::qWaitForWindowExposed(&control));
        const int before = control.drawings();
        control.setD1(0x123456);
        control.setY1High(200);
        control.setHeadLine("Titel");
        control.setHilfslinie1(5);
        control.repaint();
        QCOMPARE(control.drawings(), before);
        QVERIFY(!shows(control, qRgb(0x56, 0x34, 0x12)));
        control.Draw();
        QCOMPARE(control.drawings(), before + 1);
        QVERIFY(shows(control, qRgb(0x56, 0x34, 0x12)));
        control.repaint();
        QCOMPARE(control.drawings(), before + 1);
    }

    void theSettersThatRepaintDrawAnew() {
        PolarSys control{LocaleTexts()};
        control.resize(400, 300);
        control.show();
        QVERIFY(QTest::qWaitForWindowExposed(&control));
        int before = control.drawings();
        control.setAngelOffset(1);
        QCOMPARE(control.drawings(), before + 1); // at once
        before = control.drawings();
        control.setLongRaster(5);
        control.setRadRaster(6);
        control.Clear();
        control.AddItem(1, 2.0);
        QTRY_COMPARE(control.drawings(), before + 1); // together, by the next paint
    }

    void resizingDrawsOnce() {
        PolarSys control{LocaleTexts()};
        fill(control);
        control.resize(400, 300);
        control.show();
        QVERIFY(QTest::qWaitForWindowExposed(&control));
        for (const QSize& size : {QSize(500, 350), QSize(120, 95), QSize(33, 20), QSize(800, 600)}) {
            const int before = control.drawings();
            control.resize(size);
            QTRY_COMPARE(control.picture().size(), size);
            control.repaint();
            QTest::qWait(1);
            QCOMPARE(control.drawings(), before + 1);
        }
    }

    void aHiddenControlDrawsAtOnceToo() {
        PolarSys control{LocaleTexts()};
        fill(control);
        control.resize(400, 300);
        control.Draw();
        QCOMPARE(control.drawings(), 1);
        QCOMPARE(control.picture().size(), QSize(400, 300));
        control.show();
        QVERIFY(QTest::qWaitForWindowExposed(&control));
        QCOMPARE(control.drawings(), 1); // the picture was finished
    }

    void aControlThatWasNeverDrawnIsDrawnWhenItIsShown() {
        QWidget window;
        auto* layout = new QVBoxLayout(&window);
        auto* control = new PolarSys(LocaleTexts(), &window);
        layout->addWidget(control);
        window.resize(400, 300);
        QCOMPARE(control->drawings(), 0);
        window.show();
        QVERIFY(QTest::qWaitForWindowExposed(&window));
        QCOMPARE(control->drawings(), 1);
        QCOMPARE(control->picture().size(), control->size());
    }

    void anUnknownKindLeavesThePicture_data() {
        QTest::addColumn<int>("kind");
        for (const int kind : {-1, 5, 77, 2147483647}) {
            QTest::addRow("%d", kind) << kind;
        }
    }
    void anUnknownKindLeavesThePicture() {
        QFETCH(int, kind);
        PolarSys control{LocaleTexts()};
        fill(control);
        control.resize(400, 300);
        control.show();
        QVERIFY(QTest::qWaitForWindowExposed(&control));
        const QImage picture = control.picture().toImage();
        const int before = control.drawings();
        control.setDiagTyp(kind);
        control.Clear();
        control.Draw();
        control.repaint();
        QCOMPARE(control.picture().toImage(), picture);
        QCOMPARE(control.drawings(), before);
        control.setDiagTyp(KIND_LINE);
        control.Draw();
        QVERIFY(control.picture().toImage() != picture);
    }

    void theLineKindsDraw_data() {
        QTest::addColumn<int>("kind");
        for (const int kind : {0, 2, 3, 4}) {
            QTest::addRow("%d", kind) << kind;
        }
    }
    void theLineKindsDraw() {
        QFETCH(int, kind);
        PolarSys control{LocaleTexts()};
        fill(control);
        control.setD1(0x123456);
        control.setDiagTyp(kind);
        control.resize(400, 300);
        control.show();
        QVERIFY(QTest::qWaitForWindowExposed(&control));
        QVERIFY(shows(control, qRgb(0x56, 0x34, 0x12)));
    }

    void enabledIsTheWidgetsOwn() {
        PolarSys control{LocaleTexts()};
        control.setEnabledState(false);
        QVERIFY(!control.isEnabled());
        QVERIFY(!control.Enabled());
        control.setEnabled(true);
        QVERIFY(control.Enabled());
        control.setEnabledState(true);
        QVERIFY(control.isEnabled());
        QWidget window;
        window.setEnabled(false);
        control.setParent(&window);
        QVERIFY(!control.isEnabled());
        QVERIFY(control.Enabled()); // whatever the window is
        control.setEnabledState(false);
        QVERIFY(!control.Enabled());
        control.setParent(nullptr);
    }

    void aKindThatDrawsNothingLeavesThePicture() {
        PolarSys control{LocaleTexts()};
        fill(control);
        control.resize(300, 200);
        control.Draw();
        const QImage before = control.picture().toImage();
        control.setDiagTyp(9);
        control.Draw();
        QCOMPARE(control.picture().toImage(), before);
        control.resize(310, 190);
        control.Draw();
        QCOMPARE(control.picture().toImage().copy(0, 0, 300, 190), before.copy(0, 0, 300, 190));
        QCOMPARE(control.drawings(), 1);
    }

    void theBackgroundPassesToTheWidgetAndThePicture() {
        PolarSys control{LocaleTexts()};
        control.setBgCol(0x80C0FF);
        QCOMPARE(control.palette().color(QPalette::Window), QColor(0xFF, 0xC0, 0x80));
        control.resize(400, 300);
        control.show();
        QVERIFY(QTest::qWaitForWindowExposed(&control));
        QCOMPARE(control.picture().toImage().pixel(200, 150), qRgb(0xFF, 0xC0, 0x80));
    }

    void clearThenDrawShowsEmptyAxes() {
        PolarSys control{LocaleTexts()};
        fill(control);
        control.setD1(0x123456);
        control.resize(400, 300);
        control.show();
        QVERIFY(QTest::qWaitForWindowExposed(&control));
        control.Clear();
        control.Draw();
        QVERIFY(!shows(control, qRgb(0x56, 0x34, 0x12)));
        const QImage image = control.picture().toImage();
        QCOMPARE(image.pixel(40, 150), qRgb(255, 0, 0));  // left axis
        QCOMPARE(image.pixel(370, 150), qRgb(0, 0, 255)); // right axis
        QCOMPARE(image.pixel(205, 260), qRgb(0, 0, 0));   // time axis
    }

    void clickingDoesNothing() {
        PolarSys control{LocaleTexts()};
        fill(control);
        control.resize(400, 300);
        control.show();
        QVERIFY(QTest::qWaitForWindowExposed(&control));
        const int before = control.drawings();
        QTest::mouseClick(&control, Qt::LeftButton);
        QTest::mouseDClick(&control, Qt::LeftButton);
        QCOMPARE(control.drawings(), before);
        QCOMPARE(control.DataCount(), 4);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::PolarSysTest)
#include "PolarSysTest.moc"
