// SPDX-License-Identifier: GPL-3.0-or-later
// A part of a surface: every primitive arrives moved to its corner, fonts in its own scale.
#include "drawing/PlacedSurface.h"

#include "tests/testing/TestSurface.h"

#include <gtest/gtest.h>

#include <functional>

namespace kelvrum {
namespace {

using kelvrum::testing::TestSurface;

constexpr Extent PAGE = {500, 400};

TEST(PlacedSurface, MovesEveryPrimitive) {
    // Drawn from a corner, which is 0, 0 for a surface of its own.
    const struct {
        const char* name;
        std::function<void(Surface&, Dot)> draw;
    } rows[] = {
        {"pen", [](Surface& s, Dot) { s.setPen(RED); }},
        {"clip",
         [](Surface& s, Dot c) {
             s.setClip(Box{c.x + 1, c.y + 2, c.x + 30, c.y + 40});
         }},
        {"no clip", [](Surface& s, Dot) { s.setClip({}); }},
        {"line",
         [](Surface& s, Dot c) {
             s.line({c.x + 1, c.y + 2}, {c.x + 3, c.y - 4});
         }},
        {"lines",
         [](Surface& s, Dot c) {
             const Segment lines[] = {{c, {c.x + 5, c.y + 6}}, {{c.x + 7, c.y}, {c.x + 7, c.y}}};
             s.lines(lines);
         }},
        {"no lines", [](Surface& s, Dot) { s.lines({}); }},
        {"boxes",
         [](Surface& s, Dot c) {
             const Box boxes[] = {{c.x, c.y, c.x + 2, c.y + 3}, {c.x - 5, c.y + 5, c.x + 6, c.y + 7}};
             s.fill(boxes, BLUE);
         }},
        {"ellipse",
         [](Surface& s, Dot c) {
             s.ellipse({c.x, c.y + 1, c.x + 9, c.y + 8}, {});
         }},
        {"filled ellipse",
         [](Surface& s, Dot c) {
             s.ellipse({c.x, c.y + 1, c.x + 9, c.y + 8}, GREEN);
         }},
        {"pie",
         [](Surface& s, Dot c) {
             s.pie({c.x, c.y, c.x + 9, c.y + 9}, {c.x + 9, c.y + 1}, {c.x + 2, c.y + 9}, GREEN);
         }},
        {"text",
         [](Surface& s, Dot c) {
             s.text({c.x + 3, c.y + 4}, "Süd");
         }},
    };
    for (const auto& row : rows) {
        for (const Dot corner : {Dot{0, 0}, Dot{100, 10}, Dot{-7, 300}, Dot{1'000'000, -1'000'000}}) {
            TestSurface page(PAGE, 2);
            PlacedSurface placed(page, corner, {50, 40}, 3, 2);
            row.draw(placed, {0, 0});
            TestSurface expected(PAGE, 2);
            row.draw(expected, corner);
            EXPECT_EQ(page.drawing(), expected.drawing())
                << row.name << " at " << corner.x << ", " << corner.y;
        }
    }
}

TEST(PlacedSurface, ClearingLeavesThePaper) {
    TestSurface page(PAGE);
    PlacedSurface placed(page, {100, 10}, {50, 40}, 3, 2);
    placed.clear(BLACK);
    EXPECT_TRUE(page.drawing().primitives.empty());
}

TEST(PlacedSurface, HasASizeAndAScaleOfItsOwn) {
    TestSurface page(PAGE, 2);
    const PlacedSurface placed(page, {100, 10}, {50, 40}, 3, 2);
    EXPECT_EQ(placed.size(), (Extent{50, 40}));
    EXPECT_EQ(placed.scale(), 3);
}

TEST(PlacedSurface, FontsGrowWithItsScale) {
    for (const double factor : {0.5, 1.0, 11.811}) {
        TestSurface page(PAGE, 2);
        PlacedSurface placed(page, {100, 10}, {50, 40}, 3, factor);
        placed.setFont({"Courier", 8, true, true});
        TestSurface expected(PAGE, 2);
        expected.setFont({"Courier", 8 * factor, true, true});
        EXPECT_EQ(page.drawing(), expected.drawing()) << factor;
        // Texts are measured where they are drawn, in dots of the page.
        EXPECT_EQ(placed.textExtent("Süd"), expected.textExtent("Süd")) << factor;
    }
}

} // namespace
} // namespace kelvrum
