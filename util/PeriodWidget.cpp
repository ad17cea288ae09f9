// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/PeriodWidget.h"

#include "util/Controls.h"
#include "util/Pickers.h"

#include <QSignalBlocker>

namespace kelvrum {

namespace {

const QDate& dayZero() {
    static const QDate day(1899, 12, 30);
    return day;
}

} // namespace

PeriodWidget::PeriodWidget(const LocaleTexts& texts, const Places& places, QWidget* parent)
    : QWidget(parent)
    , DTPicker(makeControl<DatePicker>(this, "DTPicker", places.startDate, texts))
    , DTPicker1(makeControl<TimePicker>(this, "DTPicker1", places.startTime))
    , DTPicker2(makeControl<DatePicker>(this, "DTPicker2", places.endDate, texts))
    , DTPicker3(makeControl<TimePicker>(this, "DTPicker3", places.endTime)) {
    setAccessibleName(QStringLiteral("Zeitraum"));
    for (const Side side : {Side::start, Side::end}) {
        connect(&datePicker(side), &QDateEdit::userDateChanged, this,
                [this, side] { Q_EMIT edited(side, Part::date); });
        connect(&timePicker(side), &QTimeEdit::userTimeChanged, this,
                [this, side] { Q_EMIT edited(side, Part::time); });
    }
}

PeriodWidget::~PeriodWidget() {
    for (QWidget* picker : findChildren<QWidget*>()) {
        picker->disconnect(this); // an unfinished edit is reported by a picker that loses the focus
    }
}

TimeRange PeriodWidget::value() const { return {at(Side::start), at(Side::end)}; }

void PeriodWidget::setValue(const TimeRange& period) {
    setAt(Side::start, period.from);
    setAt(Side::end, period.to);
}

DateTime PeriodWidget::at(Side side) const {
    const auto day = static_cast<double>(dayZero().daysTo(datePicker(side).date()));
    return day + static_cast<double>(minutes(side)) / MINUTES_PER_DAY;
}

void PeriodWidget::setAt(Side side, DateTime t) {
    const CalendarTime parts = calendarTime(t);
    const QSignalBlocker silent(&datePicker(side));
    datePicker(side).setDate(QDate(parts.year, parts.month, parts.day));
    setMinutes(side, parts.hour * 60 + parts.minute);
}

int PeriodWidget::minutes(Side side) const {
    const QTime time = timePicker(side).time();
    return time.hour() * 60 + time.minute();
}

void PeriodWidget::setMinutes(Side side, int minutes) {
    const QSignalBlocker silent(&timePicker(side));
    timePicker(side).setTime(QTime(minutes / 60, minutes % 60));
}

void PeriodWidget::finish() {
    for (const Side side : {Side::start, Side::end}) {
        datePicker(side).finish();
        timePicker(side).finish();
    }
}

DatePicker& PeriodWidget::datePicker(Side side) const { return side == Side::start ? *DTPicker : *DTPicker2; }

TimePicker& PeriodWidget::timePicker(Side side) const {
    return side == Side::start ? *DTPicker1 : *DTPicker3;
}

} // namespace kelvrum
