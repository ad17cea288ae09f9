// SPDX-License-Identifier: GPL-3.0-or-later
// How much of each day of a month a channel has stored.
#pragma once

#include "config/StationConfig.h"
#include "data/Reading.h"
#include "util/FileSource.h"

#include <array>
#include <cstdint>
#include <optional>
#include <string>

namespace kelvrum {

/// What a day is marked with.
enum class Coverage {
    unmarked, // nothing is known about the day
    none,     // no minute present
    partial,
    full, // at least 99 % of the minutes present
};

/// The days of one month, the first at index 0.
struct MonthCoverage {
    int year = 0;
    int month = 0;
    bool summed = false;           // a dry minute is stored as 0, so few minutes say nothing about the day
    std::array<int, 31> minutes{}; // present, of 1440

    bool operator==(const MonthCoverage&) const = default;
};

/// The mark of a day, from 1. Of a summed channel only days with a value are marked, and none is empty.
Coverage coverageOf(const MonthCoverage& month, int day);

/// The figure as text, for example "1426 von 1440 Minuten vorhanden"; empty for an unmarked day.
std::string coverageText(const MonthCoverage& month, int day);

/// Counts the present minutes of a month as averaging counts them: 0 and markers are missing, and a minute of
/// a wind direction needs its speed. In the binary form those of the day files, each minute once. Nothing
/// when a step gave the reading up; what cannot be read is missing.
std::optional<MonthCoverage> readCoverage(const StationConfig& station, std::int32_t channel, int year,
                                          int month, const FileOpener& open, const ReadingStep& step);

} // namespace kelvrum
