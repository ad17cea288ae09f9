// SPDX-License-Identifier: GPL-3.0-or-later
// The corrected channels: every byte of every file is compared with what a plain loop over the minutes gives.
#include "correction/Recalculation.h"

#include "tests/correction/YearFiles.h"
#include "tests/testing/FileContent.h"
#include "tests/testing/Registers.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <bit>
#include <cmath>

namespace kelvrum {
namespace {

namespace fs = std::filesystem;
using namespace kelvrum::testing;

constexpr double INF = std::numeric_limits<double>::infinity();
constexpr int LONG = 9'000'000; // a minute after every year

struct Channels {
    std::vector<int> sources;
    int target;
};

Channels channelsOf(CorrectionMode mode) {
    return mode == CorrectionMode::wind ? Channels{{4, 5}, 6} : Channels{{7}, 15};
}

/// 1 January 2021 00:10 to 00:19.
const TimeRange TEN_MINUTES = between({2021, 1, 1, 0, 10}, {2021, 1, 1, 0, 19});

TEST(Recalculation, Ranges) {
    struct Minutes {
        int year;
        int first;
        int last;
    };
    const struct {
        const char* name;
        Moment from;
        Moment to;
        std::vector<Minutes> rewritten;
    } rows[] = {
        {"one minute", {2019, 1, 1, 0, 0}, {2019, 1, 1, 0, 0}, {{2019, 0, 0}}},
        {"one day, its end included", {2019, 6, 18, 0, 0}, {2019, 6, 19, 0, 0}, {{2019, 241'920, 243'360}}},
        {"end before start", {2019, 6, 18, 12, 0}, {2019, 6, 18, 11, 59}, {}},
        {"end long before start", {2019, 6, 18, 12, 0}, {2019, 1, 1, 0, 0}, {}},
        {"end in the year before", {2020, 1, 1, 0, 0}, {2019, 12, 31, 23, 59}, {}},
        {"last minute", {2019, 12, 31, 23, 59}, {2019, 12, 31, 23, 59}, {{2019, 525'599, 525'599}}},
        {"a leap year's last day", {2020, 12, 31, 0, 0}, {2020, 12, 31, 23, 59}, {{2020, 525'600, 527'039}}},
        {"29 February", {2020, 2, 29, 0, 0}, {2020, 3, 1, 0, 0}, {{2020, 84'960, 86'400}}},
        {"1 March without a 29 February", {2019, 3, 1, 0, 0}, {2019, 3, 1, 0, 1}, {{2019, 84'960, 84'961}}},
        {"end at midnight of the new year",
         {2019, 12, 31, 23, 58},
         {2020, 1, 1, 0, 0},
         {{2019, 525'598, LONG}, {2020, 0, 0}}},
        {"20 December to 10 January",
         {2019, 12, 20, 0, 0},
         {2020, 1, 10, 12, 34},
         {{2019, 508'320, LONG}, {2020, 0, 13'714}}},
        {"three years",
         {2019, 11, 5, 7, 8},
         {2021, 2, 3, 4, 5},
         {{2019, 443'948, LONG}, {2020, 0, LONG}, {2021, 0, 47'765}}},
    };
    YearFiles laid;
    for (const int channel : {4, 5, 6, 7, 15}) {
        laid.lay(channel, 2018, 100);
        laid.lay(channel, 2019, MINUTES_OF_YEAR);
        laid.lay(channel, 2020, MINUTES_OF_LEAP_YEAR);
        laid.lay(channel, 2021, MINUTES_OF_YEAR);
    }
    const FileBytes fresh = laid.files;
    for (const auto& row : rows) {
        for (const CorrectionMode mode : {CorrectionMode::wind, CorrectionMode::dust}) {
            const auto [sources, target] = channelsOf(mode);
            for (const auto& [year, first, last] : row.rewritten) {
                laid.expect(sources, target, year, first, last, 1.05);
            }
            int steps = 0;
            CorrectionFiles files;
            files.afterYear = [&steps] { ++steps; };
            EXPECT_EQ(recalculate(laid.station, {mode, between(row.from, row.to), 1.05}, files),
                      std::nullopt);
            EXPECT_EQ(laid.changes(), "") << row.name;
            EXPECT_EQ(steps, std::max(row.to.year - row.from.year + 1, 0)) << row.name;
            // What the next row expects is computed from files that are new again.
            for (const auto& minutes : row.rewritten) {
                laid.lay(target, minutes.year, fresh.at(YearFiles::name(target, minutes.year)));
            }
        }
    }
}

TEST(Recalculation, FilesOfAnyLength) {
    constexpr int NONE = -1;
    const struct {
        const char* name;
        int first; // source: minutes, bytes after them
        int firstTail;
        int second;
        int secondTail;
        int target;
        int targetTail;
    } rows[] = {
        {"all there", 100, 0, 100, 0, 100, 0},
        {"target absent", 100, 0, 100, 0, NONE, 0},
        {"target empty", 100, 0, 100, 0, -128, 0},
        {"target is a piece of a header", 100, 0, 100, 0, -100, 0},
        {"target ends before the range", 100, 0, 100, 0, 3, 5},
        {"target ends in the range", 100, 0, 100, 0, 15, 3},
        {"target is longer", 100, 0, 100, 0, 300, 7},
        {"source ends within the range", 15, 0, 15, 0, 100, 0},
        {"odd tail is no value", 15, 7, 15, 7, 100, 0},
        {"odd tail before the range", 9, 7, 9, 7, NONE, 0},
        {"source ends with the range's last minute", 20, 0, 20, 0, NONE, 0},
        {"source ends before that", 19, 7, 19, 7, NONE, 0},
        {"source ends where the range begins", 10, 0, 10, 0, NONE, 0},
        {"first source shorter", 12, 4, 100, 0, 14, 0},
        {"second source shorter", 100, 0, 13, 1, NONE, 0},
        {"second source without a value", 100, 0, 10, 7, NONE, 0},
        {"first source missing", NONE, 0, 100, 0, 30, 0},
        {"second source missing", 100, 0, NONE, 0, NONE, 0},
        {"sources missing", NONE, 0, NONE, 0, NONE, 0},
        {"source empty", -128, 0, -128, 0, NONE, 0},
        {"source is a piece of a header", -1, 7, 100, 0, 30, 0},
    };
    for (const auto& row : rows) {
        for (const CorrectionMode mode : {CorrectionMode::wind, CorrectionMode::dust}) {
            const auto [sources, target] = channelsOf(mode);
            YearFiles laid;
            const auto lay = [&laid](int channel, int minutes, int tail) {
                if (minutes < NONE) { // that many values are missing in the header, too
                    laid.lay(
                        channel, 2021,
                        yearFile(channel, 2021, 0).substr(0, static_cast<std::size_t>(1024 + 8 * minutes)));
                } else if (minutes >= 0) {
                    laid.lay(channel, 2021, minutes, tail);
                }
            };
            lay(4, row.first, row.firstTail);
            lay(5, row.second, row.secondTail);
            lay(7, row.first, row.firstTail);
            lay(6, row.target, row.targetTail);
            lay(15, row.target, row.targetTail);
            laid.expect(sources, target, 2021, 10, 19, -2.5);
            EXPECT_EQ(recalculate(laid.station, {mode, TEN_MINUTES, -2.5}), std::nullopt);
            EXPECT_EQ(laid.changes(), "") << row.name << ", mode " << static_cast<int>(mode);
        }
    }
}

/// A year whose source is missing is left alone; the other years are not.
TEST(Recalculation, MissingYear) {
    YearFiles laid;
    for (const int year : {2019, 2021}) {
        laid.lay(7, year, 2000);
    }
    laid.lay(15, 2020, 50);
    laid.expect({7}, 15, 2019, 1000, LONG, 3);
    laid.expect({7}, 15, 2021, 0, 1441, 3);
    EXPECT_EQ(recalculate(laid.station,
                          {CorrectionMode::dust, between({2019, 1, 1, 16, 40}, {2021, 1, 2, 0, 1}), 3}),
              std::nullopt);
    EXPECT_EQ(laid.changes(), "");
}

std::string fileOfValues(std::initializer_list<double> values) {
    return channelFile(std::vector<double>(values));
}

double firstValue(const std::string& file) {
    double v = 0;
    std::memcpy(&v, &file[1024], sizeof v);
    return v;
}

TEST(Recalculation, Values) {
    const struct {
        double a;
        double b;
        double factor;
        double wind; // a * b * factor
        double dust; // a * factor
    } rows[] = {
        {0, 5, 2, 0, 0},
        {0, INF, INF, 0, 0},
        {-0.0, 5, -1, 0, 0},
        {5, 0, 2, 0, 10},
        {5, -0.0, -2, 0, -10},
        {0, 0, INF, 0, 0},
        {5, 3, 0, 0, 0},
        {-5, 3, 0, -0.0, -0.0},
        {INF, 2, -1, -INF, -INF},
        {99999900, 1, 2, 199999800, 199999800},
        {-99999900, 1, 1, -99999900, -99999900},
        {1e-300, 2, 2, 4e-300, 2e-300},
        // The order of the factors shows in the last digit, and in whether a product has room.
        {0.1, 0.2, 0.3, 0.006000000000000001, 0.03},
        {0.7, 1.1, 1.05, 0.8085000000000001, 0.735},
        {1.1, 0.7, 1.05, 0.8085000000000001, 1.1550000000000002},
        {2.3, 5.9, 0.95, 12.891499999999999, 2.1849999999999996},
        {1e200, 1e200, 1e-200, INF, 1},
        {1e-200, 1e-200, 1e300, 0, 1e100},
        {1e-200, -1e-200, 1e300, -0.0, 1e100}, // no source is 0
        {1e-200, -1e-200, -1, 0, -1e-200},
    };
    for (const auto& row : rows) {
        YearFiles laid;
        laid.lay(4, 2021, fileOfValues({row.a}));
        laid.lay(5, 2021, fileOfValues({row.b}));
        laid.lay(7, 2021, fileOfValues({row.a}));
        const TimeRange minute = between({2021, 1, 1, 0, 0}, {2021, 1, 1, 0, 0});
        recalculate(laid.station, {CorrectionMode::wind, minute, row.factor});
        recalculate(laid.station, {CorrectionMode::dust, minute, row.factor});
        const FileBytes found = laid.found();
        const auto bits = [](double v) { return std::bit_cast<std::uint64_t>(v); };
        const double wind = firstValue(found.at("Kanal06_2021.chn"));
        const double dust = firstValue(found.at("Kanal15_2021.chn"));
        EXPECT_EQ(bits(wind), bits(row.wind)) << row.a << " " << row.b << " " << row.factor << ": " << wind;
        EXPECT_EQ(bits(dust), bits(row.dust)) << row.a << " " << row.factor << ": " << dust;
    }
}

TEST(Recalculation, NotANumber) {
    const double nan = std::nan("");
    const struct {
        double a;
        double b;
        double factor;
    } rows[] = {{nan, 1, 2},    {1, nan, 2}, {nan, nan, 0},        {INF, 1, 0},
                {INF, -INF, 0}, {1, 1, nan}, {1e-200, 1e-200, INF}};
    for (const auto& row : rows) {
        YearFiles laid;
        laid.lay(4, 2021, fileOfValues({row.a}));
        laid.lay(5, 2021, fileOfValues({row.b}));
        recalculate(laid.station,
                    {CorrectionMode::wind, between({2021, 1, 1, 0, 0}, {2021, 1, 1, 0, 0}), row.factor});
        EXPECT_TRUE(std::isnan(firstValue(laid.found().at("Kanal06_2021.chn"))))
            << row.a << " " << row.b << " " << row.factor;
    }
}

TEST(Recalculation, FactorTexts) {
    const struct {
        const char* text;
        double factor;
    } rows[] = {
        {"", 0},       {" ", 0},          {"abc", 0},         {",", 0},       {".", 0},
        {"-", 0},      {"x1,05", 0},      {"1,05", 1.05},     {"1.05", 1.05}, {" 1,05 ", 1.05},
        {"\t2", 2},    {"1,05abc", 1.05}, {"1.234,5", 1.234}, {"1,2,3", 1.2}, {",5", 0.5},
        {"-,5", -0.5}, {"+1,5", 1.5},     {"-2", -2},         {"1,5e2", 150}, {"1e", 1},
        {"1 5", 1},    {"5,", 5},         {"0,0", 0},         {"1e999", INF},
    };
    for (const auto& row : rows) {
        EXPECT_EQ(factorOf(row.text), row.factor) << "'" << row.text << "'";
    }
}

/// Events run after each year, and what they paint does not slow down the next one.
TEST(Recalculation, ComputesEachYearWithCleanRegisters) {
    if (!hasUpperHalves()) {
        GTEST_SKIP() << "this processor has no such registers";
    }
    const TempFolder folder;
    StationConfig station;
    station.DataFolder = folder.base();
    int opened = 0;
    CorrectionFiles files;
    files.openSource = [&](std::string_view path) {
        ++opened;
        EXPECT_TRUE(areUpperHalvesClean()) << path;
        return openFile(path);
    };
    files.afterYear = [] { fillUpperHalves(); };
    const TimeRange years = between({2019, 1, 1, 0, 0}, {2021, 1, 1, 0, 0});
    fillUpperHalves();
    EXPECT_EQ(recalculate(station, {CorrectionMode::dust, years, 2}, files), std::nullopt);
    EXPECT_EQ(opened, 3);
}

/// The places of the files: a folder of the project, an absolute one, the project's own folder in
/// the binary form. The file that is there is taken in whatever case its name is.
TEST(Recalculation, Folders) {
    const TempFolder folder;
    const std::string source = yearFile(7, 2021, 30);
    const struct {
        ConfigKind kind;
        std::string dataFolder;
        const char* place;
    } rows[] = {
        {ConfigKind::ini, "Werte\\Roh\\", "Projekt/werte/roh/"},
        {ConfigKind::ini, folder.at("Netz/"), "Netz/"},
        {ConfigKind::ini, "", "Projekt/"},
        {ConfigKind::binary, "", "Projekt/"},
    };
    for (const auto& row : rows) {
        const std::string place = row.place;
        folder.write(place + "KANAL07_2021.CHN", source);
        const std::string target = folder.write(place + "kanal15_2021.Chn", yearFile(15, 2021, 12));
        StationConfig station;
        station.Kind = row.kind;
        station.BaseFolder = folder.at("Projekt/");
        station.DataFolder = row.dataFolder;
        EXPECT_EQ(recalculate(station, {CorrectionMode::dust, TEN_MINUTES, 2}), std::nullopt);
        EXPECT_TRUE(contentOf(target) == corrected(yearFile(15, 2021, 12), {source}, 10, 19, 2)) << row.place;
        const auto files = fs::directory_iterator(fs::path(target).parent_path());
        EXPECT_EQ(std::count_if(begin(files), end(files), [](const auto& e) { return e.is_regular_file(); }),
                  2);
        fs::remove_all(folder.path());
    }
}

} // namespace
} // namespace kelvrum
