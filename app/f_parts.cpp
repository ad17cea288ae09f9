// SPDX-License-Identifier: GPL-3.0-or-later
// The parts of the main window, what connects them, and the keys that work beside them.
#include "app/ChannelChoice.h"
#include "app/ColumnDesign.h"
#include "app/ColumnScroll.h"
#include "app/ControlNames.h"
#include "app/DateFrame.h"
#include "app/IntervalFrame.h"
#include "app/KindMenu.h"
#include "app/LimitFrame.h"
#include "app/ScaleFrame.h"
#include "app/ScrollFrame.h"
#include "app/ViewArea.h"
#include "app/ViewSwitch.h"
#include "app/ZoomFrame.h"
#include "app/f.h"
#include "diagram/PolarSys.h"
#include "util/CaptionFit.h"
#include "util/Controls.h"
#include "util/Validity.h"

#include <QAbstractButton>
#include <QAction>
#include <QFrame>
#include <QGroupBox>
#include <QKeyEvent>
#include <QLabel>
#include <vector>

namespace kelvrum {

void f::buildParts() {
    client_->installEventFilter(this);
    client_->setFont(controlFont());
    view_ = new ViewArea(environment_.texts, client_);
    view_->diagram().setPrintJob(printJob_);
    menKS = new KindMenu(&view_->diagram());
    selChan = new ChannelChoice(client_);
    optView = new ViewSwitch(client_);
    date_ = new DateFrame(environment_.texts, client_);
    scroll_ = new ScrollFrame(client_);
    interval_ = new IntervalFrame(client_);
    scale_ = new ScaleFrame(client_);
    limits_ = new LimitFrame(client_);
    zoom_ = new ZoomFrame(client_);
    std::vector<QWidget*> column = {selChan};
    for (QWidget* part : client_->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
        if (qobject_cast<QAbstractButton*>(part) != nullptr || qobject_cast<QGroupBox*>(part) != nullptr) {
            column.push_back(part);
        }
    }
    column_ = new ColumnScroll(*client_, column);
    buildFoot();
    fitCaptions(*client_);
    nameControls(*client_);
}

void f::buildFoot() {
    constexpr int WIDTH = column::WIDTH - 3;
    Frame2 = makeControl<QFrame>(client_, "Frame2", QRect(column::LEFT, 646, column::WIDTH, 13));
    Frame2->setAccessibleName(QStringLiteral("Status"));
    Label8 = makeControl<QLabel>(Frame2, "Label8", QRect(3, 0, WIDTH, 13), QStringLiteral("Lade Daten ..."));
    Label8->setAutoFillBackground(true); // in a low window both labels lie over the column
    Label8->hide();
    Label1 = makeControl<QLabel>(client_, "Label1", QRect(5, 659, WIDTH, 15), QStringLiteral("Startzeit"));
    Label1->setAutoFillBackground(true);
}

void f::connectMenu() {
    connect(menu_.menOpen, &QAction::triggered, this, &f::OpenFile);
    connect(menu_.menProj, &QAction::triggered, this, &f::showProjects);
    connect(menu_.menPrint, &QAction::triggered, this, &f::printView);
    connect(menu_.menCPrint, &QAction::triggered, this, &f::showBatchPrint);
    connect(menu_.menSelP, &QAction::triggered, this, &f::setUpPrinterAndPrint);
    connect(menu_.menWind, &QAction::triggered, this, [this] { correct(CorrectionMode::wind); });
    connect(menu_.menStaub, &QAction::triggered, this, [this] { correct(CorrectionMode::dust); });
    connect(menu_.MenEnd, &QAction::triggered, this, &QWidget::close);
}

/// The parts signal what a user does, and nothing that is set from code.
void f::connectParts() {
    PolarSys& KS = view_->diagram();
    connect(selChan, &ChannelChoice::chosen, this, &f::LoadData);
    connect(optView, &ViewSwitch::chosen, this, &f::viewChosen);
    connect(date_, &DateFrame::edited, this, &f::rangeEdited);
    connect(date_, &DateFrame::moved, this, &f::LoadData);
    connect(scroll_, &ScrollFrame::scrolled, this, &f::scrollRange);
    connect(interval_, &IntervalFrame::chosen, this, &f::intervalChosen);

    connect(scale_, &ScaleFrame::chosen, this, &f::scaleChosen);
    connect(scale_, &ScaleFrame::minimumEdited, this, [&KS](double value) {
        KS.setY1Low(value);
        KS.Draw();
    });
    connect(scale_, &ScaleFrame::maximumEdited, this, [&KS](double value) {
        KS.setY1High(value);
        KS.Draw();
    });
    connect(limits_, &LimitFrame::limitsToggled, this, &f::limitsToggled);
    const auto drawIfVisible = [&KS] {
        if (KS.isVisible()) {
            KS.Draw();
        }
    };
    connect(limits_, &LimitFrame::firstLimitEdited, this, [this, &KS, drawIfVisible] {
        KS.setHilfslinie1(validate(limits_->limits().first));
        drawIfVisible();
    });
    connect(limits_, &LimitFrame::secondLimitEdited, this, [this, &KS, drawIfVisible] {
        KS.setHilfslinie2(validate(limits_->limits().second));
        drawIfVisible();
    });
    connect(limits_, &LimitFrame::meanToggled, this, [this, &KS] {
        KS.setShowMittel(limits_->isMeanShown());
        KS.Draw();
    });
    connect(zoom_, &ZoomFrame::zoomed, this, &f::Form_Resize);
    connect(zoom_, &ZoomFrame::slid, this, &f::SetXHigh);
    connect(view_, &ViewArea::scrolled, this, &f::SetXHigh);

    connect(menKS, &KindMenu::kindChosen, this, &f::chooseKind);
    KS.setContextMenuPolicy(Qt::CustomContextMenu);
    connect(&KS, &QWidget::customContextMenuRequested, this, &f::showKindMenu);
}

void f::buildKeys() {
    auto* reload = new QAction(this); // without an entry in a menu
    reload->setObjectName(QStringLiteral("reload"));
    reload->setShortcut(QKeySequence(Qt::Key_F5));
    addAction(reload);
    connect(reload, &QAction::triggered, this, [this] {
        const unsigned before = loader_.requests();
        finishEdits();
        if (loader_.requests() == before) {
            LoadData();
        }
    });
    view_->diagram().installEventFilter(this);
}

/// Applies an unfinished entry in a picker before a key that needs the range.
void f::finishEdits() { date_->finish(); }

/// The page keys scroll the range by the scroll unit, as the buttons do. True when the key was one.
bool f::diagramKey(const QKeyEvent& key) {
    const Qt::KeyboardModifiers modifiers = key.modifiers() & ~Qt::KeypadModifier;
    if (modifiers != Qt::NoModifier || (key.key() != Qt::Key_PageUp && key.key() != Qt::Key_PageDown)) {
        return false;
    }
    scrollRange(key.key() == Qt::Key_PageUp ? -1 : +1);
    return true;
}

} // namespace kelvrum
