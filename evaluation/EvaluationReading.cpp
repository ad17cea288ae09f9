// SPDX-License-Identifier: GPL-3.0-or-later
#include "evaluation/EvaluationReading.h"

#include "config/ConfigForms.h"
#include "data/Averaging.h"
#include "data/BlockReader.h"
#include "data/DayFiles.h"
#include "data/WindMean.h"

#include <algorithm>
#include <array>
#include <exception>
#include <vector>

namespace kelvrum {

namespace {

using Consume = std::function<void(std::span<const IntervalReading>)>;

constexpr std::size_t MANY = 512; // intervals passed on at once

/// Minutes of a block that count in its average; `paired` is empty without a paired channel.
std::int32_t presentMinutes(std::span<const double> block, std::span<const double> paired) {
    std::int32_t present = 0;
    if (paired.empty()) {
        for (const double v : block) {
            present += isPresent(v) ? 1 : 0;
        }
        return present;
    }
    for (std::size_t i = 0; i < block.size(); ++i) {
        present += isPresent(block[i]) && isPresent(paired[i]) ? 1 : 0;
    }
    return present;
}

/// Averages runs of blocks of one channel.
class RunAverages {
  public:
    explicit RunAverages(std::int32_t mode)
        : mode_(mode) {}

    void passOn(const BlockRun& run, const Consume& consume) {
        values_.resize(run.blocks);
        averageBlocks(run, mode_, values_, winds_);
        const bool hasSpeeds = !run.paired.empty();
        if (hasSpeeds) {
            speeds_.resize(run.blocks);
            averageBlocks({run.first, run.blocks, run.paired, {}}, MODE_MEAN, speeds_, winds_);
        }
        const std::size_t minutes = run.values.size() / run.blocks;
        std::array<IntervalReading, MANY> rows;
        for (std::size_t done = 0; done < run.blocks; done += MANY) {
            const std::size_t count = std::min(MANY, run.blocks - done);
            for (std::size_t i = 0; i < count; ++i) {
                const std::size_t block = done + i;
                rows[i].index = run.first + static_cast<std::int64_t>(block);
                rows[i].value = values_[block];
                rows[i].speed = hasSpeeds ? speeds_[block] : INVALID_VALUE;
                rows[i].present = presentMinutes(run.values.subspan(block * minutes, minutes),
                                                 hasSpeeds ? run.paired.subspan(block * minutes, minutes)
                                                           : std::span<const double>());
            }
            consume(std::span(rows).first(count));
        }
    }

  private:
    std::int32_t mode_;
    std::vector<double> values_;
    std::vector<double> speeds_;
    WindMeans winds_;
};

ReadStatus readChannel(const StationConfig& station, const ReadRequest& request, const FileOpener& open,
                       const Consume& consume, const ReadingStep& step) {
    ReadBuffers buffers;
    BlockReader blocks(station, request, open, buffers);
    RunAverages averages(station.ChannelTable.at(request.channel).Mode);
    for (BlockRun run = blocks.next(); !run.empty(); run = blocks.next()) {
        if (!runStep(step)) {
            return ReadStatus::givenUp;
        }
        averages.passOn(run, consume);
    }
    return ReadStatus::complete;
}

ReadStatus readDays(const StationConfig& station, const ReadRequest& request, const FileOpener& open,
                    const Consume& consume, const ReadingStep& step) {
    const auto intervals = readDayIntervals(station, request, open, step);
    if (!intervals) {
        return ReadStatus::givenUp;
    }
    for (const DayInterval& interval : *intervals) {
        IntervalReading row;
        row.index = interval.index;
        row.value = interval.mean;
        row.minimum = interval.minimum;
        row.maximum = interval.maximum;
        row.present = static_cast<std::int32_t>(std::min<std::int64_t>(interval.present, request.interval));
        consume(std::span(&row, 1));
    }
    return ReadStatus::complete;
}

} // namespace

EvaluatedKind evaluatedKind(const StationConfig& station, std::int32_t channel) {
    if (hasDayFiles(station)) {
        return EvaluatedKind::value;
    }
    const std::int32_t mode = station.ChannelTable.at(channel).Mode;
    return mode == MODE_SUM              ? EvaluatedKind::sum
           : mode == MODE_WIND_DIRECTION ? EvaluatedKind::direction
                                         : EvaluatedKind::value;
}

ReadStatus readIntervals(const StationConfig& station, const ReadRequest& request, const FileOpener& open,
                         const Consume& consume, const ReadingStep& step) {
    if (!(request.range.to > request.range.from)) {
        return ReadStatus::complete;
    }
    try {
        return hasDayFiles(station) ? readDays(station, request, open, consume, step)
                                    : readChannel(station, request, open, consume, step);
    } catch (const std::exception&) {
        return ReadStatus::complete; // an error ends a reading as the file's end does
    }
}

} // namespace kelvrum
