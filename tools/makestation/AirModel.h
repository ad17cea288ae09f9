// SPDX-License-Identifier: GPL-3.0-or-later
// Temperature, humidity and pressure of the air.
#pragma once

#include "tools/makestation/Fronts.h"
#include "tools/makestation/Random.h"

namespace kelvrum::sample {

struct AirValues {
    double temperature = 0; // °C
    double humidity = 0;    // %
    double pressure = 0;    // hPa
};

class AirModel {
  public:
    explicit AirModel(const StationPlan& plan)
        : random_(plan.seed, Stream::air)
        , mildness_(3.0 * DAY, 3, random_)
        , cloud_(10.0 * HOUR, 0.25, random_)
        , ripple_(12, 0.12, random_)
        , moisture_(8.0 * HOUR, 6, random_)
        , system_(4.0 * DAY, 7, random_) {}

    /// `wet` is how wet the air is after rain, 0 to 1.
    AirValues at(Minute minute, const Season& season, double wet);

  private:
    Random random_;
    Wander mildness_; // of temperature, from day to day
    Wander cloud_;
    Wander ripple_;
    Wander moisture_;
    Wander system_; // highs and lows
};

} // namespace kelvrum::sample
