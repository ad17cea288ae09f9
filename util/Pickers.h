// SPDX-License-Identifier: GPL-3.0-or-later
// The date and time pickers of a time range.
#pragma once

#include "util/Format.h"
#include "util/SectionTyping.h"

#include <QDateEdit>
#include <QTimeEdit>

namespace kelvrum {

class MarkedCalendar;

/// A short date format in the letters of Qt's pickers.
QString pickerFormat(const LocaleTexts& texts);

/// A picker whose typed change is one finished edit: it counts, as a whole, with the return key, with the
/// loss of the focus and before a step or a click. Until then the value stays as it was; the escape key
/// restores it. Invalid dates and times are discarded. Typing over the whole selected text begins with the
/// first section, and a click chooses the section to type into.
template<typename Edit>
class TypedPicker : public Edit {
  public:
    void stepBy(int steps) override;

    /// Ends the typing: the value is that of the typed text, or stays.
    void finish();

  protected:
    TypedPicker(const QString& format, QWidget* parent);

    /// Applies what was typed, if it is valid.
    virtual void take(const SectionTyping& typed) = 0;

    bool event(QEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void wheelEvent(QWheelEvent* event) override;
    void focusOutEvent(QFocusEvent* event) override;
    bool focusNextPrevChild(bool next) override;
    [[nodiscard]] QValidator::State validate(QString& text, int& position) const override;

  private:
    void begin();
    void drop();
    void show();
    bool typed(const QKeyEvent& event);
    void move(int key);

    SectionTyping typing_;
    QString shown_; // of the typing
};

extern template class TypedPicker<QDateEdit>;
extern template class TypedPicker<QTimeEdit>;

/// A date with a calendar that opens by a click on its arrow, F4 or Alt+Down and may be walked through
/// with keys: what is chosen there is one change. A typed date that does not exist (31.02.2026) is discarded,
/// the old one stays.
class DatePicker : public TypedPicker<QDateEdit> {
    Q_OBJECT

  public:
    explicit DatePicker(const LocaleTexts& texts, QWidget* parent = nullptr);

  Q_SIGNALS:
    /// The calendar shows a month, without marks yet.
    void monthOpened(kelvrum::MarkedCalendar* calendar, int year, int month);

  protected:
    void take(const SectionTyping& typed) override;
    [[nodiscard]] QValidator::State validate(QString& text, int& position) const override;
    void mousePressEvent(QMouseEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
};

/// A time of day, hours and minutes. Steps of a minute carry over the full hour: 10:00 steps back to 09:59.
class TimePicker : public TypedPicker<QTimeEdit> {
    Q_OBJECT

  public:
    explicit TimePicker(QWidget* parent = nullptr);

    void stepBy(int steps) override;

  protected:
    void take(const SectionTyping& typed) override;
    [[nodiscard]] StepEnabled stepEnabled() const override;
};

} // namespace kelvrum
