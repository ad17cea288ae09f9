// SPDX-License-Identifier: GPL-3.0-or-later
// Where on its sheet a page is: what the queue can print on, or what is within the user's margins.
#include "tests/diagram/PrintedDiagram.h"

#include <QPrinter>
#include <QTest>
#include <cmath>
#include <optional>

namespace kelvrum {
namespace {

using kelvrum::testing::PrintedDiagram;
using kelvrum::testing::PrintedPage;
using kelvrum::testing::printedPages;
using kelvrum::testing::PrivateCups;

using Queue = PrivateCups::Queue;

constexpr double NEAR = 0.3; // millimetres

} // namespace

class PrintAreaTest : public testing::PrintTest {
    Q_OBJECT

  private:
    [[nodiscard]] PrintedPage printedPage(PrintedDiagram& diagram) const {
        diagram.control.setAchseText("Staub;Feuchte");
        diagram.print(true);
        return printedPages(cups().documents().back()).at(0);
    }

    /// Whether a page leaves these margins: its title is 3 mm below its upper edge, in the middle of its
    /// width, and the caption of the right axis ends 13 mm before its right edge.
    static bool leaves(const PrintedPage& page, const QMarginsF& margins) {
        const QRectF title = page.find(QStringLiteral("Station Güldenstein")).at(0).box;
        const QRectF end = page.find(QStringLiteral("Feuchte")).at(0).box;
        const double width = page.size.width() - margins.left() - margins.right();
        const QPointF expected(margins.left() + width / 2, margins.top() + 3);
        const double right = page.size.width() - margins.right() - 13;
        const bool same = std::abs(title.center().x() - expected.x()) < NEAR &&
                          std::abs(title.top() - expected.y()) < NEAR && std::abs(end.right() - right) < NEAR;
        if (!same) {
            qWarning("title at %g, %g instead of %g, %g; end at %g, right %g", title.center().x(),
                     title.top(), expected.x(), expected.y(), end.right(), right);
        }
        return same;
    }

  private Q_SLOTS:

    void areas_data() {
        QTest::addColumn<QMarginsF>("smallest");
        QTest::addColumn<QMarginsF>("chosen");
        QTest::addColumn<bool>("landscape");
        QTest::addColumn<QRect>("area"); // tenths of millimetres
        const QMarginsF none;
        const QMarginsF queue(5, 6, 7, 10);
        QTest::newRow("no borders") << none << none << false << QRect(0, 0, 2100, 2970);
        QTest::newRow("no borders, landscape") << none << none << true << QRect(0, 0, 2970, 2100);
        QTest::newRow("borders") << queue << none << false << QRect(50, 60, 1980, 2810);
        QTest::newRow("borders, turned to either side")
            << queue << none << true << QRect(100, 70, 2770, 1960);
        QTest::newRow("the user's") << none << QMarginsF(20, 30, 40, 50) << true
                                    << QRect(200, 300, 2370, 1300);
        QTest::newRow("the user's, where the queue prints")
            << queue << QMarginsF(20, 0, 0, 0) << false << QRect(200, 60, 1830, 2810);
        QTest::newRow("more than the sheet")
            << none << QMarginsF(200, 200, 200, 200) << false << QRect(2000, 2000, 1, 1);
    }
    void areas() {
        QFETCH(QMarginsF, smallest);
        QFETCH(QMarginsF, chosen);
        QFETCH(bool, landscape);
        QFETCH(QRect, area);
        const PageMargins margins{smallest,
                                  chosen.isNull() ? std::optional<QMarginsF>() : std::optional(chosen)};
        const PageArea found =
            pageArea(QPageSize(QPageSize::A4), landscape ? QPageLayout::Landscape : QPageLayout::Portrait,
                     margins, 254);
        const QRect asRect(found.corner.x, found.corner.y, found.size.width, found.size.height);
        QVERIFY2(std::abs(asRect.x() - area.x()) <= 1 && std::abs(asRect.y() - area.y()) <= 1 &&
                     std::abs(asRect.width() - area.width()) <= 3 &&
                     std::abs(asRect.height() - area.height()) <= 3,
                 qPrintable(QStringLiteral("%1, %2, %3 x %4")
                                .arg(asRect.x())
                                .arg(asRect.y())
                                .arg(asRect.width())
                                .arg(asRect.height())));
    }

    void aPageWithoutBordersIsTheSheet() {
        PrintedDiagram diagram;
        QVERIFY(leaves(printedPage(diagram), {}));
    }

    void aPageIsWhatTheQueueCanPrintOn() {
        cups().start(Queue::BORDERS);
        PrintedDiagram diagram;
        diagram.control.setFussnote("Fußnote");
        const PrintedPage page = printedPage(diagram);
        QVERIFY(leaves(page, {10, 7, 10, 7}));
        const QRectF printable(10, 7, page.size.width() - 20, page.size.height() - 14);
        for (const auto& word : page.words) {
            QVERIFY2(printable.contains(word.box), qPrintable(word.text));
        }
    }

    void theBordersAreThoseOfTheChosenPaper() {
        cups().start(Queue::BORDERS);
        PrintedDiagram diagram;
        diagram.job.setUp([](QPrinter& printer) {
            printer.setPageSize(QPageSize(QPageSize::A5));
            return true;
        });
        const PrintedPage page = printedPage(diagram);
        QVERIFY(std::abs(page.size.width() - 210) < 1);
        QVERIFY(leaves(page, {20, 20, 20, 20}));
    }

    /// Margins count when the user has set them in a dialog that was accepted, and stay.
    void theUsersMarginsCount() {
        PrintedDiagram diagram;
        const auto dialog = [&](const QMarginsF& margins, bool accepted) {
            return diagram.job.setUp([&](QPrinter& printer) {
                const QPageLayout before = printer.pageLayout();
                printer.setPageMargins(margins, QPageLayout::Millimeter);
                if (!accepted) {
                    printer.setPageLayout(before);
                }
                return accepted;
            });
        };
        QVERIFY(!dialog({25, 15, 20, 15}, false));
        QVERIFY(leaves(printedPage(diagram), {}));
        QVERIFY(dialog({25, 15, 20, 15}, true));
        QVERIFY(leaves(printedPage(diagram), {25, 15, 20, 15}));
        QVERIFY(diagram.job.setUp([](QPrinter&) { return true; })); // as it was
        QVERIFY(leaves(printedPage(diagram), {25, 15, 20, 15}));
    }

    void theToolkitsMarginsDoNotCount() {
        cups().start(Queue::BORDERS);
        PrintedDiagram diagram;
        diagram.job.setUp([](QPrinter& printer) { // as its dialog does with another paper
            QPrinter fresh(QPrinter::HighResolution);
            fresh.setPageSize(QPageSize(QPageSize::A5));
            printer.setPageLayout(fresh.pageLayout());
            return true;
        });
        QVERIFY(leaves(printedPage(diagram), {20, 20, 20, 20}));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::PrintAreaTest)
#include "PrintAreaTest.moc"
