// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/f.h"

#include "app/DateFrame.h"
#include "app/IntervalFrame.h"
#include "app/ScaleFrame.h"
#include "app/ScrollFrame.h"
#include "app/ViewArea.h"
#include "app/ViewSwitch.h"
#include "app/ZoomFrame.h"
#include "config/ConfigForms.h"
#include "diagram/PolarSys.h"
#include "util/AccessibleButtons.h"

#include <QCoreApplication>
#include <QDir>
#include <QEvent>
#include <QKeyEvent>
#include <utility>

namespace kelvrum {

namespace {

/// A missing or full home folder must not prevent the user from viewing a station.
QString noProgramFolder(const QString& folder) {
    return QStringLiteral("Der Programmordner „%1“ ist nicht zugänglich.\n"
                          "Projekte lassen sich über „Datei“ – „Öffnen“ ansehen; die Einstellungen des "
                          "Sammeldrucks liegen nun im aktuellen Ordner „%2“.")
        .arg(folder, QDir::currentPath());
}

} // namespace

f::f(Environment environment)
    : environment_(std::move(environment))
    , reader_(openAndAnswer())
    , loader_([this](const ReadingStep& step) { loadView(step); }, [] { QCoreApplication::processEvents(); })
    , menu_(*this)
    , client_(new QWidget(this)) {
    makeButtonsClickable();
    setCentralWidget(client_);
    buildParts();
    buildReading();
    buildEvaluation();
    buildKeys();
    connectMenu();
    connectParts();
    setCaption();
    hasScreenReader_ = QAccessible::isActive();
    QAccessible::installActivationObserver(this);
}

f::~f() {
    QAccessible::removeActivationObserver(this);
    for (QObject* part : findChildren<QObject*>()) {
        part->disconnect(this); // a picker with an unfinished edit reports it when it loses the focus
    }
    delete takeCentralWidget(); // the parts use the print job and go first
}

void f::Form_Load() {
    PolarSys& KS = view_->diagram();
    KS.Clear();

    KS.setD1(0xFF0000);
    KS.setY1axe(0x400000);
    keptColour1_ = 0x800000;
    keptColour2_ = WHITE;
    KS.setHeadLine(station_.Title);
    KS.setAchseText("");
    KS.setY1Low(-5); // until the user touches the scale, whatever the boxes show
    KS.setY1High(5);
    KS.setY1MinLow(0.2);

    // Setting a control from code triggers no change handling; the only LoadData of the start-up comes last.
    zoom_->start();
    const QDate today = environment_.today();
    const DateTime midnight = dateSerial(today.year(), today.month(), today.day());
    date_->start({midnight, midnight + 1});
    interval_->start();
    scroll_->start();
    optView->start();
    view_->showList(false);
    scale_->start();

    if (!QDir::setCurrent(environment_.programFolder)) {
        environment_.dialogs->message(this, noProgramFolder(environment_.programFolder),
                                      QStringLiteral("Kelvrum"));
    }
    readConf(projectFile(environment_.programFolder.toStdString()));
    LoadData();

    KS.setHilfslinie2(0);
    KS.setHilfslinie1(0);
}

bool f::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() == QEvent::KeyPress && watched == &view_->diagram() &&
        diagramKey(*static_cast<QKeyEvent*>(event))) {
        return true;
    }
    if (event->type() == QEvent::Resize && watched == client_) {
        Form_Resize();
    }
    return QMainWindow::eventFilter(watched, event);
}

void f::closeEvent(QCloseEvent* event) {
    loader_.giveUp();
    date_->disconnect(this); // an unfinished edit loads nothing any more
    QMainWindow::closeEvent(event);
}

} // namespace kelvrum
