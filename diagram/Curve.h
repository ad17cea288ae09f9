// The curve of a series: how its columns are joined, and how a long series is reduced to what the dots of a
// surface can show.
#pragma once

#include "diagram/DiagramState.h"
#include "diagram/PlotArea.h"
#include "diagram/Surface.h"

#include <cmath>
#include <cstdint>
#include <span>
#include <vector>

namespace kelvrum {

/// At most so many passes (means, minima, maxima) of a series are drawn.
inline constexpr int MAX_PASSES = 3;

/// Finds the columns at which a new pass over the time range begins: those whose offset from XLow is not
/// negative and strictly smaller than that of the column before. Equal times do not start a pass.
class PassDetector {
  public:
    explicit PassDetector(DateTime xLow)
        : xLow_(xLow) {}
    /// To be called for every column in turn, gaps included; true when it starts a pass.
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

/// What becomes the value before of the next point: kept within 0 to 540. Degrees.
inline double keptDirection(double v) { return v >= 540 ? v - 360 : v < 0 ? v + 360 : v; }

/// Walks the columns of a series and hands what is to be drawn to a sink: `pass(n)` when pass n begins,
/// `segment(a, b)` for each joined pair, `point(p)` for a valid value with no valid neighbour. Returns the
/// number of passes found (a fourth ends the walk and is not counted). With `detectPasses` off the whole
/// series is one pass.
template<typename Sink>
int walkCurve(std::span<const double> times, std::span<const double> values, bool directions,
              bool detectPasses, const PlotArea& plot, const ValueScale& scale, Sink& sink) {
    PassDetector passes(plot.xLow);
    int pass = 0;
    bool joined = false;  // the last point has a line to it
    bool started = false; // there is a last point to join to
    double previous = 0;  // its value, for directions
    Dot last;
    const auto breakLine = [&] {
        if (started && !joined) {
            sink.point(last);
        }
        started = false;
        joined = false;
    };
    for (std::size_t i = 0; i < times.size(); ++i) {
        if (detectPasses && passes.starts(times[i])) {
            breakLine();
            if (++pass == MAX_PASSES) {
                break;
            }
            sink.pass(pass);
        }
        const double v = values[i];
        if (!isValidPoint(v)) {
            breakLine();
            continue;
        }
        const int x = plot.x(times[i]);
        if (directions && started) {
            const double target = joinedDirection(previous, v);
            sink.segment(last, Dot{x, scale.y(target)});
            joined = true;
            previous = keptDirection(target);
            last = {x, scale.y(previous)};
            continue;
        }
        const Dot dot{x, scale.y(v)};
        if (started) {
            sink.segment(last, dot);
            joined = true;
        }
        started = true;
        previous = v;
        last = dot;
    }
    breakLine();
    return pass < MAX_PASSES ? pass + 1 : MAX_PASSES;
}

/// Walks the columns of a precipitation series: `pass(n)` as above and `bar(box)` for each valid value other
/// than 0, from the base line up to the value, as wide as `interval` (days), at least one dot.
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
        const int right = std::max(plot.x(times[i] + interval), left + 1);
        const int top = scale.y(v);
        if (top < base) {
            sink.bar(Box{left, top, right, base});
        }
    }
    return pass < MAX_PASSES ? pass + 1 : MAX_PASSES;
}

/// The interval of a series: the smallest positive distance of two columns in a row, in days; 0 when there is
/// none.
double sampleInterval(std::span<const double> times);

/// Draws a curve with as few lines as the dots of its surface can show: in each column of dots the vertical
/// parts are merged into spans, and between columns one connector for each joined pair remains. The picture
/// is the same, dot for dot, as with every segment drawn as a line of its own.
class ReducedCurve {
  public:
    /// Both must outlive the curve. `colours` has the pen of each pass.
    ReducedCurve(Surface& surface, std::span<const Colour> colours, const Box& clip);

    void pass(int number);
    void segment(Dot from, Dot to) {
        if (from.x == to.x) {
            mark(from.x, from.y, to.y);
        } else {
            connect(from, to);
        }
    }
    void point(Dot p) { mark(p.x, p.y, p.y); }
    /// Draws what is still to be drawn.
    void finish();

  private:
    struct Span {
        int low;
        int high;
    };

    void mark(int x, int y1, int y2) {
        const Span span = y1 < y2 ? Span{y1, y2} : Span{y2, y1};
        if (x == column_ && span.low <= current_.high + 1 && span.high + 1 >= current_.low) {
            current_.low = std::min(current_.low, span.low);
            current_.high = std::max(current_.high, span.high);
        } else {
            openSpan(x, span);
        }
    }
    void connect(Dot from, Dot to);
    void openSpan(int x, Span span);
    void flushColumn();
    void mergeSpans();

    Surface& surface_;
    std::span<const Colour> colours_;
    Box reach_; // what can be seen, with room for the width of the pen
    bool hasColumn_ = false;
    int column_ = 0;
    Span current_{1, 0};      // the span under way
    std::vector<Span> spans_; // further spans of the column
    std::vector<Segment> segments_;
};

/// Draws precipitation bars as the outline that all of them fill together: for each column of dots the
/// highest bar, neighbours of equal height in one box.
class ReducedBars {
  public:
    /// Both must outlive the bars. `colours` has the fill of each pass.
    ReducedBars(Surface& surface, std::span<const Colour> colours, const Box& clip);

    void pass(int number);
    void bar(const Box& box);
    void finish();

  private:
    Surface& surface_;
    std::span<const Colour> colours_;
    Colour colour_ = BLACK;
    Box clip_;
    int base_ = 0;
    std::vector<int> tops_; // for each column of the clip
};

} // namespace kelvrum
