// SPDX-License-Identifier: GPL-3.0-or-later
// Printing what the window shows, and several channels in one job, on a real print queue.
#include "diagram/PolarDiagram.h"
#include "diagram/PolarSys.h"
#include "diagram/SeriesTable.h"
#include "tests/app/WindowFixture.h"
#include "tests/testing/PrintTest.h"
#include "tests/testing/PrintedDocument.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDir>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPageSize>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <cmath>
#include <memory>
#include <utility>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

using Queue = PrivateCups::Queue;

constexpr int DUST_ROW = 2; // of the channel list
const QString DRIVER_MISSING = QStringLiteral("Printer: Driver missing");
const QString UNREACHABLE = QStringLiteral("Sammeldruck: Der Drucker ist nicht erreichbar. Bitte prüfen Sie, "
                                           "ob er eingeschaltet und eingerichtet ist.");

/// A station with eight days of dust, so that a list is more than 10,000 rows long.
MadeStation longStation() {
    MadeStation station = madeStation();
    constexpr int DAYS = 8;
    auto& dust = station.minutes[7];
    dust.resize(TEST_DAY_MINUTE + DAYS * 1440);
    for (int i = 0; i < DAYS * 1440; ++i) {
        dust[static_cast<std::size_t>(TEST_DAY_MINUTE + i)] = 10'000 + i; // each value once
    }
    return station;
}

} // namespace

class f_print_test : public PrintTest {
    Q_OBJECT

  private:
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

    /// The list of a binary station has a column for each channel, the header with their names.
    void theListOfABinaryStation() {
        const TempFolder binary;
        const std::vector<std::string> names = {"Wind", "-", "Staub"};
        const std::string config = binary.write("VARNIX.CFG", varnixFile("Station Zwei", names, false));
        std::string records;
        for (int minute = 0; minute < 3; ++minute) {
            records +=
                dayRecord(2020, 6, 18, minute, std::vector<float>{1.5F + static_cast<float>(minute), 77.25F});
        }
        binary.write("20200618.KMH", records);
        const WindowFixture fixture;
        fixture.window->readConf(config);
        fixture.click("optView(1)");
        fixture.trigger("menPrint");
        QCOMPARE(fixture.dialogs->messages, QStringList());
        const auto pages = printedPages(documents().back());
        QCOMPARE(pages.size(), 1U);
        const auto places = [&](const char* text) { return pages[0].find(QString::fromUtf8(text)); };
        for (const char* text :
             {"Station Zwei", "Uhrzeit", "Wind []", "Staub []", "18.06.2020 00:00", "1,5", "3,5"}) {
            QCOMPARE(places(text).size(), 1U);
        }
        QCOMPARE(places("77,25").size(), 3U);
        QVERIFY(std::fabs(places("Station Zwei")[0].box.left() - 20) < 0.5);
        QVERIFY(std::fabs(places("Station Zwei")[0].box.top() - 10) < 1.5);
        QVERIFY(std::fabs(places("Uhrzeit")[0].box.left() - 20) < 0.5);
        const double row = places("18.06.2020 00:00")[0].box.top() - places("Uhrzeit")[0].box.top();
        QVERIFY(row > 5 + 3 && row < 5 + 6); // one line and 5 mm
    }

    /// Every row exactly once over its pages, each of which has the header.
    void aLongList() {
        const WindowFixture fixture(longStation());
        fixture.chooseChannel(DUST_ROW);
        fixture.arrange({QStringLiteral("18.06.2020 00:00"), QStringLiteral("25.06.2020 00:00")}, 0);
        fixture.click("optView(1)");
        QCOMPARE(fixture.the<QTableView>("lView").model()->rowCount(), 7 * 1440);
        fixture.trigger("menPrint");
        QCOMPARE(fixture.dialogs->messages, QStringList());
        const auto found = documents();
        QCOMPARE(found.size(), 1U);
        const auto pages = printedPages(found[0]);
        QVERIFY(pages.size() > 100);
        QVERIFY(pages[0].has(QStringLiteral("Kläranlage Nord")));
        int next = 10'000;
        for (const PrintedPage& page : pages) {
            QCOMPARE(page.find(QStringLiteral("Uhrzeit")).size(), 1U);
            QVERIFY(page.has(QStringLiteral("Staub [µg/m³]")));
            bool inFoot = false; // which is in the lower margin
            for (const PrintedWord& word : page.words) {
                bool number = false;
                const int value = word.text.toInt(&number);
                if (number && word.text.size() == 5) {
                    QCOMPARE(value, next);
                    ++next;
                }
                inFoot = inFoot || word.box.top() > page.size.height() - 8;
                QVERIFY(inFoot || word.box.bottom() < page.size.height() - 9);
            }
        }
        QCOMPARE(next, 10'000 + 7 * 1440);
        QCOMPARE(fixture.dialogs->questions,
                 QStringList{QStringLiteral("Drucken: Die Liste hat %1 Seiten. Möchten Sie sie drucken?")
                                 .arg(pages.size())});
    }

    /// Without a yes nothing is printed.
    void aLongListIsAskedAbout() {
        const WindowFixture fixture(longStation());
        fixture.chooseChannel(DUST_ROW);
        fixture.click("optView(1)");
        fixture.dialogs->yes = false;
        fixture.trigger("menPrint");
        QCOMPARE(fixture.dialogs->questions.size(), 1);
        fixture.chooseInterval(4); // hours: one page
        fixture.trigger("menPrint");
        QCOMPARE(fixture.dialogs->questions.size(), 1);
        QCOMPARE(documents().size(), 1U);
        QCOMPARE(cups().newestJob()[QStringLiteral("job-name")],
                 QStringLiteral("Kläranlage Nord – Staub – 18.06.2020"));
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

    /// What the pages of a list tell about themselves.
    void theFootOfAList() {
        const WindowFixture fixture(longStation());
        fixture.chooseChannel(DUST_ROW);
        fixture.chooseInterval(1);
        fixture.click("optView(1)");
        fixture.trigger("menPrint");
        const auto pages = printedPages(documents().back());
        QVERIFY(pages.size() > 1);
        const QString foot = QStringLiteral("18.06.2020, 00:00 Uhr bis 19.06.2020, 00:00 Uhr, "
                                            "Intervall: 5 Minuten, gedruckt am 18.06.2020");
        for (std::size_t i = 0; i < pages.size(); ++i) {
            const auto found = pages[i].find(foot);
            QCOMPARE(found.size(), 1U);
            QVERIFY(std::fabs(found[0].box.left() - 20) < 0.5);
            QVERIFY(found[0].box.top() > pages[i].size.height() - 10);
            const auto number = pages[i].find(QStringLiteral("Seite %1 von %2").arg(i + 1).arg(pages.size()));
            QCOMPARE(number.size(), 1U);
            QVERIFY(std::fabs(number[0].box.right() - (pages[i].size.width() - 10)) < 0.5);
            QCOMPARE(pages[i].find(QStringLiteral("Zeit: Beginn des Intervalls, ohne Sommerzeit")).size(),
                     i == 0 ? 1U : 0U);
        }
    }

    /// A diagram's page bears the printing date and the device number, below the plot.
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
        QCOMPARE(fixture.dialogs->messages,
                 QStringList{QStringLiteral("Drucken: Die Datei „/dev/full“ konnte nicht geschrieben werden: "
                                            "No space left on device.")});
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

    void aRefusedListSaysWhy() {
        const WindowFixture fixture;
        fixture.chooseInterval(4);
        fixture.click("optView(1)");
        cups().reject(QStringLiteral("Papier wird gewechselt"));
        fixture.trigger("menPrint");
        cups().resume();
        QCOMPARE(fixture.dialogs->messages.size(), 1);
        QVERIFY(fixture.dialogs->messages[0].contains(QStringLiteral("Papier wird gewechselt")));
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    }

    /// 10,000 pages, cancelled at page 5,000: no job, no file, and a window that goes on. Until then it takes
    /// no input.
    void aCancelledList() {
        const QStringList filesBefore =
            QDir(QDir::tempPath()).entryList({QStringLiteral("kelvrum-*.pdf")}, QDir::Files);
        const WindowFixture fixture(longStation());
        fixture.chooseChannel(DUST_ROW);
        fixture.arrange({QStringLiteral("18.06.2020 00:00"), QStringLiteral("25.06.2020 00:00")}, 0);
        fixture.click("optView(1)");
        const int rows = fixture.the<QTableView>("lView").model()->rowCount();
        bool cancelled = false;
        int closed = 0;
        QTimer timer;
        connect(&timer, &QTimer::timeout, this, [&] {
            auto* dialog = fixture.window->findChild<QProgressDialog*>(QStringLiteral("PrintProgress"));
            if (dialog == nullptr || cancelled) {
                return;
            }
            fixture.click("optView(0)"); // taken by nothing
            closed += fixture.window->close() ? 1 : 0;
            if (dialog->value() >= 5000) {
                cancelled = true;
                QVERIFY(dialog->maximum() > 10'000);
                auto* button = dialog->findChild<QPushButton*>();
                QCOMPARE(button->text(), QStringLiteral("Abbrechen"));
                QTest::mouseClick(button, Qt::LeftButton);
            }
        });
        timer.start(50);
        fixture.dialogs->onPrinter = [](QPrinter& printer) {
            printer.setPageSize(QPageSize(QPageSize::A10)); // with one row on each page
            printer.setPageOrientation(QPageLayout::Landscape);
        };
        fixture.trigger("menSelP");
        timer.stop();
        QVERIFY(cancelled);
        QCOMPARE(closed, 0);
        QCOMPARE(fixture.dialogs->messages, QStringList());
        QVERIFY(fixture.window->isVisible());
        QVERIFY(fixture.the<QAbstractButton>("optView(1)").isChecked());
        QCOMPARE(fixture.the<QTableView>("lView").model()->rowCount(), rows);
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        QCOMPARE(cups().openJobs(), 0U);
        QCOMPARE(documents().size(), 0U);
        QCOMPARE(QDir(QDir::tempPath()).entryList({QStringLiteral("kelvrum-*.pdf")}, QDir::Files),
                 filesBefore);
        fixture.click("optView(0)");
        fixture.trigger("menPrint");
        QCOMPARE(documents().size(), 1U);
    }

    /// Two channels in one job of two pages; the view is as it was before.
    void theBatch() {
        MadeStation made = madeStation();
        made.ini +=
            "CHAN01|Vertikalwind|m/s|-5|5||0|1|2|1|0|0|VW\nCHAN08|Lufttemperatur|°C|-20|40||0|1|2|1|0|0|LT\n";
        made.minutes[1] = made.minutes[4];
        made.minutes[8] = made.minutes[7];
        const WindowFixture fixture(made);
        fixture.chooseChannel(DUST_ROW + 1); // one channel more before it
        auto& ks = fixture.the<PolarSys>("KS");
        fixture.click("Option1");
        const int count = ks.DataCount();
        QString result;
        fixture.inWindowOf(
            [&] { fixture.trigger("menCPrint"); },
            [&result](QWidget& dialog) {
                QCOMPARE(dialog.windowTitle(), QStringLiteral("Sammeldruck"));
                for (const char* row : {"chKanal(0)", "chKanal(5)", "chAuto(0)", "chShowLines(0)"}) {
                    auto* box = dialog.findChild<QCheckBox*>(QString::fromUtf8(row));
                    QVERIFY(box != nullptr);
                    QTest::keyClick(box, Qt::Key_Space);
                }
                for (const auto& [field, text] : {std::pair("tMin(5)", "-250"), {"tMax(5)", "1250"}}) {
                    auto* box = dialog.findChild<QLineEdit*>(QString::fromUtf8(field));
                    box->selectAll();
                    QTest::keyClicks(box, QString::fromUtf8(text));
                }
                auto* interval = dialog.findChild<QComboBox*>(QStringLiteral("selInterval(5)"));
                for (int i = 0; i < 4; ++i) {
                    QTest::keyClick(interval, Qt::Key_Down);
                }
                auto* print = dialog.findChild<QPushButton*>(QStringLiteral("OKButton"));
                QVERIFY(print->isEnabled());
                QTest::mouseClick(print, Qt::LeftButton);
                auto* said = dialog.findChild<QLabel*>(QStringLiteral("lResult"));
                result = said->isVisible() ? said->text() : QString();
            });
        QCOMPARE(fixture.dialogs->messages, QStringList());
        QCOMPARE(result, QStringLiteral("2 Seiten an den Drucker „Testdrucker“ gedruckt."));
        QCOMPARE(cups().newestJob()[QStringLiteral("job-name")],
                 QStringLiteral("Kläranlage Nord – Sammeldruck – 18.06.2020"));
        const auto found = documents();
        QCOMPARE(found.size(), 1U);
        const auto pages = printedPages(found[0]);
        QCOMPARE(pages.size(), 2U);
        QVERIFY(pages[0].has(QStringLiteral("Vertikalwind [m/s]")));
        QVERIFY(pages[0].has(QStringLiteral("1 Minute Mittelwert")));
        QVERIFY(!pages[0].has(QStringLiteral("1250")));
        QVERIFY(pages[1].has(QStringLiteral("Lufttemperatur [°C]")));
        QVERIFY(pages[1].has(QStringLiteral("1 Stunde Mittelwert")));
        QVERIFY(pages[1].has(QStringLiteral("1250"))); // its own scale
        for (const PrintedPage& page : pages) {
            QVERIFY(page.size.width() > page.size.height());
        }
        QVERIFY(picturesIn(found[0]).isEmpty());
        QCOMPARE(ks.DataCount(), count);
        QCOMPARE(ks.Y1Low(), AUTOMATIC_RANGE);
        QVERIFY(ks.HeadLine().find("Staub") != std::string::npos);
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    }

    /// Wherever the scheduler dies in a batch: it prints the whole job or a message tells that it does not,
    /// all is as before, and the next one prints.
    void theSchedulerDiesInABatch_data() {
        QTest::addColumn<int>("step");
        QTest::addColumn<QString>("message");
        QTest::newRow("before the start") << 0 << UNREACHABLE;
        QTest::newRow("first channel is read") << 1 << UNREACHABLE;
        QTest::newRow("second channel is read") << 2 << UNREACHABLE;
        QTest::newRow("third channel is read") << 3 << UNREACHABLE;
        QTest::newRow("job is sent, view is loaded") << 4 << QString();
    }
    void theSchedulerDiesInABatch() {
        QFETCH(int, step);
        QFETCH(QString, message);
        MadeStation made = madeStation();
        made.ini +=
            "CHAN01|Vertikalwind|m/s|-5|5||0|1|2|1|0|0|VW\nCHAN08|Lufttemperatur|°C|-20|40||0|1|2|1|0|0|LT\n";
        made.minutes[1] = made.minutes[4];
        made.minutes[8] = made.minutes[7];
        WindowFixture fixture(made);
        fixture.chooseChannel(DUST_ROW);
        const int count = fixture.the<PolarSys>("KS").DataCount();
        bool dies = true;
        const auto print = [&](QWidget& dialog) {
            for (const char* row : {"chKanal(0)", "chKanal(3)", "chKanal(5)"}) {
                QTest::keyClick(dialog.findChild<QCheckBox*>(QString::fromUtf8(row)), Qt::Key_Space);
            }
            if (step == 0 && dies) {
                cups().kill();
            }
            auto* button = dialog.findChild<QPushButton*>(QStringLiteral("OKButton"));
            QTest::mouseClick(button, Qt::LeftButton);
            QVERIFY(button->isEnabled());
        };
        int reads = 0;
        fixture.files.onRead = [&] {
            if (++reads == step) {
                cups().kill();
            }
        };
        fixture.inWindowOf([&] { fixture.trigger("menCPrint"); }, print);
        fixture.files.onRead = nullptr;
        dies = false;
        QVERIFY(step == 0 || reads >= step);
        QCOMPARE(fixture.dialogs->messages, message.isEmpty() ? QStringList() : QStringList{message});
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        QCOMPARE(fixture.the<PolarSys>("KS").DataCount(), count);
        fixture.dialogs->messages.clear();
        cups().start();
        const std::size_t printed = documents().size();
        QCOMPARE(printed, message.isEmpty() ? 1U : 0U);
        fixture.inWindowOf([&] { fixture.trigger("menCPrint"); }, print);
        QCOMPARE(fixture.dialogs->messages, QStringList());
        QCOMPARE(documents().size(), printed + 1);
        QCOMPARE(printedPages(documents().back()).size(), 3U);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_print_test)
#include "f_print_test.moc"
