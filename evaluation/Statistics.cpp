// SPDX-License-Identifier: GPL-3.0-or-later
#include "evaluation/Statistics.h"

#include <algorithm>
#include <array>
#include <cmath>

namespace kelvrum {

namespace {

constexpr std::size_t WHOLE = 100; // percent

/// Puts the value of one place of the ascending order there, smaller ones before and greater ones after it.
void sortPlace(std::span<double> values, std::size_t at) {
    const auto place = values.begin() + static_cast<std::ptrdiff_t>(at);
    if (at == 0) {
        std::iter_swap(place, std::min_element(values.begin(), values.end()));
    } else if (at + 1 == values.size()) {
        std::iter_swap(place, std::max_element(values.begin(), values.end()));
    } else {
        std::nth_element(values.begin(), place, values.end());
    }
}

/// Does so for ascending ranks, which count from the first value of the whole. The span starts at `first`.
void sortRanks(std::span<double> values, std::size_t first, std::span<const std::size_t> ranks) {
    if (ranks.empty()) {
        return;
    }
    // The rank closest to the middle leaves the shortest parts for the others.
    const std::size_t half = first + values.size() / 2;
    const auto middle = std::min_element(ranks.begin(), ranks.end(), [half](std::size_t a, std::size_t b) {
        return std::max(a, half) - std::min(a, half) < std::max(b, half) - std::min(b, half);
    });
    const std::size_t at = *middle - first;
    sortPlace(values, at);
    const auto done = static_cast<std::size_t>(middle - ranks.begin());
    sortRanks(values.first(at), first, ranks.first(done));
    sortRanks(values.subspan(at + 1), *middle + 1, ranks.subspan(done + 1));
}

/// Standard deviation from the differences to the mean: squares of the values themselves would cancel.
std::optional<double> deviationOf(std::span<const double> values, double mean) {
    if (values.size() < 2) {
        return std::nullopt;
    }
    CompensatedSum squares;
    for (const double v : values) {
        squares.add((v - mean) * (v - mean));
    }
    return std::sqrt(squares.value() / static_cast<double>(values.size() - 1));
}

} // namespace

void sortPercentiles(std::span<double> values, std::span<const std::size_t> percents) {
    std::vector<std::size_t> ranks;
    for (const std::size_t percent : percents) {
        if (!values.empty()) {
            const std::size_t rank = (values.size() - 1) * percent / WHOLE;
            ranks.push_back(rank);
            ranks.push_back(std::min(rank + 1, values.size() - 1));
        }
    }
    std::sort(ranks.begin(), ranks.end());
    ranks.erase(std::unique(ranks.begin(), ranks.end()), ranks.end());
    sortRanks(values, 0, ranks);
}

double percentile(std::span<const double> values, std::size_t percent) {
    // In whole numbers the position and its fraction are exact.
    const std::size_t position = (values.size() - 1) * percent;
    const std::size_t rank = position / WHOLE;
    const auto part = static_cast<double>(position % WHOLE) / static_cast<double>(WHOLE);
    const double low = values[rank];
    return part > 0 ? low + (values[rank + 1] - low) * part : low;
}

Statistics StatisticsTally::result(const IntervalGrid& grid) {
    Statistics result;
    if (values_.empty()) {
        return result;
    }
    result.minimum = minimum_.result(grid);
    result.maximum = maximum_.result(grid);
    result.sum = sum_.value();
    // Rounding must not make the mean of equal values differ from them.
    result.mean = std::clamp(sum_.value() / static_cast<double>(values_.size()), result.minimum->value,
                             result.maximum->value);
    result.deviation = deviationOf(values_, *result.mean);
    constexpr std::array<std::size_t, 4> PERCENTS = {5, 50, 95, 98};
    sortPercentiles(values_, PERCENTS);
    result.percentile5 = percentile(values_, PERCENTS[0]);
    result.median = percentile(values_, PERCENTS[1]);
    result.percentile95 = percentile(values_, PERCENTS[2]);
    result.percentile98 = percentile(values_, PERCENTS[3]);
    return result;
}

} // namespace kelvrum
