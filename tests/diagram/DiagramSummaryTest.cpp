// SPDX-License-Identifier: GPL-3.0-or-later
// The diagram as text.
#include "diagram/DiagramSummary.h"

#include "diagram/DiagramState.h"

#include <gtest/gtest.h>

namespace kelvrum {
namespace {

constexpr DateTime DAY = 44000; // 2020-06-18

class Summary : public ::testing::Test {
  protected:
    Summary() {
        control.initialise();
        control.Clear();
        control.setHeadLine("Station - Staub [µg/m³]");
        control.setHeadLine2("Köln - 1 Stunde Mittelwert");
        control.setEinheit("µg/m³");
        control.setXLow(DAY);
        control.setXHigh(DAY + 1);
    }
    ~Summary() override { control.Clear(); }

    [[nodiscard]] std::string summary(const LocaleTexts& texts) const {
        return diagramSummary(control.properties(), control.series(), control.sampleCount(), second, texts);
    }

    DiagramState control;
    std::optional<ReadoutSeries> second;
};

TEST_F(Summary, TitlesRangeAndValues) {
    control.AddData(DAY, 12);
    control.AddData(DAY + 1.0 / 24, NoValue);
    control.AddData(DAY + 2.0 / 24, 1e-300); // a measured zero
    control.AddData(DAY + 3.0 / 24, 30.256);
    control.AddData(DAY + 4.0 / 24, NoValue);
    EXPECT_EQ(
        summary({}),
        "Station - Staub [µg/m³]. Köln - 1 Stunde Mittelwert. Von 18.06.2020 00:00 bis 19.06.2020 00:00. "
        "3 Werte. Kleinster 0,0 µg/m³, größter 30,256 µg/m³, Mittel 14,085 µg/m³, "
        "letzter 30,256 µg/m³ am 18.06.2020 03:00.");
    EXPECT_NE(summary({".", "/", "mm/dd/yyyy"}).find("größter 30.256 µg/m³"), std::string::npos);
}

TEST_F(Summary, NothingToSee) {
    control.setHeadLine("");
    control.setHeadLine2("Ende.");
    const std::string range = "Von 18.06.2020 00:00 bis 19.06.2020 00:00. ";
    EXPECT_EQ(summary({}), "Ende. " + range + "Keine Werte.");
    control.AddData(DAY, NoValue);
    EXPECT_EQ(summary({}), "Ende. " + range + "Keine Werte.");
    control.setEinheit("");
    control.AddData(DAY, -2);
    EXPECT_EQ(summary({}),
              "Ende. " + range +
                  "1 Wert. Kleinster -2,0, größter -2,0, Mittel -2,0, letzter -2,0 am 18.06.2020 00:00.");
    control.SetArray(0);
    EXPECT_EQ(summary({}), "Ende. " + range + "Keine Werte.");
}

TEST_F(Summary, MinimaAndMaximaAreNotValuesOfTheirOwn) {
    for (const double v : {5.0, 1.0, 90.0}) { // means, minima, maxima
        control.AddData(DAY, v);
        control.AddData(DAY + 0.5, v + 2);
    }
    EXPECT_NE(summary({}).find("2 Werte. Kleinster 5,0 µg/m³, größter 7,0"), std::string::npos)
        << summary({});
}

TEST_F(Summary, ASecondSeriesHasItsOwnValues) {
    second = ReadoutSeries{"Wind", "m/s", false};
    control.AddData(DAY, 12, 3);
    control.AddData(DAY + 0.25, NoValue, 4);
    control.AddData(DAY + 0.5, 14);
    control.AddData(DAY, 90); // the maxima of the first one
    EXPECT_NE(summary({}).find(
                  "2 Werte. Kleinster 12,0 µg/m³, größter 14,0 µg/m³, Mittel 13,0 µg/m³, letzter 14,0 µg/m³ "
                  "am 18.06.2020 12:00. Zweiter Kanal: Wind. 2 Werte. Kleinster 3,0 m/s, größter 4,0 m/s, "
                  "Mittel 3,5 m/s, letzter 4,0 m/s am 18.06.2020 06:00."),
              std::string::npos)
        << summary({});
    control.SetArray(0);
    EXPECT_TRUE(summary({}).ends_with("Keine Werte. Zweiter Kanal: Wind. Keine Werte.")) << summary({});
}

TEST_F(Summary, OfAPolarDiagramTheSamples) {
    control.setDiagTyp(KIND_POLAR);
    control.AddItem(3, 1);
    control.AddItem(3, 2);
    EXPECT_EQ(summary({}), "Station - Staub [µg/m³]. Köln - 1 Stunde Mittelwert. Windrose, 2 Werte.");
}

TEST_F(Summary, OfAPolarDiagramWithoutOrWithOneSample) {
    control.setDiagTyp(KIND_POLAR);
    EXPECT_TRUE(summary({}).ends_with(" Windrose, keine Werte.")) << summary({});
    control.AddItem(3, 1);
    EXPECT_TRUE(summary({}).ends_with(" Windrose, 1 Wert.")) << summary({});
}

} // namespace
} // namespace kelvrum
