// SPDX-License-Identifier: GPL-3.0-or-later
// The gap rules of a series, and that it shows what the list shows.
#include "data/DataReader.h"

#include "diagram/DiagramState.h"
#include "diagram/SeriesTable.h"
#include "tests/testing/FakeFiles.h"
#include "tests/testing/MadeMinutes.h"
#include "tests/testing/TempFolder.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <iterator>
#include <utility>

namespace kelvrum {
namespace {

using namespace kelvrum::testing;

/// What is wrong with a series; empty when the gap rules hold.
std::string gapFinding(std::size_t count) {
    bool previous = true; // a gap at the start counts as a second one in a row
    for (std::size_t i = 0; i < count; ++i) {
        const bool gap = seriesTable().row(SeriesTable::Y1)[i] == INVALID_VALUE;
        if (gap && previous) {
            return i == 0 ? "a gap at the start" : "two gaps at column " + std::to_string(i);
        }
        previous = gap;
    }
    return {};
}

TEST(SeriesProperties, NoTwoGapColumnsInARowAndNoneAtTheStart) {
    const auto generate = [](Numbers& numbers) {
        std::vector<double> minutes(numbers.below(400));
        const int gaps = numbers.oneOf(std::array{2, 5, 50});
        const bool runs = numbers.oneIn(2);
        bool missing = false;
        for (double& v : minutes) {
            missing = numbers.oneIn(gaps) ? !missing : runs && missing;
            v = missing ? numbers.oneOf(std::array{0.0, INVALID_VALUE, std::nan("")}) : numbers.between(1, 9);
        }
        return minutes;
    };
    const auto check = [](const std::vector<double>& minutes) -> std::string {
        for (const std::int32_t interval : {1, 5}) {
            FakeFiles files;
            files["X:\\Kanal07_2020.chn"].bytes = channelFile(minutes);
            StationConfig station;
            station.DataFolder = "X:\\";
            station.ChannelTable.grow(7).Mode = MODE_MEAN;
            DataReader reader(files.opener());
            const DateTime start = dateSerial(2020, 1, 1);
            const ReadRequest request = {7, "", {start, start + 1}, interval};
            DiagramState diagram;
            reader.readDiagram(station, request, {}, diagram, {});
            std::string finding = gapFinding(static_cast<std::size_t>(diagram.DataCount()));
            if (!finding.empty()) {
                return finding + " of " + textOf(minutes);
            }
            // Without the gaps it is the list, value by value.
            std::vector<double> listed;
            reader.readList(station, request,
                            [&listed](std::span<const DateTime> /*starts*/, std::span<const double> more) {
                                std::copy_if(more.begin(), more.end(), std::back_inserter(listed),
                                             [](double value) { return value != INVALID_VALUE; });
                            },
                            {});
            std::vector<double> drawn;
            for (int i = 0; i < diagram.DataCount(); ++i) {
                const double v = seriesTable().row(SeriesTable::Y1)[static_cast<std::size_t>(i)];
                if (v != INVALID_VALUE) {
                    drawn.push_back(v);
                }
            }
            if (drawn != listed) {
                return "list and diagram differ for " + textOf(minutes);
            }
        }
        return {};
    };
    EXPECT_EQ(forAll(5, 400, generate, smallerMinutes, check), "");
}

/// Minutes of a day that have a record, with its value.
using DayMinutes = std::vector<std::pair<int, float>>;

TEST(SeriesProperties, NoTwoGapColumnsInADiagramOfDayFiles) {
    const auto generate = [](Numbers& numbers) {
        DayMinutes minutes;
        const int step = numbers.oneOf(std::array{1, 7, 300});
        for (int m = numbers.whole(0, step); m < 1440; m += numbers.whole(1, step)) {
            minutes.emplace_back(m, numbers.oneIn(3) ? 0.0F : static_cast<float>(numbers.between(1, 9)));
        }
        return minutes;
    };
    const auto shrink = [](const DayMinutes& minutes) {
        return smallerLists(minutes, [](const std::pair<int, float>&) { return DayMinutes(); });
    };
    int columns = 0;
    const auto check = [&columns](const DayMinutes& minutes) -> std::string {
        for (const bool wide : {false, true}) {
            std::string bytes;
            std::string text;
            for (const auto& [minute, value] : minutes) {
                const std::array<float, 3> fields = {value, value - 1, value + 1};
                bytes += dayRecord(2020, 6, 18, minute, std::span(fields).first(wide ? 3 : 1));
                text.append(" ").append(std::to_string(minute)).append("=").append(std::to_string(value));
            }
            const TempFolder folder;
            folder.write("20200618.KMH", bytes);
            StationConfig station;
            station.Kind = ConfigKind::binary;
            station.BaseFolder = folder.base();
            station.WideRecords = wide;
            station.ActiveChannels = {1};
            station.ChannelTable.grow(1).Mode = MODE_MEAN;
            DataReader reader;
            DiagramState diagram;
            const DateTime day = dateSerial(2020, 6, 18);
            for (const std::int32_t interval : {1, 10, 60}) {
                reader.readDayDiagram(station, {1, "", {day, day + 1}, interval}, {}, diagram, {});
                columns += diagram.DataCount();
                const std::string finding = gapFinding(static_cast<std::size_t>(diagram.DataCount()));
                if (!finding.empty()) {
                    return finding + ", interval " + std::to_string(interval) +
                           (wide ? ", wide" : ", narrow") + text;
                }
            }
        }
        return {};
    };
    EXPECT_EQ(forAll(6, 100, generate, shrink, check), "");
    EXPECT_GT(columns, 0);
}

} // namespace
} // namespace kelvrum
