// SPDX-License-Identifier: GPL-3.0-or-later
// Corrections that fail: what the message says, and that nothing outside of the range changes.
#include "correction/Recalculation.h"

#include "tests/correction/YearFiles.h"
#include "tests/testing/FailingTargets.h"
#include "tests/testing/FakeFiles.h"
#include "tests/testing/FileSizeLimit.h"
#include "tests/testing/OrdinaryUser.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <system_error>

namespace kelvrum {
namespace {

/// What every message ends with.
const std::string ADVICE =
    ".\nBitte sorgen Sie für Platz und Schreibrecht und berechnen Sie den Zeitraum noch einmal.";

namespace fs = std::filesystem;
using namespace kelvrum::testing;
using ::testing::AllOf;
using ::testing::HasSubstr;

constexpr int LONG = 9'000'000; // a minute after every year

/// 1 January 2021 00:10 to 00:19.
const TimeRange TEN_MINUTES = between({2021, 1, 1, 0, 10}, {2021, 1, 1, 0, 19});

std::string reasonOf(std::errc error) { return std::make_error_code(error).message(); }

/// Outside of the given minutes the target is what it was.
void expectRestUntouched(const YearFiles& laid, int channel, int year, int first, int last) {
    const std::string name = YearFiles::name(channel, year);
    const std::string& before = laid.files.at(name);
    const std::string after = laid.found().at(name);
    const auto firstByte = 1024 + 8 * static_cast<std::size_t>(first);
    const auto rest = std::min(before.size(), 1032 + 8 * static_cast<std::size_t>(last));
    ASSERT_EQ(after.size(), before.size());
    EXPECT_TRUE(after.substr(0, firstByte) == before.substr(0, firstByte)) << name;
    EXPECT_TRUE(after.substr(rest) == before.substr(rest)) << name;
}

TEST(Recalculation, AWriteThatFailsEndsTheRun) {
    for (const int failing : {1, 2, 3}) {
        // One year in several pieces.
        YearFiles year;
        year.lay(7, 2021, MINUTES_OF_YEAR);
        year.lay(15, 2021, MINUTES_OF_YEAR, 5);
        FailingTargets targets(failing);
        CorrectionFiles files;
        files.openTarget = targets.opener();
        const TimeRange range = between({2021, 1, 2, 0, 0}, {2021, 12, 30, 0, 0});
        EXPECT_EQ(recalculate(year.station, {CorrectionMode::dust, range, 2}, files),
                  "Die Datei „" + year.path(15, 2021) +
                      "“ kann nicht geschrieben werden: " + reasonOf(std::errc::no_space_on_device) + ADVICE);
        EXPECT_EQ(targets.writes(), failing);
        expectRestUntouched(year, 15, 2021, 1440, 363 * 1440);

        // One piece in each of several years.
        YearFiles years;
        for (const int y : {2019, 2020, 2021}) {
            for (const int channel : {4, 5, 6}) {
                years.lay(channel, y, 30);
            }
        }
        FailingTargets pieces(failing);
        int steps = 0;
        files.openTarget = pieces.opener();
        files.afterYear = [&steps] { ++steps; };
        const auto message =
            recalculate(years.station,
                        {CorrectionMode::wind, between({2019, 1, 1, 0, 8}, {2021, 1, 1, 0, 19}), 2}, files);
        const int failed = 2018 + failing;
        EXPECT_THAT(message.value_or(""), HasSubstr(years.path(6, failed)));
        EXPECT_EQ(steps, failing - 1);
        expectRestUntouched(years, 6, failed, failed == 2019 ? 8 : 0, failed == 2021 ? 19 : LONG);
        for (int y = 2019; y < failed; ++y) {
            years.expect({4, 5}, 6, y, y == 2019 ? 8 : 0, LONG, 2);
        }
        years.files[YearFiles::name(6, failed)] = years.found().at(YearFiles::name(6, failed));
        EXPECT_EQ(years.changes(), ""); // sources, earlier and later years
    }
}

/// Targets that cannot be opened for writing, each with the system's reason.
TEST(Recalculation, TargetsThatCannotBeWritten) {
    const auto makeFolder = [](const fs::path& path) { fs::create_directory(path); };
    const auto makeLoop = [](const fs::path& path) { fs::create_symlink(path.filename(), path); };
    const auto makeReadOnly = [](const fs::path& path) {
        std::ofstream(path) << "read only";
        fs::permissions(path, fs::perms::owner_read);
    };
    const auto closeFolder = [](const fs::path& path) {
        fs::permissions(path.parent_path(), fs::perms::owner_read | fs::perms::owner_exec);
    };
    const struct {
        const char* name;
        void (*make)(const fs::path& path);
        std::errc reason;
    } rows[] = {
        {"folder", makeFolder, std::errc::is_a_directory},
        {"loop", makeLoop, std::errc::too_many_symbolic_link_levels},
        {"read-only file", makeReadOnly, std::errc::permission_denied},
        {"read-only folder", closeFolder, std::errc::permission_denied},
    };
    const OrdinaryUser user;
    for (const auto& row : rows) {
        YearFiles laid;
        laid.lay(7, 2021, 30);
        const fs::path target = laid.onDisk(15, 2021);
        row.make(target);
        const FileBytes before = laid.found();
        const auto message = recalculate(laid.station, {CorrectionMode::dust, TEN_MINUTES, 2});
        EXPECT_THAT(message.value_or(""),
                    AllOf(HasSubstr(laid.path(15, 2021)), HasSubstr(reasonOf(row.reason))))
            << row.name;
        EXPECT_EQ(difference(before, laid.found()), "") << row.name;
        fs::permissions(laid.folder.path() / "Data", fs::perms::owner_all);
    }
}

/// A device that is always full stands for a full disk.
TEST(Recalculation, FullDisk) {
    if (!fs::exists("/dev/full")) {
        GTEST_SKIP() << "this system has no such device";
    }
    YearFiles laid;
    laid.lay(7, 2021, 30);
    fs::create_symlink("/dev/full", laid.onDisk(15, 2021));
    const auto message = recalculate(laid.station, {CorrectionMode::dust, TEN_MINUTES, 2});
    EXPECT_THAT(message.value_or(""),
                AllOf(HasSubstr(laid.path(15, 2021)), HasSubstr(reasonOf(std::errc::no_space_on_device))));
}

#ifdef KELVRUM_HAS_LIMITS
/// The target grows until there is no more room: what was written stays, and nothing else changes.
TEST(Recalculation, NoRoomToGrow) {
    constexpr int ROOM = 100'000; // minutes
    YearFiles laid;
    laid.lay(7, 2021, MINUTES_OF_YEAR);
    laid.lay(15, 2021, 20);
    std::optional<std::string> message;
    {
        const FileSizeLimit limit(1024 + 8 * ROOM);
        message = recalculate(laid.station,
                              {CorrectionMode::dust, between({2021, 1, 1, 0, 10}, {2021, 12, 1, 0, 0}), 2});
    }
    EXPECT_THAT(message.value_or(""),
                AllOf(HasSubstr(laid.path(15, 2021)), HasSubstr(reasonOf(std::errc::file_too_large))));
    laid.expect({7}, 15, 2021, 10, ROOM - 1, 2);
    EXPECT_EQ(laid.changes(), "");
}
#endif

/// The source promises more than it gives.
TEST(Recalculation, ReadThatFails) {
    for (const std::size_t given : std::initializer_list<std::size_t>{0, 7, 8, 39, 79}) {
        YearFiles laid;
        CorrectionFiles files;
        files.openSource =
            openerOf(FakeFile{.bytes = yearFile(7, 2021, 30), .failsAt = 1024 + 8 * 10 + given});
        EXPECT_EQ(recalculate(laid.station, {CorrectionMode::dust, TEN_MINUTES, 2}, files), std::nullopt);
        if (given >= 8) { // else no value is to be written, and no target to be made
            laid.files["Kanal15_2021.chn"] =
                corrected({}, {yearFile(7, 2021, 30)}, 10, 9 + static_cast<int>(given / 8), 2);
        }
        EXPECT_EQ(laid.changes(), "") << given;
    }
}

/// An error is reported, unlike the end of a source: what was read before it is written, later years stay as
/// they are.
TEST(Recalculation, SourceWithAnError) {
    for (const std::size_t given : std::initializer_list<std::size_t>{0, 7, 8, 79}) {
        YearFiles laid;
        laid.lay(7, 2022, 30);
        CorrectionFiles files;
        files.openSource = openerOf(FakeFile{
            .bytes = yearFile(7, 2021, 30), .failsAt = 1024 + 8 * 10 + given, .error = std::errc::io_error});
        const TimeRange range = between({2021, 1, 1, 0, 10}, {2022, 1, 1, 0, 19});
        EXPECT_EQ(recalculate(laid.station, {CorrectionMode::dust, range, 2}, files),
                  "Die Datei „" + laid.path(7, 2021) +
                      "“ kann nicht gelesen werden: " + reasonOf(std::errc::io_error) +
                      ".\nBitte berechnen Sie den Zeitraum noch einmal, sobald sie wieder lesbar ist.");
        if (given >= 8) {
            laid.files["Kanal15_2021.chn"] =
                corrected({}, {yearFile(7, 2021, 30)}, 10, 9 + static_cast<int>(given / 8), 2);
        }
        EXPECT_EQ(laid.changes(), "") << given;
    }
}

/// A failing opening of the target is reported whatever its reason, and the run ends with it.
TEST(Recalculation, TargetThatDoesNotOpen) {
    YearFiles laid;
    laid.lay(7, 2020, 30);
    laid.lay(7, 2021, 30);
    int openings = 0;
    CorrectionFiles files;
    files.openTarget = [&openings](std::string_view) {
        ++openings;
        return OpenedTarget{nullptr, std::make_error_code(std::errc::permission_denied)};
    };
    const TimeRange range = between({2020, 1, 1, 0, 10}, {2021, 1, 1, 0, 19});
    EXPECT_EQ(recalculate(laid.station, {CorrectionMode::dust, range, 2}, files),
              "Die Datei „" + laid.path(15, 2020) +
                  "“ kann nicht geschrieben werden: " + reasonOf(std::errc::permission_denied) + ADVICE);
    EXPECT_EQ(openings, 1);
    EXPECT_EQ(laid.changes(), "");
}

} // namespace
} // namespace kelvrum
