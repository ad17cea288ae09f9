// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/BlockReader.h"

#include "data/ChannelFiles.h"
#include "data/ChannelFormat.h"

#include <algorithm>
#include <utility>

namespace kelvrum {

namespace {
constexpr std::size_t PIECE_VALUES = 16UL * 1024; // minutes fetched with one read
} // namespace

BlockReader::BlockReader(const StationConfig& station, const ReadRequest& request, const FileOpener& open,
                         ReadBuffers& buffers)
    : kept_(buffers)
    , buffers_(std::move(buffers)) {
    if (request.interval < 1) {
        return;
    }
    interval_ = static_cast<std::size_t>(request.interval);
    const int year = calendarTime(request.range.from).year;
    file_ = open(channelPath(station, request.channel, request.suffix, year));
    if (!file_) {
        return;
    }
    const ChannelInfo& info = station.ChannelTable.at(request.channel);
    if (info.Mode == MODE_WIND_DIRECTION) {
        hasPair_ = true;
        pairedFile_ = open(pairedChannelPath(station, info.PairedChannel, request.suffix, year));
    }
    const auto length = static_cast<std::int64_t>(file_->size());
    start_ = chn::valueOffset(MinuteIndex(request.range.from));
    std::int64_t end = chn::valueOffset(MinuteIndex(request.range.to));
    if (end <= start_) {
        end = length; // the end lies in a later year, or not after the start: to the file's end
    }
    const auto blockSize = static_cast<std::int64_t>(chn::VALUE_SIZE * interval_);
    // A block is read when it starts before the end of the range and holds any byte of the file.
    const std::int64_t bytes = std::min(end, length) - start_;
    blocks_ = bytes > 0 ? (bytes + blockSize - 1) / blockSize : 0;
}

BlockReader::~BlockReader() { kept_ = std::move(buffers_); }

BlockRun BlockReader::next() {
    const auto left = static_cast<std::size_t>(blocks_ - done_);
    const std::size_t blocks = std::min(left, std::max<std::size_t>(PIECE_VALUES / interval_, 1));
    if (blocks == 0) {
        return {};
    }
    BlockRun run;
    run.first = done_;
    run.blocks = blocks;
    run.values = fetch(file_.get(), buffers_.values, blocks);
    if (hasPair_) {
        run.paired = fetch(pairedFile_.get(), buffers_.paired, blocks);
    }
    done_ += static_cast<std::int64_t>(blocks);
    return run;
}

std::span<const double> BlockReader::fetch(FileSource* file, std::vector<double>& buffer,
                                           std::size_t blocks) const {
    const std::size_t count = blocks * interval_;
    if (buffer.size() < count) {
        buffer.resize(count);
    }
    const std::span<double> values(buffer.data(), count);
    readMinutes(file, start_ + done_ * static_cast<std::int64_t>(chn::VALUE_SIZE * interval_), values);
    return values;
}

} // namespace kelvrum
