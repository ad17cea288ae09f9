// SPDX-License-Identifier: GPL-3.0-or-later
// What painting leaves in the vector registers does not slow down the passes over a series that follow it.
#include "diagram/DiagramSummary.h"
#include "diagram/PolarDiagram.h"
#include "diagram/Readout.h"
#include "tests/testing/Registers.h"

#include <gtest/gtest.h>
#include <vector>

namespace kelvrum {
namespace {

using kelvrum::testing::areUpperHalvesClean;
using kelvrum::testing::fillUpperHalves;
using kelvrum::testing::hasUpperHalves;

class CleanRegisters : public ::testing::Test {
  protected:
    void SetUp() override {
        if (!hasUpperHalves()) {
            GTEST_SKIP() << "this processor has no such registers";
        }
        fillUpperHalves();
    }
    const std::vector<double> times = {44000, 44001};
    const std::vector<double> values = {1, 2};
};

TEST_F(CleanRegisters, WhenDirectionsAreClassified) {
    DiagramState rose;
    rose.AddItem(1, 0.5);
    fillUpperHalves();
    EXPECT_EQ(classify(rose.samples(), 8).maxCount, 1);
    EXPECT_TRUE(areUpperHalvesClean());
}

TEST_F(CleanRegisters, WhenASeriesIsRead) {
    const SeriesReader reader(Series{times, values, values}, 44000, 1);
    EXPECT_TRUE(areUpperHalvesClean());
}

TEST_F(CleanRegisters, WhenASeriesIsSummarised) {
    DiagramProperties properties;
    properties.XLow = 44000;
    properties.XHigh = 44002;
    EXPECT_FALSE(diagramSummary(properties, Series{times, values, values}, 0, std::nullopt, {}).empty());
    EXPECT_TRUE(areUpperHalvesClean());
}

} // namespace
} // namespace kelvrum
