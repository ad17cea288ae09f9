// SPDX-License-Identifier: GPL-3.0-or-later
// The command line of the sample station's writer.
#include "tools/makestation/CommandLine.h"
#include "tests/testing/TempFolder.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <sstream>
#include <string>
#include <vector>

namespace {

using namespace kelvrum;
using namespace kelvrum::sample;
using ::testing::HasSubstr;
using ::testing::StartsWith;

const DateTime NOW = dateSerial(2020, 6, 18) + timeSerial(10, 30);

struct Accepted {
    std::vector<std::string> arguments;
    StationForm form;
    DateTime until;
    int days;
    std::uint64_t seed;
};

TEST(CommandLine, TakesOptionsInAnyOrder) {
    const Accepted cases[] = {
        {{"here"}, StationForm::ini, NOW, 730, 1},
        {{"here", "--form", "ini"}, StationForm::ini, NOW, 730, 1},
        {{"--form", "narrow", "here"}, StationForm::narrow, NOW, 730, 1},
        {{"--form", "wide", "here", "--days", "1"}, StationForm::wide, NOW, 1, 1},
        {{"here", "--until", "2020-02-29"}, StationForm::ini, dateSerial(2020, 2, 29), 730, 1},
        {{"here", "--until", "2020-12-31T23:59"},
         StationForm::ini,
         dateSerial(2020, 12, 31) + timeSerial(23, 59),
         730,
         1},
        {{"here", "--seed", "18446744073709551615"}, StationForm::ini, NOW, 730, 18446744073709551615U},
        {{"here", "--days", "3", "--days", "4"}, StationForm::ini, NOW, 4, 1},
    };
    for (const Accepted& wanted : cases) {
        std::string problem;
        const auto order = parseOrder(wanted.arguments, NOW, problem);
        ASSERT_TRUE(order) << ::testing::PrintToString(wanted.arguments) << problem;
        EXPECT_EQ(order->folder, "here");
        EXPECT_EQ(order->plan.form, wanted.form);
        EXPECT_EQ(order->plan.until, wanted.until);
        EXPECT_EQ(order->plan.days, wanted.days);
        EXPECT_EQ(order->plan.seed, wanted.seed);
    }
}

TEST(CommandLine, RefusesWhatMakesNoSense) {
    const struct {
        std::vector<std::string> arguments;
        std::string_view problem;
    } cases[] = {
        {{}, "no folder"},
        {{""}, "one folder only"},
        {{"--days", "3"}, "no folder"},
        {{"here", "there"}, "one folder only"},
        {{"here", "--form", "broad"}, "--form broad"},
        {{"here", "--form"}, "--form"},
        {{"here", "--days", "0"}, "--days 0"},
        {{"here", "--days", "-1"}, "--days -1"},
        {{"here", "--days", "3x"}, "--days 3x"},
        {{"here", "--days", "99999999999"}, "--days"},
        {{"here", "--seed", "-1"}, "--seed -1"},
        {{"here", "--until", "2021-02-29"}, "--until 2021-02-29"},
        {{"here", "--until", "2020-06-18 10:30"}, "--until"},
        {{"here", "--until", "2020-06-18T24:00"}, "--until"},
        {{"here", "--until", "18.06.2020"}, "--until"},
        {{"here", "--until", "0099-06-18"}, "--until"},
        {{"here", "--until", "1901-01-01", "--days", "36525"}, "too many days"},
        {{"here", "--colour", "red"}, "--colour red"},
        {{"here", "--help"}, "--help"},
    };
    for (const auto& wanted : cases) {
        std::string problem;
        EXPECT_FALSE(parseOrder(wanted.arguments, NOW, problem))
            << ::testing::PrintToString(wanted.arguments);
        EXPECT_THAT(problem, HasSubstr(std::string(wanted.problem)));
    }
}

TEST(CommandLine, SaysHowItIsUsed) {
    std::ostringstream messages;
    EXPECT_EQ(makeStation(std::vector<std::string>{"--form"}, NOW, messages), 2);
    EXPECT_THAT(messages.str(), StartsWith("makestation: cannot use --form"));
    EXPECT_THAT(messages.str(), HasSubstr("usage: makestation FOLDER"));
}

TEST(CommandLine, WritesAStationQuietly) {
    const kelvrum::testing::TempFolder folder;
    std::ostringstream messages;
    const std::vector<std::string> arguments = {folder.at("new/station"), "--days", "1"};
    EXPECT_EQ(makeStation(arguments, NOW, messages), 0);
    EXPECT_EQ(messages.str(), "");
    EXPECT_TRUE(std::filesystem::is_regular_file(folder.at("new/station/QEL.ini")));
}

TEST(CommandLine, NamesWhatCannotBeWritten) {
    const kelvrum::testing::TempFolder folder;
    folder.write("occupied", "a file where a folder is wanted");
    folder.write("half/Data/Kanal01_2020.chn/keep", "a folder where a file is wanted");
    for (const char* name : {"occupied", "half"}) {
        std::ostringstream messages;
        const std::vector<std::string> arguments = {folder.at(name), "--days", "1"};
        EXPECT_EQ(makeStation(arguments, NOW, messages), 1);
        EXPECT_THAT(messages.str(), StartsWith("makestation: cannot write " + folder.at(name)));
        EXPECT_FALSE(std::filesystem::exists(folder.at(name) + "/QEL.ini"));
    }
}

} // namespace
