// SPDX-License-Identifier: GPL-3.0-or-later
// Wind: direction, speed, gusts and the vertical component, which belong together.
#pragma once

#include "tools/makestation/Fronts.h"
#include "tools/makestation/Random.h"

namespace kelvrum::sample {

struct WindValues {
    double vertical = 0;  // m/s, upwards positive
    double direction = 0; // degrees, above 0 to 360: north is 360
    double speed = 0;     // m/s, 0 in a calm
    double gust = 0;      // m/s, the strongest second of the minute
};

class WindModel {
  public:
    explicit WindModel(const StationPlan& plan)
        : random_(plan.seed, Stream::wind)
        , weather_(9.0 * HOUR, 1.4, random_)
        , squall_(25, 0.5, random_)
        , meander_(2.0 * HOUR, 14, random_)
        , swing_(4, 1, random_)
        , thermal_(17, 1, random_)
        , eddy_(2.5, 1, random_) {}

    WindValues at(Minute minute, const Season& season);

  private:
    double speedAt(double heat, const Season& season);
    double directionAt(double speed, const Season& season);
    double verticalAt(double speed, double heat);

    Random random_;
    Wander weather_; // of speed, from day to day
    Wander squall_;
    Wander meander_; // of direction
    Wander swing_;
    Wander thermal_; // of the vertical component
    Wander eddy_;
    double vane_ = 360; // where the vane came to rest: it keeps still in a calm
};

} // namespace kelvrum::sample
