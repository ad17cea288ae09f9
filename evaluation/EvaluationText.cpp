// SPDX-License-Identifier: GPL-3.0-or-later
#include "evaluation/EvaluationText.h"

#include "config/ConfigForms.h"
#include "evaluation/EvaluationFigures.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numeric>
#include <utility>

namespace kelvrum {

namespace {

constexpr const char* FOOT =
    "Zeit: Beginn des Intervalls, ohne Sommerzeit. Gespeicherte Nullen gelten als fehlend.";

std::string counted(std::int64_t count) {
    return std::to_string(count) + (count == 1 ? " Intervall" : " Intervalle");
}

std::string inBrackets(const std::string& unit) { return unit.empty() ? std::string() : " [" + unit + "]"; }

double greatestOf(const Evaluation& evaluation) {
    double greatest = 0;
    const auto see = [&greatest](const std::optional<TimedValue>& v) {
        greatest = std::max(greatest, v ? std::fabs(v->value) : 0);
    };
    if (evaluation.statistics) {
        see(evaluation.statistics->minimum);
        see(evaluation.statistics->maximum);
    }
    see(evaluation.smallestMinimum);
    see(evaluation.greatestMaximum);
    return greatest;
}

/// Collects the entries of the summary, section by section.
class Summary {
  public:
    Summary(const Evaluation& evaluation, const EvaluationSubject& subject, const EvaluationFigures& figures)
        : evaluation_(evaluation)
        , subject_(subject)
        , figures_(figures) {}

    std::vector<EvaluationEntry> entries() {
        addAvailability();
        if (evaluation_.statistics) {
            addStatistics(*evaluation_.statistics);
        }
        for (std::size_t i = 0; i < LIMITS; ++i) {
            if (evaluation_.exceedances[i]) {
                addExceedances(*evaluation_.exceedances[i], "Grenzwert " + std::to_string(i + 1));
            }
        }
        if (evaluation_.wind) {
            addWind(*evaluation_.wind);
        }
        return std::move(entries_);
    }

  private:
    void add(std::string label, std::string value) {
        entries_.push_back({std::move(label), std::move(value)});
    }

    void addAvailability() {
        const Availability& found = evaluation_.availability;
        add("Intervalle", std::to_string(found.intervals));
        add("mit Wert", std::to_string(found.withValue));
        if (evaluation_.request.onlyCovered) {
            add("davon ausgewertet", std::to_string(found.evaluated));
        }
        add("ohne Wert", std::to_string(found.withoutValue()));
        add("Verfügbarkeit", figures_.percent(found.percent));
        add("vorhandene Minuten", found.minutes == 0 ? NO_FIGURE
                                                     : std::to_string(found.presentMinutes) + " von " +
                                                           std::to_string(found.minutes) + " (" +
                                                           figures_.percent(found.coverage()) + ")");
        add("Intervalle mit weniger als 75 % der Minuten", std::to_string(found.notCovered));
        add("längster Ausfall", found.longestOutage
                                    ? EvaluationFigures::duration(found.longestOutage->minutes) + " ab " +
                                          figures_.time(found.longestOutage->start)
                                    : NO_FIGURE);
        add("erster Wert", valueAt(found.first));
        add("letzter Wert", valueAt(found.last));
    }

    /// Of directions the degrees.
    [[nodiscard]] std::string valueAt(const std::optional<TimedValue>& v) const {
        if (!evaluation_.wind || !v) {
            return figures_.timed(v);
        }
        return figures_.degrees(v->value) + "° am " + figures_.time(v->time);
    }

    void addStatistics(const Statistics& found) {
        add("Minimum", figures_.timed(found.minimum));
        add("Maximum", figures_.timed(found.maximum));
        if (subject_.wideRecords) {
            add("kleinstes Minimum", figures_.timed(evaluation_.smallestMinimum));
            add("größtes Maximum", figures_.timed(evaluation_.greatestMaximum));
        }
        add("Mittelwert", figures_.value(found.mean));
        add("Standardabweichung", figures_.value(found.deviation));
        add("Median", figures_.value(found.median));
        add("5. Perzentil", figures_.value(found.percentile5));
        add("95. Perzentil", figures_.value(found.percentile95));
        add("98. Perzentil", figures_.value(found.percentile98));
        if (evaluation_.request.kind == EvaluatedKind::sum) {
            add("Summe", figures_.value(found.sum));
        }
    }

    void addExceedances(const Exceedances& found, const std::string& name) {
        const auto part = [this](std::int64_t count, std::optional<double> share, std::int64_t minutes) {
            return counted(count) + ", " + figures_.percent(share) + ", " +
                   EvaluationFigures::duration(minutes);
        };
        add("über " + name, part(found.above, found.aboveShare(), found.minutesAbove));
        add("unter " + name, part(found.below, found.belowShare(), found.minutesBelow));
        add("Episoden über " + name, std::to_string(found.episodes));
        const auto& longest = found.longestEpisode;
        add("längste Episode über " + name,
            longest ? figures_.time(longest->start) + " bis " + figures_.time(longest->end) : NO_FIGURE);
        add("Maximum dieser Episode (" + name + ")", longest ? figures_.timed(longest->maximum) : NO_FIGURE);
        add("Tage über " + name, std::to_string(found.days));
    }

    void addWind(const WindStatistics& found) {
        const auto degrees = [this](std::optional<double> d) {
            return d ? figures_.degrees(d) + "°" : NO_FIGURE;
        };
        add("Intervalle mit Richtung und Geschwindigkeit", std::to_string(found.intervals));
        add("mittlere Richtung, gewichtet", degrees(found.weightedDirection));
        add("mittlere Richtung, ungewichtet", degrees(found.unitDirection));
        add("Beständigkeit", figures_.formatted(found.constancy, "0.00"));
        const std::string border = figures_.formatted(CALM_BELOW, "0.0");
        const std::string unit = subject_.speedUnit.empty() ? "" : " " + subject_.speedUnit;
        add("Windstille (unter " + border + unit + ")",
            figures_.percent(percentOf(found.calms, found.intervals)));
    }

    const Evaluation& evaluation_;
    const EvaluationSubject& subject_;
    const EvaluationFigures& figures_;
    std::vector<EvaluationEntry> entries_;
};

std::string usedLimits(const Evaluation& evaluation, const EvaluationFigures& figures) {
    if (evaluation.request.kind == EvaluatedKind::direction) {
        return "Für Windrichtungen gelten keine Grenzwerte.";
    }
    std::string text;
    for (std::size_t i = 0; i < LIMITS; ++i) {
        if (evaluation.request.limits[i]) {
            text += (text.empty() ? "Ausgewertet mit " : " und ") + ("Grenzwert " + std::to_string(i + 1)) +
                    ": " + figures.limit(*evaluation.request.limits[i]);
        }
    }
    return text.empty() ? "Ausgewertet ohne Grenzwerte." : text + ".";
}

EvaluationTable directionTable(const WindStatistics& wind, const EvaluationSubject& subject,
                               const EvaluationFigures& figures) {
    constexpr std::array<const char*, DIRECTIONS> NAMES = {"0° (N)", "30°",      "60°",      "90° (O)",
                                                           "120°",   "150°",     "180° (S)", "210°",
                                                           "240°",   "270° (W)", "300°",     "330°"};
    EvaluationTable table;
    table.title = "Anteile in % nach Richtung und Geschwindigkeit" + inBrackets(subject.speedUnit);
    table.header = {"Richtung"};
    for (std::size_t i = 0; i < SPEED_CLASSES.size(); ++i) {
        const std::string low = formatNumber(SPEED_CLASSES[i], "0.#", figures.texts());
        table.header.push_back(i + 1 < SPEED_CLASSES.size()
                                   ? low + "–" + formatNumber(SPEED_CLASSES[i + 1], "0.#", figures.texts())
                                   : "ab " + low);
    }
    table.header.emplace_back("gesamt");
    const auto share = [&](std::int64_t count) { return figures.share(percentOf(count, wind.intervals)); };
    for (std::size_t i = 0; i < DIRECTIONS; ++i) {
        std::vector<std::string> row = {NAMES[i]};
        for (const std::int64_t count : wind.table[i]) {
            row.push_back(share(count));
        }
        row.push_back(share(std::accumulate(wind.table[i].begin(), wind.table[i].end(), std::int64_t{0})));
        table.rows.push_back(std::move(row));
    }
    std::vector<std::string> calms(table.header.size());
    calms.front() = "Windstille";
    calms.back() = share(wind.calms);
    table.rows.push_back(std::move(calms));
    return table;
}

struct UnitTexts {
    const char* title;
    const char* column;
};

UnitTexts textsOf(CalendarUnit unit) {
    switch (unit) {
    case CalendarUnit::hour:
        return {"Nach Stunden", "Stunde"};
    case CalendarUnit::day:
        return {"Nach Tagen", "Tag"};
    case CalendarUnit::month:
        break;
    }
    return {"Nach Monaten", "Monat"};
}

std::string rowName(const BreakdownRow& row, CalendarUnit unit, const LocaleTexts& texts) {
    return unit == CalendarUnit::hour  ? rowTime(row.start, texts)
           : unit == CalendarUnit::day ? formatDateTime(row.start, texts.shortDate, texts)
                                       : formatDateTime(row.start, "mm/yyyy", texts);
}

EvaluationTable breakdownTable(const Evaluation& evaluation, const EvaluationSubject& subject,
                               const EvaluationFigures& figures) {
    const Breakdown& found = evaluation.breakdown;
    const EvaluatedKind kind = evaluation.request.kind;
    const bool isWind = kind == EvaluatedKind::direction;
    const std::string unit = inBrackets(subject.unit);
    EvaluationTable table;
    table.title = textsOf(found.unit).title;
    table.header = {textsOf(found.unit).column, "Intervalle", "mit Wert", "Minuten in %"};
    if (isWind) {
        table.header.emplace_back("mittlere Richtung [°]");
    } else {
        table.header.push_back("Minimum" + unit);
        table.header.push_back((kind == EvaluatedKind::sum ? "Summe" : "Mittelwert") + unit);
        table.header.push_back("Maximum" + unit);
    }
    for (std::size_t i = 0; i < LIMITS && !isWind; ++i) {
        if (evaluation.request.limits[i]) {
            table.header.push_back("über Grenzwert " + std::to_string(i + 1));
        }
    }
    table.rows.reserve(found.rows.size());
    for (const BreakdownRow& row : found.rows) {
        std::vector<std::string> cells = {rowName(row, found.unit, figures.texts()),
                                          std::to_string(row.intervals), std::to_string(row.withValue),
                                          figures.share(row.coverage())};
        if (isWind) {
            cells.push_back(figures.degrees(row.mean));
        } else {
            cells.insert(cells.end(), {figures.number(row.minimum), figures.number(row.mean),
                                       figures.number(row.maximum)});
        }
        for (std::size_t i = 0; i < LIMITS && !isWind; ++i) {
            if (evaluation.request.limits[i]) {
                cells.push_back(std::to_string(row.above[i]));
            }
        }
        table.rows.push_back(std::move(cells));
    }
    return table;
}

void addLine(std::string& text, const std::vector<std::string>& cells) {
    for (std::size_t i = 0; i < cells.size(); ++i) {
        text += (i > 0 ? "\t" : "") + cells[i];
    }
    text += '\n';
}

} // namespace

EvaluationSubject evaluationSubject(const StationConfig& station, std::int32_t channel,
                                    const std::string& intervalCaption) {
    const ChannelInfo& info = station.ChannelTable.at(channel);
    return {station.Title,   info.Name,
            info.Unit,       station.ChannelTable.at(info.PairedChannel).Unit,
            intervalCaption, hasDayFiles(station) && station.WideRecords};
}

EvaluationText evaluationText(const Evaluation& evaluation, const EvaluationSubject& subject,
                              const LocaleTexts& texts) {
    const EvaluationFigures figures(greatestOf(evaluation), subject.unit, texts);
    EvaluationText text;
    text.title = "Auswertung: " + subject.channel + ", " + figures.time(evaluation.request.range.from) +
                 " bis " + figures.time(evaluation.request.range.to) + ", " + subject.intervalCaption;
    text.summary = Summary(evaluation, subject, figures).entries();
    text.limits = usedLimits(evaluation, figures);
    if (evaluation.wind) {
        text.tables.push_back(directionTable(*evaluation.wind, subject, figures));
    }
    text.tables.push_back(breakdownTable(evaluation, subject, figures));
    text.foot = FOOT;
    return text;
}

std::string tabSeparated(const EvaluationText& text) {
    std::string lines;
    addLine(lines, {text.title});
    addLine(lines, {});
    for (const EvaluationEntry& entry : text.summary) {
        addLine(lines, {entry.label, entry.value});
    }
    addLine(lines, {});
    addLine(lines, {text.limits});
    for (const EvaluationTable& table : text.tables) {
        addLine(lines, {});
        addLine(lines, {table.title});
        addLine(lines, table.header);
        for (const auto& row : table.rows) {
            addLine(lines, row);
        }
    }
    addLine(lines, {});
    addLine(lines, {text.foot});
    return lines;
}

} // namespace kelvrum
