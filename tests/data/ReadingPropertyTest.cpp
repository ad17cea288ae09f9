// SPDX-License-Identifier: GPL-3.0-or-later
// Reading a range in two parts is reading it whole, wherever the parts meet.
#include "data/DataReader.h"

#include "tests/testing/FakeFiles.h"
#include "tests/testing/MadeMinutes.h"
#include "tests/testing/TempFolder.h"

#include <gtest/gtest.h>

#include <bit>
#include <ostream>

namespace kelvrum {
namespace {

using namespace kelvrum::testing;

constexpr std::array<std::int32_t, 8> INTERVALS = {1, 5, 7, 10, 15, 60, 1440, 4321};
constexpr int PIECE = 16 * 1024; // minutes; where pieces of a long reading meet

bool sameBits(double a, double b) {
    return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b);
}

/// A reading of two parts: `first` and `second` blocks of `interval` minutes from a minute on.
struct TwoParts {
    std::int32_t channel = 7;
    std::int32_t interval = 1;
    int start = 0;
    int first = 1;
    int second = 1;

    friend std::ostream& operator<<(std::ostream& out, const TwoParts& p) {
        return out << "channel " << p.channel << ", interval " << p.interval << ", from minute " << p.start
                   << ", " << p.first << " and " << p.second << " blocks";
    }
};

/// The border of the parts, or that of the whole, often lies close to one of pieces.
TwoParts madeParts(Numbers& numbers) {
    TwoParts parts;
    parts.channel = numbers.oneOf(std::array{7, 8});
    parts.interval = numbers.oneOf(INTERVALS);
    parts.start = numbers.oneIn(2) ? numbers.whole(0, 3000) : numbers.whole(0, 300'000);
    const int border = PIECE / parts.interval * numbers.whole(0, 2) + numbers.whole(-2, 2);
    parts.first = std::max(1, numbers.oneIn(3) ? numbers.whole(1, 200) : border);
    parts.second = numbers.oneIn(2) ? numbers.whole(1, 200) : std::max(1, PIECE / parts.interval);
    const int maxBlocks = 500'000 / parts.interval;
    parts.first = std::min(parts.first, std::max(1, (500'000 - parts.start) / parts.interval / 2));
    parts.second = std::min(parts.second, std::max(1, maxBlocks / 4));
    return parts;
}

std::vector<TwoParts> smallerParts(const TwoParts& parts) {
    std::vector<TwoParts> smaller;
    const auto each = [&](auto member) {
        for (const int n : smallerNumbers(parts.*member)) {
            TwoParts candidate = parts;
            candidate.*member = n;
            if (candidate.first > 0 && candidate.second > 0 && candidate.interval > 0) {
                smaller.push_back(candidate);
            }
        }
    };
    each(&TwoParts::start);
    each(&TwoParts::first);
    each(&TwoParts::second);
    each(&TwoParts::interval);
    return smaller;
}

class ReadingProperties : public ::testing::Test {
  protected:
    ReadingProperties() {
        station.DataFolder = "X:\\";
        station.ChannelTable.grow(7).Mode = MODE_MEAN;
        station.ChannelTable.grow(8).Mode = MODE_WIND_DIRECTION;
        station.ChannelTable.grow(8).PairedChannel = 4;
        lay("X:\\Kanal07_2020.chn", 380'000);
        lay("X:\\Kanal08_2020.chn", 400'000);
        lay("X:\\Kanal04_2020.chn", 390'123);
    }

    void lay(const std::string& path, std::size_t count) {
        Numbers numbers(count);
        std::vector<double> minutes(count);
        for (double& v : minutes) {
            v = numbers.oneIn(9) ? madeMinute(numbers) : numbers.between(1, 359);
        }
        files[path].bytes = channelFile(minutes);
    }

    std::vector<IntervalValue> read(const TwoParts& parts, int block, int blocks) {
        const auto minute = [](int m) { return dateSerial(2020, 1, 1) + m / 1440.0; };
        const int from = parts.start + block * parts.interval;
        const TimeRange range = {minute(from), minute(from + blocks * parts.interval)};
        std::vector<IntervalValue> rows;
        reader.readList(station, {parts.channel, "", range, parts.interval},
                        [&rows](std::span<const DateTime> starts, std::span<const double> values) {
                            for (std::size_t i = 0; i < values.size(); ++i) {
                                rows.push_back({starts[i], values[i]});
                            }
                        },
                        {});
        return rows;
    }

    FakeFiles files;
    StationConfig station;
    DataReader reader{files.opener()};
};

TEST_F(ReadingProperties, ReadingTwoPartsIsReadingTheWhole) {
    const auto check = [this](const TwoParts& parts) -> std::string {
        const auto whole = read(parts, 0, parts.first + parts.second);
        auto pieces = read(parts, 0, parts.first);
        const auto rest = read(parts, parts.first, parts.second);
        pieces.insert(pieces.end(), rest.begin(), rest.end());
        if (whole.size() != pieces.size()) {
            return "the whole has " + std::to_string(whole.size()) + " values, the parts have " +
                   std::to_string(pieces.size());
        }
        for (std::size_t i = 0; i < whole.size(); ++i) {
            if (!sameBits(whole[i].value, pieces[i].value)) {
                return "value " + std::to_string(i) +
                       " differs: " + textOf({whole[i].value, pieces[i].value});
            }
            if (std::fabs(whole[i].start - pieces[i].start) > 1e-8) {
                return "time " + std::to_string(i) + " differs";
            }
        }
        return {};
    };
    EXPECT_EQ(forAll(1, 60, madeParts, smallerParts, check), "");
}

} // namespace
} // namespace kelvrum
