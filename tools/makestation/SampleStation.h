// SPDX-License-Identifier: GPL-3.0-or-later
// The sample station as a run of minutes: all quantities that it measures, in time order.
#pragma once

#include "tools/makestation/AirModel.h"
#include "tools/makestation/DustModel.h"
#include "tools/makestation/Fronts.h"
#include "tools/makestation/Outages.h"
#include "tools/makestation/RainModel.h"
#include "tools/makestation/Random.h"
#include "tools/makestation/SampleChannels.h"
#include "tools/makestation/StationPlan.h"
#include "tools/makestation/WindModel.h"

#include <array>
#include <optional>

namespace kelvrum::sample {

/// The values of one minute, as they are written. INVALID_VALUE where a sensor had none; 0 is a calm or a dry
/// minute and nothing else.
struct MinuteRecord {
    Minute minute = 0;
    bool recorded = true; // false while the station is out: nothing is written then
    std::array<double, QUANTITIES> values{};
};

class SampleStation {
  public:
    explicit SampleStation(const StationPlan& plan);

    /// The next minute, from the plan's begin to its end; nothing after the end.
    std::optional<MinuteRecord> next();

    /// The fronts, the first one before the begin.
    [[nodiscard]] const std::vector<Front>& fronts() const { return fronts_; }

  private:
    void measure(MinuteRecord& record);
    void markFaults(MinuteRecord& record);

    Minute minute_;
    Minute end_;
    std::vector<Front> fronts_;
    FrontClock frontClock_;
    OutageClock outages_;
    WindModel wind_;
    RainModel rain_;
    AirModel air_;
    DustModel dust_;
    Random markers_;
    Wander calibration_;
    std::array<SensorFault, QUANTITIES> faults_;
};

} // namespace kelvrum::sample
