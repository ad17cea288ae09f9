// SPDX-License-Identifier: GPL-3.0-or-later
// The data list on paper: its pages, their feet, the question before many of them, and cancelling.
#include "tests/app/WindowFixture.h"
#include "tests/testing/PrintTest.h"
#include "tests/testing/PrintedDocument.h"

#include <QAbstractButton>
#include <QDir>
#include <QPageSize>
#include <QPrinter>
#include <QProgressDialog>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <cmath>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr int DUST_ROW = 2; // of the channel list

} // namespace

class f_print_list_test : public PrintTest {
    Q_OBJECT

  private Q_SLOTS:
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
    void aLongListIsPrintedAfterAQuestion() {
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

    /// The file that was chosen for a list which then is not printed is not the next job's: that asks again.
    void aNoForgetsTheFile() {
        const TempFolder folder;
        const auto file = [&folder](const char* name) { return QString::fromStdString(folder.at(name)); };
        const WindowFixture fixture(longStation());
        fixture.chooseChannel(DUST_ROW);
        fixture.dialogs->onPrinter = [&](QPrinter& printer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(file("Einrichten.pdf"));
        };
        fixture.click("optView(1)");
        fixture.dialogs->yes = false;
        fixture.trigger("menSelP"); // whose name is used for one job
        QCOMPARE(fixture.dialogs->proposedFiles.size(), 0);
        fixture.dialogs->pdf = file("Liste.pdf");
        fixture.trigger("menPrint");
        QCOMPARE(fixture.dialogs->questions.size(), 2);
        QCOMPARE(fixture.dialogs->proposedFiles.size(), 1);
        fixture.click("optView(0)");
        fixture.dialogs->pdf = file("Diagramm.pdf");
        fixture.trigger("menPrint");
        QCOMPARE(fixture.dialogs->proposedFiles.size(), 2);
        QCOMPARE(QDir(file("")).entryList(QDir::Files), QStringList{QStringLiteral("Diagramm.pdf")});
        QCOMPARE(printedPages(file("Diagramm.pdf")).size(), 1U);
    }

    /// 20 pages are printed at once, 21 after a question. A page of this paper has room for one row.
    void asksBeforeMoreThanTwentyPages() {
        const WindowFixture fixture(longStation());
        fixture.chooseChannel(DUST_ROW);
        fixture.dialogs->yes = false;
        fixture.dialogs->onPrinter = [](QPrinter& printer) {
            printer.setPageSize(QPageSize(QPageSize::A10));
            printer.setPageOrientation(QPageLayout::Landscape);
        };
        fixture.arrange({QStringLiteral("18.06.2020 00:00"), QStringLiteral("18.06.2020 00:19")}, 0);
        fixture.click("optView(1)");
        fixture.trigger("menSelP");
        QCOMPARE(fixture.dialogs->questions, QStringList());
        QCOMPARE(printedPages(documents().back()).size(), 20U);
        fixture.arrange({QStringLiteral("18.06.2020 00:00"), QStringLiteral("18.06.2020 00:20")}, 0);
        fixture.trigger("menPrint");
        QCOMPARE(fixture.dialogs->questions,
                 QStringList{QStringLiteral("Drucken: Die Liste hat 21 Seiten. Möchten Sie sie drucken?")});
        QCOMPARE(documents().size(), 1U);
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

    /// On narrow paper foot and number have a line each; what does not fit is cut.
    void theFootOnSmallPaper() {
        cups().start(PrivateCups::Queue::BORDERS); // of 20 mm on A5
        const WindowFixture fixture;
        fixture.chooseInterval(4);
        fixture.click("optView(1)");
        fixture.dialogs->onPrinter = [](QPrinter& printer) { printer.setPageSize(QPageSize(QPageSize::A5)); };
        fixture.trigger("menSelP");
        const auto page = printedPages(cups().documents().back()).at(0);
        const auto foot = page.find(QStringLiteral("18.06.2020, 00:00 Uhr bis"));
        const auto number = page.find(QStringLiteral("Seite 1 von"));
        QCOMPARE(foot.size(), 1U);
        QCOMPARE(number.size(), 1U);
        QVERIFY(number[0].box.top() >= foot[0].box.bottom() - 0.3);
        const QRectF printable = QRectF(QPointF(), page.size).adjusted(20, 20, -20, -20);
        for (const PrintedWord& word : page.words) {
            QVERIFY2(printable.contains(word.box), qPrintable(word.text));
        }
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
            fixture.click("optView(0)"); // ignored meanwhile
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
        QCOMPARE(temporaryFiles(), QStringList());
        fixture.click("optView(0)");
        fixture.trigger("menPrint");
        QCOMPARE(documents().size(), 1U);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_print_list_test)
#include "f_print_list_test.moc"
