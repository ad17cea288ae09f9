// SPDX-License-Identifier: GPL-3.0-or-later
// The channels of the sample station: one table for the configuration, the model and the writers.
#pragma once

#include "config/ChannelTable.h"

#include <array>
#include <cstddef>
#include <cstdint>
#include <string_view>

namespace kelvrum::sample {

/// Position of a quantity in the table and in the values of a minute.
enum Quantity : std::size_t {
    VERTICAL_WIND,
    WIND_DIRECTION,
    WIND_SPEED,
    WIND_CALIBRATION,
    WIND_CORRECTED,
    DUST_PM10,
    TEMPERATURE,
    HUMIDITY,
    PRESSURE,
    PRECIPITATION,
    GUST,
    DUST_PM25,
    DUST_CORRECTED,
    QUANTITIES
};

struct SampleChannel {
    std::int32_t number;
    std::string_view name;
    std::string_view shortName; // at most 17 characters, all of them in Windows-1252
    std::string_view unit;
    std::string_view comment;
    std::string_view tag;
    double lowerLimit;
    double upperLimit;
    AveragingMode mode;
    std::int32_t paired; // channel number, 0 = none
    double limit1;       // of the KGW line; no such line when both are 0
    double limit2;
    bool derived;  // calculated from other channels: a VIRT line
    double step;   // resolution of the written values; 0 = as calculated
    double spread; // greatest distance of minimum and maximum of a wide record from the mean
};

/// In ascending order of the channel numbers.
extern const std::array<SampleChannel, QUANTITIES> SAMPLE_CHANNELS;

inline constexpr double WIND_FACTOR = 1.05;
inline constexpr double DUST_FACTOR = 0.92;

} // namespace kelvrum::sample
