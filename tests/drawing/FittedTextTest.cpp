// SPDX-License-Identifier: GPL-3.0-or-later
// Texts that have a limited room. A character is 6 dots wide.
#include "drawing/FittedText.h"

#include "tests/testing/TestSurface.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelvrum {

namespace {

using testing::TestSurface;

/// A surface whose characters are as many dots wide as its font has points.
class GrowingSurface final : public RecordingSurface {
  public:
    GrowingSurface()
        : RecordingSurface({1000, 600}, 1, std::make_unique<Meter>()) {}

  private:
    class Meter final : public TextMeter {
      public:
        void setFont(const Font& font) override { points_ = static_cast<int>(font.Size); }
        Extent extent(std::string_view text) override {
            return {points_ * static_cast<int>(text.size()), points_};
        }

      private:
        int points_ = 0;
    };
};

TEST(FittedText, CutTextKeepsItsBeginning) {
    struct Row {
        std::string_view text;
        int room;
        std::string_view cut;
    };
    constexpr Row ROWS[] = {
        {"Gerät", 30, "Gerät"},
        {"Gerät", 29, "Ger…"},
        {"Überlingen", 12, "Ü…"},
        {"Überlingen", 6, "…"},
        {"Überlingen", 0, "…"},
        {"Überlingen", -5, "…"},
        {"Köln und Bonn", 36, "Köln…"},
        {"", 0, ""},
        {"", -1, ""},
    };
    TestSurface surface;
    for (const Row& row : ROWS) {
        EXPECT_EQ(cutText(surface, row.text, row.room), row.cut) << row.text << " in " << row.room;
    }
}

TEST(FittedText, ATitleGetsSmallerAndThenLosesItsMiddle) {
    struct Row {
        std::string_view text;
        int room;
        double points;
        std::string_view fitted;
    };
    constexpr Row ROWS[] = {
        {"abcdef", 72, 12, "abcdef"}, {"abcdef", 71, 11, "abcdef"}, {"abcdef", 48, 8, "abcdef"},
        {"abcdef", 47, 8, "a…f"}, // the mark is three bytes long
        {"abcdef", 40, 8, "a…f"},     {"abcdef", 39, 8, "a…"},      {"abcdef", 0, 8, "…"},
    };
    for (const Row& row : ROWS) {
        GrowingSurface surface;
        EXPECT_EQ(fitText(surface, {"Arial", 12, true, false}, row.text, row.room, 8), row.fitted)
            << row.room;
        EXPECT_EQ(surface.textExtent("x").width, row.points) << row.room;
    }
}

TEST(FittedText, LinesBreakAtBlanks) {
    struct Row {
        std::string_view text;
        int room;
        std::size_t maxLines;
        std::vector<std::string> lines;
    };
    const Row rows[] = {
        {"eins zwei drei", 84, 3, {"eins zwei drei"}},
        {"eins zwei drei", 83, 3, {"eins zwei", "drei"}},
        {"eins zwei drei", 30, 3, {"eins", "zwei", "drei"}},
        {"eins zwei drei", 30, 2, {"eins", "zwei…"}},
        {"eins zwei drei", 30, 1, {"eins…"}},
        {"Gerätenummer 17", 30, 3, {"Gerä…", "17"}},
        {"Gerätenummer", 30, 3, {"Gerä…"}},
        {"", 30, 3, {""}},
        {"", 0, 3, {""}},
        {"zwei ", 24, 3, {"zwei"}},
    };
    TestSurface surface;
    for (const Row& row : rows) {
        EXPECT_EQ(wrapText(surface, row.text, row.room, row.maxLines), row.lines)
            << row.text << " in " << row.room;
    }
}

} // namespace

} // namespace kelvrum
