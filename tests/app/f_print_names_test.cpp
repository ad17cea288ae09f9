// SPDX-License-Identifier: GPL-3.0-or-later
// Pages of a station with long names on paper with wide borders: all texts are where the printer prints, none
// is on another one, and what a page must say is there.
#include "tests/app/WindowFixture.h"
#include "tests/testing/PrintTest.h"
#include "tests/testing/PrintedDocument.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPageSize>
#include <QPrinter>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

enum View { DUST, SECOND, RAIN, ROSE, LIST, EVALUATION };

// Of the channel list.
constexpr int WIND_ROW = 1;
constexpr int DUST_ROW = 2;
constexpr int RAIN_ROW = 3;

MadeStation stationOfLongNames() {
    MadeStation station = madeStation();
    station.ini =
        "PROJEKTNAME=Luftgütemessnetz Großraum Überlingen-Süd, Kläranlage Nord und Umgebung (Außenstelle "
        "Straße der Befreiung)\nSTANDORT=Köln-Süd\nGERAETNUMMER=17-ÄÖÜ/2020-Langbezeichnung des "
        "Messgerätes im Container am westlichen Rand\nDATAFOLDER=Data\n"
        "CHAN04|Windgeschwindigkeit am oberen Ende des Mastes|m/s|0|40|Anemometer|0|1|2|1|0|0|WG\n"
        "CHAN05|Windrichtung am oberen Ende des Mastes gegen geographisch "
        "Nord|Grad|0|360||0|1|2|36|4|0|WR\n"
        "CHAN07|Feinstaub PM10 (gravimetrisch korrigiert, Ölfilter beheizt)|µg/m³|0|500||0|1|2|1|0|0|ST\n"
        "CHAN12|Niederschlagsmenge auf der Wiese südlich der Straße|mm|0|10||0|1|2|0|0|0|NS\n"
        "KGW07|50|150.5\n";
    return station;
}

void chooseKind(const WindowFixture& fixture, const char* entry) {
    fixture.the<QMenu>("menKS").findChild<QAction*>(QString::fromUtf8(entry))->trigger();
}

/// Opens the evaluation, prints it and closes it.
void printEvaluation(const WindowFixture& fixture) {
    QTimer timer; // not within the reading, which lets events run
    QObject::connect(&timer, &QTimer::timeout, &timer, [&timer] {
        QWidget* window = QApplication::activeModalWidget();
        auto* print =
            window != nullptr ? window->findChild<QPushButton*>(QStringLiteral("cmdDrucken")) : nullptr;
        if (print != nullptr && print->isEnabled()) {
            timer.stop();
            QTest::mouseClick(print, Qt::LeftButton);
            window->close();
        }
    });
    timer.start(10);
    fixture.trigger("menAuswertung");
}

void print(const WindowFixture& fixture, View view) {
    fixture.chooseChannel(view == RAIN ? RAIN_ROW : view == ROSE ? WIND_ROW : DUST_ROW);
    if (view == SECOND) {
        fixture.the<QAction>("menKanal(4)").trigger();
    } else if (view == RAIN) {
        chooseKind(fixture, "menNiederschlag");
    } else if (view == ROSE) {
        chooseKind(fixture, "menPolar");
    } else if (view == LIST) {
        fixture.click("optView(1)");
    }
    view == EVALUATION ? printEvaluation(fixture) : fixture.trigger("menPrint");
}

} // namespace

class f_print_names_test : public PrintTest {
    Q_OBJECT

  private Q_SLOTS:
    void textsAreWhereThePrinterPrints_data() {
        QTest::addColumn<int>("view");
        QTest::addColumn<bool>("small");
        QTest::addColumn<QStringList>("words");
        const auto row = [](const char* name, View view, const QStringList& words) {
            for (const bool small : {false, true}) {
                QTest::addRow("%s, %s", name, small ? "A5" : "A4") << int(view) << small << words;
            }
        };
        const QString printed = QStringLiteral("Gedruckt am 18.06.2020");
        const QString device = QStringLiteral("Gerätenummer 17-ÄÖÜ/2020-Langbezeichnung");
        row("diagram", DUST, {QStringLiteral("beheizt) [µg/m³]"), printed, device});
        row("two channels", SECOND, {QStringLiteral("[m/s]"), printed, device});
        row("precipitation", RAIN, {QStringLiteral("Niederschlagssumme = 36,0 mm"), printed, device});
        row("rose", ROSE, {QStringLiteral("in Prozent"), printed, device});
        row("list", LIST,
            {QStringLiteral("18.06.2020, 00:00 Uhr bis"), QStringLiteral("gedruckt am 18.06.2020"),
             QStringLiteral("Seite 1 von 1"),
             QStringLiteral("Zeit: Beginn des Intervalls, ohne Sommerzeit")});
        row("evaluation", EVALUATION,
            {QStringLiteral("Befreiung)"), QStringLiteral("gelten"), QStringLiteral("über Grenzwert 2")});
    }
    void textsAreWhereThePrinterPrints() {
        QFETCH(int, view);
        QFETCH(bool, small);
        QFETCH(QStringList, words);
        cups().start(PrivateCups::Queue::BORDERS);
        const WindowFixture fixture(stationOfLongNames());
        fixture.dialogs->onPrinter = [small](QPrinter& printer) {
            printer.setPageSize(QPageSize(small ? QPageSize::A5 : QPageSize::A4));
        };
        fixture.trigger("menSelP");
        fixture.chooseInterval(4);
        const std::size_t before = cups().documents().size();
        print(fixture, View(view));
        QCOMPARE(fixture.dialogs->messages, QStringList());
        QCOMPARE(cups().documents().size(), before + 1);
        const auto pages = printedPages(cups().documents().back());
        for (const QString& word : words) {
            QVERIFY2(std::any_of(pages.begin(), pages.end(),
                                 [&word](const PrintedPage& page) { return page.has(word); }),
                     qPrintable(word));
        }
        for (const PrintedPage& page : pages) {
            const bool landscape = page.size.width() > page.size.height();
            const QMarginsF borders = small       ? QMarginsF(20, 20, 20, 20)
                                      : landscape ? QMarginsF(10, 7, 10, 7)
                                                  : QMarginsF(5, 6, 7, 10);
            const QRectF printable = QRectF(QPointF(), page.size).marginsRemoved(borders);
            for (std::size_t i = 0; i < page.words.size(); ++i) {
                const QRectF box = page.words[i].box;
                QVERIFY2(printable.contains(box), qPrintable(page.words[i].text));
                for (std::size_t j = 0; j < i && view != ROSE; ++j) { // lines may touch, letters do not
                    const QRectF letters = box.adjusted(0, 0.4, 0, -0.4);
                    QVERIFY2(!letters.intersects(page.words[j].box),
                             qPrintable(page.words[i].text + QStringLiteral(" on ") + page.words[j].text));
                }
            }
        }
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_print_names_test)
#include "f_print_names_test.moc"
