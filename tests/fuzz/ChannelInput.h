// SPDX-License-Identifier: GPL-3.0-or-later
// The start of an input of the channel target: what is read, and where the file's bytes are.
#pragma once

#include "tests/fuzz/Fuzzing.h"
#include "util/DateTime.h"

#include <array>
#include <cstdint>
#include <limits>
#include <string_view>

namespace kelvrum::fuzzing {

class ChannelInput {
  public:
    static constexpr std::size_t SIZE = 12;
    static constexpr std::int16_t MAX_MINUTES = 600; // of start and length: runs are to be fast

    // clang-format off
    //  offset  size  content
    //       0     1  mode
    //       1     1  interval
    //       2     1  bit 0: there is no paired file; bit 1: reading fails after some bytes; bits 2, 3: the place
    //       3     1  bytes after which reading fails, in eighths of the file's first ones
    //       4     2  start, minutes after the place, signed
    //       6     2  end, minutes after the start, signed
    //       8     2  where the file's own bytes are, bytes after the place, signed
    //      10     2  not used
    // clang-format on
    explicit ChannelInput(std::string_view bytes) {
        Input input(reinterpret_cast<const std::uint8_t*>(bytes.data()), bytes.size());
        mode_ = input.take<std::uint8_t>();
        interval_ = input.take<std::uint8_t>();
        flags_ = input.take<std::uint8_t>();
        failsAfter_ = input.take<std::uint8_t>();
        start_ = input.take<std::int16_t>() % MAX_MINUTES;
        length_ = input.take<std::int16_t>() % MAX_MINUTES;
        shift_ = input.take<std::int16_t>();
    }

    [[nodiscard]] std::int32_t mode() const { return std::array{1, 0, 36, 2}.at(mode_ % 4); }
    [[nodiscard]] std::int32_t interval() const {
        return std::array{1, 5, 10, 15, 60, 1440, 7, 0}.at(interval_ % 8);
    }
    [[nodiscard]] bool hasPair() const { return (flags_ & 1U) == 0; }
    [[nodiscard]] TimeRange range() const {
        const std::int64_t from = placeMinute() + start_;
        const DateTime newYear = dateSerial(2020, 1, 1);
        return {newYear + static_cast<double>(from) / MINUTES_PER_DAY,
                newYear + static_cast<double>(from + length_) / MINUTES_PER_DAY};
    }
    /// Byte offset of the file's own bytes.
    [[nodiscard]] std::int64_t place() const {
        return std::max<std::int64_t>(1024 + 8 * placeMinute() + shift_, 0);
    }
    /// Byte offset from which on nothing can be read.
    [[nodiscard]] std::int64_t fails() const {
        return (flags_ & 2U) == 0 ? std::numeric_limits<std::int64_t>::max() : place() + failsAfter_ / 8;
    }

  private:
    /// Minute of the year near which everything is: its start, its leap day, its end.
    [[nodiscard]] std::int64_t placeMinute() const {
        return std::array{0, 59 * MINUTES_PER_DAY, 366 * MINUTES_PER_DAY - 64, 1000}.at((flags_ >> 2U) % 4);
    }

    std::uint8_t mode_ = 0;
    std::uint8_t interval_ = 0;
    std::uint8_t flags_ = 0;
    std::uint8_t failsAfter_ = 0;
    int start_ = 0;
    int length_ = 0;
    std::int16_t shift_ = 0;
};

} // namespace kelvrum::fuzzing
