// SPDX-License-Identifier: GPL-3.0-or-later
// Printing what the window shows, on a real print queue and into files.
#include "diagram/PolarDiagram.h"
#include "diagram/PolarSys.h"
#include "tests/app/WindowFixture.h"
#include "tests/testing/PrintTest.h"
#include "tests/testing/PrintedDocument.h"
#include "tests/testing/SystemReason.h"

#include <QAction>
#include <QApplication>
#include <QMenu>
#include <QPageSize>
#include <QPrinter>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <cmath>
#include <utility>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

using Queue = PrivateCups::Queue;

constexpr int DUST_ROW = 2; // of the channel list
const QString DRIVER_MISSING = QStringLiteral("Printer: Driver missing");

} // namespace

class f_print_test : public PrintTest {
    Q_OBJECT

  private Q_SLOTS:
    void withoutPrinter_data() {
        QTest::addColumn<bool>("running");
        QTest::newRow("no queue") << true;
        QTest::newRow("no scheduler") << false;
    }
    void withoutPrinter() {
        QFETCH(bool, running);
        const WindowFixture fixture;
        if (running) {
            cups().start(Queue::NONE);
        } else {
            cups().stop();
        }
        for (const char* entry : {"menPrint", "menCPrint", "menSelP"}) {
            fixture.dialogs->messages.clear();
            fixture.trigger(entry);
            QCOMPARE(fixture.dialogs->messages, QStringList{DRIVER_MISSING});
        }
        QVERIFY(fixture.the<PolarSys>("KS").DataCount() > 1000);
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        cups().start(); // the program goes on, and prints
        fixture.dialogs->messages.clear();
        fixture.trigger("menPrint");
        QCOMPARE(fixture.dialogs->messages, QStringList());
        QCOMPARE(documents().size(), 1U);
    }

    void theDiagram() {
        const WindowFixture fixture;
        fixture.chooseChannel(DUST_ROW);
        fixture.trigger("menPrint");
        QCOMPARE(fixture.dialogs->messages, QStringList());
        const auto found = documents();
        QCOMPARE(found.size(), 1U);
        const auto pages = printedPages(found[0]);
        QCOMPARE(pages.size(), 1U);
        QVERIFY(pages[0].has(QStringLiteral("Kläranlage Nord - Staub [µg/m³]")));
        QVERIFY(pages[0].size.width() > pages[0].size.height());
        QVERIFY(picturesIn(found[0]).isEmpty());
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    }

    void printerSetUp() {
        const WindowFixture fixture;
        fixture.dialogs->printerChosen = false; // cancelled
        fixture.trigger("menSelP");
        QVERIFY(documents().empty());
        fixture.dialogs->printerChosen = true;
        fixture.trigger("menSelP");
        QCOMPARE(documents().size(), 1U);
        QCOMPARE(fixture.dialogs->messages, QStringList());
    }

    /// What the user sets applies, to the list too, and what a diagram needs is taken back.
    void chosenSettingsStay() {
        const WindowFixture fixture;
        fixture.click("optView(1)");
        fixture.trigger("menPrint");
        const QSizeF portrait = printedPages(documents().back())[0].size;
        QVERIFY(portrait.width() < portrait.height());
        fixture.click("optView(0)");
        fixture.trigger("menPrint");
        fixture.click("optView(1)");
        fixture.trigger("menPrint");
        QCOMPARE(printedPages(documents().back())[0].size, portrait);
        fixture.dialogs->onPrinter = [](QPrinter& printer) {
            printer.setPageSize(QPageSize(QPageSize::A5));
            printer.setPageOrientation(QPageLayout::Landscape);
        };
        fixture.trigger("menSelP");
        const QSizeF chosen = printedPages(documents().back())[0].size;
        QVERIFY(std::fabs(chosen.width() - 210) < 1 && std::fabs(chosen.height() - 148) < 1);
        QCOMPARE(fixture.dialogs->messages, QStringList());
    }

    /// A page that is requested while the view is being read shows the finished view.
    void printingWhileLoading() {
        WindowFixture fixture;
        bool once = true;
        fixture.files.onRead = [&] {
            if (once) {
                once = false;
                fixture.trigger("menPrint");
            }
        };
        fixture.click("optView(1)");
        fixture.files.onRead = nullptr;
        QCOMPARE(documents().size(), 1U);
        QVERIFY(printedPages(documents()[0])[0].has(QStringLiteral("18.06.2020 00:10")));
    }

    /// The real question: the enter key says no.
    void noIsTheDefault() {
        Dialogs dialogs;
        QWidget window;
        for (const auto& [key, answer] : {std::pair(Qt::Key_Return, false), {Qt::Key_Escape, false}}) {
            bool yes = true;
            QTimer::singleShot(50, &window,
                               [key = key] { QTest::keyClick(QApplication::activeModalWidget(), key); });
            yes = dialogs.ask(&window, QStringLiteral("Möchten Sie?"), QStringLiteral("Drucken"));
            QCOMPARE(yes, answer);
        }
        QTimer::singleShot(50, &window, [] {
            for (auto* button : QApplication::activeModalWidget()->findChildren<QPushButton*>()) {
                if (button->text() == QStringLiteral("&Ja")) {
                    button->click();
                }
            }
        });
        QVERIFY(dialogs.ask(&window, QStringLiteral("Möchten Sie?"), QStringLiteral("Drucken")));
    }

    /// A diagram's page has the printing date and the device number, below the plot.
    void theFootOfADiagram() {
        const WindowFixture fixture;
        fixture.chooseChannel(DUST_ROW);
        fixture.trigger("menPrint");
        const auto page = printedPages(documents().back()).at(0);
        const auto left = page.find(QStringLiteral("Gerätenummer 17"));
        const auto right = page.find(QStringLiteral("Gedruckt am 18.06.2020"));
        QCOMPARE(left.size(), 1U);
        QCOMPARE(right.size(), 1U);
        QVERIFY(std::fabs(left[0].box.left() - 20) < 0.5);
        QVERIFY(std::fabs(right[0].box.right() - (page.size.width() - 13)) < 0.5);
        for (const auto& word : {left[0], right[0]}) {
            QVERIFY(word.box.top() > page.size.height() - 20 && word.box.bottom() < page.size.height() - 10);
        }
    }

    /// The rose of a page is round, whatever the window's shape.
    void thePolarPage() {
        const WindowFixture fixture;
        fixture.chooseChannel(1);
        fixture.chooseInterval(3);
        auto& ks = fixture.the<PolarSys>("KS");
        fixture.the<QMenu>("menKS").findChild<QAction*>(QStringLiteral("menPolar"))->trigger();
        QCOMPARE(ks.DiagTyp(), int(KIND_POLAR));
        fixture.trigger("menPrint");
        QCOMPARE(fixture.dialogs->messages, QStringList());
        const auto page = printedPages(documents().back()).at(0);
        const auto west = page.find(QStringLiteral("W")).at(0).box;
        const auto east = page.find(QStringLiteral("E")).at(0).box;
        const auto north = page.find(QStringLiteral("N")).at(0).box;
        const auto south = page.find(QStringLiteral("S")).at(0).box;
        QVERIFY(std::fabs((east.right() - west.left()) - (south.bottom() - north.top())) < 15);
        QVERIFY(page.has(
            QStringLiteral("18.06.2020, 00:00 Uhr bis 19.06.2020, 00:00 Uhr, Intervall: 15 Minuten, ") +
            QString::number(ks.sampleCount()) + QStringLiteral(" Intervalle, davon ") +
            QString::number(classify(ks.samples(), ks.RadRaster()).calm) +
            QStringLiteral(" Kalmen. Angaben in Prozent")));
        QVERIFY(page.has(QStringLiteral("Gedruckt am 18.06.2020")));
    }

    /// File output is a printer for the run: the set-up dialog's name serves once, then each job asks.
    void printingIntoAFile() {
        const TempFolder folder;
        const QString first = QString::fromStdString(folder.at("Erste.pdf"));
        const WindowFixture fixture;
        fixture.chooseChannel(DUST_ROW);
        cups().stop();
        fixture.dialogs->onPrinter = [&](QPrinter& printer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(first);
        };
        fixture.trigger("menSelP");
        QCOMPARE(fixture.dialogs->messages, QStringList());
        QCOMPARE(fixture.dialogs->proposedFiles, QStringList());
        QCOMPARE(printedPages(first).size(), 1U);
        fixture.dialogs->pdf = QString(); // cancelled
        fixture.trigger("menPrint");
        const QString proposed =
            QString::fromStdString(folder.at("Kläranlage Nord – Staub – 18.06.2020.pdf"));
        QCOMPARE(fixture.dialogs->proposedFiles, QStringList{proposed});
        fixture.dialogs->pdf = proposed;
        fixture.trigger("menPrint");
        QCOMPARE(printedPages(proposed).size(), 1U);
        fixture.dialogs->pdf = QStringLiteral("/dev/full");
        fixture.trigger("menPrint");
        QCOMPARE(
            fixture.dialogs->messages,
            QStringList{QStringLiteral("Drucken: Die Datei „/dev/full“ konnte nicht geschrieben werden: %1.")
                            .arg(systemReason(std::errc::no_space_on_device))});
        cups().start();
        QCOMPARE(documents().size(), 0U);
    }

    /// A print system that does not answer gives a message, and the window goes on.
    void aSilentPrintSystem() {
        const WindowFixture fixture;
        cups().hang();
        fixture.trigger("menPrint");
        QCOMPARE(
            fixture.dialogs->messages,
            QStringList{QStringLiteral("Drucken: Das Drucksystem antwortet nicht. Bitte versuchen Sie es "
                                       "später noch einmal.")});
        cups().start();
        fixture.trigger("menPrint");
        QCOMPARE(documents().size(), 1U);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_print_test)
#include "f_print_test.moc"
