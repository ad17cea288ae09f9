// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/DataReader.h"

#include "config/ConfigForms.h"
#include "data/Averaging.h"
#include "data/DayPasses.h"
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

/// The request for the second channel of a request.
ReadRequest requestOfSecond(const ReadRequest& request) {
    ReadRequest second = request;
    second.channel = request.second;
    second.second = 0;
    return second;
}

/// The blocks of one of two channels that are read together. An error ends it like the file's end.
class PairedBlocks {
  public:
    PairedBlocks(const StationConfig& station, const ReadRequest& request, const FileOpener& open,
                 ReadBuffers& buffers)
        : mode_(station.ChannelTable.at(request.channel).Mode) {
        endQuietlyOnError([&] {
            blocks_.emplace(station, request, open, buffers);
            return ReadStatus::complete;
        });
    }

    [[nodiscard]] std::int32_t mode() const { return mode_; }
    [[nodiscard]] std::int64_t blocks() const { return blocks_ ? blocks_->blocks() : 0; }

    /// The next blocks; an empty run at the end and from an error on.
    BlockRun next() {
        BlockRun run;
        endQuietlyOnError([&] {
            if (blocks_ && !ended_) {
                ended_ = true; // unless the read succeeds
                run = blocks_->next();
                ended_ = run.empty();
            }
            return ReadStatus::complete;
        });
        return run;
    }

  private:
    std::int32_t mode_;
    std::optional<BlockReader> blocks_;
    bool ended_ = false;
};

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
                                const ShowValues& showValues, const ReadingStep& step) {
    return endQuietlyOnError([&] {
        BlockReader blocks(station, request, open_, buffers_);
        const std::int32_t mode = station.ChannelTable.at(request.channel).Mode;
        constexpr std::size_t MANY = 512;
        std::array<DateTime, MANY> starts;
        return averagePieces(blocks, mode, step, [&](std::int64_t first, std::span<const double> values) {
            for (std::size_t done = 0; done < values.size(); done += MANY) {
                const std::size_t count = std::min(MANY, values.size() - done);
                intervalStarts(request.range.from, first + static_cast<std::int64_t>(done), request.interval,
                               std::span(starts).first(count));
                showValues(std::span(starts).first(count), values.subspan(done, count));
            }
        });
    });
}

ReadStatus DataReader::readSeries(const StationConfig& station, const ReadRequest& request,
                                  const DiagramSettings& settings, DiagramFeed& diagram,
                                  const ReadingStep& step) {
    return hasDayFiles(station) ? readDayDiagram(station, request, settings, diagram, step)
                                : readDiagram(station, request, settings, diagram, step);
}

ReadStatus DataReader::readDiagram(const StationConfig& station, const ReadRequest& request,
                                   const DiagramSettings& settings, DiagramFeed& diagram,
                                   const ReadingStep& step) {
    diagram.startSeries(textsOf(station, request.channel, settings));
    return endQuietlyOnError([&] {
        if (request.second != 0) {
            const auto columns = fillPair(station, request, step);
            if (!columns) {
                return ReadStatus::givenUp;
            }
            diagram.showSeries(*columns, days(request.interval));
            return ReadStatus::complete;
        }
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

/// Both bring pieces of as many blocks each, from the first block on, until one of them ends.
std::optional<std::size_t> DataReader::fillPair(const StationConfig& station, const ReadRequest& request,
                                                const ReadingStep& step) {
    PairedBlocks first(station, request, open_, buffers_);
    PairedBlocks second(station, requestOfSecond(request), open_, secondBuffers_);
    const std::int64_t expected = std::min(std::max(first.blocks(), second.blocks()), MINUTES_OF_A_YEAR);
    SeriesFill fill(seriesTable(), static_cast<std::size_t>(expected));
    std::vector<double> rest; // of a piece in which one channel has fewer blocks
    for (;;) {
        const BlockRun run = first.next();
        const BlockRun secondRun = second.next();
        const std::size_t count = std::max(run.blocks, secondRun.blocks);
        if (count == 0) {
            return fill.finish();
        }
        if (!runStep(step)) {
            return std::nullopt;
        }
        const auto values = averagesOf(run, first.mode(), averages_);
        const auto seconds = averagesOf(secondRun, second.mode(), secondAverages_);
        const std::int64_t start = run.empty() ? secondRun.first : run.first;
        const std::size_t both = std::min(values.size(), seconds.size());
        fill.add(request.range.from, start, request.interval, values.first(both), seconds.first(both));
        rest.assign(count - both, INVALID_VALUE);
        const std::span<const double> missing = rest;
        fill.add(request.range.from, start + static_cast<std::int64_t>(both), request.interval,
                 values.size() > both ? values.subspan(both) : missing,
                 seconds.size() > both ? seconds.subspan(both) : missing);
    }
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

std::optional<std::vector<DayInterval>> DataReader::readDaySeconds(const StationConfig& station,
                                                                   const ReadRequest& request,
                                                                   const ReadingStep& step) const {
    std::optional<std::vector<DayInterval>> intervals = std::vector<DayInterval>();
    if (request.second != 0) {
        endQuietlyOnError([&] {
            intervals = readDayIntervals(station, requestOfSecond(request), open_, step);
            return ReadStatus::complete;
        });
    }
    return intervals;
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
        const auto seconds = readDaySeconds(station, request, step);
        if (!seconds) {
            return ReadStatus::givenUp;
        }
        const std::size_t columns = fillPasses(*intervals, *seconds, request, station.WideRecords);
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
