// SPDX-License-Identifier: GPL-3.0-or-later
// Letters in capitals and small, of every script.
#include "util/CaseFolding.h"

#include "util/Text.h"

#include <gtest/gtest.h>

namespace kelvrum {
namespace {

TEST(CaseFolding, Texts) {
    const struct {
        const char* text;
        const char* folded;
    } cases[] = {
        {"", ""},
        {"Kanal04_2020.CHN", "kanal04_2020.chn"},
        {"@[`{", "@[`{"},
        {"ÄÖÜäöüß", "äöüäöüß"},
        {"ÀÉÞØ", "àéþø"},
        {"×÷", "×÷"}, // no letters, though they are among them
        {"€Ÿ", "€ÿ"},
        {"ÄA\xC4", "äa\xC4"}, // a stray byte stays
        {"\xC3", "\xC3"},
        {"\xC1\x81", "\xC1\x81"}, // no other writing of A
        {"ŠŽŒ", "šžœ"},
        {"ĄĆĘŁŃŚŹŻ", "ąćęłńśźż"},
        {"ŐŰĞŞÇ", "őűğşç"},
        {"Iı", "iı"}, // the same in every country
        {"ẞ", "ß"},
        {"ǄǅǆǇǈǉ", "ǆǆǆǉǉǉ"},
        {"ΑΩΆΏΣσς", "αωάώσσσ"},
        {"ΑΙᾼ", "αιᾳ"},
        {"АЯЁЇҐЂ", "аяёїґђ"},
        {"ԱՖ", "աֆ"},
        {"ႠჅᲐ", "ⴀⴥა"},
        {"\u13F8\uAB70", "\u13F0\u13A0"}, // Cherokee folds to its capitals
        {"ⅧⓏＡ", "ⅷⓩａ"},
        {"\U00010400\U0001E921", "\U00010428\U0001E943"},
        {"漢字かなعربي", "漢字かなعربي"},
        {"K\u212A\u212B", "kk\u00E5"}, // kelvin and angstrom
    };
    for (const auto& c : cases) {
        EXPECT_EQ(foldCase(c.text), c.folded);
    }
}

std::string utf8(char32_t code) {
    std::string text;
    appendUtf8(text, code);
    return text;
}

/// All simple foldings of Unicode 15: so many characters change, and none twice. Those beyond have no case.
TEST(CaseFolding, EveryCharacter) {
    int changed = 0;
    for (char32_t code = 0; code <= 0x1FFFF; ++code) {
        if (code >= 0xD800 && code <= 0xDFFF) {
            continue; // no characters
        }
        const std::string text = utf8(code);
        const std::string folded = foldCase(text);
        changed += folded != text ? 1 : 0;
        ASSERT_EQ(foldCase(folded), folded) << std::hex << static_cast<unsigned>(code);
        ASSERT_EQ(firstCharacter(folded).length, folded.size()) << std::hex << static_cast<unsigned>(code);
    }
    EXPECT_EQ(changed, 1454);
}

} // namespace
} // namespace kelvrum
