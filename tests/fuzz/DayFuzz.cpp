// SPDX-License-Identifier: GPL-3.0-or-later
// Any day files, narrow and wide, read as diagram and as list, beside a plain count of their records. The
// input: a request, the lengths of the first two files, then the bytes of three.
#include "data/DataReader.h"
#include "data/DayFiles.h"
#include "data/DayFormat.h"
#include "tests/diagram/TestDiagram.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/testing/FakeFiles.h"
#include "tests/testing/TempFolder.h"
#include "util/LittleEndian.h"
#include "util/Validity.h"

#include <array>
#include <bit>
#include <cmath>
#include <map>
#include <string>
#include <vector>

namespace {

using namespace kelvrum;
using fuzzing::require;

/// Two days, and a second file of the first day, which the diagram does not read.
const std::array<const char*, 3> NAMES = {"20200618.KMH", "20200619.kmh", "20200618B.KMH"};

/// The names must be found in a folder; what they hold comes from memory.
const std::string& folderOfNames() {
    static const testing::TempFolder folder;
    static const std::string base = [] {
        for (const char* const name : NAMES) {
            folder.write(name, "");
        }
        return folder.base();
    }();
    return base;
}

std::int64_t minuteOf(DateTime t) { return std::llround(t * MINUTES_PER_DAY); }

struct Record {
    std::int64_t minute = 0;
    std::span<const std::byte> fields;
};

/// The whole records of a file that have a date and a minute, by the layout.
std::vector<Record> recordsOf(std::string_view file, std::size_t size) {
    std::vector<Record> records;
    const auto bytes = std::as_bytes(std::span(file.data(), file.size()));
    for (std::size_t at = 0; at + size <= bytes.size(); at += size) {
        const auto record = bytes.subspan(at, size);
        const int year = loadLittle<std::int16_t>(record, 0);
        const int month = std::to_integer<int>(record[2]);
        const int day = std::to_integer<int>(record[3]);
        const int minute = loadLittle<std::int16_t>(record, 4);
        if (isDate(year, month, day) && minute >= 0 && minute < MINUTES_PER_DAY) {
            records.push_back({minuteOf(dateSerial(year, month, day)) + minute, record.subspan(6)});
        }
    }
    return records;
}

struct Extremes {
    double sum = 0;
    int count = 0;
    double minimum = std::numeric_limits<double>::infinity();
    double maximum = -std::numeric_limits<double>::infinity();
};

/// Present values by interval.
class Plain {
  public:
    void add(const Record& record, const ReadRequest& request, std::size_t field, bool wide) {
        const std::int64_t from = minuteOf(request.range.from);
        if (record.minute < from || record.minute >= minuteOf(request.range.to)) {
            return;
        }
        Extremes& interval = all[(record.minute - from) / request.interval];
        const auto value = [&](std::size_t at) {
            return double{loadLittle<float>(record.fields, field + at)};
        };
        if (isPresent(value(0))) {
            interval.sum += value(0);
            ++interval.count;
        }
        if (wide && isPresent(value(4))) {
            interval.minimum = std::min(interval.minimum, value(4));
        }
        if (wide && isPresent(value(8))) {
            interval.maximum = std::max(interval.maximum, value(8));
        }
    }

    std::map<std::int64_t, Extremes> all;
};

void checkIntervals(const std::vector<DayInterval>& intervals, const Plain& plain, bool wide) {
    require(intervals.size() == plain.all.size(), "every interval with a record comes back, and no other");
    auto expected = plain.all.begin();
    for (const DayInterval& interval : intervals) {
        const auto& [index, extremes] = *expected++;
        require(interval.index == index, "intervals come by their numbers");
        require(interval.mean ==
                    (extremes.count == 0 ? INVALID_VALUE : validate(extremes.sum / extremes.count)),
                "a mean is that of the records");
        if (wide) {
            require(interval.minimum == (std::isinf(extremes.minimum) ? INVALID_VALUE : extremes.minimum),
                    "a minimum is the smallest of the records");
            require(interval.maximum == (std::isinf(extremes.maximum) ? INVALID_VALUE : extremes.maximum),
                    "a maximum is the greatest of the records");
        }
    }
}

void checkSeries(const std::vector<DayInterval>& intervals, const DiagramState& diagram,
                 const TimeRange& range, bool wide) {
    std::size_t values = 0;
    for (const DayInterval& interval : intervals) {
        values += interval.mean != INVALID_VALUE ? 1 : 0;
        values += wide && interval.minimum != INVALID_VALUE ? 1 : 0;
        values += wide && interval.maximum != INVALID_VALUE ? 1 : 0;
    }
    const auto count = static_cast<std::size_t>(diagram.DataCount());
    const auto times = seriesTable().row(SeriesTable::TIME);
    const auto y1 = seriesTable().row(SeriesTable::Y1);
    require(count <= y1.size(), "the table holds the columns that are announced");
    for (std::size_t i = 0; i < count; ++i) {
        require(times[i] >= range.from && times[i] < range.to, "every column lies in the range");
        if (y1[i] != INVALID_VALUE) {
            require(std::fabs(y1[i]) < INVALID_VALUE && y1[i] != 0, "what is shown is a value");
            require(values-- > 0, "no more values than the intervals have");
        } else {
            require(i > 0 && y1[i - 1] != INVALID_VALUE, "a gap follows a value");
        }
    }
    require(values == 0, "every value of an interval is shown");
}

/// The minute of a file's first record; 0 when it has none.
int startOf(std::string_view file) {
    return file.size() < 6 ? 0
                           : loadLittle<std::int16_t>(std::as_bytes(std::span(file.data(), file.size())), 4);
}

/// The files by their number in the order in which they are listed.
std::array<std::size_t, 3> listOrder(const std::array<std::string_view, 3>& files) {
    if (startOf(files[0]) < startOf(files[2])) {
        return {2, 0, 1};
    }
    return {0, 2, 1};
}

void checkRows(const DayRows& rows, const std::vector<Record>& listed, bool wide) {
    for (std::size_t row = 0; row < listed.size(); ++row) {
        const auto values = rows.values(row);
        require(minuteOf(rows.times()[row]) == listed[row].minute, "rows come in the order of the files");
        require(values.size() == rows.channels(), "every row has all its values");
        for (std::size_t i = 0; i < values.size(); ++i) {
            require(std::bit_cast<std::uint32_t>(values[i]) ==
                        loadLittle<std::uint32_t>(listed[row].fields, i * (wide ? 12 : 4)),
                    "a row's values are those of its record");
        }
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzzing::Input input(data, size);
    StationConfig station;
    station.Kind = ConfigKind::binary;
    station.BaseFolder = folderOfNames();
    station.WideRecords = input.between(0, 1) == 1;
    const int slots = input.between(1, 34);
    for (int k = 0; k < slots; ++k) {
        station.ActiveChannels.push_back(k + 1);
        station.ChannelTable.grow(k + 1).Mode = MODE_MEAN;
    }
    const int slot = input.between(0, slots - 1);
    const int interval =
        std::array{1, 5, 10, 15, 60, 1440, 7, 2000}.at(static_cast<std::size_t>(input.between(0, 7)));
    const int from = input.between(0, 1439);
    const int length = input.between(0, 4400) - 100;
    const DateTime day = dateSerial(2020, 6, 18);
    const TimeRange range = {day + from / 1440.0, day + (from + length) / 1440.0};
    const ReadRequest request = {slot + 1, {}, range, interval};
    const auto firstSize = input.take<std::uint16_t>();
    const auto secondSize = input.take<std::uint16_t>();
    const std::array<std::string_view, 3> files = {input.text(firstSize), input.text(secondSize),
                                                   input.rest()};

    const bool wide = station.WideRecords;
    const std::size_t recordSize = kmh::recordSize(station.ActiveChannels.size(), wide);
    testing::FakeFiles made;
    Plain plain;
    std::vector<Record> listed;
    for (const std::size_t i : listOrder(files)) {
        made[station.BaseFolder + NAMES.at(i)].bytes = files.at(i);
        const bool named = i == 0 || range.to >= day + 1 - 1e-9;
        for (const Record& record : recordsOf(files.at(i), recordSize)) {
            const bool inRange = record.minute >= minuteOf(range.from) && record.minute <= minuteOf(range.to);
            const bool read = (i != 1 || named) && length >= -from;
            if (inRange && read) {
                listed.push_back(record);
            }
            if (i != 2 && read) {
                plain.add(record, request, static_cast<std::size_t>(slot) * (wide ? 12 : 4), wide);
            }
        }
    }
    const auto intervals = readDayIntervals(station, request, made.opener(), {});
    require(intervals.has_value(), "a reading without steps is never given up");
    checkIntervals(*intervals, plain, wide);
    DataReader reader(made.opener());
    testing::TestDiagram diagram;
    reader.readDayDiagram(station, request, {}, diagram, {});
    checkSeries(*intervals, diagram, range, wide);
    const auto rows = reader.readDayList(station, range, {});
    require(rows && rows->count() == listed.size(), "every record of the range has a row");
    checkRows(*rows, listed, wide);
    return 0;
}
