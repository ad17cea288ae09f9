// SPDX-License-Identifier: GPL-3.0-or-later
// A calendar that marks days.
#pragma once

#include <QCalendarWidget>
#include <QDate>
#include <QString>
#include <map>

namespace kelvrum {

/// What a day is marked with, at the foot of its cell. The toolkit's look of the day stays.
enum class DayMark { none, empty, half, full };

/// Marks the days of the month that is shown. The owner sets the marks when the calendar opens or
/// turns to another month. The text of the selected day is the calendar's accessible description too, and its
/// tool tip appears while keys move the selection.
class MarkedCalendar : public QCalendarWidget {
    Q_OBJECT

  public:
    struct Mark {
        DayMark mark = DayMark::none;
        QString text; // tool tip
    };

    explicit MarkedCalendar(QWidget* parent = nullptr);

    /// Sets the marks of one month and removes all others.
    void setMarks(const std::map<QDate, Mark>& marks);
    [[nodiscard]] DayMark markOf(const QDate& day) const;

    /// The toolkit's, with room for the marks below the days.
    [[nodiscard]] QSize minimumSizeHint() const override;

  Q_SIGNALS:
    /// A month has come into view, without marks yet.
    void monthOpened(int year, int month);

  protected:
    void paintCell(QPainter* painter, const QRect& place, QDate date) const override;
    void showEvent(QShowEvent* event) override;

  private:
    void showMonth();
    void describeDay();

    std::map<QDate, Mark> marks_;
    bool isWalked_ = false; // keys have moved the selection
};

} // namespace kelvrum
