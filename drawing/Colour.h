// SPDX-License-Identifier: GPL-3.0-or-later
// Colours as 24-bit numbers in blue-green-red order: red in the lowest byte.
#pragma once

#include <cstdint>

namespace kelvrum {

using Colour = std::uint32_t;

inline constexpr Colour BLACK = 0;
inline constexpr Colour RED = 0x0000FF;
inline constexpr Colour GREEN = 0x008000;
inline constexpr Colour BLUE = 0xFF0000;
inline constexpr Colour WHITE = 0xFFFFFF;

} // namespace kelvrum
