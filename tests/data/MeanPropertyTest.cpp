// SPDX-License-Identifier: GPL-3.0-or-later
// Means lie within their minutes, sums add up, and wind directions turn with the wind.
#include "data/Averaging.h"

#include "config/ChannelTable.h"
#include "tests/testing/MadeMinutes.h"

#include <gtest/gtest.h>

#include <ostream>
#include <span>

namespace kelvrum {
namespace {

using namespace kelvrum::testing;

TEST(MeanProperties, AMeanLiesBetweenMinimumAndMaximumOfItsMinutes) {
    const auto generate = [](Numbers& numbers) { return madeMinutes(numbers, 200); };
    const auto check = [](const std::vector<double>& minutes) -> std::string {
        double low = std::numeric_limits<double>::infinity();
        double high = -low;
        for (const double v : minutes) {
            if (isPresent(v)) {
                low = std::min(low, v);
                high = std::max(high, v);
            }
        }
        const double mean = blockAverage(minutes, MODE_MEAN, {});
        if (low > high) {
            return mean == INVALID_VALUE ? "" : textOf({mean}) + "of no value in " + textOf(minutes);
        }
        // Adding up rounds; a mean of 0 is reported as its stand-in.
        const double tolerance = 1e-13 * static_cast<double>(minutes.size()) * std::max(-low, high);
        const bool within = mean >= low - tolerance && mean <= high + tolerance;
        return within ? "" : textOf({mean}) + "of " + textOf(minutes);
    };
    EXPECT_EQ(forAll(2, 3000, generate, smallerMinutes, check), "");
}

TEST(MeanProperties, ASumIsTheSumOfItsTwoHalves) {
    const auto generate = [](Numbers& numbers) { return madeMinutes(numbers, 100); };
    const auto check = [](const std::vector<double>& minutes) -> std::string {
        const auto sumOf = [](std::span<const double> part) {
            const double sum = blockAverage(part, MODE_SUM, {});
            return sum == INVALID_VALUE || sum == ZERO_VALUE ? 0 : sum;
        };
        const std::span all(minutes);
        const double whole = sumOf(all);
        const double halves = sumOf(all.first(all.size() / 2)) + sumOf(all.subspan(all.size() / 2));
        const bool cut = blockAverage(all, MODE_SUM, {}) == INVALID_VALUE; // none, or beyond every value
        return cut || std::fabs(whole - halves) <= 1e-6 ? "" : textOf({whole, halves}) + textOf(minutes);
    };
    EXPECT_EQ(forAll(3, 3000, generate, smallerMinutes, check), "");
}

struct Gust {
    double direction = 0;
    double speed = 0;
};

struct TurnedWind {
    std::vector<Gust> gusts;
    double angle = 0;

    friend std::ostream& operator<<(std::ostream& out, const TurnedWind& wind) {
        out.precision(17);
        for (const Gust& gust : wind.gusts) {
            out << gust.direction << " at " << gust.speed << ", ";
        }
        return out << "turned by " << wind.angle;
    }
};

TurnedWind madeWind(Numbers& numbers) {
    TurnedWind wind;
    wind.gusts.resize(1 + numbers.below(60));
    const double spread = numbers.oneOf(std::array{1.0, 90.0, 360.0});
    const double middle = numbers.between(0, 360);
    for (Gust& gust : wind.gusts) {
        gust.direction = std::fmod(720 + middle + numbers.between(-spread, spread), 360);
        gust.speed = numbers.oneIn(10) ? 0 : numbers.between(0.01, 40);
    }
    wind.angle = numbers.oneIn(3) ? 90.0 * numbers.whole(0, 4) : numbers.between(0, 360);
    return wind;
}

std::vector<TurnedWind> calmerWinds(const TurnedWind& wind) {
    std::vector<TurnedWind> smaller;
    const auto calmer = [](const Gust& gust) {
        std::vector<Gust> gusts;
        for (const double v : smallerNumbers(gust.direction)) {
            gusts.push_back({v, gust.speed});
        }
        for (const double v : smallerNumbers(gust.speed)) {
            gusts.push_back({gust.direction, v});
        }
        return gusts;
    };
    for (auto& gusts : smallerLists(wind.gusts, calmer)) {
        smaller.push_back({std::move(gusts), wind.angle});
    }
    for (const double angle : smallerNumbers(wind.angle)) {
        smaller.push_back({wind.gusts, angle});
    }
    return smaller;
}

TEST(MeanProperties, TheWindMeanTurnsWithTheWind) {
    const auto check = [](const TurnedWind& wind) -> std::string {
        std::vector<double> speeds;
        std::vector<double> before;
        std::vector<double> turned;
        double x = 0;
        double y = 0;
        double sum = 0;
        for (const Gust& gust : wind.gusts) {
            speeds.push_back(gust.speed);
            before.push_back(gust.direction);
            turned.push_back(std::fmod(gust.direction + wind.angle, 360));
            if (before.back() == 0 || turned.back() == 0) {
                return {}; // such a minute is missing
            }
            x += std::sin(gust.direction * M_PI / 180) * gust.speed;
            y += std::cos(gust.direction * M_PI / 180) * gust.speed;
            sum += gust.speed;
            if (std::hypot(x, y) < 0.01 * sum) {
                return {}; // nearly cancelled on its way: the direction hangs on rounding
            }
        }
        const double mean = blockAverage(before, MODE_WIND_DIRECTION, speeds);
        const double other = blockAverage(turned, MODE_WIND_DIRECTION, speeds);
        if (sum == 0) {
            return mean == INVALID_VALUE && other == INVALID_VALUE ? "" : "a direction without wind";
        }
        const double apart = std::fabs(std::remainder(mean + wind.angle - other, 360));
        // The arcsine is coarse close to east and west.
        const bool range = mean > 0 && mean <= 360 && other > 0 && other <= 360;
        return apart < 1e-4 && range ? "" : textOf({mean, other});
    };
    EXPECT_EQ(forAll(4, 3000, madeWind, calmerWinds, check), "");
}

} // namespace
} // namespace kelvrum
