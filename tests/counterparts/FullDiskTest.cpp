// SPDX-License-Identifier: GPL-3.0-or-later
// The program's writing code is killed on a disk that is full. tools/checks/kill.sh runs this in a file
// system of its own; it fills whatever it runs in.
#include "batchprint/SettingsFile.h"
#include "tests/correction/YearFiles.h"
#include "tests/counterparts/WriterProcess.h"
#include "tests/counterparts/WriterTasks.h"
#include "tests/testing/TempFolder.h"

#include <cerrno>
#include <cstdio>
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <iostream>
#include <random>
#include <unistd.h>

namespace kelvrum {
namespace {

namespace fs = std::filesystem;
using namespace kelvrum::testing;
using ::testing::HasSubstr;

constexpr int DUST_TARGET = 15;
constexpr std::uintmax_t LARGEST_DISK = 64'000'000; // not a real one by mistake

class FullDisk : public ::testing::Test {
  protected:
    void SetUp() override {
        const fs::space_info space = fs::space(fs::temp_directory_path());
        ASSERT_LT(space.capacity, LARGEST_DISK) << "not a disk to be filled";
    }
};

/// Takes what is left of a disk, except some bytes.
class Filler {
  public:
    Filler(fs::path file, std::size_t spare)
        : file_(std::move(file)) {
        const int handle = ::open(file_.c_str(), O_CREAT | O_WRONLY | O_TRUNC | O_CLOEXEC, 0600);
        const std::string piece(4096, '\x55');
        std::size_t length = 0;
        for (ssize_t got = 1; got > 0; length += static_cast<std::size_t>(std::max<ssize_t>(got, 0))) {
            got = ::write(handle, piece.data(), piece.size());
        }
        EXPECT_EQ(errno, ENOSPC);
        EXPECT_EQ(::ftruncate(handle, static_cast<off_t>(length - std::min(length, spare))), 0);
        ::close(handle);
    }
    Filler(const Filler&) = delete;
    Filler& operator=(const Filler&) = delete;
    ~Filler() { fs::remove(file_); }

  private:
    fs::path file_;
};

/// Whether a file that was missing is as the new one would begin.
bool isBeginningOf(const FileBytes& found, const FileBytes& whole, const std::string& name) {
    const auto target = found.find(name);
    return target == found.end() || whole.at(name).starts_with(target->second);
}

} // namespace

TEST_F(FullDisk, KillsInSavingTheSettings) {
    const TempFolder folder;
    const std::string file = folder.at("Sammeldruck.cfg");
    ASSERT_FALSE(saveSettings(rowsOfSaving(1), file));
    const LoadedSettings before = loadSettings(file);
    std::mt19937 engine(killSeed());
    std::uniform_int_distribution<Micros::rep> moment(0, 5000);
    int leftOver = 0;
    {
        const TempFolder other;
        const Filler filler(other.path() / "filler", 0);
        for (int i = 0; i < killCount(); ++i) {
            ASSERT_TRUE(runWriter({"save", file, "2"}, Micros(moment(engine))).killed);
            ASSERT_EQ(loadSettings(file), before);
            leftOver += leftOverFiles(folder.path());
            ASSERT_EQ(saveSettings(rowsOfSaving(3), file), std::errc::no_space_on_device);
            ASSERT_EQ(loadSettings(file), before);
            ASSERT_EQ(leftOverFiles(folder.path()), 0);
        }
    }
    ASSERT_FALSE(saveSettings(rowsOfSaving(4), file));
    EXPECT_EQ(loadSettings(file).rows, rowsOfSaving(4));
    std::cout << killCount() << " kills in savings on a full disk, " << leftOver
              << " left a temporary file\n";
    EXPECT_GT(leftOver, 0);
}

TEST_F(FullDisk, KillsInACorrectionWhoseTargetDoesNotFit) {
    YearFiles station;
    station.lay(7, FIRST_YEAR, MINUTES_OF_LEAP_YEAR);
    station.lay(7, FIRST_YEAR + 1, MINUTES_OF_YEAR);
    const FileBytes sources = station.files;
    station.expect({7}, DUST_TARGET, FIRST_YEAR, FIRST_MINUTE, MINUTES_OF_LEAP_YEAR - 1, 2);
    station.expect({7}, DUST_TARGET, FIRST_YEAR + 1, 0, LAST_MINUTE, 2);
    const std::vector<std::string> arguments = {"dust", station.folder.base(), "2"};
    std::mt19937 engine(killSeed());
    std::optional<std::uniform_int_distribution<Micros::rep>> moment;
    int killed = 0;
    {
        const TempFolder other;
        const Filler filler(other.path() / "filler", 5'500'000); // the second year does not fit
        for (int i = 0; i < killCount(); ++i) {
            fs::remove(station.onDisk(DUST_TARGET, FIRST_YEAR));
            fs::remove(station.onDisk(DUST_TARGET, FIRST_YEAR + 1));
            const WriterEnd end =
                runWriter(arguments, moment ? std::optional(Micros((*moment)(engine))) : std::nullopt);
            if (!end.killed) {
                ASSERT_FALSE(end.succeeded);
                ASSERT_THAT(end.message, HasSubstr("Kanal15_2021.chn“ kann nicht geschrieben werden"));
            }
            killed += end.killed ? 1 : 0;
            if (!moment) { // the first run shows how long it takes
                moment.emplace(0, end.duration.count());
            }
            const FileBytes found = station.found();
            for (const int year : {FIRST_YEAR, FIRST_YEAR + 1}) {
                ASSERT_EQ(found.at(YearFiles::name(7, year)), sources.at(YearFiles::name(7, year)));
                ASSERT_TRUE(isBeginningOf(found, station.files, YearFiles::name(DUST_TARGET, year)));
            }
        }
    }
    ASSERT_TRUE(runWriter(arguments).succeeded);
    EXPECT_EQ(station.changes(), "");
    std::cout << killCount() << " corrections on a full disk, " << killed << " killed\n";
    EXPECT_GT(killed, killCount() / 5); // else the moments were badly chosen
}

/// What exists is rewritten in place and needs no space.
TEST_F(FullDisk, ACorrectionInPlaceNeedsNone) {
    YearFiles station;
    for (const int channel : {7, DUST_TARGET}) {
        station.lay(channel, FIRST_YEAR, MINUTES_OF_LEAP_YEAR);
    }
    const TempFolder other;
    const Filler filler(other.path() / "filler", 0);
    const WriterEnd end = runWriter({"dust", station.folder.base(), "2"});
    EXPECT_TRUE(end.succeeded) << end.message;
    station.expect({7}, DUST_TARGET, FIRST_YEAR, FIRST_MINUTE, MINUTES_OF_LEAP_YEAR - 1, 2);
    EXPECT_EQ(station.changes(), "");
}

} // namespace kelvrum
