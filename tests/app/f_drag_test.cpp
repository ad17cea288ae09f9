// SPDX-License-Identifier: GPL-3.0-or-later
// Drags that end in another way than they began, the menu of the diagram, and what back and forward know.
#include "tests/app/DiagramHand.h"

#include <QAction>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <functional>
#include <vector>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr int WIND_ROW = 1;    // of the channel list
constexpr int QUARTER_ROW = 3; // of the intervals
constexpr int HOUR_ROW = 4;

QString text(const ShownRange& range) { return range.from + QStringLiteral(" - ") + range.to; }

bool hasBand(const DiagramHand& hand) { return hand.overlay.band().has_value(); }

/// Begins a drag within the hours from 07:00 to 10:00 of the test day.
void beginDrag(const DiagramHand& hand) {
    hand.press(hand.at(QStringLiteral("18.06.2020 07:20")));
    hand.moveTo(hand.at(QStringLiteral("18.06.2020 09:40")), Qt::LeftButton);
}

/// Each entry as "object name caption", a submenu followed by its entries after a ">".
QStringList entriesOf(const QMenu& menu) {
    QStringList entries;
    for (const QAction* action : menu.actions()) {
        if (action->isSeparator()) {
            entries << QStringLiteral("-");
            continue;
        }
        entries << action->objectName() + QLatin1Char(' ') + action->text();
        const auto* further = action->menu<QMenu*>();
        for (const QString& entry : further == nullptr ? QStringList() : entriesOf(*further)) {
            entries << QStringLiteral("> ") + entry;
        }
    }
    return entries;
}

} // namespace

class f_drag_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    /// The right button during a drag: a menu would take the release of the left one.
    void noMenuOpensDuringADrag() {
        const WindowFixture fixture;
        fixture.chooseInterval(HOUR_ROW);
        const DiagramHand hand(fixture);
        beginDrag(hand);
        const QPointF place = hand.at(QStringLiteral("18.06.2020 09:40"));
        hand.send(QEvent::MouseButtonPress, place, Qt::RightButton, Qt::LeftButton | Qt::RightButton);
        QContextMenuEvent menu(QContextMenuEvent::Mouse, place.toPoint(),
                               hand.KS.mapToGlobal(place.toPoint()));
        QCoreApplication::sendEvent(&hand.KS, &menu);
        QVERIFY(QApplication::activePopupWidget() == nullptr);
        QVERIFY(hasBand(hand));
        hand.send(QEvent::MouseButtonRelease, place, Qt::RightButton, Qt::LeftButton);
        QVERIFY(hasBand(hand)); // the left button is still held
        hand.release(place);
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("18.06.2020 07:00 - 18.06.2020 10:00"));
        QCoreApplication::sendEvent(&hand.KS, &menu); // and now it does
        QWidget* popup = QApplication::activePopupWidget();
        QVERIFY(popup != nullptr);
        popup->close();
    }

    void aReleaseThatIsLostEndsTheDrag() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        const QString before = text(fixture.shownRange());
        beginDrag(hand);
        QVERIFY(hasBand(hand));
        hand.moveTo(hand.at(QStringLiteral("18.06.2020 11:00"))); // no button is held any more
        QVERIFY(!hasBand(hand));
        hand.release(hand.at(QStringLiteral("18.06.2020 12:00")));
        hand.key(Qt::Key_Return);
        QCOMPARE(text(fixture.shownRange()), before);
    }

    /// Another range, or a rose, comes into view below the pointer.
    void anotherPictureEndsADragAndABand() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        const std::vector<std::function<void()>> others = {
            [&] { fixture.click("Command8"); },
            [&] { QTest::keyClick(&hand.KS, Qt::Key_3, Qt::ControlModifier); },
            [&] {
                fixture.chooseChannel(WIND_ROW);
                fixture.trigger("menPolar");
            },
        };
        for (const auto& another : others) {
            fixture.chooseChannel(0);
            fixture.arrange({QStringLiteral("18.06.2020 00:00"), QStringLiteral("19.06.2020 00:00")},
                            HOUR_ROW);
            fixture.window->LoadData(); // the dates alone were set from code
            beginDrag(hand);
            QVERIFY(hasBand(hand));
            another();
            QVERIFY(!hasBand(hand));
            const QString now = text(fixture.shownRange());
            const int opened = fixture.files.opened;
            hand.release(hand.at(fixture.shownRange().from) + QPointF(200, 0));
            QCOMPARE(fixture.files.opened, opened);

            fixture.chooseChannel(0);
            fixture.arrange({QStringLiteral("18.06.2020 00:00"), QStringLiteral("19.06.2020 00:00")},
                            HOUR_ROW);
            fixture.window->LoadData();
            hand.key(Qt::Key_Home);
            hand.key(Qt::Key_Right, Qt::ShiftModifier);
            QVERIFY(hasBand(hand));
            another();
            QVERIFY(!hasBand(hand));
            hand.key(Qt::Key_Return);
            QCOMPARE(text(fixture.shownRange()), now);
        }
    }

    /// The same times drawn again, with another scale, leave a drag alone.
    void aMereDrawingLeavesADragAlone() {
        const WindowFixture fixture;
        fixture.chooseInterval(HOUR_ROW);
        const DiagramHand hand(fixture);
        beginDrag(hand);
        fixture.click("Option1");
        QVERIFY(hasBand(hand));
        hand.release(hand.at(QStringLiteral("18.06.2020 09:40")));
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("18.06.2020 07:00 - 18.06.2020 10:00"));
    }

    void theWholeMenu() {
        const WindowFixture fixture;
        QCOMPARE(entriesOf(fixture.the<QMenu>("menKS")),
                 QStringList({
                     QStringLiteral("menLinie &Liniendiagramm"),
                     QStringLiteral("menNiederschlag &Niederschlagsdiagramm"),
                     QStringLiteral("menRichtung &Richtungsdiagramm"),
                     QStringLiteral("menPolar &Polardiagramm"),
                     QStringLiteral("-"),
                     QStringLiteral("menZeitraum Zeitrau&m"),
                     QStringLiteral("> menTag &Tag"),
                     QStringLiteral("> menWoche &Woche"),
                     QStringLiteral("> menMonat &Monat"),
                     QStringLiteral("> menJahr &Jahr"),
                     QStringLiteral("menZurueck Zurü&ck"),
                     QStringLiteral("menVor &Vor"),
                     QStringLiteral("menErster &Erster Wert"),
                     QStringLiteral("menLetzter Le&tzter Wert"),
                     QStringLiteral("menZweiter &Zweiter Kanal"),
                     QStringLiteral("> menKanal(4) Windgeschwindigkeit"),
                     QStringLiteral("> menKanal(5) Windrichtung"),
                     QStringLiteral("> menKanal(7) Staub"),
                     QStringLiteral("> menKanal(12) Niederschlag"),
                     QStringLiteral("> menKeiner &Keiner"),
                     QStringLiteral("menBild &Bild kopieren"),
                     QStringLiteral("menWerte &Werte kopieren"),
                     QStringLiteral("-"),
                     QStringLiteral("menAuswertung &Auswertung"),
                 }));
    }

    /// Every control that brings another range into view leaves an entry, and steps back bring all of them.
    void everyControlLeavesAnEntry() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        const auto typed = [&](const char* picker, const char* digits) {
            fixture.typePicker(picker, QString::fromUtf8(digits));
            QTest::keyClick(&fixture.the<QWidget>(picker), Qt::Key_Return);
        };
        const std::vector<std::function<void()>> controls = {
            [&] { typed("DTPicker1", "0613"); },
            [&] { typed("DTPicker3", "0720"); },
            [&] { typed("DTPicker", "17062020"); },
            [&] { typed("DTPicker2", "20062020"); },
            [&] { fixture.click("Command3"); },
            [&] { fixture.click("Command4"); },
            [&] { fixture.click("Command5"); },
            [&] { fixture.click("Command6"); },
            [&] { fixture.click("Command7"); },
            [&] { fixture.click("Command8"); },
            [&] { hand.key(Qt::Key_PageUp); },
            [&] { hand.key(Qt::Key_PageDown); },
            [&] { fixture.chooseInterval(QUARTER_ROW); },
            [&] { fixture.trigger("menTag"); },
            [&] { fixture.trigger("menErster"); },
            [&] { hand.drag(QPointF(300, 200), QPointF(500, 200)); },
            [&] { hand.wheel(QPointF(300, 200), 120); },
            [&] { hand.key(Qt::Key_Minus, Qt::ControlModifier); },
        };
        std::vector<QString> shown = {text(fixture.shownRange())};
        for (const auto& control : controls) {
            control();
            if (text(fixture.shownRange()) != shown.back()) {
                shown.push_back(text(fixture.shownRange()));
            }
        }
        QVERIFY(shown.size() > 14);
        // The keys that choose an interval pass others, which may leave entries of their own.
        std::size_t found = 0;
        for (int i = 0; i < 30 && fixture.the<QAction>("menZurueck").isEnabled(); ++i) {
            fixture.trigger("menZurueck");
            if (found + 1 < shown.size() && text(fixture.shownRange()) == shown[shown.size() - 2 - found]) {
                ++found;
            }
        }
        QCOMPARE(found, shown.size() - 1);
        QCOMPARE(text(fixture.shownRange()), shown.front());
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_drag_test)
#include "f_drag_test.moc"
