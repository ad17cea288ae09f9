// SPDX-License-Identifier: GPL-3.0-or-later
// The hint at the foot of a plot.
#include "data/ViewHints.h"

#include <gtest/gtest.h>

#include <cmath>

namespace kelvrum {
namespace {

DateTime at(const char* text) { return parseDateTime(text).value(); }

TEST(CutAtNewYear, TellsWhatIsReallyRead) {
    struct Row {
        const char *from, *to;
        const char* end; // nullptr: the whole range is read
    };
    const Row rows[] = {
        {"18.06.2020", "19.06.2020", nullptr},
        {"01.12.2020", "01.01.2021 00:00", nullptr}, // nothing is lost
        {"01.12.2020", "01.01.2021 00:01", "01.01.2021"},
        {"31.12.2020 12:00", "02.01.2021 12:00", "01.01.2021"},
        {"01.01.2020", "01.01.2022", "01.01.2021"}, // a whole year is lost
        // An end with a later minute of the year than the start's ends the reading in the start's year.
        {"01.06.2019", "01.07.2020", "02.07.2019"}, // 2020 has a day more before July
        {"01.02.2020", "01.03.2021", "29.02.2020"}, // and 2021 one less before March
        {"01.01.2019", "31.12.2020 12:00", "01.01.2020 12:00"},
        {"18.06.2020", "18.06.2020", nullptr},
        {"18.06.2021", "18.06.2020", nullptr}, // reads backward: nothing is cut
    };
    for (const Row& row : rows) {
        const auto cut = cutAtNewYear({at(row.from), at(row.to)});
        ASSERT_EQ(cut.has_value(), row.end != nullptr) << row.from << " " << row.to;
        if (cut) {
            EXPECT_EQ(cut->from, at(row.from));
            EXPECT_NEAR(cut->to, at(row.end), 1e-9) << row.from << " " << row.to;
        }
    }
}

/// Ends that were computed in another way may differ in the last bits of their doubles.
TEST(CutAtNewYear, TheEndCountsByItsMinute) {
    const DateTime newYear = at("01.01.2021");
    for (const DateTime end : {newYear, std::nextafter(newYear, 0), std::nextafter(newYear, 1e9)}) {
        EXPECT_FALSE(cutAtNewYear({at("01.12.2020"), end})) << end - newYear;
    }
}

TEST(ViewHint, TheFirstThatAppliesIsShown) {
    ViewFacts facts;
    facts.range = {at("18.06.2020"), at("19.06.2020")};
    EXPECT_EQ(viewHint(facts, {}), "");

    facts.allOutside = true;
    EXPECT_EQ(viewHint(facts, {}), "Alle Werte liegen außerhalb der Skala (Automatisch: Alt+A)");
    facts.hasValues = false;
    EXPECT_EQ(viewHint(facts, {}), "Keine Werte im Zeitraum"); // the channel's files are empty
    facts.lastStored = at("18.06.2026 07:15");
    EXPECT_EQ(viewHint(facts, {}),
              "Keine Werte im Zeitraum. Letzter Wert: 18.06.2026 07:15 (im Diagramm: Strg+Ende)");
    facts.range.to = at("02.01.2021 12:00");
    EXPECT_EQ(viewHint(facts, {}),
              "Der Zeitraum reicht über den Jahreswechsel: gezeigt wird 18.06.2020 00:00 "
              "bis 01.01.2021 00:00");
    facts.dayFiles = true; // they go on over New Year
    EXPECT_EQ(viewHint(facts, {}).substr(0, 23), "Keine Werte im Zeitraum");
    facts.hasFile = false;
    EXPECT_EQ(viewHint(facts, {}), "Der Kanal hat noch keine Datei");
}

TEST(ViewHint, TimesAreThoseOfTheList) {
    ViewFacts facts;
    facts.range = {at("18.06.2020"), at("19.06.2020")};
    facts.hasValues = false;
    facts.lastStored = at("18.06.2026 07:15");
    LocaleTexts iso;
    iso.shortDate = "yyyy-mm-dd";
    EXPECT_EQ(viewHint(facts, iso),
              "Keine Werte im Zeitraum. Letzter Wert: 2026-06-18 07:15 (im Diagramm: Strg+Ende)");
}

} // namespace
} // namespace kelvrum
