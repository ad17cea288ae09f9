// SPDX-License-Identifier: GPL-3.0-or-later
// VARNIX.CFG: its length, the slots, texts and the wide-record switch, laid out by hand.
#include "config/VarnixFile.h"
#include "config/ChannelList.h"
#include "config/VarnixFormat.h"
#include "tests/config/ChannelFields.h"
#include "tests/testing/FakeFiles.h"
#include "tests/testing/TempFolder.h"

#include <gtest/gtest.h>

#include <filesystem>
#include <random>

namespace kelvrum {
namespace {

using testing::FakeFile;
using testing::fields;
using testing::noFile;
using testing::openerOf;
using testing::ReadLog;
using testing::TempFolder;
using testing::varnixFile;

const std::vector<std::string> NAMES = {"Wind", "-", "Staub", "-", "Regen"};

StationConfig stationOf(const std::string& bytes) {
    StationConfig station;
    EXPECT_TRUE(ReadVarnix("VARNIX.CFG", station, openerOf(bytes)));
    return station;
}

std::string emptyRecord() { return std::string(6545, '\0'); }

TEST(VarnixFile, ChannelsOfTheActiveSlots) {
    const StationConfig station = stationOf(varnixFile("Station Nord", NAMES, false));
    EXPECT_EQ(station.Title, "Station Nord");
    EXPECT_EQ(station.Subtitle, "");
    EXPECT_FALSE(station.WideRecords);
    EXPECT_EQ(station.ActiveChannels, (std::vector<std::int32_t>{1, 3, 5}));
    EXPECT_EQ(station.ChannelTable.count(), 3);
    EXPECT_EQ(station.ChannelTable.entries().size(), 3U);
    EXPECT_EQ(fields(station.ChannelTable.at(1)), "0|0|||s0|Wind|1|0|0|0|0|false|||0|0");
    EXPECT_EQ(fields(station.ChannelTable.at(3)), "0|0|||s2|Staub|1|0|0|0|0|false|||0|0");
    EXPECT_EQ(fields(station.ChannelTable.at(5)), "0|0|||s4|Regen|1|0|0|0|0|false|||0|0");
    EXPECT_EQ(fields(station.ChannelTable.at(2)), testing::EMPTY_CHANNEL);
}

TEST(VarnixFile, OnlyTheExactLengthIsRead) {
    const std::string record = varnixFile("Station Nord", NAMES, true);
    const struct {
        std::string bytes;
        bool read;
    } cases[] = {
        {"", false},    {record.substr(0, 1), false}, {record.substr(0, 6544), false},
        {record, true}, {record + '\0', false},       {record + record, false},
    };
    for (const auto& c : cases) {
        StationConfig before;
        before.Title = "vorher";
        before.ChannelTable.grow(9).Name = "alt";
        StationConfig station = before;
        EXPECT_EQ(ReadVarnix("VARNIX.CFG", station, openerOf(c.bytes)), c.read) << c.bytes.size();
        EXPECT_EQ(station == before, !c.read) << c.bytes.size();
    }
}

TEST(VarnixFile, WhatCannotBeReadLeavesTheStation) {
    StationConfig before;
    before.Title = "vorher";
    StationConfig station = before;
    EXPECT_FALSE(ReadVarnix("VARNIX.CFG", station, noFile()));
    EXPECT_TRUE(station == before);
    const std::string record = varnixFile("Station Nord", NAMES, true);
    for (const std::size_t cut : {0U, 1U, 35U, 3000U, 6544U}) {
        EXPECT_FALSE(ReadVarnix("VARNIX.CFG", station, openerOf(FakeFile{.bytes = record, .failsAt = cut})))
            << cut;
        EXPECT_TRUE(station == before) << cut;
    }
    ReadLog log;
    EXPECT_FALSE(ReadVarnix("VARNIX.CFG", station,
                            openerOf(FakeFile{.bytes = record, .size = 1ULL << 40, .filler = '\0'}, &log)));
    EXPECT_LE(log.bytesRead(), 65536U);
    EXPECT_TRUE(station == before);
}

TEST(VarnixFile, TheWideSwitchIsAWholeNumberOfTwoBytes) {
    const struct {
        char low, high;
        bool wide;
    } cases[] = {{0, 0, false},          {1, 0, true},      {0, 1, true},
                 {'\xFF', '\xFF', true}, {0, '\x80', true}, {2, 0, true}};
    for (const auto& c : cases) {
        std::string record = emptyRecord();
        record[0] = c.low;
        record[1] = c.high;
        EXPECT_EQ(stationOf(record).WideRecords, c.wide) << int{c.low} << " " << int{c.high};
        EXPECT_TRUE(stationOf(record).ActiveChannels.empty());
    }
}

TEST(VarnixFile, TheActiveFlagIsAWholeNumberOfTwoBytes) {
    for (std::int32_t slot = 0; slot < 34; ++slot) {
        const std::size_t at = 35 + 191 * static_cast<std::size_t>(slot);
        for (const auto& [low, high] : {std::pair{'\1', '\0'}, {'\0', '\1'}, {'\xFF', '\xFF'}}) {
            std::string record = emptyRecord();
            record[at] = low;
            record[at + 1] = high;
            record.replace(at + 2, 3, "Nr.");
            const StationConfig station = stationOf(record);
            EXPECT_EQ(station.ActiveChannels, std::vector<std::int32_t>{slot + 1});
            EXPECT_EQ(station.ChannelTable.count(), 1);
            EXPECT_EQ(station.ChannelTable.at(slot + 1).Name, "Nr.");
            EXPECT_EQ(station.ChannelTable.at(slot + 1).Tag, "s" + std::to_string(slot));
            EXPECT_FALSE(station.WideRecords);
            EXPECT_EQ(station.Title, "");
        }
    }
}

TEST(VarnixFile, BytesNotInUseChangeNothing) {
    const std::string record = varnixFile("Station Nord", NAMES, false);
    const StationConfig expected = stationOf(record);
    std::string noisy = record;
    for (std::size_t slot = 0; slot < 34; ++slot) {
        noisy.replace(35 + 191 * slot + 19, 172, 172, '\xFF');
    }
    noisy.replace(6529, 16, 16, '\xFF');
    EXPECT_TRUE(stationOf(noisy) == expected);
    noisy.replace(35 + 191 + 2, 17, 17, 'x'); // the name of an inactive slot
    EXPECT_TRUE(stationOf(noisy) == expected);
}

TEST(VarnixFile, Names) {
    const struct {
        std::string bytes;
        const char* name;
    } cases[] = {
        {"Wind", "Wind"},
        {"Wind             ", "Wind"},
        {"  Wind", "Wind"},
        {std::string("\0\0Wind", 6), "Wind"},
        {std::string("Wind\0Nord", 9), "Wind Nord"},
        {std::string("Wind\0 \0", 7), "Wind"},
        {"17 Zeichen genau!", "17 Zeichen genau!"},
        {"B\xF6"
         "en \xB5g/m\xB3",
         "Böen µg/m³"},
        {"Bö", "BÃ¶"}, // never UTF-8
        {"\x80\xC4\xDF", "€Äß"},
        {"", ""},
        {"   ", ""},
    };
    for (const auto& c : cases) {
        std::string record = emptyRecord();
        record[35] = 1;
        record.replace(37, c.bytes.size(), c.bytes);
        record[2 + 33 - 1] = 'S'; // the station name's last byte
        record[37 + 17] = 'X';    // after the name
        const StationConfig station = stationOf(record);
        EXPECT_EQ(station.ChannelTable.at(1).Name, c.name);
        EXPECT_EQ(listedChannels([&] {
                      StationConfig binary = station;
                      binary.Kind = ConfigKind::binary;
                      return binary;
                  }()),
                  (std::vector<ListedChannel>{{c.name, 1}}));
        EXPECT_EQ(station.Title, "S");
    }
}

TEST(VarnixFile, StationNames) {
    const struct {
        std::string bytes;
        const char* title;
    } cases[] = {
        {"Station Nord", "Station Nord"},
        {"123456789012345678901234567890123", "123456789012345678901234567890123"},
        {std::string("\0Halle\0S\xFC"
                     "d\0\0",
                     12),
         "Halle Süd"},
        {std::string(33, ' '), ""},
        {"M\xFChle", "Mühle"},
    };
    for (const auto& c : cases) {
        std::string record = emptyRecord();
        record.replace(2, c.bytes.size(), c.bytes);
        record[35] = 1;
        EXPECT_EQ(stationOf(record).Title, c.title);
    }
}

TEST(VarnixFile, AllSlotsActive) {
    std::vector<std::string> names;
    for (int slot = 0; slot < 34; ++slot) {
        names.push_back("Kanal " + std::to_string(slot + 1));
    }
    const StationConfig station = stationOf(varnixFile("S", names, true));
    EXPECT_TRUE(station.WideRecords);
    EXPECT_EQ(station.ChannelTable.count(), 34);
    ASSERT_EQ(station.ActiveChannels.size(), 34U);
    for (std::int32_t channel = 1; channel <= 34; ++channel) {
        EXPECT_EQ(station.ActiveChannels[static_cast<std::size_t>(channel) - 1], channel);
        EXPECT_EQ(station.ChannelTable.at(channel).Name, "Kanal " + std::to_string(channel));
        EXPECT_EQ(station.ChannelTable.at(channel).Mode, MODE_MEAN);
    }
}

TEST(VarnixFile, ASecondReadingReplacesTheFirst) {
    StationConfig station = stationOf(varnixFile("Erste", NAMES, true));
    EXPECT_TRUE(ReadVarnix("VARNIX.CFG", station,
                           openerOf(varnixFile("Zweite", std::vector<std::string>{"A"}, false))));
    EXPECT_EQ(station.Title, "Zweite");
    EXPECT_EQ(station.ActiveChannels, std::vector<std::int32_t>{1});
    EXPECT_EQ(station.ChannelTable.count(), 1);
    EXPECT_EQ(station.ChannelTable.entries().size(), 1U);
    EXPECT_FALSE(station.WideRecords);
}

TEST(VarnixFile, RandomRecordsDoNoHarm) {
    std::mt19937 random(6545);
    for (int round = 0; round < 200; ++round) {
        std::string record = emptyRecord();
        for (char& byte : record) {
            byte = static_cast<char>(random() % 256);
        }
        const StationConfig station = stationOf(record);
        ASSERT_EQ(station.ActiveChannels.size(), static_cast<std::size_t>(station.ChannelTable.count()));
        ASSERT_LE(station.ChannelTable.count(), 34);
    }
}

TEST(VarnixFile, RealFiles) {
    const TempFolder folder;
    folder.write("Station/VARNIX.CFG", varnixFile("Station Nord", NAMES, false));
    StationConfig station;
    EXPECT_TRUE(ReadVarnix(folder.at("station\\varnix.cfg"), station));
    EXPECT_EQ(station.Title, "Station Nord");
    EXPECT_FALSE(ReadVarnix(folder.at("fehlt\\VARNIX.CFG"), station));
    const std::string big = folder.write("Gross/VARNIX.CFG", "");
    std::error_code error;
    std::filesystem::resize_file(big, 200ULL * 1024 * 1024, error);
    EXPECT_FALSE(ReadVarnix(big, station));
}

} // namespace
} // namespace kelvrum
