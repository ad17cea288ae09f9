// SPDX-License-Identifier: GPL-3.0-or-later
// The line diagram on paper: jobs and pages as a real print scheduler receives them.
#include "tests/diagram/PrintedDiagram.h"

#include <QImage>
#include <QPrinter>
#include <QTest>
#include <cmath>
#include <exception>
#include <memory>
#include <string>

namespace kelvrum {
namespace {

using kelvrum::testing::PAGE_HEIGHT;
using kelvrum::testing::PAGE_WIDTH;
using kelvrum::testing::PrintedDiagram;
using kelvrum::testing::PrintedPage;
using kelvrum::testing::printedPages;
using kelvrum::testing::PrivateCups;
using kelvrum::testing::UNREACHABLE;

using Queue = PrivateCups::Queue;

/// What PrintDiag says when it fails; nothing when it does not.
std::string failure(PolarSys& control, bool finish) {
    try {
        control.PrintDiag(finish);
    } catch (const PrintError& error) {
        return error.what();
    }
    return {};
}

} // namespace

class PrintDiagTest : public testing::PrintTest {
    Q_OBJECT

  private:
    /// Prints one page and reads it; a page without words when it did not come out as one.
    [[nodiscard]] PrintedPage printedPage(PrintedDiagram& diagram) const {
        diagram.print(true);
        const std::vector<QString> found = documents();
        const auto pages = found.empty() ? std::vector<PrintedPage>() : printedPages(found.back());
        return pages.size() == 1 ? pages[0] : PrintedPage();
    }

  private Q_SLOTS:

    // --- jobs ---

    void callsMakePages_data() {
        QTest::addColumn<QList<bool>>("calls");
        QTest::newRow("one call that ends the job") << QList<bool>{true};
        QTest::newRow("two calls, the second ends it") << QList<bool>{false, true};
        QTest::newRow("three calls") << QList<bool>{false, false, true};
    }
    void callsMakePages() {
        QFETCH(QList<bool>, calls);
        PrintedDiagram diagram;
        for (qsizetype i = 0; i < calls.size(); ++i) {
            QCOMPARE(diagram.job.isOpen(), i > 0);
            diagram.control.setHeadLine("Blatt" + std::to_string(i));
            diagram.print(calls[i]);
        }
        QVERIFY(!diagram.job.isOpen());
        QCOMPARE(documents().size(), std::size_t(1));
        const std::vector<PrintedPage> pages = printedPages(documents()[0]);
        QCOMPARE(static_cast<qsizetype>(pages.size()), calls.size());
        for (std::size_t i = 0; i < pages.size(); ++i) {
            QVERIFY(pages[i].has(QStringLiteral("Blatt%1").arg(i)));
            QVERIFY(std::abs(pages[i].size.width() - PAGE_WIDTH) < 0.5);
            QVERIFY(std::abs(pages[i].size.height() - PAGE_HEIGHT) < 0.5);
        }
    }

    void nothingIsSentBeforeTheEnd() {
        PrintedDiagram diagram;
        diagram.print(false);
        QVERIFY(diagram.job.isOpen());
        QCOMPARE(documents().size(), std::size_t(0)); // which waits until no job is open
        diagram.job.end();
        QVERIFY(!diagram.job.isOpen());
        QCOMPARE(documents().size(), std::size_t(1));
        diagram.job.end(); // closed: nothing to send
        QCOMPARE(documents().size(), std::size_t(1));
    }

    void anAbandonedJobLeavesNothing() {
        PrintedDiagram diagram;
        diagram.control.setHeadLine("Verworfen");
        diagram.print(false);
        diagram.job.abandon();
        QVERIFY(!diagram.job.isOpen());
        QCOMPARE(documents().size(), std::size_t(0));
        diagram.control.setHeadLine("Gedruckt");
        const PrintedPage page = printedPage(diagram);
        QVERIFY(page.has(QStringLiteral("Gedruckt")));
        QVERIFY(!page.has(QStringLiteral("Verworfen")));
    }

    void jobsFollowOneAnother() {
        PrintedDiagram diagram;
        for (const char* const title : {"Erster", "Zweiter", "Dritter"}) {
            diagram.control.setHeadLine(title);
            const PrintedPage page = printedPage(diagram);
            QVERIFY2(page.has(QString::fromLatin1(title)), title);
        }
        QCOMPARE(documents().size(), std::size_t(3));
    }

    void theScreenStaysAsItIs() {
        PrintedDiagram diagram;
        diagram.control.resize(400, 300);
        diagram.control.Draw();
        const QImage picture = diagram.control.picture().toImage();
        diagram.print(true);
        QCOMPARE(diagram.control.drawings(), 1);
        QCOMPARE(diagram.control.picture().toImage(), picture);
        diagram.control.Draw();
        QCOMPARE(diagram.control.picture().toImage(), picture);
    }

    void anUnknownKindPrintsAnEmptyPage_data() {
        QTest::addColumn<int>("kind");
        QTest::newRow("below the first kind") << -1;
        QTest::newRow("above the last kind") << 5;
    }
    void anUnknownKindPrintsAnEmptyPage() {
        QFETCH(int, kind);
        PrintedDiagram diagram;
        diagram.control.setDiagTyp(kind);
        diagram.print(true);
        QCOMPARE(documents().size(), std::size_t(1));
        const std::vector<PrintedPage> pages = printedPages(documents()[0]);
        QCOMPARE(pages.size(), std::size_t(1));
        QVERIFY(pages[0].words.empty());
    }

    // --- failures ---

    void withoutAPrinterNothingIsPrinted_data() {
        QTest::addColumn<bool>("running");
        QTest::addColumn<bool>("printedBefore");
        QTest::addColumn<bool>("finish");
        for (const bool running : {false, true}) {
            for (const bool before : {false, true}) {
                for (const bool finish : {false, true}) {
                    QTest::addRow("%s, %s, %s", running ? "no queue" : "no scheduler",
                                  before ? "there was one" : "from the start", finish ? "true" : "false")
                        << running << before << finish;
                }
            }
        }
    }
    void withoutAPrinterNothingIsPrinted() {
        QFETCH(bool, running);
        QFETCH(bool, printedBefore);
        QFETCH(bool, finish);
        PrintedDiagram diagram;
        if (printedBefore) {
            diagram.print(true);
            QVERIFY(diagram.job.hasPrinter());
        }
        cups().stop();
        if (running) {
            cups().start(Queue::NONE);
        }
        QVERIFY(!diagram.job.hasPrinter());
        QCOMPARE(failure(diagram.control, finish), std::string(UNREACHABLE));
        QVERIFY(!diagram.job.isOpen());
        QCOMPARE(failure(diagram.control, finish), std::string(UNREACHABLE)); // the control is usable

        cups().start();
        QVERIFY(diagram.job.hasPrinter());
        QCOMPARE(documents().size(), std::size_t(printedBefore ? 1 : 0));
        diagram.control.setHeadLine("Danach");
        const PrintedPage page = printedPage(diagram);
        QVERIFY(page.has(QStringLiteral("Danach")));
    }

    void anotherPrinterTakesThePlaceOfOneThatIsGone() {
        PrintedDiagram diagram;
        diagram.print(true);
        cups().start(Queue::OTHER);
        const std::size_t before = cups().documents().size();
        QVERIFY(diagram.job.hasPrinter());
        QCOMPARE(diagram.job.printer().printerName(), QStringLiteral("Ersatzdrucker"));
        diagram.print(true);
        QCOMPARE(cups().documents().size(), before + 1);
    }

    void aPrinterThatIsGoneBeforeTheEndPrintsNothing() {
        PrintedDiagram diagram;
        diagram.print(false);
        cups().start(Queue::OTHER); // not the one that the pages were made for
        const std::size_t before = cups().documents().size();
        QCOMPARE(failure(diagram.control, true), std::string(UNREACHABLE));
        QVERIFY(!diagram.job.isOpen());
        QCOMPARE(cups().documents().size(), before);
    }

    void aSchedulerThatDiesBetweenPagesPrintsNone() {
        PrintedDiagram diagram;
        diagram.control.setHeadLine("Vorher");
        diagram.print(false);
        cups().kill();
        QCOMPARE(failure(diagram.control, true), std::string(UNREACHABLE));
        QVERIFY(!diagram.job.isOpen());

        cups().start();
        QCOMPARE(documents().size(), std::size_t(0));
        diagram.control.setHeadLine("Danach");
        const PrintedPage page = printedPage(diagram);
        QVERIFY(page.has(QStringLiteral("Danach")));
        QVERIFY(!page.has(QStringLiteral("Vorher")));
    }

    void aSchedulerThatDiesBeforeTheEndPrintsNothing() {
        PrintedDiagram diagram;
        diagram.print(false);
        diagram.print(false);
        cups().kill();
        QVERIFY_THROWS_EXCEPTION(PrintError, diagram.job.end());
        QVERIFY(!diagram.job.isOpen());
        cups().start();
        QCOMPARE(documents().size(), std::size_t(0));
        diagram.print(true);
        QCOMPARE(documents().size(), std::size_t(1));
    }

    void aSchedulerThatIsBackInTimeTakesTheWholeJob() {
        PrintedDiagram diagram;
        diagram.print(false);
        cups().kill();
        cups().start();
        diagram.print(true);
        QCOMPARE(documents().size(), std::size_t(1));
        QCOMPARE(printedPages(documents()[0]).size(), std::size_t(2));
    }

    void aControlThatOutlivesItsJobSaysSo() {
        PolarSys control{LocaleTexts()};
        auto job = std::make_unique<PrintJob>();
        control.setPrintJob(*job);
        job.reset();
        QCOMPARE(failure(control, true), std::string("Es ist kein Drucker eingerichtet."));
        QCOMPARE(failure(control, false), std::string("Es ist kein Drucker eingerichtet."));
    }

    void aControlWithoutAJobSaysSo() {
        PolarSys control{LocaleTexts()};
        QCOMPARE(failure(control, true), std::string("Es ist kein Drucker eingerichtet."));
        QCOMPARE(failure(control, false), std::string("Es ist kein Drucker eingerichtet."));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::PrintDiagTest)
#include "PrintDiagTest.moc"
