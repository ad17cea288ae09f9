// SPDX-License-Identifier: GPL-3.0-or-later
// The project selection window.
#pragma once

#include "config/ProjectSearch.h"
#include "util/Dialogs.h"
#include "util/FileSource.h"

#include <QDialog>
#include <functional>
#include <string>
#include <vector>

class QLabel;
class QPushButton;
class QVBoxLayout;

namespace kelvrum {

/// "Projektauswahl": one button for each project found in a folder, and "Manuell suchen" for any other
/// folder.
class Form1 : public QDialog {
    Q_OBJECT

  public:
    /// What the window needs from its owner.
    struct Owner {
        std::function<void(const std::string& folder)> openProject; // opens the project in a folder
        std::function<void()> forgetFactors; // sets the last wind and dust correction factors to 0
    };

    /// A window for the projects in `folder`; readDirs finds them. The dialogs must outlive the window.
    Form1(std::string folder, Owner owner, FileOpener open, Dialogs& dialogs, QWidget* parent = nullptr);

    /// Lets pending events run, searches the folder, fills the lists and the buttons and forgets the
    /// correction factors; true when at least one project was found.
    bool readDirs();

    /// Opens the project in a folder and closes the window. False, and nothing done, for an empty text.
    bool OpenF(const std::string& s);

  private:
    void addButton(std::size_t index);
    void fitWidth();
    void searchByHand();

    std::string folder_;
    Owner owner_;
    FileOpener open_;
    Dialogs& dialogs_;
    std::vector<FoundProject> projects_;
    std::vector<QPushButton*> Button;
    QVBoxLayout* buttons_ = nullptr;
    QLabel* nothingFound_ = nullptr;
    QPushButton* Command2 = nullptr;
};

} // namespace kelvrum
