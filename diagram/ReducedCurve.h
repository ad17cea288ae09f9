// SPDX-License-Identifier: GPL-3.0-or-later
// A long series reduced to what the dots of a surface can show. The picture is the same, dot for dot, as with
// every segment and every bar drawn separately.
#pragma once

#include "diagram/Curve.h"
#include "diagram/PlotArea.h"
#include "drawing/Surface.h"
#include "util/DateTime.h"

#include <cstddef>
#include <span>
#include <vector>

namespace kelvrum {

/// A series and where it is to be drawn. `times` and `values` are equally long.
struct PlottedSeries {
    std::span<const DateTime> times;
    std::span<const double> values;
    const PlotArea& plot;
    ValueScale scale;
    bool ascending = false;   // the times never decrease: there is only one pass then
    bool detectPasses = true; // off: the whole series is one pass
    int loneDot = 1;          // side of the square that a value without neighbours is drawn as, in dots
};

/// Draws the curve of a series, clipped to the plot; with `directions` joined the short way round the circle.
/// `colours` has the pen of each pass. Returns the number of passes found.
int drawCurve(Surface& surface, const PlottedSeries& series, bool directions,
              std::span<const Colour> colours);

/// Draws the bars of a precipitation series, each as wide as `interval` (days). `colours` has the fill of
/// each pass. Returns the number of passes found.
int drawBars(Surface& surface, const PlottedSeries& series, double interval, std::span<const Colour> colours);

/// Joined values of a curve that fall into one column of dots.
struct Stretch {
    int x = 0;
    int first = 0; // y of the first and of the last value
    int last = 0;
    int low = 0; // smallest and greatest y
    int high = 0;
    double entryX = 0; // where the first and the last value are, before they are cut
    double exitX = 0;
    bool joined = false; // a line leads to it from the stretch before
    bool marked = false; // it is visible on its own; else it is only the end of a line
    bool lone = false;   // it is one value without neighbours
};

/// Spans of y within one column of dots.
class ColumnSpans {
  public:
    struct Span {
        int low;
        int high;
    };

    void add(Span span);
    /// The spans with overlapping and touching ones as one, ascending.
    std::span<const Span> merged();
    void clear() { spans_.clear(); }

  private:
    void merge();

    std::vector<Span> spans_;
    std::size_t mergeAt_ = 4096; // number of spans at which they are merged
};

/// A sink for walkCurve and for stretches: in each column of dots the vertical parts are merged into spans,
/// the squares of lone values into boxes, and between columns one connector for each joined pair remains.
class ReducedCurve {
  public:
    /// Both must outlive the curve. `colours` has the pen of each pass; `loneDot` is the side of the square
    /// that a value without neighbours is drawn as.
    ReducedCurve(Surface& surface, std::span<const Colour> colours, const Box& clip, int loneDot);

    void pass(int number);
    void run(std::span<const Dot> dots);
    void stretch(const Stretch& stretch);
    /// Draws what is still pending.
    void finish();

  private:
    void enterColumn(int x);
    void connect(const CurvePoint& from, const CurvePoint& to);
    void flushColumn();

    Surface& surface_;
    std::span<const Colour> colours_;
    Colour colour_ = BLACK;
    Box reach_; // what can be seen, with room for the width of the pen
    int loneDot_;
    bool hasColumn_ = false;
    int column_ = 0;
    CurvePoint end_;    // of the stretch before
    ColumnSpans lines_; // vertical parts of the column
    ColumnSpans lone_;  // its squares
    std::vector<Segment> segments_;
    std::vector<Box> boxes_;
};

/// A sink for walkBars: draws the outline that all bars fill together, for each column of dots the highest
/// bar, neighbours of equal height in one box.
class ReducedBars {
  public:
    /// Both must outlive the bars. `colours` has the fill of each pass.
    ReducedBars(Surface& surface, std::span<const Colour> colours, const Box& clip);

    void pass(int number);
    void bar(const Box& box);
    /// Draws what is still pending.
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
