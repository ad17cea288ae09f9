// SPDX-License-Identifier: GPL-3.0-or-later
// Opening a project: which form a path means, its base folder, and what a missing file leaves.
#include "config/ReadConf.h"
#include "tests/testing/FakeFiles.h"
#include "tests/testing/TempFolder.h"

#include <gtest/gtest.h>

namespace kelvrum {
namespace {

using testing::CurrentFolder;
using testing::FakeFile;
using testing::noFile;
using testing::openerOf;
using testing::ReadLog;
using testing::TempFolder;
using testing::varnixFile;

TEST(ReadConf, TheFormFollowsFromTheName) {
    const struct {
        const char* path;
        ConfigKind kind;
        const char* base;
    } cases[] = {
        {"D:\\Projekte\\A\\QEL.ini", ConfigKind::ini, "D:\\Projekte\\A\\"},
        {"D:\\Projekte\\A\\qel.ini", ConfigKind::ini, "D:\\Projekte\\A\\"},
        {"/srv/A/QEL.INI", ConfigKind::ini, "/srv/A/"},
        {"/srv/A/qEl.InI", ConfigKind::ini, "/srv/A/"},
        {"QEL.ini", ConfigKind::ini, ""},
        {"qel.ini", ConfigKind::ini, ""},
        {"D:\\Stationen\\Süd\\VARNIX.CFG", ConfigKind::binary, "D:\\Stationen\\Süd\\"},
        {"/srv/varnix.cfg", ConfigKind::binary, "/srv/"},
        {"Varnix.Cfg", ConfigKind::binary, ""},
        // both names: the binary form is looked for first
        {"/srv/QEL.ini/VARNIX.CFG", ConfigKind::binary, "/srv/QEL.ini/"},
        {"/srv/varnix.cfg/QEL.ini", ConfigKind::binary, "/srv/"},
        {"VARNIX.CFG\\qel.ini", ConfigKind::binary, ""},
        // the name anywhere in the path
        {"/srv/altQEL.ini", ConfigKind::ini, "/srv/alt"},
        {"/srv/QEL.ini.bak", ConfigKind::ini, "/srv/"},
        {"/srv/QEL.ini/QEL.ini", ConfigKind::ini, "/srv/"},
    };
    for (const auto& c : cases) {
        const auto missing = readConf(c.path, noFile());
        ASSERT_TRUE(missing.has_value()) << c.path;
        StationConfig expected;
        expected.Kind = c.kind;
        expected.BaseFolder = c.base;
        EXPECT_EQ(missing->Kind, c.kind) << c.path;
        EXPECT_EQ(missing->BaseFolder, c.base) << c.path;
        EXPECT_EQ(missing->Title + missing->ProjectName, "") << c.path;
        EXPECT_EQ(missing->ChannelTable.count(), 0) << c.path;
        EXPECT_TRUE(*missing == expected)
            << c.path << ": not an empty station; subtitle '" << missing->Subtitle << "'";
    }
}

TEST(ReadConf, NeitherNameReadsNothing) {
    for (const char* path : {"", "QEL", "QEL.in", "QEL_ini", "/srv/A/", "/srv/other.ini", "VARNIX.CF",
                             "VARNIX_CFG", "Q EL.ini", "D:\\Projekte\\A\\Sammeldruck.cfg"}) {
        ReadLog log;
        EXPECT_FALSE(readConf(path, openerOf("STANDORT=Halle", &log)).has_value()) << path;
        EXPECT_EQ(log.opened.size(), 0U) << path;
    }
}

TEST(ReadConf, TheIniForm) {
    ReadLog log;
    const auto station = readConf("D:\\Projekte\\A\\qel.ini",
                                  openerOf("PROJEKTNAME=Projekt A\nSTANDORT=Halle\nGERAETNUMMER=4711\n"
                                           "DATAFOLDER=Data\nCHAN1|Wind|m/s|0|40||0|1|2|1|0|0|WG\n",
                                           &log));
    ASSERT_TRUE(station.has_value());
    EXPECT_EQ(log.opened.back(), "D:\\Projekte\\A\\qel.ini");
    EXPECT_EQ(station->Title, "Projekt A");
    EXPECT_EQ(station->Subtitle, "Halle - 4711");
    EXPECT_EQ(station->DataFolder, "Data\\");
    EXPECT_EQ(station->ChannelTable.count(), 1);
    EXPECT_TRUE(station->ActiveChannels.empty());
}

TEST(ReadConf, TheBinaryForm) {
    const std::vector<std::string> names = {"-", "Wind"};
    const auto station = readConf("/srv/VARNIX.CFG", openerOf(varnixFile("Station Nord", names, true)));
    ASSERT_TRUE(station.has_value());
    EXPECT_EQ(station->Kind, ConfigKind::binary);
    EXPECT_EQ(station->BaseFolder, "/srv/");
    EXPECT_EQ(station->Title, "Station Nord");
    EXPECT_EQ(station->Subtitle, "");
    EXPECT_TRUE(station->WideRecords);
    EXPECT_EQ(station->ActiveChannels, std::vector<std::int32_t>{2});
}

TEST(ReadConf, ABinaryFileOfAnotherLengthGivesAnEmptyStation) {
    const std::string record = varnixFile("Station Nord", std::vector<std::string>{"Wind"}, true);
    for (const std::size_t size : {0U, 6544U, 6546U}) {
        const auto station =
            readConf("/srv/VARNIX.CFG", openerOf(FakeFile{.bytes = record, .size = size, .filler = '\0'}));
        ASSERT_TRUE(station.has_value());
        StationConfig expected;
        expected.Kind = ConfigKind::binary;
        expected.BaseFolder = "/srv/";
        EXPECT_TRUE(*station == expected) << size;
    }
}

TEST(ReadConf, Subtitle) {
    StationConfig station;
    station.Location = "Halle";
    station.DeviceNumber = "4711";
    EXPECT_EQ(stationSubtitle(station), "Halle - 4711");
}

TEST(ReadConf, AProjectFolder) {
    for (const char* folder : {"D:\\Projekte\\A", "D:\\Projekte\\A\\"}) {
        ReadLog log;
        const StationConfig station = readProjectFolder(
            folder, openerOf("PROJEKTNAME=Projekt A\nSTANDORT=Halle\nGERAETNUMMER=4711\n", &log));
        EXPECT_EQ(log.opened.back(), "D:\\Projekte\\A\\QEL.ini");
        EXPECT_EQ(station.Kind, ConfigKind::ini);
        EXPECT_EQ(station.BaseFolder, "D:\\Projekte\\A\\");
        EXPECT_EQ(station.Title, "Projekt A");
        EXPECT_EQ(station.Subtitle, "Halle - 4711");
    }
    EXPECT_EQ(readProjectFolder("/srv/A/", noFile()).BaseFolder, "/srv/A/");
}

TEST(ReadConf, RealFiles) {
    const TempFolder folder;
    folder.write("Projekt A/QEL.ini", "PROJEKTNAME=Projekt S\xFC"
                                      "d\r\nCHAN1|Staub|\xB5g/m\xB3\r\n");
    folder.write("Station/Varnix.cfg", varnixFile("Nord", std::vector<std::string>{"Wind"}, false));
    const auto ini = readConf(folder.at("projekt a\\qel.ini"));
    ASSERT_TRUE(ini.has_value());
    EXPECT_EQ(ini->Title, "Projekt Süd");
    EXPECT_EQ(ini->BaseFolder, folder.at("projekt a\\"));
    EXPECT_EQ(ini->ChannelTable.at(1).Unit, "µg/m³");
    const auto binary = readConf(folder.at("Station/VARNIX.CFG"));
    ASSERT_TRUE(binary.has_value());
    EXPECT_EQ(binary->Title, "Nord");
    const CurrentFolder current(folder.path() / "Projekt A");
    const auto bare = readConf("QEL.ini");
    ASSERT_TRUE(bare.has_value());
    EXPECT_EQ(bare->BaseFolder, "");
    EXPECT_EQ(bare->Title, "Projekt Süd");
}

} // namespace
} // namespace kelvrum
