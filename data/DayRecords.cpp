// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DayRecords.h"

#include <algorithm>

namespace kelvrum {

namespace {
constexpr std::size_t PIECE_SIZE = 256UL * 1024; // bytes fetched with one read, about
} // namespace

void DayDecoder::enterDay(std::span<const std::byte> record) {
    const int year = loadLittle<std::int16_t>(record, kmh::YEAR_AT);
    const int month = loadLittle<std::uint8_t>(record, kmh::MONTH_AT);
    const int day = loadLittle<std::uint8_t>(record, kmh::DAY_AT);
    isDay_ = isDate(year, month, day);
    if (isDay_) {
        date_ = dateSerial(year, month, day);
        dayMinute_ = static_cast<std::int64_t>(date_) * MINUTES_PER_DAY;
    }
}

DayRecordReader::DayRecordReader(std::size_t recordSize)
    : recordSize_(recordSize)
    , piece_(std::max<std::size_t>(PIECE_SIZE / recordSize, 1) * recordSize) {}

} // namespace kelvrum
