// SPDX-License-Identifier: GPL-3.0-or-later
// Random numbers that are the same on every machine: the standard fixes the engine's numbers, but not what
// its distributions make of them.
#pragma once

#include "tools/makestation/StationPlan.h"

#include <cmath>
#include <cstdint>
#include <random>

namespace kelvrum::sample {

/// The parts of the model draw from streams of their own: one that draws more leaves the others as they are.
enum class Stream : std::uint64_t { fronts = 1, wind, air, rain, dust, outages, markers, spread };

class Random {
  public:
    Random(std::uint64_t seed, Stream stream)
        : engine_(seed * 1'000'003U + static_cast<std::uint64_t>(stream)) {}

    /// From 0 inclusive to 1 exclusive.
    double unit() { return static_cast<double>(engine_() >> 11U) * 0x1p-53; }

    double between(double low, double high) { return low + (high - low) * unit(); }

    /// From low to high, both inclusive.
    Minute minutes(Minute low, Minute high) {
        return low + static_cast<Minute>(unit() * static_cast<double>(high - low + 1));
    }

    bool chance(double probability) { return unit() < probability; }

    /// Bell-shaped with mean 0 and standard deviation 1: the sum of four parts of one draw.
    double bell() {
        const std::uint64_t bits = engine_();
        const std::uint64_t sum =
            (bits & PART) + (bits >> 16U & PART) + (bits >> 32U & PART) + (bits >> 48U & PART);
        constexpr double MEAN = 2.0 * PART;
        constexpr double DEVIATION = 37837.2; // of the sum of four even parts: 65536 / sqrt(3)
        return (static_cast<double>(sum) - MEAN) / DEVIATION;
    }

  private:
    static constexpr std::uint64_t PART = 0xFFFF;
    std::mt19937_64 engine_;
};

/// A quantity that wanders around 0 and forgets where it was within some `memory` minutes.
class Wander {
  public:
    Wander(double memory, double deviation, Random& random)
        : keep_(std::exp(-1 / memory))
        , push_(deviation * std::sqrt(1 - keep_ * keep_))
        , value_(deviation * random.bell()) {}

    double step(Random& random) {
        value_ = keep_ * value_ + push_ * random.bell();
        return value_;
    }

  private:
    double keep_;
    double push_;
    double value_;
};

} // namespace kelvrum::sample
