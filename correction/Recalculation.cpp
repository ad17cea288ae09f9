// SPDX-License-Identifier: GPL-3.0-or-later
#include "correction/Recalculation.h"

#include "config/DataFolder.h"
#include "data/ChannelFiles.h"
#include "data/ChannelFormat.h"
#include "util/ErrorText.h"
#include "util/LittleEndian.h"
#include "util/Numbers.h"
#include "util/VectorRegisters.h"

#include <algorithm>
#include <memory>
#include <span>
#include <vector>

namespace kelvrum {

namespace {

constexpr std::size_t PIECE_VALUES = 64UL * 1024;  // minutes read and written at once
constexpr std::int64_t TO_THE_END = 8'000'000 - 1; // byte offset after every year's file

/// The channels of a correction; they are fixed and do not come from the configuration.
struct CorrectedChannels {
    std::vector<std::int32_t> sources;
    std::int32_t target;
};

CorrectedChannels channelsOf(CorrectionMode mode) {
    return mode == CorrectionMode::wind ? CorrectedChannels{{4, 5}, 6} : CorrectedChannels{{7}, 15};
}

/// The byte offsets of the values of one year: from the first up to and with the last.
struct YearRange {
    int year = 0;
    std::int64_t first = 0;
    std::int64_t last = 0;
};

std::vector<YearRange> yearsOf(const TimeRange& range) {
    const int firstYear = calendarTime(range.from).year;
    const int lastYear = calendarTime(range.to).year;
    std::vector<YearRange> years;
    for (int year = firstYear; year <= lastYear; ++year) {
        years.push_back({year, chn::valueOffset(year == firstYear ? MinuteIndex(range.from) : 0),
                         year == lastYear ? chn::valueOffset(MinuteIndex(range.to)) : TO_THE_END});
    }
    return years;
}

/// A file that values come from; without `file` it is missing.
struct Source {
    std::string path;
    std::unique_ptr<FileSource> file;
};

/// One year's files.
class YearRecalculation {
  public:
    YearRecalculation(const StationConfig& station, const Correction& correction,
                      const CorrectionFiles& files, const YearRange& range)
        : factor_(correction.factor)
        , files_(files)
        , range_(range) {
        const CorrectedChannels channels = channelsOf(correction.mode);
        for (const std::int32_t channel : channels.sources) {
            std::string path = channelPath(station, channel, {}, range.year);
            auto file = files.openSource(path);
            sources_.push_back({std::move(path), std::move(file)});
        }
        targetPath_ = channelPath(station, channels.target, {}, range.year);
    }

    std::optional<std::string> run() {
        const std::int64_t count = values();
        if (count <= 0) {
            return std::nullopt;
        }
        OpenedTarget target;
        std::vector<double> results(std::min<std::size_t>(PIECE_VALUES, static_cast<std::size_t>(count)));
        std::vector<double> values(results.size());
        for (std::int64_t done = 0; done < count;) {
            const std::size_t n = std::min(results.size(), static_cast<std::size_t>(count - done));
            const std::int64_t offset = range_.first + done * static_cast<std::int64_t>(chn::VALUE_SIZE);
            const std::size_t got =
                compute(std::span(results).first(n), values, static_cast<std::uint64_t>(offset));
            if (got == 0) {
                return unreadable(); // or a source has become shorter in the meantime
            }
            if (!target.file) { // not before there is a value to write
                target = files_.openTarget(targetPath_);
                if (!target.file) {
                    return failure(target.error);
                }
            }
            const auto bytes = std::as_bytes(std::span(results).first(got));
            if (const std::error_code error = target.file->write(static_cast<std::uint64_t>(offset), bytes)) {
                return failure(error);
            }
            if (got < n) {
                return unreadable();
            }
            done += static_cast<std::int64_t>(n);
        }
        return std::nullopt;
    }

  private:
    /// The number of values: up to the end of the range, but only whole values that every source has.
    [[nodiscard]] std::int64_t values() const {
        const auto size = static_cast<std::int64_t>(chn::VALUE_SIZE);
        std::int64_t count = (range_.last - range_.first) / size + 1;
        for (const Source& source : sources_) {
            const std::int64_t length = source.file ? static_cast<std::int64_t>(source.file->size()) : 0;
            count = std::min(count, length > range_.first ? (length - range_.first) / size : 0);
        }
        return count;
    }

    /// The new values from a byte offset on; fewer when a source ends early.
    std::size_t compute(std::span<double> results, std::vector<double>& values, std::uint64_t offset) {
        std::size_t count = results.size();
        for (std::size_t i = 0; i < sources_.size(); ++i) {
            const std::span<double> read = i == 0 ? results.first(count) : std::span(values).first(count);
            count = sources_[i].file->read(offset, std::as_writable_bytes(read)) / chn::VALUE_SIZE;
            fromLittle(read.first(count));
        }
        const bool two = sources_.size() > 1;
        for (std::size_t k = 0; k < count; ++k) {
            // Only a source that is 0 gives 0; a product that becomes 0 is multiplied like any other.
            const double a = results[k];
            const bool zero = a == 0 || (two && values[k] == 0);
            results[k] = zero ? 0 : two ? a * values[k] * factor_ : a * factor_;
        }
        fromLittle(results.first(count)); // back to the file's byte order
        return count;
    }

    /// The message about a source that an error keeps from being read; none when all of them are just
    /// shorter.
    [[nodiscard]] std::optional<std::string> unreadable() const {
        for (const Source& source : sources_) {
            if (const std::error_code error = source.file->readError()) {
                return "Die Datei „" + source.path + "“ kann nicht gelesen werden: " + errorText(error) +
                       ".\nBitte berechnen Sie den Zeitraum noch einmal, sobald sie wieder lesbar ist.";
            }
        }
        return std::nullopt;
    }

    [[nodiscard]] std::string failure(const std::error_code& error) const {
        return "Die Datei „" + targetPath_ + "“ kann nicht geschrieben werden: " + errorText(error) +
               ".\nBitte sorgen Sie für Platz und Schreibrecht und berechnen Sie den Zeitraum noch einmal.";
    }

    double factor_;
    const CorrectionFiles& files_;
    YearRange range_;
    std::vector<Source> sources_;
    std::string targetPath_;
};

} // namespace

double factorOf(const std::string& text) {
    std::string number = text;
    std::replace(number.begin(), number.end(), ',', '.');
    return leadingNumber(number);
}

std::optional<std::string> recalculate(const StationConfig& station, const Correction& correction,
                                       const CorrectionFiles& files) {
    for (const YearRange& year : yearsOf(correction.range)) {
        cleanVectorRegisters(); // events have run before each year
        if (auto message = YearRecalculation(station, correction, files, year).run()) {
            return message;
        }
        if (files.afterYear) {
            files.afterYear();
        }
    }
    return std::nullopt;
}

} // namespace kelvrum
