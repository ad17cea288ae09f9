// SPDX-License-Identifier: GPL-3.0-or-later
// How a failed test shows dots, lines and boxes.
#pragma once

#include "drawing/Surface.h"

#include <ostream>

namespace kelvrum {

inline std::ostream& operator<<(std::ostream& out, const Dot& dot) {
    return out << '(' << dot.x << ' ' << dot.y << ')';
}

inline std::ostream& operator<<(std::ostream& out, const Segment& line) {
    return out << line.from << '-' << line.to;
}

inline std::ostream& operator<<(std::ostream& out, const Box& box) {
    return out << '[' << box.left << ' ' << box.top << ' ' << box.right << ' ' << box.bottom << ']';
}

} // namespace kelvrum
