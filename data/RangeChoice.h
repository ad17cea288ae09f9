// SPDX-License-Identifier: GPL-3.0-or-later
// Ranges chosen in one step: a band of the plot, a zoom around a time, a preset, the place of a value.
// All times are whole minutes afterwards, as the pickers hold them.
#pragma once

#include "util/DateTime.h"

#include <cstdint>

namespace kelvrum {

/// The longest range that zooming out gives: a leap year.
inline constexpr int LONGEST_ZOOM_DAYS = 366;

/// The range between two times, in either order: the start rounded down and the end rounded up on the grid
/// of an interval (minutes) that counts from each midnight; the grid ends with the day, so that a rounded
/// 24:00 is 00:00 of the next day. At least one interval long.
TimeRange bandRange(DateTime one, DateTime other, std::int32_t interval);

/// The range halved around a time, which keeps its place in the view as far as the grid allows: whole
/// intervals, at least one, starting on the grid that counts from midnight.
TimeRange zoomedIn(const TimeRange& range, DateTime around, std::int32_t interval);

/// The range doubled around a time, in the same way, at most LONGEST_ZOOM_DAYS long; a longer one comes back
/// unchanged.
TimeRange zoomedOut(const TimeRange& range, DateTime around, std::int32_t interval);

enum class RangePreset { day, week, month, year };

/// The day, the week (Monday to Monday), the month or the year that holds a time, from 00:00 to 00:00 after
/// it.
TimeRange presetRange(RangePreset preset, DateTime holding);

/// A range of the length of `range` that ends with the interval of a value, and one that begins with it. The
/// first never begins before `earliest`: it begins there then.
TimeRange rangeUpTo(DateTime value, const TimeRange& range, std::int32_t interval, DateTime earliest);
TimeRange rangeFrom(DateTime value, const TimeRange& range, std::int32_t interval);

/// Midnight of 1 January of the year of t.
DateTime yearStart(DateTime t);

} // namespace kelvrum
