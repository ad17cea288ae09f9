// SPDX-License-Identifier: GPL-3.0-or-later
// Station paths: existence, drive letters, letters of any case, both separators.
#include "util/Paths.h"

#include "tests/testing/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelvrum {
namespace {

namespace fs = std::filesystem;
using testing::CurrentFolder;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using testing::TempFolder;

#ifdef _WIN32
constexpr bool HAS_DRIVES = true;
#else
constexpr bool HAS_DRIVES = false;
#endif

TEST(Paths, ExistenceWithoutRegardToCaseAndSeparator) {
    const TempFolder folder;
    folder.write("Data/Kanal04_2020.chn", "x");
    folder.write("Böen/GRÖSSE.txt", "x");
    const CurrentFolder current(folder.path());
    const struct {
        const char* path;
        bool exists;
    } cases[] = {
        {"", false},
        {" ", false},
        {"Data/Kanal04_2020.chn", true},
        {"data\\kanal04_2020.chn", true},
        {"DATA\\KANAL04_2020.CHN", true},
        {"dAtA/kAnAl04_2020.cHn", true},
        {".\\Data\\Kanal04_2020.chn", true},
        {"Data\\..\\Data\\Kanal04_2020.chn", true},
        {"Data", true}, // a folder has attributes, too
        {"data\\", true},
        {"Data/", true},
        {".", true},
        {"Data\\Kanal05_2020.chn", false},
        {"Data\\Kanal04_2020.ch", false},
        {"Data\\Kanal04_2020.chn\\x", false},
        {"Daten\\Kanal04_2020.chn", false},
        {"böen\\grösse.TXT", true},
        {"BÖEN/GRÖSSE.TXT", true},
        {"Bäen/GRÖSSE.txt", false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(fileExists(c.path), c.exists) << c.path;
    }
    EXPECT_TRUE(fileExists(folder.at("DATA\\kanal04_2020.CHN")));
    EXPECT_FALSE(fileExists(std::string(100000, 'x')));
    EXPECT_FALSE(fileExists("\xFF\xFE\xC3"));
}

TEST(Paths, LettersOfEveryScriptMatch) {
    const TempFolder folder;
    for (const char* name : {"šumava/Žďár.chn", "Œuvre", "ÿ", "Σταθμός/ΔΕΔΟΜΕΝΑ", "Станция/данные", "Ґанок",
                             "Straße", "Ünye", "ａｂｃ"}) {
        folder.write(name, "x");
    }
    const struct {
        const char* path;
        bool exists;
    } cases[] = {
        {"ŠUMAVA\\ŽĎÁR.CHN", true},
        {"Šumava/žďár.chn", true},
        {"SUMAVA/Zdar.chn", false},
        {"œUVRE", true},
        {"Ÿ", true},
        {"ΣΤΑΘΜΌΣ/δεδομενα", true}, // both small forms of Σ
        {"σταθμόσ\\Δεδομενα", true},
        {"СТАНЦИЯ\\ДАННЫЕ", true},
        {"ґАНОК", true},
        {"Ганок", false},
        {"STRAẞE", true},
        {"STRASSE", false},
        {"üNYE", true},
        {"ＡＢＣ", true},
        {"ABC", false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(fileExists(folder.at(c.path)), c.exists) << c.path;
    }
    EXPECT_EQ(nativePath(folder.at("ŠUMAVA\\neu.chn")), folder.path() / "šumava/neu.chn");
}

TEST(Paths, ABareLetterIsADrive) {
    if (HAS_DRIVES) {
        GTEST_SKIP() << "which drives exist depends on the machine";
    }
    const TempFolder folder;
    for (const char* name : {"a", "z", "a:", "c:x", "1", "ab"}) {
        folder.write(name, "x");
    }
    const CurrentFolder current(folder.path());
    for (const char* drive :
         {"a", "A", "z", "Z", "a:", "A:", "c:x", "C:\\", "c:/", "D:\\Projekte\\A\\QEL.ini"}) {
        EXPECT_FALSE(fileExists(drive)) << drive;
    }
    for (const char* path : {"./a", ".\\A", "1", "ab", "AB"}) {
        EXPECT_TRUE(fileExists(path)) << path;
    }
    folder.write("\u212A", "x"); // the sign of the unit kelvin, a capital of k, but no letter of a drive
    EXPECT_TRUE(fileExists("\u212A"));
}

TEST(Paths, NativePathMatchesEachComponent) {
    const TempFolder folder;
    folder.write("Projekte/Station A/Data/Kanal04_2020.chn", "x");
    const auto native = [&](std::string_view path) { return nativePath(folder.at(path)); };
    const fs::path root = folder.path();
    const fs::path file = root / "Projekte" / "Station A" / "Data" / "Kanal04_2020.chn";
    EXPECT_EQ(native("Projekte/Station A/Data/Kanal04_2020.chn"), file);
    EXPECT_EQ(native("PROJEKTE\\station a\\data\\kanal04_2020.CHN"), file);
    EXPECT_EQ(native("projekte\\Station A/data\\Kanal99.CHN"), root / "Projekte/Station A/Data/Kanal99.CHN");
    EXPECT_EQ(native("projekte\\Neu\\Data"), root / "Projekte/Neu/Data");
    EXPECT_EQ(native("Nichts\\Neu.bin"), root / "Nichts/Neu.bin");
}

TEST(Paths, SeveralMatches) {
    const TempFolder folder;
    for (const char* name : {"data/low.bin", "Data/mixed.bin", "dAta/other.bin"}) {
        folder.write(name, "x");
    }
    if (foldersIn(folder.base()).size() != 3) {
        GTEST_SKIP() << "a file system that does not tell the case of letters";
    }
    EXPECT_EQ(nativePath(folder.at("data")), folder.path() / "data");
    EXPECT_EQ(nativePath(folder.at("dAta")), folder.path() / "dAta");
    EXPECT_EQ(nativePath(folder.at("DATA")), folder.path() / "Data");
    EXPECT_EQ(nativePath(folder.at("DATA\\MIXED.bin")), folder.path() / "Data/mixed.bin");
}

TEST(Paths, NoNativePath) {
    EXPECT_EQ(nativePath(""), std::nullopt);
    const TempFolder folder;
    const std::string cut = folder.write("da.bin", "x") + std::string("\0fehlt", 6);
    EXPECT_EQ(nativePath(cut), std::nullopt) << "no machine's path holds a NUL";
    EXPECT_FALSE(fileExists(cut));
    if (!HAS_DRIVES) {
        for (const char* drive : {"d:", "D:\\Projekte\\A\\QEL.ini", "e:/Messdaten", "c:x"}) {
            EXPECT_EQ(nativePath(drive), std::nullopt) << drive;
        }
    }
}

TEST(Paths, RelativeToTheCurrentFolder) {
    const TempFolder folder;
    folder.write("Data/Kanal04_2020.chn", "x");
    const CurrentFolder current(folder.path());
    const auto found = nativePath("data\\kanal04_2020.chn");
    ASSERT_TRUE(found.has_value());
    EXPECT_EQ(fs::weakly_canonical(*found), fs::weakly_canonical(folder.path() / "Data/Kanal04_2020.chn"));
}

TEST(Paths, StationPath) {
    EXPECT_EQ(stationPath(fs::path("Data") / "Kanal04_2020.chn").size(),
              std::string("Data/Kanal04_2020.chn").size());
    EXPECT_EQ(stationPath(fs::path(u8"Böen")), "Böen");
    EXPECT_EQ(stationPath(fs::path()), "");
}

TEST(Paths, AbsoluteFolders) {
    const struct {
        const char* folder;
        bool absolute;
    } cases[] = {
        {"", false},
        {"Data\\", false},
        {"Data/", false},
        {"..\\Data\\", false},
        {"\\Data\\", false},
        {"\\\\srv\\m\\", true},
        {"\\\\", true},
        {"E:\\Messdaten\\", true},
        {"e:", true},
        {"Daten:\\", true},
        {"/srv/daten/", !HAS_DRIVES},
        {"x\\\\y", false},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(isAbsoluteFolder(c.folder), c.absolute) << c.folder;
    }
}

TEST(Paths, Separators) {
    const struct {
        const char* path;
        bool ends;
        const char* with;
    } cases[] = {
        {"", false, ""},           {"\\", true, "\\"},         {"/", true, "/"},
        {"Data", false, "Data\\"}, {"Data\\", true, "Data\\"}, {"Data/", true, "Data/"},
        {"a/b", false, "a/b\\"},   {"E:", false, "E:\\"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(endsInSeparator(c.path), c.ends) << c.path;
        EXPECT_EQ(withSeparator(c.path), c.with) << c.path;
    }
}

TEST(Paths, FilesAndFoldersInByteOrder) {
    const TempFolder folder;
    for (const char* name :
         {"b.txt", "B.txt", "a.txt", "10", "9", "Übung", "Projekt B/QEL.ini", "projekt a/QEL.ini"}) {
        folder.write(name, "x");
    }
    fs::create_directories(folder.path() / "Leer");
    EXPECT_THAT(filesIn(folder.base()), ElementsAre("10", "9", "B.txt", "a.txt", "b.txt", "Übung"));
    EXPECT_THAT(foldersIn(folder.base()), ElementsAre("Leer", "Projekt B", "projekt a"));
    EXPECT_THAT(filesIn(folder.at("PROJEKT B\\")), ElementsAre("QEL.ini"));
    EXPECT_THAT(filesIn(folder.at("Leer")), IsEmpty());
    EXPECT_THAT(foldersIn(folder.at("Leer")), IsEmpty());
    for (const std::string& bad : {folder.at("fehlt"), folder.at("a.txt"), std::string()}) {
        EXPECT_THAT(filesIn(bad), IsEmpty()) << bad;
        EXPECT_THAT(foldersIn(bad), IsEmpty()) << bad;
    }
}

} // namespace
} // namespace kelvrum
