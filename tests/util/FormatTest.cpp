// SPDX-License-Identifier: GPL-3.0-or-later
// Shown numbers and times: formats, halves away from zero, the user's separators.
#include "util/Format.h"

#include "util/Validity.h"

#include <gtest/gtest.h>

#include <limits>

namespace kelvrum {
namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double ENDLESS = std::numeric_limits<double>::infinity();
constexpr double SECOND = 1.0 / 86400;

const LocaleTexts GERMAN;
const LocaleTexts AMERICAN{".", "/", "m/d/yyyy"};
const LocaleTexts SWEDISH{",", "-", "yyyy-mm-dd"};

TEST(Format, Numbers) {
    const struct {
        const char* format;
        double v;
        const char* text;
    } cases[] = {
        {"######0.000", 0.0005, "0,001"},
        {"######0.000", -0.0005, "-0,001"},
        {"######0.000", 1.0005, "1,001"},
        {"######0.000", 0.00049, "0,000"},
        {"######0.000", -0.00049, "0,000"},
        {"######0.000", 999.9995, "1000,000"},
        {"######0.000", 0, "0,000"},
        {"######0.000", ZERO_VALUE, "0,000"},
        {"######0.000", -ZERO_VALUE, "0,000"},
        {"######0.000", 3.14159, "3,142"},
        {"######0.00", 1.005, "1,01"},
        {"######0.00", -1.005, "-1,01"},
        {"######0.00", 0.285, "0,29"},
        {"######0.00", 2.675, "2,68"},
        {"######0.00", 0.005, "0,01"},
        {"######0.00", 0.00499, "0,00"},
        {"######0.00", -0.004, "0,00"},
        {"######0.00", 1234567.891, "1234567,89"},
        {"######0.00", 12345678901, "12345678901,00"},
        {"######0.00", 0.1 + 0.2, "0,30"},
        {"######0.0", 0.05, "0,1"},
        {"######0.0", 0.15, "0,2"},
        {"######0.0", 0.25, "0,3"},
        {"######0.0", 0.35, "0,4"},
        {"######0.0", 0.45, "0,5"},
        {"######0.0", -0.25, "-0,3"},
        {"######0.0", -0.04, "0,0"},
        {"######0.0", 9.95, "10,0"},
        {"######0.0", 0.95, "1,0"},
        {"######0.0", 99999900, "99999900,0"},
        {"######0", 0.5, "1"},
        {"######0", 1.5, "2"},
        {"######0", 2.5, "3"},
        {"######0", -2.5, "-3"},
        {"######0", -0.5, "-1"},
        {"######0", -0.4, "0"},
        {"######0", -0.0, "0"},
        {"######0", 0.49999, "0"},
        {"######0", 1440, "1440"},
        {"######0", 12345678, "12345678"},
        {"######0", 1e20, "100000000000000000000"},
        {"######0", 9.5, "10"},
        {"########0.0#", 1, "1,0"},
        {"########0.0#", 1.2, "1,2"},
        {"########0.0#", 1.25, "1,25"},
        {"########0.0#", 1.255, "1,26"},
        {"########0.0#", 1.999, "2,0"},
        {"########0.0#", 1.001, "1,0"},
        {"########0.0#", 0.005, "0,01"},
        {"########0.0#", -0.004, "0,0"},
        {"########0.0#", 0, "0,0"},
        {"########0.0#", -12.05, "-12,05"},
        {"########0.0#", 99.995, "100,0"},
        {"########0.0#", 123456789.5, "123456789,5"},
        {"#0.0", 0, "0,0"},
        {"#0.0", -0.0, "0,0"},
        {"#0.0", 0.05, "0,1"},
        {"#0.0", -0.05, "-0,1"},
        {"#0.0", 359.95, "360,0"},
        {"#0.0", 12.34, "12,3"},
        {"00", 4, "04"},
        {"00", 15, "15"},
        {"00", 123, "123"},
        {"######0.00", NOT_A_NUMBER, ""},
        {"######0.00", ENDLESS, ""},
        {"######0.00", -ENDLESS, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(formatNumber(c.v, c.format, GERMAN), c.text) << c.format << " of " << c.v;
    }
}

TEST(Format, NumbersTakeTheLocalesSeparator) {
    EXPECT_EQ(formatNumber(-1.25, "######0.0", AMERICAN), "-1.3");
    EXPECT_EQ(formatNumber(2, "######0", AMERICAN), "2");
    EXPECT_EQ(formatNumber(1.5, "#0.0", LocaleTexts{"\xD9\xAB", "/", "d/m/yyyy"}), "1\xD9\xAB"
                                                                                   "5");
}

TEST(Format, NeverMinusZero) {
    for (const char* format : {"######0.000", "######0.00", "######0.0", "######0", "########0.0#", "#0.0"}) {
        for (const double v : {-0.0, -1e-300, -5e-324, -1e-9, -0.0004}) {
            EXPECT_EQ(formatNumber(v, format, GERMAN).find('-'), std::string::npos) << format << " of " << v;
        }
    }
}

TEST(Format, Times) {
    const DateTime noon = 44000.5; // 18 June 2020
    const struct {
        const LocaleTexts& texts;
        const char* format;
        DateTime t;
        const char* text;
    } cases[] = {
        {GERMAN, "dd/mm/yy", noon, "18.06.20"},
        {AMERICAN, "dd/mm/yy", noon, "18/06/20"},
        {SWEDISH, "dd/mm/yy", noon, "18-06-20"},
        {GERMAN, "dd/mm/yy", 36526, "01.01.00"},
        {GERMAN, "dd/mm/yy", 39448, "01.01.08"},
        {GERMAN, "m/yyyy", noon, "6.2020"},
        {AMERICAN, "m/yyyy", noon, "6/2020"},
        {SWEDISH, "m/yyyy", 44196, "12-2020"},
        {GERMAN, "hh:mm", noon, "12:00"},
        {AMERICAN, "hh:mm", 44000, "00:00"},
        {GERMAN, "hh:mm", 44000 + timeSerial(9, 5), "09:05"},
        {GERMAN, "hh:mm", noon - 0.4 * SECOND, "12:00"},
        {GERMAN, "hh:mm", noon - 0.6 * SECOND, "11:59"},
        {GERMAN, "hh:mm", 44001 - 0.4 * SECOND, "00:00"},
        {GERMAN, "dd/mm/yy", 44001 - 0.4 * SECOND, "19.06.20"},
        {GERMAN, "dd/mm/yy", 44197 - 0.4 * SECOND, "01.01.21"},
        {GERMAN, "m/yyyy", 44197 - 0.4 * SECOND, "1.2021"},
        {GERMAN, "hh:mm:ss", 44000 + timeSerial(9, 5, 7), "09:05:07"},
        {GERMAN, "dd/mm/yy hh:mm", 44000 + timeSerial(9, 45), "18.06.20 09:45"},
        {GERMAN, "d.m.yyyy", 43835, "5.1.2020"},
        {GERMAN, "yyyy-mm-dd hh:mm", 43835.75, "2020-01-05 18:00"},
        {GERMAN, "", noon, ""},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(formatDateTime(c.t, c.format, c.texts), c.text) << c.format;
    }
}

TEST(Format, TimesOutsideOfTheCalendarGiveSomeText) {
    for (const double t : {NOT_A_NUMBER, ENDLESS, -ENDLESS, 1e300, -1e300}) {
        EXPECT_EQ(formatDateTime(t, "dd/mm/yy", GERMAN).size(), 8U);
        EXPECT_EQ(formatDateTime(t, "hh:mm", GERMAN).size(), 5U);
    }
}

TEST(Format, RowTime) {
    EXPECT_EQ(rowTime(44000.5, GERMAN), "18.06.2020 12:00");
    EXPECT_EQ(rowTime(44000.5, AMERICAN), "6/18/2020 12:00");
    EXPECT_EQ(rowTime(43835.25, SWEDISH), "2020-01-05 06:00");
    EXPECT_EQ(rowTime(44000.5 - 0.4 * SECOND, GERMAN), "18.06.2020 12:00");
    EXPECT_EQ(rowTime(44001 - 0.4 * SECOND, GERMAN), "19.06.2020 00:00");
}

TEST(Format, ShownNumber) {
    const struct {
        double v;
        const char* german;
        const char* american;
    } cases[] = {
        {0, "0", "0"},
        {1, "1", "1"},
        {-2.5, "-2,5", "-2.5"},
        {0.1 + 0.2, "0,3", "0.3"},
        {1234.5, "1234,5", "1234.5"},
        {99999900, "99999900", "99999900"},
        {0.001, "0,001", "0.001"},
        {1.0 / 3, "0,333333333333333", "0.333333333333333"},
        {1.0 / 30, "0,0333333333333333", "0.0333333333333333"},
        {1e-15, "0,000000000000001", "0.000000000000001"},
        {1.5e-16, "1,5e-16", "1.5e-16"},
        {1e15, "1e15", "1e15"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(shownNumber(c.v, GERMAN), c.german);
        EXPECT_EQ(shownNumber(c.v, AMERICAN), c.american);
    }
}

TEST(Format, ShownSinglePrecisionNumber) {
    const struct {
        float v;
        const char* german;
    } cases[] = {
        {0.0F, "0"},
        {0.1F, "0,1"},
        {12.3F, "12,3"},
        {-7.25F, "-7,25"},
        {3.0F, "3"},
        {1013.2F, "1013,2"},
        {0.01234567F, "0,01234567"},
        {1e-10F, "0,0000000001"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(shownNumber(c.v, GERMAN), c.german);
    }
}

} // namespace
} // namespace kelvrum
