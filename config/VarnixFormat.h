// SPDX-License-Identifier: GPL-3.0-or-later
// Layout of the binary station configuration: one packed record, numbers little-endian,
// texts Windows-1252 padded with NUL or blanks.
#pragma once

#include <cstddef>

namespace kelvrum::varnix {

//  offset  size  content
inline constexpr std::size_t RECORD_SIZE = 6545;
inline constexpr std::size_t WIDE_SWITCH_AT = 0;  //       0     2  non-zero: 12-byte fields in the day files
inline constexpr std::size_t STATION_NAME_AT = 2; //       2    33  station name
inline constexpr std::size_t STATION_NAME_SIZE = 33;
inline constexpr std::size_t SLOTS_AT = 35; //      35  6494  the channel slots
inline constexpr std::size_t SLOT_COUNT = 34;
inline constexpr std::size_t SLOT_SIZE = 191;
inline constexpr std::size_t SLOT_ACTIVE_AT = 0;  //      +0     2  non-zero: the slot's channel is active
inline constexpr std::size_t SLOT_NAME_AT = 2;    //      +2    17  channel name
inline constexpr std::size_t SLOT_NAME_SIZE = 17; //     +19   172  not used
inline constexpr std::size_t REST_AT = SLOTS_AT + SLOT_COUNT * SLOT_SIZE; //    6529    16  not used

static_assert(REST_AT == 6529 && REST_AT + 16 == RECORD_SIZE);

} // namespace kelvrum::varnix
