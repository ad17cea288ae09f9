// SPDX-License-Identifier: GPL-3.0-or-later
// Choosing a range by mouse, wheel and keys, going back and forward, and presets.
#include "tests/app/DiagramHand.h"

#include <QAction>
#include <QLineEdit>
#include <QMenu>
#include <QTest>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr int WIND_ROW = 1; // of the channel list
constexpr int DUST_ROW = 2;
constexpr int MINUTE_ROW = 0; // of the intervals
constexpr int QUARTER_ROW = 3;

QString text(const ShownRange& range) { return range.from + QStringLiteral(" - ") + range.to; }

/// Counts the loads: each draws once and opens its channel's file once.
class Loads {
  public:
    explicit Loads(const WindowFixture& fixture)
        : fixture_(fixture)
        , before_(fixture.files.opened) {}
    int count() {
        const int opened = fixture_.files.opened - before_;
        before_ = fixture_.files.opened;
        return opened;
    }

  private:
    const WindowFixture& fixture_;
    int before_;
};

QString band(const DiagramHand& hand) {
    const auto& band = hand.overlay.band();
    return band ? QString::fromStdString(rowTime(band->from, {}) + " - " + rowTime(band->to, {})) : QString();
}

} // namespace

class f_choose_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aDragBecomesTheRange() {
        const WindowFixture fixture;
        fixture.chooseInterval(QUARTER_ROW);
        const DiagramHand hand(fixture);
        Loads loads(fixture);
        hand.drag(hand.at(QStringLiteral("18.06.2020 07:08")), hand.at(QStringLiteral("18.06.2020 10:20")));
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("18.06.2020 07:00 - 18.06.2020 10:30"));
        QCOMPARE(loads.count(), 1);
        QCOMPARE(band(hand), QString());
        hand.drag(hand.at(QStringLiteral("18.06.2020 09:50")),
                  hand.at(QStringLiteral("18.06.2020 08:20"))); // leftward
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("18.06.2020 08:15 - 18.06.2020 10:00"));
        QCOMPARE(loads.count(), 1);
    }

    void aBandTellsItsTimes() {
        const WindowFixture fixture;
        fixture.chooseInterval(QUARTER_ROW);
        const DiagramHand hand(fixture);
        hand.press(hand.at(QStringLiteral("18.06.2020 07:08")));
        hand.moveTo(hand.at(QStringLiteral("18.06.2020 10:20")), Qt::LeftButton);
        QCOMPARE(band(hand), QStringLiteral("18.06.2020 07:00 - 18.06.2020 10:30"));
        const double ratio = hand.KS.devicePixelRatioF();
        const QImage image = hand.painted();
        const auto alpha = [&](const char* time) {
            const QPointF at = hand.at(QString::fromUtf8(time)) * ratio;
            return image.pixelColor(at.toPoint() + QPoint(2, static_cast<int>(100 * ratio))).alpha();
        };
        QVERIFY(alpha("18.06.2020 08:30") > 0);
        QCOMPARE(alpha("18.06.2020 06:30"), 0);
        QCOMPARE(alpha("18.06.2020 10:40"), 0);
        // No line crosses the times: their ground goes from end to end in the row above the letters.
        const int row = static_cast<int>((50 + 4) * ratio);
        int ground = 0;
        int crossed = 0;
        for (int x = static_cast<int>(60 * ratio); x < image.width(); ++x) {
            const bool isGround = image.pixel(x, row) == qRgb(255, 255, 232);
            ground += isGround ? 1 : 0;
            const bool isBetween = image.pixel(x - 1, row) == qRgb(255, 255, 232) && !isGround;
            crossed += isBetween ? 1 : 0;
        }
        QVERIFY(ground > 100 * ratio);
        QCOMPARE(crossed, 1); // at their end
        hand.release(hand.at(QStringLiteral("18.06.2020 10:20")));
    }

    void upTo24Hours() {
        const WindowFixture fixture;
        fixture.chooseInterval(QUARTER_ROW);
        const DiagramHand hand(fixture);
        hand.drag(hand.at(QStringLiteral("18.06.2020 22:20")),
                  QPointF(hand.KS.width() - 5, 100)); // beyond the plot
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("18.06.2020 22:15 - 19.06.2020 00:00"));
    }

    void lessThanFivePixelsIsAClick() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        Loads loads(fixture);
        const QString before = text(fixture.shownRange());
        const QPointF place = hand.at(QStringLiteral("18.06.2020 12:00"));
        hand.drag(place, place + QPointF(4, 40));
        hand.drag(place, place - QPointF(4, 0));
        hand.drag(QPointF(10, 100), QPointF(200, 100)); // from beside the plot
        QCOMPARE(text(fixture.shownRange()), before);
        QCOMPARE(loads.count(), 0);
        hand.drag(place, place + QPointF(5, 0));
        QVERIFY(text(fixture.shownRange()) != before);
        QCOMPARE(loads.count(), 1);
    }

    void escapeEndsADragFirst() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        Loads loads(fixture);
        const QString before = text(fixture.shownRange());
        const QPointF from = hand.at(QStringLiteral("18.06.2020 12:00"));
        hand.press(from);
        hand.moveTo(from + QPointF(80, 0), Qt::LeftButton);
        QVERIFY(!band(hand).isEmpty());
        hand.key(Qt::Key_Escape);
        QCOMPARE(band(hand), QString());
        QVERIFY(!hand.text().isEmpty()); // the readout goes with the next one
        hand.moveTo(from + QPointF(90, 0), Qt::LeftButton);
        QCOMPARE(band(hand), QString());
        hand.release(from + QPointF(90, 0));
        QCOMPARE(text(fixture.shownRange()), before);
        QCOMPARE(loads.count(), 0);
        hand.key(Qt::Key_Escape);
        QCOMPARE(hand.text(), QString());
    }

    void theWheelZoomsAroundThePointer() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        Loads loads(fixture);
        const QString day = text(fixture.shownRange());
        hand.wheel(hand.at(QStringLiteral("18.06.2020 12:00")), 120);
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("18.06.2020 06:00 - 18.06.2020 18:00"));
        QCOMPARE(loads.count(), 1);
        hand.wheel(hand.at(QStringLiteral("18.06.2020 12:00")), -120);
        QCOMPARE(text(fixture.shownRange()), day);
        QCOMPARE(loads.count(), 1);
        hand.wheel(hand.at(QStringLiteral("18.06.2020 12:00")), 60); // half a step
        QCOMPARE(loads.count(), 0);
        hand.wheel(hand.at(QStringLiteral("18.06.2020 12:00")), 60);
        QCOMPARE(loads.count(), 1);
        hand.wheel(hand.at(QStringLiteral("18.06.2020 12:00")), 120, Qt::NoModifier); // without Ctrl
        QCOMPARE(loads.count(), 0);
        hand.wheel(hand.at(QStringLiteral("18.06.2020 12:00")), 120 * 20);
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("18.06.2020 12:00 - 18.06.2020 12:01"));
        QCOMPARE(loads.count(), 1);
        hand.wheel(hand.at(QStringLiteral("18.06.2020 12:00")), 120); // one interval is the minimum
        QCOMPARE(loads.count(), 0);
        hand.wheel(hand.at(QStringLiteral("18.06.2020 12:00")), -120 * 40);
        QVERIFY(pickedTime(fixture.shownRange().from).daysTo(pickedTime(fixture.shownRange().to)) == 366);
        loads.count();
        hand.wheel(QPointF(300, 200), -120);
        QCOMPARE(loads.count(), 0);
    }

    /// The wheel takes the focus from no picker.
    void theWheelTakesAnUnfinishedEntryFirst() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        const QPointF middle = hand.at(QStringLiteral("18.06.2020 12:00"));
        fixture.typePicker("DTPicker", QStringLiteral("17"));
        QCOMPARE(fixture.window->range().from, dateSerial(2020, 6, 18));
        hand.wheel(middle, 60); // half a step
        QCOMPARE(fixture.window->range().from, dateSerial(2020, 6, 18));
        hand.wheel(middle, 60);
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("17.06.2020 12:00 - 18.06.2020 12:00"));
    }

    void keysZoom() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        hand.key(Qt::Key_Plus, Qt::ControlModifier); // around the middle
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("18.06.2020 06:00 - 18.06.2020 18:00"));
        hand.key(Qt::Key_Minus, Qt::ControlModifier);
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("18.06.2020 00:00 - 19.06.2020 00:00"));
        hand.key(Qt::Key_Home); // around the readout
        hand.key(Qt::Key_Plus, Qt::ControlModifier | Qt::ShiftModifier);
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("18.06.2020 00:00 - 18.06.2020 12:00"));
    }

    void keysExtendABand() {
        const WindowFixture fixture;
        fixture.chooseInterval(QUARTER_ROW);
        const DiagramHand hand(fixture);
        Loads loads(fixture);
        hand.key(Qt::Key_Home);
        hand.key(Qt::Key_Right);
        hand.key(Qt::Key_Right, Qt::ShiftModifier);
        hand.key(Qt::Key_Right, Qt::ShiftModifier);
        QCOMPARE(band(hand), QStringLiteral("18.06.2020 00:15 - 18.06.2020 00:45"));
        hand.key(Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(band(hand), QStringLiteral("18.06.2020 00:15 - 18.06.2020 00:30"));
        hand.key(Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(band(hand), QString());
        hand.key(Qt::Key_Left, Qt::ShiftModifier);
        QCOMPARE(band(hand), QStringLiteral("18.06.2020 00:00 - 18.06.2020 00:15"));
        hand.key(Qt::Key_Escape);
        QCOMPARE(band(hand), QString());
        QVERIFY(!hand.text().isEmpty());
        QCOMPARE(loads.count(), 0);
        hand.key(Qt::Key_Return); // nothing to take
        QCOMPARE(loads.count(), 0);
        hand.key(Qt::Key_Right, Qt::ShiftModifier);
        hand.key(Qt::Key_Right, Qt::ShiftModifier);
        hand.key(Qt::Key_Return);
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("18.06.2020 00:00 - 18.06.2020 00:30"));
        QCOMPARE(loads.count(), 1);
    }

    void backAndForward() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        QAction& back = fixture.the<QAction>("menZurueck");
        QAction& forward = fixture.the<QAction>("menVor");
        QVERIFY(!back.isEnabled() && !forward.isEnabled());
        const QString first = text(fixture.shownRange());
        hand.wheel(hand.at(QStringLiteral("18.06.2020 12:00")), 120);
        const QString second = text(fixture.shownRange());
        fixture.click("Command8"); // by another control
        const QString third = text(fixture.shownRange());
        fixture.chooseChannel(DUST_ROW); // the same range
        Loads loads(fixture);
        QTest::keyClick(fixture.window.get(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(text(fixture.shownRange()), second);
        QCOMPARE(loads.count(), 1);
        QTest::keyClick(&fixture.the<QLineEdit>("Text1"), Qt::Key_Left,
                        Qt::AltModifier); // wherever the focus is
        QCOMPARE(text(fixture.shownRange()), first);
        QTest::keyClick(fixture.window.get(), Qt::Key_Left, Qt::AltModifier);
        QCOMPARE(text(fixture.shownRange()), first);
        QTest::keyClick(fixture.window.get(), Qt::Key_Right, Qt::AltModifier);
        QCOMPARE(text(fixture.shownRange()), second);
        QTest::keyClick(fixture.window.get(), Qt::Key_Forward);
        QCOMPARE(text(fixture.shownRange()), third);
        QTest::keyClick(fixture.window.get(), Qt::Key_Back);
        QCOMPARE(text(fixture.shownRange()), second);
        QVERIFY(back.isEnabled() && forward.isEnabled());
        QTest::keyClick(&hand.KS, Qt::Key_Backspace); // does not go back
        QCOMPARE(text(fixture.shownRange()), second);
        fixture.click("Command3"); // discards the ranges ahead
        QVERIFY(!forward.isEnabled());
        back.trigger();
        QCOMPARE(text(fixture.shownRange()), second);
    }

    void mouseButtonsGoBackAndForward() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        const QString first = text(fixture.shownRange());
        hand.wheel(hand.at(QStringLiteral("18.06.2020 12:00")), 120);
        const QString second = text(fixture.shownRange());
        const auto press = [&](const char* control, Qt::MouseButton button) {
            QTest::mouseClick(&fixture.the<QWidget>(control), button);
        };
        press("KS", Qt::BackButton);
        QCOMPARE(text(fixture.shownRange()), first);
        press("Frame5", Qt::ForwardButton);
        QCOMPARE(text(fixture.shownRange()), second);
        press("Command3", Qt::BackButton);
        QCOMPARE(text(fixture.shownRange()), first);
    }

    void backKeepsExactTimes() {
        const WindowFixture fixture;
        fixture.arrange({QStringLiteral("18.06.2020 10:07"), QStringLiteral("18.06.2020 11:13")}, MINUTE_ROW);
        const QString odd = text(fixture.shownRange());
        QCOMPARE(odd, QStringLiteral("18.06.2020 10:07 - 18.06.2020 11:13"));
        fixture.chooseInterval(QUARTER_ROW);
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("18.06.2020 10:00 - 18.06.2020 11:00"));
        for (int i = 0; i < 3 && text(fixture.shownRange()) != odd; ++i) { // the keys passed other intervals
            QTest::keyClick(fixture.window.get(), Qt::Key_Left, Qt::AltModifier);
        }
        QCOMPARE(text(fixture.shownRange()), odd);
    }

    void anotherProjectForgets() {
        const WindowFixture fixture;
        fixture.click("Command8");
        QVERIFY(fixture.the<QAction>("menZurueck").isEnabled());
        fixture.window->readConf(fixture.folder->at("QEL.ini"));
        QVERIFY(!fixture.the<QAction>("menZurueck").isEnabled());
        fixture.window->LoadData();
        QVERIFY(!fixture.the<QAction>("menZurueck").isEnabled());
    }

    void presets() {
        const WindowFixture fixture;
        fixture.arrange({QStringLiteral("18.06.2020 10:00"), QStringLiteral("18.06.2020 11:00")}, MINUTE_ROW);
        Loads loads(fixture);
        struct Row {
            const char* name;
            Qt::Key key;
            const char* range;
        };
        const Row rows[] = {
            {"menTag", Qt::Key_1, "18.06.2020 00:00 - 19.06.2020 00:00"},
            {"menWoche", Qt::Key_2, "15.06.2020 00:00 - 22.06.2020 00:00"},
            {"menMonat", Qt::Key_3, "01.06.2020 00:00 - 01.07.2020 00:00"},
            {"menJahr", Qt::Key_4, "01.01.2020 00:00 - 01.01.2021 00:00"},
        };
        for (const Row& row : rows) {
            fixture.trigger(row.name);
            QCOMPARE(text(fixture.shownRange()), QString::fromUtf8(row.range));
            QCOMPARE(loads.count(), 1);
        }
        fixture.arrange({QStringLiteral("18.06.2020 10:00"), QStringLiteral("18.06.2020 11:00")}, MINUTE_ROW);
        for (const Row& row : rows) {
            QTest::keyClick(&fixture.the<QLineEdit>("Text1"), row.key, Qt::ControlModifier);
            QCOMPARE(text(fixture.shownRange()), QString::fromUtf8(row.range));
        }
    }

    void theMenuOffersThem() {
        const WindowFixture fixture;
        const auto& menu = fixture.the<QMenu>("menKS");
        QStringList texts;
        for (const QAction* action : menu.actions()) {
            if (!action->isSeparator() && !action->isCheckable()) {
                texts << action->text();
            }
        }
        QCOMPARE(texts.mid(0, 3), QStringList({QStringLiteral("Zeitrau&m"), QStringLiteral("Zurü&ck"),
                                               QStringLiteral("&Vor")}));
        fixture.trigger("menRichtung"); // what is no kind is not ticked and stays visible
        QVERIFY(fixture.the<QAction>("menZurueck").isVisible());
        QVERIFY(!fixture.the<QAction>("menVor").isCheckable());
    }

    void aKindComesBackWithItsChannel() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        fixture.trigger("menNiederschlag");
        fixture.chooseChannel(WIND_ROW);
        QCOMPARE(hand.KS.DiagTyp(), KIND_LINE); // not seen yet
        Loads loads(fixture);
        fixture.trigger("menPolar");
        QCOMPARE(loads.count(), 2); // direction and speed
        fixture.chooseChannel(DUST_ROW);
        QCOMPARE(hand.KS.DiagTyp(), KIND_LINE);
        fixture.chooseChannel(WIND_ROW);
        QCOMPARE(hand.KS.DiagTyp(), KIND_POLAR);
        QVERIFY(hand.KS.ListCount() > 0);
        fixture.chooseChannel(0);
        QCOMPARE(hand.KS.DiagTyp(), KIND_PRECIPITATION);
        fixture.window->readConf(fixture.folder->at("QEL.ini"));
        fixture.window->LoadData();
        QCOMPARE(hand.KS.DiagTyp(), KIND_LINE);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_choose_test)
#include "f_choose_test.moc"
