// SPDX-License-Identifier: GPL-3.0-or-later
// The texts of a line diagram: title band, titles, unit, captions, footnote, precipitation total.
#include "diagram/LineDiagram.h"

#include "tests/diagram/TestDiagram.h"
#include "tests/testing/ShowDots.h"
#include "tests/testing/TestSurface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace kelvrum {
namespace {

using kelvrum::testing::Column;
using kelvrum::testing::DAY;
using kelvrum::testing::fillSeries;
using kelvrum::testing::RecordedText;
using kelvrum::testing::TestDiagram;
using kelvrum::testing::TestSurface;
using ::testing::ElementsAre;

constexpr Colour LEFT_AXIS = 0x020202;
constexpr Colour RIGHT_AXIS = 0x030303;

void draw(TestSurface& surface, DiagramState& diagram, const LocaleTexts& texts = {}) {
    drawLineDiagram(surface, diagram, DiagramLayout(), texts);
}

class DayDiagram : public TestDiagram {
  public:
    DayDiagram() {
        setXLow(DAY);
        setXHigh(DAY + 1);
        setY1axe(LEFT_AXIS);
        setY2axe(RIGHT_AXIS);
    }
};

TEST(Titles, AreCentredOnTheirBand) {
    DayDiagram diagram;
    diagram.setHeadLine("Station Süd");              // 11 bold characters
    diagram.setHeadLine2("Windrichtung 01.01.2024"); // 23 plain ones
    TestSurface surface;
    draw(surface, diagram);
    ASSERT_FALSE(surface.boxes().empty());
    EXPECT_EQ(surface.boxes()[0].at, (Box{0, 0, 1000, 12 + 19}));
    EXPECT_EQ(surface.boxes()[0].clip, std::nullopt);
    const auto first = surface.only("Station Süd");
    ASSERT_TRUE(first);
    EXPECT_EQ(first->at, (Dot{(1000 - 77) / 2, 3}));
    EXPECT_TRUE(first->font.Bold);
    const auto second = surface.only("Windrichtung 01.01.2024");
    ASSERT_TRUE(second);
    EXPECT_EQ(second->at, (Dot{(1000 - 138) / 2, 16}));
    EXPECT_FALSE(second->font.Bold);
}

TEST(Titles, TheBandIsThereWithoutATitle) {
    DayDiagram diagram;
    TestSurface surface;
    draw(surface, diagram);
    ASSERT_EQ(surface.boxes().size(), 1U);
    EXPECT_EQ(surface.boxes()[0].at, (Box{0, 0, 1000, 31}));
}

TEST(Titles, AllTextsAreInSkalaFont) {
    DayDiagram diagram;
    diagram.setSkalaFont({"Courier", 11, false, true});
    diagram.setHeadLine("Titel");
    diagram.setHeadLine2("Zweite");
    diagram.setFussnote("Fuß");
    diagram.setEinheit("mm");
    diagram.setAchseText("links;rechts");
    diagram.setDiagTyp(2);
    TestSurface surface;
    draw(surface, diagram);
    for (const RecordedText& one : surface.texts()) {
        EXPECT_EQ(one.font, (Font{"Courier", 11, one.text == "Titel", true})) << one.text;
    }
    EXPECT_EQ(diagram.SkalaFont(), (Font{"Courier", 11, false, true})) << "the font itself stays";
}

TEST(Unit, EndsAtTheLeftMargin) {
    const struct {
        const char* unit;
        const char* text;
        int x;
    } rows[] = {
        {"m/s", " m/s", 16}, {"µg/m³", " µg/m³", 4}, {"°", " °", 28}, {"Umdrehungen", " Umdrehungen", -32}};
    for (const auto& [unit, text, x] : rows) {
        DayDiagram diagram;
        diagram.setEinheit(unit);
        TestSurface surface;
        draw(surface, diagram);
        const auto found = surface.only(text);
        ASSERT_TRUE(found) << unit;
        EXPECT_EQ(found->at.x, x) << unit;
        EXPECT_GE(found->at.y, 31) << "below the title band";
        EXPECT_LT(found->at.y, 50);
    }
}

TEST(Captions, AreAtTheirAxes) {
    const struct {
        const char* text;
        std::vector<std::string> left, right; // besides the labels
    } rows[] = {
        {"", {}, {}},
        {"x", {}, {}}, // too short for a caption
        {"xy", {"xy"}, {}},
        {"Wind;Staub", {"Wind"}, {"Staub"}},
        {";Staub", {}, {"Staub"}},
        {"Wind;", {"Wind"}, {}},
        {"a;b;c", {"a"}, {"b"}},
    };
    for (const auto& row : rows) {
        SCOPED_TRACE(row.text);
        DayDiagram diagram;
        diagram.setAchseText(row.text);
        TestSurface surface;
        draw(surface, diagram);
        const auto captions = [&](Colour pen) {
            std::vector<std::string> found;
            for (const std::string& word : surface.wordsOf(pen)) {
                if (word.find_first_of("0123456789") == std::string::npos && word != " ") {
                    found.push_back(word);
                }
            }
            return found;
        };
        EXPECT_EQ(captions(LEFT_AXIS), row.left);
        EXPECT_EQ(captions(RIGHT_AXIS), row.right);
    }
}

TEST(Footnote, IsBelowThePlot) {
    DayDiagram diagram;
    diagram.setFussnote("Werte ungeprüft");
    TestSurface surface;
    draw(surface, diagram);
    const auto note = surface.only("Werte ungeprüft");
    ASSERT_TRUE(note);
    EXPECT_GE(note->at.y, 560);
    EXPECT_LE(note->at.y + note->extent.height, 600);
    for (const RecordedText& one : surface.texts()) {
        const bool apart = one.at.y + one.extent.height <= note->at.y ||
                           one.at.x >= note->at.x + note->extent.width ||
                           one.at.x + one.extent.width <= note->at.x;
        EXPECT_TRUE(one.text.empty() || one.text == note->text || apart) << "covers " << one.text;
    }
}

struct TotalCase {
    std::vector<double> values;
    const char* text;
};
const TotalCase TOTALS[] = {
    {{}, "Niederschlagssumme = 0,0"},         {{1.5, 2, 0, 999999, -999999}, "Niederschlagssumme = 3,5"},
    {{0.25, 1}, "Niederschlagssumme = 1,25"}, {{0.125}, "Niederschlagssumme = 0,13"},
    {{1e-300}, "Niederschlagssumme = 0,0"},   {{500000, 500000, 500000}, "Niederschlagssumme = 1500000,0"},
};

bool isTime(const std::string& text) { return text.size() == 5 && text[2] == ':'; }
bool isDate(const std::string& text) { return text.size() == 8 && text[2] == '.' && text[5] == '.'; }

TEST(Total, IsWrittenInTheBottomMarginOfPrecipitationOnly) {
    constexpr int rowPitch = 10; // rows of labels are this close
    for (const TotalCase& c : TOTALS) {
        for (const std::int32_t kind : {0, 2, 3, 4}) {
            SCOPED_TRACE(::testing::Message() << c.text << ", kind " << kind);
            DayDiagram diagram;
            diagram.setDiagTyp(kind);
            std::vector<Column> columns;
            for (const double v : c.values) {
                columns.push_back({DAY + static_cast<double>(columns.size()) / 24, v});
            }
            fillSeries(diagram, columns);
            diagram.SetArray(static_cast<std::int32_t>(columns.size()));
            TestSurface surface;
            draw(surface, diagram);
            const auto total = surface.only(c.text);
            EXPECT_EQ(total.has_value(), kind == 2);
            if (total) {
                EXPECT_GT(total->at.y, 560);
                EXPECT_LE(total->at.y + total->extent.height, 600);
                EXPECT_EQ(total->at.x + total->extent.width, 1000) << "ends at the right edge";
                for (const RecordedText& one : surface.texts()) {
                    const bool apart = one.at.y + rowPitch <= total->at.y ||
                                       one.at.x + one.extent.width <= total->at.x ||
                                       one.at.y >= total->at.y + 12;
                    EXPECT_TRUE(one.text.empty() || one.text == total->text || isDate(one.text) || apart)
                        << "covers " << one.text;
                }
            }
        }
    }
}

TEST(Total, LeavesEveryTickLabelItsDate) {
    for (const double span : {0.25, 1.0, 3.0, 30.0}) {
        for (const int width : {110, 300, 640, 1000, 2000}) {
            SCOPED_TRACE(::testing::Message() << span << " days on " << width);
            DayDiagram diagram;
            diagram.setDiagTyp(2);
            diagram.setXHigh(DAY + span);
            diagram.setEinheit("mm");
            fillSeries(diagram, {{DAY, 1.5}});
            TestSurface surface({width, 600});
            draw(surface, diagram);
            std::vector<int> times;
            std::vector<int> dates;
            for (const RecordedText& one : surface.texts()) {
                if (isTime(one.text)) {
                    times.push_back(one.at.x + one.extent.width / 2);
                } else if (isDate(one.text)) {
                    dates.push_back(one.at.x + one.extent.width / 2);
                }
            }
            EXPECT_FALSE(times.empty());
            EXPECT_EQ(dates, times);
        }
    }
}

/// The captions of both axes, as they are drawn on a surface of some width.
std::vector<std::string> captionsAt(int width, const char* captions) {
    DayDiagram diagram;
    diagram.setAchseText(captions);
    TestSurface surface({width, 600});
    draw(surface, diagram);
    std::vector<std::string> drawn;
    int end = 0;
    for (const RecordedText& one : surface.texts()) {
        if (one.text.find('[') != std::string::npos) {
            EXPECT_GT(one.at.x, end) << width << ": " << one.text;
            end = one.at.x + one.extent.width;
            EXPECT_LE(end, width - 30) << one.text;
            drawn.push_back(one.text);
        }
    }
    return drawn;
}

TEST(Captions, OnesThatWouldOverlapAreShortenedBeforeTheirUnits) {
    constexpr const char* WIND_AND_DUST = "Windgeschwindigkeit [m/s];Gesamtstaub PM10 [µg/m³]";
    EXPECT_THAT(captionsAt(1000, WIND_AND_DUST),
                ElementsAre("Windgeschwindigkeit [m/s]", "Gesamtstaub PM10 [µg/m³]"));
    EXPECT_THAT(captionsAt(70 + 20 + 49 * 6, WIND_AND_DUST), // just wide enough
                ElementsAre("Windgeschwindigkeit [m/s]", "Gesamtstaub PM10 [µg/m³]"));
    EXPECT_THAT(captionsAt(70 + 20 + 48 * 6, WIND_AND_DUST),
                ElementsAre("Windgeschwindigke… [m/s]", "Gesamtstaub PM10 [µg/m³]"));
    EXPECT_THAT(captionsAt(70 + 20 + 30 * 6, WIND_AND_DUST),
                ElementsAre("Windgesc… [m/s]", "Gesamt… [µg/m³]"));
    EXPECT_THAT(captionsAt(70 + 20 + 40 * 6, "Windgeschwindigkeit [m/s];Ö [°C]"), // the short one stays
                ElementsAre("Windgeschwindigkeit [m/s]", "Ö [°C]"));
    EXPECT_THAT(captionsAt(70 + 20 + 24 * 6, "Windgeschwindigkeit [m/s];Ö [°C]"),
                ElementsAre("Windgeschwi… [m/s]", "Ö [°C]"));
    EXPECT_THAT(captionsAt(70 + 20 + 16 * 6, WIND_AND_DUST), ElementsAre("W… [m/s]", "… [µg/m³]"));
}

TEST(Total, HasTheUnitAndABackgroundOfItsOwn) {
    constexpr Colour PAPER = 0xABCDEF;
    DayDiagram diagram;
    diagram.setDiagTyp(2);
    diagram.setEinheit("mm");
    diagram.setBgCol(PAPER);
    fillSeries(diagram, {{DAY, 1.5}});
    TestSurface surface;
    draw(surface, diagram);
    const auto total = surface.only("Niederschlagssumme = 1,5 mm");
    ASSERT_TRUE(total);
    EXPECT_EQ(surface.texts().back().text, total->text) << "above the dates";
    EXPECT_THAT(surface.boxesOf(PAPER),
                ElementsAre(Box{1000 - 27 * 6 - 3, total->at.y, 1000, total->at.y + 12}));
}

TEST(Total, HasARowOfItsOwnOnPaper) {
    DayDiagram diagram;
    diagram.setDiagTyp(2);
    diagram.setEinheit("mm");
    diagram.setFussnote("Werte ungeprüft");
    fillSeries(diagram, {{DAY, 1.5}});
    TestSurface page({2970, 2100}, 10);
    drawLineDiagram(page, diagram, DiagramLayout::page(), {});
    const auto total = page.only("Niederschlagssumme = 1,5 mm");
    ASSERT_TRUE(total);
    EXPECT_EQ(total->at.x + total->extent.width, 2840) << "ends at the right axis";
    EXPECT_TRUE(page.boxesOf(diagram.BgCol()).empty()) << "there is no ground on paper";
    constexpr int ROW = 35;
    for (const RecordedText& one : page.texts()) {
        const bool apart = one.at.y + ROW <= total->at.y || one.at.y >= total->at.y + ROW ||
                           one.at.x + one.extent.width <= total->at.x;
        EXPECT_TRUE(one.text.empty() || one.text == total->text || apart) << "covers " << one.text;
    }
}

TEST(Total, HasTheLocalesSeparator) {
    DayDiagram diagram;
    diagram.setDiagTyp(2);
    fillSeries(diagram, {{DAY, 1.5}});
    LocaleTexts texts;
    texts.decimalSeparator = ".";
    TestSurface surface;
    draw(surface, diagram, texts);
    EXPECT_TRUE(surface.only("Niederschlagssumme = 1.5"));
}

} // namespace
} // namespace kelvrum
