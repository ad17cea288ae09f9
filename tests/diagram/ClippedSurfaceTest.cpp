// SPDX-License-Identifier: GPL-3.0-or-later
// Clipping for devices that do not clip.
#include "drawing/ClippedSurface.h"

#include "diagram/LineDiagram.h"
#include "tests/testing/TestSurface.h"

#include <array>
#include <gtest/gtest.h>

namespace kelvrum {
namespace {

using testing::TestSurface;

constexpr Box BOX{10, 10, 21, 21}; // dots 10 to 20

TEST(Clipped, Lines) {
    struct Row {
        Segment line;
        std::optional<Segment> expected;
    };
    const Row rows[] = {
        {{{12, 12}, {18, 15}}, Segment{{12, 12}, {18, 15}}},   // inside
        {{{10, 10}, {20, 20}}, Segment{{10, 10}, {20, 20}}},   // corner to corner
        {{{0, 15}, {30, 15}}, Segment{{10, 15}, {20, 15}}},    // through
        {{{30, 15}, {0, 15}}, Segment{{20, 15}, {10, 15}}},    // and back
        {{{15, -100}, {15, 12}}, Segment{{15, 10}, {15, 12}}}, // upright
        {{{0, 0}, {30, 30}}, Segment{{10, 10}, {20, 20}}},
        {{{15, 15}, {15, 15}}, Segment{{15, 15}, {15, 15}}}, // a dot
        {{{9, 9}, {9, 9}}, {}},
        {{{0, 9}, {30, 9}}, {}},
        {{{0, 21}, {30, 21}}, {}},
        {{{0, 20}, {30, 20}}, Segment{{10, 20}, {20, 20}}}, // the last row belongs to it
        {{{0, 15}, {15, 30}}, {}},                          // past a corner
        {{{-32768, 15}, {32767, 15}}, Segment{{10, 15}, {20, 15}}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(clipped(row.line, BOX), row.expected) << row.line.from.x << " " << row.line.from.y;
    }
}

TEST(Clipped, Boxes) {
    EXPECT_EQ(clipped(Box{0, 0, 100, 100}, BOX), BOX);
    EXPECT_EQ(clipped(Box{12, 0, 14, 100}, BOX), (Box{12, 10, 14, 21}));
    EXPECT_EQ(clipped(Box{21, 10, 30, 20}, BOX), std::nullopt);
    EXPECT_EQ(clipped(Box{12, 12, 12, 20}, BOX), std::nullopt);
}

TEST(ClippedSurface, TheOtherSurfaceSeesNoClip) {
    TestSurface seen;
    ClippedSurface surface(seen);
    surface.setClip(BOX);
    surface.line({0, 15}, {30, 15});
    surface.line({30, 15}, {30, 100}); // outside
    surface.line({30, 100}, {15, 15});
    surface.lines(std::array{Segment{{0, 12}, {30, 12}}, Segment{{0, 0}, {1, 1}}});
    surface.fill(std::array{Box{0, 0, 15, 15}, Box{0, 0, 5, 5}}, RED);
    surface.setClip({});
    surface.line({0, 0}, {30, 0});
    const auto lines = seen.drawnLines();
    ASSERT_EQ(lines.size(), 4U);
    EXPECT_EQ(lines[0].at, (Segment{{10, 15}, {20, 15}}));
    EXPECT_EQ(lines[1].at.to, (Dot{15, 15}));
    EXPECT_EQ(lines[2].at, (Segment{{10, 12}, {20, 12}}));
    EXPECT_EQ(lines[3].at, (Segment{{0, 0}, {30, 0}}));
    ASSERT_EQ(seen.boxes().size(), 1U);
    EXPECT_EQ(seen.boxes()[0].at, (Box{10, 10, 15, 15}));
    for (const auto& line : lines) {
        EXPECT_EQ(line.clip, std::nullopt);
    }
}

} // namespace
} // namespace kelvrum
