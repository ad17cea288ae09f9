#include "util/Dialogs.h"

#include <QFileDialog>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>

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
    dialog.setOption(QFileDialog::HideNameFilterDetails); // the patterns are for the machine
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

bool Dialogs::setUpPrinter(QWidget* parent, QPrinter& printer) {
    QPrintDialog dialog(&printer, parent);
    dialog.setWindowTitle(QStringLiteral("Drucker einrichten"));
    // All pages go to a print queue.
    dialog.setOption(QAbstractPrintDialog::PrintToFile, false);
    dialog.setOption(QAbstractPrintDialog::PrintPageRange, false);
    return dialog.exec() == QDialog::Accepted;
}

} // namespace kelvrum
