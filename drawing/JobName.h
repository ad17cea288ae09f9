// SPDX-License-Identifier: GPL-3.0-or-later
// The name of a print job in the queue.
#pragma once

#include "util/DateTime.h"
#include "util/Format.h"

#include <string>
#include <string_view>

namespace kelvrum {

/// A name has at most this many characters.
inline constexpr std::size_t MAX_JOB_NAME = 120;

/// "Kläranlage Nord – Staub PM10 – 18.06.2026": the station, what is printed, and the days of the range, the
/// end of which does not belong to it. Several days read "18.06.2026 bis 20.06.2026". Parts without text are
/// left out. In a long name the station and then the subject are cut, the days are not.
std::string jobName(std::string_view station, std::string_view subject, const TimeRange& range,
                    const LocaleTexts& texts);

} // namespace kelvrum
