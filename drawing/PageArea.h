// SPDX-License-Identifier: GPL-3.0-or-later
// Where on a sheet a page is.
#pragma once

#include "drawing/Surface.h"

#include <QMarginsF>
#include <QPageLayout>
#include <QPageSize>
#include <optional>

namespace kelvrum {

/// The sheet and the part of it that pages fill, in dots of the printer.
struct PageArea {
    QPageSize sheet;
    QPageLayout::Orientation orientation = QPageLayout::Portrait;
    Dot corner;  // of the page on the sheet
    Extent size; // of the page

    bool operator==(const PageArea&) const = default;
};

/// The margins that a queue needs on its sheets, and those that the user wants.
struct PageMargins {
    QMarginsF smallest;              // millimetres, of a sheet in portrait
    std::optional<QMarginsF> chosen; // millimetres of the page as it is read, whatever its orientation
};

/// The page on a sheet: what the queue can print on, or what lies within the chosen margins, as far as the
/// queue can print there. A landscape page may be turned to either side: along each edge it keeps the greater
/// of the two margins that may come to lie there.
PageArea pageArea(const QPageSize& sheet, QPageLayout::Orientation orientation, const PageMargins& margins,
                  int dotsPerInch);

} // namespace kelvrum
