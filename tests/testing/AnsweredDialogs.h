// SPDX-License-Identifier: GPL-3.0-or-later
// Dialogs that the test answers, and what they showed.
#pragma once

#include "util/Dialogs.h"

#include <QString>
#include <QStringList>
#include <functional>
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

    bool ask(QWidget* /*parent*/, const QString& text, const QString& title) override {
        questions.push_back(title + QStringLiteral(": ") + text);
        return yes;
    }
    QString choosePdf(QWidget* /*parent*/, const QString& proposed) override {
        proposedFiles.push_back(proposed);
        return pdf;
    }

    void message(QWidget* above, const QString& text, const QString& title) override {
        parent = above;
        messages.push_back(title + QStringLiteral(": ") + text);
        if (onMessage) {
            onMessage();
        }
    }
    bool setUpPrinter(QWidget* above, QPrinter& printer) override {
        if (printerByHand) {
            return Dialogs::setUpPrinter(above, printer);
        }
        if (printerChosen && onPrinter) {
            onPrinter(printer);
        }
        return printerChosen;
    }

    QString file;   // the next answers
    QString folder; //
    bool printerChosen = true;
    bool printerByHand = false;               // the real printer dialog, which the test operates
    bool yes = true;                          // the answer to questions
    QString pdf;                              // the name of the next PDF file
    std::function<void(QPrinter&)> onPrinter; // what the user sets
    std::function<void()> onMessage;          // while the message is shown
    std::vector<Question> asked;              // in order
    QStringList messages;                     // "title: text", in order
    QStringList questions;                    // the same
    QStringList proposedFiles;
    QWidget* parent = nullptr; // of the last message
};

} // namespace kelvrum::testing
