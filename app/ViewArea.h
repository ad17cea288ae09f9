// SPDX-License-Identifier: GPL-3.0-or-later
// The view area: diagram, scroll bar and data list.
#pragma once

#include "util/Format.h"

#include <QObject>

class QScrollBar;
class QWidget;

namespace kelvrum {

class DataListModel;
class ListView;
class PolarSys;

/// Children of the window's inner area, one above the other: the diagram KS, the scroll bar HScroll and the
/// list lView, which covers the diagram while it is shown.
class ViewArea : public QObject {
    Q_OBJECT

  public:
    ViewArea(const LocaleTexts& texts, QWidget* area);

    [[nodiscard]] PolarSys& diagram() const { return *KS; }
    [[nodiscard]] DataListModel& rows() const { return *rows_; }
    [[nodiscard]] ListView& list() const { return *lView; }

    /// Shows the list, or the diagram beneath it.
    void showList(bool shown);

    /// Places diagram, scroll bar and list in an inner area of a size in pixels, in this order. A step whose
    /// sizes come out negative is skipped, the others run. `draw` is called between diagram and list.
    template<typename Draw>
    void place(int width, int height, Draw draw) {
        placeDiagram(width, height);
        draw();
        placeList(width, height);
    }

  Q_SIGNALS:
    /// The scroll bar has been moved.
    void scrolled();

  private:
    void placeDiagram(int width, int height);
    void placeList(int width, int height);

    PolarSys* KS;
    QScrollBar* HScroll;
    ListView* lView;
    DataListModel* rows_;
};

} // namespace kelvrum
