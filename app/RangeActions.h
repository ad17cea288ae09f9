// SPDX-License-Identifier: GPL-3.0-or-later
// The actions that choose a range by name: presets, back and forward.
#pragma once

#include "data/RangeHistory.h"
#include "util/DateTime.h"

#include <QObject>
#include <functional>
#include <vector>

class QAction;
class QMenu;
class QWidget;

namespace kelvrum {

/// Their keys, and the back and forward buttons of the mouse, work in the whole window.
class RangeActions : public QObject {
    Q_OBJECT

  public:
    /// `range` is what is chosen in the window; `finishEdits` applies an unfinished entry there.
    RangeActions(QWidget& window, std::function<TimeRange()> range, std::function<void()> finishEdits);

    /// Appends "Zeitraum", "Zurück" and "Vor" to a menu.
    void appendTo(QMenu& menu);

    /// A load has shown a range.
    void shown(const TimeRange& range);
    /// Another project: nowhere to go back to.
    void clear();

  Q_SIGNALS:
    void rangeChosen(kelvrum::TimeRange range);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void go(bool forward);
    void enable();

    QWidget& window_;
    std::function<TimeRange()> range_;
    std::function<void()> finishEdits_;
    RangeHistory history_;
    std::vector<QAction*> presets_;
    QAction* menZurueck;
    QAction* menVor;
};

} // namespace kelvrum
