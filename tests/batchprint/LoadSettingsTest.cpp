// SPDX-License-Identifier: GPL-3.0-or-later
#include "batchprint/SettingsFile.h"
#include "tests/batchprint/SettingsBytes.h"
#include "tests/testing/FakeFiles.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

using namespace std::string_literals;

const std::vector<MadeRecord> TEN_RECORDS = {
    {1, 0, -0.1, 1e-9, 5, 1, 0.30000000000000004, -99999999, 1},
    {0, 1, 0, 100, 0, 0, 0, 0, 0},
    {1, 1, 1, 2, 1, 1, 3, 4, 1},
    {},
    {},
    {},
    {},
    {},
    {},
    {0, 0, 7.5, 1234567890.125, 4, 0, 8, 9, 1},
};

/// Loads from a folder of its own.
LoadedSettings loadBytes(const std::string& bytes) {
    const TempFolder folder;
    return loadSettings(folder.write("Sammeldruck.cfg", bytes));
}

TEST(LoadSettings, NoFileIsNoDamage) {
    const TempFolder folder;
    EXPECT_EQ(loadSettings(folder.at("Sammeldruck.cfg")), LoadedSettings{});
    EXPECT_EQ(loadSettings(""), LoadedSettings{});
}

TEST(LoadSettings, ComesFromTheCurrentFolder) {
    const TempFolder folder;
    const CurrentFolder inside(folder.path());
    folder.write("Sammeldruck.cfg", fileOf(TEN_RECORDS));
    EXPECT_EQ(loadSettings().rows.size(), 10U);
}

TEST(LoadSettings, EveryFieldOfEveryRow) {
    const LoadedSettings loaded = loadBytes(fileOf(TEN_RECORDS));
    EXPECT_FALSE(loaded.damaged);
    ASSERT_EQ(loaded.rows.size(), 10U);
    const RowSettings first = {true, false, -0.1, 1e-9, 5, true, 0.30000000000000004, -99999999, true};
    const RowSettings second = {false, true, 0, 100, 0, false, 0, 0, false};
    const RowSettings third = {true, true, 1, 2, 1, true, 3, 4, true};
    const RowSettings tenth = {false, false, 7.5, 1234567890.125, 4, false, 8, 9, true};
    EXPECT_EQ(loaded.rows[0], first);
    EXPECT_EQ(loaded.rows[1], second);
    EXPECT_EQ(loaded.rows[2], third);
    EXPECT_EQ(loaded.rows[3], RowSettings{});
    EXPECT_EQ(loaded.rows[9], tenth);
}

TEST(LoadSettings, AnotherLengthIsDamage) {
    const std::string whole = fileOf(TEN_RECORDS);
    for (const std::size_t length : {0U, 1U, 83U, 84U, 840U, 1260U, 1343U, 1345U, 1428U, 5000U}) {
        std::string bytes = whole;
        bytes.resize(length);
        EXPECT_EQ(loadBytes(bytes), (LoadedSettings{{}, true})) << length;
    }
}

TEST(LoadSettings, FolderOfThatNameIsDamage) {
    const TempFolder folder;
    folder.write("Sammeldruck.cfg/x", "");
    EXPECT_EQ(loadSettings(folder.at("Sammeldruck.cfg")), (LoadedSettings{{}, true}));
}

/// An interval that does not exist ends the loading; the rows before it are kept. Slots without a row do not
/// count.
TEST(LoadSettings, Interval) {
    struct Case {
        std::size_t slot;
        std::string bytes; // of the position
        std::size_t rows;
        bool damaged;
    };
    const Case cases[] = {
        {0, "\xFF\xFF"s, 0, true},    // -1
        {0, "\x06\0"s, 0, true},      // 6
        {3, "\x06\0"s, 3, true},      //
        {9, "\xFF\xFF"s, 9, true},    //
        {9, "\0\x01"s, 9, true},      // 256
        {4, "\0\x80"s, 4, true},      // -32768
        {4, "\xFF\x7F"s, 4, true},    // 32767
        {4, "\x05\0"s, 10, false},    // the last choice
        {10, "\xFF\xFF"s, 10, false}, // no row
        {15, "\x06\0"s, 10, false},
    };
    for (const Case& c : cases) {
        const LoadedSettings loaded = loadBytes(patched(fileOf(TEN_RECORDS), c.slot * 84 + 24, c.bytes));
        EXPECT_EQ(loaded.damaged, c.damaged) << c.slot;
        EXPECT_EQ(loaded.rows.size(), c.rows) << c.slot;
        EXPECT_EQ(loaded.damagedRow.has_value(), c.damaged) << c.slot;
    }
}

TEST(LoadSettings, AnyStateButZeroIsChecked) {
    for (const std::string& state : {"\x01\0"s, "\x02\0"s, "\xFF\xFF"s, "\0\x01"s}) {
        std::string bytes = fileOf({});
        for (const std::size_t at : {4U, 6U, 26U, 44U}) {
            bytes = patched(bytes, 84 + at, state);
        }
        const RowSettings row = loadBytes(bytes).rows.at(1);
        EXPECT_TRUE(row.selected && row.automatic && row.limitsShown && row.meanShown);
    }
}

TEST(LoadSettings, ReservedBytesMeanNothing) {
    std::string bytes = fileOf(TEN_RECORDS);
    for (std::size_t record = 0; record < 16; ++record) {
        bytes = patched(bytes, record * 84, "\xFF\xFF\xFF\xFF");
        bytes = patched(bytes, record * 84 + 46, std::string(38, '\xFF'));
    }
    EXPECT_EQ(loadBytes(bytes), loadBytes(fileOf(TEN_RECORDS)));
}

TEST(LoadSettings, NumbersThatAreNone) {
    constexpr double NO_NUMBER = std::numeric_limits<double>::quiet_NaN();
    constexpr double INFINITE = std::numeric_limits<double>::infinity();
    const LoadedSettings loaded = loadBytes(fileOf({{1, 0, NO_NUMBER, INFINITE, 0, 1, -INFINITE, -0.0, 0}}));
    EXPECT_FALSE(loaded.damaged);
    ASSERT_EQ(loaded.rows.size(), 10U);
    EXPECT_TRUE(std::isnan(loaded.rows[0].minimum));
    EXPECT_EQ(loaded.rows[0].maximum, INFINITE);
    EXPECT_EQ(loaded.rows[0].lowerLimit, -INFINITE);
    EXPECT_TRUE(std::signbit(loaded.rows[0].upperLimit));
}

/// A file of the right length whose reading fails on the way.
TEST(LoadSettings, ReadingFails) {
    for (const std::size_t readable : {0U, 500U, 1343U}) {
        const auto open = openerOf(FakeFile{.bytes = std::string(1344, '\0'), .failsAt = readable});
        EXPECT_EQ(loadSettings("Sammeldruck.cfg", open), (LoadedSettings{{}, true})) << readable;
    }
}

} // namespace

} // namespace kelvrum
