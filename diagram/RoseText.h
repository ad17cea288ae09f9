// SPDX-License-Identifier: GPL-3.0-or-later
// What a wind rose shows, in words: notes beside it and the foot of its page.
#pragma once

#include <cstdint>
#include <string>
#include <vector>

namespace kelvrum {

/// The parts of the text. Range, counts and unit read on from one part to the next.
struct RoseText {
    std::string from;      // "18.06.2020, 00:00 Uhr"
    std::string to;        // "bis 19.06.2020, 00:00 Uhr"
    std::string interval;  // "Intervall: 15 Minuten"
    std::string intervals; // "96 Intervalle,"
    std::string calms;     // "davon 3 Kalmen"
    std::string unit;      // "Angaben in Prozent"
};

/// The text of a rose of so many intervals and calms. `from`, `to` and `interval` are as they are shown.
RoseText roseText(const std::string& from, const std::string& to, const std::string& interval,
                  std::int64_t intervals, std::int64_t calms);

/// Notes, as lines, in shorter and shorter forms; the first form has everything.
std::vector<std::vector<std::string>> noteForms(const RoseText& text);

/// Everything in one line, for the foot of a page.
std::string footLine(const RoseText& text);

} // namespace kelvrum
