// SPDX-License-Identifier: GPL-3.0-or-later
// What a wind rose shows, in words: all forms of its notes, and the foot of its page.
#include "diagram/RoseText.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace kelvrum {

namespace {

using Lines = std::vector<std::string>;

const RoseText DAY = roseText("18.06.2020, 00:00 Uhr", "19.06.2020, 00:00 Uhr", "15 Minuten", 96, 3);

TEST(RoseText, NotesGetShorter) {
    const std::vector<Lines> expected = {
        {"18.06.2020, 00:00 Uhr bis 19.06.2020, 00:00 Uhr", "Intervall: 15 Minuten",
         "96 Intervalle, davon 3 Kalmen", "Angaben in Prozent"},
        {"18.06.2020, 00:00 Uhr", "bis 19.06.2020, 00:00 Uhr", "Intervall: 15 Minuten",
         "96 Intervalle, davon 3 Kalmen", "Angaben in Prozent"},
        {"18.06.2020, 00:00 Uhr", "bis 19.06.2020, 00:00 Uhr", "Intervall: 15 Minuten", "96 Intervalle,",
         "davon 3 Kalmen", "Angaben in Prozent"},
        {"96 Intervalle, davon 3 Kalmen", "Angaben in Prozent"},
        {"Angaben in Prozent", "96 Intervalle,", "davon 3 Kalmen"},
        {"96 Intervalle,", "davon 3 Kalmen"}};
    EXPECT_EQ(noteForms(DAY), expected);
}

TEST(RoseText, TheFootIsOneLine) {
    EXPECT_EQ(footLine(DAY), "18.06.2020, 00:00 Uhr bis 19.06.2020, 00:00 Uhr, Intervall: 15 Minuten, "
                             "96 Intervalle, davon 3 Kalmen. Angaben in Prozent");
}

TEST(RoseText, OneAndNone) {
    EXPECT_EQ(noteForms(roseText("a", "b", "c", 1, 1)).back(), (Lines{"1 Intervall,", "davon 1 Kalme"}));
    EXPECT_EQ(noteForms(roseText("a", "b", "c", 0, 0)).back(), (Lines{"0 Intervalle,", "davon 0 Kalmen"}));
}

} // namespace

} // namespace kelvrum
