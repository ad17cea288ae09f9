// SPDX-License-Identifier: GPL-3.0-or-later
// The real dialogs, as the user meets them: their titles, texts and buttons, and what each answer returns.
#include "util/Dialogs.h"

#include "tests/testing/TempFolder.h"
#include "tests/testing/WindowDriver.h"

#include <QAbstractButton>
#include <QFileDialog>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QTest>
#include <optional>

namespace kelvrum {

namespace {

using kelvrum::testing::TempFolder;
using kelvrum::testing::WindowDriver;

/// Presses keys in the widget that has the focus of the window.
void press(QWidget& window, const QList<QKeyCombination>& keys) {
    for (const QKeyCombination key : keys) {
        QWidget* focus = window.focusWidget();
        QTest::keyClick(focus != nullptr ? focus : &window, key.key(), key.keyboardModifiers());
    }
}

/// The captions of a box's buttons in alphabetical order: the platform decides about theirs.
QStringList captionsOf(const QMessageBox& box) {
    QStringList captions;
    for (const QAbstractButton* button : box.buttons()) {
        captions << button->text();
    }
    captions.sort();
    return captions;
}

/// Types a name into the edit field of a file dialog and presses the enter key.
void enterName(QWidget& dialog, const QString& name) {
    const WindowDriver driver(dialog);
    driver.type(QStringLiteral("fileNameEdit"), name);
    QTest::keyClick(&driver.the<QLineEdit>("fileNameEdit"), Qt::Key_Return);
}

QString toQString(const std::filesystem::path& path) { return QString::fromStdString(path.string()); }

} // namespace

class DialogsTest : public QObject {
    Q_OBJECT

    Dialogs dialogs_;

  private Q_SLOTS:
    static void initTestCase() { qputenv("CUPS_SERVER", "/nonexistent"); } // no test may reach a real printer

    void aMessageHasItsTextAndOneButton_data() {
        QTest::addColumn<Qt::Key>("key");
        QTest::newRow("enter") << Qt::Key_Return;
        QTest::newRow("escape") << Qt::Key_Escape;
        QTest::newRow("space") << Qt::Key_Space;
    }
    void aMessageHasItsTextAndOneButton() {
        QFETCH(Qt::Key, key);
        WindowDriver::inWindowOf(
            [this] {
                dialogs_.message(nullptr, QStringLiteral("Größe & Art:\nzweite Zeile"),
                                 QStringLiteral("Drucker"));
            },
            [key](QWidget& window) {
                auto& box = dynamic_cast<QMessageBox&>(window);
                QCOMPARE(box.windowTitle(), QStringLiteral("Drucker"));
                QCOMPARE(box.text(), QStringLiteral("Größe & Art:\nzweite Zeile"));
                QCOMPARE(box.icon(), QMessageBox::NoIcon);
                QCOMPARE(box.buttons().size(), 1);
                QCOMPARE(box.standardButtons(), QMessageBox::Ok);
                press(box, {key});
                QVERIFY(!box.isVisible());
            });
    }

    void aQuestionIsAnsweredByYesOnly_data() {
        QTest::addColumn<QList<QKeyCombination>>("keys");
        QTest::addColumn<bool>("answer");
        const auto row = [](const char* name, const QList<QKeyCombination>& keys, bool answer) {
            QTest::newRow(name) << keys << answer;
        };
        row("enter", {Qt::Key_Return}, false);
        row("escape", {Qt::Key_Escape}, false);
        row("alt+n", {Qt::ALT | Qt::Key_N}, false);
        row("alt+j", {Qt::ALT | Qt::Key_J}, true);
        row("tab to the other button, enter", {Qt::Key_Tab, Qt::Key_Return}, true);
        row("tab to the other button, space", {Qt::Key_Tab, Qt::Key_Space}, true);
        row("tab twice, enter", {Qt::Key_Tab, Qt::Key_Tab, Qt::Key_Return}, false);
        row("closed by its frame", {}, false);
    }
    void aQuestionIsAnsweredByYesOnly() {
        QFETCH(QList<QKeyCombination>, keys);
        QFETCH(bool, answer);
        std::optional<bool> answered;
        WindowDriver::inWindowOf(
            [&] {
                answered = dialogs_.ask(nullptr, QStringLiteral("Überschreiben?"), QStringLiteral("Frage"));
            },
            [&keys](QWidget& window) {
                auto& box = dynamic_cast<QMessageBox&>(window);
                QCOMPARE(box.windowTitle(), QStringLiteral("Frage"));
                QCOMPARE(box.text(), QStringLiteral("Überschreiben?"));
                QCOMPARE(captionsOf(box), QStringList({QStringLiteral("&Ja"), QStringLiteral("&Nein")}));
                QCOMPARE(box.defaultButton()->text(), QStringLiteral("&Nein"));
                press(box, keys);
                if (!keys.isEmpty()) {             // otherwise the driver closes it
                    QTRY_VERIFY(!box.isVisible()); // a shortcut presses its button for a moment
                }
            });
        QCOMPARE(answered, std::optional(answer));
    }

    /// Names are found in any case of letters, but for a file's exact name.
    void choosesAFile() {
        const TempFolder folder;
        folder.write("QEL.ini", "");
        folder.write("andere.ini", "");
        const auto choose = [&](const std::function<void(QFileDialog&)>& act) {
            QString chosen = QStringLiteral("not asked");
            WindowDriver::inWindowOf(
                [&] {
                    chosen = dialogs_.chooseFile(
                        nullptr, QStringLiteral("Projekt öffnen"), toQString(folder.path()),
                        {{QStringLiteral("QEL-Projekt"), QStringLiteral("qel.ini")}});
                },
                [&](QWidget& window) { act(dynamic_cast<QFileDialog&>(window)); });
            return chosen;
        };
        const auto enter = [](const char* name) {
            return [name](QFileDialog& dialog) { enterName(dialog, QString::fromUtf8(name)); };
        };
        QCOMPARE(choose([&folder](QFileDialog& dialog) {
                     QCOMPARE(dialog.windowTitle(), QStringLiteral("Projekt öffnen"));
                     QCOMPARE(dialog.directory().path(), toQString(folder.path()));
                     QCOMPARE(dialog.nameFilters(),
                              QStringList{QStringLiteral("QEL-Projekt ([Qq][Ee][Ll].[Ii][Nn][Ii])")});
                     press(dialog, {Qt::Key_Escape});
                 }),
                 QString());
        QCOMPARE(choose(enter("QEL.ini")), toQString(folder.path() / "QEL.ini"));
        // A file that is not there is refused, and the dialog stays open.
        QCOMPARE(choose([](QFileDialog& dialog) {
                     WindowDriver::inWindowOf([&dialog] { enterName(dialog, QStringLiteral("fehlt.ini")); },
                                              [](QWidget& warning) { press(warning, {Qt::Key_Return}); });
                     QVERIFY(dialog.isVisible());
                 }),
                 QString());
    }

    void choosesAFolder() {
        const TempFolder folder;
        folder.write("Projekt A/QEL.ini", "");
        const auto choose = [&](const std::function<void(QFileDialog&)>& act) {
            QString chosen = QStringLiteral("not asked");
            WindowDriver::inWindowOf(
                [&] {
                    chosen = dialogs_.chooseFolder(nullptr, QStringLiteral("Projektordner"),
                                                   toQString(folder.path()));
                },
                [&](QWidget& window) { act(dynamic_cast<QFileDialog&>(window)); });
            return chosen;
        };
        QCOMPARE(choose([&folder](QFileDialog& dialog) {
                     QCOMPARE(dialog.windowTitle(), QStringLiteral("Projektordner"));
                     QCOMPARE(dialog.directory().path(), toQString(folder.path()));
                     QCOMPARE(dialog.fileMode(), QFileDialog::Directory);
                     press(dialog, {Qt::Key_Escape});
                 }),
                 QString());
        QCOMPARE(choose([](QFileDialog& dialog) { enterName(dialog, QStringLiteral("Projekt A")); }),
                 toQString(folder.path() / "Projekt A"));
    }

    void choosesAPdf_data() {
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("chosen"); // in the folder; empty: cancelled
        QTest::newRow("the proposed name") << QString() << QStringLiteral("Staub.pdf");
        QTest::newRow("another") << QStringLiteral("Woche 12.pdf") << QStringLiteral("Woche 12.pdf");
        QTest::newRow("without suffix") << QStringLiteral("Woche") << QStringLiteral("Woche.pdf");
    }
    void choosesAPdf() {
        QFETCH(QString, typed);
        QFETCH(QString, chosen);
        const TempFolder folder;
        QString found;
        WindowDriver::inWindowOf(
            [&] { found = dialogs_.choosePdf(nullptr, toQString(folder.path() / "Staub.pdf")); },
            [&](QWidget& window) {
                auto& dialog = dynamic_cast<QFileDialog&>(window);
                QCOMPARE(dialog.windowTitle(), QStringLiteral("PDF-Datei"));
                const WindowDriver driver(dialog);
                QCOMPARE(driver.the<QLineEdit>("fileNameEdit").text(), QStringLiteral("Staub.pdf"));
                enterName(dialog, typed.isEmpty() ? QStringLiteral("Staub.pdf") : typed);
            });
        QCOMPARE(found, toQString(folder.path()) + QLatin1Char('/') + chosen);
        WindowDriver::inWindowOf(
            [&] { found = dialogs_.choosePdf(nullptr, toQString(folder.path() / "Staub.pdf")); },
            [](QWidget& window) { press(window, {Qt::Key_Escape}); });
        QCOMPARE(found, QString());
    }

    void anExistingPdfMustBeConfirmed_data() {
        QTest::addColumn<bool>("confirmed");
        QTest::newRow("confirmed") << true;
        QTest::newRow("not confirmed") << false;
    }
    void anExistingPdfMustBeConfirmed() {
        QFETCH(bool, confirmed);
        const TempFolder folder;
        folder.write("Staub.pdf", "old");
        QString found;
        int questions = 0;
        WindowDriver::inWindowOf(
            [&] { found = dialogs_.choosePdf(nullptr, toQString(folder.path() / "Staub.pdf")); },
            [&](QWidget& window) {
                WindowDriver::inWindowOf(
                    [&window] { enterName(window, QStringLiteral("Staub.pdf")); },
                    [&](QWidget& question) {
                        auto& box = dynamic_cast<QMessageBox&>(question);
                        ++questions;
                        box.button(confirmed ? QMessageBox::Yes : QMessageBox::No)->click();
                    });
            });
        QCOMPARE(questions, 1);
        QCOMPARE(found, confirmed ? toQString(folder.path() / "Staub.pdf") : QString());
    }

    /// Without a printer the dialog offers the PDF file alone.
    void setsUpThePrinter() {
        const TempFolder folder;
        const QString file = toQString(folder.path() / "Seite.pdf");
        QPrinter printer;
        const auto setUp = [&](const std::function<void(QPrintDialog&)>& act) {
            bool accepted = false;
            WindowDriver::inWindowOf([&] { accepted = dialogs_.setUpPrinter(nullptr, printer); },
                                     [&](QWidget& window) { act(dynamic_cast<QPrintDialog&>(window)); });
            return accepted;
        };
        QVERIFY(!setUp([](QPrintDialog& dialog) {
            QCOMPARE(dialog.windowTitle(), QStringLiteral("Drucker einrichten"));
            QVERIFY(dialog.testOption(QAbstractPrintDialog::PrintToFile));
            QVERIFY(!dialog.testOption(QAbstractPrintDialog::PrintPageRange));
            press(dialog, {Qt::Key_Escape});
        }));
        QVERIFY(setUp([&file](QPrintDialog& dialog) {
            WindowDriver(dialog).type(QStringLiteral("filename"), file);
            press(dialog, {Qt::Key_Return});
        }));
        QCOMPARE(printer.outputFormat(), QPrinter::PdfFormat);
        QCOMPARE(printer.outputFileName(), file);
    }

    void aPatternMatchesANameInAnyCase() {
        QCOMPARE(anyCasePattern(QStringLiteral("Qel_1.ini")), QStringLiteral("[Qq][Ee][Ll]_1.[Ii][Nn][Ii]"));
        QCOMPARE(anyCasePattern(QStringLiteral("ÄÖ ß")), QStringLiteral("[Ää][Öö] ß"));
        QCOMPARE(anyCasePattern(QString()), QString());
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::DialogsTest)
#include "DialogsTest.moc"
