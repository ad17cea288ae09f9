// SPDX-License-Identifier: GPL-3.0-or-later
// From a block of minute values to one value: sum, mean, other modes, bounds.
#include "data/Averaging.h"

#include "config/ChannelTable.h"

#include <gtest/gtest.h>

#include <limits>
#include <vector>

namespace kelvrum {
namespace {

constexpr double NAN_VALUE = std::numeric_limits<double>::quiet_NaN();
constexpr double INFINITE = std::numeric_limits<double>::infinity();

TEST(BlockAverage, SumAndMean) {
    struct Row {
        const char* what;
        std::vector<double> block;
        double sum;
        double mean;
    };
    const Row rows[] = {
        {"no minutes", {}, INVALID_VALUE, INVALID_VALUE},
        {"all zero", {0, 0, 0}, INVALID_VALUE, INVALID_VALUE},
        {"negative zero", {-0.0}, INVALID_VALUE, INVALID_VALUE},
        {"all marked", {INVALID_VALUE, INVALID_VALUE}, INVALID_VALUE, INVALID_VALUE},
        {"no numbers", {NAN_VALUE, INFINITE, -INFINITE}, INVALID_VALUE, INVALID_VALUE},
        {"cancelling", {1, -1}, 1e-300, 1e-300},
        {"zeros do not count", {0, 6, 0, 2}, 8, 4},
        {"markers do not count", {6, INVALID_VALUE, -INVALID_VALUE, 2, 1e300, -1e300}, 8, 4},
        {"no number does not count", {6, NAN_VALUE, INFINITE, 2, -INFINITE}, 8, 4},
        {"negative", {-3, -5}, -8, -4},
        {"just present", {99999899}, 99999899, 99999899},
        {"just absent", {99999900}, INVALID_VALUE, INVALID_VALUE},
        {"just present below", {-99999899}, -99999899, -99999899},
        {"sum too great", {60000000, 60000000}, INVALID_VALUE, 60000000},
        {"sum too small", {-60000000, -60000000}, INVALID_VALUE, -60000000},
        {"sum at the marker", {99999800, 100}, INVALID_VALUE, 49999950},
        {"tiny", {1e-300, 3e-300}, 1e-300 + 3e-300, (1e-300 + 3e-300) / 2},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(blockAverage(row.block, MODE_SUM, {}), row.sum) << row.what;
        EXPECT_EQ(blockAverage(row.block, MODE_MEAN, {}), row.mean) << row.what;
        EXPECT_EQ(blockAverage(row.block, MODE_MEAN, row.block), row.mean) << row.what;
    }
}

TEST(BlockAverage, OtherModesGiveZeroWithoutALook) {
    const std::vector<double> block = {5, NAN_VALUE, 0, INVALID_VALUE};
    for (const std::int32_t mode : {-1, 2, 3, 35, 37, 360, std::numeric_limits<std::int32_t>::max()}) {
        EXPECT_EQ(blockAverage(block, mode, block), 0) << mode;
        EXPECT_EQ(blockAverage({}, mode, {}), 0) << mode;
        EXPECT_EQ(blockAverage(block, mode, {}, 10, 1), 0) << mode;
    }
}

TEST(BlockAverage, Bounds) {
    struct Row {
        std::int32_t mode;
        std::vector<double> block;
        double upper, lower;
        double value;
    };
    const Row rows[] = {
        {MODE_MEAN, {4, 6}, 5, -5, 5},
        {MODE_MEAN, {4, 6}, 4.9, -5, INVALID_VALUE},
        {MODE_MEAN, {4, 6}, 9, 5, 5},
        {MODE_MEAN, {4, 6}, 9, 5.1, INVALID_VALUE},
        {MODE_SUM, {4, 6}, 9, -9, INVALID_VALUE},
        {MODE_SUM, {4, 6}, 10, -9, 10},
        {MODE_SUM, {1, -1}, 10, -10, 1e-300},
        {MODE_SUM, {1, -1}, 10, 0.5, INVALID_VALUE}, // the bounds are tested before the zero is replaced
        {MODE_SUM, {1, -1}, 0, 0, 1e-300},
        {MODE_WIND_DIRECTION, {90, 90}, 80, 0, INVALID_VALUE},
        {MODE_WIND_DIRECTION, {180, 180}, 360, 181, INVALID_VALUE},
        {MODE_WIND_DIRECTION, {0, 0}, 360, 0, INVALID_VALUE},
    };
    const std::vector<double> speeds = {2, 2};
    for (const Row& row : rows) {
        EXPECT_EQ(blockAverage(row.block, row.mode, speeds, row.upper, row.lower), row.value)
            << row.mode << " " << row.upper << " " << row.lower;
    }
}

TEST(AverageBlocks, EachBlockByItself) {
    const std::vector<double> values = {1, 3, 0, 0, 0, 7, INVALID_VALUE, -2, 1, -1};
    BlockRun run;
    run.blocks = 5;
    run.values = values;

    WindMeans winds;
    std::vector<double> results(5, 42);
    averageBlocks(run, MODE_MEAN, results, winds);
    EXPECT_EQ(results, (std::vector<double>{2, INVALID_VALUE, 7, -2, 1e-300}));

    averageBlocks(run, MODE_SUM, results, winds);
    EXPECT_EQ(results, (std::vector<double>{4, INVALID_VALUE, 7, -2, 1e-300}));

    averageBlocks(run, 2, results, winds);
    EXPECT_EQ(results, std::vector<double>(5, 0));
}

TEST(AverageBlocks, WindTakesThePairedMinutes) {
    const std::vector<double> values = {180, 180, 180, 270, 90, 180};
    const std::vector<double> paired = {2, 3, 0, 1, 0, 0};
    BlockRun run;
    run.blocks = 3;
    run.values = values;
    run.paired = paired;
    WindMeans winds;
    std::vector<double> results(3, 42);
    averageBlocks(run, MODE_WIND_DIRECTION, results, winds);
    EXPECT_NEAR(results[0], 180, 1e-9);
    EXPECT_NEAR(results[1], 270, 1e-6);
    EXPECT_EQ(results[2], INVALID_VALUE);

    run.paired = {};
    averageBlocks(run, MODE_WIND_DIRECTION, results, winds);
    EXPECT_EQ(results, std::vector<double>(3, INVALID_VALUE));
}

TEST(AverageBlocks, SingleMinutesAreBlocksLikeOthers) {
    const std::vector<double> values = {5,         -5,        0,        -0.0,  99999900, -99999900, 99999899,
                                        -99999899, NAN_VALUE, INFINITE, 1e300, 1e-300,   -INFINITE, 999999};
    BlockRun run;
    run.blocks = values.size();
    run.values = values;
    WindMeans winds;
    for (const std::int32_t mode : {0, 1, 2}) {
        std::vector<double> results(values.size(), 42);
        averageBlocks(run, mode, results, winds);
        for (std::size_t i = 0; i < values.size(); ++i) {
            EXPECT_EQ(results[i], blockAverage({&values[i], 1}, mode, {})) << mode << " " << values[i];
        }
    }
}

TEST(AverageBlocks, AnEmptyRun) {
    WindMeans winds;
    averageBlocks(BlockRun{}, MODE_MEAN, {}, winds);
}

} // namespace
} // namespace kelvrum
