// SPDX-License-Identifier: GPL-3.0-or-later
// Any bytes as QEL.ini.
#include "config/ChannelList.h"
#include "config/IniFile.h"
#include "config/ReadConf.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/testing/FakeFiles.h"
#include "util/Paths.h"

#include <cmath>
#include <string>

namespace {

using namespace kelvrum;
using fuzzing::isUtf8;
using fuzzing::require;

StationConfig stationOf(const std::string& bytes) {
    StationConfig station;
    require(ReadIni("QEL.ini", station, testing::openerOf(bytes)) == INI_READ, "a file that opens is read");
    return station;
}

void checkText(const std::string& text) {
    require(isUtf8(text), "every text is UTF-8");
    require(text.find_first_of("|\n") == std::string::npos, "no text holds a separator");
    require(trimBlanks(text) == text, "texts are trimmed");
}

void checkChannel(const ChannelInfo& info) {
    for (const std::string* text : {&info.Name, &info.Unit, &info.Comment, &info.Tag}) {
        checkText(*text);
    }
    require(isUtf8(info.DirIn) && isUtf8(info.DirOut), "the names of directions are UTF-8");
    for (const double v :
         {info.LowerLimit, info.UpperLimit, info.Offset, info.Factor, info.Limit1, info.Limit2}) {
        require(std::isfinite(v), "every number is finite");
    }
}

void checkStation(const StationConfig& station) {
    for (const auto& [number, info] : station.ChannelTable.entries()) {
        require(number >= 1 && number <= station.ChannelTable.count(),
                "channels count from 1 to the highest");
        checkChannel(info);
    }
    for (const double v : {station.TimeFrom, station.TimeTo}) {
        require(v >= FIRST_DATE && v < LAST_DATE + 1, "times are of the calendar");
    }
    require(std::isfinite(station.WindFactor) && std::isfinite(station.DustFactor), "factors are finite");
    require(station.DataFolder.empty() || endsInSeparator(station.DataFolder),
            "the data folder ends in a separator");
    std::int32_t last = 0;
    for (const ListedChannel& listed : listedChannels(station)) {
        require(!listed.name.empty() && listed.channel > last,
                "named channels are listed by ascending number");
        require(isUtf8(tableHeader(station, listed.channel)), "the header of the printed list is UTF-8");
        last = listed.channel;
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string bytes(reinterpret_cast<const char*>(data), size);
    const StationConfig station = stationOf(bytes);
    checkStation(station);
    require(stationOf(bytes + "\n") == station, "the last line needs no line end");
    if (isUtf8(bytes) && !bytes.starts_with("\xEF\xBB\xBF")) {
        require(stationOf("\xEF\xBB\xBF" + bytes) == station, "a byte-order mark changes nothing");
    }
    const auto opened = readConf("P\\qel.INI", testing::openerOf(bytes));
    require(opened && opened->ChannelTable == station.ChannelTable,
            "the project has the channels of its file");
    return 0;
}
