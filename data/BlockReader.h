// SPDX-License-Identifier: GPL-3.0-or-later
// A time range of one channel as a run of blocks of minute values.
#pragma once

#include "config/StationConfig.h"
#include "data/Reading.h"
#include "util/FileSource.h"

#include <cstdint>
#include <memory>
#include <span>
#include <vector>

namespace kelvrum {

/// Consecutive blocks of raw minute values. A missing minute reads as 0.
struct BlockRun {
    std::int64_t first = 0; // number of the first block, from 0
    std::size_t blocks = 0;
    std::span<const double> values; // blocks x interval minutes
    std::span<const double> paired; // the paired channel at the same minutes; empty without one

    [[nodiscard]] bool empty() const { return blocks == 0; }
};

/// Memory that is kept from one reading to the next. A reading takes it and returns it at the end; one
/// that starts meanwhile finds it empty and uses memory of its own.
struct ReadBuffers {
    std::vector<double> values;
    std::vector<double> paired;
};

/// Reads the file of the start's year, from the start minute to the end minute; to the file's end when the
/// end does not lie after the start within a year. The file is fetched in large pieces.
class BlockReader {
  public:
    /// Opens the file or files. A missing file or an interval below 1 gives no blocks. The buffers must
    /// outlive the reader.
    BlockReader(const StationConfig& station, const ReadRequest& request, const FileOpener& open,
                ReadBuffers& buffers);
    BlockReader(const BlockReader&) = delete;
    BlockReader& operator=(const BlockReader&) = delete;
    ~BlockReader();

    /// The number of blocks that next() will deliver.
    [[nodiscard]] std::int64_t blocks() const { return blocks_; }

    /// The next blocks, as many as fit a piece; an empty run at the end. Valid until the next call.
    BlockRun next();

  private:
    std::span<const double> fetch(FileSource* file, std::vector<double>& buffer, std::size_t blocks) const;

    ReadBuffers& kept_;
    ReadBuffers buffers_;
    std::unique_ptr<FileSource> file_;
    std::unique_ptr<FileSource> pairedFile_;
    bool hasPair_ = false;
    std::size_t interval_ = 1;
    std::int64_t start_ = 0; // byte offset of the first block
    std::int64_t blocks_ = 0;
    std::int64_t done_ = 0;
};

} // namespace kelvrum
