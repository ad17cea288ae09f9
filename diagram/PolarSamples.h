// SPDX-License-Identifier: GPL-3.0-or-later
// The samples of a polar diagram.
#pragma once

#include <cstdint>
#include <vector>

namespace kelvrum {

/// One sample as it is measured.
struct PolarSample {
    double speed = 0;
    double degrees = 0;
};

/// Two lists of equal length, which hold one element at least; `count` of them are in use.
struct PolarSamples {
    std::vector<double> speed = {0};
    std::vector<double> direction = {0}; // radians
    std::int32_t count = 0;
    std::int32_t last = -1; // index of the sample that was written last

    bool operator==(const PolarSamples&) const = default;
};

} // namespace kelvrum
