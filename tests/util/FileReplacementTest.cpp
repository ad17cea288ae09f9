// SPDX-License-Identifier: GPL-3.0-or-later
// Replacing files as a whole: permissions, links, reasons, and leftovers of killed programs.
#include "util/FileReplacement.h"

#include "tests/testing/FileContent.h"
#include "tests/testing/OrdinaryUser.h"
#include "tests/testing/TempFolder.h"
#include "util/Paths.h"

#include <gtest/gtest.h>

#include <fstream>
#include <string>
#include <vector>

namespace kelvrum {
namespace {

namespace fs = std::filesystem;
using testing::contentOf;
using testing::CurrentFolder;
using testing::OrdinaryUser;
using testing::TempFolder;
using Names = std::vector<std::string>;

std::span<const std::byte> bytesOf(std::string_view text) { return std::as_bytes(std::span(text)); }

TEST(FileReplacement, OfAnyLength) {
    for (const std::string& before : {std::string(), std::string("old"), std::string(100'000, 'o')}) {
        for (const std::string& after : {std::string(), std::string("new"), std::string(100'000, 'n')}) {
            const TempFolder folder;
            const std::string path = folder.write("Datei.bin", before);
            EXPECT_FALSE(replaceFile(folder.at("DATEI.BIN"), bytesOf(after)));
            EXPECT_TRUE(contentOf(path) == after);
            EXPECT_EQ(filesIn(folder.base()), Names{"Datei.bin"});
        }
    }
}

TEST(FileReplacement, MakesAFileThatIsNotThere) {
    const TempFolder folder;
    EXPECT_FALSE(replaceFile(folder.at("Neu.bin"), bytesOf("new")));
    EXPECT_EQ(contentOf(folder.at("Neu.bin")), "new");
    const CurrentFolder inside(folder.path());
    EXPECT_FALSE(replaceFile("Bloss.bin", bytesOf("bare")));
    EXPECT_EQ(contentOf(folder.at("Bloss.bin")), "bare");
    EXPECT_EQ(filesIn(folder.base()), (Names{"Bloss.bin", "Neu.bin"}));
}

TEST(FileReplacement, KeepsPermissionsAndLinks) {
    const TempFolder folder;
    for (const auto permissions :
         {fs::perms::owner_read | fs::perms::owner_write,
          fs::perms::owner_read | fs::perms::owner_write | fs::perms::group_write | fs::perms::others_read}) {
        const std::string real = folder.write("daheim/Datei.bin", "old");
        fs::permissions(real, permissions);
        fs::remove(folder.at("Verweis.bin"));
        fs::create_symlink("daheim/Datei.bin", folder.at("Verweis.bin"));
        EXPECT_FALSE(replaceFile(folder.at("Verweis.bin"), bytesOf("new")));
        EXPECT_TRUE(fs::is_symlink(folder.at("Verweis.bin")));
        EXPECT_EQ(contentOf(real), "new");
        EXPECT_EQ(fs::status(real).permissions(), permissions);
        EXPECT_EQ(filesIn(folder.at("daheim")), Names{"Datei.bin"});
    }
}

/// The fresh file has a name of its own, and can be read by its owner alone when the target may be secret.
TEST(FileReplacement, TheFreshFileIsNoOtherFile) {
    const TempFolder folder;
    const std::string path = folder.write("Datei.bin", "old");
    folder.write("Datei.bin.neu", "of the user");
    {
        std::error_code error;
        const FileReplacement first(path, error);
        EXPECT_FALSE(error);
        const FileReplacement second(path, error);
        EXPECT_FALSE(error);
        EXPECT_NE(first.fresh(), second.fresh());
        for (const fs::path& fresh : {first.fresh(), second.fresh()}) {
            EXPECT_EQ(fresh.parent_path(), fs::canonical(folder.path()));
            EXPECT_TRUE(fs::is_regular_file(fresh)); // one that is in use is no leftover
            EXPECT_EQ(fs::status(fresh).permissions(), fs::perms::owner_read | fs::perms::owner_write);
        }
    }
    EXPECT_EQ(contentOf(path), "old"); // not committed
    EXPECT_FALSE(replaceFile(path, bytesOf("new")));
    EXPECT_EQ(contentOf(folder.at("Datei.bin.neu")), "of the user");
    EXPECT_EQ(filesIn(folder.base()), (Names{"Datei.bin", "Datei.bin.neu"}));
}

/// The contents may come from a writer that opens the fresh file by its name.
TEST(FileReplacement, WrittenByTheCaller) {
    const TempFolder folder;
    const std::string path = folder.write("Datei.bin", "old");
    std::error_code error;
    FileReplacement replacement(path, error);
    ASSERT_FALSE(error);
    std::ofstream(replacement.fresh(), std::ios::binary | std::ios::trunc) << "new";
    EXPECT_EQ(contentOf(path), "old");
    EXPECT_FALSE(replacement.commit());
    EXPECT_EQ(contentOf(path), "new");
    EXPECT_EQ(filesIn(folder.base()), Names{"Datei.bin"});
}

#ifndef _WIN32
/// A program that was killed has left its fresh file; what only looks like one stays.
TEST(FileReplacement, LeftoversAreRemovedByTheNextSaving) {
    const TempFolder folder;
    const std::string path = folder.write("Datei.bin", "old");
    folder.write("kelvrum-0123456789ab.neu", "half");
    folder.write("kelvrum-ffffffffffff.neu", "");
    const Names others = {"kelvrum-0123456789AB.neu", "kelvrum-0123456789abc.neu",
                          "kelvrum-0123456789ab.neu.pdf", "xkelvrum-0123456789ab.neu", "kelvrum-.neu"};
    for (const std::string& name : others) {
        folder.write(name, "of the user");
    }
    fs::create_directory(folder.at("kelvrum-aaaaaaaaaaaa.neu"));
    fs::create_symlink("Datei.bin", folder.at("kelvrum-bbbbbbbbbbbb.neu"));
    EXPECT_FALSE(replaceFile(path, bytesOf("new")));
    EXPECT_EQ(contentOf(path), "new");
    EXPECT_FALSE(fs::exists(folder.at("kelvrum-0123456789ab.neu")));
    EXPECT_FALSE(fs::exists(folder.at("kelvrum-ffffffffffff.neu")));
    EXPECT_TRUE(fs::is_directory(folder.at("kelvrum-aaaaaaaaaaaa.neu")));
    EXPECT_TRUE(fs::is_symlink(folder.at("kelvrum-bbbbbbbbbbbb.neu")));
    for (const std::string& name : others) {
        EXPECT_EQ(contentOf(folder.path() / name), "of the user") << name;
    }
}
#endif

TEST(FileReplacement, TheSystemsReason) {
    const TempFolder folder;
    fs::create_directory(folder.at("Ordner"));
    folder.write("Datei", "");
    const struct {
        std::string path;
        std::errc reason;
    } cases[] = {
        {"", std::errc::no_such_file_or_directory},
        {folder.at("Ordner"), std::errc::is_a_directory},
        {folder.at("fehlt/Datei.bin"), std::errc::no_such_file_or_directory},
        {folder.at("Datei/Datei.bin"), std::errc::not_a_directory},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(replaceFile(c.path, bytesOf("new")), c.reason) << c.path;
    }
    if (fs::exists("/dev/full")) {
        EXPECT_EQ(replaceFile("/dev/full", bytesOf("new")), std::errc::invalid_argument);
        NativeFile full;
        ASSERT_FALSE(full.open("/dev/full", NativeFile::Open::existing));
        EXPECT_EQ(full.write(0, bytesOf("new")), std::errc::no_space_on_device);
    }
    EXPECT_EQ(filesIn(folder.base()), Names{"Datei"});
}

TEST(FileReplacement, ProtectedFileAndFolder) {
    const OrdinaryUser user;
    const TempFolder folder;
    const std::string path = folder.write("Datei.bin", "old");
    fs::permissions(path, fs::perms::owner_read);
    EXPECT_EQ(replaceFile(path, bytesOf("new")), std::errc::permission_denied);
    fs::permissions(path, fs::perms::owner_all);
    fs::permissions(folder.path(), fs::perms::owner_read | fs::perms::owner_exec);
    EXPECT_EQ(replaceFile(path, bytesOf("new")), std::errc::permission_denied);
    fs::permissions(folder.path(), fs::perms::owner_all);
    EXPECT_EQ(contentOf(path), "old");
    EXPECT_EQ(filesIn(folder.base()), Names{"Datei.bin"});
}

} // namespace
} // namespace kelvrum
