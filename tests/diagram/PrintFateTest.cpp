// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of a print job on a queue that takes it, refuses it, is stopped, dies or does not answer: it
// is printed whole or not at all. And which options the queue gets.
#include "tests/diagram/PrintedDiagram.h"

#include <QPrinter>
#include <QTest>
#include <string>
#include <tuple>

namespace kelvrum {
namespace {

using kelvrum::testing::addNumberPages;
using kelvrum::testing::failureOf;
using kelvrum::testing::MANY_PAGES;
using kelvrum::testing::PrintedDiagram;
using kelvrum::testing::PrivateCups;
using kelvrum::testing::UNREACHABLE;

using Queue = PrivateCups::Queue;
using Stage = PrintProgress::Stage;

constexpr const char* NO_ANSWER =
    "Das Drucksystem antwortet nicht. Bitte versuchen Sie es später noch einmal.";
const QString WORDS = QStringLiteral("Papier wird gewechselt");

} // namespace

class PrintFateTest : public testing::PrintTest {
    Q_OBJECT

  private Q_SLOTS:
    // --- the queue's answer ---

    void aPrintedJobSaysNothing() {
        PrintedDiagram diagram;
        diagram.print(false);
        QCOMPARE(failureOf(diagram.job), QString());
        QCOMPARE(newJobs(), std::size_t(1));
        QCOMPARE(diagram.job.receipt().pages, std::size_t(1));
        QCOMPARE(diagram.job.receipt().place, QStringLiteral("auf dem Drucker „Testdrucker“"));
    }

    void aQueueThatRefusesSaysWhy() {
        PrintedDiagram diagram;
        diagram.print(false);
        cups().reject(WORDS);
        const QString said = failureOf(diagram.job);
        QVERIFY2(said.startsWith(
                     QStringLiteral("Der Druckauftrag wurde vom Drucker „Testdrucker“ nicht angenommen: ")),
                 qPrintable(said));
        QVERIFY2(said.contains(WORDS), qPrintable(said));
        QVERIFY(!diagram.job.isOpen());
        QCOMPARE(newJobs(), std::size_t(0));
        cups().resume();
        diagram.print(true);
        QCOMPARE(newJobs(), std::size_t(1));
    }

    void aStoppedQueueSaysWhy() {
        PrintedDiagram diagram;
        diagram.print(false);
        cups().halt(WORDS);
        const QString said = failureOf(diagram.job);
        QVERIFY2(said.startsWith(QStringLiteral("Der Drucker „Testdrucker“ ist angehalten: ") + WORDS),
                 qPrintable(said));
        QCOMPARE(newJobs(), std::size_t(1)); // it waits
        cups().resume();
        QCOMPARE(documents().size(), std::size_t(1));
    }

    void aSchedulerThatDiesWhileItReceivesPrintsNothing() {
        PrintedDiagram diagram;
        diagram.print(false);
        diagram.job.setStep([this](const PrintProgress& progress) {
            if (progress.stage == Stage::making) {
                cups().kill(); // after the last question, before the first byte
            }
            return true;
        });
        QCOMPARE(failureOf(diagram.job), QString::fromUtf8(UNREACHABLE));
        diagram.job.setStep({});
        cups().start();
        QCOMPARE(newJobs(), std::size_t(0));
        diagram.print(true);
        QCOMPARE(newJobs(), std::size_t(1));
    }

    /// Killed when it has a part of the document.
    void aSchedulerKilledWhileItReceivesPrintsNothing() {
        PrintedDiagram diagram;
        addNumberPages(diagram.job, MANY_PAGES);
        bool partly = false;
        diagram.job.setStep([&](const PrintProgress& progress) {
            if (progress.stage == Stage::making && progress.done == progress.total) {
                cups().freeze();
            } else if (progress.stage == Stage::sending && progress.done > 0 && !partly) {
                partly = progress.done < progress.total;
                cups().kill();
            }
            return true;
        });
        QCOMPARE(failureOf(diagram.job), QString::fromUtf8(UNREACHABLE));
        QVERIFY(partly);
        diagram.job.setStep({});
        cups().start();
        QCOMPARE(newJobs(), std::size_t(0));
        diagram.print(true);
        QCOMPARE(newJobs(), std::size_t(1));
    }

    void aSchedulerThatDoesNotAnswerIsGivenUp_data() {
        QTest::addColumn<bool>("early");
        QTest::newRow("from the start") << true;
        QTest::newRow("when the document is sent") << false;
    }
    void aSchedulerThatDoesNotAnswerIsGivenUp() {
        QFETCH(bool, early);
        PrintedDiagram diagram;
        int steps = 0;
        if (early) {
            cups().hang();
            diagram.job.setStep([&](const PrintProgress&) { return ++steps > 0; });
            QVERIFY_THROWS_EXCEPTION(PrintError, std::ignore = diagram.job.hasPrinter());
        } else {
            diagram.print(false);
            cups().hang();
            diagram.job.setStep([&](const PrintProgress&) { return ++steps > 0; });
            QCOMPARE(failureOf(diagram.job), QString::fromUtf8(NO_ANSWER));
        }
        // Events have run meanwhile, every 20 ms: for a second when it is probed, for ten with a document.
        QVERIFY2(early ? steps > 1 && steps < 250 : steps > 10, qPrintable(QString::number(steps)));
        QVERIFY(!diagram.job.isOpen());
        diagram.job.setStep({});
        cups().start();
        QCOMPARE(newJobs(), std::size_t(0));
        diagram.print(true);
        QCOMPARE(newJobs(), std::size_t(1));
    }

    void aJobThatFailsLaterSaysWhy_data() {
        QTest::addColumn<int>("queue");
        QTest::addColumn<QString>("said");      // up to the print system's own words
        QTest::newRow("cancelled at the queue") // which has words for it only once the printer has begun
            << int(Queue::ENDLESS)
            << QStringLiteral("Der Druckauftrag wurde auf dem Drucker „Dauerdrucker“ abgebrochen");
        QTest::newRow("aborted by the printer")
            << int(Queue::FAILING)
            << QStringLiteral("Der Druckauftrag wurde auf dem Drucker „Fehldrucker“ abgebrochen: ");
        QTest::newRow("stopped, unlike its printer")
            << int(Queue::FILTER)
            << QStringLiteral("Der Druckauftrag wurde auf dem Drucker „Filterdrucker“ angehalten: ");
    }
    void aJobThatFailsLaterSaysWhy() {
        QFETCH(int, queue);
        QFETCH(QString, said);
        cups().start(Queue(queue));
        std::size_t known = cups().allJobs();
        PrintedDiagram diagram;
        diagram.print(false);
        diagram.job.setStep([&](const PrintProgress& progress) {
            if (queue == int(Queue::ENDLESS) && progress.stage == Stage::sending && cups().openJobs() > 0) {
                cups().cancelJobs();
            }
            return true;
        });
        QString message = failureOf(diagram.job);
        for (int again = 0; again < 2 && message.isEmpty(); ++again) { // a busy scheduler fails it too late
            ++known;
            diagram.print(false);
            message = failureOf(diagram.job);
        }
        QVERIFY2(message.startsWith(said), qPrintable(message));
        if (said.endsWith(QStringLiteral(": "))) {
            QVERIFY2(message.section(QStringLiteral(": "), 1).size() > 5, qPrintable(message));
        }
        QVERIFY(!diagram.job.isOpen());
        QCOMPARE(cups().allJobs(), known + 1);
    }

    /// A print system that keeps no list of what it has printed.
    void aJobThatHasLeftTheListCountsAsPrinted() {
        cups().start(Queue::FORGETS);
        PrintedDiagram diagram;
        diagram.print(false);
        QCOMPARE(failureOf(diagram.job), QString());
        QCOMPARE(diagram.job.receipt().pages, std::size_t(1));
        QCOMPARE(cups().allJobs(), std::size_t(0));
    }

    // --- the options of the job ---

    void theQueueGetsNameAndChoices() {
        cups().start(Queue::BORDERS); // its description has sides and sources
        PrintedDiagram diagram;
        diagram.job.setName("Kläranlage Nord – Staub PM10 – 18.06.2026");
        diagram.job.setUp([](QPrinter& printer) {
            printer.setCopyCount(3);
            printer.setCollateCopies(false);
            printer.setDuplex(QPrinter::DuplexShortSide);
            printer.setColorMode(QPrinter::GrayScale);
            printer.setPageSize(QPageSize(QPageSize::A5));
            printer.setPaperSource(QPrinter::Lower);
            return true;
        });
        diagram.print(true);
        const auto job = cups().newestJob();
        const auto is = [&job](const char* name, const char* value) {
            const auto found = job.find(QString::fromUtf8(name));
            const QString text = found != job.end() ? found->second : QStringLiteral("nothing");
            if (text != QString::fromUtf8(value)) {
                qWarning("%s: %s", name, qPrintable(text));
            }
            return text == QString::fromUtf8(value);
        };
        QVERIFY(is("job-name", "Kläranlage Nord – Staub PM10 – 18.06.2026"));
        QVERIFY(is("copies", "3"));
        QVERIFY(is("Collate", "false"));
        QVERIFY(is("sides", "two-sided-short-edge"));
        QVERIFY(is("print-color-mode", "monochrome"));
        QVERIFY(is("media", "A5"));
        QVERIFY(is("InputSlot", "Lower"));
        const QImage page = testing::picturedPage(cups().documents().back(), 0, 5);
        for (int y = 0; y < page.height(); ++y) {
            for (int x = 0; x < page.width(); ++x) {
                const QRgb dot = page.pixel(x, y);
                QVERIFY(qRed(dot) == qGreen(dot) && qGreen(dot) == qBlue(dot));
            }
        }
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::PrintFateTest)
#include "PrintFateTest.moc"
