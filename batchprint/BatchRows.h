// SPDX-License-Identifier: GPL-3.0-or-later
// The rows of the batch print: the channel of each row and the row's settings.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

namespace kelvrum {

inline constexpr std::size_t SLOT_COUNT = 16;

/// The channel of each row slot; 0 = slot without a row. The order is not that of the channel numbers: kept
/// so on purpose, it is the order of the printed pages.
inline constexpr std::array<std::int32_t, SLOT_COUNT> SLOT_CHANNELS = {1,  6,  2, 12, 13, 8, 9, 10,
                                                                       14, 15, 0, 0,  0,  0, 0, 0};

/// Slots with a row: they precede those without.
inline constexpr std::size_t ROW_COUNT =
    SLOT_COUNT - static_cast<std::size_t>(std::ranges::count(SLOT_CHANNELS, 0));

static_assert(std::ranges::all_of(SLOT_CHANNELS.begin(), SLOT_CHANNELS.begin() + ROW_COUNT,
                                  [](std::int32_t channel) { return channel != 0; }));

/// The values of the controls of one row.
struct RowSettings {
    bool selected = false;  // chKanal: the row is printed
    bool automatic = false; // chAuto: the scale follows the data
    double minimum = 0;     // tMin, tMax: the manual scale
    double maximum = 0;
    std::int32_t interval = 0; // selInterval: position among the INTERVAL_CHOICES
    bool limitsShown = false;  // chShowLines
    double lowerLimit = 0;     // aMin, aMax
    double upperLimit = 0;
    bool meanShown = false; // chShowMittel

    bool operator==(const RowSettings&) const = default;
};

} // namespace kelvrum
