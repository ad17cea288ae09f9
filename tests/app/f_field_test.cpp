// SPDX-License-Identifier: GPL-3.0-or-later
// Where the field of the readout is and which picture it reads, on screens with one and two dots per pixel.
#include "tests/app/DiagramHand.h"

#include <QSignalSpy>
#include <QTest>
#include <algorithm>
#include <cmath>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr int WIND_ROW = 1; // of the channel list
constexpr int DUST_ROW = 2;
constexpr int HOUR_ROW = 4; // of the intervals

/// The field on the overlay, in device pixels: where its ground shows.
QRect fieldOn(const QImage& overlay) {
    const QRgb ground = qRgb(255, 255, 232);
    QRect field;
    for (int y = 0; y < overlay.height(); ++y) {
        const auto* row = reinterpret_cast<const QRgb*>(overlay.constScanLine(y));
        const auto* end = row + overlay.width();
        const auto* first = std::find(row, end, ground);
        if (first != end) {
            const auto* last = end - 1;
            while (*last != ground) {
                --last;
            }
            field |= QRect(QPoint(static_cast<int>(first - row), y), QPoint(static_cast<int>(last - row), y));
        }
    }
    return field;
}

/// A place of the control in device pixels.
QPoint dotAt(const DiagramHand& hand, const QPointF& place) {
    return (place * hand.KS.devicePixelRatioF()).toPoint();
}

/// Where a value of series 1 is, on the scale from −5 to 5 that the window starts with.
QPointF placeOf(const DiagramHand& hand, const QString& time, double value) {
    return {hand.at(time).x(), hand.KS.height() - 40 - (value + 5) / 10 * (hand.KS.height() - 90)};
}

/// What is visible of the control, in device pixels: not what is below the scroll bar.
QRect visibleDots(const DiagramHand& hand) {
    const double ratio = hand.KS.devicePixelRatioF();
    return {0, 0, static_cast<int>(hand.KS.width() * ratio),
            static_cast<int>((hand.KS.height() - 14) * ratio)};
}

/// The sector of 30 degrees that a dot of a rose is in, and whether the dot is yellow.
struct RoseDot {
    int sector = -1;
    bool isDrawn = false;
};
RoseDot roseDot(const PolarSys& KS, const QImage& picture, const QPoint& dot) {
    const PolarGeometry& g = KS.polarShown()->geometry;
    const double x = (dot.x() - g.xCentre) / static_cast<double>(g.dx(g.rings));
    const double y = (dot.y() - g.yCentre) / static_cast<double>(g.dy(g.rings));
    const double degrees = std::atan2(x, -y) * 180 / 3.14159265358979;
    return {static_cast<int>(std::floor((degrees + 375) / 30)) % 12, picture.pixel(dot) == qRgb(255, 255, 0)};
}

/// How many dots of what is drawn of a sector a field covers; every third of them is looked at.
int coveredDots(const DiagramHand& hand, const QImage& picture, const QRect& field, int sector) {
    int covered = 0;
    for (int y = field.top(); y <= field.bottom(); y += 3) {
        for (int x = field.left(); x <= field.right(); x += 3) {
            const RoseDot dot = roseDot(hand.KS, picture, {x, y});
            covered += dot.isDrawn && dot.sector == sector ? 1 : 0;
        }
    }
    return covered;
}

/// The test station with winds from all directions, one after the other.
MadeStation stationWithAllWinds() {
    MadeStation station = madeStation();
    for (int i = 0; i < 1440; ++i) {
        const auto at = static_cast<std::size_t>(TEST_DAY_MINUTE + i);
        station.minutes[4][at] = 3;
        station.minutes[5][at] = std::fmod(i * i / 200.0 + 1, 360);
    }
    return station;
}

} // namespace

class f_field_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    /// From corner to corner, in windows of several sizes, with a second value marked.
    void itStaysInsideAndCoversNoRing() {
        MadeStation station = madeStation();
        for (int hour = 0; hour < 24; ++hour) { // over the whole height
            for (int i = 0; i < 60; ++i) {
                station.minutes[4][static_cast<std::size_t>(TEST_DAY_MINUTE + hour * 60 + i)] =
                    hour % 3 == 0   ? 4.999
                    : hour % 3 == 1 ? -4.999
                                    : 0.25;
            }
        }
        const WindowFixture fixture(station);
        fixture.chooseInterval(HOUR_ROW);
        const DiagramHand hand(fixture);
        const auto valueOf = [](int hour) { return hour % 3 == 0 ? 4.999 : hour % 3 == 1 ? -4.999 : 0.25; };
        const auto hourText = [](int hour) {
            return QStringLiteral("18.06.2020 %1:00").arg(hour, 2, 10, QLatin1Char('0'));
        };
        for (const QSize& size : {QSize(1000, 700), QSize(480, 360), QSize(400, 640)}) {
            fixture.window->resize(size);
            for (const int marked : {-1, 0, 11}) {
                hand.key(Qt::Key_Escape);
                if (marked >= 0) {
                    hand.moveTo(hourText(marked));
                    hand.key(Qt::Key_Space);
                }
                for (const int hour : {0, 1, 2, 9, 10, 11, 12, 13, 21, 22, 23}) {
                    hand.moveTo(hourText(hour));
                    QVERIFY(hand.text().startsWith(hourText(hour)));
                    const QRect field = fieldOn(hand.painted());
                    QVERIFY(!field.isEmpty());
                    QVERIFY2(visibleDots(hand).contains(field), qPrintable(hourText(hour)));
                    const QPoint ring = dotAt(hand, placeOf(hand, hourText(hour), valueOf(hour)));
                    QVERIFY2(!field.contains(ring), qPrintable(hourText(hour)));
                    if (marked >= 0) {
                        const QPoint mark = dotAt(hand, placeOf(hand, hourText(marked), valueOf(marked)));
                        QVERIFY2(!field.contains(mark), qPrintable(hourText(hour)));
                    }
                }
            }
        }
    }

    void itCoversNothingOfItsSector() {
        const WindowFixture fixture(stationWithAllWinds());
        fixture.chooseChannel(WIND_ROW);
        fixture.trigger("menPolar");
        const DiagramHand hand(fixture);
        const QImage picture = hand.KS.picture().toImage();
        for (int sector = 0; sector < 12; ++sector) { // by keys
            hand.key(Qt::Key_Right);
            QVERIFY2(hand.text().startsWith(QStringLiteral("%1° bis ").arg((sector * 30 + 345) % 360)),
                     qPrintable(hand.text()));
            const QRect field = fieldOn(hand.painted());
            QVERIFY(!field.isEmpty() && visibleDots(hand).contains(field));
            QCOMPARE(coveredDots(hand, picture, field, sector), 0);
        }
        const PolarGeometry& g = hand.KS.polarShown()->geometry;
        const double ratio = hand.KS.devicePixelRatioF();
        for (int degrees = 0; degrees < 360;
             degrees += 10) { // by the pointer, at the rim and near the centre
            for (const double share : {0.15, 0.6, 0.98}) {
                const double angle = degrees * 3.14159265358979 / 180;
                const QPointF dot(g.xCentre + share * g.dx(g.rings) * std::sin(angle),
                                  g.yCentre - share * g.dy(g.rings) * std::cos(angle));
                hand.moveTo(dot / ratio);
                const QRect field = fieldOn(hand.painted());
                QVERIFY(visibleDots(hand).contains(field));
                QVERIFY(!field.contains(dot.toPoint()));
                QCOMPARE(coveredDots(hand, picture, field, (degrees + 15) / 30 % 12), 0);
            }
        }
    }

    /// A pointer that crosses the plot without a rest says nothing to a reader of the screen.
    void crossingThePlotIsNotReported() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        const QSignalSpy reports(&hand.overlay, &ReadoutOverlay::readOut);
        const auto leave = [&] {
            QEvent event(QEvent::Leave);
            QCoreApplication::sendEvent(&hand.KS, &event);
        };
        hand.moveTo(QStringLiteral("18.06.2020 10:00"));
        hand.moveTo(QStringLiteral("18.06.2020 14:00"));
        leave();
        QTest::qWait(400);
        QCOMPARE(reports.count(), 0);
        hand.moveTo(QStringLiteral("18.06.2020 10:00"));
        QTRY_COMPARE(reports.count(), 1);
        leave(); // what was said is taken back
        QCOMPARE(reports.count(), 2);
    }

    /// A load that overtakes another one: the picture shown is still that of before both.
    void anOvertakenLoadDoesNotChangeWhatIsRead() {
        WindowFixture fixture;
        const DiagramHand hand(fixture);
        hand.moveTo(QStringLiteral("18.06.2020 12:00"));
        const QString noon = hand.text();
        int reads = 0;
        QStringList seen;
        fixture.files.onRead = [&] {
            if (++reads == 1) {
                fixture.chooseChannel(DUST_ROW);
            }
            hand.moveTo(QStringLiteral("18.06.2020 12:01"));
            hand.moveTo(QStringLiteral("18.06.2020 12:00"));
            seen << hand.text();
        };
        fixture.chooseChannel(WIND_ROW);
        fixture.files.onRead = {};
        QVERIFY(seen.size() > 1);
        for (const QString& text : seen) {
            QCOMPARE(text, noon);
        }
        QVERIFY(hand.text().contains(QStringLiteral("µg/m³")));
    }

    /// Directions shown as a line, while a channel is read that comes back as a direction diagram.
    void theRingFollowsThePictureShown() {
        MadeStation station = madeStation();
        for (int i = 0; i < 1440; ++i) { // to and fro over north
            const auto at = static_cast<std::size_t>(TEST_DAY_MINUTE + i);
            station.minutes[4][at] = 3;
            station.minutes[5][at] = i < 600 ? 350 : 10;
        }
        WindowFixture fixture(station);
        fixture.chooseInterval(HOUR_ROW);
        fixture.trigger("menRichtung"); // of the first channel
        fixture.chooseChannel(WIND_ROW);
        fixture.type("Text1", QStringLiteral("0"));
        fixture.type("Text2", QStringLiteral("540"));
        const DiagramHand hand(fixture);
        const QString noon = QStringLiteral("18.06.2020 12:00");
        const auto hasRingAt = [&](double value) {
            const QPointF place(hand.at(noon).x(),
                                hand.KS.height() - 40 - value / 540 * (hand.KS.height() - 90));
            const QImage image = hand.painted();
            const QPoint right = dotAt(hand, place + QPointF(4, 0));
            for (const int beside : {-1, 0, 1}) {
                for (const int below : {-1, 0, 1}) {
                    if (image.pixelColor(right + QPoint(beside, below)).alpha() > 0) {
                        return true;
                    }
                }
            }
            return false;
        };
        hand.moveTo(noon);
        QVERIFY(hasRingAt(10) && !hasRingAt(370));
        int seen = 0;
        fixture.files.onRead = [&] {
            ++seen;
            hand.moveTo(QStringLiteral("18.06.2020 14:00"));
            hand.moveTo(noon);
            QVERIFY(hasRingAt(10) && !hasRingAt(370));
        };
        fixture.chooseChannel(0);
        fixture.files.onRead = {};
        QVERIFY(seen > 0);
        QCOMPARE(hand.KS.DiagTyp(), KIND_DIRECTION);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_field_test)
#include "f_field_test.moc"
