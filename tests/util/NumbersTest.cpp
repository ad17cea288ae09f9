// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers in texts: leading and whole ones, rounding to integers, and the plain text of a number.
#include "util/Numbers.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>
#include <locale>
#include <optional>
#include <string>

namespace kelvrum {
namespace {

constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
constexpr double ENDLESS = std::numeric_limits<double>::infinity();

TEST(Numbers, LeadingNumber) {
    const struct {
        const char* text;
        double value;
    } cases[] = {
        {"", 0},
        {" ", 0},
        {"abc", 0},
        {"-", 0},
        {"+", 0},
        {".", 0},
        {"-.", 0},
        {"e3", 0},
        {".e3", 0},
        {"12abc", 12},
        {"1 2", 1},
        {"1 e3", 1},
        {"- 5", 0},
        {"--5", 0},
        {"+-5", 0},
        {"  7", 7},
        {"\t7", 7},
        {" \t 7", 7},
        {"7\t8", 7},
        {"+5", 5},
        {"-5", -5},
        {".5", 0.5},
        {"-.5", -0.5},
        {"5.", 5},
        {"5.x", 5},
        {"1.2.3", 1.2},
        {"1,5", 1},
        {"1.5", 1.5},
        {"1e3", 1000},
        {"1E3", 1000},
        {"1e+3", 1000},
        {"1e-3", 0.001},
        {"1e", 1},
        {"1e+", 1},
        {"1e-x", 1},
        {"1e 3", 1},
        {"1e3e3", 1000},
        {"1e3.5", 1000},
        {"5.e2", 500},
        {"04", 4},
        {"007.50", 7.5},
        {"0x10", 0},
        {"inf", 0},
        {"-inf", 0},
        {"infinity", 0},
        {"INF", 0},
        {"nan", 0},
        {"NaN", 0},
        {"nan(1)", 0},
        {"1e400", ENDLESS},
        {"-1e400", -ENDLESS},
        {"1e-400", 0},
        {"0e999999999999", 0},
        {"1e99999999999999999999", ENDLESS},
        {"1e-99999999999999999999", 0},
        {"99999900", 99999900},
        {"\xC2\xA0"
         "5",
         0},
        {"12\xB5g", 12},
        {"1e3|x", 1000},
        {"\"5\"", 0},
        {"0.1", 0.1},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(leadingNumber(c.text), c.value) << c.text;
    }
    EXPECT_EQ(leadingNumber(std::string(5000, '9')), ENDLESS);
    EXPECT_EQ(leadingNumber(std::string(5000, '0') + "7"), 7);
    EXPECT_EQ(leadingNumber("0." + std::string(5000, '0') + "7"), 0);
    EXPECT_EQ(leadingNumber("0" + std::string(400, '9')), ENDLESS);
    EXPECT_EQ(leadingNumber("-00" + std::string(400, '9') + ".5"), -ENDLESS);
    EXPECT_EQ(leadingNumber("1" + std::string(400, '0') + "e-5"), ENDLESS);
    EXPECT_EQ(leadingNumber("0." + std::string(400, '0') + "1e5"), 0);
    EXPECT_EQ(leadingNumber("0." + std::string(400, '0') + "1e+800"), ENDLESS);
    EXPECT_EQ(leadingNumber(std::string_view("12345", 3)), 123) << "reads beyond the view";
    EXPECT_EQ(leadingNumber(std::string_view("1\0002", 3)), 1);
}

TEST(Numbers, AnExponentAtTheEndOfTheLargestIntegers) {
    EXPECT_EQ(leadingNumber("10e9223372036854775807"), ENDLESS);
    EXPECT_EQ(leadingNumber("-10e9223372036854775806"), -ENDLESS);
    EXPECT_EQ(leadingNumber("0.01e-9223372036854775807"), 0);
    EXPECT_EQ(leadingNumber("0.01e-9223372036854775808"), 0);
    EXPECT_EQ(leadingNumber("10e9223372036854775808"), ENDLESS);
    EXPECT_EQ(leadingNumber("0.01e2147483648"), ENDLESS);
    EXPECT_EQ(leadingNumber("10e-2147483648"), 0);
}

TEST(Numbers, WholeNumber) {
    const struct {
        const char* text;
        std::optional<double> value;
    } cases[] = {
        {"", {}},         {" ", {}},        {"\t", {}},
        {".", {}},        {"+", {}},        {"-", {}},
        {"12abc", {}},    {"1,5", {}},      {"1 2", {}},
        {"- 3", {}},      {"--3", {}},      {"+-3", {}},
        {"1e", {}},       {"1e+", {}},      {"e3", {}},
        {"1e3.5", {}},    {"1.2.3", {}},    {"0x10", {}},
        {"inf", {}},      {"-inf", {}},     {"nan", {}},
        {"Infinity", {}}, {"1e400", {}},    {"-1e400", {}},
        {"1.5 m/s", {}},  {"\"5\"", {}},    {"1'000", {}},
        {"1.000,5", {}},  {".5", 0.5},      {"-.5", -0.5},
        {"+3", 3.0},      {"1e3", 1000.0},  {"1E-3", 0.001},
        {"0", 0.0},       {"007", 7.0},     {"-7.25", -7.25},
        {"  7  ", 7.0},   {"\t7\r\n", 7.0}, {"99999999", 99999999.0},
        {"1e308", 1e308}, {"+.5e1", 5.0},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(wholeNumber(c.text), c.value) << c.text;
    }
    EXPECT_EQ(wholeNumber(std::string_view("12x", 2)), 12.0) << "reads beyond the view";
    EXPECT_EQ(wholeNumber(std::string_view("12\0", 3)), std::nullopt);
}

TEST(Numbers, HalvesRoundToEven) {
    const struct {
        double v, rounded;
    } cases[] = {
        {0, 0},
        {0.5, 0},
        {1.5, 2},
        {2.5, 2},
        {3.5, 4},
        {4.5, 4},
        {-0.5, 0},
        {-1.5, -2},
        {-2.5, -2},
        {-3.5, -4},
        {0.49999999999999994, 0},
        {0.51, 1},
        {2.4, 2},
        {2.6, 3},
        {-2.6, -3},
        {4503599627370495.5, 4503599627370496},
        {1e300, 1e300},
        {-1e300, -1e300},
        {ENDLESS, ENDLESS},
        {-ENDLESS, -ENDLESS},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(roundHalfEven(c.v), c.rounded) << c.v;
    }
    EXPECT_TRUE(std::isnan(roundHalfEven(NOT_A_NUMBER)));
}

TEST(Numbers, RoundToInt32) {
    const struct {
        double v;
        std::optional<std::int32_t> rounded;
    } cases[] = {
        {0, 0},
        {0.5, 0},
        {1.5, 2},
        {-2.5, -2},
        {2147483646.5, 2147483646},
        {2147483647, 2147483647},
        {2147483647.4, 2147483647},
        {2147483647.5, {}},
        {2147483648.0, {}},
        {-2147483648.0, std::numeric_limits<std::int32_t>::min()},
        {-2147483648.5, std::numeric_limits<std::int32_t>::min()},
        {-2147483648.6, {}},
        {-2147483649.0, {}},
        {4294967297.0, {}},
        {1e300, {}},
        {-1e300, {}},
        {ENDLESS, {}},
        {-ENDLESS, {}},
        {NOT_A_NUMBER, {}},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(roundToInt32(c.v), c.rounded) << c.v;
    }
}

TEST(Numbers, PlainNumber) {
    const struct {
        double v;
        const char* text;
    } cases[] = {
        {0, "0"},
        {-0.0, "0"},
        {1, "1"},
        {-2.5, "-2.5"},
        {100, "100"},
        {0.1, "0.1"},
        {0.1 + 0.2, "0.3"},
        {1.0 / 3, "0.333333333333333"},
        {2.0 / 3, "0.666666666666667"},
        {99999900, "99999900"},
        {1234.5678, "1234.5678"},
        {1e14, "100000000000000"},
        {999999999999999, "999999999999999"},
        {123456789012345, "123456789012345"},
        {0.001, "0.001"},
        {1e-15, "0.000000000000001"},
        {NOT_A_NUMBER, "nan"},
        {ENDLESS, "inf"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(plainNumber(c.v), c.text);
    }
}

TEST(Numbers, PlainNumberHasAnExponentOnlyBeyondFifteenPlaces) {
    const struct {
        double v;
        const char* text;
    } cases[] = {
        {1.0 / 30, "0.0333333333333333"},
        {-1.0 / 30, "-0.0333333333333333"},
        {1.0 / 3e5, "0.00000333333333333333"},
        {2.0 / 3e15, "6.66666666666667e-16"},
        {1e-15, "0.000000000000001"},
        {1.23456789012345e-15, "0.00000000000000123456789012345"},
        {-9.87654321098765e-15, "-0.00000000000000987654321098765"},
        {9.99999999999999e-16, "9.99999999999999e-16"},
        {9.9999999999999999e-16, "0.000000000000001"}, // 1e-15 in 15 digits
        {1e-16, "1e-16"},
        {1e-300, "1e-300"},
        {5e-324, "4.94065645841247e-324"},
        {123456.78901234567, "123456.789012346"},
        {99999999999999.9, "99999999999999.9"},
        {-999999999999999, "-999999999999999"},
        {999999999999999.9, "1e15"}, // 1e15 in 15 digits
        {1e15, "1e15"},
        {-1e15, "-1e15"},
        {1234567890123456, "1.23456789012346e15"},
        {1e300, "1e300"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(plainNumber(c.v), c.text) << c.v;
    }
}

TEST(Numbers, PlainNumberReadsBack) {
    for (const double v : {1e15, 1e16, 1e300, 1.5e-16, 1e-300, 1.2345678901234567e308, 5e-324, -12345.6789e20,
                           0.01 / 3, 1.0 / 30, 1.23456789012345e-15}) {
        const std::string text = plainNumber(v);
        EXPECT_NEAR(leadingNumber(text) / v, 1, 1e-14) << text;
        EXPECT_EQ(wholeNumber(text), leadingNumber(text)) << text;
    }
    EXPECT_NE(plainNumber(1e300).find_first_of("eE"), std::string::npos);
    EXPECT_NE(plainNumber(1e-300).find_first_of("eE"), std::string::npos);
}

TEST(Numbers, DecimalDigits) {
    const struct {
        double v;
        bool negative;
        const char* digits;
        int exponent;
    } cases[] = {
        {1, false, "1", 1},
        {-2, true, "2", 1},
        {0.5, false, "5", 0},
        {0.05, false, "5", -1},
        {100, false, "1", 3},
        {123.45, false, "12345", 3},
        {-0.0625, true, "625", -1},
        {0.1 + 0.2, false, "3", 0},
        {1.005, false, "1005", 1},
        {9999999999999999.0, false, "1", 17},
        {0.99999999999999999, false, "1", 1},
        {123456789012345678.0, false, "123456789012346", 18},
        {5e-324, false, "494065645841247", -323},
        {1.7976931348623157e308, false, "179769313486232", 309},
    };
    for (const auto& c : cases) {
        const DecimalDigits got = decimalDigits(c.v);
        EXPECT_EQ(got.negative, c.negative) << c.v;
        EXPECT_EQ(got.digits, c.digits) << c.v;
        EXPECT_EQ(got.exponent, c.exponent) << c.v;
    }
    EXPECT_EQ(decimalDigits(0).digits, "");
    EXPECT_EQ(decimalDigits(0).exponent, 0);
}

class CommaPoint : public std::numpunct<char> {
    [[nodiscard]] char do_decimal_point() const override { return ','; }
    [[nodiscard]] char do_thousands_sep() const override { return '.'; }
    [[nodiscard]] std::string do_grouping() const override { return "\3"; }
};

TEST(Numbers, TheLocaleDoesNotMatter) {
    const std::locale before = std::locale::global(std::locale(std::locale::classic(), new CommaPoint));
    EXPECT_EQ(leadingNumber("1.5"), 1.5);
    EXPECT_EQ(wholeNumber("1,5"), std::nullopt);
    EXPECT_EQ(plainNumber(12345.5), "12345.5");
    std::locale::global(before);
}

} // namespace
} // namespace kelvrum
