// SPDX-License-Identifier: GPL-3.0-or-later
// The system's dialogs behind a small seam, so that tests can answer them.
#pragma once

#include <QString>
#include <vector>

class QFileDialog;
class QPrinter;
class QWidget;

namespace kelvrum {

/// A file type of a dialog: its description and the exact name of the files, in any case of letters.
struct FileFilter {
    QString description;
    QString fileName;
};

/// Asks the user. Every call returns when the dialog is closed.
class Dialogs {
  public:
    Dialogs() = default;
    Dialogs(const Dialogs&) = delete;
    Dialogs& operator=(const Dialogs&) = delete;
    virtual ~Dialogs() = default;

    /// A file to open; an empty text when the user cancels.
    virtual QString chooseFile(QWidget* parent, const QString& title, const QString& folder,
                               const std::vector<FileFilter>& filters);

    /// A folder (FolderBrowse); an empty text when the user cancels.
    virtual QString chooseFolder(QWidget* parent, const QString& title, const QString& folder);

    /// A message with an OK button.
    virtual void message(QWidget* parent, const QString& text, const QString& title);

    /// A question with the answers "Ja" and "Nein": true for Ja. The enter and escape keys answer Nein.
    virtual bool ask(QWidget* parent, const QString& text, const QString& title);

    /// The name of a PDF file to be written, `proposed` being offered; an empty text when the user cancels.
    /// An existing file has been confirmed by the user.
    virtual QString choosePdf(QWidget* parent, const QString& proposed);

    /// The printer set-up dialog, which changes the printer's settings; false when the user cancels.
    virtual bool setUpPrinter(QWidget* parent, QPrinter& printer);
};

/// Sets up the dialog of chooseFile.
void setUpFileDialog(QFileDialog& dialog, const QString& title, const QString& folder,
                     const std::vector<FileFilter>& filters);

/// A wildcard that matches a file name in any case of letters, also where file names are exact:
/// "[Qq][Ee][Ll].[Ii][Nn][Ii]".
QString anyCasePattern(const QString& fileName);

} // namespace kelvrum
