// SPDX-License-Identifier: GPL-3.0-or-later
#include "data/ViewHints.h"

#include "data/ChannelFiles.h"
#include "data/ChannelMinutes.h"

namespace kelvrum {

std::optional<TimeRange> cutAtNewYear(const TimeRange& range) {
    const int year = calendarTime(range.from).year;
    const bool crosses = range.to > range.from && calendarTime(range.to).year > year;
    if (!crosses || !isDate(year + 1, 1, 1) ||
        minuteNumber(range.to) == minuteNumber(dateSerial(year + 1, 1, 1))) {
        return std::nullopt;
    }
    // The end counts by its minute of the year: a later one than the start's ends the reading already.
    const std::int64_t end = MinuteIndex(range.to) > MinuteIndex(range.from)
                                 ? std::int64_t{MinuteIndex(range.to)}
                                 : minutesOfYear(year);
    return TimeRange{range.from, addMinutes(dateSerial(year, 1, 1), end)};
}

std::string viewHint(const ViewFacts& facts, const LocaleTexts& texts) {
    if (!facts.hasFile) {
        return "Der Kanal hat noch keine Datei";
    }
    if (const auto cut = facts.dayFiles ? std::nullopt : cutAtNewYear(facts.range)) {
        return "Der Zeitraum reicht über den Jahreswechsel: gezeigt wird " + rowTime(cut->from, texts) +
               " bis " + rowTime(cut->to, texts);
    }
    if (!facts.hasValues) {
        return "Keine Werte im Zeitraum" +
               (facts.lastStored
                    ? ". Letzter Wert: " + rowTime(*facts.lastStored, texts) + " (im Diagramm: Strg+Ende)"
                    : std::string());
    }
    return facts.allOutside ? "Alle Werte liegen außerhalb der Skala (Automatisch: Alt+A)" : "";
}

} // namespace kelvrum
