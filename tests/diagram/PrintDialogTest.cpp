// SPDX-License-Identifier: GPL-3.0-or-later
// The system's own printer dialog, operated by hand: its file output, and what of it stays for the next job.
#include "tests/diagram/PrintedDiagram.h"
#include "tests/testing/TempFolder.h"
#include "util/Dialogs.h"

#include <QAbstractButton>
#include <QApplication>
#include <QComboBox>
#include <QDialogButtonBox>
#include <QFile>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QSpinBox>
#include <QTemporaryDir>
#include <QTest>
#include <QTimer>
#include <cmath>
#include <functional>

namespace kelvrum {
namespace {

using kelvrum::testing::contentOf;
using kelvrum::testing::PrintedDiagram;
using kelvrum::testing::printedPages;
using kelvrum::testing::PrivateCups;
using kelvrum::testing::TempFolder;

using Queue = PrivateCups::Queue;

/// The dialog that is open, and its controls.
struct OpenDialog {
    QPrintDialog& dialog;
    QComboBox& printers;
    QLineEdit& file;

    static OpenDialog find() {
        auto* dialog = qobject_cast<QPrintDialog*>(QApplication::activeModalWidget());
        if (dialog == nullptr) {
            qFatal("no printer dialog is open");
        }
        return {*dialog, *dialog->findChild<QComboBox*>(QStringLiteral("printers")),
                *dialog->findChild<QLineEdit*>(QStringLiteral("filename"))};
    }
    /// The choice of a file is the last one.
    void chooseFileOutput(const QString& path) const {
        printers.setFocus();
        QTest::keyClick(&printers, Qt::Key_End);
        file.selectAll();
        QTest::keyClicks(&file, path);
    }
    void press(QDialogButtonBox::StandardButton button) const {
        QTest::mouseClick(dialog.findChild<QDialogButtonBox*>()->button(button), Qt::LeftButton);
    }
};

} // namespace

class PrintDialogTest : public testing::PrintTest {
    Q_OBJECT

  private:
    QWidget window_;
    Dialogs dialogs_;

    /// Opens the dialog for a job and operates it; whether the user has accepted.
    bool setUp(PrintJob& job, const std::function<void(const OpenDialog&)>& operate) {
        QTimer timer; // the print system is asked before the dialog opens, which lets events run
        connect(&timer, &QTimer::timeout, &window_, [&operate, &timer] {
            if (qobject_cast<QPrintDialog*>(QApplication::activeModalWidget()) == nullptr) {
                return;
            }
            timer.stop();
            const OpenDialog open = OpenDialog::find();
            operate(open);
            if (open.dialog.isVisible()) {
                open.dialog.reject(); // a comparison has failed
            }
        });
        timer.start(10);
        return job.setUp([this](QPrinter& printer) { return dialogs_.setUpPrinter(&window_, printer); });
    }

    /// Whether a document is one page that fills its sheet: the title is 3 mm below the edge.
    static bool isWholeSheet(const QString& path) {
        const auto pages = printedPages(path);
        if (pages.size() != 1 || pages[0].find(QStringLiteral("Station Güldenstein")).size() != 1) {
            return false;
        }
        const QRectF title = pages[0].find(QStringLiteral("Station Güldenstein"))[0].box;
        return std::abs(title.top() - 3) < 0.3 && std::abs(title.center().x() - 297.0 / 2) < 0.3;
    }

  private Q_SLOTS:
    void init() {
        PrintTest::init();
        window_.show();
    }

    void fileOutputCountsAsAPrinter_data() {
        QTest::addColumn<int>("queue");
        QTest::newRow("beside a printer") << int(Queue::DEFAULT);
        QTest::newRow("without any printer") << int(Queue::NONE);
    }
    void fileOutputCountsAsAPrinter() {
        QFETCH(int, queue);
        cups().start(Queue(queue));
        const std::size_t jobs = cups().allJobs();
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("Bericht.pdf"));
        PrintedDiagram diagram;
        QVERIFY(setUp(diagram.job, [&](const OpenDialog& open) {
            QCOMPARE(open.dialog.windowTitle(), QStringLiteral("Drucker einrichten"));
            open.chooseFileOutput(path);
            open.press(QDialogButtonBox::Ok);
        }));
        QVERIFY(diagram.job.hasPrinter());
        QVERIFY(!diagram.job.needsFile());
        diagram.print(true);
        QVERIFY(isWholeSheet(path));
        QVERIFY(diagram.job.needsFile());
        QCOMPARE(cups().allJobs(), jobs);
    }

    /// The dialog opens with what was chosen; another choice takes its place.
    void theChoiceStaysUntilTheNextOne() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("Bericht.pdf"));
        PrintedDiagram diagram;
        QVERIFY(setUp(diagram.job, [&](const OpenDialog& open) {
            open.chooseFileOutput(path);
            open.press(QDialogButtonBox::Ok);
        }));
        QVERIFY(!setUp(diagram.job, [&](const OpenDialog& open) {
            QCOMPARE(open.printers.currentIndex(), open.printers.count() - 1);
            QCOMPARE(open.file.text(), path);
            open.press(QDialogButtonBox::Cancel);
        }));
        diagram.print(true);
        QVERIFY(isWholeSheet(path));
        const std::size_t jobs = cups().documents().size();
        QVERIFY(setUp(diagram.job, [](const OpenDialog& open) {
            open.printers.setFocus();
            QTest::keyClick(&open.printers, Qt::Key_Home);
            QCOMPARE(open.printers.currentText(), QStringLiteral("Testdrucker"));
            open.press(QDialogButtonBox::Ok);
        }));
        QVERIFY(!diagram.job.needsFile());
        diagram.print(true);
        QCOMPARE(cups().documents().size(), jobs + 1);
        QVERIFY(isWholeSheet(cups().documents().back()));
    }

    /// While it is open the dialog changes the printer; cancelled, it has changed nothing. Margins stay, also
    /// when it is accepted as it is, for a queue and for a file.
    void whatIsNotChosenStays() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("Bericht.pdf"));
        const QMarginsF margins(25, 15, 25, 15);
        cups().start(Queue::BORDERS); // its description has sides
        PrintedDiagram diagram;
        diagram.job.setUp([&margins](QPrinter& printer) {
            printer.setPageMargins(margins, QPageLayout::Millimeter);
            printer.setCopyCount(2);
            printer.setDuplex(QPrinter::DuplexShortSide);
            return true;
        });
        const auto titleTop = [](const QString& document) {
            return printedPages(document).at(0).find(QStringLiteral("Station Güldenstein")).at(0).box.top();
        };
        QVERIFY(!setUp(diagram.job, [&](const OpenDialog& open) {
            open.chooseFileOutput(path);
            open.press(QDialogButtonBox::Cancel);
        }));
        for (const bool accepted : {false, true}) {
            QVERIFY(!diagram.job.needsFile());
            diagram.print(true);
            QVERIFY(std::abs(titleTop(cups().documents().back()) - 18) < 0.3);
            QCOMPARE(cups().newestJob()[QStringLiteral("copies")], QStringLiteral("2"));
            QCOMPARE(cups().newestJob()[QStringLiteral("sides")], QStringLiteral("two-sided-short-edge"));
            QCOMPARE(setUp(diagram.job,
                           [accepted](const OpenDialog& open) {
                               QCOMPARE(open.printers.currentText(), QStringLiteral("Randdrucker"));
                               open.press(accepted ? QDialogButtonBox::Ok : QDialogButtonBox::Cancel);
                           }),
                     accepted);
        }
        for (int i = 0; i < 2; ++i) {
            QVERIFY(setUp(diagram.job, [&](const OpenDialog& open) {
                open.chooseFileOutput(path);
                open.press(QDialogButtonBox::Ok);
            }));
            diagram.print(true);
            QVERIFY(std::abs(titleTop(path) - 18) < 0.3);
            QFile::remove(path);
        }
    }

    /// Before a file is replaced the dialog asks on its own.
    void anExistingFileIsAskedAbout() {
        const QByteArray old("the report of last year");
        const TempFolder folder;
        const QString path = QString::fromStdString(folder.write("Bericht.pdf", old.toStdString()));
        PrintedDiagram diagram;
        int asked = 0;
        const auto answer = [&asked](QMessageBox::StandardButton button) {
            QTimer::singleShot(0, qApp, [&asked, button] {
                auto* box = qobject_cast<QMessageBox*>(QApplication::activeModalWidget());
                if (box != nullptr) {
                    ++asked;
                    QTest::mouseClick(box->button(button), Qt::LeftButton);
                }
            });
        };
        QVERIFY(!setUp(diagram.job, [&](const OpenDialog& open) {
            open.chooseFileOutput(path);
            answer(QMessageBox::No);
            open.press(QDialogButtonBox::Ok);
            open.press(QDialogButtonBox::Cancel);
        }));
        QCOMPARE(asked, 1);
        QCOMPARE(contentOf(path), old);
        QVERIFY(setUp(diagram.job, [&](const OpenDialog& open) {
            open.chooseFileOutput(path);
            answer(QMessageBox::Yes);
            open.press(QDialogButtonBox::Ok);
        }));
        QCOMPARE(asked, 2);
        QCOMPARE(contentOf(path), old); // until the document is complete
        diagram.print(true);
        QVERIFY(isWholeSheet(path));
    }

    /// What the dialog sets for a queue reaches the job; what it leaves alone does not change the page.
    void copiesReachTheQueue() {
        PrintedDiagram diagram;
        QVERIFY(setUp(diagram.job, [](const OpenDialog& open) {
            auto* copies = open.dialog.findChild<QSpinBox*>(QStringLiteral("copies"));
            QVERIFY(copies != nullptr);
            copies->setValue(3);
            open.press(QDialogButtonBox::Ok);
        }));
        diagram.print(true);
        QCOMPARE(cups().newestJob()[QStringLiteral("copies")], QStringLiteral("3"));
        QVERIFY(isWholeSheet(cups().documents().back()));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::PrintDialogTest)
#include "PrintDialogTest.moc"
