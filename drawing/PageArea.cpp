// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/PageArea.h"

#include <QRect>
#include <algorithm>
#include <cmath>

namespace kelvrum {

namespace {

QMarginsF turned(const QMarginsF& portrait, QPageLayout::Orientation orientation) {
    if (orientation == QPageLayout::Portrait) {
        return portrait;
    }
    const double along = std::max(portrait.top(), portrait.bottom());
    const double across = std::max(portrait.left(), portrait.right());
    return {along, across, along, across};
}

QMarginsF greater(const QMarginsF& a, const QMarginsF& b) {
    return {std::max(a.left(), b.left()), std::max(a.top(), b.top()), std::max(a.right(), b.right()),
            std::max(a.bottom(), b.bottom())};
}

} // namespace

PageArea pageArea(const QPageSize& sheet, QPageLayout::Orientation orientation, const PageMargins& margins,
                  int dotsPerInch) {
    constexpr double MM_PER_INCH = 25.4;
    const QMarginsF smallest = turned(margins.smallest, orientation);
    const QMarginsF kept = margins.chosen ? greater(smallest, *margins.chosen) : smallest;
    const auto dots = [&](double millimetres) {
        return static_cast<int>(std::ceil(millimetres * dotsPerInch / MM_PER_INCH));
    };
    const QRect whole = QPageLayout(sheet, orientation, QMarginsF()).fullRectPixels(dotsPerInch);
    PageArea area;
    area.sheet = sheet;
    area.orientation = orientation;
    area.corner = {dots(kept.left()), dots(kept.top())};
    area.size = {std::max(1, whole.width() - area.corner.x - dots(kept.right())),
                 std::max(1, whole.height() - area.corner.y - dots(kept.bottom()))};
    return area;
}

} // namespace kelvrum
