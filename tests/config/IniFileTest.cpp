// SPDX-License-Identifier: GPL-3.0-or-later
// QEL.ini as a file: encodings, line ends, damage, and files that are far too big.
#include "config/IniFile.h"
#include "tests/config/ChannelFields.h"
#include "tests/testing/FakeFiles.h"
#include "tests/testing/TempFolder.h"
#include "util/Text.h"

#include <gtest/gtest.h>

#include <random>

namespace kelvrum {
namespace {

using testing::FakeFile;
using testing::noFile;
using testing::openerOf;
using testing::ReadLog;
using testing::TempFolder;

constexpr std::uint64_t MEGABYTE = 1024 * 1024;

const std::string SAMPLE = "; Beispiel\r\n"
                           "PROJEKTNAME=\"Projekt Süd\"\r\n"
                           "STANDORT=Böhlen\r\n"
                           "DATAFOLDER=Data\r\n"
                           "\r\n"
                           "CHAN04|Windgeschwindigkeit|m/s|0|40|Anemometer|0|1|2|1|0|0|WG\r\n"
                           "CHAN05|Windrichtung|Grad|0|360||0|1|2|36|4|0|WR\r\n"
                           "VIRT06|Staub||µg/m³|0|100||2|1|0|ST\r\n"
                           "KGW04|10|20\r\n"
                           "RICHTUNGREIN=5,Nord\r\n";

StationConfig stationOf(const FileOpener& open) {
    StationConfig station;
    EXPECT_EQ(ReadIni("QEL.ini", station, open), INI_READ);
    return station;
}

StationConfig stationOf(const std::string& text) { return stationOf(openerOf(text)); }

TEST(IniFile, Encodings) {
    const struct {
        const char* bytes;
        const char* unit;
    } cases[] = {
        {"CHAN1|N|µg/m³|", "µg/m³"},
        {"\xEF\xBB\xBF"
         "CHAN1|N|µg/m³|",
         "µg/m³"},
        {"CHAN1|N|\xB5g/m\xB3|", "µg/m³"},
        {"CHAN1|N|°C|", "°C"},
        {"CHAN1|N|\xB0"
         "C|",
         "°C"},
        {"CHAN1|N|ÄÖÜäöüß|", "ÄÖÜäöüß"},
        {"CHAN1|N|\xC4\xD6\xDC\xE4\xF6\xFC\xDF|", "ÄÖÜäöüß"},
        {"CHAN1|N|\x80|", "€"},
        {"CHAN1|N|€|", "€"},
        {"CHAN1|N|m/s|", "m/s"},
        {"\xEF\xBB\xBF"
         "CHAN1|N|m/s|",
         "m/s"},
        // one bad byte anywhere, and the whole file is Windows-1252
        {"CHAN1|N|µg|\n; \xE4", "Âµg"},
        {"; \xE4\nCHAN1|N|µg|", "Âµg"},
        {"CHAN1|N|µg|\n; \xC3", "Âµg"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(stationOf(c.bytes).ChannelTable.at(1).Unit, c.unit) << c.bytes;
    }
}

TEST(IniFile, CharactersAcrossTheBordersOfReads) {
    for (const std::size_t border :
         {512U, 1024U, 4096U, 8192U, 16384U, 32768U, 65536U, 131072U, 262144U, 1048576U}) {
        for (std::size_t before = 0; before <= 24; ++before) {
            std::string text;
            while (text.size() + 64 < border - before) {
                text += std::string(63, ';') + "\n";
            }
            text += std::string(border - before - text.size() - 1, ';') + "\n";
            text += "CHAN1|€|µg/m³|-12.5|40||0|1|2|1|0|0|T\r\nSTANDORT=Süd";
            const StationConfig utf8 = stationOf(text);
            ASSERT_EQ(testing::fields(utf8.ChannelTable.at(1)), "-12.5|40|µg/m³||T|€|1|0|2|0|1|false|||0|0")
                << border << " - " << before;
            ASSERT_EQ(utf8.Location, "Süd") << border << " - " << before;
        }
    }
}

TEST(IniFile, LineEnds) {
    const std::string a = "STANDORT=Halle";
    const std::string b = "WINDFAKTOR=2.5";
    for (const char* between : {"\n", "\r\n", "\n\n", "\r\n\r\n", "\n\r\n", "\n|\n", "\n \n", "\n;\n"}) {
        for (const char* atEnd : {"", "\n", "\r\n", "\n\n"}) {
            const StationConfig station = stationOf(a + between + b + atEnd);
            EXPECT_EQ(station.Location, "Halle");
            EXPECT_EQ(station.WindFactor, 2.5);
        }
    }
    EXPECT_EQ(stationOf("CHAN1|N|||||||||||T\r\n").ChannelTable.at(1).Tag, "T");
    EXPECT_EQ(stationOf("\n\n\r\n|||\n||\n").ChannelTable.count(), 0);
    EXPECT_EQ(stationOf("").ChannelTable.count(), 0);
    EXPECT_EQ(stationOf("\xEF\xBB\xBF").ChannelTable.count(), 0);
}

StationConfig filled() {
    StationConfig station;
    station.Kind = ConfigKind::ini;
    station.BaseFolder = "A\\";
    station.DataFolder = "Data\\";
    station.ProjectName = "@>";
    station.Location = "Halle";
    station.DeviceNumber = "4711";
    station.TimeFrom = 44000;
    station.WindFactor = 2;
    station.ChannelTable.grow(3).Name = "alt";
    return station;
}

TEST(IniFile, OnlyTheTableIsEmptiedBefore) {
    StationConfig station = filled();
    EXPECT_EQ(ReadIni("A\\QEL.ini", station, openerOf("STANDORT=Leipzig\nCHAN1|neu\n")), INI_READ);
    StationConfig expected = filled();
    expected.Location = "Leipzig";
    expected.ChannelTable.clear();
    expected.ChannelTable.grow(1).Name = "neu";
    EXPECT_TRUE(station == expected);
}

TEST(IniFile, AMissingFileLeavesAnEmptyTable) {
    StationConfig station = filled();
    EXPECT_EQ(ReadIni("A\\QEL.ini", station, noFile()), INI_NOT_FOUND);
    StationConfig expected = filled();
    expected.ChannelTable.clear();
    EXPECT_TRUE(station == expected);
}

TEST(IniFile, OpensThePathAsItStands) {
    ReadLog log;
    StationConfig station;
    ReadIni("D:\\Projekte\\A\\qel.INI", station, openerOf(SAMPLE, &log));
    EXPECT_EQ(log.opened.back(), "D:\\Projekte\\A\\qel.INI");
    const TempFolder folder;
    folder.write("Projekt A/QEL.ini", SAMPLE);
    EXPECT_EQ(ReadIni(folder.at("projekt a\\qel.INI"), station), INI_READ);
    EXPECT_EQ(station.ProjectName, "Projekt Süd");
    EXPECT_EQ(ReadIni(folder.at("Projekt A"), station), INI_NOT_FOUND);
    EXPECT_EQ(ReadIni(folder.at("Projekt B\\QEL.ini"), station), INI_NOT_FOUND);
    EXPECT_EQ(ReadIni("", station), INI_NOT_FOUND);
}

TEST(IniFile, AFailingReadKeepsWhatCameBefore) {
    const std::size_t cut = SAMPLE.find("CHAN05");
    StationConfig station;
    ReadIni("QEL.ini", station, openerOf(FakeFile{.bytes = SAMPLE, .failsAt = cut}));
    EXPECT_EQ(station.Location, "Böhlen");
    EXPECT_EQ(station.ChannelTable.count(), 4);
    EXPECT_EQ(station.ChannelTable.at(4).Tag, "WG");
    StationConfig nothing;
    ReadIni("QEL.ini", nothing, openerOf(FakeFile{.bytes = SAMPLE, .failsAt = 0}));
    EXPECT_TRUE(nothing == StationConfig());
}

TEST(IniFile, ALineOfAlmostAnyLength) {
    const std::string key = "STANDORT=";
    const struct {
        std::size_t length;
        bool read;
    } cases[] = {
        {100, true},     {4096, true}, {65535, true}, {MAX_INI_LINE, true}, {MAX_INI_LINE + 1, false},
        {3000000, false}};
    for (const auto& c : cases) {
        for (const char* end : {"", "\nWINDFAKTOR=2", "\nWINDFAKTOR=2\n"}) {
            const std::string value(c.length - key.size(), 'x');
            const StationConfig station = stationOf("CHAN1|vorher\n" + key + value + end);
            EXPECT_EQ(station.Location, c.read ? value : "") << c.length;
            EXPECT_EQ(station.WindFactor, *end == '\0' ? 0 : 2) << c.length;
            EXPECT_EQ(station.ChannelTable.count(), 1) << c.length;
        }
    }
}

TEST(IniFile, AHugeFileWithoutALineEnd) {
    for (const char filler : {'x', '\0', '|', '\xE4'}) {
        ReadLog log;
        const StationConfig station = stationOf(openerOf(
            FakeFile{.bytes = "STANDORT=Halle\nCHAN1|N", .size = 200 * MEGABYTE, .filler = filler}, &log));
        EXPECT_EQ(station.Location, "Halle");
        EXPECT_EQ(station.ChannelTable.count(), 0);
        EXPECT_LE(log.largestRead(), MEGABYTE);
        EXPECT_LE(log.opened.size(), 2U);
        EXPECT_LE(log.bytesRead(), 2 * 200 * MEGABYTE);
    }
}

TEST(IniFile, AHugeFileOfEmptyLines) {
    ReadLog log;
    const StationConfig station = stationOf(
        openerOf(FakeFile{.bytes = "STANDORT=Halle\n", .size = 20 * MEGABYTE, .filler = '\n'}, &log));
    EXPECT_EQ(station.Location, "Halle");
    EXPECT_LE(log.largestRead(), MEGABYTE);
}

TEST(IniFile, RandomBytesDoNoHarm) {
    std::mt19937 random(20200618);
    using namespace std::string_view_literals;
    constexpr auto alphabet = "CHANVIRTKGW0123456789|=,.-+eE \"\n\r\t\0\xC3\xB5\xFF"sv;
    for (int round = 0; round < 500; ++round) {
        std::string bytes;
        for (auto size = random() % 3000; size > 0; --size) {
            bytes.push_back(round % 2 == 0 ? static_cast<char>(random() % 256)
                                           : alphabet[random() % alphabet.size()]);
        }
        const StationConfig station = stationOf(bytes);
        ASSERT_GE(station.ChannelTable.count(), 0);
        for (const auto& [channel, info] : station.ChannelTable.entries()) {
            ASSERT_GE(channel, 1);
            ASSERT_LE(channel, station.ChannelTable.count());
            Utf8Check check;
            check.feed(info.Name);
            ASSERT_TRUE(check.isValid()) << info.Name;
        }
    }
}

TEST(IniFile, EveryFlippedByteAndEveryCutTail) {
    for (std::size_t at = 0; at < SAMPLE.size(); ++at) {
        for (const char flip : {'\x01', '\x20', '\x80', '\xFF'}) {
            std::string damaged = SAMPLE;
            damaged[at] = static_cast<char>(damaged[at] ^ flip);
            stationOf(damaged);
        }
        const StationConfig cut = stationOf(SAMPLE.substr(0, at));
        const bool whole = at >= SAMPLE.find("\r\nCHAN05");
        EXPECT_EQ(cut.ChannelTable.at(4).Tag == "WG", whole) << at;
    }
}

} // namespace
} // namespace kelvrum
