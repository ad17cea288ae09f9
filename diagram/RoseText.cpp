// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/RoseText.h"

namespace kelvrum {

namespace {

std::string rangeOf(const RoseText& text) { return text.from + " " + text.to; }
std::string countsOf(const RoseText& text) { return text.intervals + " " + text.calms; }

} // namespace

RoseText roseText(const std::string& from, const std::string& to, const std::string& interval,
                  std::int64_t intervals, std::int64_t calms) {
    return {from,
            "bis " + to,
            "Intervall: " + interval,
            std::to_string(intervals) + (intervals == 1 ? " Intervall," : " Intervalle,"),
            "davon " + std::to_string(calms) + (calms == 1 ? " Kalme" : " Kalmen"),
            "Angaben in Prozent"};
}

std::vector<std::vector<std::string>> noteForms(const RoseText& text) {
    const std::string counts = countsOf(text);
    // Range and interval are left out first: the window's left column shows them too.
    return {{rangeOf(text), text.interval, counts, text.unit},
            {text.from, text.to, text.interval, counts, text.unit},
            {text.from, text.to, text.interval, text.intervals, text.calms, text.unit},
            {counts, text.unit},
            {text.unit, text.intervals, text.calms},
            {text.intervals, text.calms}};
}

std::string footLine(const RoseText& text) {
    return rangeOf(text) + ", " + text.interval + ", " + countsOf(text) + ". " + text.unit;
}

} // namespace kelvrum
