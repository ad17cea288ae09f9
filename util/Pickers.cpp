// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/Pickers.h"

#include "util/DateTime.h"
#include "util/MarkedCalendar.h"

#include <QCalendarWidget>
#include <QClipboard>
#include <QGuiApplication>
#include <QKeyEvent>
#include <QLineEdit>
#include <QMouseEvent>
#include <QSignalBlocker>
#include <QStyle>
#include <QStyleOptionComboBox>
#include <QTimeZone>
#include <algorithm>

namespace kelvrum {

QString pickerFormat(const LocaleTexts& texts) {
    return QString::fromStdString(texts.shortDate).replace(QLatin1Char('m'), QLatin1Char('M'));
}

template<typename Edit>
TypedPicker<Edit>::TypedPicker(const QString& format, QWidget* parent)
    : Edit(parent)
    , typing_(format.toStdString()) {
    Edit::setDisplayFormat(format);
#if QT_VERSION >= QT_VERSION_CHECK(6, 7, 0) // stations know no summer time
    Edit::setTimeZone(QTimeZone::utc());
#else
    Edit::setTimeSpec(Qt::UTC);
#endif
    Edit::setKeyboardTracking(false);
    Edit::lineEdit()->installEventFilter(this);
}

template<typename Edit>
void TypedPicker<Edit>::stepBy(int steps) {
    finish();
    Edit::stepBy(steps);
}

template<typename Edit>
bool TypedPicker<Edit>::eventFilter(QObject* watched, QEvent* event) {
    if (watched == Edit::lineEdit() && event->type() == QEvent::MouseButtonPress) {
        finish();
    }
    if (watched == Edit::lineEdit() && event->type() == QEvent::KeyPress) {
        event->accept();
        this->event(event); // keys belong to the picker, whichever widget receives them
        return true;
    }
    return Edit::eventFilter(watched, event);
}

/// What an input method composes is typed when it is complete.
template<typename Edit>
bool TypedPicker<Edit>::event(QEvent* event) {
    if (event->type() == QEvent::InputMethod) {
        const QString text = static_cast<QInputMethodEvent*>(event)->commitString();
        if (!text.isEmpty() && !Edit::isReadOnly()) {
            QKeyEvent key(QEvent::KeyPress, Qt::Key_unknown, Qt::NoModifier, text);
            keyPressEvent(&key);
        }
        event->accept();
        return true;
    }
    return Edit::event(event);
}

template<typename Edit>
void TypedPicker<Edit>::keyPressEvent(QKeyEvent* event) {
    if (typing_.isActive() && Edit::lineEdit()->text() != shown_) {
        typing_.end(); // the value was set in the meantime
    }
    switch (event->key()) {
    case Qt::Key_Return:
    case Qt::Key_Enter:
        finish();
        if (!typing_.isActive()) {
            Edit::interpretText();         // what was pasted or cut by the line's own menu
            Edit::lineEdit()->selectAll(); // what is typed next begins anew
        }
        event->ignore(); // for a dialog's default button
        Q_EMIT Edit::editingFinished();
        return;
    case Qt::Key_Escape:
        if (typing_.isActive()) {
            drop();
            event->accept();
            return;
        }
        break;
    case Qt::Key_Up:
    case Qt::Key_Down:
    case Qt::Key_PageUp:
    case Qt::Key_PageDown:
        finish(); // the step starts from what was typed
        break;
    default:
        if (typed(*event)) {
            show();
            event->accept();
            return;
        }
        break;
    }
    Edit::keyPressEvent(event);
}

template<typename Edit>
void TypedPicker<Edit>::wheelEvent(QWheelEvent* event) {
    finish();
    Edit::wheelEvent(event);
}

template<typename Edit>
void TypedPicker<Edit>::focusOutEvent(QFocusEvent* event) {
    finish();
    Edit::focusOutEvent(event);
}

/// The tab key goes from section to section and leaves after the last one.
template<typename Edit>
bool TypedPicker<Edit>::focusNextPrevChild(bool next) {
    if (typing_.isActive() && typing_.move(next ? +1 : -1)) {
        show();
        return false;
    }
    finish();
    return Edit::focusNextPrevChild(next);
}

/// An unfinished entry is kept as it is: it is validated at its end.
template<typename Edit>
QValidator::State TypedPicker<Edit>::validate(QString& text, int& position) const {
    return typing_.isActive() && text == shown_ ? QValidator::Intermediate : Edit::validate(text, position);
}

template<typename Edit>
void TypedPicker<Edit>::finish() {
    if (!typing_.isActive()) {
        return;
    }
    const bool overtaken = Edit::lineEdit()->text() != shown_;
    const auto section = static_cast<int>(typing_.section());
    const SectionTyping whole = typing_;
    drop();
    if (!overtaken) {
        take(whole);
        if (!typing_.isActive()) { // the user may type while the change is handled
            Edit::setSelectedSection(Edit::sectionAt(section));
        }
    }
}

template<typename Edit>
void TypedPicker<Edit>::begin() {
    const QLineEdit& line = *Edit::lineEdit();
    const bool wholeText = line.hasSelectedText() && line.selectedText() == line.text();
    Edit::interpretText(); // what was pasted or cut by the line's own menu
    const int section = wholeText ? 0 : std::max(Edit::currentSectionIndex(), 0);
    typing_.begin(Edit::textFromDateTime(Edit::dateTime()).toStdString(), static_cast<std::size_t>(section));
}

/// The value is shown again.
template<typename Edit>
void TypedPicker<Edit>::drop() {
    const int section = static_cast<int>(typing_.section());
    typing_.end();
    {
        const QSignalBlocker quiet(Edit::lineEdit());
        Edit::lineEdit()->setText(Edit::textFromDateTime(Edit::dateTime()));
    }
    Edit::setSelectedSection(Edit::sectionAt(section));
}

template<typename Edit>
void TypedPicker<Edit>::show() {
    shown_ = QString::fromStdString(typing_.text());
    QLineEdit& line = *Edit::lineEdit();
    const QSignalBlocker quiet(line); // no value yet
    line.setText(shown_);
    const auto start = static_cast<int>(typing_.sectionStart());
    const auto length = static_cast<int>(typing_.sectionLength());
    if (typing_.isFresh()) {
        line.setSelection(start, length);
    } else {
        line.setCursorPosition(start + length);
    }
}

/// Whether a key belongs to the entry; it has been handled then.
template<typename Edit>
bool TypedPicker<Edit>::typed(const QKeyEvent& event) {
    const bool erases = event.key() == Qt::Key_Backspace || event.key() == Qt::Key_Delete;
    const bool moves = (event.key() == Qt::Key_Left || event.key() == Qt::Key_Right ||
                        event.key() == Qt::Key_Home || event.key() == Qt::Key_End) &&
                       (event.modifiers() & ~Qt::KeypadModifier) == 0;
    const bool pastes = event.matches(QKeySequence::Paste);
    const QString text = pastes ? QGuiApplication::clipboard()->text().trimmed() : event.text();
    const bool prints = !text.isEmpty() && text[0].isPrint() &&
                        (pastes || (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) == 0);
    if (Edit::isReadOnly() || !(erases || prints || moves)) {
        return false;
    }
    const QLineEdit& line = *Edit::lineEdit();
    const bool marked = line.hasSelectedText();
    const bool wholeText = marked && line.selectedText() == line.text();
    if (!typing_.isActive()) {
        begin();
    } else if (wholeText && prints) {
        typing_.moveToFirst();
    }
    if (moves) {
        move(event.key());
    } else if (erases && wholeText) {
        typing_.eraseAll();
    } else if (erases && marked) {
        typing_.eraseSection();
    } else if (erases) {
        typing_.eraseDigit();
    } else {
        std::string characters;
        for (const QChar c : text) {
            characters += c.digitValue() >= 0 ? static_cast<char>('0' + c.digitValue()) : '.';
        }
        typing_.type(characters);
    }
    return true;
}

template<typename Edit>
void TypedPicker<Edit>::move(int key) {
    switch (key) {
    case Qt::Key_Home:
        typing_.moveToFirst();
        break;
    case Qt::Key_End:
        typing_.moveToLast();
        break;
    default:
        typing_.move(key == Qt::Key_Left ? -1 : +1);
    }
}

template class TypedPicker<QDateEdit>;
template class TypedPicker<QTimeEdit>;

DatePicker::DatePicker(const LocaleTexts& texts, QWidget* parent)
    : TypedPicker<QDateEdit>(pickerFormat(texts), parent) {
    setCalendarPopup(true);
    setDateRange(QDate(100, 1, 1), QDate(9999, 12, 31));
}

void DatePicker::take(const SectionTyping& typed) {
    using Unit = SectionTyping::Unit;
    const QDate before = date();
    const int year = typed.number(Unit::year).value_or(before.year());
    const int month = typed.number(Unit::month).value_or(before.month());
    const int day = typed.number(Unit::day).value_or(before.day());
    const QDate wanted(year, month, day);
    if (wanted.isValid() && wanted >= minimumDate() && wanted <= maximumDate()) {
        setDate(wanted);
    }
}

/// The toolkit would make 28.02.2026 of a 31.02.2026 that the line's own menu pastes.
QValidator::State DatePicker::validate(QString& text, int& position) const {
    const auto dayIn = [this](const QString& date) {
        SectionTyping sections(displayFormat().toStdString());
        sections.begin(date.toStdString(), 0);
        return sections.number(SectionTyping::Unit::day);
    };
    const auto day = dayIn(text);
    const QValidator::State state = TypedPicker<QDateEdit>::validate(text, position);
    return dayIn(text) == day ? state : QValidator::Invalid;
}

void DatePicker::mousePressEvent(QMouseEvent* event) {
    finish();
    if (findChild<QCalendarWidget*>() == nullptr) { // a calendar takes long to make: not before it is wanted
        auto* marked = new MarkedCalendar;
        connect(marked, &MarkedCalendar::monthOpened, this,
                [this, marked](int year, int month) { Q_EMIT monthOpened(marked, year, month); });
        setCalendarWidget(marked);
    }
    TypedPicker<QDateEdit>::mousePressEvent(event);
    if (auto* calendar = findChild<QCalendarWidget*>()) {
        // The popup around the calendar would apply every day that is passed. The chosen one reaches it
        // as `activated` or `clicked`.
        disconnect(calendar, &QCalendarWidget::selectionChanged, calendar->parentWidget(), nullptr);
        calendar->setDateEditEnabled(false); // digits would count from today
    }
}

/// The toolkit opens the calendar for the mouse alone: the keys press the arrow.
void DatePicker::keyPressEvent(QKeyEvent* event) {
    const bool opens =
        (event->key() == Qt::Key_F4 && event->modifiers() == Qt::NoModifier) ||
        (event->key() == Qt::Key_Down && (event->modifiers() & ~Qt::KeypadModifier) == Qt::AltModifier);
    if (!opens || isReadOnly()) {
        TypedPicker<QDateEdit>::keyPressEvent(event);
        return;
    }
    QStyleOptionComboBox option;
    option.initFrom(this);
    option.editable = true;
    option.subControls = QStyle::SC_All;
    const QPointF arrow =
        style()->subControlRect(QStyle::CC_ComboBox, &option, QStyle::SC_ComboBoxArrow, this).center();
    QMouseEvent press(QEvent::MouseButtonPress, arrow, mapToGlobal(arrow), Qt::LeftButton, Qt::LeftButton,
                      Qt::NoModifier);
    mousePressEvent(&press);
    event->accept();
}

TimePicker::TimePicker(QWidget* parent)
    : TypedPicker<QTimeEdit>(QStringLiteral("hh:mm"), parent) {
    setWrapping(false);
    setButtonSymbols(QAbstractSpinBox::NoButtons);
    setAlignment(Qt::AlignHCenter);
}

void TimePicker::take(const SectionTyping& typed) {
    using Unit = SectionTyping::Unit;
    const QTime typedTime(typed.number(Unit::hour).value_or(time().hour()),
                          typed.number(Unit::minute).value_or(time().minute()));
    if (typedTime.isValid()) {
        setTime(typedTime);
    }
}

void TimePicker::stepBy(int steps) {
    finish();
    if (currentSection() != MinuteSection) {
        TypedPicker<QTimeEdit>::stepBy(steps);
        return;
    }
    constexpr int LAST_MINUTE = MINUTES_PER_DAY - 1;
    const int minute = std::clamp(time().hour() * 60 + time().minute() + steps, 0, LAST_MINUTE);
    setTime(QTime(minute / 60, minute % 60));
    setSelectedSection(MinuteSection);
}

QAbstractSpinBox::StepEnabled TimePicker::stepEnabled() const {
    return currentSection() == MinuteSection ? StepUpEnabled | StepDownEnabled : QTimeEdit::stepEnabled();
}

} // namespace kelvrum
