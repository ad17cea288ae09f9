// SPDX-License-Identifier: GPL-3.0-or-later
// The averaging intervals that a user can choose.
#pragma once

#include "util/DateTime.h"

#include <array>
#include <cstdint>

namespace kelvrum {

struct IntervalChoice {
    const char* caption;
    std::int32_t minutes; // item data of its row
};

/// In list order.
inline constexpr std::array<IntervalChoice, 6> INTERVAL_CHOICES = {{
    {"1 Minute", 1},
    {"5 Minuten", 5},
    {"10 Minuten", 10},
    {"15 Minuten", 15},
    {"1 Stunde", 60},
    {"1 Tag", MINUTES_PER_DAY},
}};

} // namespace kelvrum
