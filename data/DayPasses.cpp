// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DayPasses.h"

#include "data/SeriesFill.h"
#include "diagram/SeriesTable.h"
#include "util/DateTime.h"
#include "util/Validity.h"

#include <array>
#include <cstdint>
#include <span>

namespace kelvrum {

namespace {

/// Collects the values of consecutive intervals, so that they are added at once.
class DayRun {
  public:
    /// `both` adds values of both series.
    DayRun(SeriesFill& fill, const ReadRequest& request, bool both)
        : fill_(fill)
        , request_(request)
        , both_(both) {}

    void add(std::int64_t index, double value, double second) {
        if (count_ == values_.size() || index != first_ + static_cast<std::int64_t>(count_)) {
            end();
            first_ = index;
        }
        values_[count_] = value;
        seconds_[count_++] = second;
    }

    void end() {
        const auto values = std::span(values_).first(count_);
        if (both_) {
            fill_.add(request_.range.from, first_, request_.interval, values,
                      std::span(seconds_).first(count_));
        } else {
            fill_.add(request_.range.from, first_, request_.interval, values);
        }
        count_ = 0;
    }

  private:
    static constexpr std::size_t MANY = 512;

    SeriesFill& fill_;
    const ReadRequest& request_;
    bool both_;
    std::array<double, MANY> values_{};
    std::array<double, MANY> seconds_{};
    std::int64_t first_ = 0;
    std::size_t count_ = 0;
};

} // namespace

std::size_t fillPasses(const std::vector<DayInterval>& intervals, const std::vector<DayInterval>& seconds,
                       const ReadRequest& request, bool wide) {
    constexpr std::array<double DayInterval::*, 3> PASSES = {&DayInterval::mean, &DayInterval::minimum,
                                                             &DayInterval::maximum};
    const std::size_t passes = wide ? PASSES.size() : 1;
    const std::int64_t minutes = minuteNumber(request.range.to) - minuteNumber(request.range.from);
    SeriesFill fill(seriesTable(), intervals.size() * passes + seconds.size());
    const auto addGap = [&](std::int64_t index) { // a run of intervals without records
        fill.add(intervalStart(request.range.from, index, request.interval), INVALID_VALUE);
    };
    for (std::size_t pass = 0; pass < passes; ++pass) {
        fill.startPass();
        DayRun run(fill, request, !seconds.empty());
        std::int64_t next = 0; // the interval that would follow without a gap
        const auto add = [&](std::int64_t index, double value, double second) {
            if (index > next) {
                run.end();
                addGap(next);
            }
            run.add(index, value, second);
            next = index + 1;
        };
        auto second = pass == 0 ? seconds.begin() : seconds.end();
        for (const DayInterval& interval : intervals) {
            for (; second != seconds.end() && second->index < interval.index; ++second) {
                add(second->index, INVALID_VALUE, second->mean);
            }
            const bool both = second != seconds.end() && second->index == interval.index;
            add(interval.index, interval.*PASSES[pass], both ? (second++)->mean : INVALID_VALUE);
        }
        for (; second != seconds.end(); ++second) {
            add(second->index, INVALID_VALUE, second->mean);
        }
        run.end();
        if (next * request.interval < minutes) {
            addGap(next);
        }
    }
    return fill.finish();
}

} // namespace kelvrum
