// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TablePrintout.h"
#include "tests/app/RecordedPages.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelvrum {

namespace {

using ::testing::ElementsAre;
using testing::RecordedPages;

/// Every byte but the second of a two-byte character is 2 mm wide.
double twoMillimetres(std::string_view text) {
    double width = 0;
    for (const char c : text) {
        width += (static_cast<unsigned char>(c) & 0xC0U) == 0x80U ? 0 : 2;
    }
    return width;
}

TEST(ColumnEntry, IsANumberAfterAnOptionalMark) {
    EXPECT_EQ(parseColumnEntry(""), (ColumnEntry{0, 0}));
    EXPECT_EQ(parseColumnEntry(">"), (ColumnEntry{'>', 0}));
    EXPECT_EQ(parseColumnEntry(">x"), (ColumnEntry{'>', 0}));
    EXPECT_EQ(parseColumnEntry("20"), (ColumnEntry{0, 20}));
    EXPECT_EQ(parseColumnEntry(">57"), (ColumnEntry{'>', 57}));
    EXPECT_EQ(parseColumnEntry("^12.5"), (ColumnEntry{'^', 12.5}));
    EXPECT_EQ(parseColumnEntry(">1e999"), (ColumnEntry{'>', 0}));
}

TEST(CellFitter, CutsFromTheRightAndPadsByTheMark) {
    struct Case {
        const char* text;
        const char* entry;
        const char* expected;
    };
    const Case cases[] = {
        {"", "10", ""},
        {"", ">10", "     "},
        {"abc", "0", ""},
        {"abc", "-5", ""},
        {"abc  ", "20", "abc"},        // trailing blanks of a left cell go
        {"abcdefgh", "10", "abcde"},   // wider than its column: cut at the right
        {"abcdefgh", ">10", "abcde"},  //
        {"abcdefgh", ">11", " abcde"}, // padded until the width is reached, and a little beyond
        {"abc", "10", "abc"},
        {"abc", ">10", "  abc"},
        {"abc", "^10", " abc "},
        {"abc", "^12", "  abc "}, // in turns, left first
        {"µg/m³x", "8", "µg/m"},  // whole characters are dropped
        {"µ", "1", ""},
    };
    for (const Case& c : cases) {
        SCOPED_TRACE(std::string(c.text) + " in " + c.entry);
        EXPECT_EQ(fitCell(c.text, c.entry, twoMillimetres), c.expected);
    }
}

TEST(CellFitter, EndsWhateverTheMeasure) {
    const TextWidth nothing = [](std::string_view) { return 0.0; };
    EXPECT_EQ(fitCell("abc", ">10", nothing), "abc");
    EXPECT_LT(fitCell("abc", ">1e300", twoMillimetres).size(), 20'000U);
}

TEST(CellFitter, ALongTextIsMeasuredAFewTimes) {
    std::string text;
    while (text.size() < 60'000) {
        text += "µg/m³ ";
    }
    std::size_t measured = 0; // bytes
    const TextWidth count = [&measured](std::string_view part) {
        measured += part.size();
        return twoMillimetres(part);
    };
    EXPECT_EQ(fitCell(text, "23", count), "µg/m³ µg/m³");
    EXPECT_EQ(fitCell(text, ">23", count), " µg/m³ µg/m³");
    EXPECT_EQ(fitCell(text, "-1", count), "");
    EXPECT_LT(measured, 3 * text.size());
}

TEST(RowPrinter, PlacesCellsAtTheirEntries) {
    EXPECT_THAT(placeRow("ab|cd|e", "20|>30|>40", 12, twoMillimetres),
                ElementsAre(PlacedCell{20, "ab"}, PlacedCell{30, "   cd"}, PlacedCell{40, "     e"}));
    EXPECT_THAT(placeRow("ab|cd", "20", 12, twoMillimetres), ElementsAre(PlacedCell{20, "ab"}));
    EXPECT_THAT(placeRow("", "20|>30", 12, twoMillimetres), ElementsAre(PlacedCell{20, ""}));
}

Table tableOf(std::size_t rows) {
    return {"Kläranlage Nord", "Uhrzeit|Staub [mg]", 1, rows,
            [](std::size_t row) { return "t" + std::to_string(row) + "|v" + std::to_string(row); }};
}

TEST(TablePrintout, AnEmptyListHasTitleAndHeaderOnly) {
    RecordedPages pages;
    printTable(tableOf(0), [&]() -> Surface& { return pages.next(); });
    ASSERT_EQ(pages.pages.size(), 1U);
    EXPECT_THAT(pages.textsOf(0), ElementsAre("Kläranlage Nord", "Uhrzeit", "Staub [mg]"));
}

TEST(TablePrintout, TitleHeaderAndRowsHaveTheirFontsAndPlaces) {
    RecordedPages pages;
    printTable(tableOf(1), [&]() -> Surface& { return pages.next(); });
    const auto& texts = pages.pages[0]->texts();
    ASSERT_EQ(texts.size(), 5U);
    EXPECT_EQ(texts[0].font, (Font{"Arial", 12, true, false}));
    EXPECT_EQ(texts[0].at, (Dot{200, 100}));
    EXPECT_EQ(texts[1].font, (Font{"Arial", 10, false, false}));
    // The title and an empty line of 12 mm each.
    EXPECT_EQ(texts[1].at, (Dot{200, 340}));
    // 17 characters are 102 mm: the value column is at 20 + 102 + 1.
    EXPECT_EQ(texts[2].at, (Dot{1230, 340}));
    // 20 characters are 120 mm: the column is 121 mm wide, which 21 characters reach.
    EXPECT_EQ(texts[2].text, std::string(11, ' ') + "Staub [mg]");
    // One line and 5 mm below the header.
    EXPECT_EQ(texts[3].at, (Dot{200, 510}));
    EXPECT_EQ(texts[4].text, std::string(19, ' ') + "v0");
}

TEST(TablePrintout, EveryRowIsPrintedOnceAndEachPageRepeatsTheHeader) {
    constexpr std::size_t ROWS = 10'000;
    RecordedPages pages;
    printTable(tableOf(ROWS), [&]() -> Surface& { return pages.next(); });
    EXPECT_GT(pages.pages.size(), 1U);
    std::size_t next = 0;
    for (std::size_t page = 0; page < pages.pages.size(); ++page) {
        const auto texts = pages.textsOf(page);
        std::size_t at = page == 0 ? 1 : 0;
        ASSERT_EQ(texts[at], "Uhrzeit");
        for (at += 2; at < texts.size(); at += 2, ++next) {
            ASSERT_EQ(texts[at], "t" + std::to_string(next));
            ASSERT_EQ(texts[at + 1], "v" + std::to_string(next));
        }
        for (const auto& text : pages.pages[page]->texts()) {
            EXPECT_LE(text.at.y + text.extent.height, 2000) << "the lower margin is 10 mm";
        }
    }
    EXPECT_EQ(next, ROWS);
}

TEST(TablePrintout, ManyColumnsRunBeyondThePaperAndAreNotWrapped) {
    RecordedPages pages;
    Table table = tableOf(1);
    table.valueColumns = 34;
    table.header = "Uhrzeit";
    for (int i = 0; i < 34; ++i) {
        table.header += "|K" + std::to_string(i);
    }
    printTable(table, [&]() -> Surface& { return pages.next(); });
    EXPECT_EQ(pages.pages.size(), 1U);
    EXPECT_EQ(pages.textsOf(0)[35], "K33");
    EXPECT_GT(pages.pages[0]->texts()[35].at.x, 2970);
    EXPECT_EQ(pages.pages[0]->texts()[35].at.y, pages.pages[0]->texts()[1].at.y);
}

} // namespace

} // namespace kelvrum
