// SPDX-License-Identifier: GPL-3.0-or-later
// Values as tab-separated text.
#include "diagram/CopiedText.h"

#include <gtest/gtest.h>
#include <vector>

namespace kelvrum {
namespace {

constexpr double GAP = 99999900;
const DateTime DAY = parseDateTime("18.06.2020").value();
const ReadoutSeries DUST{"Staub", "µg/m³", false};
const ReadoutSeries WIND{"Windrichtung", "Grad", true};
const ReadoutSeries SPEED{"Windgeschwindigkeit", "m/s", false};

SeriesReader readerOf(const std::vector<double>& times, const std::vector<double>& y1,
                      const std::vector<double>& y2) {
    return {Series{times, y1, y2}, DAY, 1.0 / 24};
}

TEST(CopiedSeries, TimesAndValues) {
    const std::vector<double> times = {DAY, DAY + 1.0 / 24, DAY + 2.0 / 24, DAY + 5.0 / 24};
    const std::vector<double> y1 = {1.5, 1e-300, GAP, -3};
    const std::vector<double> none(4, GAP);
    EXPECT_EQ(copiedSeries(readerOf(times, y1, none), DUST, {}, {}),
              "Zeit: Beginn des Intervalls, ohne Sommerzeit\n"
              "Zeit\tStaub Wert [µg/m³]\n"
              "18.06.2020 00:00\t1,5\n"
              "18.06.2020 01:00\t0\n"
              "18.06.2020 05:00\t-3\n");
    EXPECT_EQ(copiedSeries(SeriesReader(), {}, {}, {}),
              "Zeit: Beginn des Intervalls, ohne Sommerzeit\nZeit\tWert\n");
}

TEST(CopiedSeries, TheSecondSeriesHasItsOwnGaps) {
    const std::vector<double> times = {DAY, DAY + 1.0 / 24, DAY + 2.0 / 24};
    EXPECT_EQ(copiedSeries(readerOf(times, {1, GAP, 3}, {90, 180, GAP}), DUST, WIND, {}),
              "Zeit: Beginn des Intervalls, ohne Sommerzeit\n"
              "Zeit\tStaub Wert [µg/m³]\tWindrichtung Wert [Grad]\n"
              "18.06.2020 00:00\t1\t90\n"
              "18.06.2020 01:00\t\t180\n"
              "18.06.2020 02:00\t3\t\n");
}

TEST(CopiedSeries, PassesAreBesideTheMeans) {
    const std::vector<double> times = {DAY, DAY + 1.0 / 24, DAY, DAY + 1.0 / 24, DAY, DAY + 1.0 / 24};
    const std::vector<double> none(6, GAP);
    EXPECT_EQ(copiedSeries(readerOf(times, {2, 3, 1, GAP, 5, 6}, none), DUST, {}, {}),
              "Zeit: Beginn des Intervalls, ohne Sommerzeit\n"
              "Zeit\tStaub Wert [µg/m³]\tMinimum [µg/m³]\tMaximum [µg/m³]\n"
              "18.06.2020 00:00\t2\t1\t5\n"
              "18.06.2020 01:00\t3\t\t6\n");
}

TEST(CopiedSamples, DegreesAndSpeeds) {
    const double radians = 337.5 * DEGREES_TO_RADIANS;
    EXPECT_EQ(copiedSamples(std::vector{radians, 0.0}, std::vector{4.25, 0.1}, WIND, SPEED, {}),
              "Windrichtung Wert [Grad]\tWindgeschwindigkeit Wert [m/s]\n337,5\t4,25\n0\t0,1\n");
}

} // namespace
} // namespace kelvrum
