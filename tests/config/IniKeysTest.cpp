// SPDX-License-Identifier: GPL-3.0-or-later
// The key lines of QEL.ini.
#include "config/IniFile.h"
#include "tests/testing/FakeFiles.h"

#include <gtest/gtest.h>

namespace kelvrum {
namespace {

using testing::openerOf;

StationConfig stationOf(const std::string& text, StationConfig station = {}) {
    EXPECT_EQ(ReadIni("QEL.ini", station, openerOf(text)), INI_READ);
    return station;
}

TEST(IniKeys, Texts) {
    const struct {
        const char* line;
        const char* value; // of STANDORT
    } cases[] = {
        {"STANDORT=Halle", "Halle"},
        {"standort=Halle", "Halle"},
        {"Standort = Halle ", "Halle"},
        {"STANDORT=  \"Halle\"  ", "Halle"},
        {"STANDORT=\" Halle \"", " Halle "},
        {"STANDORT=Ha\"ll\"e", "Halle"},
        {"STANDORT=a=b", "a=b"},
        {"STANDORT=Halle|Süd", "Halle"},
        {"STANDORT=", ""},
        {"STANDORT=\"\"", ""},
        {"STANDORT_ALT=Halle", "Halle"},
        {"STANDORTE=Halle", "Halle"},
        {"STANDORT=\tHalle", "\tHalle"},
        {"STANDORT=eins\nSTANDORT=zwei", "zwei"},
        // ignored, so the value from before stays
        {"STANDORT", "before"},
        {"STANDORT Halle", "before"},
        {"STANDORT|=Halle", "before"},
        {" STANDORT=Halle", "before"},
        {";STANDORT=Halle", "before"},
        {"#STANDORT=Halle", "before"},
        {"STANDOR=Halle", "before"},
        {"=Halle", "before"},
        {"|STANDORT=Halle", "before"},
        {"[STANDORT]", "before"},
    };
    for (const auto& c : cases) {
        StationConfig before;
        before.Location = "before";
        EXPECT_EQ(stationOf(c.line, before).Location, c.value) << c.line;
    }
}

TEST(IniKeys, EachKeyHasItsField) {
    const StationConfig station = stationOf("PROJEKTNAME=Projekt A\n"
                                            "STANDORT=Halle\n"
                                            "GERAETNUMMER=4711\n"
                                            "DATAFOLDER=Messdaten\n"
                                            "ZEITVON=18.06.2020\n"
                                            "ZEITBIS=2020-06-19 18:00\n"
                                            "WINDFAKTOR=1.25\n"
                                            "STAUBFAKTOR=0.5\n");
    EXPECT_EQ(station.ProjectName, "Projekt A");
    EXPECT_EQ(station.Location, "Halle");
    EXPECT_EQ(station.DeviceNumber, "4711");
    EXPECT_EQ(station.DataFolder, "Messdaten\\");
    EXPECT_EQ(station.TimeFrom, 44000);
    EXPECT_EQ(station.TimeTo, 44001.75);
    EXPECT_EQ(station.WindFactor, 1.25);
    EXPECT_EQ(station.DustFactor, 0.5);
    EXPECT_EQ(station.ChannelTable.count(), 0);
}

TEST(IniKeys, DataFolder) {
    const struct {
        const char* line;
        const char* folder;
    } cases[] = {
        {"DATAFOLDER=Data", "Data\\"},
        {"DATAFOLDER=Data\\", "Data\\"},
        {"DATAFOLDER=\"Data\\\"", "Data\\"},
        {"DATAFOLDER=\"Data\"", "Data\\"},
        {"DATAFOLDER=  \"Data\"  ", "Data\\"},
        {"DATAFOLDER=  \"  Data  \"  ", "Data\\"},
        {"DATAFOLDER=  Meine Daten  ", "Meine Daten\\"},
        {"DATAFOLDER=Data/", "Data/"},
        {"DATAFOLDER=/srv/daten", "/srv/daten\\"},
        {"DATAFOLDER=E:\\Messdaten\\", "E:\\Messdaten\\"},
        {"DATAFOLDER=E:\\Messdaten", "E:\\Messdaten\\"},
        {"DATAFOLDER=\\\\server\\daten", "\\\\server\\daten\\"},
        {"datafolder=data", "data\\"},
        {"DATAFOLDER=a=b", "a=b\\"},
        {"DATAFOLDER=", ""},
        {"DATAFOLDER=   ", ""},
        {"DATAFOLDER=\"\"", ""},
        {"DATAFOLDER=\"  \"", ""},
        {"DATAFOLDER=Data\nDATAFOLDER=", ""},
        {"DATAFOLDER", ""},
        {"DATAFOLDE=Data", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(stationOf(c.line).DataFolder, c.folder) << c.line;
    }
}

TEST(IniKeys, Directions) {
    const struct {
        const char* lines; // after CHAN05
        const char* in;
        const char* out;
    } cases[] = {
        {"RICHTUNGREIN=5,Nord", "Nord", ""},
        {"RICHTUNGRAUS=5,Süd", "", "Süd"},
        {"richtungrein=5,Nord\nrichtungraus=05,Süd", "Nord", "Süd"},
        {"RICHTUNGREIN=5, Nord ", " Nord", ""},
        {"RICHTUNGREIN= 5 ,Nord", "Nord", ""},
        {"RICHTUNGREIN=\"5,Nord \"", "Nord ", ""},
        {"RICHTUNGREIN=5,Nord,Ost", "Nord", ""},
        {"RICHTUNGREIN=5,", "", ""},
        {"RICHTUNGREIN=5,Nord\nRICHTUNGREIN=5,", "", ""},
        {"RICHTUNGREIN=5,Nord|Ost", "Nord", ""},
        {"RICHTUNGREIN=5", "", ""},
        {"RICHTUNGREIN=", "", ""},
        {"RICHTUNGREIN=,Nord", "", ""},
        {"RICHTUNGREIN=0,Nord", "", ""},
        {"RICHTUNGREIN=6,Nord", "", ""},
        {"RICHTUNGREIN=-5,Nord", "", ""},
        {"RICHTUNGREIN=99999999999,Nord", "", ""},
        {"RICHTUNGREIN=4294967301,Nord", "", ""},
        {"RICHTUNGREIN=Nord,5", "", ""},
        {"RICHTUNGREIN 5,Nord", "", ""},
        {"RICHTUNG=5,Nord", "", ""},
    };
    for (const auto& c : cases) {
        const StationConfig station = stationOf(std::string("CHAN05|Windrichtung\n") + c.lines);
        EXPECT_EQ(station.ChannelTable.at(5).DirIn, c.in) << c.lines;
        EXPECT_EQ(station.ChannelTable.at(5).DirOut, c.out) << c.lines;
        EXPECT_EQ(station.ChannelTable.count(), 5) << c.lines;
        EXPECT_EQ(station.ChannelTable.at(6).DirIn, "") << c.lines;
    }
}

TEST(IniKeys, ADirectionBeforeItsChannelHasNoEffect) {
    for (const char* key : {"RICHTUNGREIN", "RICHTUNGRAUS"}) {
        const StationConfig station = stationOf(std::string(key) + "=5,Nord\nCHAN05|Windrichtung\n");
        EXPECT_EQ(station.ChannelTable.at(5).DirIn + station.ChannelTable.at(5).DirOut, "") << key;
        EXPECT_EQ(station.ChannelTable.at(5).Name, "Windrichtung");
    }
}

TEST(IniKeys, ADirectionOfAnEmptyEntryBelowTheCount) {
    EXPECT_EQ(stationOf("CHAN05|Windrichtung\nRICHTUNGREIN=3,Nord\n").ChannelTable.at(3).DirIn, "Nord");
}

TEST(IniKeys, ADirectionBeforeItsChannelsLineHasNoEffect) {
    for (const char* line : {"CHAN05|Windrichtung", "VIRT05|Windrichtung"}) {
        for (const char* before : {"", "CHAN12|Niederschlag\n"}) {
            const std::string text =
                std::string(before) + "RICHTUNGREIN=5,Nord\nRICHTUNGRAUS=5,Süd\nKGW05|1|2\n" + line + "\n";
            const ChannelInfo channel = stationOf(text).ChannelTable.at(5);
            EXPECT_EQ(channel.Name, "Windrichtung") << text;
            EXPECT_EQ(channel.DirIn, "") << text;
            EXPECT_EQ(channel.DirOut, "") << text;
            EXPECT_EQ(channel.Limit2, 2) << text;
        }
    }
}

TEST(IniKeys, Times) {
    const struct {
        const char* value;
        DateTime time;
    } cases[] = {
        {"18.06.2020", 44000},
        {"18.06.2020 12:00", 44000.5},
        {"18.06.2020 18:00:00", 44000.75},
        {"2020-06-18", 44000},
        {"2020-06-18 12:00", 44000.5},
        {"2020-06-18 06:00:00", 44000.25},
        {"  \"18.06.2020 12:00\"  ", 44000.5},
        {"29.02.2019", 0},
        {"18.06.20", 0},
        {"06/18/2020", 0},
        {"18.06.2020 25:00", 0},
        {"44000", 0},
        {"heute", 0},
        {"", 0},
    };
    for (const auto& c : cases) {
        const std::string value = c.value;
        EXPECT_EQ(stationOf("ZEITVON=" + value).TimeFrom, c.time) << value;
        EXPECT_EQ(stationOf("ZEITBIS=" + value).TimeTo, c.time) << value;
        EXPECT_EQ(stationOf("ZEITVON_ALT=" + value).TimeFrom, c.time) << value;
        EXPECT_EQ(stationOf("ZEITVON=" + value).TimeTo, 0) << value;
    }
}

TEST(IniKeys, Factors) {
    const struct {
        const char* value;
        double factor;
    } cases[] = {
        {"1.25", 1.25}, {" \"1.25\" ", 1.25}, {"1,25", 1},   {"1.25 m", 1.25},
        {"-2", -2},     {".5", 0.5},          {"1e3", 1000}, {"", 0},
        {"abc", 0},     {"inf", 0},           {"nan", 0},    {"1.25|9", 1.25},
    };
    for (const auto& c : cases) {
        const std::string value = c.value;
        EXPECT_EQ(stationOf("WINDFAKTOR=" + value).WindFactor, c.factor) << value;
        EXPECT_EQ(stationOf("STAUBFAKTOR=" + value).DustFactor, c.factor) << value;
        EXPECT_EQ(stationOf("WINDFAKTOR=" + value).DustFactor, 0) << value;
    }
}

} // namespace
} // namespace kelvrum
