// SPDX-License-Identifier: GPL-3.0-or-later
// The minutes of one year of a channel, as averaging counts them.
#pragma once

#include "config/StationConfig.h"
#include "util/FileSource.h"

#include <cstddef>
#include <cstdint>
#include <memory>
#include <vector>

namespace kelvrum {

/// A channel's file of one year, and for a wind direction that of its speed: averaging uses only minutes at
/// which both are present, so only they count here.
class ChannelMinutes {
  public:
    ChannelMinutes(const StationConfig& station, std::int32_t channel, int year, const FileOpener& open);

    /// The whole minutes in the file, at most those of the year; 0 without a file.
    [[nodiscard]] std::int64_t count() const { return count_; }

    /// Whether each of `count` minutes from `first` on is present. Valid until the next call.
    const std::vector<bool>& present(std::int64_t first, std::size_t count);

  private:
    std::unique_ptr<FileSource> file_;
    std::unique_ptr<FileSource> paired_;
    bool hasPair_ = false;
    std::int64_t count_ = 0;
    std::vector<double> values_;
    std::vector<double> pairedValues_;
    std::vector<bool> present_;
};

/// The minutes of a year.
std::int64_t minutesOfYear(int year);

} // namespace kelvrum
