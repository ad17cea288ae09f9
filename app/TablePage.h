// SPDX-License-Identifier: GPL-3.0-or-later
// The margins, fonts and lengths of printed tables.
#pragma once

#include "drawing/Font.h"
#include "drawing/Surface.h"
#include "util/Numbers.h"

#include <string_view>

namespace kelvrum::tablepage {

// Millimetres.
inline constexpr double LEFT_MARGIN = 20;
inline constexpr double RIGHT_MARGIN = 10;
inline constexpr double FIRST_LINE = 10;
inline constexpr double LOWER_MARGIN = 10;

inline const Font TITLE_FONT{"Arial", 12, true, false};
inline const Font TEXT_FONT{"Arial", 10, false, false};

// Lengths on a page, in millimetres of its units.
inline double millimetres(const Surface& page, int dots) { return dots / page.scale(); }
inline int dots(const Surface& page, double length) {
    return static_cast<int>(roundHalfEven(length * page.scale()));
}
inline double widthOn(Surface& page, std::string_view text) {
    return millimetres(page, page.textExtent(text).width);
}
inline double lineHeightOn(Surface& page) { return millimetres(page, page.textExtent("").height); }

} // namespace kelvrum::tablepage
