// SPDX-License-Identifier: GPL-3.0-or-later
// The font of a text that is drawn.
#pragma once

#include <string>

namespace kelvrum {

/// Family, size in points, bold, italic.
struct Font {
    std::string Name = "Arial";
    double Size = 8;
    bool Bold = false;
    bool Italic = false;

    bool operator==(const Font&) const = default;
};

} // namespace kelvrum
