// SPDX-License-Identifier: GPL-3.0-or-later
// Layout of the channel data files "Kanal04_2020.chn": a header that is not read, then one IEEE 754 double
// for each minute of the year, little-endian.
#pragma once

#include <cstdint>

namespace kelvrum::chn {

//  offset       size  content
//       0       1024  header, any bytes
//  1024+8m         8  value of minute m of the year, m from 0; 0 = not written
inline constexpr std::uint64_t HEADER_SIZE = 1024;
inline constexpr std::uint64_t VALUE_SIZE = 8;

/// Byte offset of the value of a minute of the year.
constexpr std::int64_t valueOffset(std::int64_t minute) {
    return static_cast<std::int64_t>(HEADER_SIZE) + static_cast<std::int64_t>(VALUE_SIZE) * minute;
}

} // namespace kelvrum::chn
