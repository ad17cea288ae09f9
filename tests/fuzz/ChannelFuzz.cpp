// SPDX-License-Identifier: GPL-3.0-or-later
// Any channel file and paired file, read as list, diagram and polar diagram, beside the rules minute by
// minute. The input: a request of ChannelInput, then the values of both files in turns.
#include "data/ChannelFiles.h"
#include "data/ChannelFormat.h"
#include "data/DataReader.h"
#include "data/SeriesFill.h"
#include "data/WindMean.h"
#include "tests/diagram/TestDiagram.h"
#include "tests/fuzz/ChannelInput.h"
#include "tests/fuzz/Fuzzing.h"
#include "util/Validity.h"

#include <cmath>
#include <cstring>
#include <string>
#include <vector>

namespace {

using namespace kelvrum;
using fuzzing::ChannelInput;
using fuzzing::require;

/// What a file holds: zeros, its own bytes at a place, and nothing that can be read from an offset on.
struct PlacedBytes {
    std::int64_t at = 0;
    std::string bytes;
    std::int64_t failsAt = 0;

    [[nodiscard]] std::int64_t length() const { return at + std::ssize(bytes); }
    [[nodiscard]] std::int64_t readable() const { return std::min(length(), failsAt); }

    std::size_t read(std::int64_t from, std::span<std::byte> into) const {
        const std::int64_t end = std::min(readable(), from + std::ssize(into));
        if (end <= from) {
            return 0;
        }
        std::fill_n(into.begin(), end - from, std::byte{0});
        const std::int64_t first = std::max(from, at);
        if (first < end) {
            std::memcpy(into.data() + (first - from), bytes.data() + (first - at),
                        static_cast<std::size_t>(end - first));
        }
        return static_cast<std::size_t>(end - from);
    }

    /// The value of a minute by the layout of the file; 0 when it is not there as a whole.
    [[nodiscard]] double minute(std::int64_t number) const {
        double value = 0;
        const std::int64_t offset = chn::valueOffset(number);
        if (offset + 8 <= readable()) {
            read(offset, std::as_writable_bytes(std::span(&value, 1)));
        }
        return value;
    }
};

class PlacedFile : public FileSource {
  public:
    explicit PlacedFile(const PlacedBytes& content)
        : content_(content) {}
    std::uint64_t size() override { return static_cast<std::uint64_t>(content_.length()); }
    std::size_t read(std::uint64_t offset, std::span<std::byte> into) override {
        return content_.read(static_cast<std::int64_t>(offset), into);
    }

  private:
    const PlacedBytes& content_;
};

constexpr std::int32_t CHANNEL = 5;
constexpr std::int32_t PAIR = 4;

/// The station, its files and the reading that an input asks for.
struct Case {
    StationConfig station;
    ReadRequest request;
    PlacedBytes file;
    PlacedBytes pair;
    bool hasPair;

    Case(const ChannelInput& input, std::string values, std::string speeds)
        : file{input.place(), std::move(values), input.fails()}
        , pair{input.place(), std::move(speeds), input.fails()}
        , hasPair(input.hasPair()) {
        station.Kind = ConfigKind::ini;
        station.DataFolder = "Data\\";
        ChannelInfo& info = station.ChannelTable.grow(CHANNEL);
        info.Mode = input.mode();
        info.PairedChannel = PAIR;
        request = {CHANNEL, {}, input.range(), input.interval()};
    }

    [[nodiscard]] FileOpener opener() const {
        return [this](std::string_view path) -> std::unique_ptr<FileSource> {
            if (path == "Data\\Kanal05_2020.chn") {
                return std::make_unique<PlacedFile>(file);
            }
            return hasPair && path == "Data\\Kanal04_2020.chn" ? std::make_unique<PlacedFile>(pair) : nullptr;
        };
    }

    /// The minutes of a block.
    [[nodiscard]] std::vector<double> block(const PlacedBytes& from, std::int64_t number) const {
        std::vector<double> minutes(static_cast<std::size_t>(request.interval));
        const std::int64_t first = MinuteIndex(request.range.from) + number * request.interval;
        for (std::size_t i = 0; i < minutes.size(); ++i) {
            minutes[i] = from.minute(first + static_cast<std::int64_t>(i));
        }
        return minutes;
    }

    /// How many blocks start within the range and hold a byte of the file.
    [[nodiscard]] std::int64_t blocks() const {
        if (request.interval < 1 || calendarTime(request.range.from).year != 2020) {
            return 0;
        }
        const std::int64_t start = MinuteIndex(request.range.from);
        const std::int64_t end = MinuteIndex(request.range.to);
        std::int64_t count = 0;
        for (std::int64_t minute = start; end <= start || minute < end; minute += request.interval, ++count) {
            if (chn::valueOffset(minute) >= file.length()) {
                break;
            }
        }
        return count;
    }
};

double plainAverage(const std::vector<double>& block, bool mean) {
    double sum = 0;
    int count = 0;
    for (const double v : block) {
        if (std::fabs(v) < INVALID_VALUE && v != 0) {
            sum += v;
            ++count;
        }
    }
    return count == 0 ? INVALID_VALUE : validate(mean ? sum / count : sum);
}

void checkWind(const Case& c, const IntervalValue& row, std::int64_t number) {
    const auto directions = c.block(c.file, number);
    const auto speeds = c.hasPair ? c.block(c.pair, number) : std::vector<double>(directions.size(), 0.0);
    const double rule = windMeanByMinutes(directions, speeds);
    require((row.value == INVALID_VALUE) == (rule == INVALID_VALUE), "a direction needs a minute with both");
    if (row.value != INVALID_VALUE) {
        require(row.value > 0 && row.value <= 360, "a direction lies above 0 and up to 360");
        const double apart = std::fabs(row.value - rule);
        require(std::min(apart, 360 - apart) <= 1e-7, "a direction is that of the rule by minutes");
    }
}

void checkRow(const Case& c, const IntervalValue& row, std::int64_t number) {
    require(row.start == intervalStart(c.request.range.from, number, c.request.interval),
            "intervals follow each other");
    switch (c.station.ChannelTable.at(CHANNEL).Mode) {
    case MODE_SUM:
        require(row.value == plainAverage(c.block(c.file, number), false), "a sum is that of the minutes");
        break;
    case MODE_MEAN:
        require(row.value == plainAverage(c.block(c.file, number), true), "a mean is that of the minutes");
        break;
    case MODE_WIND_DIRECTION:
        checkWind(c, row, number);
        break;
    default:
        require(row.value == 0, "another mode gives 0");
    }
}

/// The columns of the table are the rows of the list, with one gap after the last of several values.
void checkSeries(const std::vector<IntervalValue>& rows, const DiagramState& diagram) {
    const auto times = seriesTable().row(SeriesTable::TIME);
    const auto values = seriesTable().row(SeriesTable::Y1);
    std::size_t column = 0;
    bool valid = false;
    for (const IntervalValue& row : rows) {
        const bool gap = row.value == INVALID_VALUE;
        if (!gap || valid) {
            require(column < values.size() && times[column] == row.start && values[column] == row.value,
                    "the diagram shows the values of the list");
            ++column;
        }
        valid = !gap;
    }
    require(diagram.DataCount() == static_cast<std::int32_t>(column), "the diagram has no other columns");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzzing::Input bytes(data, size);
    const ChannelInput input{bytes.text(ChannelInput::SIZE)};
    std::string values;
    std::string speeds;
    while (!bytes.rest().empty()) {
        values += bytes.text(8);
        speeds += bytes.text(8);
    }
    const Case c(input, std::move(values), std::move(speeds));
    DataReader reader(c.opener());
    std::vector<IntervalValue> rows;
    const auto keep = [&rows](std::span<const DateTime> starts, std::span<const double> more) {
        for (std::size_t i = 0; i < more.size(); ++i) {
            rows.push_back({starts[i], more[i]});
        }
    };
    require(reader.readList(c.station, c.request, keep, {}) == ReadStatus::complete, "a reading ends");
    require(std::ssize(rows) == c.blocks(), "every block that begins in the range has a row");
    for (std::size_t i = 0; i < rows.size(); ++i) {
        checkRow(c, rows[i], static_cast<std::int64_t>(i));
    }
    testing::TestDiagram diagram;
    reader.readDiagram(c.station, c.request, {}, diagram, {});
    checkSeries(rows, diagram);
    if (c.station.ChannelTable.at(CHANNEL).Mode == MODE_WIND_DIRECTION) {
        reader.readPolar(c.station, c.request, {}, diagram, {});
        const auto directions = std::count_if(
            rows.begin(), rows.end(), [](const IntervalValue& row) { return row.value != INVALID_VALUE; });
        require(diagram.sampleCount() == directions, "every direction is a sample");
    }
    return 0;
}
