// SPDX-License-Identifier: GPL-3.0-or-later
#include "config/VarnixFile.h"

#include "config/VarnixFormat.h"
#include "util/LittleEndian.h"
#include "util/Text.h"

#include <array>
#include <string>

namespace kelvrum {

bool ReadVarnix(std::string_view path, StationConfig& station, const FileOpener& open) {
    using namespace varnix;
    std::array<std::byte, RECORD_SIZE> record{};
    const auto file = open(path);
    if (!file || file->size() != RECORD_SIZE || file->read(0, record) != RECORD_SIZE) {
        return false;
    }
    const auto text = [&record](std::size_t at, std::size_t size) {
        return cleanFixedText(std::string_view(reinterpret_cast<const char*>(record.data()) + at, size));
    };
    station.ChannelTable.clear();
    station.ActiveChannels.clear();
    station.WideRecords = loadLittle<std::int16_t>(record, WIDE_SWITCH_AT) != 0;
    for (std::size_t k = 0; k < SLOT_COUNT; ++k) {
        const std::size_t slot = SLOTS_AT + k * SLOT_SIZE;
        if (loadLittle<std::int16_t>(record, slot + SLOT_ACTIVE_AT) == 0) {
            continue;
        }
        const auto channel = static_cast<std::int32_t>(k + 1);
        ChannelInfo& info = station.ChannelTable.grow(channel);
        info.Name = text(slot + SLOT_NAME_AT, SLOT_NAME_SIZE);
        info.Tag = std::string("s").append(std::to_string(k));
        info.Mode = MODE_MEAN; // the form has no averaging mode of its own
        station.ActiveChannels.push_back(channel);
    }
    station.ChannelTable.setCount(static_cast<std::int32_t>(station.ActiveChannels.size()));
    station.Title = text(STATION_NAME_AT, STATION_NAME_SIZE);
    station.Subtitle.clear();
    return true;
}

} // namespace kelvrum
