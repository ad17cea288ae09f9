// SPDX-License-Identifier: GPL-3.0-or-later
// The text form of the sample station's configuration.
#pragma once

#include "tools/makestation/StationPlan.h"

#include <string>

namespace kelvrum::sample {

inline constexpr const char* PROJECT_NAME = "Kläranlage Nord";

/// The first line of the file; it marks a station that may be replaced.
inline constexpr const char* SAMPLE_MARK = "# Beispielstation";

/// The content of QEL.ini, UTF-8.
std::string iniText(const StationPlan& plan);

} // namespace kelvrum::sample
