// SPDX-License-Identifier: GPL-3.0-or-later
// Sums that keep what an addition rounds off.
#pragma once

namespace kelvrum {

/// A running sum with Neumaier's compensation: the rounding error of each addition is added up beside the
/// sum, so that a tiny value next to a huge one still counts.
class CompensatedSum {
  public:
    void add(double v) {
        const double sum = sum_ + v;
        const double added = sum - sum_; // the part of v that was added
        rounded_ += (sum_ - (sum - added)) + (v - added);
        sum_ = sum;
    }

    [[nodiscard]] double value() const { return sum_ + rounded_; }

  private:
    double sum_ = 0;
    double rounded_ = 0;
};

} // namespace kelvrum
