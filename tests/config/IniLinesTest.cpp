// SPDX-License-Identifier: GPL-3.0-or-later
// The channel lines of QEL.ini: CHAN, VIRT and KGW, their fields and channel numbers.
#include "config/ChannelList.h"
#include "config/IniFile.h"
#include "tests/config/ChannelFields.h"
#include "tests/testing/FakeFiles.h"

#include <gtest/gtest.h>

#include <vector>

namespace kelvrum {
namespace {

using testing::EMPTY_CHANNEL;
using testing::fields;
using testing::openerOf;

StationConfig stationOf(const std::string& text) {
    StationConfig station;
    EXPECT_EQ(ReadIni("QEL.ini", station, openerOf(text)), INI_READ);
    return station;
}

TEST(IniLines, TheExampleLines) {
    const StationConfig station = stationOf("CHAN04|Windgeschwindigkeit|m/s|0|40|Anemometer|0|1|2|1|0|0|WG\n"
                                            "CHAN05|Windrichtung|Grad|0|360||0|1|2|36|4|0|WR\n"
                                            "KGW04|10|20\n"
                                            "RICHTUNGREIN=5,Nord\n"
                                            "DATAFOLDER=Data\n");
    EXPECT_EQ(fields(station.ChannelTable.at(4)),
              "0|40|m/s|Anemometer|WG|Windgeschwindigkeit|1|0|2|0|1|false|||10|20");
    EXPECT_EQ(fields(station.ChannelTable.at(5)), "0|360|Grad||WR|Windrichtung|36|4|2|0|1|false|Nord||0|0");
    EXPECT_EQ(station.ChannelTable.count(), 5);
    EXPECT_EQ(station.DataFolder, "Data\\");
}

struct LineCase {
    const char* line; // of channel 7
    const char* fields;
};

void expectFields(const std::vector<LineCase>& cases) {
    for (const LineCase& c : cases) {
        EXPECT_EQ(fields(stationOf(c.line).ChannelTable.at(7)), c.fields) << c.line;
    }
}

TEST(IniLines, FieldsOfAChanLine) {
    expectFields({
        // each field alone
        {"CHAN7|Name", "0|0||||Name|0|0|0|0|0|false|||0|0"},
        {"CHAN7||Unit", "0|0|Unit||||0|0|0|0|0|false|||0|0"},
        {"CHAN7|||-1.5", "-1.5|0|||||0|0|0|0|0|false|||0|0"},
        {"CHAN7||||40.25", "0|40.25|||||0|0|0|0|0|false|||0|0"},
        {"CHAN7|||||Comment", "0|0||Comment|||0|0|0|0|0|false|||0|0"},
        {"CHAN7||||||0.5", "0|0|||||0|0|0|0.5|0|false|||0|0"},
        {"CHAN7|||||||2.5", "0|0|||||0|0|0|0|2.5|false|||0|0"},
        {"CHAN7||||||||3", "0|0|||||0|0|3|0|0|false|||0|0"},
        {"CHAN7|||||||||36", "0|0|||||36|0|0|0|0|false|||0|0"},
        {"CHAN7||||||||||4", "0|0|||||0|4|0|0|0|false|||0|0"},
        {"CHAN7|||||||||||1", "0|0|||||0|0|0|0|0|true|||0|0"},
        {"CHAN7||||||||||||Tag", "0|0|||Tag||0|0|0|0|0|false|||0|0"},
        // texts lose their blanks, and only blanks
        {"CHAN7|  Name  | m/s ||| A B |||||||  T ", "0|0|m/s|A B|T|Name|0|0|0|0|0|false|||0|0"},
        {"CHAN7|\tName\t", "0|0||||\tName\t|0|0|0|0|0|false|||0|0"},
        {"CHAN7|\"Name\"", "0|0||||\"Name\"|0|0|0|0|0|false|||0|0"},
        // the leading part is the number
        {"CHAN7|||-1e2 m|+.5||abc|1,5||||", "-100|0.5|||||0|0|0|0|1|false|||0|0"},
        {"CHAN7|||\t 5| 6 7||inf|nan", "5|6|||||0|0|0|0|0|false|||0|0"},
        // whole numbers: halves to even
        {"CHAN7||||||||2.5|3.5|4.5|-1|", "0|0|||||4|4|2|0|0|true|||0|0"},
        {"CHAN7||||||||-2.5|0.5|1.5|abc|", "0|0|||||0|2|-2|0|0|false|||0|0"},
        {"CHAN7||||||||1e3|-7|2147483647|2|", "0|0|||||-7|2147483647|1000|0|0|true|||0|0"},
        // further fields are ignored
        {"CHAN7|N|U|1|2|C|3|4|5|6|7|1|T|more|fields", "1|2|U|C|T|N|6|7|5|3|4|true|||0|0"},
    });
}

TEST(IniLines, FieldsOfAVirtLine) {
    expectFields({
        {"VIRT7", "0|0|||||0|0|0|0|1|false|||0|0"},
        {"VIRT7|Name", "0|0||||Name|0|0|0|0|1|false|||0|0"},
        {"VIRT7||skipped", "0|0|||||0|0|0|0|1|false|||0|0"},
        {"VIRT7|||Unit", "0|0|Unit||||0|0|0|0|1|false|||0|0"},
        {"VIRT7||||-1.5", "-1.5|0|||||0|0|0|0|1|false|||0|0"},
        {"VIRT7|||||40.25", "0|40.25|||||0|0|0|0|1|false|||0|0"},
        {"VIRT7||||||Comment", "0|0||Comment|||0|0|0|0|1|false|||0|0"},
        {"VIRT7|||||||3", "0|0|||||0|0|3|0|1|false|||0|0"},
        {"VIRT7||||||||36", "0|0|||||36|0|0|0|1|false|||0|0"},
        {"VIRT7|||||||||-1", "0|0|||||0|0|0|0|1|true|||0|0"},
        {"VIRT7||||||||||Tag", "0|0|||Tag||0|0|0|0|1|false|||0|0"},
        {"VIRT7| N |x| U |1|2| C |2.5|3.5|1| T |more", "1|2|U|C|T|N|4|0|2|0|1|true|||0|0"},
    });
}

TEST(IniLines, FieldsOfAKgwLine) {
    expectFields({
        {"KGW7|10|20", "0|0|||||0|0|0|0|0|false|||10|20"},
        {"KGW7|-1.5", "0|0|||||0|0|0|0|0|false|||-1.5|0"},
        {"KGW7||2e1", "0|0|||||0|0|0|0|0|false|||0|20"},
        {"KGW7|abc|4000000000|9", "0|0|||||0|0|0|0|0|false|||0|4e+09"},
        {"KGW7|1|2\nKGW7|3", "0|0|||||0|0|0|0|0|false|||3|0"},
    });
}

TEST(IniLines, ARepeatedLineReplacesTheEntry) {
    const std::string full = "CHAN7|N|U|1|2|C|3|4|5|36|9|1|T\nKGW7|10|20\nRICHTUNGREIN=7,Nord\n";
    EXPECT_EQ(fields(stationOf(full).ChannelTable.at(7)), "1|2|U|C|T|N|36|9|5|3|4|true|Nord||10|20");
    EXPECT_EQ(fields(stationOf(full + "CHAN7").ChannelTable.at(7)), EMPTY_CHANNEL);
    EXPECT_EQ(fields(stationOf(full + "chan 07|New").ChannelTable.at(7)), "0|0||||New|0|0|0|0|0|false|||0|0");
    EXPECT_EQ(fields(stationOf(full + "VIRT7|New").ChannelTable.at(7)), "0|0||||New|0|9|0|0|1|false|||0|0");
    EXPECT_EQ(fields(stationOf(full + "CHAN7|A\nKGW7|5|6").ChannelTable.at(7)),
              "0|0||||A|0|0|0|0|0|false|||5|6");
}

TEST(IniLines, TheFirstLineOfAChannelKeepsItsLimits) {
    EXPECT_EQ(fields(stationOf("KGW7|10|20\nCHAN7|A").ChannelTable.at(7)),
              "0|0||||A|0|0|0|0|0|false|||10|20");
    EXPECT_EQ(fields(stationOf("KGW7|10|20\nVIRT7|A").ChannelTable.at(7)),
              "0|0||||A|0|0|0|0|1|false|||10|20");
}

struct NumberCase {
    const char* start;    // field 0
    std::int32_t channel; // 0: the line is ignored
};

TEST(IniLines, ChannelNumbers) {
    const std::vector<NumberCase> cases = {
        {"CHAN4", 4},
        {"CHAN 4", 4},
        {"CHAN04", 4},
        {"CHAN   004  ", 4},
        {"chan4", 4},
        {"Chan4", 4},
        {"CHAN\t4", 4},
        {"CHAN4abc", 4},
        {"CHAN4 5", 4},
        {"CHAN+4", 4},
        {"CHAN4.5", 4},
        {"CHAN1e3", 1000},
        {"CHAN2147483647", 2147483647},
        {"CHAN999999999", 999999999},
        {"CHAN99999999999", 0},
        {"CHAN2147483648", 0},
        {"CHAN1e400", 0},
        {"CHAN0", 0},
        {"CHAN0.5", 0},
        {"CHAN-3", 0},
        {"CHAN-0", 0},
        {"CHAN-99999999999", 0},
        {"CHAN", 0},
        {"CHANx4", 0},
        {"CHANNEL4", 0},
        {"CHANinf", 0},
        {"CHANnan", 0},
        {"CHAN0x10", 0},
        {" CHAN4", 0},
        {"\tCHAN4", 0},
        {";CHAN4", 0},
        {"CHA4", 0},
        {"VIRT4", 4},
        {"virt 04", 4},
        {"VIRT0", 0},
        {"VIRT-3", 0},
        {"VIRT99999999999", 0},
        {"KGW4", 4},
        {"kgw 04", 4},
        {"KGW0", 0},
        {"KGW-3", 0},
        {"KGW99999999999", 0},
        {"KGWX4", 0},
    };
    for (const NumberCase& c : cases) {
        const StationConfig station = stationOf(std::string(c.start) + "|1|2|3\n");
        EXPECT_EQ(station.ChannelTable.count(), c.channel) << c.start;
        EXPECT_EQ(station.ChannelTable.entries().size(), c.channel == 0 ? 0U : 1U) << c.start;
        if (c.channel != 0) {
            EXPECT_NE(fields(station.ChannelTable.at(c.channel)), EMPTY_CHANNEL) << c.start;
        }
    }
}

TEST(IniLines, AWholeNumberBeyond32BitsMakesTheLineIgnored) {
    const std::string kept = "CHAN7|Old|||||||||||T\n";
    for (const char* line : {"CHAN7|New||||||99|99999999999|1|4|0|T", "CHAN7|New|||||||1|2147483648|4|0|T",
                             "CHAN7|New|||||||1|1|-99999999999|0|T", "VIRT7|New||||||3000000000|1|0|T",
                             "VIRT7|New||||||1|1e300|0|T"}) {
        const StationConfig station = stationOf(kept + line);
        EXPECT_EQ(station.ChannelTable.at(7).Name, "Old") << line;
    }
    EXPECT_EQ(stationOf("CHAN12|New|||||||99999999999").ChannelTable.count(), 0);
}

TEST(IniLines, AChannelBeforeLowerOnesGrowsTheTable) {
    const StationConfig station = stationOf("CHAN12|Temperatur|C|0|1||0|1|2|1|0|0|TT\n");
    EXPECT_EQ(station.ChannelTable.count(), 12);
    for (std::int32_t channel = 1; channel < 12; ++channel) {
        EXPECT_EQ(fields(station.ChannelTable.at(channel)), EMPTY_CHANNEL) << channel;
    }
    StationConfig ini = station;
    ini.Kind = ConfigKind::ini;
    EXPECT_EQ(listedChannels(ini), (std::vector<ListedChannel>{{"Temperatur", 12}}));
    const StationConfig later = stationOf("CHAN12|Zwölf\nCHAN1|Eins\nKGW3|1|2\n");
    EXPECT_EQ(later.ChannelTable.count(), 12);
    EXPECT_EQ(later.ChannelTable.at(12).Name, "Zwölf");
    EXPECT_EQ(later.ChannelTable.at(1).Name, "Eins");
}

TEST(IniLines, AHugeChannelNumberIsCheap) {
    const StationConfig station = stationOf("CHAN999999999|Weit|||||||||||T\nCHAN1|Nah|||||||||||T\n");
    EXPECT_EQ(station.ChannelTable.count(), 999999999);
    EXPECT_EQ(station.ChannelTable.entries().size(), 2U);
    StationConfig ini = station;
    ini.Kind = ConfigKind::ini;
    EXPECT_EQ(listedChannels(ini), (std::vector<ListedChannel>{{"Nah", 1}, {"Weit", 999999999}}));
}

TEST(IniLines, AChannelWithoutTagIsReadButNotListed) {
    StationConfig station = stationOf("CHAN1|Ohne Feld|m/s|0|40||0|1|2|1|0|0\n"
                                      "CHAN2|Leer|m/s|0|40||0|1|2|1|0|0|\n"
                                      "CHAN3|Blank|m/s|0|40||0|1|2|1|0|0|  \n"
                                      "CHAN4||m/s|0|40||0|1|2|1|0|0|NN\n"
                                      "VIRT5|Virtuell||m/s|0|40||2|1|0|VV\n");
    station.Kind = ConfigKind::ini;
    EXPECT_EQ(station.ChannelTable.count(), 5);
    EXPECT_EQ(station.ChannelTable.at(1).Name, "Ohne Feld");
    EXPECT_EQ(station.ChannelTable.at(3).UpperLimit, 40);
    EXPECT_EQ(listedChannels(station), (std::vector<ListedChannel>{{"Virtuell", 5}}));
}

} // namespace
} // namespace kelvrum
