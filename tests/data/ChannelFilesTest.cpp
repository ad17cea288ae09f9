// SPDX-License-Identifier: GPL-3.0-or-later
// Names, places and positions of channel data files.
#include "data/ChannelFiles.h"

#include "data/ChannelFormat.h"

#include <gtest/gtest.h>

namespace kelvrum {
namespace {

TEST(ChannelFiles, Names) {
    struct Row {
        std::int32_t channel;
        const char* suffix;
        int year;
        const char* name;
    };
    const Row rows[] = {
        {4, "", 2020, "Kanal04_2020.chn"},          {7, "", 2020, "Kanal07_2020.chn"},
        {15, "", 2020, "Kanal15_2020.chn"},         {99, "", 1999, "Kanal99_1999.chn"},
        {100, "", 2020, "Kanal100_2020.chn"},       {123456, "", 2020, "Kanal123456_2020.chn"},
        {4, "korr", 2020, "Kanal04_korr_2020.chn"}, {123, "x y", 2021, "Kanal123_x y_2021.chn"},
        {4, "_", 2020, "Kanal04___2020.chn"},       {4, "", 987, "Kanal04_0987.chn"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(channelFileName(row.channel, row.suffix, row.year), row.name);
    }
}

TEST(ChannelFiles, PathsOfAChannelAndOfItsPair) {
    struct Row {
        ConfigKind kind;
        const char* base;
        const char* data;
        const char* channel; // path without the file name
        const char* paired;
    };
    const Row rows[] = {
        {ConfigKind::ini, "D:\\Projekte\\A\\", "Data\\", "D:\\Projekte\\A\\Data\\", "Data\\"},
        {ConfigKind::ini, "D:\\Projekte\\A\\", "E:\\Messdaten\\", "E:\\Messdaten\\", "E:\\Messdaten\\"},
        {ConfigKind::ini, "D:\\Projekte\\A\\", "\\\\server\\mess\\", "\\\\server\\mess\\",
         "\\\\server\\mess\\"},
        {ConfigKind::ini, "D:\\Projekte\\A\\", "\\Data\\", "D:\\Projekte\\A\\\\Data\\", "\\Data\\"},
        {ConfigKind::ini, "D:\\Projekte\\A\\", "", "D:\\Projekte\\A\\", ""},
        {ConfigKind::ini, "", "Data\\", "Data\\", "Data\\"},
        {ConfigKind::ini, "/srv/station/", "Data/", "/srv/station/Data/", "Data/"},
        {ConfigKind::ini, "/srv/station/", "a:b\\", "a:b\\", "a:b\\"},
        {ConfigKind::binary, "D:\\Varnix\\", "", "D:\\Varnix\\", ""},
#ifndef _WIN32
        {ConfigKind::ini, "/srv/station/", "/mnt/messdaten/", "/mnt/messdaten/", "/mnt/messdaten/"},
#endif
    };
    for (const Row& row : rows) {
        StationConfig station;
        station.Kind = row.kind;
        station.BaseFolder = row.base;
        station.DataFolder = row.data;
        EXPECT_EQ(channelPath(station, 7, "", 2020), std::string(row.channel) + "Kanal07_2020.chn");
        EXPECT_EQ(channelPath(station, 7, "k", 2020), std::string(row.channel) + "Kanal07_k_2020.chn");
        EXPECT_EQ(pairedChannelPath(station, 4, "", 2020), std::string(row.paired) + "Kanal04_2020.chn");
        EXPECT_EQ(pairedChannelPath(station, 4, "k", 2020), std::string(row.paired) + "Kanal04_k_2020.chn");
    }
}

TEST(ChannelFiles, MinuteIndex) {
    struct Row {
        int year, month, day, hour, minute, second;
        std::int32_t index;
    };
    const Row rows[] = {
        {2020, 1, 1, 0, 0, 0, 0},
        {2020, 1, 1, 0, 1, 0, 1},
        {2020, 1, 2, 0, 0, 0, 1440},
        {2020, 2, 29, 0, 0, 0, 59 * 1440},
        {2020, 3, 1, 0, 0, 0, 60 * 1440},
        {2021, 3, 1, 0, 0, 0, 59 * 1440},
        {1900, 3, 1, 0, 0, 0, 59 * 1440}, // 1900 has no 29 February
        {2000, 3, 1, 0, 0, 0, 60 * 1440},
        {2020, 12, 31, 23, 59, 0, 527039},
        {2021, 12, 31, 23, 59, 0, 525599},
        // seconds: to the nearest minute, a half to the even neighbour
        {2020, 1, 1, 0, 0, 29, 0},
        {2020, 1, 1, 0, 0, 30, 0},
        {2020, 1, 1, 0, 0, 31, 1},
        {2020, 1, 1, 0, 1, 30, 2},
        {2020, 1, 1, 0, 2, 30, 2},
        {2020, 1, 1, 0, 3, 30, 4},
        {2021, 7, 1, 12, 0, 30, 181 * 1440 + 720},
        {2021, 7, 1, 12, 1, 30, 181 * 1440 + 722},
        {2021, 12, 31, 23, 59, 30, 525600},
        {2021, 12, 31, 23, 59, 29, 525599},
    };
    for (const Row& row : rows) {
        const DateTime t =
            dateSerial(row.year, row.month, row.day) + timeSerial(row.hour, row.minute, row.second);
        EXPECT_EQ(MinuteIndex(t), row.index)
            << row.year << "-" << row.month << "-" << row.day << " " << row.hour << ":" << row.minute;
    }
}

TEST(ChannelFiles, MinuteIndexOfEveryMinuteOfALeapYear) {
    const DateTime start = dateSerial(2020, 1, 1);
    for (std::int32_t m = 0; m < 527040; ++m) {
        ASSERT_EQ(MinuteIndex(start + m / 1440.0), m);
    }
}

TEST(ChannelFiles, ValuesFollowTheHeader) {
    EXPECT_EQ(chn::valueOffset(0), 1024);
    EXPECT_EQ(chn::valueOffset(1440), 1024 + 8 * 1440);
    EXPECT_EQ(chn::valueOffset(527039) + 8, 4217344);
}

} // namespace
} // namespace kelvrum
