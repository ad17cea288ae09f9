// SPDX-License-Identifier: GPL-3.0-or-later
// Whatever a step of a reading leaves in the vector registers, no reading computes with it.
#include "data/DataReader.h"
#include "data/DayCoverage.h"
#include "data/StoredValues.h"
#include "diagram/DiagramState.h"
#include "tests/testing/Registers.h"
#include "tests/testing/Stations.h"
#include "tests/testing/TempFolder.h"

#include <array>
#include <gtest/gtest.h>
#include <utility>

namespace kelvrum {
namespace {

using kelvrum::testing::areUpperHalvesClean;
using kelvrum::testing::channelFile;
using kelvrum::testing::channelStation;
using kelvrum::testing::dayRecord;
using kelvrum::testing::dayStation;
using kelvrum::testing::fillUpperHalves;
using kelvrum::testing::hasUpperHalves;
using kelvrum::testing::TempFolder;

/// Notes the state of the registers at each read: values are computed with right after it.
class WatchedFile : public FileSource {
  public:
    WatchedFile(std::unique_ptr<FileSource> file, int& reads, int& unclean)
        : file_(std::move(file))
        , reads_(reads)
        , unclean_(unclean) {}
    std::uint64_t size() override { return file_->size(); }
    std::size_t read(std::uint64_t offset, std::span<std::byte> into) override {
        ++reads_;
        unclean_ += areUpperHalvesClean() ? 0 : 1;
        return file_->read(offset, into);
    }

  private:
    std::unique_ptr<FileSource> file_;
    int& reads_;
    int& unclean_;
};

class CleanRegisters : public ::testing::Test {
  protected:
    CleanRegisters() {
        folder.write("Kanal04_2019.chn", channelFile(std::vector<double>(525'600, 0.0)));
        folder.write("Kanal04_2020.chn", channelFile(std::vector<double>(100'000, 2.5)));
        for (const char* day : {"20200617.KMH", "20200618.KMH"}) {
            folder.write(day, dayRecord(2020, 6, 18, 5, std::array{1.0F, 2.0F}));
        }
    }
    void SetUp() override {
        if (!hasUpperHalves()) {
            GTEST_SKIP() << "this processor has no such registers";
        }
    }

    FileOpener opener() {
        return [this](std::string_view path) -> std::unique_ptr<FileSource> {
            auto file = openFile(path);
            return file ? std::make_unique<WatchedFile>(std::move(file), reads, unclean) : nullptr;
        };
    }

    const ReadingStep paint = [] {
        fillUpperHalves();
        return true;
    };
    const TempFolder folder;
    const TimeRange june{dateSerial(2020, 6, 1), dateSerial(2020, 7, 1)};
    const TimeRange january{dateSerial(2020, 1, 1), dateSerial(2020, 2, 1)};
    int reads = 0;
    int unclean = 0;
};

TEST_F(CleanRegisters, WhenMonthsAreCounted) {
    readCoverage(channelStation(folder), 4, 2020, 1, opener(), paint);
    EXPECT_GT(reads, 3);
    readCoverage(dayStation(folder), 1, 2020, 6, opener(), paint);
    EXPECT_GT(reads, 5);
    EXPECT_EQ(unclean, 0);
}

TEST_F(CleanRegisters, WhenStoredValuesAreSearched) {
    findStored(channelStation(folder), 4, StoredEnd::first, opener(), paint);
    EXPECT_GT(reads, 3);
    const int before = reads;
    findStored(dayStation(folder), 1, StoredEnd::last, opener(), paint);
    EXPECT_GT(reads, before);
    EXPECT_EQ(unclean, 0);
}

TEST_F(CleanRegisters, WhenDayFilesAreRead) {
    DataReader reader(opener());
    DiagramState diagram;
    reader.readDayDiagram(dayStation(folder), {1, "", june, 1}, {}, diagram, paint);
    EXPECT_EQ(reads, 2);
    reader.readDayList(dayStation(folder), june, paint);
    EXPECT_GT(reads, 3);
    EXPECT_EQ(unclean, 0);
}

TEST_F(CleanRegisters, WhenYearFilesAreRead) {
    DataReader reader(opener());
    DiagramState diagram;
    reader.readDiagram(channelStation(folder), {4, "", january, 1}, {}, diagram, paint);
    reader.readDiagram(channelStation(folder), {4, "", january, 60, 5}, {}, diagram, paint);
    EXPECT_GT(reads, 2);
    EXPECT_EQ(unclean, 0);
    EXPECT_TRUE(areUpperHalvesClean());
}

} // namespace
} // namespace kelvrum
