// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/Averaging.h"

#include "config/ChannelTable.h"

#include <algorithm>
#include <array>

namespace kelvrum {

namespace {

struct Total {
    double sum = 0;
    std::int64_t count = 0;
};

Total totalOf(std::span<const double> block) {
    Total total;
    for (const double v : block) {
        if (isPresent(v)) {
            total.sum += v;
            ++total.count;
        }
    }
    return total;
}

} // namespace

double blockAverage(std::span<const double> block, std::int32_t mode, std::span<const double> paired,
                    double upper, double lower) {
    switch (mode) {
    case MODE_SUM: {
        const Total total = totalOf(block);
        return total.count == 0 ? INVALID_VALUE : validate(total.sum, upper, lower);
    }
    case MODE_MEAN: {
        const Total total = totalOf(block);
        return total.count == 0 ? INVALID_VALUE
                                : validate(total.sum / static_cast<double>(total.count), upper, lower);
    }
    case MODE_WIND_DIRECTION: {
        std::array<double, 1> mean = {INVALID_VALUE};
        WindMeans().of(block, paired, block.size(), mean);
        return validate(mean[0], upper, lower);
    }
    default:
        return 0;
    }
}

void averageBlocks(const BlockRun& run, std::int32_t mode, std::span<double> results, WindMeans& winds) {
    if (run.empty()) {
        return;
    }
    const std::size_t n = run.values.size() / run.blocks;
    if (n == 1 && (mode == MODE_SUM || mode == MODE_MEAN)) {
        // A single minute is its own sum and mean.
        std::transform(run.values.begin(), run.values.end(), results.begin(),
                       [](double v) { return isPresent(v) ? v : INVALID_VALUE; });
        return;
    }
    if (mode == MODE_WIND_DIRECTION) {
        winds.of(run.values, run.paired, n, results.first(run.blocks));
        return;
    }
    for (std::size_t i = 0; i < run.blocks; ++i) {
        results[i] = blockAverage(run.values.subspan(i * n, n), mode, {});
    }
}

} // namespace kelvrum
