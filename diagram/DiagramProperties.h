// SPDX-License-Identifier: GPL-3.0-or-later
// What a diagram looks like and what it shows beside its data, as a value.
#pragma once

#include "diagram/Angles.h"
#include "drawing/Colour.h"
#include "drawing/Font.h"
#include "util/DateTime.h"

#include <cstdint>
#include <string>

namespace kelvrum {

/// What DiagTyp selects. Any other number draws nothing.
enum DiagramKind : std::int32_t {
    KIND_LINE = 0,
    KIND_POLAR = 1,
    KIND_PRECIPITATION = 2,
    KIND_DIRECTION = 3,
    KIND_LINE_4 = 4, // as 0
};

/// Y1Low and Y1High both set to this: the left range follows the data.
inline constexpr double AUTOMATIC_RANGE = 100000005;
/// Y2Low and Y2High both set to this: the right range follows the data.
inline constexpr double AUTOMATIC_RIGHT_RANGE = -1;

/// All properties with their defaults; those of PolarSys say what they mean.
struct DiagramProperties {
    std::int32_t DiagTyp = KIND_LINE;
    std::int32_t Bogenmass = UNIT_RADIANS;
    double AngelOffset = -1.5707963267949; // always in radians: direction 0 points up
    std::int32_t LongRaster = 10;
    std::int32_t RadRaster = 12;
    std::int32_t Ycenter = 0;

    double Y1Low = 0;
    double Y1High = 100;
    double Y1MinLow = 0; // smallest height of the automatic left range
    double Y2Low = 0;
    double Y2High = 100;
    DateTime XLow = 37257;  // 2002-01-01
    DateTime XHigh = 37258; // 2002-01-02

    bool showMittel = false;
    double Hilfslinie1 = 0; // 0 = none
    double Hilfslinie2 = 0;

    Colour D1 = RED;
    Colour D2 = BLUE;
    Colour Xaxe = BLACK;
    Colour Y1axe = RED;
    Colour Y2axe = BLUE;
    Colour BgCol = WHITE;

    std::string Einheit;
    std::string AchseText;
    std::string HeadLine;
    std::string HeadLine2;
    std::string Fussnote;
    std::string RichtungRein;
    std::string RichtungRaus;
    Font SkalaFont;
    bool Enabled = true;

    /// Whether the right range follows the data.
    [[nodiscard]] bool hasAutomaticRightRange() const {
        return Y2Low == AUTOMATIC_RIGHT_RANGE && Y2High == AUTOMATIC_RIGHT_RANGE;
    }

    bool operator==(const DiagramProperties&) const = default;
};

} // namespace kelvrum
