// SPDX-License-Identifier: GPL-3.0-or-later
// Work without a mouse: keys of the window and of the diagram, and the diagram as text.
#include "tests/app/WindowFixture.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QListWidget>
#include <QTest>
#include <QTimeEdit>
#include <QWheelEvent>

namespace kelvrum {

using namespace kelvrum::testing;

class f_keys_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void f5Reloads() {
        WindowFixture fixture;
        for (const char* focus : {"selChan", "KS", "Command7", "DTPicker"}) {
            fixture.the<QWidget>(focus).setFocus();
            fixture.files.opened = 0;
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_F5);
            QVERIFY2(fixture.files.opened == 1, focus);
        }
    }

    /// What is being typed into a picker counts, and loads once.
    void f5WhileSomethingIsTyped() {
        WindowFixture fixture;
        fixture.typePicker("DTPicker1", QStringLiteral("0930"));
        fixture.files.opened = 0;
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_F5);
        QCOMPARE(fixture.files.opened, 1);
        QCOMPARE(fixture.the<QTimeEdit>("DTPicker1").time(), QTime(9, 30));
    }

    void menusNameTheirKeys() {
        const WindowFixture fixture;
        QCOMPARE(fixture.the<QAction>("menOpen").shortcut(), QKeySequence(Qt::CTRL | Qt::Key_O));
        QCOMPARE(fixture.the<QAction>("menPrint").shortcut(), QKeySequence(Qt::CTRL | Qt::Key_P));
        QVERIFY(fixture.the<QWidget>("selChan").toolTip().contains(QStringLiteral("F5")));
        QVERIFY(fixture.the<QWidget>("Command7").toolTip().contains(QStringLiteral("Bild auf")));
        QVERIFY(fixture.the<QWidget>("Command8").toolTip().contains(QStringLiteral("Bild ab")));
    }

    void controlOOpens() {
        const WindowFixture fixture;
        const TempFolder other;
        const std::string path = other.write("QEL.ini", "PROJEKTNAME=Anderswo\n");
        fixture.dialogs->file = QString::fromStdString(path);
        QTest::keyClick(&fixture.the<QWidget>("selChan"), Qt::Key_O, Qt::ControlModifier);
        QCOMPARE(fixture.window->station().ProjectName, std::string("Anderswo"));
    }

    void pageKeysScrollTheRangeOfTheDiagram() {
        WindowFixture fixture;
        auto& diagram = fixture.the<QWidget>("KS");
        diagram.setFocus();
        const TimeRange before = fixture.window->range();
        fixture.files.opened = 0;
        QTest::keyClick(&diagram, Qt::Key_PageDown);
        QCOMPARE(fixture.window->range().from, before.from + 1);
        QCOMPARE(fixture.window->range().to, before.to + 1);
        QCOMPARE(fixture.files.opened, 1);
        QTest::keyClick(&diagram, Qt::Key_PageUp);
        QTest::keyClick(&diagram, Qt::Key_PageUp);
        QCOMPARE(fixture.window->range().from, before.from - 1);
        auto& unit = fixture.the<QComboBox>("selScroll");
        QTest::keyClick(&unit, Qt::Key_Up); // hours
        QTest::keyClick(&diagram, Qt::Key_PageDown);
        QVERIFY(std::abs(fixture.window->range().from - (before.from - 1 + 1.0 / 24)) < 1e-9);
        const double now = fixture.window->range().from;
        QTest::keyClick(&diagram, Qt::Key_PageDown, Qt::ControlModifier);
        QTest::keyClick(&diagram, Qt::Key_Down);
        QCOMPARE(fixture.window->range().from, now);
    }

    void pageKeysOfTheNumericKeypadScrollToo() {
        const WindowFixture fixture;
        auto& diagram = fixture.the<QWidget>("KS");
        diagram.setFocus();
        const TimeRange before = fixture.window->range();
        QTest::keyClick(&diagram, Qt::Key_PageDown, Qt::KeypadModifier);
        QCOMPARE(fixture.window->range().from, before.from + 1);
        QTest::keyClick(&diagram, Qt::Key_PageUp, Qt::KeypadModifier);
        QCOMPARE(fixture.window->range().from, before.from);
        QTest::keyClick(&diagram, Qt::Key_PageUp, Qt::KeypadModifier | Qt::ShiftModifier);
        QCOMPARE(fixture.window->range().from, before.from);
    }

    void pageKeysElsewhereAreTheControls() {
        const WindowFixture fixture;
        const TimeRange before = fixture.window->range();
        fixture.the<QWidget>("selChan").setFocus();
        QTest::keyClick(&fixture.the<QWidget>("selChan"), Qt::Key_PageDown);
        QCOMPARE(fixture.window->range().from, before.from);
    }

    /// A frame around the diagram shows that it has the keyboard; a click draws none.
    void theFocusIsVisible() {
        const WindowFixture fixture;
        auto& diagram = fixture.the<QWidget>("KS");
        const QImage without = diagram.grab().toImage();
        QTest::mouseClick(&diagram, Qt::LeftButton);
        QVERIFY(diagram.hasFocus());
        QCOMPARE(diagram.grab().toImage(), without);
        fixture.the<QWidget>("HScroll").setFocus();
        QTest::keyClick(&fixture.the<QWidget>("HScroll"), Qt::Key_Backtab);
        QVERIFY(diagram.hasFocus());
        const QImage framed = diagram.grab().toImage();
        QVERIFY(framed != without);
        const QRect inner = framed.rect().adjusted(1, 1, -1, -1);
        QCOMPARE(framed.copy(inner), without.copy(inner));
        QTest::mouseClick(&diagram, Qt::LeftButton);
        QCOMPARE(diagram.grab().toImage(), without);
        fixture.the<QWidget>("selChan").setFocus();
        QCOMPARE(diagram.grab().toImage(), without);
    }

    /// The wheel turns over a control that has not got the focus: the user means the window, not the value.
    void theWheelChangesNothingOnItsWay() {
        const WindowFixture fixture;
        fixture.the<QWidget>("selChan").setFocus();
        const TimeRange before = fixture.window->range();
        const auto turn = [](QWidget& control) {
            const QPointF at(control.width() / 2.0, control.height() / 2.0);
            QWheelEvent wheel(at, control.mapToGlobal(at), {}, {0, -120}, Qt::NoButton, Qt::NoModifier,
                              Qt::NoScrollPhase, false);
            QCoreApplication::sendEvent(&control, &wheel);
        };
        for (const char* name :
             {"DTPicker", "DTPicker1", "DTPicker2", "DTPicker3", "selInterval", "selScroll"}) {
            turn(fixture.the<QWidget>(name));
        }
        QCOMPARE(fixture.window->range().from, before.from);
        QCOMPARE(fixture.window->range().to, before.to);
        QCOMPARE(fixture.the<QComboBox>("selInterval").currentIndex(), 0);
        QCOMPARE(fixture.the<QComboBox>("selScroll").currentIndex(), 2);
        QCOMPARE(QApplication::focusWidget(), &fixture.the<QWidget>("selChan"));
        auto& interval = fixture.the<QComboBox>("selInterval");
        turn(*fixture.the<QListWidget>("selChan").viewport()); // a list scrolls
        interval.setFocus();
        turn(interval);
        QCOMPARE(interval.currentIndex(), 1);
    }

    void aReaderHearsTheDiagram() {
        const WindowFixture fixture;
        const auto& diagram = fixture.the<QWidget>("KS");
        QVERIFY2(diagram.accessibleDescription().isEmpty(), "no client is listening yet");
        QAccessible::setActive(true);
        QVERIFY(diagram.accessibleName().contains(QStringLiteral("Windgeschwindigkeit")));
        QVERIFY2(diagram.accessibleDescription().contains(QStringLiteral("1320 Werte.")),
                 qPrintable(diagram.accessibleDescription()));
        QVERIFY(diagram.accessibleDescription().contains(QStringLiteral("bis 19.06.2020 00:00")));
        fixture.chooseChannel(2);
        QVERIFY(diagram.accessibleName().contains(QStringLiteral("Staub")));
        QVERIFY(diagram.accessibleDescription().contains(QStringLiteral("µg/m³ am 18.06.2020 23:59")));
        fixture.chooseInterval(4);
        QVERIFY(diagram.accessibleDescription().contains(QStringLiteral("24 Werte.")));
        fixture.click("optView(1)");
        QVERIFY(diagram.accessibleDescription().contains(QStringLiteral("Datenliste")));
        fixture.chooseChannel(0); // a list leaves the headlines of the diagram as they were
        QCOMPARE(diagram.accessibleName(), QStringLiteral("Diagramm"));
        fixture.click("optView(0)");
        QVERIFY(diagram.accessibleName().contains(QStringLiteral("Windgeschwindigkeit")));
        QAccessible::setActive(false);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_keys_test)
#include "f_keys_test.moc"
