// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/DiagramInput.h"

#include "data/RangeChoice.h"
#include "diagram/PolarSys.h"
#include "diagram/ReadoutOverlay.h"

#include <QKeyEvent>
#include <QMouseEvent>
#include <QWheelEvent>
#include <cmath>
#include <cstdlib>
#include <utility>

namespace kelvrum {

namespace {

constexpr double CLICK = 5;     // pixels: a shorter drag is a click
constexpr int WHEEL_STEP = 120; // units

} // namespace

DiagramInput::DiagramInput(PolarSys& diagram, ReadoutOverlay& overlay, std::function<TimeRange()> range,
                           std::function<std::int32_t()> interval, std::function<void()> finishEdits)
    : QObject(&diagram)
    , diagram_(diagram)
    , overlay_(overlay)
    , range_(std::move(range))
    , interval_(std::move(interval))
    , finishEdits_(std::move(finishEdits)) {
    diagram.setMouseTracking(true);
    diagram.installEventFilter(this);
    connect(&diagram, &PolarSys::drawn, this, &DiagramInput::pictureDrawn);
}

bool DiagramInput::eventFilter(QObject* watched, QEvent* event) {
    if (watched != &diagram_) {
        return false;
    }
    switch (event->type()) {
    case QEvent::MouseButtonPress:
        pressed(*static_cast<QMouseEvent*>(event));
        break;
    case QEvent::MouseMove:
        moved(*static_cast<QMouseEvent*>(event));
        break;
    case QEvent::MouseButtonRelease:
        released(*static_cast<QMouseEvent*>(event));
        break;
    case QEvent::ContextMenu:
        return drag_.has_value(); // a menu would take the release of the button
    case QEvent::Leave:
        overlay_.pointerLeft();
        break;
    case QEvent::Wheel:
        return turned(*static_cast<QWheelEvent*>(event));
    case QEvent::KeyPress:
        return typed(*static_cast<QKeyEvent*>(event));
    default:
        break;
    }
    return false;
}

// --- mouse ---

void DiagramInput::pressed(const QMouseEvent& event) {
    if (event.button() != Qt::LeftButton) {
        return;
    }
    escape(); // a band by keys
    if (overlay_.isInPlot(event.position())) {
        drag_ = Drag{event.position(), *overlay_.timeAt(event.position())};
    }
}

void DiagramInput::moved(const QMouseEvent& event) {
    overlay_.pointAt(event.position());
    if (drag_ && event.buttons().testFlag(Qt::LeftButton)) {
        drag(event.position());
    } else if (drag_) {
        escape(); // another window has taken the release
    }
}

void DiagramInput::drag(const QPointF& place) {
    const auto time = overlay_.timeAt(place);
    drag_->isBand = drag_->isBand || std::fabs(place.x() - drag_->from.x()) >= CLICK;
    if (drag_->isBand && time) {
        overlay_.setBand(bandRange(drag_->time, *time, interval_()));
    }
}

void DiagramInput::released(const QMouseEvent& event) {
    if (event.button() == Qt::LeftButton && drag_) {
        drag(event.position()); // a click alone changes nothing, the readout included
        drag_.reset();
        takeBand();
    }
}

bool DiagramInput::turned(const QWheelEvent& event) {
    if (!event.modifiers().testFlag(Qt::ControlModifier)) {
        turned_ = 0;
        return false;
    }
    turned_ += event.angleDelta().y();
    const int steps = turned_ / WHEEL_STEP;
    turned_ -= steps * WHEEL_STEP;
    if (steps != 0) {
        finishEdits_(); // the wheel leaves the focus in a picker whose entry may be unfinished
        zoom(steps, overlay_.timeAt(event.position()).value_or(middle()));
    }
    return true;
}

void DiagramInput::pictureDrawn() {
    const bool hasPlot = diagram_.lineShown().has_value();
    const TimeRange now = hasPlot ? TimeRange{diagram_.XLow(), diagram_.XHigh()} : TimeRange{};
    if (now.from != shown_.from || now.to != shown_.to) {
        escape();
    }
    shown_ = now;
}

// --- keys ---

bool DiagramInput::typed(const QKeyEvent& event) {
    const Qt::KeyboardModifiers modifiers = event.modifiers() & ~Qt::KeypadModifier;
    const int key = event.key();
    if (modifiers == Qt::NoModifier) {
        return typedPlain(key);
    }
    if (modifiers == Qt::ShiftModifier && (key == Qt::Key_Left || key == Qt::Key_Right)) {
        extendBand(key == Qt::Key_Left ? -1 : +1);
        return true;
    }
    // Where + is typed with Shift, that belongs to it.
    const bool zooms = key == Qt::Key_Plus || key == Qt::Key_Minus;
    if (modifiers == Qt::ControlModifier ||
        (zooms && modifiers == (Qt::ControlModifier | Qt::ShiftModifier))) {
        return typedWithCtrl(key);
    }
    return false;
}

bool DiagramInput::typedPlain(int key) {
    switch (key) {
    case Qt::Key_Escape:
        return escape() || overlay_.dismiss();
    case Qt::Key_Return:
    case Qt::Key_Enter:
        takeBand();
        return true;
    case Qt::Key_Left:
    case Qt::Key_Right:
        escape();
        overlay_.step(key == Qt::Key_Left ? -1 : +1);
        return true;
    case Qt::Key_Home:
        escape();
        overlay_.toFirst();
        return true;
    case Qt::Key_End:
        escape();
        overlay_.toLast();
        return true;
    case Qt::Key_Space:
        overlay_.toggleMark();
        return true;
    default:
        return false;
    }
}

bool DiagramInput::typedWithCtrl(int key) {
    switch (key) {
    case Qt::Key_Left:
    case Qt::Key_Right:
        escape();
        overlay_.stepDay(key == Qt::Key_Left ? -1 : +1);
        return true;
    case Qt::Key_Plus:
    case Qt::Key_Equal: // unshifted on the key of +
    case Qt::Key_Minus:
        zoom(key == Qt::Key_Minus ? -1 : +1, overlay_.readTime().value_or(middle()));
        return true;
    case Qt::Key_Home:
    case Qt::Key_End:
        Q_EMIT jumpWanted(key == Qt::Key_End);
        return true;
    case Qt::Key_C:
        Q_EMIT copyWanted();
        return true;
    default:
        return false;
    }
}

/// The band extends from where the readout was to where it has moved.
void DiagramInput::extendBand(int direction) {
    if (!anchor_) {
        drag_.reset();
        anchor_ = overlay_.readTime();
    }
    overlay_.step(direction);
    const auto end = overlay_.readTime();
    if (anchor_ && end && *anchor_ != *end) {
        overlay_.setBand(bandRange(*anchor_, *end, interval_()));
    } else {
        overlay_.setBand({});
    }
}

/// The band becomes the range.
void DiagramInput::takeBand() {
    const auto band = overlay_.band();
    drag_.reset();
    anchor_.reset();
    overlay_.setBand({});
    if (band) {
        Q_EMIT rangeChosen(*band);
    }
}

/// Ends a drag or a band by keys without effect; false when there was none.
bool DiagramInput::escape() {
    const bool was = overlay_.band() || (drag_ && drag_->isBand);
    drag_.reset();
    anchor_.reset();
    overlay_.setBand({});
    return was;
}

void DiagramInput::zoom(int steps, DateTime around) {
    const TimeRange before = range_();
    TimeRange range = before;
    for (int i = 0; i < std::abs(steps); ++i) {
        range = steps > 0 ? zoomedIn(range, around, interval_()) : zoomedOut(range, around, interval_());
    }
    if (range.from != before.from || range.to != before.to) {
        Q_EMIT rangeChosen(range);
    }
}

DateTime DiagramInput::middle() const {
    const TimeRange range = range_();
    return range.from + (range.to - range.from) / 2;
}

} // namespace kelvrum
