// SPDX-License-Identifier: GPL-3.0-or-later
#include "evaluation/EvaluationFigures.h"

#include <algorithm>
#include <cmath>
#include <utility>

namespace kelvrum {

namespace {

/// Four significant digits of the greatest value, but at least two decimals.
std::string formatFor(double greatest) {
    constexpr int DIGITS = 4;
    constexpr int MIN_DECIMALS = 2;
    constexpr int MAX_DECIMALS = 15;
    const int before = greatest > 0 ? static_cast<int>(std::floor(std::log10(greatest))) + 1 : DIGITS;
    const int decimals = std::clamp(DIGITS - before, MIN_DECIMALS, MAX_DECIMALS);
    return "0." + std::string(static_cast<std::size_t>(decimals), '0');
}

} // namespace

EvaluationFigures::EvaluationFigures(double greatest, std::string unit, LocaleTexts texts)
    : format_(formatFor(greatest))
    , unit_(std::move(unit))
    , texts_(std::move(texts)) {}

std::string EvaluationFigures::formatted(std::optional<double> v, std::string_view format) const {
    return v ? formatNumber(*v, format, texts_) : NO_FIGURE;
}

std::string EvaluationFigures::withUnit(const std::string& number) const {
    return unit_.empty() ? number : number + " " + unit_;
}

std::string EvaluationFigures::number(std::optional<double> v) const { return formatted(v, format_); }

std::string EvaluationFigures::value(std::optional<double> v) const {
    return v ? withUnit(number(v)) : NO_FIGURE;
}

std::string EvaluationFigures::timed(const std::optional<TimedValue>& v) const {
    return v ? value(v->value) + " am " + time(v->time) : NO_FIGURE;
}

std::string EvaluationFigures::limit(double v) const { return withUnit(shownNumber(v, texts_)); }

std::string EvaluationFigures::share(std::optional<double> v) const { return formatted(v, "0.00"); }

std::string EvaluationFigures::percent(std::optional<double> v) const {
    return v ? share(v) + " %" : NO_FIGURE;
}

std::string EvaluationFigures::degrees(std::optional<double> v) const { return formatted(v, "0.0"); }

std::string EvaluationFigures::duration(std::int64_t minutes) {
    struct Part {
        std::int64_t count;
        const char* unit;
    };
    const Part parts[] = {{minutes / MINUTES_PER_DAY, " d"},
                          {minutes % MINUTES_PER_DAY / MINUTES_PER_HOUR, " h"},
                          {minutes % MINUTES_PER_HOUR, " min"}};
    std::string text;
    for (const auto& [count, unit] : parts) {
        if (count > 0) {
            text += (text.empty() ? "" : " ") + std::to_string(count) + unit;
        }
    }
    return text.empty() ? "0 min" : text;
}

} // namespace kelvrum
