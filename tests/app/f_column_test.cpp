// SPDX-License-Identifier: GPL-3.0-or-later
// The left column in a window that is too low for it.
#include "tests/app/WindowFixture.h"

#include <QApplication>
#include <QListWidget>
#include <QScrollBar>
#include <QTest>
#include <QWheelEvent>
#include <QtTest/qtestspontaneevent.h>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr int LABELS = 30; // the strips of Frame2 and Label1 at the column's foot

/// Notches of the wheel at a place of the window's inner area, for the control there and, when that has no
/// use for them, for its parents.
void turn(const WindowFixture& fixture, const QPoint& at, int notches) {
    QWidget* client = fixture.window->centralWidget();
    QWidget* under = client->childAt(at);
    under = under == nullptr ? client : under;
    QWheelEvent wheel(under->mapFrom(client, at), client->mapToGlobal(at), {}, {0, notches * 120},
                      Qt::NoButton, Qt::NoModifier, Qt::NoScrollPhase, false);
    QSpontaneKeyEvent::setSpontaneous(&wheel);
    qApp->notify(under, &wheel); // sendEvent would have it end at that widget
}

QRect placeOf(const WindowFixture& fixture, const QWidget& control) {
    return {control.mapTo(fixture.window->centralWidget(), QPoint()), control.size()};
}

bool isInView(const WindowFixture& fixture, const QWidget& control) {
    const QRect place = placeOf(fixture, control);
    return place.top() >= 0 && place.bottom() < fixture.window->centralWidget()->height() - LABELS;
}

/// The window gets a height.
void makeHigh(const WindowFixture& fixture, int height) {
    fixture.window->resize(800, height);
    QTest::qWait(1);
}

/// The parts of the column, where they are.
std::map<QString, QRect> column(const WindowFixture& fixture) {
    std::map<QString, QRect> places;
    for (const char* name : {"selChan", "optView(1)", "optView(0)", "Frame3", "Frame6", "Frame4", "Frame5",
                             "Frame7", "Frame1"}) {
        places[QString::fromUtf8(name)] = fixture.the<QWidget>(name).geometry();
    }
    return places;
}

constexpr const char* CHANGEABLE[] = {"DTPicker",    "DTPicker1", "DTPicker2", "DTPicker3",
                                      "selInterval", "selScroll", "Slider1"};

/// What the pickers, choices and sliders hold.
QStringList values(const WindowFixture& fixture) {
    QStringList all;
    for (const char* name : CHANGEABLE) {
        const auto& control = fixture.the<QWidget>(name);
        all << control.property("text").toString() + control.property("currentText").toString() +
                   control.property("value").toString();
    }
    return all;
}

} // namespace

class f_column_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theWheelReachesTheZoom() {
        const WindowFixture fixture;
        makeHigh(fixture, 600);
        const auto& client = *fixture.window->centralWidget();
        const auto& larger = fixture.the<QWidget>("Command2");
        const auto& limit = fixture.the<QWidget>("Text4");
        const auto design = column(fixture);
        QVERIFY(!isInView(fixture, larger));
        for (int i = 0; i < 10; ++i) {
            turn(fixture, {60, 450}, -1);
        }
        QVERIFY(isInView(fixture, larger));
        QVERIFY(isInView(fixture, limit));
        QVERIFY(isInView(fixture, fixture.the<QWidget>("Slider1")));
        QCOMPARE(client.childAt(placeOf(fixture, larger).center()), &larger); // free to be clicked
        QCOMPARE(fixture.the<QWidget>("HScroll").geometry(),
                 QRect(118, client.height() - 17, client.width() - 120, 16));
        QCOMPARE(fixture.the<QWidget>("KS").geometry(),
                 QRect(118, 2, client.width() - 120, client.height() - 5));
        QCOMPARE(fixture.the<QWidget>("lView").geometry(),
                 QRect(118, 2, client.width() - 120, client.height() - 2));
        QCOMPARE(fixture.the<QWidget>("Label1").y(), client.height() - 17);
        QCOMPARE(fixture.the<QWidget>("Frame2").y(), client.height() - 30);
        turn(fixture, {60, 450}, +100);
        QVERIFY(column(fixture) == design);
    }

    /// Whatever comes under the pointer on the way, with the focus or without.
    void theWheelChangesNothingOnItsWay() {
        const WindowFixture fixture;
        makeHigh(fixture, 300);
        const QStringList before = values(fixture);
        for (const char* focused : CHANGEABLE) {
            fixture.the<QWidget>(focused).setFocus();
            for (int y = 10; y < 250; y += 7) {
                for (const int notches : {-1, -1, -1, -1, +1, +1, +1, +1}) {
                    turn(fixture, {40, y}, notches);
                    QCOMPARE(values(fixture), before);
                }
            }
        }
    }

    void theTabKeyBringsEachControlIntoView_data() {
        QTest::addColumn<int>("height");
        QTest::newRow("a small screen") << 600;
        QTest::newRow("half of one") << 300;
        QTest::newRow("hardly more than the list of channels") << 200;
    }
    void theTabKeyBringsEachControlIntoView() {
        QFETCH(int, height);
        const WindowFixture fixture;
        fixture.click("Check1"); // its boxes take part
        fixture.click("Command2");
        makeHigh(fixture, height);
        const QWidget& start = fixture.the<QWidget>("selChan");
        for (const Qt::Key key : {Qt::Key_Tab, Qt::Key_Backtab}) {
            fixture.the<QWidget>("selChan").setFocus();
            QStringList reached;
            do {
                QTest::keyClick(QApplication::focusWidget(), key);
                const QWidget& now = *QApplication::focusWidget();
                if (placeOf(fixture, now).left() < 118) {
                    QVERIFY2(isInView(fixture, now), qPrintable(now.objectName()));
                    reached << now.objectName();
                }
            } while (QApplication::focusWidget() != &start);
            for (const char* name : {"DTPicker1", "selInterval", "Text2", "Text4", "Command1", "Slider1"}) {
                QVERIFY2(reached.contains(QString::fromUtf8(name)), name);
            }
        }
    }

    void aMnemonicBringsItsControlIntoView() {
        const WindowFixture fixture;
        makeHigh(fixture, 400);
        QVERIFY(!isInView(fixture, fixture.the<QWidget>("Text2")));
        QTest::keyClick(fixture.window.get(), Qt::Key_X, Qt::AltModifier); // "Maximum:"
        QVERIFY(fixture.the<QWidget>("Text2").hasFocus());
        QVERIFY(isInView(fixture, fixture.the<QWidget>("Text2")));
    }

    /// What is clicked stays under the pointer.
    void aClickMovesNothing() {
        const WindowFixture fixture;
        makeHigh(fixture, 600);
        auto& box = fixture.the<QWidget>("Text2");
        const int cut = placeOf(fixture, box).center().y() + LABELS;
        makeHigh(fixture, cut + fixture.window->height() - fixture.window->centralWidget()->height());
        QVERIFY(!isInView(fixture, box));
        const auto before = column(fixture);
        QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(5, 3));
        QVERIFY(box.hasFocus());
        QVERIFY(column(fixture) == before);
    }

    void aWindowThatGrowsShowsTheDesign() {
        const WindowFixture fixture;
        const auto design = column(fixture);
        makeHigh(fixture, 300);
        for (int i = 0; i < 20; ++i) {
            turn(fixture, {117, 200}, -1);
        }
        QVERIFY(column(fixture) != design);
        makeHigh(fixture, 500);
        QVERIFY(isInView(fixture, fixture.the<QWidget>("Slider1"))); // the end stays at the foot
        makeHigh(fixture, 700);
        QVERIFY(column(fixture) == design);
    }

    void theWheelLeavesAWindowAloneThatIsHighEnough() {
        const WindowFixture fixture;
        const auto design = column(fixture);
        for (int y = 5; y < fixture.window->centralWidget()->height(); y += 9) {
            turn(fixture, {1, y}, -1);
        }
        QVERIFY(column(fixture) == design);
    }

    /// Beside the column the wheel is the view's.
    void theWheelOverTheViewMovesNoColumn() {
        const WindowFixture fixture;
        makeHigh(fixture, 300);
        const auto design = column(fixture);
        turn(fixture, {400, 100}, -1);
        QVERIFY(column(fixture) == design);
    }

    void aLongListOfChannelsScrollsFirst() {
        MadeStation station = madeStation();
        for (int channel = 20; channel < 50; ++channel) {
            const std::string number = std::to_string(channel);
            station.ini += "CHAN" + number + "|Kanal " + number + "|m/s|0|40||0|1|2|1|0|0|K" + number + "\n";
        }
        const WindowFixture fixture(station);
        makeHigh(fixture, 600);
        const auto design = column(fixture);
        auto& list = fixture.the<QListWidget>("selChan");
        turn(fixture, {40, 50}, -1);
        QVERIFY(list.verticalScrollBar()->value() > 0);
        QVERIFY(column(fixture) == design);
        list.verticalScrollBar()->setValue(list.verticalScrollBar()->maximum());
        turn(fixture, {40, 50}, -1);
        QVERIFY(column(fixture) != design);
        QCOMPARE(list.currentRow(), 0);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_column_test)
#include "f_column_test.moc"
