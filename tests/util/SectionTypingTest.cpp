// SPDX-License-Identifier: GPL-3.0-or-later
// What is typed into a date or a time, section by section.
#include "util/SectionTyping.h"

#include <gtest/gtest.h>

#include <string>

namespace kelvrum {
namespace {

using Unit = SectionTyping::Unit;

/// Types into a section of what is shown: digits and separators, "<" erases, "{" and "}" move.
SectionTyping typed(const char* format, const char* shown, std::size_t section, std::string_view keys) {
    SectionTyping typing(format);
    typing.begin(shown, section);
    for (const char key : keys) {
        switch (key) {
        case '<':
            typing.eraseDigit();
            break;
        case '{':
            typing.move(-1);
            break;
        case '}':
            typing.move(+1);
            break;
        default:
            typing.type({&key, 1});
        }
    }
    return typing;
}

TEST(SectionTyping, ShowsWhatIsTyped) {
    const struct {
        const char* format;
        const char* shown;
        std::size_t section;
        const char* keys;
        const char* text;
        std::size_t at; // the section then
    } cases[] = {
        {"dd.MM.yyyy", "18.06.2020", 0, "", "18.06.2020", 0},
        {"dd.MM.yyyy", "18.06.2020", 0, "3", "3.06.2020", 0},
        {"dd.MM.yyyy", "18.06.2020", 0, "31", "31.06.2020", 1},
        {"dd.MM.yyyy", "18.06.2020", 0, "31.01.2020", "31.01.2020", 2},
        {"dd.MM.yyyy", "29.02.2020", 0, "31122019", "31.12.2019", 2},
        {"dd.MM.yyyy", "18.06.2020", 0, "1.7.2021", "1.7.2021", 2},
        {"dd.MM.yyyy", "18.06.2020", 0, "5.2.1", "5.2.1", 2}, // 5 and 2 are full: no second digit can follow
        {"dd.MM.yyyy", "18.06.2020", 0, "4/9/", "4.9.2020", 2},    // any separator
        {"dd.MM.yyyy", "18.06.2020", 0, "..", "18.06.2020", 0},    // nothing to move on
        {"dd.MM.yyyy", "18.06.2020", 1, "12", "18.12.2020", 2},    // moved on
        {"dd.MM.yyyy", "18.06.2020", 2, "20215", "18.06.2021", 2}, // no fifth digit
        {"dd.MM.yyyy", "18.06.2020", 9, "1999", "18.06.1999", 2},  // there is no tenth section
        {"dd.MM.yyyy", "18.06.2020", 2, "<", "18.06.202", 2},
        {"dd.MM.yyyy", "18.06.2020", 2, "<<<<<19", "18.06.19", 2},
        {"dd.MM.yyyy", "18.06.2020", 0, "}}{7", "18.7.2020", 2},
        {"dd.MM.yyyy", "18.06.2020", 0, "{{05", "05.06.2020", 1},
        {"M/d/yyyy", "6/18/2020", 0, "12/31/2019", "12/31/2019", 2},
        {"yyyy-MM-dd", "2020-06-18", 0, "2021-02-03", "2021-02-03", 2},
        {"d. M. yyyy 'r.'", "18. 6. 2020 'r.'", 1, "7", "18. 7. 2020 'r.'", 2},
        {"hh:mm", "10:00", 0, "0930", "09:30", 1},
        {"hh:mm", "10:00", 0, "9:30", "9:30", 1},
        {"hh:mm", "10:00", 0, "1:2", "1:2", 1},
        {"hh:mm", "10:00", 1, "7", "10:7", 1},
        {"hh:mm", "10:00", 0, "6:5:30", "6:5", 1}, // nothing follows the last section
        {"dd.MM.yyyy", "18.06.2020", 0, "16.05.19 10:00", "16.05.19", 2},
        {"dd.MM.yyyy", "18.06.2020", 0, "16.05.19 <8", "16.05.18", 2},
        {"dd.MM.yyyy", "18.06.2020", 0, "31<0", "30.06.2020", 1}, // the digit before the section was left
    };
    for (const auto& c : cases) {
        const SectionTyping typing = typed(c.format, c.shown, c.section, c.keys);
        EXPECT_EQ(typing.text(), c.text) << c.shown << " + " << c.keys;
        EXPECT_EQ(typing.section(), c.at) << c.shown << " + " << c.keys;
        EXPECT_TRUE(typing.isActive());
        EXPECT_LE(typing.sectionStart() + typing.sectionLength(), typing.text().size());
    }
}

TEST(SectionTyping, Numbers) {
    const SectionTyping date = typed("dd.MM.yyyy", "18.06.2020", 0, "3.");
    EXPECT_EQ(date.number(Unit::day), 3);
    EXPECT_EQ(date.number(Unit::month), 6);
    EXPECT_EQ(date.number(Unit::year), 2020);
    EXPECT_EQ(date.number(Unit::hour), std::nullopt);
    const struct {
        const char* keys;
        std::optional<int> year;
    } years[] = {{"<<<<", std::nullopt}, {"5", 2005},    {"19", 2019}, {"69", 2069},
                 {"70", 1970},           {"99", 1999},   {"202", 202}, {"0099", 99},
                 {"2020", 2020},         {"1850", 1850}, {"00", 2000}, {"9999", 9999}};
    for (const auto& c : years) {
        EXPECT_EQ(typed("dd.MM.yyyy", "18.06.2020", 2, c.keys).number(Unit::year), c.year) << c.keys;
    }
}

TEST(SectionTyping, AWholeDateBeginsWithTheFirstSection) {
    SectionTyping typing = typed("dd.MM.yyyy", "18.06.2020", 2, "");
    typing.type("16.5.2019");
    EXPECT_EQ(typing.text(), "16.5.2019");
    typing.moveToLast();
    typing.type("1999");
    EXPECT_EQ(typing.text(), "16.5.1999");
    typing.moveToFirst();
    typing.eraseSection();
    EXPECT_EQ(typing.text(), ".5.1999");
    typing.type("23");
    typing.eraseSection(); // reached automatically: the digit before
    EXPECT_EQ(typing.text(), "2.5.1999");
}

TEST(SectionTyping, DatesInAnotherOrderAreDiscarded) {
    const struct {
        const char* format;
        const char* shown;
        const char* characters;
        const char* text;
    } cases[] = {
        {"dd.MM.yyyy", "18.06.2020", "2026-03-05", "18.06.2020"},
        {"dd.MM.yyyy", "18.06.2020", "2026-03-05 10:00", "18.06.2020"},
        {"dd.MM.yyyy", "18.06.2020", "05.03.2026 10:00:00.123456", "05.03.2026"},
        {"dd.MM.yyyy", "18.06.2020", "05032026 10:00", "05.03.2026"},
        {"M/d/yyyy", "6/18/2020", "2026/3/5", "6/18/2020"},
        {"yyyy-MM-dd", "2020-06-18", "05.03.2026", "2020-06-18"},
        {"yyyy-MM-dd", "2020-06-18", "2026-03-05T10:00:00.123Z", "2026-03-05"},
        {"yyyy-MM-dd", "2020-06-18", "26-3-5", "26-3-5"},
        {"hh:mm", "10:00", "18.06.2026 11:30", "10:00"},
        {"hh:mm", "10:00", "2026-06-18 11:30", "10:00"},
        {"hh:mm", "10:00", "11:30:59.123", "11:30"},
        {"hh:mm", "10:00", "1130", "11:30"},
    };
    for (const auto& c : cases) {
        SectionTyping typing(c.format);
        typing.begin(c.shown, 0);
        typing.type(c.characters);
        EXPECT_EQ(typing.text(), c.text) << c.shown << " + " << c.characters;
    }
}

TEST(SectionTyping, AllErasedBeginsAnew) {
    SectionTyping typing = typed("dd.MM.yyyy", "18.06.2020", 2, "");
    typing.eraseAll();
    EXPECT_EQ(typing.text(), "..");
    EXPECT_EQ(typing.section(), 0U);
    typing.type("31122019");
    EXPECT_EQ(typing.text(), "31.12.2019");
    typing.end();
    EXPECT_FALSE(typing.isActive());
}

TEST(SectionTyping, WithoutSectionsThereIsNothingToType) {
    SectionTyping typing("'-'");
    typing.begin("-", 0);
    EXPECT_FALSE(typing.isActive());
}

} // namespace
} // namespace kelvrum
