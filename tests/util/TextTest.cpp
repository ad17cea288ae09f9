// SPDX-License-Identifier: GPL-3.0-or-later
// Texts: trimming, splitting, letters without regard to case, and the two encodings of the stations.
#include "util/Text.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <set>
#include <string>

namespace kelvrum {
namespace {

using ::testing::ElementsAre;

TEST(Text, TrimBlanks) {
    const struct {
        const char* text;
        const char* trimmed;
    } cases[] = {
        {"", ""},           {" ", ""},          {"    ", ""},   {"a", "a"},
        {"  a b  ", "a b"}, {"\ta\t", "\ta\t"}, {" \t ", "\t"}, {" \xC3\xA4 ", "\xC3\xA4"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(trimBlanks(c.text), c.trimmed);
    }
}

TEST(Text, Split) {
    EXPECT_THAT(split("", '|'), ElementsAre(""));
    EXPECT_THAT(split("a", '|'), ElementsAre("a"));
    EXPECT_THAT(split("|", '|'), ElementsAre("", ""));
    EXPECT_THAT(split("a|b", '|'), ElementsAre("a", "b"));
    EXPECT_THAT(split("a||b|", '|'), ElementsAre("a", "", "b", ""));
    EXPECT_THAT(split("|a", '|'), ElementsAre("", "a"));
    EXPECT_THAT(split("5, Nord", ','), ElementsAre("5", " Nord"));
}

TEST(Text, UpperAscii) {
    EXPECT_EQ(upperAscii(""), "");
    EXPECT_EQ(upperAscii("chan04|azAZ09_{`"), "CHAN04|AZAZ09_{`");
    EXPECT_EQ(upperAscii("\xC3\xA4\xE4"), "\xC3\xA4\xE4");
}

TEST(Text, CharactersOfUtf8) {
    const struct {
        const char* text;
        char32_t code;
        std::size_t length;
    } cases[] = {
        {"", 0, 0},
        {"A", 0x41, 1},
        {"\x7F", 0x7F, 1},
        {"\xC2\x80", 0x80, 2},
        {"\xDF\xBF", 0x7FF, 2},
        {"\xE0\xA0\x80", 0x800, 3},
        {"\xEF\xBF\xBF", 0xFFFF, 3},
        {"\xF0\x90\x80\x80", 0x10000, 4},
        {"\xF4\x8F\xBF\xBF", 0x10FFFF, 4},
        {"ŠA", 0x160, 2},
        {"\x80", 0, 0},     // a tail without its lead
        {"\xC0\x80", 0, 0}, // longer than it needs to be
        {"\xC1\x81", 0, 0},
        {"\xE0\x9F\xBF", 0, 0},
        {"\xED\xA0\x80", 0, 0},     // half of a pair
        {"\xF4\x90\x80\x80", 0, 0}, // above the last character
        {"\xFF", 0, 0},
        {"\xC3", 0, 0}, // cut
        {"\xE2\x82", 0, 0},
        {"\xC3"
         "A",
         0, 0},
    };
    for (const auto& c : cases) {
        const Utf8Character front = firstCharacter(c.text);
        EXPECT_EQ(front.code, c.code) << c.text;
        EXPECT_EQ(front.length, c.length) << c.text;
        if (c.length > 0) {
            std::string written;
            appendUtf8(written, c.code);
            EXPECT_EQ(written, std::string_view(c.text).substr(0, c.length));
        }
    }
}

TEST(Text, FindNoCase) {
    const auto npos = std::string_view::npos;
    const struct {
        const char* text;
        const char* part;
        std::size_t from, at;
    } cases[] = {
        {"", "qel.ini", 0, npos},     {"qel.in", "QEL.ini", 0, npos},
        {"QEL.INI", "qel.ini", 0, 0}, {"a/qEl.InI", "QEL.ini", 0, 2},
        {"aab", "AB", 0, 1},          {"ab ab", "AB", 1, 3},
        {"ab ab", "AB", 4, npos},     {"ab", "ab", 2, npos},
        {"ab", "ab", 99, npos},       {"qel_ini", "QEL.ini", 0, npos},
        {"Ä", "ä", 0, npos},          {"{", "[", 0, npos},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(findNoCase(c.text, c.part, c.from), c.at) << c.text << " " << c.part;
    }
}

TEST(Text, ReplaceAllNoCase) {
    EXPECT_EQ(replaceAllNoCase("D:\\A\\qel.INI", "QEL.ini", "Data\\"), "D:\\A\\Data\\");
    EXPECT_EQ(replaceAllNoCase("xQEL.iniyqel.iniz", "QEL.ini", "-"), "x-y-z");
    EXPECT_EQ(replaceAllNoCase("none", "QEL.ini", "-"), "none");
    EXPECT_EQ(replaceAllNoCase("", "QEL.ini", "-"), "");
    EXPECT_EQ(replaceAllNoCase("aaa", "a", "aa"), "aaaaaa");
    EXPECT_EQ(replaceAllNoCase("aaa", "aa", "b"), "ba");
    EXPECT_EQ(replaceAllNoCase("aBa", "b", ""), "aa");
}

TEST(Text, FromWindows1252) {
    const struct {
        const char* bytes;
        const char* text;
    } cases[] = {
        {"", ""},
        {"m/s", "m/s"},
        {"\xB5g/m\xB3", "µg/m³"},
        {"\xC4\xD6\xDC\xE4\xF6\xFC\xDF", "ÄÖÜäöüß"},
        {"\xB0", "°"},
        {"\x80", "€"},
        {"\x8A\x9F\x99\x85", "ŠŸ™…"},
        {"\x81\x8D\x8F\x90\x9D", "\xC2\x81\xC2\x8D\xC2\x8F\xC2\x90\xC2\x9D"},
        {"\xA0\xFF", "\xC2\xA0ÿ"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(fromWindows1252(c.bytes), c.text);
    }
}

TEST(Text, EveryByteOfWindows1252IsACharacterOfItsOwn) {
    std::set<std::string> seen;
    for (int code = 0; code < 256; ++code) {
        const std::string one = fromWindows1252(std::string(1, static_cast<char>(code)));
        Utf8Check check;
        check.feed(one);
        EXPECT_TRUE(check.isValid()) << code;
        EXPECT_TRUE(seen.insert(one).second) << code;
        EXPECT_EQ(one.size() == 1, code < 128) << code;
    }
}

TEST(Text, CleanFixedText) {
    const struct {
        std::string bytes;
        const char* text;
    } cases[] = {
        {"", ""},
        {std::string(17, '\0'), ""},
        {std::string("Wind\0\0\0\0", 8), "Wind"},
        {std::string("\0\0Wind\0", 7), "Wind"},
        {std::string("A\0B", 3), "A B"},
        {std::string(" \0A\0 ", 5), "A"},
        {"17 Zeichen genau.", "17 Zeichen genau."},
        {"B\xF6"
         "e  ",
         "Böe"},
        {"\tA", "\tA"},
    };
    for (const auto& c : cases) {
        EXPECT_EQ(cleanFixedText(c.bytes), c.text);
    }
}

bool validIn2(std::string_view bytes, std::size_t cut) {
    Utf8Check check;
    check.feed(bytes.substr(0, cut));
    check.feed({});
    check.feed(bytes.substr(cut));
    return check.isValid();
}

void expectUtf8(std::string_view bytes, bool valid) {
    for (std::size_t cut = 0; cut <= bytes.size(); ++cut) {
        EXPECT_EQ(validIn2(bytes, cut), valid)
            << ::testing::PrintToString(std::string(bytes)) << " cut at " << cut;
    }
    Utf8Check single;
    for (const char c : bytes) {
        single.feed({&c, 1});
    }
    EXPECT_EQ(single.isValid(), valid) << ::testing::PrintToString(std::string(bytes));
}

TEST(Text, Utf8CheckAccepts) {
    for (const std::string_view good :
         {"", "abc", "µg/m³", "Böe", "€", "a€b", "\xC2\x80", "\xDF\xBF", "\xE0\xA0\x80", "\xED\x9F\xBF",
          "\xEE\x80\x80", "\xEF\xBF\xBF", "\xEF\xBB\xBF", "\xF0\x90\x80\x80", "\xF0\x9F\x98\x80",
          "\xF4\x8F\xBF\xBF", "ä\xF0\x9F\x98\x80€z"}) {
        expectUtf8(good, true);
    }
    expectUtf8(std::string_view("a\0b", 3), true);
}

TEST(Text, Utf8CheckRefuses) {
    for (const std::string_view bad : {"\x80",
                                       "\xBF",
                                       "\xC3",
                                       "\xE2\x82",
                                       "\xF0\x9F\x98",
                                       "\xC0\x80",
                                       "\xC1\xBF",
                                       "\xE0\x80\x80",
                                       "\xE0\x9F\xBF",
                                       "\xED\xA0\x80",
                                       "\xED\xBF\xBF",
                                       "\xF0\x80\x80\x80",
                                       "\xF0\x8F\xBF\xBF",
                                       "\xF4\x90\x80\x80",
                                       "\xF5\x80\x80\x80",
                                       "\xFE",
                                       "\xFF",
                                       "\xC3(",
                                       "\xE2(\xA1",
                                       "\xE2\x82(",
                                       "\xF0\x9F\x98(",
                                       "\xC3\xC3\xA4",
                                       "a\xB5g/m\xB3",
                                       "B\xF6"
                                       "e",
                                       "\xC3\xA4\xA4",
                                       "abc\xE4",
                                       "\xE4"
                                       "abc"}) {
        expectUtf8(bad, false);
    }
}

TEST(Text, Utf8CheckStaysInvalid) {
    Utf8Check check;
    check.feed("\xFF");
    check.feed("lauter gute Zeichen");
    EXPECT_FALSE(check.isValid());
}

} // namespace
} // namespace kelvrum
