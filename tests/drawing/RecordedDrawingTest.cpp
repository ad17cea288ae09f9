// SPDX-License-Identifier: GPL-3.0-or-later
// A recorded drawing: a value that plays what was drawn.
#include "drawing/RecordedDrawing.h"

#include "tests/testing/TestSurface.h"

#include <gtest/gtest.h>

namespace kelvrum {
namespace {

using kelvrum::testing::TestSurface;

/// Each primitive once, with one argument changed by `variant`.
void drawAll(Surface& surface, int variant = -1) {
    const auto changed = [variant](int number) { return variant == number ? 1 : 0; };
    surface.clear(0x102030U + static_cast<Colour>(changed(0)));
    surface.setPen(RED + static_cast<Colour>(changed(1)));
    surface.setClip(Box{1, 2, 30, 40 + changed(2)});
    surface.line({1, 2}, {3, 4 + changed(3)});
    const Segment segments[] = {{{0, 0}, {5, 5}}, {{7, 7}, {7, 7 + changed(4)}}};
    surface.lines(segments);
    const Box boxes[] = {{0, 0, 2, 2}, {5, 5, 6, 7 + changed(5)}};
    surface.fill(boxes, BLUE);
    surface.ellipse({0, 0, 9, 9}, changed(6) != 0 ? std::optional<Colour>(WHITE) : std::nullopt);
    surface.pie({0, 0, 9, 9}, {9, 0}, {0, 9}, GREEN + static_cast<Colour>(changed(7)));
    surface.setFont({"Courier", 11.0 + changed(8), true, false});
    surface.text({3, 4}, changed(9) != 0 ? "Süd" : "Nord");
    surface.setClip({});
}
constexpr int VARIANTS = 10;

TEST(RecordedDrawing, PlaysWhatWasDrawn) {
    TestSurface original;
    drawAll(original);
    EXPECT_EQ(original.drawing().primitives.size(), 11U);
    TestSurface copy;
    original.drawing().play(copy);
    EXPECT_EQ(copy.drawing(), original.drawing());
}

TEST(RecordedDrawing, IsEqualOnlyWhenEachArgumentIs) {
    TestSurface original;
    drawAll(original);
    for (int variant = 0; variant < VARIANTS; ++variant) {
        TestSurface other;
        drawAll(other, variant);
        EXPECT_NE(other.drawing(), original.drawing()) << variant;
    }
    RecordedDrawing shorter = original.drawing();
    shorter.primitives.pop_back();
    EXPECT_NE(shorter, original.drawing());
}

TEST(RecordedDrawing, RestartsEmptyWithTheDefaultFont) {
    TestSurface surface;
    surface.setFont({"Arial", 8, true, false});
    surface.text({0, 0}, "fett");
    EXPECT_EQ(surface.textExtent("x").width, TestSurface::BOLD_CHARACTER);
    surface.restart();
    EXPECT_TRUE(surface.drawing().primitives.empty());
    EXPECT_EQ(surface.textExtent("x").width, TestSurface::CHARACTER);
}

} // namespace
} // namespace kelvrum
