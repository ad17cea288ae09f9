// SPDX-License-Identifier: GPL-3.0-or-later
// The raw records of day files, as the data list shows them: one row for each record, one column for each
// channel.
#pragma once

#include "config/StationConfig.h"
#include "data/DayRecords.h"
#include "data/Reading.h"
#include "util/DateTime.h"
#include "util/FileSource.h"

#include <cstddef>
#include <cstdint>
#include <limits>
#include <optional>
#include <span>
#include <string>
#include <vector>

namespace kelvrum {

/// The rows of a list. Their times are kept, their values stay in the day files: a year of 34 channels has
/// 72 MB of them, a screen shows some dozen rows.
class DayRows {
  public:
    DayRows() = default;

    /// Without any row, for records of a station. `open` must be callable as long as rows are read.
    DayRows(const StationConfig& station, FileOpener open);

    /// Reserves memory for this many rows.
    void reserve(std::size_t rows) { times_.reserve(rows); }

    /// The records that are added from now on are of this file.
    void enterFile(std::string path);
    void add(const DayRecord& record);

    [[nodiscard]] bool empty() const { return times_.empty(); }
    [[nodiscard]] std::size_t count() const { return times_.size(); }
    /// The number of values per row.
    [[nodiscard]] std::size_t channels() const { return channels_; }
    [[nodiscard]] std::span<const DateTime> times() const { return times_; }

    /// The values of a row, of wide records the means; valid until the next call. They are read with those of
    /// the rows around. None when the file no longer has a record of the row's time at the row's place.
    [[nodiscard]] std::span<const float> values(std::size_t row) const;

  private:
    static constexpr std::size_t NONE = std::numeric_limits<std::size_t>::max();
    static constexpr std::uint64_t NO_RECORD = std::numeric_limits<std::uint64_t>::max();

    /// Rows from here on are the records of one file from here on.
    struct Run {
        std::size_t row = 0;
        std::size_t file = 0;
        std::uint64_t record = 0;
    };

    /// What was read last: records of a file in sequence, and the values of a row of them.
    struct Fetched {
        std::size_t file = NONE;
        std::uint64_t first = 0;
        std::vector<std::byte> records;
        std::size_t row = NONE;
        std::vector<float> values;
    };

    [[nodiscard]] std::span<const std::byte> recordOf(std::size_t row) const;
    void fetch(std::size_t file, std::uint64_t first, std::size_t count) const;

    FileOpener open_;
    std::size_t channels_ = 0;
    std::size_t fieldSize_ = 0;
    std::size_t recordSize_ = 1;
    std::vector<std::string> files_;
    std::vector<DateTime> times_;
    std::vector<Run> runs_;               // by ascending row
    std::uint64_t following_ = NO_RECORD; // the record that goes on with the last run
    mutable Fetched fetched_;
};

/// The files of one day: those whose name starts with the date and ends in ".KMH" (any case), in byte order;
/// but of two or more, the first two are exchanged when the first one starts at the earlier minute.
std::vector<std::string> filesOfDay(const std::string& folder, const std::vector<std::string>& names,
                                    DateTime day, const FileOpener& open);

/// All records of the range, start and end included to the minute, in file order from day to day. Nothing
/// when the reading was given up.
std::optional<DayRows> readDayRows(const StationConfig& station, const TimeRange& range,
                                   const FileOpener& open, const ReadingStep& step);

} // namespace kelvrum
