// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/MarkedCalendar.h"

#include <QGuiApplication>
#include <QPainter>
#include <QPen>
#include <QTableView>
#include <QTextCharFormat>
#include <QToolTip>

namespace kelvrum {

namespace {
constexpr int SIZE = 5; // of a mark, in pixels
const QColor MARK(0, 96, 192);
} // namespace

MarkedCalendar::MarkedCalendar(QWidget* parent)
    : QCalendarWidget(parent) {
    connect(this, &QCalendarWidget::currentPageChanged, this, [this] {
        if (isVisible()) {
            showMonth();
        }
    });
    connect(this, &QCalendarWidget::selectionChanged, this, [this] {
        isWalked_ = isVisible() && QGuiApplication::mouseButtons() == Qt::NoButton;
        describeDay();
    });
}

void MarkedCalendar::showEvent(QShowEvent* event) {
    QCalendarWidget::showEvent(event);
    isWalked_ = false;
    showMonth();
}

void MarkedCalendar::showMonth() {
    setMarks({});
    Q_EMIT monthOpened(yearShown(), monthShown());
}

void MarkedCalendar::setMarks(const std::map<QDate, Mark>& marks) {
    for (const auto& [day, mark] : marks_) {
        setDateTextFormat(day, {});
    }
    marks_ = marks;
    for (const auto& [day, mark] : marks_) {
        if (!mark.text.isEmpty()) {
            QTextCharFormat format; // with nothing but the tool tip: a Sunday stays red
            format.setToolTip(mark.text);
            setDateTextFormat(day, format);
        }
    }
    updateCells();
    describeDay();
}

void MarkedCalendar::describeDay() {
    const auto found = marks_.find(selectedDate());
    const QString text = found == marks_.end() ? QString() : found->second.text;
    setAccessibleDescription(text);
    const auto* days = findChild<QTableView*>();
    if (isWalked_ && days != nullptr) {
        const QPoint below = days->visualRect(days->currentIndex()).bottomLeft();
        QToolTip::showText(days->viewport()->mapToGlobal(below), text, days->viewport());
    }
}

DayMark MarkedCalendar::markOf(const QDate& day) const {
    const auto found = marks_.find(day);
    return found == marks_.end() ? DayMark::none : found->second.mark;
}

QSize MarkedCalendar::minimumSizeHint() const {
    constexpr int ROWS = 7;              // the names of the weekdays and six weeks
    constexpr int ROOM = 2 * (SIZE - 1); // in each row, as much above its text as below
    return QCalendarWidget::minimumSizeHint() + QSize(0, ROWS * ROOM);
}

void MarkedCalendar::paintCell(QPainter* painter, const QRect& place, QDate date) const {
    QCalendarWidget::paintCell(painter, place, date);
    const DayMark mark = markOf(date);
    if (mark == DayMark::none) {
        return;
    }
    painter->save();
    painter->setRenderHint(QPainter::Antialiasing);
    const bool isChosen = date == selectedDate();
    const QColor colour = isChosen ? palette().color(QPalette::HighlightedText) : MARK;
    const QRectF circle(place.center().x() - SIZE / 2.0, place.bottom() - SIZE - 0.5, SIZE, SIZE);
    painter->setPen(QPen(colour, 1));
    painter->setBrush(mark == DayMark::full ? QBrush(colour) : QBrush(Qt::NoBrush));
    painter->drawEllipse(circle);
    if (mark == DayMark::half) {
        constexpr int LEFT = 90 * 16; // from the top, against the clock, half round
        painter->setBrush(colour);
        painter->drawPie(circle, LEFT, 180 * 16);
    }
    painter->restore();
}

} // namespace kelvrum
