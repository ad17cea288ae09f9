// SPDX-License-Identifier: GPL-3.0-or-later
// Layout of the batch print settings "Sammeldruck.cfg": one record for each row slot, numbers little-endian.
#pragma once

#include "batchprint/BatchRows.h"

#include <cstddef>

namespace kelvrum::sammeldruck {

// clang-format off
//                                                      offset  size  content
inline constexpr std::size_t RECORD_SIZE = 84;      //      0     4  reserved, zeros
inline constexpr std::size_t SELECTED_AT = 4;       //      4     2  int16, 1: the row is printed
inline constexpr std::size_t AUTOMATIC_AT = 6;      //      6     2  int16, 1: automatic scale
inline constexpr std::size_t MINIMUM_AT = 8;        //      8     8  double, manual scale minimum
inline constexpr std::size_t MAXIMUM_AT = 16;       //     16     8  double, manual scale maximum
inline constexpr std::size_t INTERVAL_AT = 24;      //     24     2  int16, position of the averaging interval, 0 to 5
inline constexpr std::size_t LIMITS_AT = 26;        //     26     2  int16, 1: limit lines are shown
inline constexpr std::size_t LOWER_AT = 28;         //     28     8  double, lower limit
inline constexpr std::size_t UPPER_AT = 36;         //     36     8  double, upper limit
inline constexpr std::size_t MEAN_AT = 44;          //     44     2  int16, 1: the mean line is shown
inline constexpr std::size_t REST_AT = 46;          //     46    38  reserved, zeros
// clang-format on

inline constexpr std::size_t FILE_SIZE = SLOT_COUNT * RECORD_SIZE;

static_assert(REST_AT + 38 == RECORD_SIZE && FILE_SIZE == 1344);

} // namespace kelvrum::sammeldruck
