// SPDX-License-Identifier: GPL-3.0-or-later
// The wind direction mean against the rule written out minute by minute.
#include "data/WindMean.h"

#include "util/Validity.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <cmath>
#include <limits>
#include <random>
#include <span>
#include <vector>

namespace kelvrum {
namespace {

constexpr double TO_RADIANS = 0.0174532925199433;
constexpr double TO_DEGREES = 57.2957795130823;

/// The rule as the stations define it, step by step, with north and cancelling vectors as the program takes
/// them.
double literalWindMean(const std::vector<double>& block, const std::vector<double>& paired) {
    double D = 0;
    double R = 0;
    double speeds = 0;
    bool used = false;
    for (std::size_t i = 0; i < block.size(); ++i) {
        const double d = block[i];
        const double s = paired[i];
        if (!(std::fabs(d) < 99999900) || d == 0 || !(std::fabs(s) < 99999900) || s == 0) {
            continue;
        }
        const double X = std::sin(D * TO_RADIANS) * R + std::sin(d * TO_RADIANS) * s;
        const double Y = std::cos(D * TO_RADIANS) * R + std::cos(d * TO_RADIANS) * s;
        speeds += std::fabs(s);
        R = std::sqrt(X * X + Y * Y);
        if (R <= 1e-12 * speeds) {
            R = 0;
        }
        if (R > 0) {
            const double q = X / R;
            if (std::fabs(q) < 1) {
                D = std::atan(q / std::sqrt(1 - q * q)) * TO_DEGREES;
            } else {
                D = 90 * q;
            }
            if (Y < 0) {
                D = 180 - D;
            }
            if (D < 0) {
                D = D + 360;
            }
        }
        used = true;
    }
    if (!used) {
        return INVALID_VALUE;
    }
    return D <= 1e-9 || D >= 360 - 1e-9 ? 360 : D;
}

/// The mean of one block.
double windMean(std::span<const double> directions, std::span<const double> speeds) {
    static WindMeans winds;
    double mean = 42;
    winds.of(directions, speeds, directions.size(), {&mean, 1});
    return mean;
}

/// The angle between two directions, across north too.
double apart(double a, double b) {
    const double d = std::fabs(a - b);
    return std::min(d, std::fabs(360 - d));
}

TEST(WindMean, Table) {
    constexpr double NO_NUMBER = std::numeric_limits<double>::quiet_NaN();
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    struct Row {
        const char* what;
        std::vector<double> directions;
        std::vector<double> speeds;
        double mean;
    };
    const Row rows[] = {
        {"no minutes", {}, {}, INVALID_VALUE},
        {"north between 350 and 10", {350, 10}, {1, 1}, 360},
        {"north between 10 and 350", {10, 350}, {3, 3}, 360},
        {"north itself", {360}, {2.5}, 360},
        {"one turn more", {720}, {1}, 360},
        {"a hair before north", {359.9999999999}, {1}, 360},
        {"a hair after north", {1e-10}, {1}, 360},
        {"shortly before north", {359.99}, {1}, 359.99},
        {"just after north", {0.01}, {1}, 0.01},
        {"south", {180}, {7}, 180},
        {"south at any speed", {180, 180}, {0.1, 30}, 180},
        {"zero direction is absent", {0}, {5}, INVALID_VALUE},
        {"only zero directions", {0, 0, 0}, {5, 5, 5}, INVALID_VALUE},
        {"zero direction beside another", {0, 45}, {50, 1}, 45},
        {"calm", {90}, {0}, INVALID_VALUE},
        {"calm beside wind", {45, 225}, {5, 0}, 45},
        {"speed marked", {45, 225}, {5, INVALID_VALUE}, 45},
        {"speed no number", {45, 225, 200}, {5, NO_NUMBER, INFINITE}, 45},
        {"direction marked", {INVALID_VALUE, -INVALID_VALUE, 45}, {5, 5, 5}, 45},
        {"direction no number", {NO_NUMBER, INFINITE, 45}, {5, 5, 5}, 45},
        {"weighted", {60, 120, 120}, {1, 0.5, 0.5}, 90},
        {"stronger wins", {90 - 45, 90 + 135}, {1, 3}, 225},
        {"opposite cancel: the direction stays", {10, 190}, {1, 1}, 10},
        {"cancel, then another", {10, 190, 100}, {1, 1, 1}, 100},
        {"cancel with great speeds", {10, 190}, {12345, 12345}, 10},
        {"east and west cancel", {90, 270}, {4, 4}, 90},
        {"negative direction", {-45}, {1}, 315},
        {"negative speed", {45}, {-1}, 225},
        {"beyond a turn", {540}, {1}, 180},
        {"east", {90}, {1}, 90},
        {"west", {270}, {1}, 270},
    };
    for (const Row& row : rows) {
        const double tolerance = row.mean == INVALID_VALUE || row.mean == 360 ? 0 : 1e-6;
        EXPECT_NEAR(windMean(row.directions, row.speeds), row.mean, tolerance) << row.what;
        EXPECT_NEAR(windMeanByMinutes(row.directions, row.speeds), row.mean, tolerance) << row.what;
    }
}

TEST(WindMean, WithoutThePairThereIsNone) {
    const std::vector<double> directions = {90, 180};
    EXPECT_EQ(windMean(directions, {}), INVALID_VALUE);
    EXPECT_EQ(windMeanByMinutes(directions, {}), INVALID_VALUE);
}

TEST(WindMean, EveryWholeDegreeOfASingleMinuteIsTheRuleItself) {
    for (int degree = 1; degree <= 360; ++degree) {
        for (const double speed : {0.1, 1.0, 3.7, 100.0}) {
            const std::vector<double> directions = {static_cast<double>(degree)};
            const std::vector<double> speeds = {speed};
            EXPECT_EQ(windMean(directions, speeds), literalWindMean(directions, speeds)) << degree;
            EXPECT_NEAR(windMean(directions, speeds), degree, 2e-6) << degree;
        }
    }
}

/// One of the ways in which the minutes of a block are drawn.
enum class Weather { any, wholeDegrees, nearEast, nearWest, nearNorth, steady, gaps };

std::vector<double> drawDirections(std::mt19937& random, Weather weather, std::size_t count) {
    std::uniform_real_distribution<double> any(0, 360);
    std::uniform_int_distribution<int> whole(1, 360);
    std::uniform_int_distribution<int> step(-2, 2);
    const double steady = whole(random);
    std::vector<double> directions(count);
    for (double& d : directions) {
        switch (weather) {
        case Weather::any:
        case Weather::gaps:
            d = any(random);
            break;
        case Weather::wholeDegrees:
            d = whole(random);
            break;
        case Weather::nearEast:
            d = 90 + step(random);
            break;
        case Weather::nearWest:
            d = 270 + step(random);
            break;
        case Weather::nearNorth:
            d = 360 + step(random);
            break;
        case Weather::steady:
            d = steady;
            break;
        }
    }
    return directions;
}

std::vector<double> drawSpeeds(std::mt19937& random, Weather weather, std::size_t count) {
    std::uniform_real_distribution<double> any(0.1, 25);
    std::uniform_int_distribution<int> tenths(1, 80);
    std::uniform_int_distribution<int> kind(0, 3);
    std::vector<double> speeds(count);
    for (double& s : speeds) {
        s = weather == Weather::any ? any(random) : tenths(random) / 10.0;
        if (weather == Weather::gaps) {
            const int k = kind(random);
            s = k == 0 ? 0 : k == 1 ? INVALID_VALUE : s;
        }
    }
    return speeds;
}

TEST(WindMean, AgreesWithTheRuleMinuteByMinute) {
    std::mt19937 random(20200618); // NOLINT(cert-msc51-cpp): the same blocks at every run
    for (const Weather weather : {Weather::any, Weather::wholeDegrees, Weather::nearEast, Weather::nearWest,
                                  Weather::nearNorth, Weather::steady, Weather::gaps}) {
        for (const std::size_t count : {1U, 5U, 10U, 15U, 60U, 1440U}) {
            const int trials = count == 1440 ? 25 : 1500;
            for (int trial = 0; trial < trials; ++trial) {
                const std::vector<double> directions = drawDirections(random, weather, count);
                const std::vector<double> speeds = drawSpeeds(random, weather, count);
                const double rule = literalWindMean(directions, speeds);
                const double mean = windMean(directions, speeds);
                const auto which = [&] {
                    return ::testing::Message()
                           << "weather " << static_cast<int>(weather) << ", N = " << count << ", trial "
                           << trial << ": " << mean << " for " << rule;
                };
                if (rule == INVALID_VALUE || count == 1) {
                    ASSERT_EQ(mean, rule) << which();
                } else {
                    ASSERT_NE(mean, INVALID_VALUE) << which();
                    ASSERT_GT(mean, 0) << which();
                    ASSERT_LE(mean, 360) << which();
                    ASSERT_LE(apart(mean, rule), 1e-7) << which();
                    ASSERT_LE(apart(windMeanByMinutes(directions, speeds), rule), 1e-7) << which();
                }
            }
        }
    }
}

TEST(WindMean, ASingleMinuteOfAnySpeedIsTheRuleItself) {
    for (const double degree : {0.001, 45.0, 90.0, 180.0, 269.5, 270.0, 359.9999, 720.25, -30.0}) {
        for (const double speed : {1e-300, 1e-170, 1e-5, 99999899.0, -3.0}) {
            const std::vector<double> directions = {degree};
            const std::vector<double> speeds = {speed};
            EXPECT_EQ(windMean(directions, speeds), literalWindMean(directions, speeds))
                << degree << " " << speed;
        }
    }
}

/// Opposite winds that leave a millionth of themselves: what the arcsine has lost by then counts a million
/// times.
TEST(WindMean, NearlyCancellingWindsFollowTheRule) {
    const struct {
        std::vector<double> directions;
        std::vector<double> speeds;
    } cases[] = {
        {{89.5, 269.5}, {1.00001, 1}},
        {{89.99, 269.99}, {1.000005, 1}},
        {{89.999, 269.999}, {3.000015, 3}},
    };
    for (const auto& c : cases) {
        EXPECT_LE(apart(windMean(c.directions, c.speeds), literalWindMean(c.directions, c.speeds)), 1e-7)
            << c.directions[0];
    }
    std::mt19937 random(17); // NOLINT(cert-msc51-cpp): the same winds at every run
    const auto power = [&random](double minExponent) {
        return std::pow(10, std::uniform_real_distribution<double>(minExponent, 0)(random));
    };
    for (int i = 0; i < 20000; ++i) {
        const double side = i % 2 == 0 ? 90 : 270;
        const double direction = side + (i % 3 == 0 ? -1 : 1) * 10 * power(-6);
        const double left = power(-7); // of the first wind
        std::vector<double> directions = {direction, direction + 180 + power(-7)};
        std::vector<double> speeds = {1 + left, 1};
        for (int more = i % 4; more > 0; --more) {
            directions.push_back(std::uniform_real_distribution<double>(0.1, 360)(random));
            speeds.push_back(left * power(-3));
        }
        ASSERT_LE(apart(windMean(directions, speeds), literalWindMean(directions, speeds)), 1e-7)
            << direction << " " << left;
    }
}

TEST(WindMean, SpeedsTooSmallToBeSquaredFollowTheRule) {
    const struct {
        std::vector<double> directions;
        std::vector<double> speeds;
    } cases[] = {
        {{24.95, 204.45, 19.15}, {3.2e-162, 7.3e-162, 6e-162}},
        {{156.45, 276.25, 59.45}, {3.2e-162, 8.3e-162, 7.5e-162}},
        {{318.65, 77.45, 126.85}, {8.1e-155, 1.5e-155, 7.9e-155}},
        {{76.15, 227.95, 279.05}, {1e-300, 1e-301, 9e-301}},
    };
    for (const auto& c : cases) {
        EXPECT_LE(apart(windMean(c.directions, c.speeds), literalWindMean(c.directions, c.speeds)), 1e-7)
            << c.speeds[0];
    }
}

TEST(WindMeans, OfManyBlocksIsTheMeanOfEach) {
    std::mt19937 random(11); // NOLINT(cert-msc51-cpp): the same blocks at every run
    WindMeans winds;         // one for all, with its cache
    for (const std::size_t minutes : {1U, 5U, 7U, 60U, 1440U}) {
        const std::size_t blocks = 5000 / minutes + 2;
        std::vector<double> directions;
        std::vector<double> speeds;
        for (const Weather weather :
             {Weather::gaps, Weather::nearEast, Weather::any, Weather::wholeDegrees}) {
            const auto d = drawDirections(random, weather, blocks * minutes);
            const auto s = drawSpeeds(random, weather, blocks * minutes);
            directions.insert(directions.end(), d.begin(), d.end());
            speeds.insert(speeds.end(), s.begin(), s.end());
        }
        std::fill_n(speeds.begin() + static_cast<std::ptrdiff_t>(minutes), minutes, 0.0); // a block of calms
        std::vector<double> means(4 * blocks);
        winds.of(directions, speeds, minutes, means);
        for (std::size_t i = 0; i < means.size(); ++i) {
            const auto d = std::span<const double>(directions).subspan(i * minutes, minutes);
            const auto s = std::span<const double>(speeds).subspan(i * minutes, minutes);
            ASSERT_EQ(means[i], windMean(d, s)) << "block " << i << " of " << minutes << " minutes";
        }
        EXPECT_EQ(means[1], INVALID_VALUE);
        winds.of(directions, {}, minutes, means);
        EXPECT_EQ(std::count(means.begin(), means.end(), INVALID_VALUE), std::ssize(means));
    }
}

TEST(WindMeans, WhatComesAgainIsTheSameAgain) {
    // Tenths of degrees and of speeds, a turn and more to both sides: far more arguments than the cache
    // holds.
    std::vector<double> directions;
    std::vector<double> speeds;
    for (int tenths = -4000; tenths <= 7600; ++tenths) {
        for (const double speed : {0.1, 0.3, 7.7}) {
            directions.push_back(tenths / 10.0);
            speeds.push_back(speed);
        }
    }
    WindMeans winds;
    for (int round = 0; round < 3; ++round) {
        std::vector<double> means(directions.size());
        winds.of(directions, speeds, 1, means);
        for (std::size_t i = 0; i < means.size(); ++i) {
            ASSERT_EQ(means[i], literalWindMean({directions[i]}, {speeds[i]})) << directions[i];
        }
    }
}

TEST(WindMean, EveryPairOfWholeDegreesAroundEastAndWest) {
    for (const double centre : {90.0, 270.0}) {
        for (int a = -3; a <= 3; ++a) {
            for (int b = -3; b <= 3; ++b) {
                for (const double speed : {0.1, 1.0, 2.5, 40.0}) {
                    const std::vector<double> directions = {centre + a, centre + b, centre - a, centre - b};
                    const std::vector<double> speeds = {1, speed, 1, speed};
                    const double rule = literalWindMean(directions, speeds);
                    EXPECT_LE(apart(windMean(directions, speeds), rule), 1e-7) << a << " " << b;
                    EXPECT_LE(apart(rule, centre), 2e-6);
                }
            }
        }
    }
}

} // namespace
} // namespace kelvrum
