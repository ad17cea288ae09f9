// SPDX-License-Identifier: GPL-3.0-or-later
// The sample station's files, read back as the viewer reads them.
#include "config/ChannelList.h"
#include "config/ReadConf.h"
#include "data/DataReader.h"
#include "data/DayFiles.h"
#include "data/DayList.h"
#include "tests/testing/FileContent.h"
#include "tests/testing/TempFolder.h"
#include "tools/makestation/FileWriting.h"
#include "tools/makestation/IniWriter.h"
#include "tools/makestation/SampleStation.h"
#include "tools/makestation/StationWriter.h"
#include "tools/makestation/VarnixWriter.h"
#include "util/Validity.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <map>

namespace {

using namespace kelvrum;
using namespace kelvrum::sample;
using kelvrum::testing::contentOf;
using kelvrum::testing::CurrentFolder;
using kelvrum::testing::TempFolder;
using ::testing::ElementsAre;

namespace fs = std::filesystem;

/// Every file below a folder with its bytes.
std::map<std::string, std::string> filesOf(const TempFolder& folder) {
    std::map<std::string, std::string> files;
    for (const auto& entry : fs::recursive_directory_iterator(folder.path())) {
        if (entry.is_regular_file()) {
            files[fs::relative(entry.path(), folder.path()).generic_string()] = contentOf(entry.path());
        }
    }
    return files;
}

/// Two days around a new year, ending in the third.
StationPlan newYearPlan(StationForm form) { return {form, dateSerial(2021, 1, 1) + timeSerial(6, 30), 2, 3}; }

std::vector<MinuteRecord> minutesOf(const StationPlan& plan) {
    std::vector<MinuteRecord> minutes;
    SampleStation station(plan);
    while (const auto record = station.next()) {
        minutes.push_back(*record);
    }
    return minutes;
}

TEST(StationFiles, AreTheSameBytesOnEveryRun) {
    for (const StationForm form : {StationForm::ini, StationForm::narrow, StationForm::wide}) {
        const TempFolder first;
        const TempFolder second;
        writeStation(first.path(), newYearPlan(form));
        writeStation(second.path(), newYearPlan(form));
        writeStation(second.path(), newYearPlan(form)); // over an older one
        EXPECT_EQ(filesOf(first), filesOf(second));
    }
}

TEST(StationFiles, OfTheIniFormHaveTheirNamesAndSizes) {
    const TempFolder folder;
    writeStation(folder.path(), newYearPlan(StationForm::ini));
    std::map<std::string, std::size_t> sizes;
    for (const auto& [name, bytes] : filesOf(folder)) {
        sizes[name] = bytes.size();
    }
    EXPECT_EQ(sizes.size(), 13U * 2 + 2);
    EXPECT_EQ(sizes.at("faktoren.cfg"), 0U);
    for (const char* channel :
         {"01", "02", "04", "05", "06", "07", "08", "09", "10", "12", "13", "14", "15"}) {
        const std::string name = std::string("Data/Kanal").append(channel);
        EXPECT_EQ(sizes.at(name + "_2020.chn"), 1024U + 8 * 527'040);
        EXPECT_EQ(sizes.at(name + "_2021.chn"), 1024U + 8 * 390);
    }
}

TEST(StationFiles, OfTheIniFormHaveEmptyHeadersAndEmptySlotsBeforeTheBegin) {
    const TempFolder folder;
    writeStation(folder.path(), newYearPlan(StationForm::ini));
    const std::string bytes = contentOf(folder.path() / "Data" / "Kanal10_2020.chn");
    const std::size_t begin = 1024 + 8 * 364 * 1440; // 30 December
    EXPECT_EQ(bytes.find_first_not_of('\0'), begin);
}

TEST(StationFiles, OfTheIniFormAreConfiguredWithUmlauts) {
    const TempFolder folder;
    writeStation(folder.path(), newYearPlan(StationForm::ini));
    const auto station = readConf(folder.at("QEL.ini"));
    ASSERT_TRUE(station);
    EXPECT_EQ(station->Title, "Kläranlage Nord");
    EXPECT_EQ(station->Subtitle, "Köln-Süd - QEL-0417");
    EXPECT_EQ(station->DataFolder, "Data\\");
    EXPECT_EQ(station->WindFactor, 1.05);
    EXPECT_EQ(station->DustFactor, 0.92);
    EXPECT_EQ(station->TimeFrom, dateSerial(2020, 12, 30));
    EXPECT_EQ(station->TimeTo, dateSerial(2021, 1, 1) + timeSerial(6, 30));
    EXPECT_EQ(station->ChannelTable.count(), 15);
    EXPECT_EQ(station->ChannelTable.at(2).DirIn, "Talwind");
    EXPECT_EQ(station->ChannelTable.at(2).DirOut, "Bergwind");
    EXPECT_THAT(iniText(newYearPlan(StationForm::ini)), ::testing::StartsWith("# Beispielstation"));
}

TEST(StationFiles, OfTheIniFormListTheirChannels) {
    const TempFolder folder;
    writeStation(folder.path(), newYearPlan(StationForm::ini));
    const auto station = readConf(folder.at("QEL.ini"));
    const struct {
        ListedChannel listed;
        std::string_view unit;
        std::int32_t mode;
        std::int32_t paired;
        double limit1;
        double limit2;
    } cases[] = {
        {{"Vertikalwind", 1}, "m/s", 1, 0, 0, 0},
        {{"Windrichtung", 2}, "Grad", 36, 4, 0, 0},
        {{"Windgeschwindigkeit", 4}, "m/s", 1, 0, 6, 10},
        {{"Eichfaktor Wind", 5}, "", 1, 0, 0, 0},
        {{"Windgeschwindigkeit korrigiert", 6}, "m/s", 1, 0, 6, 10},
        {{"Staub PM10", 7}, "µg/m³", 1, 0, 40, 50},
        {{"Lufttemperatur", 8}, "°C", 1, 0, -5, 30},
        {{"Luftfeuchte", 9}, "%", 1, 0, 0, 0},
        {{"Luftdruck", 10}, "hPa", 1, 0, 0, 0},
        {{"Niederschlag", 12}, "mm", 0, 0, 0, 0},
        {{"Windböe", 13}, "m/s", 1, 0, 14, 20},
        {{"Staub PM2,5", 14}, "µg/m³", 1, 0, 15, 25},
        {{"Staub PM10 korrigiert", 15}, "µg/m³", 1, 0, 40, 50},
    };
    const auto listed = listedChannels(*station);
    ASSERT_EQ(listed.size(), std::size(cases));
    for (std::size_t i = 0; i < listed.size(); ++i) {
        const auto& wanted = cases[i];
        const ChannelInfo& info = station->ChannelTable.at(wanted.listed.channel);
        SCOPED_TRACE(wanted.listed.name);
        EXPECT_EQ(listed[i], wanted.listed);
        EXPECT_EQ(info.Unit, wanted.unit);
        EXPECT_EQ(info.Mode, wanted.mode);
        EXPECT_EQ(info.PairedChannel, wanted.paired);
        EXPECT_EQ(info.Limit1, wanted.limit1);
        EXPECT_EQ(info.Limit2, wanted.limit2);
        EXPECT_LT(info.LowerLimit, info.UpperLimit);
        EXPECT_FALSE(info.Comment.empty());
    }
}

/// What the list reader shows of a channel, minute by minute.
std::vector<double> listed(const StationConfig& station, std::int32_t channel, const TimeRange& range) {
    std::vector<double> values;
    DataReader reader;
    reader.readList(
        station, {channel, "", range, 1},
        [&values](std::span<const DateTime> /*starts*/, std::span<const double> more) {
            values.insert(values.end(), more.begin(), more.end());
        },
        [] { return true; });
    return values;
}

TEST(StationFiles, OfTheIniFormReadBackMinuteByMinute) {
    const TempFolder folder;
    const StationPlan plan = newYearPlan(StationForm::ini);
    writeStation(folder.path(), plan);
    const CurrentFolder current(folder.path()); // the paired file is looked for from here
    const auto station = readConf(folder.at("QEL.ini"));
    const auto minutes = minutesOf(plan);
    const DateTime lastDay = dateSerial(2020, 12, 31);
    for (const Quantity quantity : {VERTICAL_WIND, WIND_SPEED, WIND_CORRECTED, DUST_PM10, PRESSURE}) {
        const auto values = listed(*station, SAMPLE_CHANNELS[quantity].number, {lastDay, lastDay + 1});
        ASSERT_EQ(values.size(), 1440U);
        for (std::size_t i = 0; i < values.size(); ++i) {
            const double written = minutes[1440 + i].values[quantity];
            ASSERT_EQ(values[i], isPresent(written) ? written : INVALID_VALUE) << i;
        }
    }
    const auto directions = listed(*station, 2, {lastDay, lastDay + 1});
    ASSERT_EQ(directions.size(), 1440U);
    for (std::size_t i = 0; i < directions.size(); ++i) {
        const auto& written = minutes[1440 + i].values;
        const bool present = isPresent(written[WIND_DIRECTION]) && isPresent(written[WIND_SPEED]);
        ASSERT_NEAR(directions[i], present ? written[WIND_DIRECTION] : INVALID_VALUE, 1e-6) << i;
    }
}

TEST(StationFiles, OfTheBinaryFormsHaveTheirNamesAndSizes) {
    const struct {
        StationForm form;
        std::size_t record;
    } cases[] = {{StationForm::narrow, 6 + 13 * 4}, {StationForm::wide, 6 + 13 * 12}};
    for (const auto& wanted : cases) {
        const TempFolder folder;
        const StationPlan plan = newYearPlan(wanted.form);
        writeStation(folder.path(), plan);
        std::map<std::string, std::size_t> recorded;
        for (const MinuteRecord& record : minutesOf(plan)) {
            const CalendarTime date = calendarTime(timeOf(record.minute));
            const std::string name = date.year == 2021 ? "20210101.KMH"
                                     : date.day == 31  ? "20201231.KMH"
                                                       : "20201230.KMH";
            recorded[name] += record.recorded ? wanted.record : 0;
        }
        recorded["VARNIX.CFG"] = 6545;
        std::map<std::string, std::size_t> sizes;
        for (const auto& [name, bytes] : filesOf(folder)) {
            sizes[name] = bytes.size();
        }
        EXPECT_EQ(sizes, recorded);
    }
}

TEST(StationFiles, OfTheBinaryFormsAreConfiguredWithUmlauts) {
    for (const bool wide : {false, true}) {
        const TempFolder folder;
        const StationPlan plan = newYearPlan(wide ? StationForm::wide : StationForm::narrow);
        writeStation(folder.path(), plan);
        const auto station = readConf(folder.at("VARNIX.CFG"));
        ASSERT_TRUE(station);
        EXPECT_EQ(station->Title, "Kläranlage Nord");
        EXPECT_EQ(station->WideRecords, wide);
        EXPECT_THAT(station->ActiveChannels, ElementsAre(1, 2, 4, 5, 6, 7, 8, 9, 10, 12, 13, 14, 15));
        EXPECT_EQ(station->ChannelTable.at(4).Name, "Windgeschwindigk.");
        EXPECT_EQ(station->ChannelTable.at(13).Name, "Windböe");
    }
}

TEST(StationFiles, OfTheBinaryFormsReadBackRecordByRecord) {
    for (const StationForm form : {StationForm::narrow, StationForm::wide}) {
        const TempFolder folder;
        const StationPlan plan = newYearPlan(form);
        writeStation(folder.path(), plan);
        const auto station = readConf(folder.at("VARNIX.CFG"));
        const auto rows =
            readDayRows(*station, {timeOf(plan.begin()), plan.until}, openFile, [] { return true; });
        ASSERT_TRUE(rows);
        ASSERT_EQ(rows->channels(), QUANTITIES);
        std::size_t row = 0;
        for (const MinuteRecord& record : minutesOf(plan)) {
            if (!record.recorded) {
                continue;
            }
            ASSERT_LT(row, rows->count());
            ASSERT_NEAR(rows->times()[row], timeOf(record.minute), 1e-9);
            const std::span<const float> values = rows->values(row);
            ASSERT_EQ(values.size(), QUANTITIES);
            for (std::size_t i = 0; i < QUANTITIES; ++i) {
                ASSERT_EQ(values[i], static_cast<float>(record.values[i]));
            }
            ++row;
        }
        EXPECT_EQ(row, rows->count());
    }
}

TEST(StationFiles, OfTheWideFormHaveExtremesAroundTheirMeans) {
    const TempFolder folder;
    const StationPlan plan = newYearPlan(StationForm::wide);
    writeStation(folder.path(), plan);
    const auto station = readConf(folder.at("VARNIX.CFG"));
    for (const SampleChannel& channel : SAMPLE_CHANNELS) {
        SCOPED_TRACE(channel.name);
        const ReadRequest request{channel.number, "", {timeOf(plan.begin()), plan.until}, 1};
        const auto intervals = readDayIntervals(*station, request, openFile, [] { return true; });
        ASSERT_TRUE(intervals);
        EXPECT_GT(intervals->size(), 2800U);
        bool apart = false;
        for (const DayInterval& interval : *intervals) {
            if (interval.mean == INVALID_VALUE) { // no mean, no extremes
                ASSERT_EQ(interval.minimum, INVALID_VALUE);
                ASSERT_EQ(interval.maximum, INVALID_VALUE);
                continue;
            }
            ASSERT_LE(interval.minimum, interval.mean);
            ASSERT_GE(interval.maximum, interval.mean);
            ASSERT_TRUE(channel.lowerLimit < 0 || interval.minimum > 0);
            apart = apart || interval.minimum < interval.maximum;
        }
        EXPECT_EQ(apart, channel.spread > 0);
    }
}

TEST(StationFiles, OfTheWideFormKeepDirectionsOnTheCompass) {
    const TempFolder folder;
    const StationPlan plan = newYearPlan(StationForm::wide);
    writeStation(folder.path(), plan);
    const auto station = readConf(folder.at("VARNIX.CFG"));
    const ReadRequest request{2, "", {timeOf(plan.begin()), plan.until}, 1440};
    const auto intervals = readDayIntervals(*station, request, openFile, [] { return true; });
    ASSERT_EQ(intervals->size(), 3U);
    for (const DayInterval& day : *intervals) {
        EXPECT_GT(day.minimum, 0);
        EXPECT_LE(day.maximum, 360);
    }
}

TEST(VarnixWriter, TurnsTextsIntoWindows1252) {
    EXPECT_EQ(windows1252(""), "");
    EXPECT_EQ(windows1252("PM10"), "PM10");
    EXPECT_EQ(windows1252("Kläranlage"), "Kl\xE4ranlage");
    EXPECT_EQ(windows1252("µg/m³ °C"), "\xB5g/m\xB3 \xB0"
                                       "C");
    for (const SampleChannel& channel : SAMPLE_CHANNELS) {
        EXPECT_LE(windows1252(channel.shortName).size(), 17U) << channel.name;
    }
}

} // namespace
