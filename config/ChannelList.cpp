// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/ChannelList.h"

#include "config/ConfigForms.h"

namespace kelvrum {

std::vector<ListedChannel> listedChannels(const StationConfig& station) {
    std::vector<ListedChannel> rows;
    if (hasDayFiles(station)) {
        for (const std::int32_t channel : station.ActiveChannels) {
            rows.push_back({station.ChannelTable.at(channel).Name, channel});
        }
        return rows;
    }
    for (const auto& [channel, info] : station.ChannelTable.entries()) {
        if (!info.Tag.empty() && !info.Name.empty()) {
            rows.push_back({info.Name, channel});
        }
    }
    return rows;
}

std::vector<ListColumn> listColumns(const StationConfig& station) {
    if (!hasDayFiles(station)) {
        return {{"Zeit", "st"}, {"Wert", "s0"}};
    }
    std::vector<ListColumn> columns = {{"Uhrzeit", "st"}};
    for (const std::int32_t channel : station.ActiveChannels) {
        const ChannelInfo& info = station.ChannelTable.at(channel);
        columns.push_back({info.Name, info.Tag});
    }
    return columns;
}

std::string tableHeader(const StationConfig& station, std::int32_t selected) {
    std::string header = "Uhrzeit";
    const auto add = [&](std::int32_t channel) {
        const ChannelInfo& info = station.ChannelTable.at(channel);
        header.append("|").append(info.Name).append(" [").append(info.Unit).append("]");
    };
    if (station.Kind == ConfigKind::none) {
        return header;
    }
    if (hasDayFiles(station)) {
        for (const ListedChannel& listed : listedChannels(station)) {
            add(listed.channel);
        }
    } else {
        add(selected);
    }
    return header;
}

} // namespace kelvrum
