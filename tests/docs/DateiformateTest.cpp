// SPDX-License-Identifier: GPL-3.0-or-later
// The document of the file formats keeps its word: its example files, read as the program reads them, give
// the values of its tables.
#include "batchprint/SettingsFile.h"
#include "config/ChannelList.h"
#include "config/ReadConf.h"
#include "config/VarnixFormat.h"
#include "data/ChannelFormat.h"
#include "data/DataReader.h"
#include "data/DayFiles.h"
#include "data/DayFormat.h"
#include "data/DayList.h"
#include "diagram/DiagramState.h"
#include "diagram/SavedProperties.h"
#include "tests/docs/MarkdownDocument.h"
#include "tests/testing/TempFolder.h"
#include "util/Format.h"
#include "util/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kelvrum {
namespace {

using kelvrum::testing::MarkdownDocument;
using kelvrum::testing::MarkedTable;
using kelvrum::testing::readDocument;
using kelvrum::testing::TableRow;
using kelvrum::testing::TempFolder;

using Rows = std::vector<TableRow>;

const ReadingStep GO_ON = [] { return true; };
const TimeRange FIRST_MINUTES = {dateSerial(2020, 1, 1), dateSerial(2020, 1, 1) + 5.0 / MINUTES_PER_DAY};
const TimeRange DAY_OF_RECORDS = {dateSerial(2020, 6, 18), dateSerial(2020, 6, 19)};

std::string shown(double v) { return shownNumber(v, LocaleTexts{}); }
std::string shown(bool checked) { return checked ? "1" : "0"; }

class Dateiformate : public ::testing::Test {
  protected:
    Dateiformate()
        : document_(readDocument(KELVRUM_DOCS "/Dateiformate.md")) {
        for (const auto& [name, bytes] : document_.files) {
            folder_.write(name, bytes);
        }
    }

    [[nodiscard]] StationConfig station(const std::string& name) const {
        auto station = readConf(folder_.at(name));
        EXPECT_TRUE(station && !station->Title.empty()) << name;
        return station.value_or(StationConfig{});
    }

    /// The tables marked with a word; a document that has lost one fails.
    [[nodiscard]] std::vector<MarkedTable> tables(const char* kind, std::size_t count) const {
        std::vector<MarkedTable> found;
        for (MarkedTable& table : document_.marked("table:")) {
            if (table.words.size() > 2 && table.words[1] == kind) {
                found.push_back(std::move(table));
            }
        }
        EXPECT_EQ(found.size(), count) << kind;
        return found;
    }

    TempFolder folder_;
    MarkdownDocument document_;
};

TEST_F(Dateiformate, Channels) {
    for (const MarkedTable& table : tables("channels", 2)) {
        const StationConfig read = station(table.words[2]);
        EXPECT_EQ(read.Title, "Kläranlage Nord");
        Rows rows;
        for (const ListedChannel& listed : listedChannels(read)) {
            const ChannelInfo& info = read.ChannelTable.at(listed.channel);
            rows.push_back({std::to_string(listed.channel), info.Name, info.Unit, std::to_string(info.Mode),
                            std::to_string(info.PairedChannel), shown(info.Limit1), shown(info.Limit2)});
        }
        EXPECT_EQ(rows, table.rows);
    }
}

TEST_F(Dateiformate, MinutesOfAChannel) {
    for (const MarkedTable& table : tables("list", 2)) {
        DataReader reader;
        const ReadRequest request = {std::stoi(table.words.at(3)), "", FIRST_MINUTES,
                                     std::stoi(table.words.at(4))};
        Rows rows;
        const auto show = [&rows](std::span<const DateTime> starts, std::span<const double> values) {
            for (std::size_t i = 0; i < values.size(); ++i) {
                if (std::fabs(values[i]) < INVALID_VALUE) {
                    rows.push_back({rowTime(starts[i], LocaleTexts{}), shown(values[i])});
                }
            }
        };
        EXPECT_EQ(reader.readList(station(table.words[2]), request, show, GO_ON), ReadStatus::complete);
        EXPECT_EQ(rows, table.rows);
    }
}

TEST_F(Dateiformate, RecordsOfADay) {
    for (const MarkedTable& table : tables("records", 1)) {
        const auto records = readDayRows(station(table.words[2]), DAY_OF_RECORDS, openFile, GO_ON);
        ASSERT_TRUE(records);
        Rows rows;
        for (std::size_t i = 0; i < records->count(); ++i) {
            rows.push_back({rowTime(records->times()[i], LocaleTexts{})});
            for (const float value : records->values(i)) {
                rows.back().push_back(shown(static_cast<double>(value)));
            }
        }
        EXPECT_EQ(rows, table.rows);
    }
}

TEST_F(Dateiformate, MeanMinimumMaximum) {
    for (const MarkedTable& table : tables("intervals", 1)) {
        const StationConfig read = station(table.words[2]);
        Rows rows;
        for (const std::int32_t channel : read.ActiveChannels) {
            const ReadRequest request = {channel, "", DAY_OF_RECORDS, MINUTES_PER_DAY};
            const auto intervals = readDayIntervals(read, request, openFile, GO_ON);
            ASSERT_TRUE(intervals && intervals->size() == 1) << channel;
            const DayInterval& day = intervals->front();
            rows.push_back(
                {std::to_string(channel), shown(day.mean), shown(day.minimum), shown(day.maximum)});
        }
        EXPECT_EQ(rows, table.rows);
    }
}

TEST_F(Dateiformate, Settings) {
    for (const MarkedTable& table : tables("settings", 1)) {
        const LoadedSettings loaded = loadSettings(folder_.at(table.words[2]));
        EXPECT_FALSE(loaded.damaged);
        ASSERT_GE(loaded.rows.size(), table.rows.size());
        Rows rows;
        for (std::size_t i = 0; i < table.rows.size(); ++i) {
            const RowSettings& row = loaded.rows[i];
            rows.push_back({std::to_string(i), shown(row.selected), shown(row.automatic), shown(row.minimum),
                            shown(row.maximum), std::to_string(row.interval), shown(row.limitsShown),
                            shown(row.lowerLimit), shown(row.upperLimit), shown(row.meanShown)});
        }
        EXPECT_EQ(rows, table.rows);
        const SettingsBytes bytes = encodeSettings(loaded.rows);
        EXPECT_EQ(std::string(reinterpret_cast<const char*>(bytes.data()), bytes.size()),
                  document_.files.at(table.words[2]));
    }
}

TEST_F(Dateiformate, PropertiesOfTheDiagram) {
    const DiagramState fresh;
    EXPECT_EQ(SavedProperties::save(fresh.properties()), document_.files.at("Diagramm.txt"));
}

/// The offsets of the byte tables are those of the readers; each field begins where the one before ends, and
/// the last one ends with the record.
TEST_F(Dateiformate, ByteTables) {
    const std::vector<std::vector<std::size_t>> offsets = {
        {0, chn::HEADER_SIZE, chn::HEADER_SIZE + chn::VALUE_SIZE},
        {varnix::WIDE_SWITCH_AT, varnix::STATION_NAME_AT, varnix::SLOTS_AT, varnix::REST_AT},
        {varnix::SLOT_ACTIVE_AT, varnix::SLOT_NAME_AT, varnix::SLOT_NAME_AT + varnix::SLOT_NAME_SIZE},
        {kmh::YEAR_AT, kmh::MONTH_AT, kmh::DAY_AT, kmh::MINUTE_AT, kmh::FIELDS_AT,
         kmh::FIELDS_AT + kmh::NARROW_FIELD},
        {kmh::FIELDS_AT, kmh::FIELDS_AT + kmh::MINIMUM_AT, kmh::FIELDS_AT + kmh::MAXIMUM_AT,
         kmh::FIELDS_AT + kmh::WIDE_FIELD},
        {0, sammeldruck::SELECTED_AT, sammeldruck::AUTOMATIC_AT, sammeldruck::MINIMUM_AT,
         sammeldruck::MAXIMUM_AT, sammeldruck::INTERVAL_AT, sammeldruck::LIMITS_AT, sammeldruck::LOWER_AT,
         sammeldruck::UPPER_AT, sammeldruck::MEAN_AT, sammeldruck::REST_AT},
    };
    const std::vector<MarkedTable> found = document_.marked("bytes");
    ASSERT_EQ(found.size(), offsets.size());
    for (std::size_t i = 0; i < found.size(); ++i) {
        ASSERT_EQ(found[i].rows.size(), offsets[i].size()) << i;
        std::size_t next = offsets[i].front();
        for (std::size_t k = 0; k < found[i].rows.size(); ++k) {
            const TableRow& row = found[i].rows[k];
            EXPECT_EQ(std::stoul(row.at(0)), offsets[i][k]) << row.at(3);
            EXPECT_EQ(std::stoul(row.at(0)), next) << row.at(3);
            next += std::stoul(row.at(1));
        }
        if (found[i].words.size() > 1) {
            EXPECT_EQ(next, std::stoul(found[i].words[1]));
        }
    }
}

} // namespace
} // namespace kelvrum
