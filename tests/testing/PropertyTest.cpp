// SPDX-License-Identifier: GPL-3.0-or-later
// What trying a property reports: nothing when it holds, else the smallest case and how to see it again.
#include "tests/testing/Property.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <stdexcept>

namespace kelvrum::testing {
namespace {

using ::testing::HasSubstr;
using ::testing::StartsWith;

/// The environment in which the tests run would choose other cases here.
class ForAll : public ::testing::Test {
  protected:
    void SetUp() override {
        if (propertySetting("KELVRUM_PROPERTY_SEED", 0) != 0 ||
            propertySetting("KELVRUM_PROPERTY_COUNT", 0) != 0) {
            GTEST_SKIP() << "other cases are requested";
        }
    }
};

const auto NUMBER = [](Numbers& numbers) { return numbers.whole(0, 1000); };
const auto SMALLER = [](int n) { return smallerNumbers(n); };

TEST_F(ForAll, SaysNothingWhenThePropertyHolds) {
    int cases = 0;
    EXPECT_EQ(forAll(1, 50, NUMBER, SMALLER,
                     [&cases](int n) {
                         ++cases;
                         return std::string(n >= 0 && n <= 1000 ? "" : "out of range");
                     }),
              "");
    EXPECT_EQ(cases, 50);
}

TEST_F(ForAll, TellsTheSmallestNumberThatBreaks) {
    const auto below = [](int n) { return n < 137 ? std::string() : "too large: " + std::to_string(n); };
    EXPECT_THAT(forAll(1, 50, NUMBER, SMALLER, below), StartsWith("too large: 137\nfor 137\n"));
}

TEST_F(ForAll, TellsTheShortestListThatBreaks) {
    const auto list = [](Numbers& numbers) {
        std::vector<int> made(numbers.below(200));
        for (int& n : made) {
            n = numbers.whole(0, 100);
        }
        return made;
    };
    const auto shrink = [](const std::vector<int>& made) { return smallerLists(made, SMALLER); };
    // Broken by two elements above 50, at any position.
    const auto check = [](const std::vector<int>& made) {
        std::string all;
        int above = 0;
        for (const int n : made) {
            all += std::to_string(n) + " ";
            above += n > 50 ? 1 : 0;
        }
        return above < 2 ? std::string() : all;
    };
    EXPECT_THAT(forAll(1, 50, list, shrink, check), StartsWith("51 51 \n"));
}

TEST_F(ForAll, TheReportedSeedShowsTheCaseAgain) {
    const auto check = [](int n) { return n % 7 != 0 ? std::string() : std::to_string(n); };
    const auto never = [](int) { return std::vector<int>(); };
    const std::string report = forAll(100, 1000, NUMBER, never, check);
    const std::string name = "KELVRUM_PROPERTY_SEED=";
    const std::uint64_t seed = std::stoull(report.substr(report.find(name) + name.size()));
    EXPECT_GE(seed, 100U);
    EXPECT_EQ(forAll(seed, 1, NUMBER, never, check), report);
}

TEST_F(ForAll, AnExceptionBreaksTheProperty) {
    const auto check = [](int n) {
        if (n > 3) {
            throw std::runtime_error("broken down");
        }
        return std::string();
    };
    EXPECT_THAT(forAll(1, 50, NUMBER, SMALLER, check), HasSubstr("throws: broken down\nfor 4\n"));
}

TEST_F(ForAll, EverySeedMakesOtherNumbers) {
    std::vector<std::uint64_t> firsts;
    for (std::uint64_t seed = 1; seed <= 100; ++seed) {
        firsts.push_back(Numbers(seed).bits());
    }
    std::sort(firsts.begin(), firsts.end());
    EXPECT_EQ(std::unique(firsts.begin(), firsts.end()), firsts.end());
    EXPECT_EQ(Numbers(1).bits(), Numbers(1).bits());
}

} // namespace
} // namespace kelvrum::testing
