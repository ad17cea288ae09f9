// SPDX-License-Identifier: GPL-3.0-or-later
// A second channel in the diagram, against the right axis, on screens with one and two dots per pixel.
#include "tests/app/DiagramHand.h"
#include "tests/app/SecondChannelHand.h"

#include <QAction>
#include <QMenu>
#include <QTest>
#include <algorithm>
#include <cmath>
#include <vector>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr Colour VIOLET = 0x800080;

/// Whether a dot within `reach` pixels of a place has a colour.
bool hasColour(const PolarSys& KS, QPointF place, Colour colour, double reach = 2) {
    const double ratio = KS.devicePixelRatioF();
    const QImage image = KS.picture().toImage();
    const QRgb wanted = qRgb(colour & 0xFF, colour >> 8 & 0xFF, colour >> 16 & 0xFF);
    const auto from = [&](double v) { return static_cast<int>(std::floor((v - reach) * ratio)); };
    const auto to = [&](double v) { return static_cast<int>(std::ceil((v + reach) * ratio)); };
    for (int y = from(place.y()); y <= to(place.y()); ++y) {
        for (int x = from(place.x()); x <= to(place.x()); ++x) {
            if (image.valid(x, y) && image.pixel(x, y) == wanted) {
                return true;
            }
        }
    }
    return false;
}

/// The height of a value of series 2 in the control, from the margins and the right range.
double heightOf(const PolarSys& KS, double value) {
    return KS.height() - 40 - (value - KS.Y2Low()) / (KS.Y2High() - KS.Y2Low()) * (KS.height() - 90);
}

/// Whether the overlay has a ring around a place: its right end, to a dot.
bool hasRing(const DiagramHand& hand, const QPointF& place) {
    const double ratio = hand.KS.devicePixelRatioF();
    const QImage image = hand.painted();
    const QPoint end = (QPointF(place.x() + 4, place.y()) * ratio).toPoint();
    for (const int right : {-1, 0, 1}) {
        for (const int down : {-1, 0, 1}) {
            if (image.pixelColor(end + QPoint(right, down)).alpha() > 0) {
                return true;
            }
        }
    }
    return false;
}

} // namespace

class f_second_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void allChannelsAreOffered() {
        const WindowFixture fixture;
        QCOMPARE(
            offered(fixture),
            QStringList({QStringLiteral("menKanal(4) Windgeschwindigkeit"),
                         QStringLiteral("menKanal(5) Windrichtung"), QStringLiteral("menKanal(7) Staub"),
                         QStringLiteral("menKanal(12) Niederschlag"), QStringLiteral("menKeiner &Keiner*")}));
        QStringList names;
        for (const QAction* action : fixture.the<QMenu>("menKS").actions()) {
            names << action->objectName();
        }
        const auto at = names.indexOf(QStringLiteral("menZweiter"));
        QVERIFY(at > 0);
        QCOMPARE(names.mid(at - 1, 3),
                 QStringList({QStringLiteral("menLetzter"), QStringLiteral("menZweiter"),
                              QStringLiteral("menBild")}));
        QCOMPARE(fixture.the<QMenu>("menZweiter").title(), QStringLiteral("&Zweiter Kanal"));
        expectWithout(fixture.the<PolarSys>("KS"));
    }

    void itIsDrawnAgainstTheRightAxis() {
        const WindowFixture fixture;
        fixture.chooseInterval(HOUR_ROW);
        const DiagramHand hand(fixture);
        const auto first = validOf(rowOf(hand.KS, SeriesTable::Y1));
        const int drawings = hand.KS.drawings();
        const int opened = fixture.files.opened;
        chooseSecond(fixture, "menKanal(7)");
        QCOMPARE(hand.KS.drawings(), drawings + 1); // one load
        QCOMPARE(fixture.files.opened, opened + 2); // of both files
        QVERIFY(offered(fixture).contains(QStringLiteral("menKanal(7) Staub*")));

        QCOMPARE(validOf(rowOf(hand.KS, SeriesTable::Y1)), first);
        const auto dust = validOf(rowOf(hand.KS, SeriesTable::Y2));
        QCOMPARE(dust.size(), 24U);
        const auto [low, high] = std::minmax_element(dust.begin(), dust.end());
        QCOMPARE(hand.KS.Y2Low(), *low - (*high - *low) * 0.05);
        QCOMPARE(hand.KS.Y2High(), *high + (*high - *low) * 0.05);
        QCOMPARE(hand.KS.D2(), VIOLET);
        QCOMPARE(hand.KS.Y2axe(), VIOLET);
        QCOMPARE(hand.KS.AchseText(), std::string("Windgeschwindigkeit [m/s];Staub [µg/m³]"));
        QCOMPARE(hand.KS.Einheit(), std::string());
        for (const int hour : {3, 6, 20}) { // 06:00 is a gap of the wind
            const QPointF at = hand.at(QStringLiteral("18.06.2020 %1:00").arg(hour, 2, 10, QLatin1Char('0')));
            const double y = heightOf(hand.KS, dust[static_cast<std::size_t>(hour)]);
            QVERIFY(hasColour(hand.KS, QPointF(at.x(), y), VIOLET));
            QVERIFY(!hasColour(hand.KS, QPointF(at.x(), y < 300 ? y + 40 : y - 40), VIOLET));
        }
        QVERIFY(hasColour(hand.KS, QPointF(hand.KS.width() - 30, 300), VIOLET, 1)); // the axis
    }

    /// Not a dot of it is left.
    void withoutItEverythingIsAsBefore() {
        const WindowFixture fixture;
        fixture.chooseInterval(HOUR_ROW);
        auto& KS = fixture.the<PolarSys>("KS");
        const QImage before = KS.picture().toImage();
        const DiagramProperties properties = KS.properties();
        const SeriesTable table = seriesTable();
        const QString text = copied(fixture);
        chooseSecond(fixture, "menKanal(7)");
        QVERIFY(KS.picture().toImage() != before);
        chooseSecond(fixture, "menKeiner");
        expectWithout(KS);
        QVERIFY(KS.properties() == properties);
        QVERIFY(seriesTable() == table);
        QVERIFY(KS.picture().toImage() == before);
        QCOMPARE(copied(fixture), text);
    }

    void theReadoutShowsBoth() {
        const WindowFixture fixture;
        fixture.chooseInterval(HOUR_ROW);
        chooseSecond(fixture, "menKanal(7)");
        const DiagramHand hand(fixture);
        const auto shown = [](double v) { return QString::fromStdString(shownNumber(v, {})); };
        const auto dust = validOf(rowOf(hand.KS, SeriesTable::Y2));
        hand.moveTo(QStringLiteral("18.06.2020 06:00")); // a gap of the wind alone
        QCOMPARE(hand.text(),
                 QStringLiteral("18.06.2020 06:00, Windgeschwindigkeit: kein Wert, Staub: %1 µg/m³")
                     .arg(shown(dust[6])));
        hand.key(Qt::Key_Home);
        QCOMPARE(hand.text(), QStringLiteral("18.06.2020 00:00, Windgeschwindigkeit: %1 m/s, Staub: %2 µg/m³")
                                  .arg(shown(rowOf(hand.KS, SeriesTable::Y1)[0]), shown(dust[0])));
        QVERIFY(hasRing(hand, QPointF(40, heightOf(hand.KS, dust[0]))));

        hand.key(Qt::Key_Space);
        hand.key(Qt::Key_Right);
        QVERIFY2(hand.text().contains(QStringLiteral("Differenz Staub: ")), qPrintable(hand.text()));
        for (int i = 0; i < 4; ++i) {
            hand.key(Qt::Key_Right); // a step to each value of either channel
        }
        QVERIFY2(hand.text().startsWith(QStringLiteral("18.06.2020 05:00, Windgeschwindigkeit: kein Wert")),
                 qPrintable(hand.text()));
        chooseSecond(fixture, "menKeiner");
        hand.key(Qt::Key_Home);
        QVERIFY2(!hand.text().contains(QStringLiteral("Staub")), qPrintable(hand.text()));
        QVERIFY2(!hand.text().contains(QStringLiteral("Windgeschwindigkeit")), qPrintable(hand.text()));
    }

    /// The kind of series 2 is that of series 1.
    void rainAsBars() {
        const WindowFixture fixture;
        fixture.chooseInterval(HOUR_ROW);
        fixture.chooseChannel(RAIN_ROW);
        fixture.trigger("menNiederschlag");
        chooseSecond(fixture, "menKanal(7)");
        const DiagramHand hand(fixture);
        const auto dust = validOf(rowOf(hand.KS, SeriesTable::Y2));
        const QPointF hour = hand.at(QStringLiteral("18.06.2020 21:30")); // no rain
        const double top = heightOf(hand.KS, dust[21]);
        const double foot = hand.KS.height() - 40;
        QVERIFY(foot - top > 40);
        QVERIFY(hasColour(hand.KS, QPointF(hour.x(), (top + foot) / 2), VIOLET, 1));
        QVERIFY(!hasColour(hand.KS, QPointF(hour.x(), top - 10), VIOLET, 1));
    }

    void theFirstOneAgain() {
        const WindowFixture fixture;
        fixture.chooseInterval(HOUR_ROW);
        chooseSecond(fixture, "menKanal(4)");
        auto& KS = fixture.the<PolarSys>("KS");
        QCOMPARE(rowOf(KS, SeriesTable::Y2), rowOf(KS, SeriesTable::Y1));
        QCOMPARE(KS.AchseText(), std::string("Windgeschwindigkeit [m/s];Windgeschwindigkeit [m/s]"));
    }

    /// Averaged as directions are, whatever the first channel is.
    void aDirection() {
        const WindowFixture fixture;
        fixture.chooseInterval(HOUR_ROW);
        fixture.chooseChannel(WIND_ROW);
        auto& KS = fixture.the<PolarSys>("KS");
        const auto directions = validOf(rowOf(KS, SeriesTable::Y1));
        fixture.chooseChannel(DUST_ROW);
        chooseSecond(fixture, "menKanal(5)");
        QCOMPARE(validOf(rowOf(KS, SeriesTable::Y2)), directions);
        const DiagramHand hand(fixture);
        hand.key(Qt::Key_Home);
        QVERIFY2(hand.text().contains(QStringLiteral(" Grad NNW")), qPrintable(hand.text()));
    }

    /// Joined over north the curve lies a full circle higher, and so does its ring.
    void aDirectionOverNorth() {
        MadeStation made = madeStation();
        for (int hour = 0; hour < 24; ++hour) {
            for (int minute = 0; minute < 60; ++minute) {
                const auto at = static_cast<std::size_t>(TEST_DAY_MINUTE + hour * 60 + minute);
                made.minutes[4][at] = 4; // far from the ring below
                made.minutes[5][at] = hour < 10 ? 350 : 20;
            }
        }
        const WindowFixture fixture(made);
        fixture.chooseInterval(HOUR_ROW);
        chooseSecond(fixture, "menKanal(5)");
        fixture.trigger("menRichtung");
        const DiagramHand hand(fixture);
        hand.KS.setY2Low(0);
        hand.KS.setY2High(540);
        hand.KS.Draw();
        hand.key(Qt::Key_Home);
        for (int hour = 0; hour < 10; ++hour) {
            hand.key(Qt::Key_Right);
        }
        const QPointF north(hand.at(QStringLiteral("18.06.2020 10:00")).x(), heightOf(hand.KS, 380));
        QVERIFY(hasColour(hand.KS, north, VIOLET));
        QVERIFY(hasRing(hand, north));
    }

    void withoutValuesTheRightAxisIsAsAlways() {
        MadeStation made = madeStation();
        made.ini += "CHAN08|Ohne Datei|°C|-20|40||0|1|2|1|0|0|LT\n";
        const WindowFixture fixture(made);
        auto& KS = fixture.the<PolarSys>("KS");
        const auto wind = rowOf(KS, SeriesTable::Y1);
        chooseSecond(fixture, "menKanal(8)"); // without a file
        QCOMPARE(rowOf(KS, SeriesTable::Y1), wind);
        QCOMPARE(KS.Y2Low(), 0.0);
        QCOMPARE(KS.Y2High(), 100.0);
        QCOMPARE(KS.AchseText(), std::string("Windgeschwindigkeit [m/s];Ohne Datei [°C]"));
        const DiagramHand hand(fixture);
        hand.key(Qt::Key_Home);
        QVERIFY2(hand.text().endsWith(QStringLiteral("Ohne Datei: kein Wert")), qPrintable(hand.text()));
        fixture.chooseChannel(RAIN_ROW); // channel 8, since the list goes by number
        chooseSecond(fixture, "menKanal(7)");
        QCOMPARE(validOf(rowOf(KS, SeriesTable::Y1)).size(), 0U);
        QVERIFY(validOf(rowOf(KS, SeriesTable::Y2)).size() > 1000);
    }

    /// A single value, and one that would be the marker of the control's own range.
    void aRangeWithoutHeight() {
        MadeStation made = madeStation();
        for (double& v : made.minutes[7]) {
            v = v == 0 ? 0 : -1;
        }
        const WindowFixture fixture(made);
        chooseSecond(fixture, "menKanal(7)");
        auto& KS = fixture.the<PolarSys>("KS");
        QCOMPARE(KS.Y2Low(), -1.0);
        QCOMPARE(KS.Y2High(), 99.0);
    }

    void captionsKeepTheirPlaces() {
        MadeStation made = madeStation();
        made.ini += "CHAN08|Gas; trocken|mg;l||||0|1|2|1|0|0|LT\nCHAN09|A & B||||0|0|1|2|1|0|0|AB\n";
        made.minutes[8] = made.minutes[4];
        made.minutes[9] = made.minutes[7];
        const WindowFixture fixture(made);
        QVERIFY(offered(fixture).contains(QStringLiteral("menKanal(9) A && B")));
        fixture.chooseChannel(RAIN_ROW); // channel 8
        chooseSecond(fixture, "menKanal(9)");
        auto& KS = fixture.the<PolarSys>("KS");
        QCOMPARE(KS.AchseText(), std::string("Gas, trocken [mg,l];A & B"));
        QCOMPARE(KS.HeadLine(), std::string("Kläranlage Nord - Gas; trocken [mg;l]"));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_second_test)
#include "f_second_test.moc"
