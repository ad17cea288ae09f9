// SPDX-License-Identifier: GPL-3.0-or-later
// Printing from the window "Auswertung": what it shows is what the document says, from the queue and as a
// file.
#include "tests/app/EvaluationDriver.h"
#include "tests/testing/PrintTest.h"
#include "tests/testing/PrintedDocument.h"
#include "tests/testing/SystemReason.h"

#include <QLabel>
#include <QPrinter>
#include <QPushButton>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <algorithm>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

using Queue = PrivateCups::Queue;

// Rows of the channel list: 4, 5, 7, 12.
constexpr int DIRECTION_ROW = 1;
constexpr int DUST_ROW = 2;

void print(const QWidget& window) {
    QTest::mouseClick(&controlOf<QPushButton>(window, "cmdDrucken"), Qt::LeftButton);
}

/// All cells of a view, row by row.
QList<QStringList> cellsOf(const QTableView& view) {
    QList<QStringList> rows;
    const QAbstractItemModel& model = *view.model();
    for (int row = 0; row < model.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < model.columnCount(); ++column) {
            cells << model.index(row, column).data().toString();
        }
        rows << cells;
    }
    return rows;
}

QStringList headersOf(const QTableView& view) {
    QStringList headers;
    for (int column = 0; column < view.model()->columnCount(); ++column) {
        headers << view.model()->headerData(column, Qt::Horizontal).toString();
    }
    return headers;
}

bool hasSomewhere(const std::vector<PrintedPage>& pages, const QString& text) {
    return std::any_of(pages.begin(), pages.end(),
                       [&text](const PrintedPage& page) { return page.has(text); });
}

/// Whether all pages together have each row on one line: its cells from left to right. Says what is missing.
bool hasLine(const std::vector<PrintedPage>& pages, const QStringList& cells) {
    for (const PrintedPage& page : pages) {
        for (const PrintedWord& first : page.find(cells.first())) {
            double right = first.box.right();
            const bool found = std::all_of(cells.begin() + 1, cells.end(), [&](const QString& cell) {
                const auto words = page.find(cell);
                const auto next = std::find_if(words.begin(), words.end(), [&](const PrintedWord& word) {
                    return std::abs(word.box.center().y() - first.box.center().y()) < 1 &&
                           word.box.left() >= right;
                });
                right = next != words.end() ? next->box.right() : right;
                return cell.isEmpty() || next != words.end();
            });
            if (found) {
                return true;
            }
        }
    }
    qWarning("no line %s", qPrintable(cells.join(QStringLiteral(" | "))));
    return false;
}

} // namespace

class f_print_evaluation_test : public PrintTest {
    Q_OBJECT

  private:
    /// Whether the newest document shows all of the window.
    static void compare(const QWidget& window, const std::vector<PrintedPage>& pages) {
        QVERIFY(pages[0].has(window.windowTitle()));
        QVERIFY(pages[0].has(QStringLiteral("Kläranlage Nord")));
        for (const QStringList& row : cellsOf(controlOf<QTableView>(window, "vwKennzahlen"))) {
            QVERIFY(hasLine(pages, row));
        }
        QVERIFY(hasSomewhere(pages, controlOf<QLabel>(window, "lblGrenzwerte").text()));
        QVERIFY(hasSomewhere(pages, controlOf<QLabel>(window, "lblFuss").text()));
        auto& tabs = controlOf<QTabWidget>(window, "tabTabellen");
        for (int tab = 0; tab < tabs.count(); ++tab) {
            auto& view = *qobject_cast<QTableView*>(tabs.widget(tab));
            QVERIFY(hasSomewhere(pages, tabs.tabText(tab)));
            QVERIFY(hasLine(pages, headersOf(view)));
            for (const QStringList& row : cellsOf(view)) {
                QVERIFY(hasLine(pages, row));
            }
        }
    }

  private Q_SLOTS:
    void theDocumentSaysWhatTheWindowShows_data() {
        QTest::addColumn<int>("channel");
        QTest::addColumn<int>("interval");
        QTest::addColumn<int>("queue");
        QTest::newRow("dust by hours") << DUST_ROW << 2 << int(Queue::DEFAULT);
        QTest::newRow("dust, a queue with borders") << DUST_ROW << 2 << int(Queue::BORDERS);
        QTest::newRow("directions") << DIRECTION_ROW << 3 << int(Queue::DEFAULT);
    }
    void theDocumentSaysWhatTheWindowShows() {
        QFETCH(int, channel);
        QFETCH(int, interval);
        QFETCH(int, queue);
        cups().start(Queue(queue));
        const std::size_t before = cups().documents().size();
        const WindowFixture fixture;
        fixture.chooseChannel(channel);
        fixture.chooseInterval(interval);
        inEvaluation(fixture, [&](QWidget& window) {
            print(window);
            const auto found = cups().documents();
            QCOMPARE(found.size(), before + 1);
            const auto pages = printedPages(found.back());
            compare(window, pages);
            const double border = Queue(queue) == Queue::BORDERS ? 7 : 0;
            const QRectF printable =
                QRectF(QPointF(), pages[0].size).adjusted(border, border, -border, -border);
            for (std::size_t i = 0; i < pages.size(); ++i) {
                const PrintedPage& page = pages[i];
                QVERIFY(page.has(QStringLiteral("Kläranlage Nord, ") + window.windowTitle() +
                                 QStringLiteral(", gedruckt am 18.06.2020")));
                QVERIFY(page.has(QStringLiteral("Seite %1 von %2").arg(i + 1).arg(pages.size())));
                QVERIFY(page.size.width() > page.size.height());
                for (const PrintedWord& word : page.words) {
                    QVERIFY2(printable.contains(word.box), qPrintable(word.text));
                }
            }
        });
        QCOMPARE(fixture.dialogs->messages, QStringList());
        QCOMPARE(cups().newestJob()[QStringLiteral("job-name")],
                 QStringLiteral("Kläranlage Nord – Auswertung – 18.06.2020"));
    }

    void intoAFile() {
        cups().start();
        const std::size_t jobs = cups().allJobs();
        const TempFolder folder;
        const WindowFixture fixture;
        fixture.chooseChannel(DUST_ROW);
        fixture.chooseInterval(4);
        fixture.dialogs->onPrinter = [&](QPrinter& printer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(QString::fromStdString(folder.at("Diagramm.pdf")));
        };
        fixture.trigger("menSelP");
        const QString file =
            QString::fromStdString(folder.at("Kläranlage Nord – Auswertung – 18.06.2020.pdf"));
        inEvaluation(fixture, [&](QWidget& window) {
            fixture.dialogs->pdf = QString(); // cancelled
            print(window);
            fixture.dialogs->pdf = file;
            print(window);
            compare(window, printedPages(file));
            fixture.dialogs->pdf = QStringLiteral("/dev/full");
            print(window);
            QVERIFY(window.isVisible() && window.isEnabled());
        });
        QCOMPARE(fixture.dialogs->proposedFiles, QStringList(3, file));
        QCOMPARE(
            fixture.dialogs->messages,
            QStringList{QStringLiteral("Drucken: Die Datei „/dev/full“ konnte nicht geschrieben werden: %1.")
                            .arg(systemReason(std::errc::no_space_on_device))});
        QCOMPARE(cups().allJobs(), jobs);
    }

    /// What is said about a job appears above this window, not above the main window, which it covers.
    void messagesBelongToTheWindow() {
        cups().start(Queue::NONE);
        const WindowFixture fixture;
        fixture.chooseChannel(DUST_ROW);
        fixture.chooseInterval(4);
        inEvaluation(fixture, [&](QWidget& window) {
            print(window);
            QCOMPARE(fixture.dialogs->messages, QStringList{QStringLiteral("Printer: Driver missing")});
            QCOMPARE(fixture.dialogs->parent, &window);
        });
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_print_evaluation_test)
#include "f_print_evaluation_test.moc"
