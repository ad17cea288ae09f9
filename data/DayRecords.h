// SPDX-License-Identifier: GPL-3.0-or-later
// The records of day files, taken apart one after the other.
#pragma once

#include "data/DayFormat.h"
#include "util/DateTime.h"
#include "util/FileSource.h"
#include "util/LittleEndian.h"

#include <cstddef>
#include <cstdint>
#include <optional>
#include <span>
#include <vector>

namespace kelvrum {

/// One record: its number in the file from 0, its time, once as a date-time and once as the minute by which
/// times are compared (minuteNumber), and its value fields.
struct DayRecord {
    std::uint64_t number = 0;
    DateTime time = 0;
    std::int64_t minute = 0;
    std::span<const std::byte> fields;

    /// The float at a byte offset of the value fields.
    [[nodiscard]] float value(std::size_t at) const { return loadLittle<float>(fields, at); }
};

/// Takes records apart. It keeps the date of the last one, which nearly all records of a file share.
class DayDecoder {
  public:
    /// The record in these bytes; nothing when its date or minute is impossible.
    [[nodiscard]] std::optional<DayRecord> decode(std::uint64_t number, std::span<const std::byte> record) {
        if (const auto date = loadLittle<std::uint32_t>(record, kmh::YEAR_AT); date != dateBytes_) {
            enterDay(record);
            dateBytes_ = date;
        }
        const int minute = loadLittle<std::int16_t>(record, kmh::MINUTE_AT);
        if (!isDay_ || minute < 0 || minute >= MINUTES_PER_DAY) {
            return std::nullopt;
        }
        return DayRecord{number, date_ + static_cast<double>(minute) / MINUTES_PER_DAY, dayMinute_ + minute,
                         record.subspan(kmh::FIELDS_AT)};
    }

  private:
    void enterDay(std::span<const std::byte> record);

    std::uint32_t dateBytes_ = 0; // year, month and day as the record holds them; 0 is no day
    bool isDay_ = false;
    DateTime date_ = 0;
    std::int64_t dayMinute_ = 0; // the first one of the date
};

/// Reads the day files of one station, piece by piece into memory that serves all of them.
class DayRecordReader {
  public:
    /// For a station whose records are `recordSize` bytes long.
    explicit DayRecordReader(std::size_t recordSize);

    /// Passes the records of a file to `consume(const DayRecord&)`, from its start to its end. Records with
    /// an impossible date or minute are skipped, a torn last one is dropped.
    template<typename Consume>
    void read(FileSource& file, Consume consume) {
        std::uint64_t number = 0;
        for (bool isMore = true; isMore;) {
            const std::size_t got = file.read(number * recordSize_, piece_);
            isMore = got == piece_.size();
            for (std::size_t at = 0; at + recordSize_ <= got; at += recordSize_, ++number) {
                if (const auto record = decoder_.decode(number, std::span(piece_).subspan(at, recordSize_))) {
                    consume(*record);
                }
            }
        }
    }

  private:
    std::size_t recordSize_;
    std::vector<std::byte> piece_; // of whole records
    DayDecoder decoder_;
};

} // namespace kelvrum
