// SPDX-License-Identifier: GPL-3.0-or-later
// Several channels in one job, on a real print queue and as one file.
#include "diagram/PolarSys.h"
#include "tests/app/WindowFixture.h"
#include "tests/testing/PrintTest.h"
#include "tests/testing/PrintedDocument.h"

#include <QCheckBox>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QPrinter>
#include <QPushButton>
#include <QTest>
#include <utility>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr int DUST_ROW = 2; // of the channel list
const QString UNREACHABLE = QStringLiteral("Sammeldruck: Der Drucker ist nicht erreichbar. Bitte prüfen Sie, "
                                           "ob er eingeschaltet und eingerichtet ist.");

} // namespace

class f_print_batch_test : public PrintTest {
    Q_OBJECT

  private Q_SLOTS:
    /// Two channels in one job of two pages; the view is as it was before.
    void theBatch() {
        const WindowFixture fixture(batchStation());
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
        QCOMPARE(result, QStringLiteral("2 Seiten auf dem Drucker „Testdrucker“ gedruckt."));
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
            QVERIFY(page.has(QStringLiteral("Gerätenummer 17")));
            QVERIFY(page.has(QStringLiteral("Gedruckt am 18.06.2020")));
        }
        QVERIFY(picturesIn(found[0]).isEmpty());
        QCOMPARE(ks.DataCount(), count);
        QCOMPARE(ks.Y1Low(), AUTOMATIC_RANGE);
        QVERIFY(ks.HeadLine().find("Staub") != std::string::npos);
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    }

    /// All pages of a batch are one file. Each batch asks the user for its name.
    void theBatchIntoAFile() {
        const TempFolder folder;
        const WindowFixture fixture(batchStation());
        fixture.dialogs->onPrinter = [&](QPrinter& printer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(QString::fromStdString(folder.at("Diagramm.pdf")));
        };
        fixture.trigger("menSelP");
        const QString file =
            QString::fromStdString(folder.at("Kläranlage Nord – Sammeldruck – 18.06.2020.pdf"));
        QStringList results;
        fixture.inWindowOf(
            [&] { fixture.trigger("menCPrint"); },
            [&](QWidget& dialog) {
                for (const char* row : {"chKanal(0)", "chKanal(5)"}) {
                    QTest::keyClick(dialog.findChild<QCheckBox*>(QString::fromUtf8(row)), Qt::Key_Space);
                }
                for (const QString& answer : {QString(), file}) {
                    fixture.dialogs->pdf = answer;
                    QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("OKButton")),
                                      Qt::LeftButton);
                    const auto* said = dialog.findChild<QLabel*>(QStringLiteral("lResult"));
                    results << (said->isVisible() ? said->text() : QString());
                }
            });
        QCOMPARE(fixture.dialogs->messages, QStringList());
        QCOMPARE(fixture.dialogs->proposedFiles, QStringList({file, file}));
        QCOMPARE(results,
                 QStringList({QString(), QStringLiteral("2 Seiten in die Datei „%1“ gedruckt.").arg(file)}));
        QCOMPARE(printedPages(file).size(), 2U);
        QCOMPARE(documents().size(), 0U);
    }

    /// The rows can be ticked again while the view is loaded; the result is that of the run before it.
    void theResultIsOfTheRowsThatWerePrinted() {
        WindowFixture fixture(batchStation());
        QString result;
        int unticked = 0;
        fixture.inWindowOf([&] { fixture.trigger("menCPrint"); },
                           [&](QWidget& dialog) {
                               auto* row = dialog.findChild<QCheckBox*>(QStringLiteral("chKanal(0)"));
                               auto* print = dialog.findChild<QPushButton*>(QStringLiteral("OKButton"));
                               QTest::keyClick(row, Qt::Key_Space);
                               fixture.files.onRead = [&] {
                                   if (print->isEnabled() && row->isChecked()) {
                                       QTest::keyClick(row, Qt::Key_Space);
                                       ++unticked;
                                   }
                               };
                               QTest::mouseClick(print, Qt::LeftButton);
                               fixture.files.onRead = nullptr;
                               const auto* said = dialog.findChild<QLabel*>(QStringLiteral("lResult"));
                               result = said->isVisible() ? said->text() : QString();
                           });
        QCOMPARE(unticked, 1);
        QCOMPARE(fixture.dialogs->messages, QStringList());
        QCOMPARE(result, QStringLiteral("Eine Seite auf dem Drucker „Testdrucker“ gedruckt."));
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
        WindowFixture fixture(batchStation());
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

QTEST_MAIN(kelvrum::f_print_batch_test)
#include "f_print_batch_test.moc"
