// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DateFrame.h"

#include "app/ColumnDesign.h"
#include "data/RangeSteps.h"
#include "util/Controls.h"
#include "util/Pickers.h"

#include <QLabel>
#include <QPushButton>

namespace kelvrum {

namespace {

using column::CONTROL_HEIGHT;
using column::INNER_LEFT;

/// The place of a time picker, between its label and its buttons.
QRect timePlace(int y) { return {INNER_LEFT + 25, y, 39, CONTROL_HEIGHT}; }

constexpr int START_Y = 19; // of the time; the date is below it
constexpr int END_Y = 63;

} // namespace

DateFrame::DateFrame(const LocaleTexts& texts, QWidget* parent)
    : QGroupBox(QStringLiteral("Datum"), parent)
    , period_(new PeriodWidget(
          texts, {column::row(START_Y + 21), timePlace(START_Y), column::row(END_Y + 21), timePlace(END_Y)},
          this)) {
    setObjectName(QStringLiteral("Frame3"));
    setGeometry(column::LEFT, 147, column::WIDTH, 109);
    period_->setGeometry(rect());
    connect(period_, &PeriodWidget::edited, this, &DateFrame::edited);
    for (const Side side : {Side::start, Side::end}) {
        ignorePassingWheel(period_->datePicker(side));
        ignorePassingWheel(period_->timePicker(side));
    }

    struct Step {
        const char* name;
        int x;
        const char* caption;
        Side side;
        int days;
    };
    const Step steps[] = {
        {"Command3", INNER_LEFT + 65, "<<", Side::start, -1},
        {"Command4", INNER_LEFT + 85, ">>", Side::start, +1},
        {"Command6", INNER_LEFT + 65, "<<", Side::end, -1},
        {"Command5", INNER_LEFT + 85, ">>", Side::end, +1},
    };
    for (const Step& step : steps) {
        const QRect place(step.x, step.side == Side::start ? START_Y : END_Y, 19, CONTROL_HEIGHT);
        auto* button = makeControl<QPushButton>(this, step.name, place, QString::fromUtf8(step.caption));
        connect(button, &QPushButton::clicked, this, [this, step] { stepDate(step.side, step.days); });
    }
    const auto label = [this](const char* name, int y, const char* caption, QWidget* buddy) {
        const QRect place(INNER_LEFT, y, 24, CONTROL_HEIGHT);
        makeControl<QLabel>(this, name, place, QString::fromUtf8(caption))->setBuddy(buddy);
    };
    label("Label2", START_Y, "&von:", &period_->timePicker(Side::start));
    label("Label3", END_Y, "&bis:", &period_->timePicker(Side::end));
}

void DateFrame::start(const TimeRange& range) {
    setRange(range);
    previousStart_ = 0;
    previousEnd_ = 0;
}

void DateFrame::shift(int unit, int count) {
    for (const Side side : {Side::start, Side::end}) {
        period_->setAt(side, shiftTime(period_->at(side), unit, count));
    }
}

void DateFrame::snap(Side side, int interval) {
    const int snapped = snapMinutes(period_->minutes(side), previous(side), interval);
    period_->setMinutes(side, snapped);
    previous(side) = snapped;
}

void DateFrame::snapBoth(int interval) {
    for (const Side side : {Side::start, Side::end}) {
        previous(side) = period_->minutes(side);
        snap(side, interval);
        pullOther(side);
    }
}

void DateFrame::pullOther(Side changed) {
    const TimeRange crossed = range();
    if (isEarlier(crossed.to, crossed.from)) {
        const Side other = changed == Side::start ? Side::end : Side::start;
        period_->setAt(other, period_->at(changed));
    }
}

void DateFrame::stepDate(Side side, int days) {
    period_->setAt(side, period_->at(side) + days);
    const bool inward = (side == Side::start) == (days > 0);
    if (inward) { // an outward step leaves the other side alone
        pullOther(side);
    }
    Q_EMIT moved();
}

} // namespace kelvrum
