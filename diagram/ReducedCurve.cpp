// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/ReducedCurve.h"

#include "diagram/LineScale.h"

#include <algorithm>
#include <cmath>
#include <limits>

namespace kelvrum {

namespace {

constexpr int PEN_ROOM = 64; // dots around the clip within which a wide pen could still show

/// Whether columns of dots are runs of columns of the table, and greater values have no greater (or no
/// lesser) y: then few of them need to be mapped.
bool isMonotonous(const PlottedSeries& series) {
    const PlotArea& plot = series.plot;
    return series.ascending && std::isfinite(plot.left) && std::isfinite(plot.xLow) &&
           std::isfinite(plot.dotsPerDay) && std::isfinite(series.scale.low) &&
           std::isfinite(series.scale.dotsPerUnit);
}

/// The first index after `from` that does not fall onto the same dots; `same` holds for a run from there on.
template<typename Same>
std::size_t endOfRun(std::size_t from, std::size_t count, Same same) {
    std::size_t low = from; // the same
    std::size_t step = 1;
    while (step < count - low && same(low + step)) {
        low += step;
        step *= 2;
    }
    std::size_t high = std::min(low + step, count); // not the same
    while (high - low > 1) {
        const std::size_t middle = low + (high - low) / 2;
        (same(middle) ? low : high) = middle;
    }
    return high;
}

/// Joined values within one column of dots.
struct Joined {
    double first;
    double last = first;
    double low = first;
    double high = first;
    std::size_t count = 1;

    void add(double value) {
        last = value;
        low = std::min(low, value);
        high = std::max(high, value);
        ++count;
    }
    /// Two at a time, since each comparison waits for the one before.
    void add(std::span<const double> values) {
        double otherLow = low;
        double otherHigh = high;
        for (std::size_t i = 0; i + 1 < values.size(); i += 2) {
            low = std::min(low, values[i]);
            high = std::max(high, values[i]);
            otherLow = std::min(otherLow, values[i + 1]);
            otherHigh = std::max(otherHigh, values[i + 1]);
        }
        low = std::min(low, otherLow);
        high = std::max(high, otherHigh);
        if (!values.empty()) {
            count += values.size() - 1;
            add(values.back());
        }
    }
};

/// Walks the curve of a series of ascending times, one column of dots after the other.
class ColumnWalk {
  public:
    ColumnWalk(const PlottedSeries& series, ReducedCurve& curve)
        : series_(series)
        , curve_(curve) {}

    void lines() {
        const std::span<const double> values = series_.values;
        for (std::size_t i = nextValue(0); i < values.size(); i = nextValue(i)) {
            enterColumn(i);
            entry_ = i;
            Joined joined{values[i]};
            const std::size_t next = i + 1;
            for (i = next; i < columnEnd_ && isValidPoint(values[i]);) {
                ++i;
            }
            joined.add(values.subspan(next, i - next));
            end(joined, i);
        }
    }

    void directions() {
        const std::span<const double> values = series_.values;
        double previous = 0; // the value to join to
        for (std::size_t i = nextValue(0); i < values.size(); i = nextValue(i)) {
            enterColumn(i);
            entry_ = i;
            Joined joined{joinedBefore_ ? joinedDirection(previous, values[i]) : keptDirection(values[i])};
            previous = joinedBefore_ ? turned(joined) : joined.last;
            for (++i; i < columnEnd_ && isValidPoint(values[i]); ++i) {
                joined.add(joinedDirection(previous, values[i]));
                previous = turned(joined);
            }
            end(joined, i);
        }
    }

  private:
    /// The next index from i on that has a value; a gap before it ends the run of joined values.
    std::size_t nextValue(std::size_t i) {
        for (; i < series_.values.size() && !isValidPoint(series_.values[i]); ++i) {
            joinedBefore_ = false;
        }
        return i;
    }

    void enterColumn(std::size_t i) {
        if (i >= columnEnd_) {
            const auto xOf = [this](std::size_t k) { return series_.plot.x(series_.times[k]); };
            x_ = xOf(i);
            columnEnd_ = endOfRun(i, series_.times.size(), [&](std::size_t k) { return xOf(k) == x_; });
        }
    }

    /// The value to join the next direction to. A full circle away from the last one a new stretch begins
    /// there.
    double turned(Joined& joined) {
        const double kept = keptDirection(joined.last);
        if (kept != joined.last) {
            add(joined, entry_, joined.count > 1, false);
            joined = {kept};
            joinedBefore_ = false;
            drawnBefore_ = true;
        }
        return kept;
    }

    /// The stretch ends before index i. A value without neighbours is a dot.
    void end(const Joined& joined, std::size_t i) {
        const bool goesOn = i < series_.values.size() && isValidPoint(series_.values[i]);
        const bool lone = joined.count == 1 && !joinedBefore_ && !goesOn && !drawnBefore_;
        add(joined, i - 1, joined.count > 1, lone);
        joinedBefore_ = goesOn;
        drawnBefore_ = false;
    }

    void add(const Joined& joined, std::size_t exit, bool marked, bool lone) {
        const ValueScale& scale = series_.scale;
        const int low = scale.y(joined.low);
        const int high = scale.y(joined.high);
        curve_.stretch({x_, scale.y(joined.first), scale.y(joined.last), std::min(low, high),
                        std::max(low, high), exactX(entry_), exactX(exit), joinedBefore_, marked, lone});
    }

    /// Only in the outermost columns it matters where exactly a value is.
    [[nodiscard]] double exactX(std::size_t k) const {
        return x_ <= LOWEST_DOT || x_ >= HIGHEST_DOT ? series_.plot.exactX(series_.times[k]) : x_;
    }

    const PlottedSeries& series_;
    ReducedCurve& curve_;
    int x_ = 0;                 // of the column of dots
    std::size_t entry_ = 0;     // first index of the joined values
    std::size_t columnEnd_ = 0; // first index after it
    bool joinedBefore_ = false; // a line leads to the stretch
    bool drawnBefore_ = false;  // the stretch begins with a dot that was drawn already, a full circle away
};

/// Walks the bars of a series of ascending times: those that fall onto the same dots as one.
void mergeBars(const PlottedSeries& series, double interval, ReducedBars& bars) {
    const int base = nearestDot(series.plot.bottom);
    const auto leftOf = [&series](std::size_t k) { return series.plot.x(series.times[k]); };
    const auto rightOf = [&](std::size_t k) { return barRight(series.times, k, interval, series.plot); };
    for (std::size_t i = 0; i < series.values.size();) {
        const int left = leftOf(i);
        const int right = rightOf(i);
        const std::size_t end = endOfRun(
            i, series.values.size(), [&](std::size_t k) { return leftOf(k) == left && rightOf(k) == right; });
        const SeriesScan scan = scanSeries(series.values.subspan(i, end - i));
        if (scan.count > 0) {
            const int top =
                std::min(barTop(scan.minimum, series.scale, base), barTop(scan.maximum, series.scale, base));
            if (top < base) {
                bars.bar({left, top, std::max(right, left + 1), base});
            }
        }
        i = end;
    }
}

} // namespace

int drawCurve(Surface& surface, const PlottedSeries& series, bool directions,
              std::span<const Colour> colours) {
    ReducedCurve curve(surface, colours, series.plot.clip(), series.loneDot);
    int passes = 1;
    if (!isMonotonous(series)) {
        passes = walkCurve(series.times, series.values, directions, series.detectPasses, series.plot,
                           series.scale, curve);
    } else if (directions) {
        ColumnWalk(series, curve).directions();
    } else {
        ColumnWalk(series, curve).lines();
    }
    curve.finish();
    return passes;
}

int drawBars(Surface& surface, const PlottedSeries& series, double interval,
             std::span<const Colour> colours) {
    ReducedBars bars(surface, colours, series.plot.clip());
    int passes = 1;
    if (isMonotonous(series)) {
        mergeBars(series, interval, bars);
    } else {
        passes = walkBars(series.times, series.values, interval, series.detectPasses, series.plot,
                          series.scale, bars);
    }
    bars.finish();
    return passes;
}

void ColumnSpans::add(Span span) {
    if (spans_.size() >= mergeAt_) {
        merge();
        mergeAt_ = std::max(mergeAt_, 2 * spans_.size());
    }
    spans_.push_back(span);
}

void ColumnSpans::merge() {
    std::sort(spans_.begin(), spans_.end(), [](const Span& a, const Span& b) { return a.low < b.low; });
    std::size_t kept = 0;
    for (const Span& span : spans_) {
        if (kept > 0 && span.low <= spans_[kept - 1].high + 1) {
            spans_[kept - 1].high = std::max(spans_[kept - 1].high, span.high);
        } else {
            spans_[kept++] = span;
        }
    }
    spans_.resize(kept);
}

std::span<const ColumnSpans::Span> ColumnSpans::merged() {
    if (spans_.size() > 1) {
        merge();
    }
    return spans_;
}

ReducedCurve::ReducedCurve(Surface& surface, std::span<const Colour> colours, const Box& clip, int loneDot)
    : surface_(surface)
    , colours_(colours)
    , colour_(colours[0])
    , reach_{clip.left - PEN_ROOM, clip.top - PEN_ROOM, clip.right + PEN_ROOM, clip.bottom + PEN_ROOM}
    , loneDot_(loneDot) {
    surface_.setPen(colour_);
}

void ReducedCurve::pass(int number) {
    finish();
    colour_ = colours_[static_cast<std::size_t>(number)];
    surface_.setPen(colour_);
}

void ReducedCurve::run(std::span<const Dot> dots) {
    for (std::size_t i = 0; i < dots.size();) {
        const double x = dots[i].x;
        Stretch part{dots[i].x, dots[i].y, dots[i].y, dots[i].y, dots[i].y,
                     x,         x,         i > 0,     false,     dots.size() == 1};
        for (++i; i < dots.size() && dots[i].x == part.x; ++i) {
            part.last = dots[i].y;
            part.low = std::min(part.low, part.last);
            part.high = std::max(part.high, part.last);
            part.marked = true;
        }
        stretch(part);
    }
}

void ReducedCurve::stretch(const Stretch& stretch) {
    if (stretch.joined) {
        connect(end_, {stretch.entryX, stretch.first});
    }
    if (stretch.marked) {
        enterColumn(stretch.x);
        lines_.add({stretch.low, stretch.high});
    } else if (stretch.lone) {
        enterColumn(stretch.x);
        const Box box = loneBox({stretch.x, stretch.first}, loneDot_);
        lone_.add({box.top, box.bottom - 1});
    }
    end_ = {stretch.exitX, stretch.last};
}

void ReducedCurve::connect(const CurvePoint& from, const CurvePoint& to) {
    const auto line =
        from.isFar() || to.isFar() ? reachablePart(from, to) : std::optional(Segment{from.dot(), to.dot()});
    if (line && std::max(line->from.x, line->to.x) >= reach_.left &&
        std::min(line->from.x, line->to.x) <= reach_.right &&
        std::max(line->from.y, line->to.y) >= reach_.top &&
        std::min(line->from.y, line->to.y) <= reach_.bottom) {
        segments_.push_back(*line);
    }
}

void ReducedCurve::enterColumn(int x) {
    if (hasColumn_ && x != column_) {
        flushColumn();
    }
    hasColumn_ = true;
    column_ = x;
}

void ReducedCurve::flushColumn() {
    if (!hasColumn_) {
        return;
    }
    if (column_ >= reach_.left && column_ <= reach_.right) {
        const auto within = [this](ColumnSpans::Span span) {
            return ColumnSpans::Span{std::max(span.low, reach_.top), std::min(span.high, reach_.bottom)};
        };
        for (const auto& span : lines_.merged()) {
            const auto [low, high] = within(span);
            if (low <= high) {
                segments_.push_back({{column_, low}, {column_, high}});
            }
        }
        for (const auto& span : lone_.merged()) {
            const auto [low, high] = within(span);
            if (low <= high) {
                const Box box = loneBox({column_, low}, loneDot_);
                boxes_.push_back({box.left, low, box.right, high + 1});
            }
        }
    }
    lines_.clear();
    lone_.clear();
    hasColumn_ = false;
}

void ReducedCurve::finish() {
    flushColumn();
    if (!segments_.empty()) {
        surface_.lines(segments_);
        segments_.clear();
    }
    if (!boxes_.empty()) {
        surface_.fill(boxes_, colour_);
        boxes_.clear();
    }
}

ReducedBars::ReducedBars(Surface& surface, std::span<const Colour> colours, const Box& clip)
    : surface_(surface)
    , colours_(colours)
    , colour_(colours[0])
    , clip_(clip)
    , tops_(static_cast<std::size_t>(std::max(clip.right - clip.left, 0)), std::numeric_limits<int>::max()) {}

void ReducedBars::pass(int number) {
    finish();
    colour_ = colours_[static_cast<std::size_t>(number)];
}

void ReducedBars::bar(const Box& box) {
    base_ = box.bottom;
    const int top = std::max(box.top, clip_.top);
    const int right = std::min(box.right, clip_.right);
    for (int x = std::max(box.left, clip_.left); x < right; ++x) {
        int& highest = tops_[static_cast<std::size_t>(x - clip_.left)];
        highest = std::min(highest, top);
    }
}

void ReducedBars::finish() {
    std::vector<Box> boxes;
    for (std::size_t i = 0; i < tops_.size(); ++i) {
        const int x = clip_.left + static_cast<int>(i);
        if (tops_[i] == std::numeric_limits<int>::max()) {
            continue;
        }
        if (!boxes.empty() && boxes.back().right == x && boxes.back().top == tops_[i]) {
            ++boxes.back().right;
        } else {
            boxes.push_back({x, tops_[i], x + 1, base_});
        }
    }
    if (!boxes.empty()) {
        surface_.fill(boxes, colour_);
    }
    std::fill(tops_.begin(), tops_.end(), std::numeric_limits<int>::max());
}

} // namespace kelvrum
