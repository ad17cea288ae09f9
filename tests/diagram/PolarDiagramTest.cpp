// SPDX-License-Identifier: GPL-3.0-or-later
// The rose: its geometry, classes of directions, letters, labels and page.
#include "diagram/PolarDiagram.h"
#include "tests/testing/TestSurface.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <stdexcept>

namespace kelvrum {

namespace {

using ::testing::ElementsAre;
using testing::TestSurface;

constexpr int HEAD_TEXT = TestSurface::LINE_HEIGHT; // the head band is 7 higher
constexpr int TOP = HEAD_TEXT + 7;

class Rose : public DiagramState {
  public:
    explicit Rose(std::int32_t classes = 8, std::int32_t rings = 4) {
        initialise();
        setRadRaster(classes);
        setLongRaster(rings);
        setHeadLine("Wind");
    }
    void add(int times, double speed, double degrees) {
        setBogenmass(UNIT_DEGREES);
        for (int i = 0; i < times; ++i) {
            AddItem(speed, degrees);
        }
    }
};

TEST(PolarGeometry, FollowsTheSizeAndTheHeadBand) {
    // 400 x 400 with a head band of 20.
    const PolarGeometry g({400, 400}, 13, 4, 1);
    EXPECT_EQ(g.top, 20);
    EXPECT_EQ(g.xCentre, 200);
    EXPECT_EQ(g.yCentre, 210);
    EXPECT_NEAR(g.stepX, 35.244, 1e-9);
    EXPECT_NEAR(g.stepY, 35.244, 1e-9);
    EXPECT_THAT((std::vector{g.dx(1), g.dx(2), g.dx(3), g.dx(4)}), ElementsAre(35, 70, 106, 141));
}

TEST(DirectionClasses, AreCentredOnTheirDirections) {
    struct Case {
        double degrees;
        std::size_t expected;
    };
    const Case cases[] = {
        {-22.5, 0}, {22.4999, 0}, {22.5, 1},     {0, 0},     {360, 0},
        {45, 1},    {180, 4},     {337.4999, 7}, {337.5, 0}, {-90, 6},
    };
    for (const Case& c : cases) {
        Rose rose;
        // The samples are given in radians, as they are kept.
        rose.AddItem(1, c.degrees / 8 * (TWO_PI / 45));
        const DirectionClasses classes = classify(rose.samples(), rose.RadRaster());
        EXPECT_EQ(classes.counts[c.expected], 1) << c.degrees;
        EXPECT_EQ(classes.counts.size(), 9U);
        EXPECT_EQ(classes.maxCount, 1);
    }
}

TEST(DirectionClasses, LeaveCalmsOut) {
    Rose rose;
    rose.add(2, 0.4999, 0);
    rose.add(1, 0.5, 0); // no calm
    const DirectionClasses classes = classify(rose.samples(), rose.RadRaster());
    EXPECT_EQ(classes.calm, 2);
    EXPECT_EQ(classes.counts[0], 1);
}

TEST(PolarDiagram, WithoutSamplesDrawsTheGridAndNoSector) {
    Rose rose;
    rose.setFussnote("Fuß");
    TestSurface surface({400, 400});
    drawPolarDiagram(surface, rose, {});
    // Four rings, then the white centre disc.
    ASSERT_EQ(surface.ellipses().size(), 5U);
    EXPECT_FALSE(surface.ellipses()[0].fill.has_value());
    EXPECT_EQ(surface.ellipses()[4].fill, WHITE);
    EXPECT_TRUE(surface.pies().empty());
    EXPECT_THAT(surface.wordsOf(BLACK), ElementsAre("N", "S", "W", "E", "Fuß", "Wind"));
    const int radii[] = {35, 70, 106, 141};
    for (std::size_t i = 0; i < 4; ++i) {
        EXPECT_EQ(surface.ellipses()[i].at,
                  (Box{200 - radii[i], 209 - radii[i], 200 + radii[i], 209 + radii[i]}));
    }
    EXPECT_EQ(surface.ellipses()[4].at, (Box{165, 174, 235, 244}));
    // Eight spokes, from direction 0 upward on, clockwise; then frame and head band.
    const Dot spokes[] = {{200, 68},  {300, 109}, {341, 209}, {300, 309},
                          {200, 350}, {100, 309}, {59, 209},  {100, 109}};
    ASSERT_EQ(surface.drawnLines().size(), 15U);
    for (std::size_t k = 0; k < 8; ++k) {
        EXPECT_EQ(surface.drawnLines()[k].at, (Segment{{200, 209}, spokes[k]})) << k;
    }
    const Segment frame[] = {{{0, 0}, {0, 399}}, {{0, 399}, {399, 399}}, {{399, 0}, {399, 399}}};
    for (std::size_t k = 0; k < 3; ++k) {
        EXPECT_EQ(surface.drawnLines()[8 + k].at, frame[k]) << k;
    }
    EXPECT_EQ(rose.Ycenter(), TOP + (400 - TOP) / 2);
}

TEST(PolarDiagram, LettersFootnoteAndHeadLineHaveTheirPlaces) {
    Rose rose;
    rose.setFussnote("Fuß");
    TestSurface surface({400, 480});
    drawPolarDiagram(surface, rose, {});
    const int fs = 12; // 480 \ 40: bold from here on
    const int middle = TOP + (480 - TOP) / 2 - fs / 2;
    EXPECT_EQ(surface.only("N")->at, (Dot{197, TOP + 6}));
    EXPECT_EQ(surface.only("S")->at, (Dot{197, 480 - fs - 10}));
    EXPECT_EQ(surface.only("W")->at, (Dot{9, middle}));
    EXPECT_EQ(surface.only("E")->at, (Dot{382, middle}));
    EXPECT_EQ(surface.only("N")->font, (Font{"Arial", 12, true, false}));
    EXPECT_EQ(surface.only("Fuß")->at, (Dot{400 - 18 - 8, 464}));
    EXPECT_EQ(surface.only("Wind")->at.y, 3);
    EXPECT_EQ(surface.only("Wind")->at.x, (400 - 4 * TestSurface::BOLD_CHARACTER) / 2);
    EXPECT_TRUE(surface.only("Wind")->font.Bold);

    TestSurface lower({400, 479});
    drawPolarDiagram(lower, rose, {});
    EXPECT_FALSE(lower.only("N")->font.Bold);
    TestSurface flat({400, 39});
    drawPolarDiagram(flat, rose, {});
    EXPECT_EQ(flat.only("N")->font.Size, 0);
}

TEST(PolarDiagram, AZeroSizedControlHasOnlyTextsAndFrame) {
    Rose rose;
    rose.add(3, 2, 90);
    TestSurface surface({0, 0});
    drawPolarDiagram(surface, rose, {});
    EXPECT_TRUE(surface.backgrounds().empty());
    EXPECT_TRUE(surface.ellipses().empty());
    EXPECT_TRUE(surface.pies().empty());
    EXPECT_EQ(surface.drawnLines().size(), 7U);
}

TEST(PolarDiagram, OnlyCalmsHaveNoSectorsAndLabelsOfZero) {
    Rose rose;
    rose.add(5, 0.1, 90);
    TestSurface surface({400, 400});
    drawPolarDiagram(surface, rose, {});
    EXPECT_TRUE(surface.pies().empty());
    const auto words = surface.wordsOf(BLACK);
    EXPECT_EQ(std::count(words.begin(), words.end(), "0,0"), 4);
}

TEST(PolarDiagram, TheFullestClassesReachTheOutermostRing) {
    Rose rose;
    rose.add(4, 2, 0);
    rose.add(4, 2, 180);
    rose.add(1, 2, 90);
    rose.add(1, 0.1, 90);
    TestSurface surface({400, 400});
    drawPolarDiagram(surface, rose, {});
    const PolarGeometry g({400, 400}, HEAD_TEXT, 4, 1);
    ASSERT_EQ(surface.pies().size(), 8U);
    for (const std::size_t full : {0U, 4U}) {
        EXPECT_EQ(surface.pies()[full].at,
                  (Box{g.xCentre - g.dx(4), g.yCentre - g.dy(4), g.xCentre + g.dx(4), g.yCentre + g.dy(4)}));
    }
    EXPECT_EQ(surface.pies()[0].pen, RED);
    EXPECT_EQ(surface.pies()[0].fill, Colour{0xFFFF});
    EXPECT_EQ(surface.pies()[0].from, (Dot{254, 79}));
    EXPECT_EQ(surface.pies()[0].to, (Dot{146, 79}));
    // Direction 0 points up: its sector begins right of it and ends left of it.
    EXPECT_GT(surface.pies()[0].from.x, g.xCentre);
    EXPECT_LT(surface.pies()[0].to.x, g.xCentre);
    EXPECT_LT(surface.pies()[0].from.y, g.yCentre);
    // A quarter turn points right.
    EXPECT_GT(surface.pies()[2].from.x, g.xCentre);
    EXPECT_EQ(surface.pies()[2].at.right - g.xCentre, static_cast<int>(std::nearbyint(g.dx(4) / 4.0)));
    // An empty class has a box of no size.
    EXPECT_EQ(surface.pies()[1].at, (Box{g.xCentre, g.yCentre, g.xCentre, g.yCentre}));
    // 4 of 10 samples at the outermost of 4 rings.
    for (const char* label : {"10,0", "20,0", "30,0", "40,0"}) {
        EXPECT_TRUE(surface.only(label).has_value()) << label;
    }
    EXPECT_EQ(surface.only("40,0")->at, (Dot{200 - 12, g.yCentre - g.dy(4) - TestSurface::LINE_HEIGHT}));
}

TEST(PolarDiagram, ASectorTooSmallForTwoEndsIsNoWholeCircle) {
    Rose rose(36);
    rose.add(100, 3, 0);
    rose.add(1, 3, 90);
    TestSurface surface({400, 400});
    drawPolarDiagram(surface, rose, {});
    const auto small = surface.pies()[9];
    EXPECT_EQ(small.from, small.to);
    EXPECT_EQ(small.at.left, small.at.right);
}

TEST(PolarDiagram, IsCentredOnThePageInTheProportionsOfThePicture) {
    Rose rose;
    TestSurface page({2970, 2100}, 10); // A4 landscape, 10 dots per millimetre
    printPolarDiagram(page, {600, 400}, rose, {});
    // 20 mm of margin leave 2570 x 1700 dots: 4.25 dots per pixel.
    const auto frame = [&](std::size_t back) {
        return page.drawnLines()[page.drawnLines().size() - back].at;
    };
    EXPECT_EQ(frame(7), (Segment{{210, 200}, {210, 1899}}));
    EXPECT_EQ(frame(6), (Segment{{210, 1899}, {2759, 1899}}));
    EXPECT_EQ(page.only("Wind")->at.y, 200 + 13); // 3 pixels
    // 10 points on the screen, in the page's points.
    EXPECT_NEAR(page.only("N")->font.Size, 10 * (4.25 * 96 / 72) / (10 * 25.4 / 72), 1e-9);
    EXPECT_TRUE(page.backgrounds().empty());
}

TEST(PolarDiagram, AMillionSamplesDrawAndTooManyOverflow) {
    Rose rose;
    rose.add(1'000'000, 3, 45);
    TestSurface surface({900, 600});
    drawPolarDiagram(surface, rose, {});
    EXPECT_EQ(surface.pies().size(), 8U);
    TestSurface huge({9000, 6000});
    EXPECT_THROW(drawPolarDiagram(huge, rose, {}), std::overflow_error);
}

/// The spoke to the north does not run through the numbers; where a sector covers it, there is nothing to
/// hide.
TEST(PolarDiagram, NoSpokeRunsThroughALabel) {
    Rose rose;
    rose.setLongRaster(4);
    rose.setBgCol(0xABCDEF);
    rose.add(10, 3, 90);
    rose.add(5, 3, 0); // half way up
    TestSurface surface({400, 400});
    drawPolarDiagram(surface, rose, {});
    const std::vector<Box> behind = surface.boxesOf(0xABCDEF);
    ASSERT_EQ(behind.size(), 2U); // of the outer two rings
    const auto label = surface.only("66,7");
    ASSERT_TRUE(label);
    EXPECT_EQ(behind.back(), (Box{199, label->at.y, 202, label->at.y + label->extent.height}));

    TestSurface page({2970, 2100}, 10);
    printPolarDiagram(page, {400, 400}, rose, {});
    EXPECT_GE(page.boxesOf(WHITE).size(), 2U) << "the paper";
    EXPECT_TRUE(page.boxesOf(0xABCDEF).empty());
}

TEST(PolarDiagram, AnInvalidAngleEndsTheDrawing) {
    Rose rose;
    rose.setAngelOffset(std::numeric_limits<double>::infinity());
    TestSurface surface({400, 400});
    EXPECT_THROW(drawPolarDiagram(surface, rose, {}), std::overflow_error);
}

TEST(PolarDiagram, ASectorThinnerThanADotIsALine) {
    Rose rose;
    rose.setRadRaster(360);
    rose.add(50, 3, 0);
    rose.add(10, 3, 90);
    TestSurface surface({500, 500});
    drawPolarDiagram(surface, rose, {});
    ASSERT_EQ(surface.pies().size(), 360U);
    const std::vector<Segment> outlines = surface.linesOf(RED);
    ASSERT_EQ(outlines.size(), 1U);
    const PolarGeometry g({500, 500}, TestSurface::LINE_HEIGHT, rose.LongRaster(), 1);
    EXPECT_EQ(outlines[0].from, (Dot{g.xCentre, g.yCentre}));
    EXPECT_NEAR(outlines[0].to.x, g.xCentre + g.dx(g.rings) / 5.0, 1);
    EXPECT_EQ(outlines[0].to.y, g.yCentre);
}

} // namespace

} // namespace kelvrum
