#include "util/Pickers.h"

#include "util/DateTime.h"

#include <QKeyEvent>
#include <QLineEdit>
#include <algorithm>

namespace kelvrum {

namespace {

/// Whether a key begins a new date or time over a text that is selected as a whole.
bool beginsAnew(const QLineEdit& shown, const QKeyEvent& event) {
    const QString typed = event.text();
    return !typed.isEmpty() && typed[0].isDigit() && shown.hasSelectedText() &&
           shown.selectedText() == shown.text();
}

} // namespace

QString pickerFormat(const LocaleTexts& texts) {
    return QString::fromStdString(texts.shortDate).replace(QLatin1Char('m'), QLatin1Char('M'));
}

DatePicker::DatePicker(const LocaleTexts& texts, QWidget* parent)
    : QDateEdit(parent) {
    setTimeSpec(Qt::UTC); // stations know no summer time
    setDisplayFormat(pickerFormat(texts));
    setCalendarPopup(true);
    setKeyboardTracking(false);
    setDateRange(QDate(100, 1, 1), QDate(9999, 12, 31));
}

void DatePicker::keyPressEvent(QKeyEvent* event) {
    const QString typed = event->text();
    const bool separator = !typed.isEmpty() && typed[0].isPrint() && !typed[0].isLetterOrNumber();
    if (separator && handedOver_) {
        handedOver_ = false;
        event->accept();
        return;
    }
    if (beginsAnew(*lineEdit(), *event)) {
        setSelectedSection(sectionAt(0)); // the toolkit would lose the first digits
    }
    const int before = currentSectionIndex();
    QDateEdit::keyPressEvent(event);
    handedOver_ = !typed.isEmpty() && typed[0].isDigit() && currentSectionIndex() != before;
}

TimePicker::TimePicker(QWidget* parent)
    : QTimeEdit(parent) {
    setTimeSpec(Qt::UTC);
    setDisplayFormat(QStringLiteral("HH:mm"));
    setKeyboardTracking(false);
    setWrapping(false);
    setButtonSymbols(QAbstractSpinBox::NoButtons);
    setAlignment(Qt::AlignHCenter);
}

void TimePicker::stepBy(int steps) {
    if (currentSection() != MinuteSection) {
        QTimeEdit::stepBy(steps);
        return;
    }
    constexpr int LAST_MINUTE = MINUTES_PER_DAY - 1;
    const QTime now = locale().toTime(text(), displayFormat()); // what was typed is not taken over yet
    const QTime from = now.isValid() ? now : time();
    const int minute = std::clamp(from.hour() * 60 + from.minute() + steps, 0, LAST_MINUTE);
    setTime(QTime(minute / 60, minute % 60));
    setSelectedSection(MinuteSection);
}

void TimePicker::keyPressEvent(QKeyEvent* event) {
    if (beginsAnew(*lineEdit(), *event)) {
        setSelectedSection(sectionAt(0)); // as in a DatePicker
    }
    QTimeEdit::keyPressEvent(event);
}

QAbstractSpinBox::StepEnabled TimePicker::stepEnabled() const {
    return currentSection() == MinuteSection ? StepUpEnabled | StepDownEnabled : QTimeEdit::stepEnabled();
}

} // namespace kelvrum
