// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ColumnScroll.h"

#include <QAbstractItemView>
#include <QApplication>
#include <QFocusEvent>
#include <QWheelEvent>
#include <algorithm>

namespace kelvrum {

namespace {

constexpr int LINE = 20; // pixels; the wheel turns by the user's number of lines
constexpr int NOTCH = 120;
constexpr int ROOM_ABOVE = 19; // shows the caption of a frame with its first control
constexpr int ROOM_BELOW = 5;

/// A click has already hit its control, which must not move away from under the pointer.
bool bringsIntoView(Qt::FocusReason reason) {
    return reason != Qt::MouseFocusReason && reason != Qt::ActiveWindowFocusReason &&
           reason != Qt::PopupFocusReason;
}

} // namespace

ColumnScroll::ColumnScroll(QWidget& area, const std::vector<QWidget*>& parts)
    : QObject(&area)
    , area_(area) {
    area.installEventFilter(this);
    for (QWidget* part : parts) {
        parts_.push_back({part, part->pos()});
        const QRect place = part->geometry();
        columnWidth_ = std::max(columnWidth_, place.right() + 1 + place.left()); // with an equal margin
        columnHeight_ = std::max(columnHeight_, place.bottom() + 1 + ROOM_BELOW);
        part->installEventFilter(this);
        if (qobject_cast<QAbstractItemView*>(part) == nullptr) {
            for (QWidget* control : part->findChildren<QWidget*>()) {
                control->installEventFilter(this);
            }
        }
    }
}

void ColumnScroll::setHeight(int height) {
    height_ = height;
    scrollTo(offset_);
}

/// The offset at which the column's end is in view; 0 when the whole column is.
int ColumnScroll::lowest() const { return std::max(columnHeight_ - height_, 0); }

void ColumnScroll::scrollTo(int offset) {
    const int wanted = std::clamp(offset, 0, lowest());
    if (wanted == offset_) {
        return;
    }
    offset_ = wanted;
    for (const Part& part : parts_) {
        part.widget->move(part.design.x(), part.design.y() - offset_);
    }
}

void ColumnScroll::turn(const QWheelEvent& wheel) {
    const int step = wheel.pixelDelta().isNull()
                         ? wheel.angleDelta().y() * QApplication::wheelScrollLines() * LINE / NOTCH
                         : wheel.pixelDelta().y();
    scrollTo(offset_ - step);
}

void ColumnScroll::show(const QWidget& control) {
    const int top = control.mapTo(&area_, QPoint()).y() + offset_; // in the design
    const int bottom = top + control.height();
    const int minOffset = bottom + ROOM_BELOW - height_;
    scrollTo(std::min(std::max(offset_, minOffset), std::max(top - ROOM_ABOVE, 0)));
}

bool ColumnScroll::eventFilter(QObject* watched, QEvent* event) {
    const auto* widget = static_cast<QWidget*>(watched);
    if (lowest() == 0 || widget->window() != area_.window()) {
        return QObject::eventFilter(watched, event);
    }
    if (event->type() == QEvent::Wheel) {
        const auto& wheel = static_cast<const QWheelEvent&>(*event);
        if (widget != &area_ || wheel.position().x() < columnWidth_) {
            turn(wheel);
            event->accept();
            return true;
        }
    }
    if (event->type() == QEvent::FocusIn && widget != &area_ &&
        bringsIntoView(static_cast<QFocusEvent*>(event)->reason())) {
        show(*widget);
    }
    return QObject::eventFilter(watched, event);
}

} // namespace kelvrum
