#include "diagram/Curve.h"

#include <algorithm>
#include <limits>

namespace kelvrum {

namespace {

constexpr int PEN_ROOM = 64;             // dots around the clip within which a wide pen could still show
constexpr std::size_t MANY_SPANS = 4096; // in one column: time to merge them

} // namespace

double sampleInterval(std::span<const double> times) {
    double least = std::numeric_limits<double>::infinity();
    for (std::size_t i = 1; i < times.size(); ++i) {
        const double distance = times[i] - times[i - 1];
        if (distance > 0 && distance < least) {
            least = distance;
        }
    }
    return std::isfinite(least) ? least : 0;
}

ReducedCurve::ReducedCurve(Surface& surface, std::span<const Colour> colours, const Box& clip)
    : surface_(surface)
    , colours_(colours)
    , mergeAt_(MANY_SPANS)
    , reach_{clip.left - PEN_ROOM, clip.top - PEN_ROOM, clip.right + PEN_ROOM, clip.bottom + PEN_ROOM} {
    surface_.setPen(colours_[0]);
}

void ReducedCurve::pass(int number) {
    finish();
    surface_.setPen(colours_[static_cast<std::size_t>(number)]);
}

void ReducedCurve::run(std::span<const Dot> dots) {
    Span span{dots[0].y, dots[0].y};
    std::size_t inColumn = 1;
    for (std::size_t i = 1; i < dots.size(); ++i) {
        const Dot dot = dots[i];
        if (dot.x == dots[i - 1].x) {
            span.low = std::min(span.low, dot.y);
            span.high = std::max(span.high, dot.y);
            ++inColumn;
            continue;
        }
        if (inColumn > 1) {
            mark(dots[i - 1].x, span);
        }
        connect(dots[i - 1], dot);
        span = {dot.y, dot.y};
        inColumn = 1;
    }
    if (inColumn > 1 || dots.size() == 1) { // else the dot is the end of a connector
        mark(dots.back().x, span);
    }
}

void ReducedCurve::connect(Dot from, Dot to) {
    const bool outside = std::max(from.x, to.x) < reach_.left || std::min(from.x, to.x) > reach_.right ||
                         std::max(from.y, to.y) < reach_.top || std::min(from.y, to.y) > reach_.bottom;
    if (!outside) {
        segments_.push_back({from, to});
    }
}

void ReducedCurve::mark(int x, Span span) {
    if (hasColumn_ && x != column_) {
        flushColumn();
    }
    hasColumn_ = true;
    column_ = x;
    if (spans_.size() >= mergeAt_) {
        mergeSpans();
        mergeAt_ = std::max(MANY_SPANS, 2 * spans_.size());
    }
    spans_.push_back(span);
}

/// Overlapping and touching spans of the column become one each.
void ReducedCurve::mergeSpans() {
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

void ReducedCurve::flushColumn() {
    if (!hasColumn_) {
        return;
    }
    if (spans_.size() > 1) {
        mergeSpans();
    }
    if (column_ >= reach_.left && column_ <= reach_.right) {
        for (const Span& span : spans_) {
            const int low = std::max(span.low, reach_.top);
            const int high = std::min(span.high, reach_.bottom);
            if (low <= high) {
                segments_.push_back({{column_, low}, {column_, high}});
            }
        }
    }
    spans_.clear();
    hasColumn_ = false;
}

void ReducedCurve::finish() {
    flushColumn();
    if (!segments_.empty()) {
        surface_.lines(segments_);
        segments_.clear();
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
