// SPDX-License-Identifier: GPL-3.0-or-later
// The main window's readers: from a channel, a time range and an interval to list rows or to the
// series of a diagram.
#pragma once

#include "config/StationConfig.h"
#include "data/BlockReader.h"
#include "data/DayFiles.h"
#include "data/DayList.h"
#include "data/Reading.h"
#include "data/WindMean.h"
#include "diagram/DiagramFeed.h"
#include "util/FileSource.h"

#include <functional>
#include <optional>
#include <span>
#include <string>
#include <utility>
#include <vector>

namespace kelvrum {

/// What a diagram shows beside its series.
struct DiagramSettings {
    std::string intervalCaption;                  // for example "10 Minuten"
    std::optional<AuxiliaryLines> auxiliaryLines; // as requested; each has yet to pass the validity test
};

/// Takes the starts and the values of consecutive intervals; both spans have the same length.
using ShowValues = std::function<void(std::span<const DateTime> starts, std::span<const double> values)>;

/// The readers. Files come from the opener and memory is kept from one reading to the next. Between pieces of
/// a long reading `step` is called; it may start another reading on the same reader if it gives up this one.
class DataReader {
  public:
    explicit DataReader(FileOpener open = openFile)
        : open_(std::move(open)) {}

    /// List reader: every interval, valid or not, in time order, delivered in batches.
    ReadStatus readList(const StationConfig& station, const ReadRequest& request,
                        const ShowValues& showValues, const ReadingStep& step);

    /// The series of a diagram: readDayDiagram or readDiagram, depending on the station's form.
    ReadStatus readSeries(const StationConfig& station, const ReadRequest& request,
                          const DiagramSettings& settings, DiagramFeed& diagram, const ReadingStep& step);

    /// Diagram reader: fills the shared table from the channel's file, and tells the diagram its headlines,
    /// unit, auxiliary lines, when requested, and the number of columns. A missing file gives none. A second
    /// channel of the request is averaged by its own mode on the same grid into row 2; a file that is missing
    /// or fails ends the values of its own channel alone.
    ReadStatus readDiagram(const StationConfig& station, const ReadRequest& request,
                           const DiagramSettings& settings, DiagramFeed& diagram, const ReadingStep& step);

    /// The same from the day files of the binary form: one pass, or means, minima and maxima as three
    /// passes for wide records. The second channel has its means, in the first pass.
    ReadStatus readDayDiagram(const StationConfig& station, const ReadRequest& request,
                              const DiagramSettings& settings, DiagramFeed& diagram, const ReadingStep& step);

    /// Polar reader: empties the diagram and adds a sample for each interval with a wind direction: the
    /// direction in degrees and the mean speed of the paired channel. Sets the headlines as the diagram
    /// reader does.
    ReadStatus readPolar(const StationConfig& station, const ReadRequest& request,
                         const DiagramSettings& settings, DiagramFeed& diagram, const ReadingStep& step);

    /// The rows of the day files for the data list; nothing when given up.
    std::optional<DayRows> readDayList(const StationConfig& station, const TimeRange& range,
                                       const ReadingStep& step);

  private:
    /// Averages the blocks piece by piece and passes them to `consume(first, values)`.
    template<typename Consume>
    ReadStatus averagePieces(BlockReader& blocks, std::int32_t mode, const ReadingStep& step,
                             Consume consume);

    /// Lays both channels of a request into the table; the number of columns, or nothing when given up.
    std::optional<std::size_t> fillPair(const StationConfig& station, const ReadRequest& request,
                                        const ReadingStep& step);

    /// The intervals of the second channel of a request, if it has one; nothing when given up. An error
    /// leaves it without values.
    [[nodiscard]] std::optional<std::vector<DayInterval>>
    readDaySeconds(const StationConfig& station, const ReadRequest& request, const ReadingStep& step) const;

    /// The average of each block, in memory that is kept.
    std::span<const double> averagesOf(const BlockRun& run, std::int32_t mode, std::vector<double>& memory);

    FileOpener open_;
    ReadBuffers buffers_;
    ReadBuffers secondBuffers_;
    std::vector<double> averages_;
    std::vector<double> secondAverages_;
    WindMeans winds_;
};

/// First headline: "Title - Name [Unit]".
std::string firstHeadline(const StationConfig& station, std::int32_t channel);

/// Second headline: "Subtitle - 10 Minuten Mittelwert".
std::string secondHeadline(const StationConfig& station, const std::string& intervalCaption);

} // namespace kelvrum
