// SPDX-License-Identifier: GPL-3.0-or-later
// Printing where the program is built without CUPS: the toolkit sends the document. This test program brings
// that variant of the print queue itself, whatever the library was built with.
#include "drawing/PrintJob.h"
#include "drawing/PrintQueue.h"
#include "tests/testing/PrintedDocument.h"
#include "tests/testing/PrivateCups.h"

#include <QPrinter>
#include <QTemporaryDir>
#include <QTest>
#include <cmath>
#include <memory>
#include <vector>

namespace kelvrum {
namespace {

using kelvrum::testing::PrintedPage;
using kelvrum::testing::printedPages;
using kelvrum::testing::PrivateCups;

using Queue = PrivateCups::Queue;

constexpr double NEAR = 0.3; // millimetres

/// A landscape page and two portrait ones, each with a text in its corner.
void addThreePages(PrintJob& job) {
    const auto write = [](Surface& page, const std::string& text) {
        page.setFont({"Arial", 10, false, false});
        page.text({0, 0}, text);
    };
    write(job.newPage(QPageLayout::Landscape), "Quer");
    job.addPages(2, QPageLayout::Portrait, [write](std::size_t number, Surface& page) {
        write(page, "Hoch" + std::to_string(number));
    });
}

/// Whether a page has this size and a text at this place, in millimetres.
bool isAt(const PrintedPage& page, const QSizeF& size, const QString& text, const QPointF& place) {
    const auto found = page.find(text);
    const bool same = found.size() == 1 && std::abs(page.size.width() - size.width()) < NEAR &&
                      std::abs(page.size.height() - size.height()) < NEAR &&
                      std::abs(found[0].box.left() - place.x()) < NEAR &&
                      std::abs(found[0].box.top() - place.y()) < NEAR;
    if (!same) {
        const QPointF at = found.empty() ? QPointF(-1, -1) : found[0].box.topLeft();
        qWarning("%g x %g, text at %g, %g", page.size.width(), page.size.height(), at.x(), at.y());
    }
    return same;
}

bool areTheThree(const std::vector<PrintedPage>& pages, const QPointF& landscape, const QPointF& portrait) {
    return pages.size() == 3 && isAt(pages[0], {297, 210}, QStringLiteral("Quer"), landscape) &&
           isAt(pages[1], {210, 297}, QStringLiteral("Hoch0"), portrait) &&
           isAt(pages[2], {210, 297}, QStringLiteral("Hoch1"), portrait);
}

} // namespace

class PrintWithoutCupsTest : public QObject {
    Q_OBJECT

  private:
    std::unique_ptr<PrivateCups> cups_;

  private Q_SLOTS:
    void initTestCase() {
        QVERIFY(!PrintQueue::isSupported());
        if (PrivateCups::isInstalled()) {
            cups_ = std::make_unique<PrivateCups>();
        }
    }
    void cleanupTestCase() { cups_.reset(); }

    void theToolkitSendsTheDocument_data() {
        QTest::addColumn<int>("queue");
        QTest::addColumn<QString>("name");
        QTest::addColumn<QPointF>("landscape"); // corners of the pages
        QTest::addColumn<QPointF>("portrait");
        QTest::newRow("no borders") << int(Queue::DEFAULT) << QStringLiteral("Testdrucker") << QPointF()
                                    << QPointF();
        QTest::newRow("borders") << int(Queue::BORDERS) << QStringLiteral("Randdrucker") << QPointF(10, 7)
                                 << QPointF(5, 6);
    }
    void theToolkitSendsTheDocument() {
        QFETCH(int, queue);
        QFETCH(QString, name);
        QFETCH(QPointF, landscape);
        QFETCH(QPointF, portrait);
        if (!cups_) {
            QSKIP("There is no print scheduler here.");
        }
        cups_->start(Queue(queue));
        PrintJob job;
        job.setName("Kläranlage Nord – Staub PM10 – 18.06.2026");
        const QPageLayout::Orientation before = job.printer().pageLayout().orientation();
        addThreePages(job);
        QVERIFY(cups_->documents().empty());
        job.end();
        QVERIFY(!job.isOpen());
        const auto found = cups_->documents();
        QCOMPARE(found.size(), std::size_t(1));
        QVERIFY(areTheThree(printedPages(found[0]), landscape, portrait));
        QCOMPARE(cups_->newestJob()[QStringLiteral("job-name")],
                 QStringLiteral("Kläranlage Nord – Staub PM10 – 18.06.2026"));
        QCOMPARE(job.receipt().pages, std::size_t(3));
        QCOMPARE(job.receipt().place, QStringLiteral("auf dem Drucker „%1“").arg(name));
        QCOMPARE(job.printer().pageLayout().orientation(), before); // kept for lists
    }

    void anAbandonedJobSendsNothing() {
        if (!cups_) {
            QSKIP("There is no print scheduler here.");
        }
        cups_->start(Queue::OTHER);
        PrintJob job;
        addThreePages(job);
        job.abandon();
        job.end();
        QCOMPARE(cups_->allJobs(), std::size_t(0));
    }

    void aFileIsWrittenAsUsual() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("Bericht.pdf"));
        PrintJob job;
        job.setUp([&path](QPrinter& printer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(path);
            return true;
        });
        QVERIFY(job.hasPrinter());
        addThreePages(job);
        QVERIFY(!QFile::exists(path));
        job.end();
        QVERIFY(areTheThree(printedPages(path), {}, {}));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::PrintWithoutCupsTest)
#include "PrintWithoutCupsTest.moc"
