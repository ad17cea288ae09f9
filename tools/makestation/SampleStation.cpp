// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/makestation/SampleStation.h"

#include "util/Validity.h"

#include <cmath>

namespace kelvrum::sample {

namespace {

/// The value at the sensor's resolution. A file cannot hold a measured zero, since that is an empty slot:
/// the smallest step represents it, but a calm and a dry minute are written as 0.
double resolved(double value, double step, bool canBeZero) {
    const double steps = std::round(value / step);
    if (steps == 0) {
        return canBeZero ? 0 : std::copysign(step, value);
    }
    // Divided where the number of parts is whole: 3 tenths are written as exactly 0.3.
    return step < 1 ? steps / std::round(1 / step) : steps * step;
}

bool canBeZero(std::size_t quantity) {
    return quantity == WIND_SPEED || quantity == GUST || quantity == PRECIPITATION;
}

} // namespace

SampleStation::SampleStation(const StationPlan& plan)
    : minute_(plan.begin())
    , end_(plan.end())
    , fronts_(frontsOf(plan))
    , frontClock_(fronts_)
    , outages_(outagesOf(plan))
    , wind_(plan)
    , rain_(plan, fronts_)
    , air_(plan)
    , dust_(plan)
    , markers_(plan.seed, Stream::markers)
    , calibration_(60.0 * DAY, 0.02, markers_) {}

std::optional<MinuteRecord> SampleStation::next() {
    if (minute_ >= end_) {
        return std::nullopt;
    }
    MinuteRecord record;
    record.minute = minute_++;
    record.recorded = !outages_.isOut(record.minute);
    measure(record); // the weather goes on while the station is out
    markFaults(record);
    if (!record.recorded) {
        record.values.fill(0);
    }
    return record;
}

void SampleStation::measure(MinuteRecord& record) {
    const Season season = frontClock_.at(record.minute);
    const WindValues wind = wind_.at(record.minute, season);
    const RainValues rain = rain_.at(record.minute);
    const AirValues air = air_.at(record.minute, season, rain.wet);
    const DustValues dust = dust_.at(record.minute, rain.wet, wind.speed);
    auto& values = record.values;
    values[VERTICAL_WIND] = wind.vertical;
    values[WIND_DIRECTION] = wind.direction;
    values[WIND_SPEED] = wind.speed;
    values[WIND_CALIBRATION] = 1 + calibration_.step(markers_);
    values[DUST_PM10] = dust.coarse;
    values[TEMPERATURE] = air.temperature;
    values[HUMIDITY] = air.humidity;
    values[PRESSURE] = air.pressure;
    values[PRECIPITATION] = rain.tipped;
    values[GUST] = wind.gust;
    values[DUST_PM25] = dust.fine;
    for (std::size_t i = 0; i < QUANTITIES; ++i) {
        if (!SAMPLE_CHANNELS[i].derived) {
            values[i] = resolved(values[i], SAMPLE_CHANNELS[i].step, canBeZero(i));
        }
    }
    if (values[WIND_DIRECTION] < 1) {
        values[WIND_DIRECTION] = 360;
    }
}

/// Replaces the values of sensors that have none by the marker and calculates the derived channels from what
/// is left: without a source they have no value either.
void SampleStation::markFaults(MinuteRecord& record) {
    auto& values = record.values;
    for (std::size_t i = 0; i < QUANTITIES; ++i) {
        if (!SAMPLE_CHANNELS[i].derived && faults_[i].step(markers_)) {
            values[i] = INVALID_VALUE;
        }
    }
    const auto missing = [&values](Quantity quantity) { return values[quantity] == INVALID_VALUE; };
    values[WIND_CORRECTED] = missing(WIND_SPEED) || missing(WIND_CALIBRATION)
                                 ? INVALID_VALUE
                                 : values[WIND_SPEED] * values[WIND_CALIBRATION] * WIND_FACTOR;
    values[DUST_CORRECTED] = missing(DUST_PM10) ? INVALID_VALUE : values[DUST_PM10] * DUST_FACTOR;
}

} // namespace kelvrum::sample
