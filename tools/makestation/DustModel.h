// SPDX-License-Identifier: GPL-3.0-or-later
// Dust: high in the rush hours and in winter, washed out by rain, with single outliers.
#pragma once

#include "tools/makestation/Random.h"

namespace kelvrum::sample {

struct DustValues {
    double coarse = 0; // PM10, µg/m³
    double fine = 0;   // PM2.5, µg/m³, never above coarse
};

class DustModel {
  public:
    explicit DustModel(const StationPlan& plan)
        : random_(plan.seed, Stream::dust)
        , weather_(30.0 * HOUR, 0.38, random_)
        , plume_(14, 0.14, random_)
        , share_(20.0 * HOUR, 0.06, random_) {}

    /// `wet` is how wet the air is after rain, 0 to 1; wind thins the dust.
    DustValues at(Minute minute, double wet, double windSpeed);

  private:
    double outlier();

    Random random_;
    Wander weather_;
    Wander plume_;
    Wander share_;
    int outlierLeft_ = 0; // minutes
    double outlierFactor_ = 1;
};

} // namespace kelvrum::sample
