// SPDX-License-Identifier: GPL-3.0-or-later
// The series of a line diagram as they arrive on the surface: colours, passes, clip, number of primitives.
#include "diagram/LineDiagram.h"

#include "tests/diagram/TestDiagram.h"
#include "tests/testing/ShowDots.h"
#include "tests/testing/TestSurface.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <cmath>

namespace kelvrum {
namespace {

using kelvrum::testing::Column;
using kelvrum::testing::DAY;
using kelvrum::testing::fillSeries;
using kelvrum::testing::TestDiagram;
using kelvrum::testing::TestSurface;
using ::testing::Contains;
using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::SizeIs;

constexpr Colour OTHER = 0x010101; // of all axes
constexpr Colour FIRST = 0x040404;
constexpr Colour SECOND = 0x050505;

/// A day on a plot of 240 x 100 dots, 10 dots an hour, one dot a unit.
class DayDiagram : public TestDiagram {
  public:
    explicit DayDiagram(std::int32_t kind = 0) {
        setDiagTyp(kind);
        setXLow(DAY);
        setXHigh(DAY + 1);
        setXaxe(OTHER);
        setY1axe(OTHER);
        setY2axe(OTHER);
        setD1(FIRST);
        setD2(SECOND);
    }
};

LineDrawing draw(TestSurface& surface, DiagramState& diagram) {
    return drawLineDiagram(surface, diagram, DiagramLayout(), {});
}

/// `passes` times the 24 hours of the day, each pass on a height of its own.
std::vector<Column> hourlyPasses(int passes) {
    std::vector<Column> columns;
    for (int pass = 0; pass < passes; ++pass) {
        for (int hour = 0; hour < 24; ++hour) {
            columns.push_back({DAY + hour / 24.0, 10.0 + 20.0 * pass + hour % 2});
        }
    }
    return columns;
}

TEST(SeriesDrawing, BothSeriesOnTheirScales) {
    for (const std::int32_t kind : {0, 4}) {
        DayDiagram diagram(kind);
        diagram.setY2High(200);
        fillSeries(diagram, {{DAY, 10, 20}, {DAY + 0.25, 30, 60}, {DAY + 0.5, 50}});
        TestSurface surface({310, 190});
        EXPECT_EQ(draw(surface, diagram).passes, 1);
        EXPECT_THAT(surface.linesOf(FIRST), Contains(Segment{{40, 140}, {100, 120}}));
        EXPECT_THAT(surface.linesOf(FIRST), Contains(Segment{{100, 120}, {160, 100}}));
        EXPECT_THAT(surface.linesOf(SECOND), Contains(Segment{{40, 140}, {100, 120}}));
        EXPECT_THAT(surface.linesOf(SECOND), SizeIs(::testing::Le(3U))) << "the marker is a gap";
    }
}

TEST(SeriesDrawing, OnlyTheColumnsInUse) {
    DayDiagram diagram;
    fillSeries(diagram, {{DAY, 10}, {DAY + 0.25, 999999}, {DAY + 0.5, 50}});
    diagram.SetArray(2);
    TestSurface surface({310, 190});
    draw(surface, diagram);
    EXPECT_THAT(surface.boxesOf(FIRST), ElementsAre(Box{39, 139, 42, 142}));
    for (const std::int32_t count : {0, -1, -2147483647}) {
        diagram.SetArray(count);
        TestSurface empty({310, 190});
        draw(empty, diagram);
        EXPECT_THAT(empty.linesOf(FIRST), IsEmpty()) << count;
        EXPECT_THAT(empty.boxesOf(FIRST), IsEmpty()) << count;
    }
    diagram.SetArray(2147483647);
    TestSurface all({310, 190});
    draw(all, diagram);
    EXPECT_THAT(all.boxesOf(FIRST), ElementsAre(Box{39, 139, 42, 142}, Box{159, 99, 162, 102}))
        << "no further than the table";
}

TEST(SeriesDrawing, ThreePassesHaveThreeColoursAndAFourthIsNotDrawn) {
    for (const int passes : {1, 2, 3, 4, 5}) {
        SCOPED_TRACE(passes);
        DayDiagram diagram;
        fillSeries(diagram, hourlyPasses(passes));
        TestSurface surface({310, 190});
        EXPECT_EQ(draw(surface, diagram).passes, std::min(passes, 3));
        const Colour colours[] = {FIRST, BLUE, RED};
        for (int pass = 0; pass < 3; ++pass) {
            const auto lines = surface.linesOf(colours[pass]);
            EXPECT_EQ(lines.empty(), pass >= passes);
            for (const Segment& line : lines) {
                EXPECT_NEAR(line.from.y, 140 - 20 * pass, 1) << "no line joins two passes";
                EXPECT_NEAR(line.to.y, 140 - 20 * pass, 1);
            }
            if (pass < passes) {
                for (int hour = 0; hour < 23; ++hour) {
                    const int x = 40 + 10 * hour;
                    const int y = 140 - 20 * pass - hour % 2;
                    EXPECT_THAT(lines, Contains(Segment{{x, y}, {x + 10, 140 - 20 * pass - (hour + 1) % 2}}));
                }
            }
        }
    }
}

TEST(SeriesDrawing, PrecipitationIsBoxesOnTheBaseLine) {
    DayDiagram diagram(2);
    fillSeries(diagram, {{DAY, 10}, {DAY + 1.0 / 24, 0}, {DAY + 2.0 / 24, 999999}, {DAY + 3.0 / 24, 30}});
    TestSurface surface({310, 190});
    draw(surface, diagram);
    EXPECT_THAT(surface.boxesOf(FIRST), ElementsAre(Box{40, 140, 50, 150}, Box{70, 120, 80, 150}));
    EXPECT_THAT(surface.linesOf(FIRST), IsEmpty());
    EXPECT_THAT(surface.boxesOf(SECOND), IsEmpty());
}

TEST(SeriesDrawing, ASingleBarIsAsWideAsItsIntervalWhereThatIsKnown) {
    TestDiagram diagram;
    fillSeries(diagram, {{DAY + 8.0 / 24, 5}});
    diagram.setDiagTyp(KIND_PRECIPITATION);
    diagram.setXLow(DAY);
    diagram.setXHigh(DAY + 1);
    const auto right = [&diagram] {
        TestSurface surface({1000, 600});
        drawLineDiagram(surface, diagram, DiagramLayout(), LocaleTexts());
        const auto bars = surface.boxesOf(diagram.D1());
        return bars.empty() ? 0 : bars[0].right;
    };
    EXPECT_EQ(right(), 970); // the rest of the range
    diagram.setColumnInterval(1.0 / 24);
    EXPECT_EQ(right(), 389); // an hour
    diagram.SetArray(1);     // the interval of other columns is unknown
    EXPECT_EQ(right(), 970);
    diagram.setColumnInterval(1.0 / 24);
    diagram.Clear();
    EXPECT_EQ(diagram.columnInterval(), 0);
}

TEST(SeriesDrawing, AValueWithoutNeighboursIsASquareThatCanBeSeen) {
    const struct {
        const char* what;
        DiagramLayout layout;
        Extent size;
        double scale;
        int side;
    } rows[] = {
        {"screen", {}, {310, 190}, 1, 3},
        {"screen of ratio 1.5", {}, {465, 285}, 1.5, 5},
        {"screen of ratio 2", {}, {620, 380}, 2, 6},
        {"paper of 300 dots an inch", DiagramLayout::page(), {3508, 2480}, 300 / 25.4, 6}, // 0.5 mm
        {"paper of 1200 dots an inch", DiagramLayout::page(), {14031, 9921}, 1200 / 25.4, 24},
    };
    for (const auto& row : rows) {
        for (const std::int32_t kind : {0, 3, 4}) {
            SCOPED_TRACE(::testing::Message() << row.what << ", kind " << kind);
            DayDiagram diagram(kind);
            fillSeries(diagram, {{DAY + 0.2, NoValue}, {DAY + 0.5, 50, 50}, {DAY + 0.8, NoValue}});
            TestSurface surface(row.size, row.scale);
            drawLineDiagram(surface, diagram, row.layout, {});
            EXPECT_THAT(surface.linesOf(FIRST), IsEmpty());
            for (const Colour series : {FIRST, SECOND}) {
                const auto squares = surface.boxesOf(series);
                ASSERT_THAT(squares, SizeIs(1));
                EXPECT_EQ(squares[0].right - squares[0].left, row.side);
                EXPECT_EQ(squares[0].bottom - squares[0].top, row.side);
                const double middle =
                    (row.layout.left * row.scale + row.size.width - row.layout.right * row.scale) / 2;
                EXPECT_NEAR((squares[0].left + squares[0].right) / 2.0, middle, 1);
            }
        }
    }
}

/// A minute is as wide as the plot; everything outside is thousands of dots away.
TEST(SeriesDrawing, ALineFromFarOutsideKeepsItsSlope) {
    constexpr double MINUTE = 1.0 / 1440;
    const struct {
        double from, to; // minutes from the start of the axis
    } rows[] = {{-200, 300}, {-600, 600}, {-140, 1}, {-600, 0.5}, {0, 300}, {0.25, 600}, {-2, 2}};
    for (const auto& [from, to] : rows) {
        for (const bool ascending : {true, false}) {
            SCOPED_TRACE(::testing::Message()
                         << from << " to " << to << (ascending ? "" : ", not ascending"));
            DayDiagram diagram;
            diagram.setXHigh(DAY + MINUTE);
            const auto value = [](double minutes) { return 20 + 50 * minutes; };
            const double back = ascending ? 2.5 : 1.5;
            fillSeries(diagram, {{DAY - 2, NoValue},
                                 {DAY - back + 0.5, NoValue},
                                 {DAY - 1.9, NoValue},
                                 {DAY + from * MINUTE, value(from)},
                                 {DAY + to * MINUTE, value(to)}});
            TestSurface surface({310, 190});
            draw(surface, diagram);
            const auto lines = surface.linesOf(FIRST);
            ASSERT_THAT(lines, SizeIs(1));
            const Dot start = lines[0].from;
            const Dot end = lines[0].to;
            const auto y = [&](double minutes) {
                const double x = 40 + 240 * minutes;
                return start.y + (x - start.x) * (end.y - start.y) / (end.x - start.x);
            };
            for (const double minutes : {std::max(from, 0.0), std::min(to, 1.0)}) {
                EXPECT_NEAR(y(minutes), 150 - value(minutes), 0.6);
            }
        }
    }
}

TEST(SeriesDrawing, DirectionsTakeTheShortWay) {
    DayDiagram diagram(3);
    diagram.setY1High(600);
    fillSeries(diagram, {{DAY, 348}, {DAY + 0.25, 12}});
    TestSurface surface({310, 190});
    draw(surface, diagram);
    EXPECT_THAT(surface.linesOf(FIRST), Contains(Segment{{40, 92}, {100, 88}}));
}

TEST(SeriesDrawing, IsClippedToThePlot) {
    for (const std::int32_t kind : {0, 2, 3, 4}) {
        DayDiagram diagram(kind);
        diagram.setHilfslinie1(50);
        diagram.setShowMittel(true);
        diagram.setHeadLine("Titel");
        fillSeries(diagram, {{DAY - 1, 10, 90}, {DAY + 0.5, 500000, -500000}, {DAY + 3, -400, 20}});
        TestSurface surface({310, 190});
        draw(surface, diagram);
        const Box plot{40, 50, 281, 151};
        std::size_t clipped = 0;
        for (const auto& line : surface.drawnLines()) {
            if (line.clip) {
                EXPECT_EQ(*line.clip, plot);
                ++clipped;
            } else {
                EXPECT_TRUE(line.pen == OTHER) << "only axes are drawn without a clip";
            }
        }
        EXPECT_GT(clipped, 0U);
        for (const auto& box : surface.boxes()) {
            EXPECT_EQ(box.clip.has_value(), box.colour == FIRST || box.colour == SECOND);
        }
        for (const auto& text : surface.texts()) {
            EXPECT_EQ(text.clip, std::nullopt) << text.text;
        }
    }
}

TEST(SeriesDrawing, AMillionColumnsGiveFewPrimitives) {
    constexpr int COLUMNS = 1000000;
    std::vector<Column> columns;
    columns.reserve(COLUMNS);
    for (int i = 0; i < COLUMNS; ++i) {
        const double noise = static_cast<double>(i * 7919LL % 1009) / 1009 * std::fabs(std::sin(i * 5e-5));
        columns.push_back({DAY + i / static_cast<double>(COLUMNS), i % 99991 == 0 ? NoValue : 5 + 90 * noise,
                           50 + 45 * std::sin(i * 0.01)});
    }
    for (const std::int32_t kind : {0, 2, 3, 4}) {
        DayDiagram diagram(kind);
        fillSeries(diagram, columns);
        TestSurface surface;
        draw(surface, diagram);
        // Two series, each with a span and a connector for a column of dots, and the frame around.
        EXPECT_LE(surface.primitives(), 4U * 1000U + 300U) << kind;
        EXPECT_LE(surface.linesOf(FIRST).size(), 2U * 1000U) << kind;
        EXPECT_GT(surface.linesOf(FIRST).size() + surface.boxesOf(FIRST).size(), 100U) << kind;
    }
}

} // namespace
} // namespace kelvrum
