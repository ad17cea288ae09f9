// SPDX-License-Identifier: GPL-3.0-or-later
// What the main window shows of a station's channels: the rows of the channel list and the columns of the
// data list.
#pragma once

#include "config/StationConfig.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kelvrum {

/// One row of the channel selection list.
struct ListedChannel {
    std::string name;
    std::int32_t channel = 0; // item data

    bool operator==(const ListedChannel&) const = default;
};

/// The channels with a Tag and a Name, by ascending number; with day files the active slots in their order,
/// nameless ones too.
std::vector<ListedChannel> listedChannels(const StationConfig& station);

/// One column of the data list.
struct ListColumn {
    std::string header;
    std::string key; // "st" or "s" and the slot; shown nowhere

    bool operator==(const ListColumn&) const = default;
};

/// "Zeit" and "Wert"; with day files "Uhrzeit" (key "st") and a column for each active slot (key "s" and the
/// slot number).
std::vector<ListColumn> listColumns(const StationConfig& station);

/// The header line of the printed list, cells separated by "|": "Uhrzeit", then the selected channel, with
/// day files each listed one, as "Name [Unit]". Without a project "Uhrzeit" alone.
std::string tableHeader(const StationConfig& station, std::int32_t selected);

} // namespace kelvrum
