// SPDX-License-Identifier: GPL-3.0-or-later
// An evaluation as the user reads, copies and prints it.
#include "evaluation/EvaluationText.h"

#include "evaluation/EvaluationFigures.h"
#include "tests/evaluation/MadeReadings.h"

#include <gtest/gtest.h>

#include <map>
#include <string>

namespace kelvrum {
namespace {

using namespace kelvrum::testing;

const EvaluationSubject DUST{"Deponie Süd", "Staub PM10", "µg/m³", "", "1 Stunde", false};
const EvaluationSubject WIND{"Deponie Süd", "Windrichtung", "Grad", "m/s", "1 Stunde", false};

std::map<std::string, std::string> summaryOf(const EvaluationText& text) {
    std::map<std::string, std::string> summary;
    for (const EvaluationEntry& entry : text.summary) {
        EXPECT_TRUE(summary.emplace(entry.label, entry.value).second) << entry.label;
    }
    return summary;
}

TEST(EvaluationFigures, DecimalsFollowTheGreatestValue) {
    struct Row {
        double greatest;
        double v;
        const char* text;
    };
    const Row rows[] = {
        {0, 0, "0,00"},
        {87.34, 87.34, "87,34"},
        {5.1234, 5.1234, "5,123"},
        {1013.25, 1013.25, "1013,25"},
        {0.0123456, 0.01, "0,01000"},
        {45000, 45000, "45000,00"},
        {9e7, -9e7, "-90000000,00"},
        {1e-30, 0, "0,000000000000000"},
    };
    for (const Row& row : rows) {
        EXPECT_EQ(EvaluationFigures(row.greatest, "", {}).number(row.v), row.text) << row.greatest;
    }
    EXPECT_EQ(EvaluationFigures(1, "mg", {}).value(std::nullopt), "–");
    EXPECT_EQ(EvaluationFigures(1, "mg", {}).limit(0.05), "0,05 mg");
    EXPECT_EQ(EvaluationFigures(1, "", {}).limit(50), "50");
}

TEST(EvaluationFigures, Durations) {
    struct Row {
        std::int64_t minutes;
        const char* text;
    };
    const Row rows[] = {
        {0, "0 min"},        {59, "59 min"},           {60, "1 h"},      {61, "1 h 1 min"}, {1440, "1 d"},
        {1441, "1 d 1 min"}, {4575, "3 d 4 h 15 min"}, {525600, "365 d"}};
    for (const Row& row : rows) {
        EXPECT_EQ(EvaluationFigures::duration(row.minutes), row.text);
    }
}

TEST(EvaluationText, SummaryOfValuesWithOneLimit) {
    EvaluationRequest request = requestOf(6);
    request.limits[0] = 50;
    const EvaluationText text =
        evaluationText(evaluate(request, readingOf({10, NONE, 60, 70, 50, 20})), DUST, {});
    EXPECT_EQ(text.title, "Auswertung: Staub PM10, 15.06.2026 00:00 bis 15.06.2026 06:00, 1 Stunde");
    EXPECT_EQ(text.limits, "Ausgewertet mit Grenzwert 1: 50 µg/m³.");
    EXPECT_EQ(text.foot,
              "Zeit: Beginn des Intervalls, ohne Sommerzeit. Gespeicherte Nullen gelten als fehlend.");
    const auto summary = summaryOf(text);
    const std::map<std::string, std::string> expected = {
        {"Intervalle", "6"},
        {"mit Wert", "5"},
        {"ohne Wert", "1"},
        {"Verfügbarkeit", "83,33 %"},
        {"vorhandene Minuten", "300 von 360 (83,33 %)"},
        {"Intervalle mit weniger als 75 % der Minuten", "1"},
        {"längster Ausfall", "1 h ab 15.06.2026 01:00"},
        {"erster Wert", "10,00 µg/m³ am 15.06.2026 00:00"},
        {"letzter Wert", "20,00 µg/m³ am 15.06.2026 05:00"},
        {"Minimum", "10,00 µg/m³ am 15.06.2026 00:00"},
        {"Maximum", "70,00 µg/m³ am 15.06.2026 03:00"},
        {"Mittelwert", "42,00 µg/m³"},
        {"Standardabweichung", "25,88 µg/m³"},
        {"Median", "50,00 µg/m³"},
        {"5. Perzentil", "12,00 µg/m³"},
        {"95. Perzentil", "68,00 µg/m³"},
        {"98. Perzentil", "69,20 µg/m³"},
        {"über Grenzwert 1", "2 Intervalle, 40,00 %, 2 h"},
        {"unter Grenzwert 1", "2 Intervalle, 40,00 %, 2 h"},
        {"Episoden über Grenzwert 1", "1"},
        {"längste Episode über Grenzwert 1", "15.06.2026 02:00 bis 15.06.2026 04:00"},
        {"Maximum dieser Episode (Grenzwert 1)", "70,00 µg/m³ am 15.06.2026 03:00"},
        {"Tage über Grenzwert 1", "1"},
    };
    EXPECT_EQ(summary, expected);
    ASSERT_EQ(text.tables.size(), 1U);
    EXPECT_EQ(text.tables[0].title, "Nach Stunden");
    EXPECT_EQ(text.tables[0].header,
              (std::vector<std::string>{"Stunde", "Intervalle", "mit Wert", "Minuten in %", "Minimum [µg/m³]",
                                        "Mittelwert [µg/m³]", "Maximum [µg/m³]", "über Grenzwert 1"}));
    EXPECT_EQ(text.tables[0].rows[1],
              (std::vector<std::string>{"15.06.2026 01:00", "1", "0", "0,00", "–", "–", "–", "0"}));
    EXPECT_EQ(text.tables[0].rows[2], (std::vector<std::string>{"15.06.2026 02:00", "1", "1", "100,00",
                                                                "60,00", "60,00", "60,00", "1"}));
}

TEST(EvaluationText, EvaluatedIntervalsAreSomeOfThoseWithValue) {
    EvaluationRequest request = requestOf(4);
    request.onlyCovered = true;
    auto reading = readingOf({10, NONE, 60, 70});
    reading.back().present = 30;
    const EvaluationText text = evaluationText(evaluate(request, reading), DUST, {});
    EXPECT_TRUE(tabSeparated(text).starts_with(
        text.title + "\n\nIntervalle\t4\nmit Wert\t3\ndavon ausgewertet\t2\nohne Wert\t1\nVerfügbarkeit\t"));
}

TEST(EvaluationText, NothingReadIsNoNonsense) {
    EvaluationRequest request = requestOf(0);
    request.limits = {50, 60};
    const auto summary = summaryOf(evaluationText(evaluate(request, {}), DUST, {}));
    for (const char* label : {"Verfügbarkeit", "vorhandene Minuten", "längster Ausfall", "erster Wert",
                              "letzter Wert", "Minimum", "Maximum", "Mittelwert", "Standardabweichung",
                              "Median", "5. Perzentil", "längste Episode über Grenzwert 2"}) {
        EXPECT_EQ(summary.at(label), "–") << label;
    }
    EXPECT_EQ(summary.at("über Grenzwert 1"), "0 Intervalle, –, 0 min");
}

TEST(EvaluationText, Sums) {
    EvaluationRequest request = requestOf(3 * 24);
    request.kind = EvaluatedKind::sum;
    const EvaluationText text = evaluationText(evaluate(request, readingOf({1.5, NONE, 2})), DUST, {});
    const auto summary = summaryOf(text);
    EXPECT_EQ(summary.at("Verfügbarkeit"), "–");
    EXPECT_EQ(summary.at("Summe"), "3,500 µg/m³");
    EXPECT_EQ(text.limits, "Ausgewertet ohne Grenzwerte.");
    EXPECT_EQ(text.tables[0].title, "Nach Tagen");
    EXPECT_EQ(text.tables[0].header[5], "Summe [µg/m³]");
    EXPECT_EQ(text.tables[0].rows[0][0], "15.06.2026");
}

TEST(EvaluationText, Directions) {
    EvaluationRequest request = requestOf(63 * 24);
    request.kind = EvaluatedKind::direction;
    request.limits[0] = 50;
    const EvaluationText text =
        evaluationText(evaluate(request, windOf({{90, 3}, {90, 0.2}, {360, 12}, {90, 2}})), WIND, {});
    const auto summary = summaryOf(text);
    EXPECT_EQ(summary.at("mittlere Richtung, gewichtet"), "23,4°");
    EXPECT_EQ(summary.at("mittlere Richtung, ungewichtet"), "71,6°");
    EXPECT_EQ(summary.at("Beständigkeit"), "0,76");
    EXPECT_EQ(summary.at("Windstille (unter 0,5 m/s)"), "25,00 %");
    EXPECT_EQ(summary.at("erster Wert"), "90,0° am 15.06.2026 00:00");
    EXPECT_FALSE(summary.contains("Minimum"));
    EXPECT_EQ(text.limits, "Für Windrichtungen gelten keine Grenzwerte.");
    ASSERT_EQ(text.tables.size(), 2U);
    EXPECT_EQ(text.tables[0].title, "Anteile in % nach Richtung und Geschwindigkeit [m/s]");
    EXPECT_EQ(text.tables[0].header, (std::vector<std::string>{"Richtung", "0,5–2", "2–4", "4–6", "6–8",
                                                               "8–10", "ab 10", "gesamt"}));
    EXPECT_EQ(text.tables[0].rows[3], (std::vector<std::string>{"90° (O)", "0,00", "50,00", "0,00", "0,00",
                                                                "0,00", "0,00", "50,00"}));
    EXPECT_EQ(text.tables[0].rows[12],
              (std::vector<std::string>{"Windstille", "", "", "", "", "", "", "25,00"}));
    EXPECT_EQ(text.tables[1].title, "Nach Monaten");
    EXPECT_EQ(text.tables[1].header, (std::vector<std::string>{"Monat", "Intervalle", "mit Wert",
                                                               "Minuten in %", "mittlere Richtung [°]"}));
    EXPECT_EQ(text.tables[1].rows[0], (std::vector<std::string>{"06.2026", "384", "4", "1,04", "23,4"}));
}

TEST(EvaluationText, WideRecordsHaveTheirExtremesInRowsOfTheirOwn) {
    EvaluationSubject subject = DUST;
    subject.wideRecords = true;
    auto reading = readingOf({5});
    reading[0].minimum = 2;
    const auto summary = summaryOf(evaluationText(evaluate(requestOf(1), reading), subject, {}));
    EXPECT_EQ(summary.at("kleinstes Minimum"), "2,000 µg/m³ am 15.06.2026 00:00");
    EXPECT_EQ(summary.at("größtes Maximum"), "–");
    EXPECT_EQ(summary.at("Minimum"), "5,000 µg/m³ am 15.06.2026 00:00");
}

TEST(EvaluationText, TheLocaleIsTheUsers) {
    const LocaleTexts english{".", "/", "mm/dd/yyyy"};
    const EvaluationText text = evaluationText(evaluationOf({1.5, 2}), DUST, english);
    EXPECT_EQ(summaryOf(text).at("Minimum"), "1.500 µg/m³ am 06/15/2026 00:00");
}

TEST(EvaluationText, TabSeparatedForASpreadsheet) {
    EvaluationRequest request = requestOf(1);
    request.limits = {50, 0.5};
    const std::string text = tabSeparated(evaluationText(evaluate(request, readingOf({10})), DUST, {}));
    EXPECT_TRUE(text.starts_with("Auswertung: Staub PM10, 15.06.2026 00:00 bis 15.06.2026 01:00, 1 Stunde\n\n"
                                 "Intervalle\t1\nmit Wert\t1\nohne Wert\t0\nVerfügbarkeit\t100,00 %\n"));
    EXPECT_NE(
        text.find("\nAusgewertet mit Grenzwert 1: 50 µg/m³ und Grenzwert 2: 0,5 µg/m³.\n\nNach Stunden\n"
                  "Stunde\tIntervalle\tmit Wert\t"),
        std::string::npos);
    EXPECT_TRUE(
        text.ends_with("\n15.06.2026 00:00\t1\t1\t100,00\t10,00\t10,00\t10,00\t0\t1\n\nZeit: Beginn des "
                       "Intervalls, ohne Sommerzeit. Gespeicherte Nullen gelten als fehlend.\n"));
}

} // namespace
} // namespace kelvrum
