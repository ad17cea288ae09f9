// SPDX-License-Identifier: GPL-3.0-or-later
#include "correction/fChange.h"

#include "util/BusyPointer.h"
#include "util/Numbers.h"

#include <QCoreApplication>
#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <optional>
#include <utility>

namespace kelvrum {

namespace {

QString captionOf(CorrectionMode mode) {
    return mode == CorrectionMode::wind ? QStringLiteral("Korrekturfaktor Wind")
                                        : QStringLiteral("Korrekturfaktor Staub");
}

} // namespace

fChange::fChange(Owner owner, QWidget* parent)
    : QDialog(parent)
    , owner_(std::move(owner))
    , currentFactor_(owner_.lastFactor) {
    setObjectName(QStringLiteral("fChange"));
    const QString caption = captionOf(owner_.mode);
    setWindowTitle(caption);

    auto* label = new QLabel(caption + QLatin1Char(':'), this);
    label->setObjectName(QStringLiteral("Label1"));
    Text1 = new QLineEdit(QString::fromStdString(plainNumber(currentFactor_)), this);
    Text1->setObjectName(QStringLiteral("Text1"));
    Text1->setAccessibleName(caption);
    Text1->setToolTip(QStringLiteral("Zahl mit Komma oder Punkt"));
    Text1->selectAll();
    wait_ = new QLabel(QStringLiteral("Bitte warten - Berechnung wird durchgeführt!"), this);
    wait_->setObjectName(QStringLiteral("Label2"));
    QSizePolicy kept = wait_->sizePolicy();
    kept.setRetainSizeWhenHidden(true); // the dialog does not jump when the text appears
    wait_->setSizePolicy(kept);
    wait_->hide();
    OKButton = new QPushButton(QStringLiteral("&Berechnen"), this);
    OKButton->setObjectName(QStringLiteral("OKButton"));
    OKButton->setDefault(true);
    CancelButton = new QPushButton(QStringLiteral("&Abbrechen"), this);
    CancelButton->setObjectName(QStringLiteral("CancelButton"));

    auto* layout = new QGridLayout(this);
    layout->addWidget(label, 0, 0);
    layout->addWidget(Text1, 0, 1, 1, 2);
    layout->addWidget(wait_, 1, 0, 1, 3);
    layout->addWidget(OKButton, 2, 1);
    layout->addWidget(CancelButton, 2, 2);
    setFixedSize(sizeHint());

    connect(Text1, &QLineEdit::textChanged, this, &fChange::factorEdited);
    connect(OKButton, &QPushButton::clicked, this, &fChange::calculate);
    connect(CancelButton, &QPushButton::clicked, this, &fChange::reject);
    factorEdited();
}

void fChange::factorEdited() {
    OKButton->setEnabled(factorOf(Text1->text().toStdString()) != currentFactor_);
}

/// From here until the dialog ends, nothing can be typed or pressed.
void fChange::showRunning() {
    running_ = true;
    wait_->show();
    for (QWidget* control : std::initializer_list<QWidget*>{Text1, OKButton, CancelButton}) {
        control->setEnabled(false);
    }
    QCoreApplication::processEvents(); // the text is visible before the work begins
}

void fChange::calculate() {
    if (running_) {
        return;
    }
    showRunning();
    const double factor = factorOf(Text1->text().toStdString());
    owner_.lastFactor = factor;
    CorrectionFiles files;
    files.afterYear = [] { QCoreApplication::processEvents(); };
    std::optional<std::string> failure;
    {
        const BusyPointer busy;
        failure = recalculate(owner_.station, {owner_.mode, owner_.range, factor}, files);
    }
    wait_->hide();
    if (failure) {
        owner_.dialogs.message(this, QString::fromStdString(*failure), windowTitle());
    }
    owner_.refresh();
    accept();
}

void fChange::reject() {
    if (!running_) {
        QDialog::reject();
    }
}

} // namespace kelvrum
