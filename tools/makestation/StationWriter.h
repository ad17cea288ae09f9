// SPDX-License-Identifier: GPL-3.0-or-later
// Writes a whole sample station to a folder.
#pragma once

#include "tools/makestation/StationPlan.h"

#include <filesystem>

namespace kelvrum::sample {

/// Writes the station's data files and then its configuration, so that a station with a configuration is
/// complete. The folder is created if missing; files of the same names are replaced, others stay. The ini
/// form gets an empty "faktoren.cfg" too. Throws WriteError.
void writeStation(const std::filesystem::path& folder, const StationPlan& plan);

} // namespace kelvrum::sample
