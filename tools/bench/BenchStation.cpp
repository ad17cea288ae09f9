// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bench/BenchStation.h"

#include "data/ChannelFiles.h"
#include "data/ChannelFormat.h"
#include "data/DayFiles.h"
#include "data/DayFormat.h"
#include "tools/bench/Year.h"
#include "util/LittleEndian.h"

#include <fstream>

namespace kelvrum::bench {

namespace {

constexpr int CHANNELS_OF_A_DAY_FILE = 34;
constexpr int DAYS = 365;

void save(const std::filesystem::path& path, const void* bytes, std::size_t size, std::size_t header = 0) {
    std::ofstream out(path, std::ios::binary);
    out << std::string(header, '\0');
    out.write(static_cast<const char*>(bytes), static_cast<std::streamsize>(size));
}

} // namespace

BenchFolder::BenchFolder(const std::string& name)
    : path_(std::filesystem::temp_directory_path() / name) {
    std::filesystem::create_directories(path_);
}

BenchFolder::~BenchFolder() {
    std::error_code ignored;
    std::filesystem::remove_all(path_, ignored);
}

BenchStation::BenchStation()
    : folder_("kelvrum-bench") {
    config.Kind = ConfigKind::ini;
    config.DataFolder = folder() + "/";
    config.Title = "Messstation";
    write(SPEED, MODE_MEAN, inSteps(yearOfMinutes(5, 4), 10));
    write(DIRECTION, MODE_WIND_DIRECTION, inSteps(yearOfMinutes(200, 150), 1));
    write(DIRECTION_IN_TENTHS, MODE_WIND_DIRECTION, inSteps(yearOfMinutes(200, 150), 10));
    write(ANY_SPEED, MODE_MEAN, yearOfMinutes(5, 4));
    write(ANY_DIRECTION, MODE_WIND_DIRECTION, yearOfMinutes(200, 150));
    write(DUST, MODE_MEAN, yearOfMinutes(40, 30));
    write(RAIN, MODE_SUM, yearOfMinutes(1, 0.9));
    write(TEMPERATURE, MODE_MEAN, inSteps(yearOfMinutes(10, 15), 10));
    write(CORRECTED_DUST, MODE_MEAN, yearOfMinutes(40, 30));
    config.ChannelTable.grow(DIRECTION).PairedChannel = SPEED;
    config.ChannelTable.grow(DIRECTION_IN_TENTHS).PairedChannel = SPEED;
    config.ChannelTable.grow(ANY_DIRECTION).PairedChannel = ANY_SPEED;
    std::ofstream(folder_.path() / "QEL.ini") << "PROJEKTNAME=Messstation\nDATAFOLDER=" << config.DataFolder
                                              << "\nZEITVON=01.01.2019\nZEITBIS=01.01.2020\n"
                                                 "CHAN04|Windgeschwindigkeit|m/s|0|40||0|1|2|1|0|0|WG\n"
                                                 "CHAN05|Windrichtung|Grad|0|360||0|1|2|36|4|0|WR\n"
                                                 "CHAN06|Windrichtung 2|Grad|0|360||0|1|2|36|4|0|WZ\n"
                                                 "CHAN08|Windgeschwindigkeit 3|m/s|0|40||0|1|2|1|0|0|WH\n"
                                                 "CHAN09|Windrichtung 3|Grad|0|360||0|1|2|36|8|0|WB\n"
                                                 "CHAN07|Staub|µg/m³|0|500||0|1|2|1|0|0|ST\n"
                                                 "CHAN12|Niederschlag|mm|0|10||0|1|2|0|0|0|NS\n"
                                                 "CHAN13|Lufttemperatur|°C|-50|60||0|1|2|1|0|0|LT\n";
}

std::string BenchStation::file(int channel) const {
    return config.DataFolder + channelFileName(channel, "", 2019);
}

void BenchStation::write(int channel, std::int32_t mode, std::vector<double> values) {
    ChannelInfo& info = config.ChannelTable.grow(channel);
    info.Mode = mode;
    info.Name = "Kanal " + std::to_string(channel);
    fromLittle(values);
    save(file(channel), values.data(), values.size() * chn::VALUE_SIZE, chn::HEADER_SIZE);
}

const BenchStation& station() {
    static const BenchStation made;
    return made;
}

BenchDays::BenchDays(bool wide)
    : folder_(wide ? "kelvrum-bench-wide" : "kelvrum-bench-narrow") {
    config.Kind = ConfigKind::binary;
    config.WideRecords = wide;
    config.BaseFolder = folder_.path().string() + "/";
    config.DataFolder = config.BaseFolder;
    for (int channel = 1; channel <= CHANNELS_OF_A_DAY_FILE; ++channel) {
        config.ChannelTable.grow(channel).Mode = MODE_MEAN;
        config.ActiveChannels.push_back(channel);
    }
    const auto values = yearOfMinutes(50, 40);
    const std::size_t record = kmh::recordSize(CHANNELS_OF_A_DAY_FILE, wide);
    for (int day = 0; day < DAYS; ++day) {
        const DateTime date = benchYear().from + day;
        const CalendarTime parts = calendarTime(date);
        std::vector<std::byte> bytes(MINUTES_PER_DAY * record);
        for (int minute = 0; minute < MINUTES_PER_DAY; ++minute) {
            const std::size_t at = static_cast<std::size_t>(minute) * record;
            storeLittle(bytes, at + kmh::YEAR_AT, static_cast<std::int16_t>(parts.year));
            storeLittle(bytes, at + kmh::MONTH_AT, static_cast<std::uint8_t>(parts.month));
            storeLittle(bytes, at + kmh::DAY_AT, static_cast<std::uint8_t>(parts.day));
            storeLittle(bytes, at + kmh::MINUTE_AT, static_cast<std::int16_t>(minute));
            const auto number =
                static_cast<std::size_t>(day) * MINUTES_PER_DAY + static_cast<std::size_t>(minute);
            const auto value = static_cast<float>(values[number]);
            for (std::size_t k = kmh::FIELDS_AT; k < record; k += kmh::NARROW_FIELD) {
                storeLittle(bytes, at + k, value);
            }
        }
        save(folder_.path() / dayFileName(date), bytes.data(), bytes.size());
    }
}

} // namespace kelvrum::bench
