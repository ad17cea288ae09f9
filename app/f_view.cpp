// SPDX-License-Identifier: GPL-3.0-or-later
// What follows when a part of the window has changed: range and interval load anew; scale, limits and kind
// only draw. The layout of the window.
#include "app/ChannelChoice.h"
#include "app/ColumnScroll.h"
#include "app/DateFrame.h"
#include "app/IntervalFrame.h"
#include "app/KindMenu.h"
#include "app/LimitFrame.h"
#include "app/ScaleFrame.h"
#include "app/ScrollFrame.h"
#include "app/ViewArea.h"
#include "app/ViewSwitch.h"
#include "app/f.h"
#include "config/ConfigForms.h"
#include "diagram/PolarSys.h"
#include "util/Validity.h"

#include <QFrame>
#include <QLabel>
#include <cmath>

namespace kelvrum {

namespace {

constexpr double DIRECTIONS_HIGH = 540; // degrees: the joining rule of directions runs up to here
constexpr double PIXELS_PER_TWIP = 96.0 / 1440;
constexpr int MIN_TWIPS = 4000;
constexpr int FOOT = 30; // of the left column: Frame2 and Label1

} // namespace

TimeRange f::range() const { return date_->range(); }

std::int32_t f::interval() const { return interval_->minutes(); }

void f::rangeEdited(PeriodWidget::Side side, PeriodWidget::Part part) {
    if (part == PeriodWidget::Part::time) {
        date_->snap(side, interval());
    }
    date_->pullOther(side);
    LoadData();
}

void f::scrollRange(int count) {
    date_->shift(scroll_->unit(), count);
    LoadData();
}

void f::intervalChosen() {
    date_->snapBoth(interval());
    LoadData();
}

void f::viewChosen() {
    view_->showList(!optView->isDiagramChosen());
    LoadData();
}

void f::scaleChosen() {
    PolarSys& KS = view_->diagram();
    if (scale_->isAutomatic()) {
        setAutomaticRange();
    } else {
        KS.setY1Low(scale_->minimum());
        KS.setY1High(scale_->maximum());
    }
    KS.Draw();
}

void f::limitsToggled() {
    PolarSys& KS = view_->diagram();
    const bool shown = limits_->areLimitsShown();
    const AuxiliaryLines limits = limits_->limits();
    KS.setHilfslinie2(shown ? validate(limits.second) : 0);
    KS.setHilfslinie1(shown ? validate(limits.first) : 0);
    KS.Draw();
}

void f::chooseKind(std::int32_t kind) {
    PolarSys& KS = view_->diagram();
    const bool otherData = (kind == KIND_POLAR) != (KS.DiagTyp() == KIND_POLAR);
    setKind(kind);
    kinds_[channelShown_] = kind;
    if (otherData) {
        LoadData();
    } else {
        KS.Draw();
    }
}

void f::setKind(std::int32_t kind) {
    view_->diagram().setDiagTyp(kind);
    if (scale_->isAutomatic()) {
        setAutomaticRange();
    }
}

/// With the automatic scale the directions have their own range.
void f::setAutomaticRange() {
    PolarSys& KS = view_->diagram();
    const bool directions = KS.DiagTyp() == KIND_DIRECTION;
    KS.setY1Low(directions ? 0 : AUTOMATIC_RANGE);
    KS.setY1High(directions ? DIRECTIONS_HIGH : AUTOMATIC_RANGE);
}

/// The polar diagram is offered for wind directions only.
void f::showKindMenu(const QPoint& place) {
    const bool wind = formOf(station_).offersPolar &&
                      station_.ChannelTable.at(selChan->channel()).Mode == MODE_WIND_DIRECTION;
    menKS->showKinds(view_->diagram().DiagTyp(), wind);
    menKS->popup(view_->diagram().mapToGlobal(place));
}

/// Runs whenever the size changes. The left column keeps its design positions; a window too low for it
/// scrolls it.
void f::Form_Resize() {
    const int minWidth = static_cast<int>(std::ceil(MIN_TWIPS * PIXELS_PER_TWIP));
    if (minimumWidth() != minWidth) {
        setMinimumWidth(minWidth);
    }
    const int H = client_->height();
    view_->place(client_->width(), H, [this] {
        if (isVisible()) {
            view_->diagram().Draw();
        }
    });
    Label1->move(Label1->x(), H - 17);
    Frame2->move(Frame2->x(), H - FOOT);
    column_->setHeight(H - FOOT);
}

} // namespace kelvrum
