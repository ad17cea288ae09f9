// The date and time pickers of a time range.
#pragma once

#include "util/Format.h"

#include <QDateEdit>
#include <QTimeEdit>

namespace kelvrum {

/// A short date format in the letters of Qt's pickers.
QString pickerFormat(const LocaleTexts& texts);

/// A date with a calendar to fold out. Its change is a finished edit. A full section hands over to the next
/// one by itself; the separator that many type all the same means that step and not one more. What is typed
/// over the whole selected text begins with the first section.
class DatePicker : public QDateEdit {
    Q_OBJECT

  public:
    explicit DatePicker(const LocaleTexts& texts, QWidget* parent = nullptr);

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    bool handedOver_ = false;
};

/// A time of day, hours and minutes. Its change is a finished edit. Steps of a minute carry over the full
/// hour: 10:00 steps back to 09:59.
class TimePicker : public QTimeEdit {
    Q_OBJECT

  public:
    explicit TimePicker(QWidget* parent = nullptr);

    void stepBy(int steps) override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    [[nodiscard]] StepEnabled stepEnabled() const override;
};

} // namespace kelvrum
