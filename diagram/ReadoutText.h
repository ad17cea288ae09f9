// SPDX-License-Identifier: GPL-3.0-or-later
// What the readout of a diagram says, and where its field is.
#pragma once

#include "diagram/PolarDiagram.h"
#include "diagram/Readout.h"
#include "drawing/Surface.h"
#include "util/Format.h"

#include <cstdint>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kelvrum {

/// How the values of one series are named.
struct ReadoutSeries {
    std::string name; // in a readout only where there are two series; copies always have it
    std::string unit;
    bool directions = false; // degrees, with their point of the compass
};

/// What a line diagram's readout shows.
struct Readout {
    std::optional<ReadValue> value; // nothing: a gap
    ValueSpread spread;             // of the values that share the column of dots
    std::optional<ReadValue> mark;  // the marked value, to compare with
};

/// The lines of the field: time, value with unit, the spread where several values share the column of dots,
/// minimum and maximum of the interval, and the differences from the mark. In a gap "kein Wert".
std::vector<std::string> readoutLines(const Readout& readout, const ReadoutSeries& first,
                                      const std::optional<ReadoutSeries>& second, const LocaleTexts& texts);

/// A time span, to the minute, with its sign: "+1 Tag 2 h 15 min", "−15 min", "0 min".
std::string spanText(DateTime span);

/// One sector of a wind rose.
struct RoseSector {
    std::int64_t index = 0;
    double from = 0; // borders in degrees, 0 to 360
    double to = 0;
    std::int64_t count = 0;
    double share = 0; // percent of all samples, calms included
    std::int64_t calms = 0;
};

/// A sector by its number, from 0; nothing without samples or such a sector.
std::optional<RoseSector> roseSector(const DirectionClasses& classes, std::int64_t samples,
                                     std::int64_t index);

/// The sector of a rose under a dot, within the outermost ring; nothing outside of it or without samples.
/// `startAngle` is the screen angle of direction 0 in radians.
std::optional<RoseSector> sectorAt(const PolarGeometry& geometry, const DirectionClasses& classes,
                                   std::int64_t samples, double startAngle, Dot at);

/// "345° bis 15° (N)", share and count, and the calms.
std::vector<std::string> sectorLines(const RoseSector& sector, const LocaleTexts& texts);

/// Dots all over the part of a sector that is drawn; none for a sector without samples.
std::vector<Dot> sectorDots(const PolarDrawing& rose, std::int64_t index);

/// The upper left corner of a field that keeps `gap` dots from a point and stays within an area: right of the
/// point where there is room, else left of it, else above or below. Where that would cover one of the dots
/// to be kept free, it is the place nearest to the point that covers none, if there is one.
Dot placeField(Extent field, Dot point, const Box& area, int gap, std::span<const Dot> free = {});

} // namespace kelvrum
