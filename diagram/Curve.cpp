// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/Curve.h"

#include <algorithm>
#include <limits>

namespace kelvrum {

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
