// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DataReader.h"

#include "config/ConfigForms.h"
#include "data/Averaging.h"
#include "data/DayFiles.h"
#include "data/SeriesFill.h"
#include "diagram/SeriesTable.h"
#include "util/Validity.h"

#include <algorithm>
#include <array>
#include <exception>
#include <vector>

namespace kelvrum {

namespace {

constexpr std::int64_t MINUTES_OF_A_YEAR = 366LL * MINUTES_PER_DAY; // reserved at once; grows when needed

/// Of an interval in minutes.
double days(std::int32_t minutes) { return static_cast<double>(minutes) / MINUTES_PER_DAY; }

/// Everything that a diagram shows beside its series.
DiagramTexts textsOf(const StationConfig& station, std::int32_t channel, const DiagramSettings& settings) {
    DiagramTexts texts{firstHeadline(station, channel), secondHeadline(station, settings.intervalCaption),
                       station.ChannelTable.at(channel).Unit, settings.auxiliaryLines};
    if (texts.auxiliaryLines) {
        texts.auxiliaryLines = {validate(settings.auxiliaryLines->first),
                                validate(settings.auxiliaryLines->second)};
    }
    return texts;
}

/// An error ends a reading without a message, as a missing file does; what was delivered before it stays.
template<typename Read>
ReadStatus endQuietlyOnError(Read read) {
    try {
        return read();
    } catch (const std::exception&) {
        return ReadStatus::complete;
    }
}

/// Collects the values of consecutive intervals, so that they are added at once.
class DayRun {
  public:
    DayRun(SeriesFill& fill, const ReadRequest& request)
        : fill_(fill)
        , request_(request) {}

    void add(std::int64_t index, double value) {
        if (count_ == values_.size() || index != first_ + static_cast<std::int64_t>(count_)) {
            end();
            first_ = index;
        }
        values_[count_++] = value;
    }

    void end() {
        fill_.add(request_.range.from, first_, request_.interval, std::span(values_).first(count_));
        count_ = 0;
    }

  private:
    SeriesFill& fill_;
    const ReadRequest& request_;
    std::array<double, 512> values_{};
    std::int64_t first_ = 0;
    std::size_t count_ = 0;
};

/// Lays the intervals of day files into the table, pass after pass, and returns the number of columns.
std::size_t fillPasses(const std::vector<DayInterval>& intervals, const ReadRequest& request, bool wide) {
    constexpr std::array<double DayInterval::*, 3> PASSES = {&DayInterval::mean, &DayInterval::minimum,
                                                             &DayInterval::maximum};
    const std::size_t passes = wide ? PASSES.size() : 1;
    const std::int64_t minutes = minuteNumber(request.range.to) - minuteNumber(request.range.from);
    SeriesFill fill(seriesTable(), intervals.size() * passes);
    const auto addGap = [&](std::int64_t index) { // a run of intervals without records
        fill.add(intervalStart(request.range.from, index, request.interval), INVALID_VALUE);
    };
    for (std::size_t pass = 0; pass < passes; ++pass) {
        fill.startPass();
        DayRun run(fill, request);
        std::int64_t next = 0; // the interval that would follow without a gap
        for (const DayInterval& interval : intervals) {
            if (interval.index > next) {
                run.end();
                addGap(next);
            }
            run.add(interval.index, interval.*PASSES[pass]);
            next = interval.index + 1;
        }
        run.end();
        if (next * request.interval < minutes) {
            addGap(next);
        }
    }
    return fill.finish();
}

} // namespace

std::string firstHeadline(const StationConfig& station, std::int32_t channel) {
    const ChannelInfo& info = station.ChannelTable.at(channel);
    return station.Title + " - " + info.Name + " [" + info.Unit + "]";
}

std::string secondHeadline(const StationConfig& station, const std::string& intervalCaption) {
    return station.Subtitle + " - " + intervalCaption + " Mittelwert";
}

std::span<const double> DataReader::averagesOf(const BlockRun& run, std::int32_t mode,
                                               std::vector<double>& memory) {
    if (memory.size() < run.blocks) {
        memory.resize(run.blocks);
    }
    averageBlocks(run, mode, memory, winds_);
    return std::span<const double>(memory).first(run.blocks);
}

template<typename Consume>
ReadStatus DataReader::averagePieces(BlockReader& blocks, std::int32_t mode, const ReadingStep& step,
                                     Consume consume) {
    return endQuietlyOnError([&] {
        for (BlockRun run = blocks.next(); !run.empty(); run = blocks.next()) {
            if (!runStep(step)) {
                return ReadStatus::givenUp; // before this reading delivers anything on top of a newer one
            }
            consume(run.first, averagesOf(run, mode, averages_));
        }
        return ReadStatus::complete;
    });
}

ReadStatus DataReader::readList(const StationConfig& station, const ReadRequest& request,
                                const std::function<void(std::span<const IntervalValue>)>& showValues,
                                const ReadingStep& step) {
    return endQuietlyOnError([&] {
        BlockReader blocks(station, request, open_, buffers_);
        const std::int32_t mode = station.ChannelTable.at(request.channel).Mode;
        constexpr std::size_t MANY = 512;
        std::array<DateTime, MANY> starts;
        std::array<IntervalValue, MANY> rows;
        return averagePieces(blocks, mode, step, [&](std::int64_t first, std::span<const double> values) {
            for (std::size_t done = 0; done < values.size(); done += MANY) {
                const std::size_t count = std::min(MANY, values.size() - done);
                intervalStarts(request.range.from, first + static_cast<std::int64_t>(done), request.interval,
                               std::span(starts).first(count));
                for (std::size_t i = 0; i < count; ++i) {
                    rows[i] = {starts[i], values[done + i]};
                }
                showValues(std::span(rows).first(count));
            }
        });
    });
}

ReadStatus DataReader::readSeries(const StationConfig& station, const ReadRequest& request,
                                  const DiagramSettings& settings, DiagramFeed& diagram,
                                  const ReadingStep& step) {
    return formOf(station).dataFiles == DataFiles::byDay
               ? readDayDiagram(station, request, settings, diagram, step)
               : readDiagram(station, request, settings, diagram, step);
}

ReadStatus DataReader::readDiagram(const StationConfig& station, const ReadRequest& request,
                                   const DiagramSettings& settings, DiagramFeed& diagram,
                                   const ReadingStep& step) {
    diagram.startSeries(textsOf(station, request.channel, settings));
    return endQuietlyOnError([&] {
        BlockReader blocks(station, request, open_, buffers_);
        SeriesFill fill(seriesTable(),
                        static_cast<std::size_t>(std::min(blocks.blocks(), MINUTES_OF_A_YEAR)));
        const std::int32_t mode = station.ChannelTable.at(request.channel).Mode;
        const ReadStatus status =
            averagePieces(blocks, mode, step, [&](std::int64_t first, std::span<const double> values) {
                fill.add(request.range.from, first, request.interval, values);
            });
        if (status == ReadStatus::complete) {
            diagram.showSeries(fill.finish(), days(request.interval));
        }
        return status;
    });
}

ReadStatus DataReader::readPolar(const StationConfig& station, const ReadRequest& request,
                                 const DiagramSettings& settings, DiagramFeed& diagram,
                                 const ReadingStep& step) {
    diagram.startSamples(textsOf(station, request.channel, settings));
    return endQuietlyOnError([&] {
        std::vector<PolarSample> samples;
        BlockReader blocks(station, request, open_, buffers_);
        std::vector<double> speeds;
        for (BlockRun run = blocks.next(); !run.empty(); run = blocks.next()) {
            if (!runStep(step)) {
                return ReadStatus::givenUp;
            }
            if (run.paired.empty()) {
                continue;
            }
            const std::span<const double> directions = averagesOf(run, MODE_WIND_DIRECTION, averages_);
            averagesOf({run.first, run.blocks, run.paired, {}}, MODE_MEAN, speeds);
            for (std::size_t i = 0; i < run.blocks; ++i) {
                if (directions[i] != INVALID_VALUE) {
                    samples.push_back({speeds[i], directions[i]});
                }
            }
        }
        diagram.addSamples(samples);
        return ReadStatus::complete;
    });
}

ReadStatus DataReader::readDayDiagram(const StationConfig& station, const ReadRequest& request,
                                      const DiagramSettings& settings, DiagramFeed& diagram,
                                      const ReadingStep& step) {
    diagram.startSeries(textsOf(station, request.channel, settings));
    return endQuietlyOnError([&] {
        const auto intervals = readDayIntervals(station, request, open_, step);
        if (!intervals) {
            return ReadStatus::givenUp;
        }
        const std::size_t columns = fillPasses(*intervals, request, station.WideRecords);
        diagram.showSeries(columns, days(request.interval));
        return ReadStatus::complete;
    });
}

std::optional<DayRows> DataReader::readDayList(const StationConfig& station, const TimeRange& range,
                                               const ReadingStep& step) {
    std::optional<DayRows> rows = DayRows{};
    endQuietlyOnError([&] {
        rows = readDayRows(station, range, open_, step);
        return ReadStatus::complete;
    });
    return rows;
}

} // namespace kelvrum
