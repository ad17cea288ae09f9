// SPDX-License-Identifier: GPL-3.0-or-later
// Files that shrink, grow, vanish or become a folder while they are read: what was there is shown, the rest
// is missing, and the next reading finds what there is then.
#include "data/DataReader.h"

#include "diagram/DiagramState.h"
#include "diagram/SeriesTable.h"
#include "tests/testing/FakeFiles.h"
#include "tests/testing/MadeMinutes.h"
#include "tests/testing/TempFolder.h"
#include "util/Validity.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>
#include <utility>

namespace kelvrum {
namespace {

namespace fs = std::filesystem;
using namespace kelvrum::testing;

constexpr std::size_t WRITTEN = 300'000; // minutes, of several pieces
constexpr std::size_t SHORT = 70'000;    // ends within the second piece
constexpr std::size_t LONG = 400'000;

/// What happens to a file after its first piece was read.
enum class Change { shrinks, vanishes, becomesFolder, isReplaced, grows };
constexpr Change CHANGES[] = {Change::shrinks, Change::vanishes, Change::becomesFolder, Change::isReplaced,
                              Change::grows};

const DateTime START = dateSerial(2020, 1, 1);

/// A station with the dust channel 7 and the wind direction 8, paired with 4, in a folder of its own.
class ChangingFiles : public ::testing::Test {
  protected:
    void SetUp() override {
        lay();
        station.DataFolder = folder.base();
        for (const std::int32_t channel : {4, 7}) {
            station.ChannelTable.grow(channel).Mode = MODE_MEAN;
        }
        station.ChannelTable.grow(8).Mode = MODE_WIND_DIRECTION;
        station.ChannelTable.grow(8).PairedChannel = 4;
    }

    void lay() {
        for (const char* name : {"Kanal04_2020.chn", "Kanal07_2020.chn", "Kanal08_2020.chn"}) {
            fs::remove_all(folder.path() / name);
            folder.write(name, channelFile(countedMinutes(WRITTEN)));
        }
    }

    void apply(Change change, const std::string& name) const {
        const fs::path path = folder.path() / name;
        switch (change) {
        case Change::shrinks:
            fs::resize_file(path, 1024 + 8 * SHORT);
            break;
        case Change::vanishes:
            fs::remove(path);
            break;
        case Change::becomesFolder:
            fs::remove(path);
            fs::create_directory(path);
            break;
        case Change::isReplaced:
            fs::remove(path);
            folder.write(name, channelFile(countedMinutes(SHORT)));
            break;
        case Change::grows:
            folder.write(name, channelFile(countedMinutes(LONG)));
            break;
        }
    }

    /// The minutes that the next reading finds.
    static std::size_t left(Change change) {
        switch (change) {
        case Change::shrinks:
        case Change::isReplaced:
            return SHORT;
        case Change::grows:
            return LONG;
        default:
            return 0;
        }
    }

    std::vector<double> list(std::int32_t channel, const ReadingStep& step) {
        std::vector<double> values;
        EXPECT_EQ(reader.readList(
                      station, {channel, "", {START, START}, 1},
                      [&values](std::span<const DateTime> /*starts*/, std::span<const double> more) {
                          values.insert(values.end(), more.begin(), more.end());
                      },
                      step),
                  ReadStatus::complete);
        return values;
    }

    TempFolder folder;
    StationConfig station;
    DataReader reader;
};

/// Each value is that of its minute, or missing; none is stale. Returns the number of values present.
std::size_t expectOwnValues(const std::vector<double>& values) {
    std::size_t present = 0;
    for (std::size_t m = 0; m < values.size(); ++m) {
        if (values[m] != INVALID_VALUE) {
            EXPECT_EQ(values[m], static_cast<double>(m + 1));
            if (values[m] != static_cast<double>(m + 1)) {
                return present;
            }
            ++present;
        }
    }
    return present;
}

TEST_F(ChangingFiles, AListShowsWhatWasThere) {
    for (const Change change : CHANGES) {
        SCOPED_TRACE(static_cast<int>(change));
        lay();
        int steps = 0;
        const auto values = list(7, [&] {
            if (++steps == 1) {
                apply(change, "Kanal07_2020.chn");
            }
            return true;
        });
        const std::size_t present = expectOwnValues(values);
        EXPECT_LE(values.size(), WRITTEN); // the length is that of the beginning
        EXPECT_GE(present, std::min(WRITTEN, SHORT - 5000));
        if (change == Change::shrinks) {
            EXPECT_LE(present, SHORT);
        }
        EXPECT_EQ(expectOwnValues(list(7, {})), left(change));
    }
}

TEST_F(ChangingFiles, ADiagramKeepsItsRules) {
    for (const Change change : CHANGES) {
        SCOPED_TRACE(static_cast<int>(change));
        lay();
        int steps = 0;
        DiagramState diagram;
        EXPECT_EQ(reader.readDiagram(station, {7, "", {START, START}, 1}, {}, diagram,
                                     [&] {
                                         if (++steps == 1) {
                                             apply(change, "Kanal07_2020.chn");
                                         }
                                         return true;
                                     }),
                  ReadStatus::complete);
        const auto count = static_cast<std::size_t>(diagram.DataCount());
        EXPECT_EQ(seriesTable().columns(), std::max<std::size_t>(count, 1));
        std::vector<double> values(seriesTable().row(SeriesTable::Y1).begin(),
                                   seriesTable().row(SeriesTable::Y1).end());
        const bool gap = !values.empty() && values.back() == INVALID_VALUE; // one, after the last value
        EXPECT_EQ(expectOwnValues(values), count - (gap ? 1 : 0));
        if (change == Change::shrinks) {
            EXPECT_TRUE(gap);
        }

        reader.readDiagram(station, {7, "", {START, START}, 1}, {}, diagram, {});
        EXPECT_EQ(static_cast<std::size_t>(diagram.DataCount()), left(change));
    }
}

/// The wind speeds may go while the directions stay: no direction without its speed.
TEST_F(ChangingFiles, ThePairChangesAlone) {
    for (const Change change : CHANGES) {
        SCOPED_TRACE(static_cast<int>(change));
        lay();
        int steps = 0;
        const auto values = list(8, [&] {
            if (++steps == 1) {
                apply(change, "Kanal04_2020.chn");
            }
            return true;
        });
        EXPECT_EQ(values.size(), WRITTEN);
        std::size_t present = 0;
        for (const double v : values) {
            present += v != INVALID_VALUE ? 1 : 0;
        }
        EXPECT_GT(present, 0U);
        if (change == Change::shrinks) {
            EXPECT_EQ(present, SHORT);
        }
        std::size_t later = 0;
        for (const double v : list(8, {})) {
            later += v != INVALID_VALUE ? 1 : 0;
        }
        EXPECT_EQ(later, std::min(left(change), WRITTEN));
    }
}

/// Folder, file and length as the reader looks at them one after the other; each may be another one by then.
TEST(ChangingFile, EachLookFindsAnotherFile) {
    struct Case {
        const char* what;
        std::uint64_t size;  // as size() returns it
        std::uint64_t bytes; // as read
    };
    const std::uint64_t ten = 1024 + 8 * 10;
    const Case cases[] = {
        {"gone after it was opened", 0, 0},
        {"emptied after its length was read", ten, 0},
        {"its header alone is left", ten, 1024},
        {"cut within a value", ten, 1024 + 8 * 4 + 3},
        {"longer than its length was", 1024 + 8 * 3, ten},
        {"no length, but bytes", 0, ten},
        {"an absurd length", 1ULL << 40, ten},
    };
    for (const Case& c : cases) {
        FakeFiles files;
        files["X:\\Kanal07_2020.chn"] = {.bytes = channelFile(countedMinutes(10)).substr(0, c.bytes),
                                         .size = c.size};
        DataReader reader(files.opener());
        StationConfig station;
        station.DataFolder = "X:\\";
        station.ChannelTable.grow(7).Mode = MODE_MEAN;
        std::vector<double> values;
        EXPECT_EQ(
            reader.readList(station, {7, "", {START, START + 20 / 1440.0}, 1},
                            [&values](std::span<const DateTime> /*starts*/, std::span<const double> more) {
                                values.insert(values.end(), more.begin(), more.end());
                            },
                            {}),
            ReadStatus::complete);
        const std::uint64_t known = std::min(c.size, c.bytes);
        EXPECT_EQ(expectOwnValues(values), known > 1024 ? (known - 1024) / 8 : 0) << c.what;
        EXPECT_LE(values.size(), 20U) << c.what;
    }
}

/// Day files that go between the listing of the folder and their opening, or while the days are read.
TEST(ChangingDayFiles, DaysThatGoAreSkipped) {
    for (const bool becomesFolder : {false, true}) {
        const TempFolder folder;
        std::string bytes[3];
        for (int day = 0; day < 3; ++day) {
            for (int minute = 0; minute < 1440; ++minute) {
                bytes[day] +=
                    dayRecord(2020, 6, 18 + day, minute, std::array{10.0F * static_cast<float>(day + 1)});
            }
            folder.write("202006" + std::to_string(18 + day) + ".KMH", bytes[day]);
        }
        StationConfig station;
        station.Kind = ConfigKind::binary;
        station.BaseFolder = folder.base();
        station.ActiveChannels = {1};
        station.ChannelTable.grow(1).Mode = MODE_MEAN;
        bool once = true;
        DataReader reader([&](std::string_view path) {
            auto file = openFile(path);
            if (std::exchange(once, false)) { // the first one is open, the second one goes
                fs::remove(folder.path() / "20200619.KMH");
                if (becomesFolder) {
                    fs::create_directory(folder.path() / "20200619.KMH");
                }
            }
            return file;
        });
        DiagramState diagram;
        const DateTime day = dateSerial(2020, 6, 18);
        EXPECT_EQ(reader.readDayDiagram(station, {1, "", {day, day + 3}, 1440}, {}, diagram, {}),
                  ReadStatus::complete);
        ASSERT_EQ(diagram.DataCount(), 3); // the first day, a gap, the third day
        EXPECT_EQ(seriesTable().row(SeriesTable::Y1)[0], 10);
        EXPECT_EQ(seriesTable().row(SeriesTable::Y1)[1], INVALID_VALUE);
        EXPECT_EQ(seriesTable().row(SeriesTable::Y1)[2], 30);

        const auto rows = reader.readDayList(station, {day, day + 3}, {});
        ASSERT_TRUE(rows);
        EXPECT_EQ(rows->count(), 2U * 1440U);
    }
}

} // namespace
} // namespace kelvrum
