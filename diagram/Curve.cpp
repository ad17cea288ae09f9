// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/Curve.h"

#include <algorithm>
#include <limits>

namespace kelvrum {

bool isAscending(std::span<const DateTime> times) {
    constexpr std::size_t PIECE = 1024; // checked without an early exit, so that the loop vectorises
    for (std::size_t i = 1; i < times.size();) {
        const std::size_t end = std::min(i + PIECE, times.size());
        int back = 0;
        for (; i < end; ++i) {
            back |= times[i - 1] <= times[i] ? 0 : 1;
        }
        if (back != 0) {
            return false;
        }
    }
    return true;
}

double sampleInterval(std::span<const double> times) {
    double shortest = std::numeric_limits<double>::infinity();
    for (std::size_t i = 1; i < times.size(); ++i) {
        const double distance = times[i] - times[i - 1];
        if (distance > 0 && distance < shortest) {
            shortest = distance;
        }
    }
    return std::isfinite(shortest) ? shortest : 0;
}

std::optional<Segment> reachablePart(const CurvePoint& from, const CurvePoint& to) {
    if (std::max(from.x, to.x) < LOWEST_DOT || std::min(from.x, to.x) > HIGHEST_DOT) {
        return std::nullopt;
    }
    const auto cut = [](const CurvePoint& end, const CurvePoint& other) {
        if (!end.isFar()) {
            return end.dot();
        }
        const double edge = end.x < LOWEST_DOT ? LOWEST_DOT : HIGHEST_DOT;
        // Halves, so that the distance of two huge numbers stays finite.
        const double part = (edge / 2 - other.x / 2) / (end.x / 2 - other.x / 2);
        return Dot{static_cast<int>(edge),
                   std::isnan(part) ? end.y : nearestDot(other.y + part * (end.y - other.y))};
    };
    return Segment{cut(from, to), cut(to, from)};
}

} // namespace kelvrum
