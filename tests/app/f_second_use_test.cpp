// SPDX-License-Identifier: GPL-3.0-or-later
// What a second channel is to the rest of the window: other ranges and channels, rose and list, copies,
// evaluation, pages, projects and loads.
#include "tests/app/DiagramHand.h"
#include "tests/app/EvaluationDriver.h"
#include "tests/app/SecondChannelHand.h"
#include "tests/testing/PrintedDocument.h"

#include <QAccessible>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QPrinter>
#include <QPushButton>
#include <QTest>
#include <algorithm>
#include <string>
#include <vector>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

/// What the evaluation of the view copies.
QString evaluated(const WindowFixture& fixture) {
    inEvaluation(fixture, [](QWidget& window) {
        QGuiApplication::clipboard()->clear();
        QTest::mouseClick(&controlOf<QPushButton>(window, "cmdKopieren"), Qt::LeftButton);
    });
    return QGuiApplication::clipboard()->text();
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

class f_second_use_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void theSameAgainLoadsNothing() {
        const WindowFixture fixture;
        chooseSecond(fixture, "menKanal(7)");
        const int opened = fixture.files.opened;
        chooseSecond(fixture, "menKanal(7)");
        QCOMPARE(fixture.files.opened, opened);
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

QTEST_MAIN(kelvrum::f_second_use_test)
#include "f_second_use_test.moc"
