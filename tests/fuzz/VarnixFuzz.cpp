// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as VARNIX.CFG: as they come, and brought to the length of the record.
#include "config/ChannelList.h"
#include "config/VarnixFile.h"
#include "config/VarnixFormat.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/testing/FakeFiles.h"

#include <string>

namespace {

using namespace kelvrum;
using namespace kelvrum::varnix;
using fuzzing::isUtf8;
using fuzzing::require;

void checkText(const std::string& text) {
    require(isUtf8(text), "every text is UTF-8");
    require(text.find('\0') == std::string::npos && trimBlanks(text) == text, "texts are cleaned");
}

void checkStation(const StationConfig& station) {
    const auto& active = station.ActiveChannels;
    require(station.ChannelTable.count() == static_cast<std::int32_t>(active.size()),
            "active slots are counted");
    checkText(station.Title);
    std::int32_t last = 0;
    for (const std::int32_t channel : active) {
        require(channel > last && channel <= static_cast<std::int32_t>(SLOT_COUNT),
                "slots come in their order");
        checkText(station.ChannelTable.at(channel).Name);
        last = channel;
    }
    require(listedChannels(station).size() == active.size(), "every active slot is listed");
    require(listColumns(station).size() == active.size() + 1, "every active slot has its column");
}

/// Other bytes in all places that no reader looks at.
std::string withOtherRest(std::string record) {
    record.replace(REST_AT, RECORD_SIZE - REST_AT, RECORD_SIZE - REST_AT, '\xFF');
    constexpr std::size_t AFTER_NAME = SLOT_NAME_AT + SLOT_NAME_SIZE;
    for (std::size_t slot = SLOTS_AT; slot < REST_AT; slot += SLOT_SIZE) {
        record.replace(slot + AFTER_NAME, SLOT_SIZE - AFTER_NAME, SLOT_SIZE - AFTER_NAME, '\xFF');
    }
    return record;
}

StationConfig stationOf(const std::string& record) {
    StationConfig station;
    station.Kind = ConfigKind::binary;
    require(ReadVarnix("VARNIX.CFG", station, testing::openerOf(record)),
            "a record of the right length is read");
    return station;
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    std::string bytes(reinterpret_cast<const char*>(data), size);
    StationConfig untouched;
    if (size != RECORD_SIZE) {
        require(!ReadVarnix("VARNIX.CFG", untouched, testing::openerOf(bytes)), "no other length is read");
        require(untouched == StationConfig(), "what is not read changes nothing");
    }
    bytes.resize(RECORD_SIZE);
    const StationConfig station = stationOf(bytes);
    checkStation(station);
    require(stationOf(withOtherRest(bytes)) == station, "unused bytes mean nothing");
    return 0;
}
