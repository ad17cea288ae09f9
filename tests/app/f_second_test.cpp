// SPDX-License-Identifier: GPL-3.0-or-later
// A second channel in the diagram, against the right axis, on screens with one and two dots for a pixel.
#include "diagram/SeriesTable.h"
#include "tests/app/DiagramHand.h"
#include "tests/testing/PrintedDocument.h"
#include "util/Validity.h"

#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QPrinter>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <cmath>
#include <utility>
#include <vector>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr int WIND_ROW = 1; // of the channel list
constexpr int DUST_ROW = 2;
constexpr int RAIN_ROW = 3;
constexpr int HOUR_ROW = 4; // of the intervals
constexpr Colour VIOLET = 0x800080;

/// Opens the diagram's menu by its key and walks through the submenu as a user without a mouse does.
void chooseSecond(const WindowFixture& fixture, const char* entry) {
    auto& KS = fixture.the<PolarSys>("KS");
    const QPoint middle = KS.rect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, middle, KS.mapToGlobal(middle));
    QCoreApplication::sendEvent(&KS, &event);
    QTest::keyClick(&fixture.the<QMenu>("menKS"), Qt::Key_Z);
    auto& menu = fixture.the<QMenu>("menZweiter");
    QTRY_VERIFY(menu.isVisible());
    const auto& wanted = fixture.the<QAction>(entry);
    for (int i = 0; i < menu.actions().size() && menu.activeAction() != &wanted; ++i) {
        QTest::keyClick(&menu, Qt::Key_Down);
    }
    QCOMPARE(menu.activeAction(), &wanted);
    QTest::keyClick(&menu, Qt::Key_Return);
}

/// The entries of the submenu, the ticked one with a star.
QStringList offered(const WindowFixture& fixture) {
    QStringList texts;
    for (const QAction* action : fixture.the<QMenu>("menZweiter").actions()) {
        texts << action->objectName() + QLatin1Char(' ') + action->text() +
                     (action->isChecked() ? QStringLiteral("*") : QString());
    }
    return texts;
}

std::vector<double> rowOf(const PolarSys& KS, SeriesTable::Row row) {
    const auto values = seriesTable().row(row).first(static_cast<std::size_t>(KS.DataCount()));
    return {values.begin(), values.end()};
}

std::vector<double> validOf(std::vector<double> values) {
    values.erase(std::remove_if(values.begin(), values.end(), [](double v) { return v == INVALID_VALUE; }),
                 values.end());
    return values;
}

/// As without a second channel.
void expectWithout(const PolarSys& KS) {
    QCOMPARE(KS.Y2Low(), 0.0);
    QCOMPARE(KS.Y2High(), 100.0);
    QCOMPARE(KS.D2(), BLUE);
    QCOMPARE(KS.Y2axe(), BLUE);
    QCOMPARE(KS.AchseText(), std::string());
    for (const double v : rowOf(KS, SeriesTable::Y2)) {
        QCOMPARE(v, INVALID_VALUE);
    }
}

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

QString copied(const WindowFixture& fixture) {
    QGuiApplication::clipboard()->clear();
    fixture.trigger("menWerte");
    return QGuiApplication::clipboard()->text();
}

/// What the evaluation of the view copies.
QString evaluated(const WindowFixture& fixture) {
    QString text;
    QTimer timer; // not within the reading, which lets events run
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget* window = QApplication::activeModalWidget();
        auto* copy =
            window == nullptr ? nullptr : window->findChild<QPushButton*>(QStringLiteral("cmdKopieren"));
        if (copy != nullptr && copy->isEnabled()) {
            timer.stop();
            QGuiApplication::clipboard()->clear();
            QTest::mouseClick(copy, Qt::LeftButton);
            text = QGuiApplication::clipboard()->text();
            window->close();
        }
    });
    timer.start(10);
    fixture.trigger("menAuswertung");
    return text;
}

/// Whether anything on a printed page is violet; everything else is grey or of a pure colour.
bool isViolet(const QString& document) {
    const QImage page = picturedPage(document, 0, 4);
    for (int y = 0; y < page.height(); ++y) {
        for (int x = 0; x < page.width(); ++x) {
            const QRgb dot = page.pixel(x, y);
            if (qRed(dot) - qGreen(dot) > 60 && qBlue(dot) - qGreen(dot) > 60) {
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

    void theSameAgainLoadsNothing() {
        const WindowFixture fixture;
        chooseSecond(fixture, "menKanal(7)");
        const int opened = fixture.files.opened;
        chooseSecond(fixture, "menKanal(7)");
        QCOMPARE(fixture.files.opened, opened);
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

    void itsValuesAreCopied() {
        const WindowFixture fixture;
        fixture.chooseInterval(HOUR_ROW);
        chooseSecond(fixture, "menKanal(7)");
        const QStringList lines = copied(fixture).split(QLatin1Char('\n'));
        QCOMPARE(lines[1], QStringLiteral("Zeit\tWindgeschwindigkeit Wert [m/s]\tStaub Wert [µg/m³]"));
        QCOMPARE(lines.size(), 2 + 24 + 1);
        QCOMPARE(lines[2 + 6].count(QLatin1Char('\t')), 2);
        QVERIFY2(lines[2 + 6].startsWith(QStringLiteral("18.06.2020 06:00\t\t")), qPrintable(lines[2 + 6]));
        QVERIFY(!lines[2 + 6].endsWith(QLatin1Char('\t')));
    }

    void itStaysWithOtherRangesIntervalsAndChannels() {
        const WindowFixture fixture;
        fixture.chooseInterval(HOUR_ROW);
        chooseSecond(fixture, "menKanal(7)");
        auto& KS = fixture.the<PolarSys>("KS");
        const double high = KS.Y2High();
        fixture.click("Command8");    // scrolls
        QVERIFY(KS.Y2High() != high); // the range follows its values
        QCOMPARE(validOf(rowOf(KS, SeriesTable::Y2)).size(), 24U);
        fixture.chooseInterval(0);
        QVERIFY(validOf(rowOf(KS, SeriesTable::Y2)).size() > 1400);
        fixture.chooseChannel(WIND_ROW);
        QCOMPARE(KS.AchseText(), std::string("Windrichtung [Grad];Staub [µg/m³]"));
        QVERIFY(offered(fixture).contains(QStringLiteral("menKanal(7) Staub*")));
    }

    void itPlaysNoPartInRoseAndList() {
        const WindowFixture fixture;
        fixture.chooseInterval(HOUR_ROW);
        fixture.chooseChannel(WIND_ROW);
        auto& KS = fixture.the<PolarSys>("KS");
        fixture.trigger("menPolar");
        const QImage rose = KS.picture().toImage();
        const int opened = fixture.files.opened;
        chooseSecond(fixture, "menKanal(7)"); // chosen for the next curve
        QCOMPARE(fixture.files.opened, opened);
        QVERIFY(KS.picture().toImage() == rose);
        fixture.trigger("menLinie");
        QCOMPARE(KS.AchseText(), std::string("Windrichtung [Grad];Staub [µg/m³]"));
        fixture.trigger("menPolar");
        expectWithout(KS);
        QVERIFY(KS.picture().toImage() == rose);
        const QString samples = copied(fixture);
        QVERIFY(!samples.contains(QStringLiteral("Staub")));
        fixture.trigger("menLinie");
        fixture.click("optView(1)");
        expectWithout(KS);
        const QString list = copied(fixture);
        QVERIFY(!list.contains(QStringLiteral("Staub")));
        fixture.click("optView(0)");
        QCOMPARE(KS.AchseText(), std::string("Windrichtung [Grad];Staub [µg/m³]"));
    }

    void itGoesWithTheProject() {
        const WindowFixture fixture;
        chooseSecond(fixture, "menKanal(7)");
        auto& KS = fixture.the<PolarSys>("KS");
        fixture.window->readConf(fixture.folder->at("QEL.ini"));
        QCOMPARE(KS.AchseText(), std::string()); // from that moment on
        fixture.window->LoadData();
        expectWithout(KS);
        QCOMPARE(KS.Einheit(), std::string("m/s"));
        QVERIFY(offered(fixture).contains(QStringLiteral("menKeiner &Keiner*")));
        fixture.window->readConf(fixture.folder->write("Leer/QEL.ini", "PROJEKTNAME=Leer\n"));
        fixture.window->LoadData();
        QCOMPARE(offered(fixture), QStringList(QStringLiteral("menKeiner &Keiner*")));
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

    /// While a load runs, the newest choice wins, and no older one leaves anything.
    void chosenWhileALoadRuns() {
        WindowFixture fixture;
        auto& KS = fixture.the<PolarSys>("KS");
        chooseSecond(fixture, "menKanal(12)");
        int reads = 0;
        fixture.files.onRead = [&] {
            if (++reads == 1) {
                fixture.trigger("menKanal(5)");
                fixture.trigger("menKanal(7)");
            }
        };
        fixture.chooseChannel(WIND_ROW);
        fixture.files.onRead = {};
        QCOMPARE(KS.AchseText(), std::string("Windrichtung [Grad];Staub [µg/m³]"));
        QVERIFY(offered(fixture).contains(QStringLiteral("menKanal(7) Staub*")));
        const auto dust = validOf(rowOf(KS, SeriesTable::Y2));
        QVERIFY(!dust.empty());
        const auto [low, high] = std::minmax_element(dust.begin(), dust.end());
        QVERIFY(*high > 50); // dust, not rain or degrees of a reading before
        QVERIFY(*high < 100);
        QCOMPARE(KS.Y2High(), *high + (*high - *low) * 0.05);

        reads = 0;
        fixture.files.onRead = [&] {
            if (++reads == 1) {
                fixture.trigger("menKeiner");
            }
        };
        fixture.chooseChannel(DUST_ROW);
        fixture.files.onRead = {};
        expectWithout(KS);
        QCOMPARE(KS.Einheit(), std::string("µg/m³"));
    }

    /// Another project while its file is read.
    void aProjectWhileALoadRuns() {
        WindowFixture fixture;
        auto& KS = fixture.the<PolarSys>("KS");
        int reads = 0;
        fixture.files.onRead = [&] {
            if (++reads == 1) {
                fixture.window->readConf(fixture.folder->at("QEL.ini"));
                fixture.window->LoadData();
            }
        };
        chooseSecond(fixture, "menKanal(7)");
        fixture.files.onRead = {};
        expectWithout(KS);
        QCOMPARE(KS.Einheit(), std::string("m/s"));
        QVERIFY(offered(fixture).contains(QStringLiteral("menKeiner &Keiner*")));
    }

    void theSummaryTellsIt() {
        const WindowFixture fixture;
        auto& KS = fixture.the<PolarSys>("KS");
        QAccessible::setActive(true);
        fixture.chooseInterval(HOUR_ROW);
        const QString alone = KS.accessibleDescription();
        chooseSecond(fixture, "menKanal(7)");
        const QString both = KS.accessibleDescription();
        QAccessible::setActive(false);
        QVERIFY2(both.startsWith(alone), qPrintable(both)); // the unit included
        QVERIFY2(both.contains(QStringLiteral("Zweiter Kanal: Staub. 24 Werte.")), qPrintable(both));
        QVERIFY2(both.contains(QStringLiteral("µg/m³ am 18.06.2020 23:00.")), qPrintable(both));
    }

    void theEvaluationIsOfTheFirstOne() {
        const WindowFixture fixture;
        fixture.chooseInterval(HOUR_ROW);
        const QString alone = evaluated(fixture);
        QVERIFY(alone.contains(QStringLiteral("Windgeschwindigkeit")));
        chooseSecond(fixture, "menKanal(7)");
        QCOMPARE(evaluated(fixture), alone);
    }

    /// The page of the window has it, those of the batch have not, and the window keeps it.
    void printedPagesOfWindowAndBatch() {
        const WindowFixture fixture([] {
            MadeStation made = madeStation();
            made.ini += "CHAN06|Fracht|g|0|5||0|1|2|1|0|0|FR\n";
            made.minutes[6] = made.minutes[4];
            return made;
        }());
        const auto file = [&](const char* name) { return QString::fromStdString(fixture.folder->at(name)); };
        fixture.dialogs->onPrinter = [&](QPrinter& printer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(file("eins.pdf"));
        };
        fixture.chooseInterval(HOUR_ROW);
        chooseSecond(fixture, "menKanal(7)");
        auto& KS = fixture.the<PolarSys>("KS");
        const QImage shown = KS.picture().toImage();
        fixture.trigger("menSelP");
        QCOMPARE(fixture.dialogs->messages, QStringList());
        const auto page = printedPages(file("eins.pdf")).at(0);
        QCOMPARE(page.find(QStringLiteral("Windgeschwindigkeit [m/s]")).size(), 2U); // title and caption
        QCOMPARE(page.find(QStringLiteral("Staub [µg/m³]")).size(), 1U);

        fixture.dialogs->pdf = file("viele.pdf");
        fixture.inWindowOf([&] { fixture.trigger("menCPrint"); },
                           [](QWidget& dialog) {
                               auto* row = dialog.findChild<QCheckBox*>(QStringLiteral("chKanal(1)"));
                               QTest::keyClick(row, Qt::Key_Space);
                               QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("OKButton")),
                                                 Qt::LeftButton);
                           });
        QCOMPARE(fixture.dialogs->messages, QStringList());
        const auto batch = printedPages(file("viele.pdf"));
        QCOMPARE(batch.size(), 1U);
        QCOMPARE(batch[0].find(QStringLiteral("Fracht [g]")).size(), 1U);
        QVERIFY(!batch[0].has(QStringLiteral("Staub [µg/m³]")));
        QVERIFY(isViolet(file("eins.pdf")));
        QVERIFY(!isViolet(file("viele.pdf")));
        QCOMPARE(KS.AchseText(), std::string("Windgeschwindigkeit [m/s];Staub [µg/m³]"));
        QVERIFY(KS.picture().toImage() == shown);
        fixture.inWindowOf([&] { fixture.trigger("menCPrint"); }, [](QWidget& dialog) { dialog.close(); });
        QVERIFY(KS.picture().toImage() == shown);
        chooseSecond(fixture, "menKeiner");
        expectWithout(KS);
        QCOMPARE(KS.Einheit(), std::string("m/s"));
    }

    /// Of wide day files the first pass alone has it.
    void wideDayFiles() {
        WindowFixture fixture;
        using Floats = std::vector<float>;
        const std::vector<std::string> names = {"Luft", "-", "Boden"};
        const std::string conf = fixture.folder->write("Tag/VARNIX.CFG", varnixFile("Station", names, true));
        fixture.folder->write("Tag/20200618.KMH",
                              dayRecord(2020, 6, 18, 0, Floats{10, 9, 11, 20, 19, 21}) +
                                  dayRecord(2020, 6, 18, 60, Floats{12, 8, 15, 30, 29, 31}));
        fixture.window->readConf(conf);
        fixture.window->LoadData();
        auto& KS = fixture.the<PolarSys>("KS");
        fixture.chooseInterval(HOUR_ROW);
        const auto means = validOf(rowOf(KS, SeriesTable::Y1));
        QCOMPARE(means, (std::vector<double>{10, 12, 9, 8, 11, 15}));
        chooseSecond(fixture, "menKanal(3)");
        QCOMPARE(validOf(rowOf(KS, SeriesTable::Y1)), means);
        QCOMPARE(validOf(rowOf(KS, SeriesTable::Y2)), (std::vector<double>{20, 30}));
        QCOMPARE(KS.AchseText(), std::string("Luft;Boden"));
        QCOMPARE(KS.Y2Low(), 19.5);
        QCOMPARE(KS.Y2High(), 30.5);
        const DiagramHand hand(fixture);
        hand.key(Qt::Key_End);
        QCOMPARE(hand.text(), QStringLiteral("18.06.2020 01:00, Luft: 12, Minimum 8, Maximum 15, Boden: 30"));
        QCOMPARE(copied(fixture).section(QLatin1Char('\n'), 1, 2),
                 QStringLiteral("Zeit\tLuft Wert\tMinimum\tMaximum\tBoden Wert\n"
                                "18.06.2020 00:00\t10\t9\t11\t20"));
        fixture.click("optView(1)");
        expectWithout(KS);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_second_test)
#include "f_second_test.moc"
