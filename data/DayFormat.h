// SPDX-License-Identifier: GPL-3.0-or-later
// Layout of the day files "20200618.KMH" of stations with a binary configuration: records without a file
// header, numbers little-endian.
#pragma once

#include <cstddef>
#include <string_view>

namespace kelvrum::kmh {

//  offset   size  content
inline constexpr std::size_t YEAR_AT = 0;      //  0  2  year, signed
inline constexpr std::size_t MONTH_AT = 2;     //  2  1  month, 1 to 12
inline constexpr std::size_t DAY_AT = 3;       //  3  1  day of the month
inline constexpr std::size_t MINUTE_AT = 4;    //  4  2  minute of the day, signed, 0 to 1439
inline constexpr std::size_t FIELDS_AT = 6;    //  6     one value field for each active slot, in slot order:
inline constexpr std::size_t NARROW_FIELD = 4; //     a single-precision float, or
inline constexpr std::size_t WIDE_FIELD = 12;  //     three of them: mean, minimum, maximum
inline constexpr std::size_t MINIMUM_AT = 4;
inline constexpr std::size_t MAXIMUM_AT = 8;

/// Length of the date (yyyymmdd) at the start of a day file's name, and its extension in capitals.
inline constexpr std::size_t DATE_LENGTH = 8;
inline constexpr std::string_view EXTENSION = ".KMH";

/// Bytes of a record.
constexpr std::size_t recordSize(std::size_t activeSlots, bool wide) {
    return FIELDS_AT + activeSlots * (wide ? WIDE_FIELD : NARROW_FIELD);
}

} // namespace kelvrum::kmh
