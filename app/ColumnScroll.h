// SPDX-License-Identifier: GPL-3.0-or-later
// The left column in a window that is too low for it.
#pragma once

#include <QObject>
#include <QPoint>
#include <QWidget>
#include <vector>

class QWheelEvent;

namespace kelvrum {

/// Moves the parts of a column up and down together: the wheel over the column scrolls it, and a control that
/// gets the focus by key comes into view. Only in an area too low for the column; in any other the parts keep
/// their design positions, and the wheel is left alone. The lists among the parts scroll themselves first.
class ColumnScroll : public QObject {
    Q_OBJECT

  public:
    /// The parts are children of `area`, at their design positions, and complete: what is added to one of
    /// them later is ignored. They must live as long as `area`, which becomes this object's parent.
    ColumnScroll(QWidget& area, const std::vector<QWidget*>& parts);

    /// Sets the height available to the column, from the area's upper edge.
    void setHeight(int height);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    struct Part {
        QWidget* widget;
        QPoint design;
    };

    void scrollTo(int offset);
    void turn(const QWheelEvent& wheel);
    void show(const QWidget& control);
    [[nodiscard]] int lowest() const;

    QWidget& area_;
    std::vector<Part> parts_;
    int columnWidth_ = 0;
    int columnHeight_ = 0;
    int height_ = 0;
    int offset_ = 0; // pixels by which the parts are moved up from their design positions
};

} // namespace kelvrum
