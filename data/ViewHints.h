// SPDX-License-Identifier: GPL-3.0-or-later
// Hints for a user who sees less than expected.
#pragma once

#include "util/DateTime.h"
#include "util/Format.h"

#include <optional>
#include <string>

namespace kelvrum {

/// The part of a range that is read from the file of the start's year; nothing when it is all of it. An end
/// at 00:00 of the next 1 January loses nothing, and an end before the start counts as it is.
std::optional<TimeRange> cutAtNewYear(const TimeRange& range);

/// What is known about a view. The lookups are made only while it has no values.
struct ViewFacts {
    TimeRange range;
    bool dayFiles = false; // reading them does not stop at the end of the year
    bool hasFile = true;
    bool hasValues = true;
    std::optional<DateTime> lastStored; // the channel's last value anywhere
    bool allOutside = false;            // no value lies on the value axis
};

/// The hint that applies first, one line; empty when none does.
std::string viewHint(const ViewFacts& facts, const LocaleTexts& texts);

} // namespace kelvrum
