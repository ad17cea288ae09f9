// SPDX-License-Identifier: GPL-3.0-or-later
#include "batchprint/SettingsFile.h"
#include "tests/batchprint/SettingsBytes.h"
#include "tests/testing/FileContent.h"
#include "tests/testing/FileSizeLimit.h"
#include "tests/testing/OrdinaryUser.h"
#include "util/Paths.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>

namespace kelvrum {

using namespace kelvrum::testing;

namespace fs = std::filesystem;

namespace {

const std::vector<RowSettings> TWO_ROWS = {
    {true, false, -0.1, 1e-9, 5, true, 0.30000000000000004, -99999999, true},
    {false, true, 0, 100, 0, false, 7.5, 0, false},
};
const std::vector<MadeRecord> TWO_RECORDS = {
    {1, 0, -0.1, 1e-9, 5, 1, 0.30000000000000004, -99999999, 1},
    {0, 1, 0, 100, 0, 0, 7.5, 0, 0},
};

TEST(SaveSettings, ByteForByte) {
    const TempFolder folder;
    const std::string path = folder.at("Sammeldruck.cfg");
    EXPECT_FALSE(saveSettings(TWO_ROWS, path));
    EXPECT_EQ(contentOf(path), fileOf(TWO_RECORDS));
    EXPECT_EQ(filesIn(folder.base()), std::vector<std::string>{"Sammeldruck.cfg"});
}

TEST(SaveSettings, FirstRecordAsHexadecimals) {
    const SettingsBytes bytes =
        encodeSettings(std::vector<RowSettings>{{true, true, 1, -2, 3, true, 0.5, 100, true}});
    const unsigned char expected[] = {
        0, 0, 0, 0,                   // reserved
        1, 0,                         // printed
        1, 0,                         // automatic
        0, 0, 0, 0, 0, 0, 0xF0, 0x3F, // 1
        0, 0, 0, 0, 0, 0, 0x00, 0xC0, // -2
        3, 0,                         // 15 minutes
        1, 0,                         // limit lines
        0, 0, 0, 0, 0, 0, 0xE0, 0x3F, // 0.5
        0, 0, 0, 0, 0, 0, 0x59, 0x40, // 100
        1, 0,                         // mean line
    };
    for (std::size_t i = 0; i < bytes.size(); ++i) {
        EXPECT_EQ(static_cast<unsigned>(bytes[i]), i < sizeof(expected) ? expected[i] : 0U) << i;
    }
}

TEST(SaveSettings, GoesToTheCurrentFolder) {
    const TempFolder folder;
    const CurrentFolder inside(folder.path());
    EXPECT_FALSE(saveSettings({}));
    EXPECT_EQ(contentOf(folder.at("Sammeldruck.cfg")), std::string(1344, '\0'));
}

/// A file of any length, and of a name in other letters, is replaced as a whole.
TEST(SaveSettings, ReplacesTheOldFile) {
    for (const std::size_t length : {0U, 10U, 1344U, 5000U}) {
        const TempFolder folder;
        const std::string path = folder.write("SAMMELDRUCK.CFG", std::string(length, 'x'));
        EXPECT_FALSE(saveSettings(TWO_ROWS, folder.at("Sammeldruck.cfg")));
        EXPECT_EQ(contentOf(path), fileOf(TWO_RECORDS)) << length;
        EXPECT_EQ(filesIn(folder.base()), std::vector<std::string>{"SAMMELDRUCK.CFG"});
    }
}

TEST(SaveSettings, LoadsAgainExactly) {
    const TempFolder folder;
    const std::string path = folder.at("Sammeldruck.cfg");
    ASSERT_FALSE(saveSettings(TWO_ROWS, path));
    const LoadedSettings loaded = loadSettings(path);
    EXPECT_FALSE(loaded.damaged);
    ASSERT_EQ(loaded.rows.size(), 10U);
    EXPECT_EQ(loaded.rows[0], TWO_ROWS[0]);
    EXPECT_EQ(loaded.rows[1], TWO_ROWS[1]);
    EXPECT_EQ(loaded.rows[2], RowSettings{});
}

TEST(SaveSettings, KeepsPermissionsAndLinks) {
    const TempFolder folder;
    const std::string real = folder.write("daheim/real.cfg", "old");
    const auto rights = fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_write;
    fs::permissions(real, rights);
    fs::create_symlink("daheim/real.cfg", folder.at("Sammeldruck.cfg"));
    EXPECT_FALSE(saveSettings(TWO_ROWS, folder.at("Sammeldruck.cfg")));
    EXPECT_TRUE(fs::is_symlink(folder.at("Sammeldruck.cfg")));
    EXPECT_EQ(contentOf(real), fileOf(TWO_RECORDS));
    EXPECT_EQ(fs::status(real).permissions(), rights);
}

TEST(SaveSettings, NoSuchFolder) {
    const TempFolder folder;
    EXPECT_EQ(saveSettings(TWO_ROWS, folder.at("none/Sammeldruck.cfg")),
              std::errc::no_such_file_or_directory);
    EXPECT_TRUE(saveSettings(TWO_ROWS, ""));
}

TEST(SaveSettings, FolderOfThatName) {
    const TempFolder folder;
    fs::create_directory(folder.at("Sammeldruck.cfg"));
    EXPECT_EQ(saveSettings(TWO_ROWS, folder.at("Sammeldruck.cfg")), std::errc::is_a_directory);
    EXPECT_TRUE(fs::is_directory(folder.at("Sammeldruck.cfg")));
    EXPECT_TRUE(filesIn(folder.base()).empty());
}

/// The fresh file has a name of its own: no other file or folder is in its way.
TEST(SaveSettings, NothingIsInTheWay) {
    const TempFolder folder;
    folder.write("Sammeldruck.cfg", "old");
    fs::create_directory(folder.at("Sammeldruck.cfg.neu"));
    EXPECT_FALSE(saveSettings(TWO_ROWS, folder.at("Sammeldruck.cfg")));
    EXPECT_EQ(contentOf(folder.at("Sammeldruck.cfg")), fileOf(TWO_RECORDS));
    EXPECT_TRUE(fs::is_directory(folder.at("Sammeldruck.cfg.neu")));
}

TEST(SaveSettings, ProtectedFolder) {
    const OrdinaryUser user;
    const TempFolder folder;
    const std::string path = folder.write("Sammeldruck.cfg", "old");
    fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    const std::error_code error = saveSettings(TWO_ROWS, path);
    fs::permissions(folder.path(), fs::perms::owner_all);
    EXPECT_EQ(error, std::errc::permission_denied);
    EXPECT_EQ(contentOf(path), "old");
}

TEST(SaveSettings, ProtectedFile) {
    const OrdinaryUser user;
    const TempFolder folder;
    const std::string path = folder.write("Sammeldruck.cfg", "old");
    fs::permissions(path, fs::perms::owner_read);
    EXPECT_EQ(saveSettings(TWO_ROWS, path), std::errc::permission_denied);
    EXPECT_EQ(contentOf(path), "old");
    EXPECT_EQ(filesIn(folder.base()), std::vector<std::string>{"Sammeldruck.cfg"});
}

#ifdef KELVRUM_HAS_LIMITS
/// The system takes only part of the bytes, as on a full disk.
TEST(SaveSettings, WritingFails) {
    const TempFolder folder;
    const std::string path = folder.write("Sammeldruck.cfg", "old");
    std::error_code error;
    {
        const FileSizeLimit narrow(100);
        error = saveSettings(TWO_ROWS, path);
    }
    EXPECT_EQ(error, std::errc::file_too_large);
    EXPECT_EQ(contentOf(path), "old");
    EXPECT_EQ(filesIn(folder.base()), std::vector<std::string>{"Sammeldruck.cfg"});
}
#endif

} // namespace

} // namespace kelvrum
