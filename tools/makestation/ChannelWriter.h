// SPDX-License-Identifier: GPL-3.0-or-later
// The yearly channel files of the sample station.
#pragma once

#include "tools/makestation/SampleStation.h"

#include <array>
#include <cstddef>
#include <filesystem>
#include <vector>

namespace kelvrum::sample {

/// Gathers the minutes of a year and writes one file for each channel when the year is over. A file ends with
/// the last minute that was put; minutes before the first one and minutes that were not recorded are 0.
class ChannelWriter {
  public:
    explicit ChannelWriter(std::filesystem::path folder)
        : folder_(std::move(folder)) {}

    /// Minutes must come in ascending order. Throws WriteError.
    void put(const MinuteRecord& record);

    /// Writes what is left. Throws WriteError.
    void finish();

  private:
    std::filesystem::path folder_;
    int year_ = 0;
    Minute newYear_ = 0;
    Minute nextNewYear_ = 0;
    std::array<std::vector<std::byte>, QUANTITIES> files_; // one for each channel
};

} // namespace kelvrum::sample
