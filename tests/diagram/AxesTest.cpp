// SPDX-License-Identifier: GPL-3.0-or-later
// The axes of a line diagram: places, colours, labels, odd ranges and sizes.
#include "diagram/LineDiagram.h"
#include "diagram/LineScale.h"

#include "tests/diagram/TestDiagram.h"
#include "tests/testing/ShowDots.h"
#include "tests/testing/TestSurface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace kelvrum {
namespace {

using kelvrum::testing::DAY;
using kelvrum::testing::fillSeries;
using kelvrum::testing::RecordedText;
using kelvrum::testing::TestDiagram;
using kelvrum::testing::TestSurface;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr Colour TIME_AXIS = 0x010101;
constexpr Colour LEFT_AXIS = 0x020202;
constexpr Colour RIGHT_AXIS = 0x030303;
constexpr Colour FIRST = 0x040404;
constexpr Colour SECOND = 0x050505;

/// A day of a diagram whose parts each have a colour of their own.
class ColouredDiagram : public TestDiagram {
  public:
    ColouredDiagram() {
        setXaxe(TIME_AXIS);
        setY1axe(LEFT_AXIS);
        setY2axe(RIGHT_AXIS);
        setD1(FIRST);
        setD2(SECOND);
        setXLow(DAY);
        setXHigh(DAY + 1);
    }
};

void draw(TestSurface& surface, DiagramState& diagram, const LocaleTexts& texts = {}) {
    drawLineDiagram(surface, diagram, DiagramLayout(), texts);
}

TEST(Axes, APageHasItsPaper) {
    ColouredDiagram diagram;
    diagram.setBgCol(0xABCDEF);
    TestSurface surface({2970, 2100}, 10);
    const LocaleTexts texts;
    drawLineDiagram(surface, diagram, DiagramLayout::page(), texts);
    EXPECT_THAT(surface.backgrounds(), IsEmpty());
}

TEST(Axes, AreAtTheMarginsInTheirColours) {
    for (const std::int32_t kind : {0, 2, 3, 4}) {
        ColouredDiagram diagram;
        diagram.setDiagTyp(kind);
        diagram.setBgCol(0xABCDEF);
        TestSurface surface;
        draw(surface, diagram);
        EXPECT_THAT(surface.backgrounds(), ElementsAre(0xABCDEF));
        EXPECT_THAT(surface.linesOf(TIME_AXIS), Contains(Segment{{40, 560}, {970, 560}}));
        EXPECT_THAT(surface.linesOf(LEFT_AXIS), Contains(Segment{{40, 50}, {40, 560}}));
        EXPECT_THAT(surface.linesOf(RIGHT_AXIS), Contains(Segment{{970, 50}, {970, 560}}));
        EXPECT_THAT(surface.linesOf(FIRST), IsEmpty()) << "an empty table has no curve";
        EXPECT_THAT(surface.linesOf(SECOND), IsEmpty());
        EXPECT_EQ(surface.clip(), std::nullopt) << "the clip is lifted in the end";
    }
}

TEST(Axes, ValueLabelsAreOutsideAtTheirTicks) {
    ColouredDiagram diagram; // 0 to 100 on 510 pixels: 25 divisions of 5
    TestSurface surface;
    draw(surface, diagram);
    std::vector<std::string> expected;
    for (int v = 0; v <= 100; v += 5) {
        expected.push_back(std::to_string(v));
    }
    EXPECT_EQ(surface.wordsOf(RIGHT_AXIS), expected);
    std::size_t seen = 0;
    for (const RecordedText& one : surface.texts()) {
        if ((one.pen != LEFT_AXIS && one.pen != RIGHT_AXIS) || one.text == " ") {
            continue;
        }
        ++seen;
        const int y = 560 - static_cast<int>(std::lround(std::stoi(one.text) * 5.1));
        EXPECT_NEAR(one.at.y + one.extent.height / 2, y, 1) << one.text;
        if (one.pen == LEFT_AXIS) {
            EXPECT_LE(one.at.x + one.extent.width, 40) << one.text;
            EXPECT_GE(one.at.x, 0) << one.text;
        } else {
            EXPECT_GE(one.at.x, 970) << one.text;
            EXPECT_LE(one.at.x + one.extent.width, 1000) << one.text;
        }
    }
    EXPECT_EQ(seen, 2 * expected.size());
}

/// A high picture divides 0 to 100 by 2.5, and "100,0" is wider than the right margin.
TEST(Axes, NoValueLabelIsCutAtTheRightEdge) {
    ColouredDiagram diagram;
    diagram.setY1Low(0);
    diagram.setY1High(10);
    TestSurface surface({1000, 1000});
    draw(surface, diagram);
    const auto widest = surface.only("100,0");
    ASSERT_TRUE(widest.has_value());
    EXPECT_EQ(widest->at.x + widest->extent.width, 1000);
    for (const RecordedText& text : surface.texts()) {
        EXPECT_LE(text.at.x + text.extent.width, 1000) << text.text;
    }
}

/// Pascals: eight characters do not fit between the edge and the axis.
TEST(Axes, NoValueLabelLosesItsFirstDigits) {
    ColouredDiagram diagram;
    diagram.setY1Low(-101357);
    diagram.setY1High(-101356);
    TestSurface surface;
    draw(surface, diagram);
    ASSERT_FALSE(surface.wordsOf(LEFT_AXIS).empty());
    for (const RecordedText& text : surface.texts()) {
        EXPECT_GE(text.at.x, 0) << text.text;
    }
}

TEST(Axes, TimeLabelsAreCentredBelowTheirTicks) {
    ColouredDiagram diagram;
    diagram.setXHigh(DAY + 3);
    TestSurface surface;
    draw(surface, diagram);
    EXPECT_THAT(surface.wordsOf(TIME_AXIS),
                ElementsAre("00:00", "01.01.24", "12:00", "01.01.24", "00:00", "02.01.24", "12:00",
                            "02.01.24", "00:00", "03.01.24", "12:00", "03.01.24", "00:00", "04.01.24"));
    for (const RecordedText& one : surface.texts()) {
        if (one.pen == TIME_AXIS) {
            EXPECT_EQ((one.at.x + one.extent.width / 2 - 40) % 155, 0) << one.text;
            EXPECT_GT(one.at.y, 560);
            EXPECT_LE(one.at.y + one.extent.height, 600);
        }
    }
    for (int x = 40; x <= 970; x += 155) {
        EXPECT_THAT(surface.linesOf(TIME_AXIS), Contains(Segment{{x, 560}, {x, 564}}));
    }
}

TEST(Axes, LongSpansShowMonthsAlone) {
    ColouredDiagram diagram;
    diagram.setXLow(43831); // 1 January 2020
    diagram.setXHigh(43831 + 400);
    TestSurface surface;
    draw(surface, diagram);
    EXPECT_THAT(surface.wordsOf(TIME_AXIS),
                ElementsAre("1.2020", "2.2020", "3.2020", "4.2020", "6.2020", "7.2020", "8.2020", "10.2020",
                            "11.2020", "12.2020", "2.2021"));
}

TEST(Axes, SeparatorsAreTheLocales) {
    ColouredDiagram diagram;
    diagram.setY1High(1);
    LocaleTexts texts;
    texts.decimalSeparator = "'";
    texts.dateSeparator = "-";
    TestSurface surface;
    draw(surface, diagram, texts);
    EXPECT_THAT(surface.wordsOf(LEFT_AXIS), Contains("0'05"));
    EXPECT_THAT(surface.wordsOf(TIME_AXIS), Contains("01-01-24"));
}

TEST(Axes, TheRightRangeIsWrittenBackWhenAutomatic) {
    ColouredDiagram diagram;
    diagram.setY2Low(-1);
    diagram.setY2High(-1);
    fillSeries(diagram, {{DAY, 1, 10}, {DAY + 0.5, 1, 20}});
    TestSurface surface;
    draw(surface, diagram);
    EXPECT_DOUBLE_EQ(diagram.Y2Low(), 9.5);
    EXPECT_DOUBLE_EQ(diagram.Y2High(), 20.5);
    EXPECT_THAT(surface.linesOf(SECOND), Contains(Segment{{40, 537}, {505, 73}}));
    fillSeries(diagram, {{DAY, 1, 1000}, {DAY + 0.5, 1, 2000}});
    draw(surface, diagram);
    EXPECT_DOUBLE_EQ(diagram.Y2Low(), 9.5) << "from now on the range is a given one";
}

TEST(Axes, TheMarkerOfTheSecondSeriesCountsInItsRange) {
    ColouredDiagram diagram;
    diagram.setY2Low(-1);
    diagram.setY2High(-1);
    fillSeries(diagram, {{DAY, 1, -1}, {DAY + 0.5, 1}});
    TestSurface surface;
    draw(surface, diagram);
    EXPECT_DOUBLE_EQ(diagram.Y2Low(), -50001);
    EXPECT_DOUBLE_EQ(diagram.Y2High(), 1049999);
}

TEST(Axes, TheLeftRangeIsNotWrittenBack) {
    ColouredDiagram diagram;
    diagram.setY1Low(AUTOMATIC_RANGE);
    diagram.setY1High(AUTOMATIC_RANGE);
    fillSeries(diagram, {{DAY, 10}, {DAY + 0.5, 20}});
    TestSurface surface;
    draw(surface, diagram);
    EXPECT_EQ(diagram.Y1Low(), AUTOMATIC_RANGE);
    EXPECT_EQ(diagram.Y1High(), AUTOMATIC_RANGE);
    EXPECT_THAT(surface.linesOf(FIRST), Contains(Segment{{40, 537}, {505, 73}}));
}

TEST(Axes, WithoutAPositiveSpanThereIsNoCurveAndNoTimeLabel) {
    constexpr double NOT_A_NUMBER = std::numeric_limits<double>::quiet_NaN();
    for (const double end : {DAY, DAY - 1, -1e300, NOT_A_NUMBER}) {
        for (const std::int32_t kind : {0, 2, 3, 4}) {
            SCOPED_TRACE(::testing::Message() << "end " << end << ", kind " << kind);
            ColouredDiagram diagram;
            diagram.setDiagTyp(kind);
            diagram.setXHigh(end);
            diagram.setHeadLine("Titel");
            fillSeries(diagram, {{DAY, 10, 20}, {DAY + 0.5, 20, 30}});
            TestSurface surface;
            draw(surface, diagram);
            EXPECT_THAT(surface.linesOf(TIME_AXIS), ElementsAre(Segment{{40, 560}, {970, 560}}));
            EXPECT_THAT(surface.linesOf(LEFT_AXIS), Contains(Segment{{40, 50}, {40, 560}}));
            EXPECT_THAT(surface.linesOf(FIRST), IsEmpty());
            EXPECT_THAT(surface.boxesOf(FIRST), IsEmpty());
            EXPECT_THAT(surface.linesOf(SECOND), IsEmpty());
            EXPECT_TRUE(surface.only("Titel"));
        }
    }
}

TEST(Axes, ScaleDoublesAllLengths) {
    ColouredDiagram diagram;
    diagram.setHeadLine("Titel");
    diagram.setHeadLine2("Zweite Zeile");
    diagram.setEinheit("m/s");
    diagram.setFussnote("Fuß");
    diagram.setAchseText("links;rechts");
    diagram.setHilfslinie1(50);
    diagram.setDiagTyp(2);
    TestSurface single({1000, 600}, 1);
    TestSurface twice({2000, 1200}, 2);
    draw(single, diagram);
    draw(twice, diagram);
    const auto near = [](Dot one, Dot two) {
        EXPECT_NEAR(2 * one.x, two.x, 1);
        EXPECT_NEAR(2 * one.y, two.y, 1);
    };
    ASSERT_EQ(single.drawnLines().size(), twice.drawnLines().size());
    for (std::size_t i = 0; i < single.drawnLines().size(); ++i) {
        near(single.drawnLines()[i].at.from, twice.drawnLines()[i].at.from);
        near(single.drawnLines()[i].at.to, twice.drawnLines()[i].at.to);
    }
    ASSERT_EQ(single.texts().size(), twice.texts().size());
    for (std::size_t i = 0; i < single.texts().size(); ++i) {
        EXPECT_EQ(single.texts()[i].text, twice.texts()[i].text);
        near(single.texts()[i].at, twice.texts()[i].at);
    }
    ASSERT_EQ(single.boxes().size(), twice.boxes().size());
    EXPECT_EQ(twice.boxes()[0].at, (Box{0, 0, 2000, 62}));
}

TEST(Axes, EverySizeAndRangeIsDrawnWithoutHarm) {
    const Extent sizes[] = {{0, 0},     {1, 1},     {60, 60},    {70, 90},       {71, 91},        {70, 600},
                            {1000, 90}, {110, 110}, {5000, 100}, {32767, 32767}, {100000, 100000}};
    const ValueRange ranges[] = {{0, 100},       {AUTOMATIC_RANGE, AUTOMATIC_RANGE},
                                 {100, 0},       {-1e300, 1e300},
                                 {1e300, 1e300}, {0, 1e-300},
                                 {-1, -1},       {1e308, -1e308}};
    for (const Extent& size : sizes) {
        for (const ValueRange& range : ranges) {
            for (const std::int32_t kind : {0, 2, 3}) {
                SCOPED_TRACE(::testing::Message() << size.width << 'x' << size.height << ", " << range.low
                                                  << " to " << range.high << ", kind " << kind);
                ColouredDiagram diagram;
                diagram.setDiagTyp(kind);
                diagram.setY1Low(range.low);
                diagram.setY1High(range.high);
                diagram.setY2Low(range.low);
                diagram.setY2High(range.high);
                diagram.setShowMittel(true);
                diagram.setHilfslinie1(5);
                fillSeries(diagram, {{DAY, 10, 20}, {DAY + 0.5, 999998, -999998}, {DAY + 1, -1e5, 3}});
                TestSurface surface(size);
                draw(surface, diagram);
                EXPECT_LE(surface.primitives(), 20U + 4U * static_cast<unsigned>(size.width + size.height));
                for (const auto& line : surface.drawnLines()) {
                    for (const int coordinate :
                         {line.at.from.x, line.at.from.y, line.at.to.x, line.at.to.y}) {
                        EXPECT_LE(std::abs(coordinate), 33000);
                    }
                }
            }
        }
    }
}

} // namespace
} // namespace kelvrum
