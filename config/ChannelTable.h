// SPDX-License-Identifier: GPL-3.0-or-later
// The measurement channels of a station, by channel number.
#pragma once

#include <cstdint>
#include <map>
#include <string>

namespace kelvrum {

/// How the minute values of an interval become one value. Files may bring any other number.
enum AveragingMode : std::int32_t {
    MODE_SUM = 0,
    MODE_MEAN = 1,
    MODE_WIND_DIRECTION = 36, // weighted by the speed of the paired channel
};

/// One channel. An entry that no line of the configuration defines is empty.
struct ChannelInfo {
    double LowerLimit = 0; // value range of the channel
    double UpperLimit = 0;
    std::string Unit;
    std::string Comment;
    std::string Tag; // a channel without one is not offered for selection
    std::string Name;
    std::int32_t Mode = 0;          // an AveragingMode
    std::int32_t PairedChannel = 0; // the channel whose values weight this one's (wind speed of a direction)
    std::int32_t Code = 0;
    double Offset = 0;
    double Factor = 0;
    bool Flag = false;
    std::string DirIn;
    std::string DirOut;
    double Limit1 = 0;
    double Limit2 = 0;

    bool operator==(const ChannelInfo&) const = default;
};

/// Channel records by number, from 1. Only entries that were touched take memory, whatever their number.
class ChannelTable {
  public:
    /// Empties the table; its count becomes 0.
    void clear();

    /// Ini form: the highest channel number seen. Binary form: the number of active slots.
    [[nodiscard]] std::int32_t count() const { return count_; }
    void setCount(std::int32_t count) { count_ = count; }

    /// The entry of a channel; an empty one for a number that was never touched.
    [[nodiscard]] const ChannelInfo& at(std::int32_t channel) const;

    /// The entry of a channel for writing. A number above the count becomes the new count.
    ChannelInfo& grow(std::int32_t channel);

    /// The touched entries in ascending order of their numbers.
    [[nodiscard]] const std::map<std::int32_t, ChannelInfo>& entries() const { return entries_; }

    bool operator==(const ChannelTable&) const = default;

  private:
    std::int32_t count_ = 0;
    std::map<std::int32_t, ChannelInfo> entries_;
};

} // namespace kelvrum
