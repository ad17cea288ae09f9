// SPDX-License-Identifier: GPL-3.0-or-later
// The margins and fonts of printed tables.
#pragma once

#include "drawing/Font.h"

namespace kelvrum::tablepage {

// Millimetres.
inline constexpr double LEFT_MARGIN = 20;
inline constexpr double RIGHT_MARGIN = 10;
inline constexpr double FIRST_LINE = 10;
inline constexpr double LOWER_MARGIN = 10;

inline const Font TITLE_FONT{"Arial", 12, true, false};
inline const Font TEXT_FONT{"Arial", 10, false, false};

} // namespace kelvrum::tablepage
