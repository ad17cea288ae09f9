// SPDX-License-Identifier: GPL-3.0-or-later
// Saving and loading the batch print settings, for any rows and for any bytes.
#include "batchprint/SettingsFile.h"
#include "tests/batchprint/SettingsBytes.h"
#include "tests/testing/Property.h"

#include <array>
#include <bit>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>
#include <sstream>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

using Rows = std::vector<RowSettings>;

/// Any double: no numbers and zeros of both signs too.
double madeDouble(Numbers& numbers) {
    constexpr std::array AWKWARD = {0.0,
                                    -0.0,
                                    1e-300,
                                    5e-324,
                                    99999900.0,
                                    -std::numeric_limits<double>::max(),
                                    std::numeric_limits<double>::infinity()};
    return numbers.oneIn(3)   ? numbers.oneOf(AWKWARD)
           : numbers.oneIn(2) ? std::bit_cast<double>(numbers.bits())
                              : numbers.between(-1000, 1000);
}

RowSettings madeRow(Numbers& numbers) {
    return {numbers.oneIn(2),    numbers.oneIn(2),    madeDouble(numbers),
            madeDouble(numbers), numbers.whole(0, 5), numbers.oneIn(2),
            madeDouble(numbers), madeDouble(numbers), numbers.oneIn(2)};
}

Rows madeRows(Numbers& numbers) {
    Rows rows(numbers.below(ROW_COUNT + 1));
    for (RowSettings& row : rows) {
        row = madeRow(numbers);
    }
    return rows;
}

std::vector<RowSettings> plainerRows(const RowSettings& row) {
    std::vector<RowSettings> plainer;
    const RowSettings standard;
    const auto each = [&](auto member) {
        if (row.*member != standard.*member) { // a NaN always does
            plainer.push_back(row);
            plainer.back().*member = standard.*member;
        }
    };
    each(&RowSettings::selected);
    each(&RowSettings::automatic);
    each(&RowSettings::minimum);
    each(&RowSettings::maximum);
    each(&RowSettings::interval);
    each(&RowSettings::limitsShown);
    each(&RowSettings::lowerLimit);
    each(&RowSettings::upperLimit);
    each(&RowSettings::meanShown);
    return plainer;
}

const auto SHRINK = [](const Rows& rows) { return smallerLists(rows, plainerRows); };

/// The same to the last bit, so that a NaN equals itself.
bool same(const RowSettings& a, const RowSettings& b) {
    const auto bits = [](double v) { return std::bit_cast<std::uint64_t>(v); };
    return a.selected == b.selected && a.automatic == b.automatic && bits(a.minimum) == bits(b.minimum) &&
           bits(a.maximum) == bits(b.maximum) && a.interval == b.interval && a.limitsShown == b.limitsShown &&
           bits(a.lowerLimit) == bits(b.lowerLimit) && bits(a.upperLimit) == bits(b.upperLimit) &&
           a.meanShown == b.meanShown;
}

std::string textOf(const Rows& rows) {
    std::ostringstream out;
    out.precision(std::numeric_limits<double>::max_digits10);
    for (const RowSettings& r : rows) {
        out << '{' << r.selected << ' ' << r.automatic << ' ' << r.minimum << ' ' << r.maximum << ' '
            << r.interval << ' ' << r.limitsShown << ' ' << r.lowerLimit << ' ' << r.upperLimit << ' '
            << r.meanShown << "} ";
    }
    return out.str();
}

TEST(SettingsProperties, LoadingWhatWasSavedGivesTheSameRows) {
    const TempFolder folder;
    const std::string path = folder.at("Sammeldruck.cfg");
    const auto check = [&path](const Rows& rows) -> std::string {
        if (const std::error_code error = saveSettings(rows, path)) {
            return error.message();
        }
        const LoadedSettings loaded = loadSettings(path);
        if (loaded.damaged || loaded.rows.size() != ROW_COUNT) {
            return "damaged: " + textOf(rows);
        }
        for (std::size_t i = 0; i < ROW_COUNT; ++i) {
            if (!same(loaded.rows[i], i < rows.size() ? rows[i] : RowSettings())) {
                return "row " + std::to_string(i) + " is " + textOf({loaded.rows[i]}) + "of " + textOf(rows);
            }
        }
        return {};
    };
    EXPECT_EQ(forAll(1, 300, madeRows, SHRINK, check), "");
}

/// Bytes that no program of ours has written: rows come out, or damage, and what came out is kept from then
/// on.
TEST(SettingsProperties, WhatWasLoadedOnceStaysTheSame) {
    const auto generate = [](Numbers& numbers) {
        std::string bytes = fileOf({});
        const int spoiled = numbers.whole(0, 200);
        for (int i = 0; i < spoiled; ++i) {
            bytes[numbers.below(bytes.size())] = static_cast<char>(numbers.below(256));
        }
        for (std::size_t row = 0; row < ROW_COUNT && numbers.oneIn(2); ++row) {
            bytes[row * 84 + 24] = static_cast<char>(numbers.below(6));
            bytes[row * 84 + 25] = 0;
        }
        return bytes;
    };
    const auto shrink = [](const std::string& bytes) {
        std::vector<std::string> smaller;
        for (std::size_t i = 0; i < bytes.size(); ++i) {
            if (bytes[i] != '\0') {
                smaller.push_back(bytes);
                smaller.back()[i] = '\0';
            }
        }
        return smaller;
    };
    const auto check = [](const std::string& bytes) -> std::string {
        SettingsBytes raw;
        std::memcpy(raw.data(), bytes.data(), raw.size());
        const LoadedSettings first = decodeSettings(raw);
        const LoadedSettings second = decodeSettings(encodeSettings(first.rows));
        for (std::size_t i = 0; i < first.rows.size(); ++i) {
            if (second.damaged || !same(first.rows[i], second.rows[i])) {
                return "row " + std::to_string(i) + " of " + textOf(first.rows);
            }
        }
        return first.damaged == (first.rows.size() < ROW_COUNT) ? "" : "damage and rows do not fit";
    };
    EXPECT_EQ(forAll(2, 500, generate, shrink, check), "");
}

} // namespace

} // namespace kelvrum
