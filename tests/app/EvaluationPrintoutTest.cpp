// SPDX-License-Identifier: GPL-3.0-or-later
// An evaluation on paper: its lines in order, and the header of a long table on each of its pages.
#include "app/EvaluationPrintout.h"

#include "tests/app/RecordedPages.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelvrum {

namespace {

using testing::RecordedPages;

EvaluationText textWith(std::size_t rows) {
    EvaluationText text;
    text.title = "Auswertung: Staub";
    text.summary = {{"Intervalle", "24"}, {"Minimum", "1,00 mg"}};
    text.limits = "Ohne.";
    text.foot = "Zeit.";
    EvaluationTable table{"Nach Tagen", {"Tag", "n"}, {}};
    for (std::size_t row = 0; row < rows; ++row) {
        table.rows.push_back({"t" + std::to_string(row), std::to_string(row)});
    }
    text.tables = {table};
    return text;
}

void print(const EvaluationText& text, RecordedPages& pages, const std::string& foot = {}) {
    printEvaluationText(text, "Deponie", foot, [&]() -> Surface& { return pages.next(); });
}

TEST(EvaluationPrintout, TitleSummaryAndTable) {
    RecordedPages pages;
    print(textWith(1), pages);
    ASSERT_EQ(pages.pages.size(), 1U);
    EXPECT_EQ(pages.textsOf(0),
              (std::vector<std::string>{"Auswertung: Staub", "Station", "Deponie", "Intervalle", "24",
                                        "Minimum", "1,00 mg", "Grenzwerte", "Ohne.", "Hinweis", "Zeit.",
                                        "Nach Tagen", "Tag", "n", "t0", "0"}));
}

TEST(EvaluationPrintout, NamesMayContainTheSeparatorOfRows) {
    RecordedPages pages;
    EvaluationText text = textWith(0);
    text.summary = {{"Kanal", "Staub|fein"}};
    text.tables[0].rows.push_back({"Halle|1", "2"});
    printEvaluationText(text, "Halle 1|Nord", {}, [&]() -> Surface& { return pages.next(); });
    EXPECT_EQ(pages.textsOf(0),
              (std::vector<std::string>{"Auswertung: Staub", "Station", "Halle 1|Nord", "Kanal", "Staub|fein",
                                        "Grenzwerte", "Ohne.", "Hinweis", "Zeit.", "Nach Tagen", "Tag", "n",
                                        "Halle|1", "2"}));
}

TEST(EvaluationPrintout, ALongTableRepeatsItsHeaderAndKeepsTheMargin) {
    constexpr std::size_t ROWS = 300;
    RecordedPages pages;
    print(textWith(ROWS), pages);
    ASSERT_GT(pages.pages.size(), 2U);
    std::size_t rows = 0;
    for (std::size_t page = 0; page < pages.pages.size(); ++page) {
        const auto texts = pages.textsOf(page);
        if (page > 0) {
            EXPECT_EQ(texts[0], "Tag");
        }
        for (const std::string& text : texts) {
            rows += text == "t" + std::to_string(rows) ? 1 : 0;
        }
        for (const auto& text : pages.pages[page]->texts()) {
            EXPECT_LE(text.at.y + text.extent.height, 2000);
        }
    }
    EXPECT_EQ(rows, ROWS);
}

TEST(EvaluationPrintout, EachPageHasTheFootAndItsNumber) {
    constexpr std::size_t ROWS = 30;
    RecordedPages pages;
    print(textWith(ROWS), pages, "Deponie, Staub");
    ASSERT_GT(pages.pages.size(), 2U);
    const std::string count = std::to_string(pages.pages.size());
    for (std::size_t page = 0; page < pages.pages.size(); ++page) {
        const auto foot = pages.pages[page]->only("Deponie, Staub");
        const auto number = pages.pages[page]->only("Seite " + std::to_string(page + 1) + " von " + count);
        ASSERT_TRUE(foot && number);
        EXPECT_EQ(foot->at, (Dot{200, 2030}));
        EXPECT_EQ(number->at.x + number->extent.width, 2870);
        EXPECT_EQ(number->at.y, 2030);
    }
}

TEST(EvaluationPrintout, WithoutRowsTheHeaderStaysAlone) {
    RecordedPages pages;
    print(textWith(0), pages);
    EXPECT_EQ(pages.pages.size(), 1U);
    EXPECT_EQ(pages.textsOf(0).back(), "n");
}

} // namespace

} // namespace kelvrum
