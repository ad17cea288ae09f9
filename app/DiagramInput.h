// SPDX-License-Identifier: GPL-3.0-or-later
// Mouse, wheel and keys of the diagram: reading values and choosing ranges.
#pragma once

#include "util/DateTime.h"

#include <QObject>
#include <QPointF>
#include <cstdint>
#include <functional>
#include <optional>

class QKeyEvent;
class QMouseEvent;
class QWheelEvent;

namespace kelvrum {

class PolarSys;
class ReadoutOverlay;

/// Works on the diagram's events. A click alone only ends a band by keys; a drag of five pixels or more in
/// the plot, the wheel with Ctrl and keys choose ranges. A picture of other times ends a drag and a band by
/// keys, and no menu opens during a drag.
class DiagramInput : public QObject {
    Q_OBJECT

  public:
    /// `range` and `interval` (minutes) return the window's current choice; `finishEdits` applies an
    /// unfinished entry there.
    DiagramInput(PolarSys& diagram, ReadoutOverlay& overlay, std::function<TimeRange()> range,
                 std::function<std::int32_t()> interval, std::function<void()> finishEdits);

  Q_SIGNALS:
    void rangeChosen(kelvrum::TimeRange range);
    /// The first (false) or last (true) stored value is to come into view.
    void jumpWanted(bool last);
    void copyWanted();

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void pressed(const QMouseEvent& event);
    void moved(const QMouseEvent& event);
    void drag(const QPointF& place);
    void pictureDrawn();
    void released(const QMouseEvent& event);
    bool turned(const QWheelEvent& event);
    bool typed(const QKeyEvent& event);
    bool typedPlain(int key);
    bool typedWithCtrl(int key);
    void extendBand(int direction);
    void takeBand();
    bool escape();
    void zoom(int steps, DateTime around);
    [[nodiscard]] DateTime middle() const;

    /// A drag from its press to its release.
    struct Drag {
        QPointF from;
        DateTime time = 0;
        bool isBand = false; // it has left the place of a click
    };

    PolarSys& diagram_;
    ReadoutOverlay& overlay_;
    std::function<TimeRange()> range_;
    std::function<std::int32_t()> interval_;
    std::function<void()> finishEdits_;
    std::optional<Drag> drag_;
    std::optional<DateTime> anchor_; // of the band that keys extend
    TimeRange shown_;                // by the picture; empty without a plot
    int turned_ = 0;                 // of the wheel, less than a step
};

} // namespace kelvrum
