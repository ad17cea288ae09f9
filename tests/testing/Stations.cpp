// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/testing/Stations.h"

namespace kelvrum::testing {

StationConfig channelStation(const TempFolder& folder) {
    StationConfig station;
    station.Kind = ConfigKind::ini;
    station.DataFolder = folder.base();
    station.ChannelTable.grow(4).Mode = MODE_MEAN;
    station.ChannelTable.grow(5).Mode = MODE_WIND_DIRECTION;
    station.ChannelTable.grow(5).PairedChannel = 4;
    station.ChannelTable.grow(12).Mode = MODE_SUM;
    station.ChannelTable.grow(104).Mode = MODE_MEAN;
    return station;
}

StationConfig dayStation(const TempFolder& folder, bool wide) {
    StationConfig station;
    station.Kind = ConfigKind::binary;
    station.BaseFolder = folder.base();
    station.ActiveChannels = {1, 3};
    station.ChannelTable.grow(1).Mode = MODE_MEAN;
    station.ChannelTable.grow(3).Mode = MODE_MEAN;
    station.ChannelTable.setCount(2);
    station.WideRecords = wide;
    return station;
}

} // namespace kelvrum::testing
