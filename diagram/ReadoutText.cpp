// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/ReadoutText.h"

#include <algorithm>
#include <cmath>
#include <cstdlib>

namespace kelvrum {

namespace {

constexpr const char* NO_VALUE = "kein Wert";

std::string withUnit(double v, const ReadoutSeries& series, const LocaleTexts& texts) {
    const std::string unit = series.unit.empty() ? "" : " " + series.unit;
    const std::string point = series.directions ? " " + std::string(compassPoint(v)) : "";
    return shownValue(v, texts) + unit + point;
}

std::string valueText(const std::optional<double>& v, const ReadoutSeries& series, const LocaleTexts& texts) {
    return v ? withUnit(*v, series, texts) : NO_VALUE;
}

/// "Name: " where two series must be distinguished.
std::string label(const ReadoutSeries& series, bool both) {
    return both && !series.name.empty() ? series.name + ": " : "";
}

/// A difference of values, with its sign; for directions, positive is clockwise.
std::string differenceText(double a, double b, const ReadoutSeries& series, const LocaleTexts& texts) {
    const double difference = valueDifference(a, b, series.directions);
    // Fifteen digits would show how the numbers are stored, not what was measured.
    const double shown = std::fabs(difference) < 1e-9 * std::max(std::fabs(a), std::fabs(b)) ? 0 : difference;
    const std::string text = formatNumber(shown, "########0.0#####", texts);
    const bool isZero = text.find_first_of("123456789") == std::string::npos;
    return (shown > 0 && !isZero ? "+" : "") + text + (series.unit.empty() ? "" : " " + series.unit);
}

std::string degrees(double v, const LocaleTexts& texts) { return formatNumber(v, "##0.##", texts) + "°"; }

} // namespace

std::string spanText(DateTime span) {
    const auto minutes = static_cast<long long>(std::llround(span * MINUTES_PER_DAY));
    const long long all = std::llabs(minutes);
    const long long days = all / MINUTES_PER_DAY;
    const long long hours = all / 60 % 24;
    std::string text;
    if (days > 0) {
        text = std::to_string(days) + (days == 1 ? " Tag" : " Tage");
    }
    if (hours > 0) {
        text += (text.empty() ? "" : " ") + std::to_string(hours) + " h";
    }
    if (all % 60 > 0 || text.empty()) {
        text += (text.empty() ? "" : " ") + std::to_string(all % 60) + " min";
    }
    return (minutes < 0 ? "−" : minutes > 0 ? "+" : "") + text;
}

std::vector<std::string> readoutLines(const Readout& readout, const ReadoutSeries& first,
                                      const std::optional<ReadoutSeries>& second, const LocaleTexts& texts) {
    if (!readout.value) {
        return {NO_VALUE};
    }
    const ReadValue& value = *readout.value;
    const bool both = second.has_value();
    std::vector<std::string> lines = {rowTime(value.time, texts),
                                      label(first, both) + valueText(value.y1, first, texts)};
    if (readout.spread.count > 1) {
        lines.push_back(std::to_string(readout.spread.count) +
                        " Werte: " + shownValue(readout.spread.smallest, texts) + " bis " +
                        withUnit(readout.spread.greatest, {{}, first.unit, false}, texts));
    }
    if (value.minimum) {
        lines.push_back("Minimum " + withUnit(*value.minimum, first, texts));
    }
    if (value.maximum) {
        lines.push_back("Maximum " + withUnit(*value.maximum, first, texts));
    }
    if (both) {
        lines.push_back(label(*second, both) + valueText(value.y2, *second, texts));
    }
    if (readout.mark) {
        lines.push_back("Abstand " + spanText(value.time - readout.mark->time));
        if (value.y1 && readout.mark->y1) {
            lines.push_back("Differenz " + differenceText(*readout.mark->y1, *value.y1, first, texts));
        }
        if (both && value.y2 && readout.mark->y2) {
            lines.push_back("Differenz " + label(*second, both) +
                            differenceText(*readout.mark->y2, *value.y2, *second, texts));
        }
    }
    return lines;
}

std::optional<RoseSector> roseSector(const DirectionClasses& classes, std::int64_t samples,
                                     std::int64_t index) {
    const auto sectors = static_cast<std::int64_t>(classes.counts.size()) - 1; // and a spare one
    if (samples < 1 || index < 0 || index >= sectors) {
        return std::nullopt;
    }
    const double step = 360.0 / static_cast<double>(sectors);
    RoseSector sector;
    sector.index = index;
    sector.from = std::fmod((static_cast<double>(index) - 0.5) * step + 360, 360);
    sector.to = (static_cast<double>(index) + 0.5) * step;
    sector.count = classes.counts[static_cast<std::size_t>(index)];
    sector.share = static_cast<double>(sector.count) * 100 / static_cast<double>(samples);
    sector.calms = classes.calm;
    return sector;
}

std::optional<RoseSector> sectorAt(const PolarGeometry& geometry, const DirectionClasses& classes,
                                   std::int64_t samples, double startAngle, Dot at) {
    const auto sectors = static_cast<std::int64_t>(classes.counts.size()) - 1;
    const double rx = geometry.dx(geometry.rings);
    const double ry = geometry.dy(geometry.rings);
    if (sectors < 1 || samples < 1 || rx <= 0 || ry <= 0) {
        return std::nullopt;
    }
    // The rose is a stretched circle: its angles are those of the circle.
    const double x = (at.x - geometry.xCentre) / rx;
    const double y = (at.y - geometry.yCentre) / ry;
    if (x * x + y * y > 1) {
        return std::nullopt;
    }
    const double width = TWO_PI / static_cast<double>(sectors);
    const double angle = NormWinkel(std::atan2(y, x) - startAngle + width / 2);
    return roseSector(classes, samples, std::min(static_cast<std::int64_t>(angle / width), sectors - 1));
}

std::vector<std::string> sectorLines(const RoseSector& sector, const LocaleTexts& texts) {
    const double width = std::fmod(sector.to - sector.from + 360, 360);
    const double middle = sector.from + (width > 0 ? width : 360) / 2;
    const auto values = [](std::int64_t count) {
        return std::to_string(count) + (count == 1 ? " Wert" : " Werte");
    };
    return {degrees(sector.from, texts) + " bis " + degrees(sector.to, texts) + " (" +
                std::string(compassPoint(middle)) + ")",
            formatNumber(sector.share, "#0.0", texts) + " %, " + values(sector.count),
            "Windstille: " + values(sector.calms)};
}

std::vector<Dot> sectorDots(const PolarDrawing& rose, std::int64_t index) {
    constexpr int RADII = 24;
    constexpr int ANGLES = 12;
    const DirectionClasses& classes = rose.classes;
    const auto sectors = static_cast<std::int64_t>(classes.counts.size()) - 1;
    if (index < 0 || index >= sectors || classes.counts[static_cast<std::size_t>(index)] < 1) {
        return {};
    }
    const double length = classes.counts[static_cast<std::size_t>(index)] / classes.maxCount;
    const double width = TWO_PI / static_cast<double>(sectors);
    const double first = rose.startAngle + (static_cast<double>(index) - 0.5) * width;
    const PolarGeometry& g = rose.geometry;
    std::vector<Dot> dots;
    for (int i = 0; i <= ANGLES; ++i) {
        const double angle = first + width * i / ANGLES;
        for (int r = 0; r <= RADII; ++r) {
            const double radius = length * r / RADII;
            dots.push_back({g.xCentre + static_cast<int>(radius * g.dx(g.rings) * std::cos(angle)),
                            g.yCentre + static_cast<int>(radius * g.dy(g.rings) * std::sin(angle))});
        }
    }
    return dots;
}

namespace {

/// The place beside a point, whatever it covers.
Dot besidePoint(Extent field, Dot point, const Box& area, int gap) {
    const int highestX = std::max(area.left, area.right - field.width);
    const int highestY = std::max(area.top, area.bottom - field.height);
    const auto withinY = [&](int y) { return std::clamp(y, area.top, highestY); };
    if (point.x + gap + field.width <= area.right) {
        return {std::max(point.x + gap, area.left), withinY(point.y - field.height - gap)};
    }
    if (point.x - gap - field.width >= area.left) {
        return {std::min(point.x - gap - field.width, highestX), withinY(point.y - field.height - gap)};
    }
    // Too narrow on both sides: above or below, whichever has room.
    const int x = std::clamp(point.x - field.width / 2, area.left, highestX);
    const bool above = point.y - gap - field.height >= area.top;
    return {x, withinY(above ? point.y - gap - field.height : point.y + gap)};
}

/// The rectangle around some dots.
Box around(std::span<const Dot> dots) {
    Box box{dots[0].x, dots[0].y, dots[0].x, dots[0].y};
    for (const Dot& dot : dots) {
        box = {std::min(box.left, dot.x), std::min(box.top, dot.y), std::max(box.right, dot.x),
               std::max(box.bottom, dot.y)};
    }
    return box;
}

} // namespace

Dot placeField(Extent field, Dot point, const Box& area, int gap, std::span<const Dot> free) {
    const Dot usual = besidePoint(field, point, area, gap);
    const int margin = gap / 2;
    const auto covers = [&](Dot at, Dot dot) {
        return dot.x > at.x - margin && dot.x < at.x + field.width + margin && dot.y > at.y - margin &&
               dot.y < at.y + field.height + margin;
    };
    const auto isFree = [&](Dot at) {
        return !covers(at, point) &&
               std::none_of(free.begin(), free.end(), [&](Dot dot) { return covers(at, dot); });
    };
    if (isFree(usual)) {
        return usual;
    }
    const auto squaredDistance = [&](Dot at) {
        const std::int64_t x = point.x - std::clamp(point.x, at.x, at.x + field.width);
        const std::int64_t y = point.y - std::clamp(point.y, at.y, at.y + field.height);
        return x * x + y * y;
    };
    const Box kept = free.empty() ? Box{point.x, point.y, point.x, point.y} : around(free);
    std::optional<Dot> best;
    for (const int wantedX : {point.x + gap, point.x - gap - field.width, point.x - field.width / 2,
                              kept.right + gap, kept.left - gap - field.width, area.left, area.right}) {
        for (const int wantedY : {point.y - gap - field.height, point.y + gap, point.y - field.height / 2,
                                  kept.top - gap - field.height, kept.bottom + gap, area.top, area.bottom}) {
            const Dot at{std::clamp(wantedX, area.left, std::max(area.left, area.right - field.width)),
                         std::clamp(wantedY, area.top, std::max(area.top, area.bottom - field.height))};
            if (isFree(at) && (!best || squaredDistance(at) < squaredDistance(*best))) {
                best = at;
            }
        }
    }
    return best.value_or(usual);
}

} // namespace kelvrum
