// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/Dialogs.h"

#include <QComboBox>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>

namespace kelvrum {

QString anyCasePattern(const QString& fileName) {
    QString pattern;
    for (const QChar c : fileName) {
        if (c.toUpper() != c.toLower()) {
            pattern += QLatin1Char('[') + QString(c.toUpper()) + c.toLower() + QLatin1Char(']');
        } else {
            pattern += c;
        }
    }
    return pattern;
}

void setUpFileDialog(QFileDialog& dialog, const QString& title, const QString& folder,
                     const std::vector<FileFilter>& filters) {
    QStringList patterns;
    for (const FileFilter& filter : filters) {
        patterns << filter.description + QStringLiteral(" (") + anyCasePattern(filter.fileName) +
                        QLatin1Char(')');
    }
    dialog.setWindowTitle(title);
    dialog.setDirectory(folder);
    dialog.setFileMode(QFileDialog::ExistingFile);
    dialog.setOption(QFileDialog::HideNameFilterDetails); // the patterns are not meant for users
    dialog.setNameFilters(patterns);
}

QString Dialogs::chooseFile(QWidget* parent, const QString& title, const QString& folder,
                            const std::vector<FileFilter>& filters) {
    QFileDialog dialog(parent);
    setUpFileDialog(dialog, title, folder, filters);
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

QString Dialogs::chooseFolder(QWidget* parent, const QString& title, const QString& folder) {
    return QFileDialog::getExistingDirectory(parent, title, folder);
}

void Dialogs::message(QWidget* parent, const QString& text, const QString& title) {
    QMessageBox box(QMessageBox::NoIcon, title, text, QMessageBox::Ok, parent);
    box.exec();
}

bool Dialogs::ask(QWidget* parent, const QString& text, const QString& title) {
    QMessageBox box(QMessageBox::Question, title, text, QMessageBox::NoButton, parent);
    const QPushButton* yes = box.addButton(QStringLiteral("&Ja"), QMessageBox::YesRole);
    QPushButton* no = box.addButton(QStringLiteral("&Nein"), QMessageBox::NoRole);
    box.setDefaultButton(no);
    box.setEscapeButton(no);
    box.exec();
    return box.clickedButton() == yes;
}

QString Dialogs::choosePdf(QWidget* parent, const QString& proposed) {
    QFileDialog dialog(parent, QStringLiteral("PDF-Datei"), QFileInfo(proposed).path(),
                       QStringLiteral("PDF (*.pdf)"));
    dialog.setAcceptMode(QFileDialog::AcceptSave); // asks before it takes a file that exists
    dialog.setDefaultSuffix(QStringLiteral("pdf"));
    dialog.selectFile(QFileInfo(proposed).fileName());
    return dialog.exec() == QDialog::Accepted ? dialog.selectedFiles().value(0) : QString();
}

namespace {

/// The toolkit's dialog opens with a printer even when file output is in use.
void showFileOutput(QPrintDialog& dialog, const QString& file) {
    auto* printers = dialog.findChild<QComboBox*>(QStringLiteral("printers"));
    auto* name = dialog.findChild<QLineEdit*>(QStringLiteral("filename"));
    if (printers != nullptr && name != nullptr) {
        printers->setCurrentIndex(printers->count() - 1);
        name->setText(file);
    }
}

} // namespace

bool Dialogs::setUpPrinter(QWidget* parent, QPrinter& printer) {
    const QString file = printer.outputFormat() == QPrinter::PdfFormat ? printer.outputFileName() : QString();
    QPrintDialog dialog(&printer, parent);
    dialog.setWindowTitle(QStringLiteral("Drucker einrichten"));
    dialog.setOption(QAbstractPrintDialog::PrintToFile, true);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    if (!file.isEmpty()) {
        dialog.setModal(true);
        dialog.show(); // which adds file output to the printers
        showFileOutput(dialog, file);
    }
    return dialog.exec() == QDialog::Accepted;
}

} // namespace kelvrum
