// SPDX-License-Identifier: GPL-3.0-or-later
// The pickers of a period: two dates and two times of day.
#pragma once

#include "util/DateTime.h"
#include "util/Format.h"

#include <QRect>
#include <QWidget>

namespace kelvrum {

class DatePicker;
class TimePicker;

/// A period from a start to an end, to the minute. The pickers are named DTPicker (start date), DTPicker1
/// (start time), DTPicker2 (end date) and DTPicker3 (end time). The widget neither orders the two sides nor
/// snaps them: its owner does.
class PeriodWidget : public QWidget {
    Q_OBJECT

  public:
    enum class Side { start, end };
    enum class Part { date, time };
    Q_ENUM(Side)
    Q_ENUM(Part)

    /// Where the pickers are, from the widget's upper left corner.
    struct Places {
        QRect startDate;
        QRect startTime;
        QRect endDate;
        QRect endTime;
    };

    PeriodWidget(const LocaleTexts& texts, const Places& places, QWidget* parent = nullptr);
    ~PeriodWidget() override;

    /// The period as last set or finished; an unfinished entry does not count yet.
    [[nodiscard]] TimeRange value() const;

    /// Shows a period, cut to the minute. Raises no signal.
    void setValue(const TimeRange& period);

    /// One side of the value, and setting it without a signal.
    [[nodiscard]] DateTime at(Side side) const;
    void setAt(Side side, DateTime t);

    /// Time of day of one side in minutes from 0 to 1439, and setting it without a signal.
    [[nodiscard]] int minutes(Side side) const;
    void setMinutes(Side side, int minutes);

    /// Applies an unfinished entry, for an action that does not take the focus away; may raise `edited`.
    void finish();

    [[nodiscard]] DatePicker& datePicker(Side side) const;
    [[nodiscard]] TimePicker& timePicker(Side side) const;

  Q_SIGNALS:
    /// The user has finished an edit of one side.
    void edited(kelvrum::PeriodWidget::Side side, kelvrum::PeriodWidget::Part part);

  private:
    DatePicker* DTPicker;
    TimePicker* DTPicker1;
    DatePicker* DTPicker2;
    TimePicker* DTPicker3;
};

} // namespace kelvrum
