// SPDX-License-Identifier: GPL-3.0-or-later
// The curve of a series, column by column: how its values are joined, where passes begin, what the bars are.
#pragma once

#include "diagram/DiagramProperties.h"
#include "diagram/PlotArea.h"
#include "drawing/Surface.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <span>

namespace kelvrum {

/// Whether the times never decrease.
bool isAscending(std::span<const DateTime> times);

/// The greatest number of passes (means, minima, maxima) of a series that are drawn.
inline constexpr int MAX_PASSES = 3;

/// Finds the columns at which a new pass over the time range begins: those whose offset from XLow is not
/// negative and strictly smaller than that of the column before. Equal times do not start a pass.
class PassDetector {
  public:
    explicit PassDetector(DateTime xLow)
        : xLow_(xLow) {}
    /// Call it for every column in turn, gaps included; true when the column starts a pass.
    bool starts(DateTime t) {
        const double offset = t - xLow_;
        const bool begins = hasPrevious_ && offset >= 0 && offset < previous_;
        previous_ = offset;
        hasPrevious_ = true;
        return begins;
    }

  private:
    DateTime xLow_;
    double previous_ = 0;
    bool hasPrevious_ = false;
};

/// The end of the line to v in a direction diagram: v or its alternative a full circle away, whichever is
/// nearer to the value before (v when both are equally near). Degrees.
inline double joinedDirection(double previous, double v) {
    const double other = v < 360 ? v + 360 : v - 360;
    return std::fabs(other - previous) < std::fabs(v - previous) ? other : v;
}

/// The previous value for the next point: kept within 0 to 540. Degrees.
inline double keptDirection(double v) { return v >= 540 ? v - 360 : v < 0 ? v + 360 : v; }

/// The upper edge of the bar of a value above a base line: a value above the axis' low end shows at least a
/// dot.
inline int barTop(double v, const ValueScale& scale, int base) {
    const int top = scale.y(v);
    return top == base && v > scale.low && scale.dotsPerUnit > 0 ? base - 1 : top;
}

/// The right edge of the bar of column i. A bar whose end is the time of the next column but for rounding
/// ends at that column's dot, so that no slit shows between them.
inline int barRight(std::span<const double> times, std::size_t i, double interval, const PlotArea& plot) {
    constexpr double SAME_TIME = 1e-9; // days
    const DateTime end = times[i] + interval;
    const bool touches = i + 1 < times.size() && std::fabs(times[i + 1] - end) <= SAME_TIME;
    return plot.x(touches ? times[i + 1] : end);
}

/// A point of a curve: x as it is, y rounded and cut to the range of surface coordinates.
struct CurvePoint {
    double x = 0;
    int y = 0;

    /// No dot has this x. A NaN counts as the lowest dot.
    [[nodiscard]] bool isFar() const { return x < LOWEST_DOT || x > HIGHEST_DOT; }
    [[nodiscard]] Dot dot() const { return {nearestDot(x), y}; }
};

/// The part of a line that dots can have: an end far out to the left or right is replaced by the point where
/// the line crosses the edge of the coordinate range, which keeps its slope. Nothing when all of it is far
/// out.
std::optional<Segment> reachablePart(const CurvePoint& from, const CurvePoint& to);

/// The square drawn for a value without neighbours.
inline Box loneBox(Dot at, int side) {
    const int left = at.x - side / 2;
    const int top = at.y - side / 2;
    return {left, top, left + side, top + side};
}

/// Gathers the dots of a curve and passes them to a sink as runs of joined dots. A long run comes in pieces,
/// each of which begins with the last dot of the one before.
template<typename Sink>
class RunBuffer {
  public:
    explicit RunBuffer(Sink& sink)
        : sink_(sink) {}

    /// The run begins.
    void begin(const CurvePoint& point) {
        add(point.dot());
        last_ = point;
    }
    /// The run continues to a point.
    void join(const CurvePoint& point) {
        if (last_.isFar() || point.isFar()) {
            joinFar(point);
        } else {
            add(point.dot());
        }
        last_ = point;
    }
    /// The run ends. A dot of its own, with no line to it, is a run of one.
    void end() {
        if (count_ > 1 || (count_ == 1 && !linked_)) {
            sink_.run(std::span<const Dot>(dots_).first(count_));
        }
        count_ = 0;
        linked_ = false;
    }
    /// The run continues from another point, which has already been drawn or is not visible on its own.
    void restart(const CurvePoint& point) {
        link(point.dot());
        last_ = point;
    }

  private:
    void add(Dot dot) {
        if (count_ == dots_.size()) {
            sink_.run(std::span<const Dot>(dots_));
            link(dots_.back());
        }
        dots_[count_++] = dot;
    }
    void link(Dot dot) {
        count_ = 1;
        linked_ = true;
        dots_[0] = dot;
    }
    void joinFar(const CurvePoint& point) {
        const auto part = reachablePart(last_, point);
        if (last_.isFar()) {
            link(part ? part->from : point.dot());
        }
        if (part) {
            add(part->to);
        }
        if (point.isFar()) {
            end();
            link(point.dot());
        }
    }

    Sink& sink_;
    std::array<Dot, 512> dots_;
    CurvePoint last_;
    std::size_t count_ = 0;
    bool linked_ = false; // the first dot stands for what was drawn before
};

/// Walks the columns of a series and passes what is to be drawn to a sink: `pass(n)` when pass n begins, and
/// `run(dots)` for dots each of which is joined to the one before; a run of one is a valid value with no
/// valid neighbour. Returns the number of passes found (a fourth ends the walk and is not counted). With
/// `detectPasses` off the whole series is one pass.
template<typename Sink>
int walkCurve(std::span<const double> times, std::span<const double> values, bool directions,
              bool detectPasses, PlotArea plot, ValueScale scale, Sink& sink) {
    PassDetector passes(plot.xLow);
    RunBuffer<Sink> run(sink);
    int pass = 0;
    bool started = false; // there is a value to join to
    double previous = 0;  // that value, for directions
    for (std::size_t i = 0; i < times.size(); ++i) {
        if (detectPasses && passes.starts(times[i])) {
            run.end();
            started = false;
            if (++pass == MAX_PASSES) {
                return MAX_PASSES;
            }
            sink.pass(pass);
        }
        const double v = values[i];
        if (!isValidPoint(v)) {
            run.end();
            started = false;
            continue;
        }
        const double x = plot.exactX(times[i]);
        if (directions && started) {
            const double target = joinedDirection(previous, v);
            run.join({x, scale.y(target)});
            previous = keptDirection(target);
            if (previous != target) { // the next line starts a full circle away
                run.end();
                run.restart({x, scale.y(previous)});
            }
            continue;
        }
        previous = directions ? keptDirection(v) : v;
        const CurvePoint point{x, scale.y(previous)};
        if (started) {
            run.join(point);
        } else {
            run.begin(point);
        }
        started = true;
    }
    run.end();
    return pass + 1;
}

/// Walks the columns of a precipitation series: `pass(n)` as above and `bar(box)` for each valid value other
/// than 0, from the base line up to the value, as wide as `interval` (days), at least one dot wide and high.
template<typename Sink>
int walkBars(std::span<const double> times, std::span<const double> values, double interval,
             bool detectPasses, const PlotArea& plot, const ValueScale& scale, Sink& sink) {
    PassDetector passes(plot.xLow);
    int pass = 0;
    const int base = nearestDot(plot.bottom);
    for (std::size_t i = 0; i < times.size(); ++i) {
        if (detectPasses && passes.starts(times[i])) {
            if (++pass == MAX_PASSES) {
                break;
            }
            sink.pass(pass);
        }
        const double v = values[i];
        if (!isValidPoint(v) || v == 0) {
            continue;
        }
        const int left = plot.x(times[i]);
        const int right = std::max(barRight(times, i, interval, plot), left + 1);
        const int top = barTop(v, scale, base);
        if (top < base) {
            sink.bar(Box{left, top, right, base});
        }
    }
    return pass < MAX_PASSES ? pass + 1 : MAX_PASSES;
}

/// The interval of a series: the smallest positive distance of two columns in a row, in days; 0 when there is
/// none.
double sampleInterval(std::span<const double> times);

} // namespace kelvrum
