// SPDX-License-Identifier: GPL-3.0-or-later
// What the reader shows after a correction is the source times the factor, and nothing else has changed.
#include "correction/Recalculation.h"

#include "data/DataReader.h"
#include "tests/correction/YearFiles.h"
#include "tests/testing/Property.h"
#include "util/Validity.h"

#include <gtest/gtest.h>

#include <bit>
#include <ostream>

namespace kelvrum {
namespace {

using namespace kelvrum::testing;

/// A correction on the first minutes of a year.
struct Case {
    CorrectionMode mode = CorrectionMode::dust;
    int sourceMinutes = 0;
    int otherMinutes = 0; // of the second source
    int targetMinutes = 0;
    int first = 0; // of the range
    int last = 0;
    double factor = 1;

    friend std::ostream& operator<<(std::ostream& out, const Case& c) {
        out.precision(17);
        return out << (c.mode == CorrectionMode::wind ? "wind, " : "dust, ") << c.sourceMinutes << " and "
                   << c.otherMinutes << " minutes of sources, " << c.targetMinutes
                   << " of the target, minutes " << c.first << " to " << c.last << " times " << c.factor;
    }
};

Case madeCase(Numbers& numbers) {
    Case c;
    c.mode = numbers.oneIn(2) ? CorrectionMode::dust : CorrectionMode::wind;
    c.sourceMinutes = numbers.whole(0, 300);
    c.otherMinutes = numbers.oneIn(2) ? c.sourceMinutes : numbers.whole(0, 300);
    c.targetMinutes = numbers.oneIn(4) ? 0 : numbers.whole(0, 300);
    c.first = numbers.whole(0, 200);
    c.last = c.first + numbers.whole(0, 200);
    c.factor = numbers.oneOf(std::array{0.0, 1.0, -2.5, 1e-9, 1e9, numbers.between(-3, 3)});
    return c;
}

std::vector<Case> smallerCases(const Case& c) {
    std::vector<Case> smaller;
    const auto each = [&](auto member) {
        for (const auto v : smallerNumbers(c.*member)) {
            smaller.push_back(c);
            smaller.back().*member = v;
        }
    };
    each(&Case::first);
    each(&Case::last);
    each(&Case::sourceMinutes);
    each(&Case::otherMinutes);
    each(&Case::targetMinutes);
    each(&Case::factor);
    std::erase_if(smaller, [](const Case& s) { return s.last < s.first; });
    return smaller;
}

constexpr int YEAR = 2021;

/// What the reader shows of the first minutes of a channel, minute by minute.
std::vector<double> shown(const YearFiles& laid, std::int32_t channel) {
    constexpr int MINUTES = 500;
    std::vector<double> values;
    DataReader reader;
    reader.readList(laid.station, {channel, {}, between({YEAR, 1, 1, 0, 0}, {YEAR, 1, 1, 8, 20}), 1},
                    [&values](std::span<const DateTime> /*starts*/, std::span<const double> more) {
                        values.insert(values.end(), more.begin(), more.end());
                    },
                    {});
    values.resize(MINUTES, INVALID_VALUE);
    return values;
}

/// A raw minute of a source file; nothing where it has none.
std::optional<double> rawMinute(int channel, int minutes, int minute) {
    return minute < minutes ? std::optional(madeValue(channel, YEAR, minute)) : std::nullopt;
}

TEST(CorrectionProperties, TheReaderShowsSourceTimesFactorAfterwards) {
    int corrections = 0;
    const auto check = [&corrections](const Case& c) -> std::string {
        const bool wind = c.mode == CorrectionMode::wind;
        const int source = wind ? 4 : 7;
        const int target = wind ? 6 : 15;
        YearFiles laid;
        for (const int channel : {source, target}) {
            laid.station.ChannelTable.grow(channel).Mode = MODE_MEAN;
        }
        laid.lay(source, YEAR, c.sourceMinutes);
        if (wind) {
            laid.lay(5, YEAR, c.otherMinutes);
        }
        if (c.targetMinutes > 0) {
            laid.lay(target, YEAR, c.targetMinutes);
        }
        const std::vector<double> before = shown(laid, target);
        const auto minute = [](int m) { return dateSerial(YEAR, 1, 1) + m / 1440.0; };
        if (const auto message =
                recalculate(laid.station, {c.mode, {minute(c.first), minute(c.last)}, c.factor})) {
            return *message;
        }
        const std::vector<double> after = shown(laid, target);
        for (int m = 0; m < static_cast<int>(after.size()); ++m) {
            const auto i = static_cast<std::size_t>(m);
            const auto a = rawMinute(source, c.sourceMinutes, m);
            const auto b = wind ? rawMinute(5, c.otherMinutes, m) : std::optional(1.0);
            double expected = before[i];
            if (m >= c.first && m <= c.last && a && b) {
                const double product = *a == 0 || *b == 0 ? 0 : wind ? *a * *b * c.factor : *a * c.factor;
                expected = isPresent(product) ? product : INVALID_VALUE;
                ++corrections;
            }
            if (std::bit_cast<std::uint64_t>(after[i]) != std::bit_cast<std::uint64_t>(expected)) {
                return "minute " + std::to_string(m) + " shows " + std::to_string(after[i]) + " instead of " +
                       std::to_string(expected);
            }
        }
        return {};
    };
    EXPECT_EQ(forAll(1, 200, madeCase, smallerCases, check), "");
    EXPECT_GT(corrections, 0);
}

} // namespace
} // namespace kelvrum
