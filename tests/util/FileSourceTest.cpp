// SPDX-License-Identifier: GPL-3.0-or-later
// Real files through the reading interface: what is opened, and reads at and after the end.
#include "util/FileSource.h"

#include "tests/testing/OrdinaryUser.h"
#include "tests/testing/TempFolder.h"

#include <gtest/gtest.h>

#include <array>
#include <filesystem>
#include <fstream>
#include <limits>
#include <string>
#include <vector>

namespace kelvrum {
namespace {

namespace fs = std::filesystem;
using testing::OrdinaryUser;
using testing::TempFolder;

std::string readText(FileSource& file, std::uint64_t offset, std::size_t size) {
    std::vector<std::byte> bytes(size, std::byte{'?'});
    const std::size_t got = file.read(offset, bytes);
    EXPECT_LE(got, size);
    std::string text;
    for (std::size_t i = 0; i < got && i < size; ++i) {
        text.push_back(static_cast<char>(bytes[i]));
    }
    return text;
}

TEST(FileSource, ReadsAtOffsets) {
    const TempFolder folder;
    const auto file = openFile(folder.write("Zehn.bin", "0123456789"));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->size(), 10U);
    const struct {
        std::uint64_t offset;
        std::size_t size;
        const char* text;
    } cases[] = {
        {0, 10, "0123456789"},
        {3, 4, "3456"},
        {0, 0, ""},
        {9, 1, "9"},
        {8, 5, "89"},
        {0, 100, "0123456789"},
        {10, 1, ""},
        {11, 1, ""},
        {1000, 5, ""},
        {5, 1, "5"},
        {0, 1, "0"},
        {std::numeric_limits<std::uint64_t>::max(), 4, ""},
        {1ULL << 63, 4, ""},
        {(1ULL << 32) + 3, 4, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(readText(*file, c.offset, c.size), c.text) << c.offset << " + " << c.size;
    }
}

TEST(FileSource, TouchesNothingAfterWhatItGot) {
    const TempFolder folder;
    const auto file = openFile(folder.write("drei.bin", "abc"));
    ASSERT_TRUE(file);
    std::vector<std::byte> bytes(6, std::byte{0xEE});
    EXPECT_EQ(file->read(1, std::span(bytes).first(5)), 2U);
    EXPECT_EQ(bytes[0], std::byte{'b'});
    EXPECT_EQ(bytes[1], std::byte{'c'});
    EXPECT_EQ(bytes[5], std::byte{0xEE});
}

TEST(FileSource, AnEmptyFile) {
    const TempFolder folder;
    const auto file = openFile(folder.write("leer.bin", ""));
    ASSERT_TRUE(file);
    EXPECT_EQ(file->size(), 0U);
    EXPECT_EQ(readText(*file, 0, 8), "");
}

TEST(FileSource, AFileThatIsCutWhileItIsOpen) {
    const TempFolder folder;
    const std::string path = folder.write("kurz.bin", std::string(100000, 'x'));
    const auto file = openFile(path);
    ASSERT_TRUE(file);
    fs::resize_file(path, 3);
    EXPECT_EQ(readText(*file, 0, 100000), "xxx");
    EXPECT_EQ(readText(*file, 50000, 8), "");
}

TEST(FileSource, AnErrorIsNoEndOfTheFile) {
    const TempFolder folder;
    const auto file = openFile(folder.write("file", "abc"));
    std::array<std::byte, 4> into{};
    EXPECT_EQ(file->read(0, into), 3U);
    EXPECT_FALSE(file->readError());
    constexpr std::uint64_t NO_OFFSET = 1ULL << 63U; // negative for the system
    EXPECT_EQ(file->read(NO_OFFSET, into), 0U);
    EXPECT_EQ(file->readError(), std::errc::invalid_argument);
    EXPECT_EQ(file->read(3, into), 0U);
    EXPECT_FALSE(file->readError());
}

TEST(FileSource, OffsetsBeyond32Bits) {
    const TempFolder folder;
    const std::string path = folder.write("weit.bin", "Anfang");
    const std::uint64_t end = (1ULL << 32) + 100;
    std::error_code error;
    fs::resize_file(path, end, error);
    if (error) {
        GTEST_SKIP() << "no room for a sparse file: " << error.message();
    }
    std::fstream(path, std::ios::in | std::ios::out | std::ios::binary)
            .seekp(static_cast<std::streamoff>(end))
        << "Ende";
    const auto file = openFile(path);
    ASSERT_TRUE(file);
    EXPECT_EQ(file->size(), end + 4);
    EXPECT_EQ(readText(*file, end, 10), "Ende");
    EXPECT_EQ(readText(*file, 0, 6), "Anfang");
}

TEST(FileSource, OpensStationPaths) {
    const TempFolder folder;
    folder.write("Data/Kanal04_2020.chn", "x");
    for (const char* path : {"Data/Kanal04_2020.chn", "data\\kanal04_2020.CHN", "DATA/KANAL04_2020.CHN"}) {
        EXPECT_TRUE(openFile(folder.at(path))) << path;
    }
}

TEST(FileSource, OnlyOrdinaryFiles) {
    const TempFolder folder;
    folder.write("Data/Kanal04_2020.chn", "x");
    for (const char* path :
         {"", "Data", "Data/", "fehlt.bin", "Data/fehlt.bin", "fehlt/fehlt.bin", "Data/Kanal04_2020.chn/x"}) {
        EXPECT_FALSE(openFile(folder.at(path))) << path;
    }
    EXPECT_FALSE(openFile(""));
    EXPECT_FALSE(openFile(std::string(100000, 'x')));
#ifndef _WIN32
    EXPECT_FALSE(openFile("/dev/null"));
    EXPECT_FALSE(openFile("C:\\QEL.ini"));
#endif
}

TEST(FileSource, AnUnreadableFile) {
    const OrdinaryUser user;
    const TempFolder folder;
    const std::string path = folder.write("geheim.bin", "x");
    fs::permissions(path, fs::perms::none);
    ASSERT_FALSE(std::ifstream(path).is_open());
    EXPECT_FALSE(openFile(path));
}

} // namespace
} // namespace kelvrum
