// The system's dialogs behind a small seam, so that tests can answer them.
#pragma once

#include <QString>
#include <utility>
#include <vector>

class QFileDialog;
class QWidget;

namespace kelvrum {

/// What a file dialog offers: a description and the exact name of the files, in any case of letters.
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
};

/// Sets up the dialog of chooseFile.
void setUpFileDialog(QFileDialog& dialog, const QString& title, const QString& folder,
                     const std::vector<FileFilter>& filters);

/// A wildcard that matches a file name in any case of letters, also where file names are exact:
/// "[Qq][Ee][Ll].[Ii][Nn][Ii]".
QString anyCasePattern(const QString& fileName);

} // namespace kelvrum
