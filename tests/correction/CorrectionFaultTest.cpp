// SPDX-License-Identifier: GPL-3.0-or-later
// Every write of a correction fails once, and sources change under it: nothing is spoilt, and the next run
// completes it.
#include "correction/Recalculation.h"

#include "tests/correction/YearFiles.h"
#include "tests/testing/FailingTargets.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

namespace kelvrum {
namespace {

namespace fs = std::filesystem;
using namespace kelvrum::testing;
using ::testing::HasSubstr;

const TimeRange TWO_YEARS = between({2020, 3, 1, 0, 0}, {2021, 11, 30, 23, 59});
constexpr int MARCH = (31 + 29) * 1440;         // of 2020
constexpr int DECEMBER = (365 - 31) * 1440 - 1; // last minute of November 2021
const std::error_code NO_SPACE = std::make_error_code(std::errc::no_space_on_device);
constexpr int AFTER_EVERY_YEAR = 9'000'000;

/// After a failure every byte of the target is the old one or the new one, the new ones first.
void expectNewThenOld(const std::string& found, const std::string& before, const std::string& after) {
    const std::size_t shared = std::min(found.size(), after.size());
    const char* end = std::mismatch(found.data(), found.data() + shared, after.data()).first;
    const auto at = static_cast<std::size_t>(end - found.data());
    ASSERT_GE(found.size(), before.size());
    EXPECT_TRUE(found.substr(at) == (at < before.size() ? before.substr(at) : std::string()))
        << "neither old nor new from byte " << at << " on";
}

TEST(CorrectionFaults, EveryWriteFailsInTurnAndTheNextRunRepairsIt) {
    YearFiles laid;
    for (const int year : {2020, 2021}) {
        laid.lay(7, year, year == 2020 ? MINUTES_OF_LEAP_YEAR : MINUTES_OF_YEAR);
        laid.lay(15, year, 200'000); // grows, too
    }
    const FileBytes before = laid.files;
    laid.expect({7}, 15, 2020, MARCH, AFTER_EVERY_YEAR, 2);
    laid.expect({7}, 15, 2021, 0, DECEMBER, 2);
    const Correction correction = {CorrectionMode::dust, TWO_YEARS, 2};
    for (const std::size_t taken : {std::size_t{0}, std::size_t{100'003}}) {
        int failures = 0;
        for (int number = 1;; ++number) {
            for (const auto& [name, bytes] : before) {
                laid.folder.write("Data/" + name, bytes);
            }
            FailingTargets fails(number, taken);
            CorrectionFiles files;
            files.openTarget = fails.opener();
            const auto message = recalculate(laid.station, correction, files);
            ASSERT_EQ(message.has_value(), fails.hasFailed()) << number;
            if (!message) {
                EXPECT_EQ(laid.changes(), "");
                break;
            }
            ++failures;
            EXPECT_THAT(*message, HasSubstr(NO_SPACE.message()));
            const FileBytes found = laid.found();
            for (const int year : {2020, 2021}) {
                const std::string name = YearFiles::name(15, year);
                expectNewThenOld(found.at(name), before.at(name), laid.files.at(name));
                EXPECT_EQ(found.at(YearFiles::name(7, year)), before.at(YearFiles::name(7, year)));
            }
            EXPECT_EQ(recalculate(laid.station, correction), std::nullopt); // there is room again
            EXPECT_EQ(laid.changes(), "") << number;
        }
        EXPECT_GT(failures, 10); // writes of both years
    }
}

/// What happens to a source once the first piece of the target is written.
enum class Change { shrinks, vanishes, becomesFolder };

TEST(CorrectionFaults, SourcesThatChangeMeanwhile) {
    constexpr int SHORT = 100'000; // minutes, in the second piece
    for (const Change change : {Change::shrinks, Change::vanishes, Change::becomesFolder}) {
        for (const int source : {4, 5}) {
            SCOPED_TRACE(std::to_string(static_cast<int>(change)) + " " + std::to_string(source));
            YearFiles laid;
            laid.lay(4, 2021, MINUTES_OF_YEAR);
            laid.lay(5, 2021, MINUTES_OF_YEAR);
            laid.lay(6, 2021, MINUTES_OF_YEAR);
            laid.expect({4, 5}, 6, 2021, 0, change == Change::shrinks ? SHORT - 1 : AFTER_EVERY_YEAR, 0.5);
            CorrectionFiles files;
            files.openTarget = [&](std::string_view path) { // at the first write
                const fs::path file = laid.onDisk(source, 2021);
                if (change == Change::shrinks) {
                    fs::resize_file(file, 1024 + 8 * SHORT + 5);
                    laid.files[YearFiles::name(source, 2021)].resize(1024 + 8 * SHORT + 5);
                } else {
                    fs::remove(file); // its bytes stay as long as it is open
                    laid.files.erase(YearFiles::name(source, 2021));
                }
                if (change == Change::becomesFolder) {
                    fs::create_directory(file);
                }
                return openTarget(path);
            };
            const TimeRange range = between({2021, 1, 1, 0, 0}, {2021, 12, 31, 23, 59});
            EXPECT_EQ(recalculate(laid.station, {CorrectionMode::wind, range, 0.5}, files), std::nullopt);
            EXPECT_EQ(laid.changes(), "");
        }
    }
}

/// The data folder goes between two years: nothing is left to do, and no file is made anywhere.
TEST(CorrectionFaults, TheFolderGoesMeanwhile) {
    YearFiles laid;
    for (const int year : {2020, 2021}) {
        laid.lay(7, year, 30);
        laid.lay(15, year, 30);
    }
    CorrectionFiles files;
    files.afterYear = [&laid] { fs::remove_all(laid.folder.path() / "Data"); };
    const TimeRange range = between({2020, 1, 1, 0, 10}, {2021, 1, 1, 0, 19});
    EXPECT_EQ(recalculate(laid.station, {CorrectionMode::dust, range, 2}, files), std::nullopt);
    EXPECT_TRUE(fs::is_empty(laid.folder.path()));
}

} // namespace
} // namespace kelvrum
