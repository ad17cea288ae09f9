// SPDX-License-Identifier: GPL-3.0-or-later
// The program's writing code is killed at random moments: every value is the old or the new one, and the next
// run completes.
#include "batchprint/SettingsFile.h"
#include "tests/correction/YearFiles.h"
#include "tests/counterparts/WriterProcess.h"
#include "tests/counterparts/WriterTasks.h"
#include "tests/testing/FileContent.h"
#include "tests/testing/TempFolder.h"
#include "util/Numbers.h"

#include <algorithm>
#include <gtest/gtest.h>
#include <iostream>
#include <iterator>
#include <random>

namespace kelvrum {
namespace {

namespace fs = std::filesystem;
using namespace kelvrum::testing;

constexpr int WIND_TARGET = 6;
constexpr int MAX_KILLS = 100; // when none has come at the right moment yet

/// How the values of a file are spread over an old and a new one.
struct Mixture {
    std::size_t older = 0;
    std::size_t newer = 0;
    std::size_t neither = 0;
};

Mixture mixtureOf(const std::string& found, const std::string& before, const std::string& after) {
    Mixture mixture;
    if (found.size() != before.size() || found.size() != after.size()) {
        mixture.neither = std::max<std::size_t>(found.size(), 1);
        return mixture;
    }
    constexpr std::size_t VALUE = 8;
    for (std::size_t at = 0; at < found.size(); at += VALUE) {
        const bool isOld = found.compare(at, VALUE, before, at, VALUE) == 0;
        const bool isNew = found.compare(at, VALUE, after, at, VALUE) == 0;
        if (isOld != isNew) {
            ++(isOld ? mixture.older : mixture.newer);
        } else if (!isOld) {
            ++mixture.neither;
        }
    }
    return mixture;
}

void layTwoYears(YearFiles& station) {
    for (const int channel : {4, 5, WIND_TARGET}) {
        station.lay(channel, FIRST_YEAR, MINUTES_OF_LEAP_YEAR, 3);
        station.lay(channel, FIRST_YEAR + 1, MINUTES_OF_YEAR);
    }
}

void expectTwoYears(YearFiles& station, double factor) {
    station.expect({4, 5}, WIND_TARGET, FIRST_YEAR, FIRST_MINUTE, MINUTES_OF_LEAP_YEAR - 1, factor);
    station.expect({4, 5}, WIND_TARGET, FIRST_YEAR + 1, 0, LAST_MINUTE, factor);
}

/// Both years' targets after a kill, against what they held before and what they are to hold.
Mixture mixtureOfTargets(const FileBytes& found, const FileBytes& before, const FileBytes& after) {
    Mixture all;
    for (const int year : {FIRST_YEAR, FIRST_YEAR + 1}) {
        const std::string name = YearFiles::name(WIND_TARGET, year);
        const Mixture one = mixtureOf(found.at(name), before.at(name), after.at(name));
        all.older += one.older;
        all.newer += one.newer;
        all.neither += one.neither;
    }
    return all;
}

/// The number of the saving whose whole file this is; nothing when it is none.
std::optional<int> savingOf(const std::string& bytes) {
    if (bytes.size() != sammeldruck::FILE_SIZE) {
        return {};
    }
    const auto stored = std::as_bytes(std::span(bytes)).first<sammeldruck::FILE_SIZE>();
    const LoadedSettings loaded = decodeSettings(stored);
    if (loaded.rows.empty()) {
        return {};
    }
    const int number = static_cast<int>(loaded.rows.front().minimum);
    const SettingsBytes whole = encodeSettings(rowsOfSaving(number));
    return std::ranges::equal(stored, whole) ? std::optional(number) : std::nullopt;
}

} // namespace

TEST(Kill, InACorrectionOverTwoYears) {
    YearFiles station;
    layTwoYears(station);
    const auto arguments = [&](double factor) {
        return std::vector<std::string>{"wind", station.folder.base(), plainNumber(factor)};
    };
    const WriterEnd whole = runWriter(arguments(2));
    ASSERT_TRUE(whole.succeeded) << whole.message;
    expectTwoYears(station, 2);
    ASSERT_EQ(station.changes(), "");

    std::mt19937 engine(killSeed());
    std::uniform_int_distribution<Micros::rep> moment(0, whole.duration.count());
    int kills = 0;
    int during = 0;
    for (; kills < killCount() || (during == 0 && kills < MAX_KILLS); ++kills) {
        const double factor = 3 + kills * 0.5; // each run finds what the one before has completed
        const FileBytes before = station.files;
        const Micros delay(moment(engine));
        const WriterEnd end = runWriter(arguments(factor), delay);
        expectTwoYears(station, factor);
        FileBytes found = station.found();
        const Mixture mixture = mixtureOfTargets(found, before, station.files);
        ASSERT_EQ(mixture.neither, 0U) << "killed after " << delay.count() << " us";
        during += end.killed && mixture.older > 0 && mixture.newer > 0 ? 1 : 0;
        for (const int year : {FIRST_YEAR, FIRST_YEAR + 1}) { // all other files are as they were
            const std::string name = YearFiles::name(WIND_TARGET, year);
            found[name] = station.files.at(name);
        }
        ASSERT_EQ(difference(station.files, found), "");
        ASSERT_TRUE(runWriter(arguments(factor)).succeeded);
        ASSERT_EQ(station.changes(), "") << "killed after " << delay.count() << " us";
    }
    std::cout << kills << " kills in " << whole.duration.count() / 1000 << " ms of correction, " << during
              << " with some values written and some not\n";
    EXPECT_GT(during, killCount() / 10); // else the moments were badly chosen
}

TEST(Kill, InSavingTheSettings) {
    const TempFolder folder;
    const fs::path file = folder.path() / "Sammeldruck.cfg";
    constexpr int LONGEST = 20'000; // microseconds
    std::mt19937 engine(killSeed());
    std::uniform_int_distribution<Micros::rep> moment(0, LONGEST);
    int newest = 0;
    int kills = 0;
    int leftOver = 0;
    int missing = 0;
    for (; kills < killCount() || (leftOver == 0 && kills < MAX_KILLS); ++kills) {
        const bool isFirst = kills % 4 == 0; // there is no old file
        if (isFirst) {
            fs::remove(file);
        }
        const WriterEnd end = runWriter({"save", folder.at("Sammeldruck.cfg"), std::to_string(newest + 1)},
                                        Micros(moment(engine)));
        ASSERT_TRUE(end.killed);
        const int left = leftOverFiles(folder.path());
        leftOver += left;
        ASSERT_LE(left, 1);
        if (isFirst && !fs::exists(file)) {
            ++missing;
        } else {
            const auto found = savingOf(contentOf(file));
            ASSERT_TRUE(found.has_value());
            ASSERT_GE(*found, newest);
            newest = *found;
        }
        ++newest;
        ASSERT_FALSE(saveSettings(rowsOfSaving(newest), folder.at("Sammeldruck.cfg")));
        ASSERT_EQ(savingOf(contentOf(file)), newest);
        ASSERT_EQ(std::distance(fs::directory_iterator(folder.path()), {}), 1);
    }
    std::cout << kills << " kills in " << newest << " savings, " << leftOver << " left a temporary file, "
              << missing << " came before the first file\n";
    EXPECT_GT(leftOver, 0); // else the moments were badly chosen
}

} // namespace kelvrum
