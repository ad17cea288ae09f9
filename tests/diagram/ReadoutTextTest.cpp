// SPDX-License-Identifier: GPL-3.0-or-later
// What the readout says and where its field is.
#include "diagram/ReadoutText.h"

#include <algorithm>
#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>
#include <vector>

namespace kelvrum {
namespace {

using ::testing::ElementsAre;

const DateTime MORNING = parseDateTime("18.06.2020 07:15").value();
const ReadoutSeries DUST{"Staub", "µg/m³", false};
const ReadoutSeries WIND{"Windrichtung", "Grad", true};

ReadValue valueAt(DateTime time, std::optional<double> y1, std::optional<double> y2 = {}) {
    ReadValue value;
    value.time = time;
    value.y1 = y1;
    value.y2 = y2;
    return value;
}

TEST(ReadoutLines, TimeAndValue) {
    EXPECT_THAT(readoutLines({valueAt(MORNING, 41.25), {}, {}}, DUST, {}, {}),
                ElementsAre("18.06.2020 07:15", "41,25 µg/m³"));
    EXPECT_THAT(readoutLines({valueAt(MORNING, 1e-300), {}, {}}, {}, {}, {}),
                ElementsAre("18.06.2020 07:15", "0"));
    EXPECT_THAT(readoutLines({valueAt(MORNING, 225), {}, {}}, WIND, {}, {}),
                ElementsAre("18.06.2020 07:15", "225 Grad SW"));
    EXPECT_THAT(readoutLines({}, DUST, {}, {}), ElementsAre("kein Wert"));
}

TEST(ReadoutLines, SpreadPassesAndSecondSeries) {
    ReadValue value = valueAt(MORNING, 41, 90);
    EXPECT_THAT(readoutLines({value, {40, 44.5, 12}, {}}, DUST, {}, {}),
                ElementsAre("18.06.2020 07:15", "41 µg/m³", "12 Werte: 40 bis 44,5 µg/m³"));
    EXPECT_THAT(readoutLines({value, {41, 41, 1}, {}}, DUST, {}, {}).size(), 2U);
    EXPECT_THAT(readoutLines({value, {}, {}}, DUST, WIND, {}),
                ElementsAre("18.06.2020 07:15", "Staub: 41 µg/m³", "Windrichtung: 90 Grad O"));
    value.y1.reset();
    EXPECT_THAT(readoutLines({value, {}, {}}, DUST, WIND, {}),
                ElementsAre("18.06.2020 07:15", "Staub: kein Wert", "Windrichtung: 90 Grad O"));
    value = valueAt(MORNING, 41);
    value.minimum = 12.5;
    value.maximum = 99;
    EXPECT_THAT(readoutLines({value, {}, {}}, DUST, {}, {}),
                ElementsAre("18.06.2020 07:15", "41 µg/m³", "Minimum 12,5 µg/m³", "Maximum 99 µg/m³"));
}

TEST(ReadoutLines, DifferencesFromTheMark) {
    Readout readout{valueAt(MORNING, 41.3, 10), {}, valueAt(MORNING - 1.0 / 24, 41.1, 350)};
    EXPECT_THAT(readoutLines(readout, DUST, {}, {}),
                ElementsAre("18.06.2020 07:15", "41,3 µg/m³", "Abstand +1 h", "Differenz +0,2 µg/m³"));
    EXPECT_EQ(readoutLines(readout, DUST, WIND, {}).back(), "Differenz Windrichtung: +20,0 Grad");
    readout.mark->y1.reset();
    EXPECT_EQ(readoutLines(readout, DUST, {}, {}).back(), "Abstand +1 h");
    readout.mark = readout.value;
    EXPECT_EQ(readoutLines(readout, DUST, {}, {}).back(), "Differenz 0,0 µg/m³");
}

TEST(ReadoutLines, ADifferenceThatRoundsToZeroHasNoSign) {
    Readout readout{valueAt(MORNING, 0.3 + 3e-7), {}, valueAt(MORNING, 0.3)};
    EXPECT_EQ(readoutLines(readout, DUST, {}, {}).back(), "Differenz 0,0 µg/m³");
    readout.value->y1 = 0.3 - 3e-7;
    EXPECT_EQ(readoutLines(readout, DUST, {}, {}).back(), "Differenz 0,0 µg/m³");
    readout.value->y1 = 0.3 + 1e-6;
    EXPECT_EQ(readoutLines(readout, DUST, {}, {}).back(), "Differenz +0,000001 µg/m³");
    readout.value->y1 = 0.3 - 1e-6;
    EXPECT_EQ(readoutLines(readout, DUST, {}, {}).back(), "Differenz -0,000001 µg/m³");
}

TEST(SpanText, Table) {
    struct Row {
        double minutes;
        const char* expected;
    };
    const Row rows[] = {
        {0, "0 min"},           {15, "+15 min"},       {-15, "−15 min"},   {60, "+1 h"},
        {135, "+2 h 15 min"},   {1440, "+1 Tag"},      {-2880, "−2 Tage"}, {1440 + 75, "+1 Tag 1 h 15 min"},
        {1445, "+1 Tag 5 min"}, {525600, "+365 Tage"}, {0.4, "0 min"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(spanText(row.minutes / 1440), row.expected) << row.minutes;
    }
}

/// A rose of 8 classes on 400 x 400: centre (200, 210), radius 141.
const PolarGeometry ROSE({400, 400}, 13, 4, 1);
DirectionClasses roseClasses() {
    DirectionClasses classes;
    classes.counts = {40, 1, 2, 3, 4, 5, 6, 7, 0};
    classes.calm = 12;
    classes.maxCount = 40;
    return classes;
}
constexpr double UP = -TWO_PI / 4;

TEST(SectorAt, FollowsThePointer) {
    struct Row {
        int x, y;
        double from, to;
        std::int64_t count;
    };
    const Row rows[] = {
        {200, 110, 337.5, 22.5, 40}, // up
        {270, 140, 22.5, 67.5, 1},   // north-east
        {300, 210, 67.5, 112.5, 2},  // right
        {200, 310, 157.5, 202.5, 4}, // down
        {100, 210, 247.5, 292.5, 6}, // left
        {130, 140, 292.5, 337.5, 7},
        {200 + 38, 210 - 93, 337.5, 22.5, 40}, // either side of 22.5 degrees
        {200 + 39, 210 - 93, 22.5, 67.5, 1},
    };
    for (const Row& row : rows) {
        const auto sector = sectorAt(ROSE, roseClasses(), 80, UP, {row.x, row.y});
        ASSERT_TRUE(sector) << row.x << " " << row.y;
        EXPECT_DOUBLE_EQ(sector->from, row.from);
        EXPECT_DOUBLE_EQ(sector->to, row.to);
        EXPECT_EQ(sector->count, row.count);
        EXPECT_DOUBLE_EQ(sector->share, static_cast<double>(row.count) * 100 / 80);
        EXPECT_EQ(sector->calms, 12);
    }
}

TEST(SectorAt, OnlyWithinTheRose) {
    EXPECT_TRUE(sectorAt(ROSE, roseClasses(), 80, UP, {200, 210 - 141}));
    EXPECT_FALSE(sectorAt(ROSE, roseClasses(), 80, UP, {200, 210 - 142}));
    EXPECT_FALSE(sectorAt(ROSE, roseClasses(), 80, UP, {310, 310}));
    EXPECT_FALSE(sectorAt(ROSE, roseClasses(), 0, UP, {200, 200}));
    EXPECT_FALSE(sectorAt(ROSE, {}, 80, UP, {200, 200}));
    EXPECT_FALSE(sectorAt(PolarGeometry({20, 20}, 13, 4, 1), roseClasses(), 80, UP, {10, 10}));
}

TEST(SectorAt, TurnsWithDirectionNull) {
    const auto sector = sectorAt(ROSE, roseClasses(), 80, 0, {300, 210}); // direction 0 points right
    ASSERT_TRUE(sector);
    EXPECT_EQ(sector->count, 40);
}

TEST(SectorLines, BordersShareCountAndCalms) {
    EXPECT_THAT(sectorLines({0, 337.5, 22.5, 40, 50, 12}, {}),
                ElementsAre("337,5° bis 22,5° (N)", "50,0 %, 40 Werte", "Windstille: 12 Werte"));
    EXPECT_THAT(sectorLines({3, 75, 105, 1, 1.25, 0}, {}),
                ElementsAre("75° bis 105° (O)", "1,3 %, 1 Wert", "Windstille: 0 Werte"));
}

TEST(PlaceField, StaysInTheAreaAndLeavesThePointFree) {
    const Box area{0, 0, 300, 200};
    const Extent field{80, 40};
    struct Row {
        Dot point, expected;
    };
    const Row rows[] = {
        {{100, 100}, {108, 52}},  // right of it and above
        {{100, 10}, {108, 0}},    // cut at the upper edge
        {{100, 500}, {108, 160}}, // far below: at the lower edge
        {{250, 100}, {162, 52}},  // no room on the right
        {{212, 100}, {220, 52}},  // just enough
        {{213, 100}, {125, 52}},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(placeField(field, row.point, area, 8), row.expected) << row.point.x;
    }
    for (int x = 0; x <= 300; x += 5) {
        for (int y = 0; y <= 200; y += 5) {
            const Dot at = placeField(field, {x, y}, area, 8);
            EXPECT_TRUE(at.x >= 0 && at.y >= 0 && at.x + 80 <= 300 && at.y + 40 <= 200);
            EXPECT_TRUE(x < at.x || x >= at.x + 80) << x << " " << y;
        }
    }
    const Dot narrow = placeField({280, 40}, {150, 100}, area, 8); // above where neither side has room
    EXPECT_EQ(narrow, (Dot{10, 52}));
    EXPECT_EQ(placeField({280, 40}, {150, 20}, area, 8), (Dot{10, 28}));
    EXPECT_EQ(placeField({400, 300}, {150, 20}, area, 8), (Dot{0, 0})); // larger than the area
}

bool covers(Dot at, Extent field, Dot dot) {
    return dot.x >= at.x && dot.x < at.x + field.width && dot.y >= at.y && dot.y < at.y + field.height;
}

TEST(PlaceField, CoversNoOtherRing) {
    const Box area{0, 0, 300, 200};
    const Extent field{120, 60};
    for (int x = 0; x < 300; x += 20) {
        for (int y = 0; y < 200; y += 20) {
            for (const Dot other :
                 {Dot{x + 40, y - 30}, Dot{x + 130, y - 70}, Dot{x - 60, y - 20}, Dot{x, 199 - y}}) {
                const std::vector<Dot> rings = {{x, y}, other};
                const Dot at = placeField(field, rings[0], area, 8, rings);
                EXPECT_TRUE(at.x >= 0 && at.y >= 0 && at.x + 120 <= 300 && at.y + 60 <= 200) << x << " " << y;
                EXPECT_FALSE(covers(at, field, {x, y})) << x << " " << y;
                EXPECT_FALSE(covers(at, field, other)) << x << " " << y << ", " << other.x << " " << other.y;
            }
        }
    }
    // The usual place is free.
    EXPECT_EQ(placeField(field, {50, 100}, area, 8, std::vector<Dot>{{50, 100}, {50, 20}}), (Dot{58, 32}));
}

TEST(PlaceField, CoversNothingOfASector) {
    const PolarDrawing rose{ROSE, roseClasses(), 80, UP, {}};
    const Box area{0, 0, 400, 400};
    const Extent field{130, 50};
    for (std::int64_t index = 0; index < 8; ++index) {
        const std::vector<Dot> sector = sectorDots(rose, index);
        ASSERT_FALSE(sector.empty());
        for (const Dot point : {sector.back(), sector[sector.size() / 2], sector.front()}) {
            const Dot at = placeField(field, point, area, 10, sector);
            EXPECT_TRUE(at.x >= 0 && at.y >= 0 && at.x + 130 <= 400 && at.y + 50 <= 400) << index;
            for (const Dot& dot : sector) {
                EXPECT_FALSE(covers(at, field, dot)) << index << ": " << dot.x << " " << dot.y;
            }
        }
    }
}

TEST(SectorDots, LieInTheDrawnPart) {
    const PolarDrawing rose{ROSE, roseClasses(), 80, UP, {}};
    for (std::int64_t index = 0; index < 8; ++index) {
        const std::vector<Dot> dots = sectorDots(rose, index);
        const double share = roseClasses().counts[static_cast<std::size_t>(index)] / 40.0;
        double longest = 0;
        for (const Dot& dot : dots) {
            longest = std::max(longest, std::hypot(dot.x - 200, dot.y - 210));
        }
        EXPECT_NEAR(longest, share * 141, 2) << index;
        const Dot middle = dots[6 * 25 + 24]; // of 13 angles, at the rim
        const auto sector =
            sectorAt(ROSE, rose.classes, 80, UP, {200 + (middle.x - 200) / 2, 210 + (middle.y - 210) / 2});
        if (share * 141 > 20) {
            ASSERT_TRUE(sector);
            EXPECT_EQ(sector->index, index);
        }
    }
    EXPECT_TRUE(sectorDots(rose, -1).empty());
    EXPECT_TRUE(sectorDots(rose, 8).empty()); // the spare one
    DirectionClasses none = roseClasses();
    none.counts[3] = 0;
    EXPECT_TRUE(sectorDots({ROSE, none, 80, UP, {}}, 3).empty());
}

} // namespace
} // namespace kelvrum
