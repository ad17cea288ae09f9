// SPDX-License-Identifier: GPL-3.0-or-later
// A cache of results for arguments that recur.
#include "data/CachedFunction.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <random>
#include <vector>

namespace kelvrum {
namespace {

int computed = 0; // how often the function below was called

struct InverseOf {
    double operator()(double x) const {
        ++computed;
        return 1 / x;
    }
};

/// Calls `inverse` for all arguments in one use and returns the results.
template<typename Inverse>
std::vector<double> resultsOf(Inverse& inverse, const std::vector<double>& arguments) {
    std::vector<double> results;
    inverse.use([&](auto inverseOf) {
        for (const double x : arguments) {
            results.push_back(inverseOf(x));
        }
    });
    return results;
}

/// How many of the arguments are computed.
template<typename Inverse>
int computedFor(Inverse& inverse, const std::vector<double>& arguments) {
    computed = 0;
    resultsOf(inverse, arguments);
    return computed;
}

TEST(CachedFunction, ReturnsWhatTheFunctionReturns) {
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    CachedFunction<InverseOf, 4> inverse; // few places: arguments drive each other out
    std::mt19937 random(3);               // NOLINT(cert-msc51-cpp): the same arguments at every run
    for (int round = 0; round < 100; ++round) {
        std::vector<double> arguments = {
            0.0, -0.0, 0.0, -0.0, INFINITE, -INFINITE, std::numeric_limits<double>::denorm_min()};
        for (int i = 0; i < 20; ++i) {
            const int number = std::uniform_int_distribution<int>(-9, 9)(random);
            arguments.push_back(number / 2.0);
            arguments.push_back(1 + number * std::numeric_limits<double>::epsilon()); // the next neighbours
        }
        const std::vector<double> results = resultsOf(inverse, arguments);
        for (std::size_t i = 0; i < arguments.size(); ++i) {
            EXPECT_EQ(results[i], 1 / arguments[i]) << arguments[i];
        }
        EXPECT_TRUE(std::isnan(resultsOf(inverse, {std::numeric_limits<double>::quiet_NaN()})[0]));
    }
}

TEST(CachedFunction, ComputesWhatIsNew) {
    CachedFunction<InverseOf, 1024> inverse;
    const double noNumber = std::numeric_limits<double>::quiet_NaN();
    EXPECT_EQ(computedFor(inverse, {1, 2, noNumber, 1, 2, noNumber, 1, noNumber}), 3);
    EXPECT_EQ(computedFor(inverse, {2, noNumber, 1}), 0);
    EXPECT_EQ(computedFor(inverse, {0.0}), 0) << "known from the first";
    EXPECT_EQ(computedFor(inverse, {-0.0, 1}), 1);
}

TEST(CachedFunction, NeighboursHavePlacesOfTheirOwn) {
    std::vector<double> degrees;
    for (int round = 0; round < 3; ++round) {
        for (int degree = 1; degree <= 360; ++degree) {
            degrees.push_back(degree * 0.0174532925199433);
        }
    }
    // A few collide, more so with fewer places.
    CachedFunction<InverseOf, 16384> many;
    EXPECT_LT(computedFor(many, degrees), 360 + 40);
    CachedFunction<InverseOf> usual;
    EXPECT_LT(computedFor(usual, degrees), 360 + 80);
}

TEST(CachedFunction, PausesWhileMostAreNewAndLooksAgain) {
    CachedFunction<InverseOf, 1024> inverse;
    std::vector<int> looked; // the uses that found the 7 that is looked up twice
    double next = 8;
    for (int use = 0; use < 40; ++use) {
        const std::vector<double> arguments = {7, next, next + 1, next + 2, next + 3, 7};
        next += 4;
        if (computedFor(inverse, arguments) < 6) {
            looked.push_back(use);
        }
    }
    EXPECT_EQ(looked, (std::vector<int>{0, 8, 16, 24, 32})) << "pauses of 7 uses";

    while (computedFor(inverse, {1, 1, 1, 1}) == 4) { // until the next look
    }
    EXPECT_EQ(computedFor(inverse, {1, 1, 1, 1}), 0) << "what comes again is known from then on";
    EXPECT_EQ(computedFor(inverse, {-1, -2, -3, -4}), 4);
    for (int use = 0; use < 7; ++use) {
        EXPECT_EQ(computedFor(inverse, {1, 1, 1, 1}), 4) << "a pause";
    }
    EXPECT_EQ(computedFor(inverse, {1, 1, 1, 1}), 0);
}

} // namespace
} // namespace kelvrum
