// SPDX-License-Identifier: GPL-3.0-or-later
// Mouse and keys on the diagram of a window under test, by times and values instead of pixels.
#pragma once

#include "diagram/PolarSys.h"
#include "diagram/ReadoutOverlay.h"
#include "tests/app/WindowFixture.h"

#include <QApplication>
#include <QMouseEvent>
#include <QTest>
#include <QWheelEvent>
#include <algorithm>
#include <cmath>

namespace kelvrum::testing {

/// Places are computed from the range and the fixed margins of the diagram, not taken from the drawing.
class DiagramHand {
  public:
    explicit DiagramHand(const WindowFixture& fixture)
        : fixture_(fixture)
        , KS(fixture.the<PolarSys>("KS"))
        , overlay(fixture.the<ReadoutOverlay>("overlay")) {}

    /// The place of a time in the control, half-way up the plot.
    [[nodiscard]] QPointF at(const QString& time) const {
        const ShownRange range = fixture_.shownRange();
        const auto minutes = [&](const QString& text) {
            return static_cast<double>(pickedTime(text).toSecsSinceEpoch()) / 60;
        };
        const double share =
            (minutes(time) - minutes(range.from)) / (minutes(range.to) - minutes(range.from));
        return {40 + share * (KS.width() - 70), 50 + (KS.height() - 90) / 2.0};
    }

    void send(QEvent::Type type, const QPointF& place, Qt::MouseButton button,
              Qt::MouseButtons buttons) const {
        QMouseEvent event(type, place, KS.mapToGlobal(place), button, buttons, Qt::NoModifier);
        QCoreApplication::sendEvent(&KS, &event);
    }
    void moveTo(const QPointF& place, Qt::MouseButtons held = Qt::NoButton) const {
        send(QEvent::MouseMove, place, Qt::NoButton, held);
    }
    void moveTo(const QString& time) const { moveTo(at(time)); }
    void press(const QPointF& place) const {
        send(QEvent::MouseButtonPress, place, Qt::LeftButton, Qt::LeftButton);
    }
    void release(const QPointF& place) const {
        send(QEvent::MouseButtonRelease, place, Qt::LeftButton, Qt::NoButton);
    }
    void drag(const QPointF& from, const QPointF& to) const {
        moveTo(from);
        press(from);
        moveTo((from + to) / 2, Qt::LeftButton);
        moveTo(to, Qt::LeftButton);
        release(to);
    }
    void wheel(const QPointF& place, int units, Qt::KeyboardModifiers modifiers = Qt::ControlModifier) const {
        QWheelEvent event(place, KS.mapToGlobal(place), {}, {0, units}, Qt::NoButton, modifiers,
                          Qt::NoScrollPhase, false);
        QCoreApplication::sendEvent(&KS, &event);
    }
    void key(Qt::Key key, Qt::KeyboardModifiers modifiers = Qt::NoModifier) const {
        KS.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&KS, key, modifiers);
    }

    [[nodiscard]] QString text() const { return overlay.text(); }

    /// The overlay as it is painted, in device pixels, without the picture below it.
    [[nodiscard]] QImage painted() const {
        const double ratio = KS.devicePixelRatioF();
        QImage image((QSizeF(KS.size()) * ratio).toSize(), QImage::Format_ARGB32);
        image.setDevicePixelRatio(ratio);
        image.fill(Qt::transparent);
        overlay.render(&image, {}, {}, QWidget::DrawChildren);
        return image;
    }

  private:
    const WindowFixture& fixture_;

  public:
    PolarSys& KS;
    ReadoutOverlay& overlay;
};

} // namespace kelvrum::testing
