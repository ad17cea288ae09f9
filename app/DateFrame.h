// SPDX-License-Identifier: GPL-3.0-or-later
// The frame "Datum": the time range.
#pragma once

#include "util/DateTime.h"
#include "util/Format.h"
#include "util/PeriodWidget.h"

#include <QGroupBox>

namespace kelvrum {

/// The range lives in the four pickers of this frame and nowhere else. Its buttons move one side by a day.
class DateFrame : public QGroupBox {
    Q_OBJECT

  public:
    using Side = PeriodWidget::Side;
    using Part = PeriodWidget::Part;

    DateFrame(const LocaleTexts& texts, QWidget* parent);

    [[nodiscard]] TimeRange range() const { return period_->value(); }

    /// Shows a range. Raises no signal.
    void setRange(const TimeRange& range) { period_->setValue(range); }

    /// Shows the range at start-up. The first edit of a time is compared with 00:00.
    void start(const TimeRange& range);

    [[nodiscard]] DatePicker& datePicker(Side side) const { return period_->datePicker(side); }

    /// Applies an unfinished entry.
    void finish() { period_->finish(); }

    /// Shifts both sides by a scroll unit, forward or back. Raises no signal.
    void shift(int unit, int count);

    /// Moves a time that the user has changed onto the grid of an interval in minutes: up when it is later
    /// than after the last `snap` of its side, else down. On purpose `setRange` and `shift` do not count.
    void snap(Side side, int interval);

    /// Both times onto the grid of another interval: down, since they are unchanged.
    void snapBoth(int interval);

    /// When the range has crossed, the other side follows the changed one.
    void pullOther(Side changed);

  Q_SIGNALS:
    /// The user has finished an edit of one side; nothing has been snapped or pulled yet.
    void edited(kelvrum::PeriodWidget::Side side, kelvrum::PeriodWidget::Part part);
    /// A button has moved a side.
    void moved();

  private:
    void stepDate(Side side, int days);
    int& previous(Side side) { return side == Side::start ? previousStart_ : previousEnd_; }

    PeriodWidget* period_;
    int previousStart_ = 0; // minutes; the times after their last change handling
    int previousEnd_ = 0;
};

} // namespace kelvrum
