// SPDX-License-Identifier: GPL-3.0-or-later
// Saving the batch print settings without room: wherever it ends, the old file stays and nothing else is
// left.
#include "batchprint/SettingsFile.h"
#include "tests/batchprint/SettingsBytes.h"
#include "tests/testing/FileContent.h"
#include "tests/testing/FileSizeLimit.h"
#include "util/Paths.h"

#include <filesystem>
#include <gtest/gtest.h>

namespace kelvrum {

using namespace kelvrum::testing;

namespace fs = std::filesystem;

namespace {

const std::vector<RowSettings> ROWS(ROW_COUNT, RowSettings{true, false, -0.5, 40, 3, true, 1, 2, true});
const std::string OLD(1344, 'o');

#ifdef KELVRUM_HAS_LIMITS
/// A limit for files stands for a full disk.
TEST(SettingsFaults, AFullDisk) {
    const TempFolder folder;
    const std::string path = folder.write("Sammeldruck.cfg", OLD);
    std::error_code error;
    {
        const FileSizeLimit full(0);
        error = saveSettings(ROWS, path);
    }
    EXPECT_EQ(error, std::errc::file_too_large);
    EXPECT_EQ(contentOf(path), OLD);
    EXPECT_EQ(filesIn(folder.base()), std::vector<std::string>{"Sammeldruck.cfg"});
    EXPECT_FALSE(saveSettings(ROWS, path)); // there is room again
    EXPECT_EQ(loadSettings(path).rows, ROWS);
}

TEST(SettingsFaults, WritingEndsAtEveryByte) {
    const TempFolder folder;
    for (const bool replaces : {true, false}) {
        for (rlim_t room = 0; room <= sammeldruck::FILE_SIZE; ++room) {
            const std::string path = folder.at("Sammeldruck.cfg");
            replaces ? static_cast<void>(folder.write("Sammeldruck.cfg", OLD))
                     : static_cast<void>(fs::remove(path));
            std::error_code error;
            {
                const FileSizeLimit limit(room);
                error = saveSettings(ROWS, path);
            }
            if (room == sammeldruck::FILE_SIZE) {
                EXPECT_FALSE(error);
                EXPECT_EQ(loadSettings(path).rows, ROWS);
                break;
            }
            ASSERT_EQ(error, std::errc::file_too_large) << room;
            ASSERT_EQ(fs::exists(path), replaces) << room;
            if (replaces) {
                ASSERT_EQ(contentOf(path), OLD) << room;
            }
            ASSERT_EQ(filesIn(folder.base()).size(), replaces ? 1U : 0U) << room;
        }
    }
}
#endif

TEST(SettingsFaults, TheFolderIsGone) {
    auto folder = std::make_unique<TempFolder>();
    const CurrentFolder inside(folder->path());
    const fs::path path = folder->path();
    folder.reset();
    ASSERT_FALSE(fs::exists(path));
    EXPECT_EQ(saveSettings(ROWS), std::errc::no_such_file_or_directory);
    EXPECT_EQ(loadSettings(), LoadedSettings());
    EXPECT_FALSE(fs::exists(path));
}

} // namespace

} // namespace kelvrum
