// SPDX-License-Identifier: GPL-3.0-or-later
// The configuration of the open project.
#pragma once

#include "config/ChannelTable.h"
#include "util/DateTime.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kelvrum {

/// Which form of configuration a project has (config/ConfigForms.h).
enum class ConfigKind : std::int32_t {
    none = 0,   // nothing opened yet
    ini = 1,    // text file
    binary = 2, // record file
};

struct StationConfig {
    ConfigKind Kind = ConfigKind::none;
    std::string BaseFolder; // with its trailing separator; empty when the configuration's path is a bare name
    std::string DataFolder; // as configured, ending in a separator when not empty
    std::string ProjectName;
    std::string Location;
    std::string DeviceNumber;
    std::string Title;    // station line of the caption and the first headline
    std::string Subtitle; // station line of the second headline
    DateTime TimeFrom = 0;
    DateTime TimeTo = 0;
    double WindFactor = 0;
    double DustFactor = 0;
    kelvrum::ChannelTable ChannelTable;

    // Binary form only.
    std::vector<std::int32_t> ActiveChannels; // channel numbers (slot + 1) in the order of the active slots
    bool WideRecords = false;                 // value fields of 12 instead of 4 bytes in the day files

    bool operator==(const StationConfig&) const = default;
};

} // namespace kelvrum
