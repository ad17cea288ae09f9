// SPDX-License-Identifier: GPL-3.0-or-later
// What a sample station is made from. The same plan always gives the same bytes.
#pragma once

#include "util/DateTime.h"

#include <cstdint>

namespace kelvrum::sample {

/// Minutes since 1899-12-30 00:00: the model counts in whole minutes, so that nothing drifts.
using Minute = std::int64_t;

inline constexpr Minute DAY = MINUTES_PER_DAY;
inline constexpr Minute HOUR = 60;

inline Minute minuteOf(DateTime t) { return minuteNumber(t); }

inline DateTime timeOf(Minute minute) { return static_cast<double>(minute) / MINUTES_PER_DAY; }

enum class StationForm {
    ini,    // QEL.ini, channel files below Data
    narrow, // VARNIX.CFG, day files with 4-byte fields
    wide,   // VARNIX.CFG, day files with 12-byte fields
};

struct StationPlan {
    StationForm form = StationForm::ini;
    DateTime until = 0; // the first moment without a value
    int days = 730;     // whole days before the day of `until`
    std::uint64_t seed = 1;

    [[nodiscard]] Minute end() const { return minuteOf(until); }
    [[nodiscard]] Minute begin() const { return end() / DAY * DAY - days * DAY; }
};

} // namespace kelvrum::sample
