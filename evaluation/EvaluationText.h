// SPDX-License-Identifier: GPL-3.0-or-later
// An evaluation as texts: what the window shows, the clipboard gets and the printer prints.
#pragma once

#include "config/StationConfig.h"
#include "evaluation/Evaluation.h"
#include "util/Format.h"

#include <cstdint>
#include <string>
#include <vector>

namespace kelvrum {

/// What an evaluation is of.
struct EvaluationSubject {
    std::string station;
    std::string channel;
    std::string unit;
    std::string speedUnit;       // wind directions: that of the paired channel
    std::string intervalCaption; // for example "10 Minuten"
    bool wideRecords = false;    // the day files bring minima and maxima
};

EvaluationSubject evaluationSubject(const StationConfig& station, std::int32_t channel,
                                    const std::string& intervalCaption);

struct EvaluationEntry {
    std::string label;
    std::string value; // "–" for a figure that does not exist

    bool operator==(const EvaluationEntry&) const = default;
};

/// A table of texts; the first cell of a row is its name, the others are numbers.
struct EvaluationTable {
    std::string title;
    std::vector<std::string> header;
    std::vector<std::vector<std::string>> rows;
};

struct EvaluationText {
    std::string title; // what is evaluated: channel, range, interval
    std::vector<EvaluationEntry> summary;
    std::string limits;                  // a sentence: which limits were used
    std::vector<EvaluationTable> tables; // by calendar; of directions the table by speed before it
    std::string foot;                    // what times and missing values mean
};

/// German, numbers in the manner of the locale.
EvaluationText evaluationText(const Evaluation& evaluation, const EvaluationSubject& subject,
                              const LocaleTexts& texts);

/// All of it as lines of cells separated by tabs, for a spreadsheet.
std::string tabSeparated(const EvaluationText& text);

} // namespace kelvrum
