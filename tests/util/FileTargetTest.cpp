// SPDX-License-Identifier: GPL-3.0-or-later
// Real files through the writing interface: what is opened or created, and writes at, in and after the end.
#include "util/FileTarget.h"

#include "tests/testing/FileContent.h"
#include "tests/testing/OrdinaryUser.h"
#include "tests/testing/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <string>
#include <system_error>

namespace kelvrum {
namespace {

namespace fs = std::filesystem;
using namespace std::string_literals;
using testing::contentOf;
using testing::OrdinaryUser;
using testing::TempFolder;

std::error_code writeText(FileTarget& file, std::uint64_t offset, std::string_view text) {
    return file.write(offset, std::as_bytes(std::span(text)));
}

TEST(FileTarget, WritesAtOffsets) {
    const struct {
        std::string before;
        std::uint64_t offset;
        std::string text;
        std::string after;
    } cases[] = {
        {"0123456789", 0, "ab", "ab23456789"},
        {"0123456789", 4, "ab", "0123ab6789"},
        {"0123456789", 8, "ab", "01234567ab"},
        {"0123456789", 9, "ab", "012345678ab"},
        {"0123456789", 10, "ab", "0123456789ab"},
        {"0123456789", 13, "ab", "0123456789\0\0\0ab"s},
        {"0123456789", 0, "\0\xff\n\r"s, "\0\xff\n\r456789"s},
        {"0123456789", 3, "", "0123456789"},
        {"0123456789", 20, "", "0123456789"}, // nothing written, nothing grown
        {"", 0, "ab", "ab"},
        {"", 3, "ab", "\0\0\0ab"s},
        {"0123456789", 5, std::string(100'000, 'x'), "01234" + std::string(100'000, 'x')},
    };
    for (const auto& c : cases) {
        const TempFolder folder;
        const std::string path = folder.write("Ziel.bin", c.before);
        {
            const OpenedTarget target = openTarget(path);
            ASSERT_TRUE(target.file) << target.error.message();
            EXPECT_FALSE(target.error);
            EXPECT_EQ(contentOf(path), c.before); // opening alone changes nothing
            EXPECT_FALSE(writeText(*target.file, c.offset, c.text));
            EXPECT_TRUE(contentOf(path) == c.after) << c.offset; // at once, not at the end
        }
        EXPECT_TRUE(contentOf(path) == c.after) << c.offset;
    }
}

TEST(FileTarget, SeveralWrites) {
    const TempFolder folder;
    const OpenedTarget target = openTarget(folder.at("Ziel.bin"));
    ASSERT_TRUE(target.file);
    EXPECT_FALSE(writeText(*target.file, 6, "gh"));
    EXPECT_FALSE(writeText(*target.file, 0, "ab"));
    EXPECT_FALSE(writeText(*target.file, 1, "XY"));
    EXPECT_EQ(contentOf(folder.at("Ziel.bin")), "aXY\0\0\0gh"s);
}

TEST(FileTarget, Creates) {
    const TempFolder folder;
    fs::create_directory(folder.path() / "Data");
    EXPECT_TRUE(openTarget(folder.base() + "DATA\\Neu.bin").file);
    EXPECT_TRUE(fs::is_regular_file(folder.path() / "Data" / "Neu.bin"));
    EXPECT_EQ(contentOf(folder.path() / "Data" / "Neu.bin"), "");

    fs::create_symlink("Ferne.bin", folder.path() / "Verweis.bin"); // to a file that is still to come
    const OpenedTarget target = openTarget(folder.at("Verweis.bin"));
    ASSERT_TRUE(target.file) << target.error.message();
    EXPECT_FALSE(writeText(*target.file, 0, "x"));
    EXPECT_EQ(contentOf(folder.at("Ferne.bin")), "x");
}

/// A file is found in whatever case its name is, and no second one is made.
TEST(FileTarget, FindsTheNameInAnyCase) {
    const TempFolder folder;
    folder.write("Data/KANAL06_2020.CHN", "0123");
    const OpenedTarget target = openTarget(folder.base() + "data\\Kanal06_2020.chn");
    ASSERT_TRUE(target.file);
    EXPECT_FALSE(writeText(*target.file, 1, "x"));
    EXPECT_EQ(contentOf(folder.at("Data/KANAL06_2020.CHN")), "0x23");
    EXPECT_EQ(std::distance(fs::directory_iterator(folder.path() / "Data"), {}), 1);
}

TEST(FileTarget, WhatCannotBeOpened) {
    const TempFolder folder;
    fs::create_directory(folder.path() / "Ordner");
    folder.write("Datei", "");
    fs::create_symlink("Schleife", folder.path() / "Schleife");
    const struct {
        std::string path;
        std::errc reason;
    } cases[] = {
        {"", std::errc::no_such_file_or_directory},
        {folder.at("Ordner"), std::errc::is_a_directory},
        {folder.at("fehlt/Neu.bin"), std::errc::no_such_file_or_directory},
        {folder.at("Datei/Neu.bin"), std::errc::not_a_directory},
        {folder.at("Schleife"), std::errc::too_many_symbolic_link_levels},
        {folder.at(std::string(1000, 'x')), std::errc::filename_too_long},
#ifndef _WIN32
        {"C:\\Neu.bin", std::errc::no_such_file_or_directory},
#endif
    };
    for (const auto& c : cases) {
        const OpenedTarget target = openTarget(c.path);
        EXPECT_FALSE(target.file) << c.path;
        EXPECT_EQ(target.error, c.reason) << c.path;
    }
}

TEST(FileTarget, AReadOnlyFile) {
    const OrdinaryUser user;
    const TempFolder folder;
    const std::string path = folder.write("Fest.bin", "x");
    fs::permissions(path, fs::perms::owner_read);
    const OpenedTarget target = openTarget(path);
    EXPECT_FALSE(target.file);
    EXPECT_EQ(target.error, std::errc::permission_denied);
}

TEST(FileTarget, AFullDisk) {
    if (!fs::exists("/dev/full")) {
        GTEST_SKIP() << "this system has no device that is always full";
    }
    const OpenedTarget target = openTarget("/dev/full");
    ASSERT_TRUE(target.file) << target.error.message();
    EXPECT_EQ(writeText(*target.file, 8, "x"), std::errc::no_space_on_device);
    EXPECT_TRUE(writeText(*target.file, 8, "x")); // nor any later write
}

} // namespace
} // namespace kelvrum
