// SPDX-License-Identifier: GPL-3.0-or-later
// Texts that have a limited room.
#pragma once

#include "drawing/Surface.h"

#include <string>
#include <string_view>
#include <vector>

namespace kelvrum {

/// The text, or its beginning and "…" where it is wider than `room` dots in the surface's font.
std::string cutText(Surface& surface, std::string_view text, int room);

/// Sets the font, smaller by whole points where the text is wider than `room` dots, but not below
/// `minPoints`, and returns the text; where it is still too wide, "…" takes the place of its middle.
std::string fitText(Surface& surface, Font font, std::string_view text, int room, double minPoints);

/// The text in lines of at most `room` dots in the surface's font, broken at blanks. The last of `maxLines`
/// is cut where there would be more; so is a single word that is too wide. At least one line.
std::vector<std::string> wrapText(Surface& surface, std::string_view text, int room, std::size_t maxLines);

} // namespace kelvrum
