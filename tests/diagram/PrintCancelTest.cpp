// SPDX-License-Identifier: GPL-3.0-or-later
// Cancelling a print job at any time: the queue has nothing of it then, and no file is left.
#include "tests/diagram/PrintedDiagram.h"

#include <QTest>

namespace kelvrum {
namespace {

using kelvrum::testing::addNumberPages;
using kelvrum::testing::MANY_PAGES;
using kelvrum::testing::PrintedDiagram;
using kelvrum::testing::PrivateCups;

using Queue = PrivateCups::Queue;
using Stage = PrintProgress::Stage;

constexpr int BLOCKED = 150; // steps without progress, three seconds: a busy machine may hold the sender up

void endCancelled(PrintJob& job) { QVERIFY_THROWS_EXCEPTION(PrintCancelled, job.end()); }

} // namespace

class PrintCancelTest : public testing::PrintTest {
    Q_OBJECT

  private:
    /// Freezes the scheduler before a job is sent and cancels the job when no more of it is taken; `sent` are
    /// the pages that were.
    PrintJob::Step cancelWhenBlocked(std::size_t& sent) const {
        return [this, &sent, sameAsBefore = 0](const PrintProgress& progress) mutable {
            if (progress.stage == Stage::making && progress.done == progress.total) {
                cups().freeze();
            } else if (progress.stage == Stage::sending) {
                sameAsBefore = progress.done == sent && sent > 0 ? sameAsBefore + 1 : 0;
                sent = progress.done;
            }
            return sameAsBefore < BLOCKED;
        };
    }
    /// How many pages of a job the system takes for a scheduler that does not read.
    std::size_t pagesUntilItBlocks(PrintJob& job) const {
        std::size_t sent = 0;
        job.setStep(cancelWhenBlocked(sent));
        endCancelled(job);
        job.setStep({});
        cups().kill();
        return sent;
    }

  private Q_SLOTS:
    void aCancelledJobLeavesNothing_data() {
        QTest::addColumn<int>("stage");
        QTest::addColumn<bool>("hanging");
        QTest::newRow("while pages are made") << int(Stage::making) << false;
        QTest::newRow("while it is sent") << int(Stage::sending) << true;
    }
    void aCancelledJobLeavesNothing() {
        QFETCH(int, stage);
        QFETCH(bool, hanging);
        PrintedDiagram diagram;
        diagram.print(false);
        diagram.print(false);
        if (hanging) {
            cups().hang();
        }
        diagram.job.setStep([stage](const PrintProgress& progress) { return int(progress.stage) != stage; });
        QVERIFY_THROWS_EXCEPTION(PrintCancelled, diagram.job.end());
        QVERIFY(!diagram.job.isOpen());
        diagram.job.setStep({});
        cups().start();
        QCOMPARE(newJobs(), std::size_t(0));
    }

    /// The user may cancel a job that the queue has already accepted.
    void aJobIsWithdrawnFromTheQueue() {
        cups().start(Queue::ENDLESS);
        const std::size_t known = cups().allJobs();
        PrintedDiagram diagram;
        diagram.print(false);
        diagram.job.setStep([&](const PrintProgress& progress) {
            return progress.stage != Stage::sending || cups().openJobs() == 0;
        });
        QVERIFY_THROWS_EXCEPTION(PrintCancelled, diagram.job.end());
        QCOMPARE(cups().allJobs(), known + 1);
        QTRY_COMPARE(cups().openJobs(), std::size_t(0));
    }

    /// Cancelled when the queue already has, or is about to have, all bytes: what becomes a job is cancelled.
    void aJobCancelledTooLateIsTakenBack_data() {
        QTest::addColumn<bool>("stopped");
        QTest::addColumn<bool>("large");
        QTest::newRow("while its last bytes are sent") << false << true;
        QTest::newRow("while the answer is awaited") << false << false;
        QTest::newRow("on a stopped queue") << true << false;
    }
    void aJobCancelledTooLateIsTakenBack() {
        QFETCH(bool, stopped);
        QFETCH(bool, large);
        cups().start(Queue::ENDLESS);
        if (stopped) {
            cups().halt(QStringLiteral("Papier wird gewechselt"));
        }
        PrintedDiagram diagram;
        std::size_t pages = 1;
        if (large) {
            addNumberPages(diagram.job, MANY_PAGES);
            pages = pagesUntilItBlocks(diagram.job) + 10; // the last piece of the document blocks
            cups().start(Queue::ENDLESS);
        }
        const std::size_t known = cups().allJobs();
        addNumberPages(diagram.job, pages);
        std::size_t sent = 0;
        diagram.job.setStep(cancelWhenBlocked(sent));
        QVERIFY_THROWS_EXCEPTION(PrintCancelled, diagram.job.end());
        QCOMPARE(sent == pages, !large);
        cups().thaw();
        QTRY_COMPARE(cups().allJobs(), known + 1);
        QTRY_COMPARE(cups().openJobs(), std::size_t(0));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::PrintCancelTest)
#include "PrintCancelTest.moc"
