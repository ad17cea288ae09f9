// SPDX-License-Identifier: GPL-3.0-or-later
// The channel table, and what is shown of it: the channel list, the list's columns, the data folders.
#include "config/ChannelList.h"
#include "config/DataFolder.h"
#include "tests/config/ChannelFields.h"

#include <gtest/gtest.h>

#include <ostream>

namespace kelvrum {

void PrintTo(const ListedChannel& row, std::ostream* out) { *out << row.name << "=" << row.channel; }
void PrintTo(const ListColumn& column, std::ostream* out) { *out << column.header << "=" << column.key; }

namespace {

using testing::EMPTY_CHANNEL;
using testing::fields;

void add(StationConfig& station, std::int32_t channel, const char* name, const char* tag) {
    ChannelInfo& info = station.ChannelTable.grow(channel);
    info.Name = name;
    info.Tag = tag;
}

StationConfig binaryStation() {
    StationConfig station;
    station.Kind = ConfigKind::binary;
    add(station, 34, "Letzter", "s33");
    add(station, 2, "Wind", "s1");
    add(station, 7, "", "s6");
    station.ActiveChannels = {2, 7, 34};
    station.ChannelTable.setCount(3);
    return station;
}

TEST(ChannelTable, GrowsToTheHighestNumber) {
    ChannelTable table;
    EXPECT_EQ(table.count(), 0);
    table.grow(12).Name = "zwölf";
    EXPECT_EQ(table.count(), 12);
    table.grow(3).Name = "drei";
    EXPECT_EQ(table.count(), 12);
    table.grow(12).Unit = "m/s";
    EXPECT_EQ(table.at(12).Name, "zwölf");
    EXPECT_EQ(table.entries().size(), 2U);
    EXPECT_EQ(table.entries().begin()->first, 3);
    table.grow(2147483647);
    EXPECT_EQ(table.count(), 2147483647);
    EXPECT_EQ(table.entries().size(), 3U);
    table.clear();
    EXPECT_EQ(table.count(), 0);
    EXPECT_TRUE(table.entries().empty());
    EXPECT_EQ(fields(table.at(12)), EMPTY_CHANNEL);
}

TEST(ChannelTable, WhatWasNeverTouchedIsEmpty) {
    ChannelTable table;
    table.grow(5).Name = "fünf";
    for (const std::int32_t channel : {0, 1, 4, 6, -1, -2147483647, 2147483647}) {
        EXPECT_EQ(fields(table.at(channel)), EMPTY_CHANNEL) << channel;
    }
    EXPECT_EQ(table.entries().size(), 1U) << "looking takes memory";
}

TEST(ChannelList, IniForm) {
    StationConfig station;
    station.Kind = ConfigKind::ini;
    EXPECT_TRUE(listedChannels(station).empty());
    add(station, 9, "Regen", "RR");
    add(station, 4, "Wind", "WG");
    add(station, 5, "", "WR");
    add(station, 6, "Ohne Kennung", "");
    add(station, 1, "Staub", "ST");
    EXPECT_EQ(listedChannels(station), (std::vector<ListedChannel>{{"Staub", 1}, {"Wind", 4}, {"Regen", 9}}));
}

TEST(ChannelList, BinaryForm) {
    EXPECT_EQ(listedChannels(binaryStation()),
              (std::vector<ListedChannel>{{"Wind", 2}, {"", 7}, {"Letzter", 34}}));
}

TEST(ChannelList, NoProject) { EXPECT_TRUE(listedChannels(StationConfig()).empty()); }

TEST(ListColumns, AllForms) {
    const auto headers = [](ConfigKind kind) {
        StationConfig station;
        station.Kind = kind;
        std::vector<std::string> names;
        for (const ListColumn& column : listColumns(station)) {
            names.push_back(column.header);
        }
        return names;
    };
    EXPECT_EQ(headers(ConfigKind::none), (std::vector<std::string>{"Zeit", "Wert"}));
    EXPECT_EQ(headers(ConfigKind::ini), (std::vector<std::string>{"Zeit", "Wert"}));
    EXPECT_EQ(headers(ConfigKind::binary), (std::vector<std::string>{"Uhrzeit"}));
    EXPECT_EQ(listColumns(binaryStation()),
              (std::vector<ListColumn>{{"Uhrzeit", "st"}, {"Wind", "s1"}, {"", "s6"}, {"Letzter", "s33"}}));
}

TEST(DataFolder, OfAStation) {
#ifdef _WIN32
    const char* rooted = "D:\\Projekte\\A\\/srv/daten/";
#else
    const char* rooted = "/srv/daten/";
#endif
    const struct {
        const char* configured;
        std::string folder;
    } cases[] = {
        {"Data\\", "D:\\Projekte\\A\\Data\\"},
        {"", "D:\\Projekte\\A\\"},
        {"..\\B\\", "D:\\Projekte\\A\\..\\B\\"},
        {"\\Data\\", "D:\\Projekte\\A\\\\Data\\"},
        {"E:\\Messdaten\\", "E:\\Messdaten\\"},
        {"\\\\server\\daten\\", "\\\\server\\daten\\"},
        {"/srv/daten/", rooted},
    };
    for (const auto& c : cases) {
        StationConfig station;
        station.Kind = ConfigKind::ini;
        station.BaseFolder = "D:\\Projekte\\A\\";
        station.DataFolder = c.configured;
        EXPECT_EQ(dataFolder(station), c.folder) << c.configured;
        station.Kind = ConfigKind::binary;
        EXPECT_EQ(dataFolder(station), "D:\\Projekte\\A\\") << c.configured;
    }
}

TEST(DataFolder, OfTheBatchPrint) {
    const struct {
        const char* path;
        const char* folder;
    } cases[] = {
        {"D:\\Projekte\\A\\QEL.ini", "D:\\Projekte\\A\\Data\\"},
        {"D:\\Projekte\\A\\qel.INI", "D:\\Projekte\\A\\Data\\"},
        {"/srv/A/QEL.ini", "/srv/A/Data\\"},
        {"/srv/QEL.ini/qel.ini", "/srv/Data\\/Data\\"},
        {"QEL.ini", ""}, // five characters are too few
        {"xQEL.ini", "xData\\"},
        {"/QEL.ini", "/Data\\"},
        {"QEL.ini1", "Data\\1"},
        {"", ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(batchFolder(c.path), c.folder) << c.path;
    }
}

} // namespace
} // namespace kelvrum
