// Dialogs that the test answers, and what they were asked.
#pragma once

#include "config/Dialogs.h"

#include <QString>
#include <vector>

namespace kelvrum::testing {

/// Answers every question at once with what the test set before; an empty text is the user's "cancel".
class AnsweredDialogs : public Dialogs {
  public:
    struct Question {
        QString title;
        QString folder;
        std::vector<FileFilter> filters; // none for a folder
    };

    QString chooseFile(QWidget*, const QString& title, const QString& start,
                       const std::vector<FileFilter>& filters) override {
        asked.push_back({title, start, filters});
        return file;
    }
    QString chooseFolder(QWidget*, const QString& title, const QString& start) override {
        asked.push_back({title, start, {}});
        return folder;
    }

    QString file;                // the next answers
    QString folder;              //
    std::vector<Question> asked; // in order
};

} // namespace kelvrum::testing
