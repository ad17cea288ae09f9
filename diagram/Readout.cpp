// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/Readout.h"

#include "diagram/Curve.h"
#include "diagram/LineScale.h"
#include "util/VectorRegisters.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace kelvrum {

namespace {

constexpr double TIE = 1e-9;            // days that two distances may differ by and be the same
constexpr double SAME_TIME = 1.0 / 1e7; // days: of the same interval in two passes
constexpr double FULL_CIRCLE = 360;
constexpr double HALF_CIRCLE = 180;

std::optional<double> valid(double v) { return isValidPoint(v) ? std::optional(v) : std::nullopt; }

/// Where each direction of a curve is drawn; of a gap the value itself.
std::vector<double> joinedDirections(std::span<const double> values) {
    std::vector<double> joined(values.begin(), values.end());
    for (std::size_t i = 0; i < joined.size(); ++i) {
        if (isValidPoint(values[i])) {
            const bool starts = i == 0 || !isValidPoint(values[i - 1]);
            joined[i] = keptDirection(starts ? values[i] : joinedDirection(joined[i - 1], values[i]));
        }
    }
    return joined;
}

} // namespace

SeriesReader::SeriesReader(const Series& series, DateTime xLow, double interval)
    : series_(series)
    , interval_(interval) {
    cleanVectorRegisters(); // the picture has been painted
    PassDetector detector(xLow);
    for (std::size_t i = 0; i < series_.times.size(); ++i) {
        if (detector.starts(series_.times[i])) {
            ends_[static_cast<std::size_t>(passes_)] = i;
            if (++passes_ == MAX_PASSES) {
                return; // a fourth pass is not shown
            }
        }
    }
    if (!series_.times.empty()) {
        ends_[static_cast<std::size_t>(passes_)] = series_.times.size();
        ++passes_;
    }
}

bool SeriesReader::isValue(std::size_t column) const {
    return isValidPoint(series_.y1[column]) || isValidPoint(series_.y2[column]);
}

std::size_t SeriesReader::columnAt(DateTime t) const {
    const auto means = series_.times.first(count());
    return static_cast<std::size_t>(std::lower_bound(means.begin(), means.end(), t) - means.begin());
}

std::optional<double> SeriesReader::inPass(int pass, DateTime t) const {
    const auto index = static_cast<std::size_t>(pass);
    if (pass >= passes_) {
        return std::nullopt;
    }
    const std::size_t begin = ends_[index - 1];
    const auto times = series_.times.subspan(begin, ends_[index] - begin);
    const auto found = std::lower_bound(times.begin(), times.end(), t - SAME_TIME);
    return found != times.end() && *found <= t + SAME_TIME
               ? valid(series_.y1[begin + static_cast<std::size_t>(found - times.begin())])
               : std::nullopt;
}

ReadValue SeriesReader::read(std::size_t column) const {
    const DateTime t = series_.times[column];
    return {column, t, valid(series_.y1[column]), valid(series_.y2[column]), inPass(1, t), inPass(2, t)};
}

std::optional<ReadValue> SeriesReader::previous(std::size_t column) const {
    for (std::size_t i = std::min(column, count()); i > 0; --i) {
        if (isValue(i - 1)) {
            return read(i - 1);
        }
    }
    return std::nullopt;
}

std::optional<ReadValue> SeriesReader::next(std::size_t column) const {
    for (std::size_t i = column + 1; i < count(); ++i) {
        if (isValue(i)) {
            return read(i);
        }
    }
    return std::nullopt;
}

std::optional<ReadValue> SeriesReader::first() const { return count() > 0 && isValue(0) ? read(0) : next(0); }

std::optional<ReadValue> SeriesReader::last() const { return previous(count()); }

std::optional<ReadValue> SeriesReader::before(DateTime t) const { return previous(columnAt(t)); }

std::optional<ReadValue> SeriesReader::after(DateTime t) const {
    const std::size_t column = columnAt(t);
    return column < count() && series_.times[column] > t && isValue(column) ? std::optional(read(column))
                                                                            : next(column);
}

std::optional<ReadValue> SeriesReader::nearest(DateTime t) const {
    const std::size_t split = columnAt(t);
    const auto before = previous(split);
    const auto after = split < count() && isValue(split) ? std::optional(read(split)) : next(split);
    if (before && after) {
        return t - before->time <= after->time - t + TIE ? before : after;
    }
    return before ? before : after;
}

std::optional<ReadValue> SeriesReader::at(DateTime t, double reach) const {
    const auto value = nearest(t);
    if (!value) {
        return std::nullopt;
    }
    const double distance = std::fabs(t - value->time);
    if (distance <= reach + TIE) {
        return value;
    }
    if (interval_ <= 0) {
        // Without a grid a gap is where a column without a value is nearer.
        const std::size_t split = columnAt(t);
        const bool gapAfter = split < count() && std::fabs(series_.times[split] - t) < distance;
        const bool gapBefore = split > 0 && std::fabs(t - series_.times[split - 1]) < distance;
        return gapAfter || gapBefore ? std::nullopt : value;
    }
    // The interval of the last value ends the curve where no interval follows it.
    const bool isLast = value->column + 1 == count() && t > value->time;
    if (distance <= (isLast ? interval_ : interval_ / 2) + TIE) {
        return value;
    }
    // So does the interval of the last value before a gap: the gap begins after it.
    const auto earlier = before(t);
    return earlier && t - earlier->time < interval_ - TIE ? earlier : std::nullopt;
}

ValueSpread SeriesReader::spreadAround(std::size_t column, const PlotArea& plot) const {
    const auto means = series_.times.first(count());
    const int x = plot.x(means[column]);
    const auto here = means.begin() + static_cast<std::ptrdiff_t>(column);
    const auto begin = std::partition_point(means.begin(), here, [&](DateTime t) { return plot.x(t) < x; });
    const auto end = std::partition_point(here, means.end(), [&](DateTime t) { return plot.x(t) <= x; });
    ValueSpread spread;
    for (auto at = begin; at != end; ++at) {
        const double v = series_.y1[static_cast<std::size_t>(at - means.begin())];
        if (isValidPoint(v)) {
            spread.smallest = spread.count == 0 ? v : std::min(spread.smallest, v);
            spread.greatest = spread.count == 0 ? v : std::max(spread.greatest, v);
            ++spread.count;
        }
    }
    return spread;
}

double SeriesReader::joinedAt(std::size_t column, SeriesTable::Row row) const {
    const bool second = row == SeriesTable::Y2;
    std::vector<double>& joined = joined_[second ? 1 : 0];
    if (joined.empty()) {
        joined = joinedDirections((second ? series_.y2 : series_.y1).first(count()));
    }
    return joined[column];
}

DateTime timeAt(const PlotArea& plot, double x) {
    return plot.hasTimeScale() ? plot.xLow + (x - plot.left) / plot.dotsPerDay : plot.xLow;
}

std::string_view compassPoint(double degrees) {
    constexpr std::array<std::string_view, 16> POINTS = {"N", "NNO", "NO", "ONO", "O", "OSO", "SO", "SSO",
                                                         "S", "SSW", "SW", "WSW", "W", "WNW", "NW", "NNW"};
    constexpr double POINT = FULL_CIRCLE / static_cast<double>(POINTS.size());
    if (!std::isfinite(degrees)) {
        return {};
    }
    const double turn = std::fmod(degrees, FULL_CIRCLE);
    const double from0 = turn < 0 ? turn + FULL_CIRCLE : turn;
    return POINTS[static_cast<std::size_t>(std::floor(from0 / POINT + 0.5)) % POINTS.size()];
}

double valueDifference(double a, double b, bool directions) {
    double difference = b - a;
    if (directions && std::isfinite(difference)) {
        difference = std::fmod(difference, FULL_CIRCLE);
        difference -= difference > HALF_CIRCLE ? FULL_CIRCLE : 0;
        difference += difference < -HALF_CIRCLE ? FULL_CIRCLE : 0;
    }
    return difference;
}

} // namespace kelvrum
