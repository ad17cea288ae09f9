// The time range: it lives in the four pickers alone.
#include "app/f.h"
#include "data/RangeSteps.h"
#include "util/Pickers.h"

#include <QComboBox>
#include <QSignalBlocker>

namespace kelvrum {

namespace {

const QDate& dayZero() {
    static const QDate day(1899, 12, 30);
    return day;
}

int minutesOf(const QTime& time) { return time.hour() * 60 + time.minute(); }

QTime timeOfMinutes(int minutes) { return {minutes / 60, minutes % 60}; }

/// A picker's date is set without raising its change handling.
void setQuietly(QDateEdit& picker, const QDate& date) {
    const QSignalBlocker silent(&picker);
    picker.setDate(date);
}

void setQuietly(QTimeEdit& picker, const QTime& time) {
    const QSignalBlocker silent(&picker);
    picker.setTime(time);
}

} // namespace

QDateEdit& f::datePicker(Side side) const { return side == Side::start ? *DTPicker : *DTPicker2; }

QTimeEdit& f::timePicker(Side side) const { return side == Side::start ? *DTPicker1 : *DTPicker3; }

DateTime f::timeOf(Side side) const {
    const auto day = static_cast<double>(dayZero().daysTo(datePicker(side).date()));
    return day + static_cast<double>(minutesOf(timePicker(side).time())) / MINUTES_PER_DAY;
}

TimeRange f::range() const { return {timeOf(Side::start), timeOf(Side::end)}; }

std::int32_t f::interval() const { return selInterval->currentData().toInt(); }

/// The date picker gets the day, the time picker its hour and minute.
void f::setTime(Side side, DateTime t) {
    const CalendarTime parts = calendarTime(t);
    setQuietly(datePicker(side), QDate(parts.year, parts.month, parts.day));
    setQuietly(timePicker(side), QTime(parts.hour, parts.minute));
}

/// When the range has crossed, the other side follows the changed one.
void f::pullOther(Side changed) {
    const TimeRange crossed = range();
    if (crossed.from > crossed.to) {
        const Side other = changed == Side::start ? Side::end : Side::start;
        setQuietly(datePicker(other), datePicker(changed).date());
        setQuietly(timePicker(other), timePicker(changed).time());
    }
}

void f::stepDate(Side side, int days) {
    QDateEdit& picker = datePicker(side);
    setQuietly(picker, picker.date().addDays(days));
    const bool inward = (side == Side::start) == (days > 0);
    if (inward) { // an outward step leaves the other side alone
        pullOther(side);
    }
    LoadData();
}

void f::scrollRange(int count) {
    const int unit = selScroll->currentData().toInt();
    const bool forward = count > 0;
    for (const Side side : {forward ? Side::end : Side::start, forward ? Side::start : Side::end}) {
        setTime(side, shiftTime(timeOf(side), unit, count));
    }
    LoadData();
}

void f::dateEdited(Side side) {
    pullOther(side);
    LoadData();
}

void f::snapTime(Side side) {
    QTimeEdit& picker = timePicker(side);
    int& previous = side == Side::start ? previousStartTime_ : previousEndTime_;
    const int snapped = snapMinutes(minutesOf(picker.time()), previous, interval());
    setQuietly(picker, timeOfMinutes(snapped));
    previous = snapped;
}

void f::timeEdited(Side side) {
    snapTime(side);
    pullOther(side);
    if (!suppressReload_) {
        LoadData();
    }
}

void f::intervalChosen() {
    suppressReload_ = true;
    for (const Side side : {Side::start, Side::end}) {
        // Both times are unchanged, so both round down to the new grid.
        (side == Side::start ? previousStartTime_ : previousEndTime_) = minutesOf(timePicker(side).time());
        timeEdited(side);
    }
    suppressReload_ = false;
    LoadData();
}

} // namespace kelvrum
