// SPDX-License-Identifier: GPL-3.0-or-later
// Reading values from the picture by pointer and by keys, on screens with one and two dots per pixel.
#include "tests/app/DiagramHand.h"

#include <QAccessible>
#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <cmath>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr int WIND_ROW = 1; // of the channel list
constexpr int DUST_ROW = 2;
constexpr int DAY_ROW = 5; // of the intervals
constexpr int HOUR_ROW = 4;

const ShownRange TEST_DAY_RANGE = {QStringLiteral("18.06.2020 00:00"), QStringLiteral("19.06.2020 00:00")};

/// The wind speed of a minute of the test day, as the made station has it.
double speedOf(int minute) { return 4 + 3 * std::sin(minute / 200.0); }

QString shown(double v) { return QString::fromStdString(shownNumber(v, {})); }

} // namespace

class f_readout_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void pointerReadsTheNearestValue() {
        const WindowFixture fixture;
        fixture.arrange({QStringLiteral("18.06.2020 02:00"), QStringLiteral("18.06.2020 03:00")}, 0);
        const DiagramHand hand(fixture);
        const int drawings = hand.KS.drawings();
        const int opened = fixture.files.opened;
        for (const int minute : {120, 121, 150, 179}) {
            hand.moveTo(
                hand.at(QStringLiteral("18.06.2020 02:%1").arg(minute - 120, 2, 10, QLatin1Char('0'))));
            QCOMPARE(hand.text(), QStringLiteral("18.06.2020 02:%1, %2 m/s")
                                      .arg(minute - 120, 2, 10, QLatin1Char('0'))
                                      .arg(shown(speedOf(minute))));
        }
        QCOMPARE(hand.KS.drawings(), drawings);
        QCOMPARE(fixture.files.opened, opened);
    }

    /// The line is at the value, not at the pointer, and the ring is on it.
    void lineAndRingLieAtTheValue() {
        const WindowFixture fixture;
        fixture.arrange({QStringLiteral("18.06.2020 10:00"), QStringLiteral("18.06.2020 10:10")}, 0);
        const DiagramHand hand(fixture);
        const double ratio = hand.KS.devicePixelRatioF();
        hand.moveTo(hand.at(QStringLiteral("18.06.2020 10:04")) + QPointF(9, 0));
        const QImage image = hand.painted();
        const int x = static_cast<int>(std::lround(hand.at(QStringLiteral("18.06.2020 10:04")).x() * ratio));
        const int y = static_cast<int>(std::lround((50 + 5) * ratio));
        int found = -1;
        for (int at = x - static_cast<int>(3 * ratio); at <= x + static_cast<int>(3 * ratio); ++at) {
            if (image.pixelColor(at, y).alpha() > 0) {
                found = at;
                break;
            }
        }
        QVERIFY2(std::abs(found - x) <= 1, qPrintable(QString::number(found - x)));
        // The scale goes from −5 to 5 at the start.
        const double height = (hand.KS.height() - 90) * ratio;
        const double value = speedOf(604);
        const int ringY =
            static_cast<int>(std::lround((hand.KS.height() - 40) * ratio - (value + 5) / 10 * height));
        const int radius = static_cast<int>(std::lround(4 * ratio));
        QVERIFY(image.pixelColor(x + radius, ringY).alpha() > 0);
        QVERIFY(image.pixelColor(x - radius, ringY).alpha() > 0);
    }

    void gapsAreShown() {
        const WindowFixture fixture; // no values from 05:00 to 06:59
        const DiagramHand hand(fixture);
        for (const char* time : {"18.06.2020 05:10", "18.06.2020 06:00", "18.06.2020 06:50"}) {
            hand.moveTo(QString::fromUtf8(time));
            QCOMPARE(hand.text(), QStringLiteral("kein Wert"));
        }
        hand.moveTo(QStringLiteral("18.06.2020 04:50"));
        QVERIFY(hand.text().contains(QStringLiteral("m/s")));
    }

    /// A view of many minutes: several share a column of dots.
    void aColumnOfDotsTellsItsSpread() {
        const WindowFixture fixture;
        fixture.arrange({QStringLiteral("18.06.2020 00:00"), QStringLiteral("20.06.2020 00:00")}, 0);
        fixture.window->LoadData(); // the dates alone were set from code
        fixture.window->resize(420, 500);
        const DiagramHand hand(fixture);
        const double ratio = hand.KS.devicePixelRatioF();
        const double dots = (hand.KS.width() - 70) * ratio;
        const auto columnOf = [&](int minute) { return std::nearbyint(40 * ratio + minute * dots / 2880); };
        QVERIFY(2880 / dots > 2);
        for (const int minute : {0, 720, 1001, 2000, 2879}) { // of both days
            hand.moveTo(QStringLiteral("%1.06.2020 %2:%3")
                            .arg(18 + minute / 1440)
                            .arg(minute / 60 % 24, 2, 10, QLatin1Char('0'))
                            .arg(minute % 60, 2, 10, QLatin1Char('0')));
            const QStringList parts = hand.text().split(QStringLiteral(", "));
            QCOMPARE(parts.size(), 3);
            const int read = parts[0].mid(11, 2).toInt() * 60 + parts[0].mid(14, 2).toInt() +
                             (parts[0].startsWith(QStringLiteral("19")) ? 1440 : 0);
            double smallest = 100;
            double greatest = 0;
            int count = 0;
            for (int i = 0; i < 2880; ++i) {
                if (columnOf(i) == columnOf(read) && (i < 300 || i >= 420)) {
                    smallest = std::min(smallest, speedOf(i));
                    greatest = std::max(greatest, speedOf(i));
                    ++count;
                }
            }
            QCOMPARE(
                parts[2],
                QStringLiteral("%1 Werte: %2 bis %3 m/s").arg(count).arg(shown(smallest), shown(greatest)));
        }
    }

    void directionsHaveACompassPoint() {
        const WindowFixture fixture;
        fixture.chooseChannel(WIND_ROW);
        fixture.arrange({QStringLiteral("18.06.2020 02:00"), QStringLiteral("18.06.2020 03:00")}, 0);
        const DiagramHand hand(fixture);
        hand.moveTo(QStringLiteral("18.06.2020 02:00"));
        QVERIFY2(hand.text().endsWith(QStringLiteral("Grad NNW")), qPrintable(hand.text())); // 342 degrees
    }

    void outsideOfThePlotNothingIsRead() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        hand.moveTo(QStringLiteral("18.06.2020 12:00"));
        QVERIFY(!hand.text().isEmpty());
        hand.moveTo(QPointF(20, 200)); // beside the axis
        QCOMPARE(hand.text(), QString());
        hand.moveTo(QStringLiteral("18.06.2020 12:00"));
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&hand.KS, &leave);
        QCOMPARE(hand.text(), QString());
        const QImage image = hand.painted();
        QImage nothing(image.size(), image.format());
        nothing.fill(Qt::transparent);
        nothing.setDevicePixelRatio(image.devicePixelRatio());
        QVERIFY(image == nothing);
    }

    void keysGoFromValueToValue() {
        const WindowFixture fixture;
        fixture.arrange(TEST_DAY_RANGE, HOUR_ROW);
        const DiagramHand hand(fixture);
        const auto time = [&] { return hand.text().left(16); };
        hand.key(Qt::Key_Right); // without a readout: the first value
        QCOMPARE(time(), QStringLiteral("18.06.2020 00:00"));
        hand.key(Qt::Key_Right);
        QCOMPARE(time(), QStringLiteral("18.06.2020 01:00"));
        hand.key(Qt::Key_Left);
        QCOMPARE(time(), QStringLiteral("18.06.2020 00:00"));
        hand.key(Qt::Key_Left); // stays at the first
        QCOMPARE(time(), QStringLiteral("18.06.2020 00:00"));
        for (int i = 0; i < 5; ++i) {
            hand.key(Qt::Key_Right);
        }
        QCOMPARE(time(), QStringLiteral("18.06.2020 07:00")); // over the gap
        hand.key(Qt::Key_End);
        QCOMPARE(time(), QStringLiteral("18.06.2020 23:00"));
        hand.key(Qt::Key_Home);
        QCOMPARE(time(), QStringLiteral("18.06.2020 00:00"));
        hand.key(Qt::Key_Escape);
        QCOMPARE(hand.text(), QString());
        hand.key(Qt::Key_Left);
        QCOMPARE(time(), QStringLiteral("18.06.2020 23:00"));
    }

    void keysGoByDays() {
        const WindowFixture fixture;
        fixture.arrange({QStringLiteral("18.06.2020 00:00"), QStringLiteral("20.06.2020 00:00")}, HOUR_ROW);
        fixture.window->LoadData(); // the dates alone were set from code
        const DiagramHand hand(fixture);
        hand.key(Qt::Key_Home);
        hand.key(Qt::Key_Right);
        hand.key(Qt::Key_Right);
        hand.key(Qt::Key_Right, Qt::ControlModifier);
        QCOMPARE(hand.text().left(16), QStringLiteral("19.06.2020 02:00"));
        hand.key(Qt::Key_Right);
        hand.key(Qt::Key_Right);
        hand.key(Qt::Key_Right);
        hand.key(Qt::Key_Right); // 06:00 is in the gap of the day before
        hand.key(Qt::Key_Left, Qt::ControlModifier);
        QCOMPARE(hand.text().left(16), QStringLiteral("18.06.2020 07:00"));
    }

    void aMarkTellsDifferences() {
        const WindowFixture fixture;
        fixture.arrange(TEST_DAY_RANGE, HOUR_ROW);
        const DiagramHand hand(fixture);
        hand.key(Qt::Key_Home);
        hand.key(Qt::Key_Space);
        QVERIFY2(hand.text().endsWith(QStringLiteral("Abstand 0 min, Differenz 0,0 m/s")),
                 qPrintable(hand.text()));
        hand.key(Qt::Key_Right);
        hand.key(Qt::Key_Right);
        QVERIFY2(hand.text().contains(QStringLiteral("Abstand +2 h, Differenz +")), qPrintable(hand.text()));
        hand.key(Qt::Key_Escape);
        hand.key(Qt::Key_Home);
        QVERIFY(!hand.text().contains(QStringLiteral("Abstand")));
    }

    void theReadoutIsTheAccessibleValue() {
        const WindowFixture fixture;
        fixture.arrange(TEST_DAY_RANGE, HOUR_ROW);
        const DiagramHand hand(fixture);
        // The platform of the tests reports to no reader of the screen: what is reported goes with this
        // signal.
        const QSignalSpy reports(&hand.overlay, &ReadoutOverlay::readOut);
        hand.key(Qt::Key_Home);
        QCOMPARE(reports.count(), 1);
        QAccessibleInterface* face = QAccessible::queryAccessibleInterface(&hand.KS);
        QVERIFY(face != nullptr);
        QCOMPARE(face->text(QAccessible::Value), hand.text());
        QVERIFY(face->valueInterface() != nullptr);
        QCOMPARE(face->valueInterface()->currentValue().toDouble(), *hand.overlay.readValue());

        hand.moveTo(QStringLiteral("18.06.2020 10:00"));
        hand.moveTo(QStringLiteral("18.06.2020 11:00"));
        QCOMPARE(reports.count(), 1); // a moving pointer says nothing
        QTRY_COMPARE(reports.count(), 2);
        QVERIFY(face->text(QAccessible::Value).startsWith(QStringLiteral("18.06.2020 11:00")));
        hand.key(Qt::Key_Escape);
        QCOMPARE(reports.count(), 3);
        QCOMPARE(face->text(QAccessible::Value), QString());
    }

    void theReadoutFollowsThePicture() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        hand.moveTo(QStringLiteral("18.06.2020 12:00"));
        const QString wind = hand.text();
        fixture.chooseChannel(DUST_ROW);
        QVERIFY(hand.text() != wind);
        QVERIFY2(hand.text().contains(QStringLiteral("µg/m³")), qPrintable(hand.text()));
    }

    /// While a slow file is read, the picture shown is still that of before, and so is what is read from it.
    void duringALoadTheShownPictureIsRead() {
        WindowFixture fixture;
        const DiagramHand hand(fixture);
        hand.moveTo(QStringLiteral("18.06.2020 02:00"));
        const QString noon = [&] {
            hand.moveTo(QStringLiteral("18.06.2020 12:00"));
            return hand.text();
        }();
        hand.moveTo(QStringLiteral("18.06.2020 02:00"));
        QStringList seen;
        fixture.files.onRead = [&] {
            hand.moveTo(QStringLiteral("18.06.2020 12:00"));
            seen << hand.text();
        };
        fixture.chooseChannel(DUST_ROW);
        fixture.files.onRead = {};
        QVERIFY(!seen.isEmpty());
        for (const QString& text : seen) {
            QCOMPARE(text, noon);
        }
        QVERIFY(hand.text().contains(QStringLiteral("µg/m³")));
    }

    /// Without a pointer in the plot nothing is kept of the old picture: nothing is read out then, and no
    /// nonsense.
    void aPointerThatComesDuringALoadReadsTheNewPicture() {
        WindowFixture fixture;
        const DiagramHand hand(fixture);
        QStringList seen;
        fixture.files.onRead = [&] {
            hand.moveTo(QStringLiteral("18.06.2020 12:00"));
            seen << hand.text();
        };
        fixture.chooseChannel(DUST_ROW);
        fixture.files.onRead = {};
        QCOMPARE(QStringList(seen.mid(0, 1)), QStringList(QString()));
        QVERIFY(hand.text().contains(QStringLiteral("µg/m³")));
    }

    void edges() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        const auto middle = [&] { return QPointF(hand.KS.width() / 2.0, hand.KS.height() / 2.0); };
        fixture.arrange({QStringLiteral("18.06.2019 00:00"), QStringLiteral("19.06.2019 00:00")}, 0);
        fixture.window->LoadData(); // the dates alone were set from code
        hand.moveTo(middle());      // no file of that year
        QCOMPARE(hand.text(), QStringLiteral("kein Wert"));
        for (const Qt::Key key : {Qt::Key_Left, Qt::Key_Right, Qt::Key_Home, Qt::Key_End, Qt::Key_Space}) {
            hand.key(key);
            hand.key(key, Qt::ShiftModifier);
        }
        hand.key(Qt::Key_Escape);
        fixture.arrange({QStringLiteral("18.06.2020 12:00"), QStringLiteral("18.06.2020 12:01")}, 0);
        hand.moveTo(middle());
        QVERIFY2(hand.text().startsWith(QStringLiteral("18.06.2020 12:00, ")), qPrintable(hand.text()));
        fixture.arrange({QStringLiteral("18.06.2020 12:00"), QStringLiteral("18.06.2020 12:00")}, 0);
        hand.moveTo(middle()); // no time scale
        QCOMPARE(hand.text(), QString());
        hand.key(Qt::Key_Right);
        QCOMPARE(hand.text(), QString());
        fixture.arrange({QStringLiteral("01.01.2020 00:00"), QStringLiteral("31.12.2020 00:00")}, DAY_ROW);
        hand.key(Qt::Key_End);
        QVERIFY2(hand.text().startsWith(QStringLiteral("19.06.2020 00:00, ")), qPrintable(hand.text()));
    }

    void aRoseTellsItsSectors() {
        const WindowFixture fixture;
        fixture.chooseChannel(WIND_ROW);
        fixture.trigger("menPolar");
        const DiagramHand hand(fixture);
        const QPointF centre(hand.KS.width() / 2.0, hand.KS.height() / 2.0 + 10);
        hand.moveTo(centre - QPointF(0, 30));
        QVERIFY2(hand.text().startsWith(QStringLiteral("345° bis 15° (N), ")), qPrintable(hand.text()));
        QVERIFY(hand.text().contains(QStringLiteral("Windstille: ")));
        hand.moveTo(centre + QPointF(30, 0));
        QVERIFY2(hand.text().startsWith(QStringLiteral("75° bis 105° (O), ")), qPrintable(hand.text()));
        hand.moveTo(QPointF(3, 3));
        QCOMPARE(hand.text(), QString());
        hand.key(Qt::Key_Right);
        QVERIFY2(hand.text().startsWith(QStringLiteral("345° bis 15° (N), ")), qPrintable(hand.text()));
        hand.key(Qt::Key_Right);
        QVERIFY2(hand.text().startsWith(QStringLiteral("15° bis 45° (NNO), ")), qPrintable(hand.text()));
        hand.key(Qt::Key_Left);
        hand.key(Qt::Key_Left);
        QVERIFY2(hand.text().startsWith(QStringLiteral("315° bis 345°")), qPrintable(hand.text()));
    }

    /// The overlay is no part of the picture, and a click alone still does nothing.
    void thePictureStaysAsItIs() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        const QImage before = hand.KS.picture().toImage();
        const ShownRange range = fixture.shownRange();
        const int opened = fixture.files.opened;
        hand.moveTo(QStringLiteral("18.06.2020 12:00"));
        hand.key(Qt::Key_Space);
        hand.press(hand.at(QStringLiteral("18.06.2020 12:00")));
        hand.release(hand.at(QStringLiteral("18.06.2020 12:00")) + QPointF(4, 0));
        QCOMPARE(hand.KS.picture().toImage(), before);
        QCOMPARE(fixture.shownRange().from, range.from);
        QCOMPARE(fixture.files.opened, opened);
        QVERIFY(hand.overlay.testAttribute(Qt::WA_TransparentForMouseEvents));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_readout_test)
#include "f_readout_test.moc"
