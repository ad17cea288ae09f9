// SPDX-License-Identifier: GPL-3.0-or-later
// When the station records nothing, and when single sensors report that they have no value.
#pragma once

#include "tools/makestation/Random.h"

#include <cstddef>
#include <vector>

namespace kelvrum::sample {

struct Outage {
    Minute begin = 0;
    Minute end = 0; // exclusive
};

/// The outages of the whole station, of minutes, hours and days, in time order and apart from each other.
/// The last two days have none longer than some minutes.
std::vector<Outage> outagesOf(const StationPlan& plan);

/// Follows the outages minute by minute; minutes must come in ascending order.
class OutageClock {
  public:
    explicit OutageClock(std::vector<Outage> outages)
        : outages_(std::move(outages)) {}

    bool isOut(Minute minute) {
        while (current_ < outages_.size() && outages_[current_].end <= minute) {
            ++current_;
        }
        return current_ < outages_.size() && outages_[current_].begin <= minute;
    }

  private:
    std::vector<Outage> outages_;
    std::size_t current_ = 0;
};

/// A sensor that now and then writes the marker of a missing value for some minutes.
class SensorFault {
  public:
    bool step(Random& random) {
        constexpr double EACH_MINUTE = 1.0 / 7000;
        constexpr Minute LONGEST = 6;
        if (left_ > 0) {
            --left_;
            return true;
        }
        if (random.chance(EACH_MINUTE)) {
            left_ = random.minutes(0, LONGEST - 1);
            return true;
        }
        return false;
    }

  private:
    Minute left_ = 0;
};

} // namespace kelvrum::sample
