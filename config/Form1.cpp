// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/Form1.h"

#include "util/Controls.h"
#include "util/Paths.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPushButton>
#include <QScrollArea>
#include <QStyle>
#include <QVBoxLayout>
#include <algorithm>
#include <utility>

namespace kelvrum {

namespace {

constexpr int MARGIN = 12;
constexpr int WIDTH = 340;
constexpr int MAX_WIDTH = 640; // for long names
constexpr int HEIGHT = 320;
constexpr int BUTTON_HEIGHT = 30;

QString toQString(const std::string& text) { return QString::fromStdString(text); }

} // namespace

Form1::Form1(std::string folder, Owner owner, FileOpener open, Dialogs& dialogs, QWidget* parent)
    : QDialog(parent)
    , folder_(std::move(folder))
    , owner_(std::move(owner))
    , open_(std::move(open))
    , dialogs_(dialogs) {
    setObjectName(QStringLiteral("Form1"));
    setWindowTitle(QStringLiteral("Projektauswahl"));
    resize(WIDTH, HEIGHT);

    auto* list = new QWidget(this);
    buttons_ = new QVBoxLayout(list);
    buttons_->setContentsMargins(0, 0, 0, 0);
    nothingFound_ = new QLabel(QStringLiteral("Es wurden keine QEL-Projekte gefunden."), list);
    nothingFound_->setObjectName(QStringLiteral("Label1"));
    nothingFound_->setAlignment(Qt::AlignCenter);
    nothingFound_->setWordWrap(true);
    buttons_->addWidget(nothingFound_);
    buttons_->addStretch();

    auto* area = new QScrollArea(this);
    area->setWidgetResizable(true);
    area->setFrameShape(QFrame::NoFrame);
    area->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    area->setFocusPolicy(Qt::NoFocus); // the tab key goes from button to button
    area->setWidget(list);

    Command2 = new QPushButton(QStringLiteral("&Manuell suchen"), this);
    Command2->setObjectName(QStringLiteral("Command2"));
    Command2->setAutoDefault(true); // the return key triggers this button, not a project
    Command2->setToolTip(QStringLiteral("Einen Projektordner auswählen"));
    connect(Command2, &QPushButton::clicked, this, &Form1::searchByHand);

    auto* layout = new QVBoxLayout(this);
    layout->setContentsMargins(MARGIN, MARGIN, MARGIN, MARGIN);
    layout->setSpacing(MARGIN);
    layout->addWidget(area);
    layout->addWidget(Command2);
}

bool Form1::readDirs() {
    QCoreApplication::processEvents();
    for (QPushButton* button : Button) {
        delete button;
    }
    Button.clear();
    projects_ = findProjects(folder_, open_);
    for (std::size_t k = 0; k < projects_.size(); ++k) {
        addButton(k);
    }
    owner_.forgetFactors();
    nothingFound_->setVisible(projects_.empty());
    QPushButton* first = Button.empty() ? Command2 : Button.front();
    first->setFocus();
    fitWidth();
    return !projects_.empty();
}

void Form1::addButton(std::size_t index) {
    auto* button = new QPushButton(captionOf(toQString(projects_[index].name)), this);
    button->setObjectName(QStringLiteral("Button(%1)").arg(index));
    button->setToolTip(toQString(nativeText(projects_[index].folder)));
    button->setMinimumHeight(BUTTON_HEIGHT);
    // As wide as the window, whatever the name.
    button->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Fixed);
    button->setAutoDefault(true);
    connect(button, &QPushButton::clicked, this, [this, index] { OpenF(projects_[index].folder); });
    buttons_->insertWidget(static_cast<int>(index), button);
    Button.push_back(button);
}

/// Room for the longest name, within limits.
void Form1::fitWidth() {
    int widest = 0;
    for (const QPushButton* button : Button) {
        widest = std::max(widest, button->sizeHint().width());
    }
    const int around = 2 * MARGIN + style()->pixelMetric(QStyle::PM_ScrollBarExtent);
    resize(std::clamp(widest + around, WIDTH, MAX_WIDTH), height());
}

void Form1::searchByHand() {
    const QString folder = dialogs_.chooseFolder(this, QStringLiteral("Projektordner auswählen ..."),
                                                 toQString(nativeText(folder_)));
    OpenF(folder.toStdString());
}

bool Form1::OpenF(const std::string& s) {
    if (s.empty()) {
        return false;
    }
    owner_.openProject(s);
    accept();
    return true;
}

} // namespace kelvrum
