// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/JobName.h"

#include "util/Text.h"

#include <algorithm>
#include <cmath>

namespace kelvrum {

namespace {

constexpr std::string_view BETWEEN = " – ";
constexpr std::string_view CUT = "…";

std::size_t characters(std::string_view text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return !isContinuation(c); }));
}

/// A text on one line: line ends, tabs and other controls are blanks.
std::string onOneLine(std::string_view text) {
    std::string line(text);
    std::replace_if(
        line.begin(), line.end(), [](char c) { return static_cast<unsigned char>(c) < 0x20U; }, ' ');
    return line;
}

/// Takes characters off the end until at most `count` are left, the mark of the cut among them.
void shorten(std::string& text, std::size_t count) {
    if (characters(text) <= count) {
        return;
    }
    while (!text.empty() && characters(text) + 1 > count) {
        while (text.size() > 1 && isContinuation(text.back())) {
            text.pop_back();
        }
        text.pop_back();
    }
    if (count > 0) {
        text += CUT;
    }
}

std::string daysOf(const TimeRange& range, const LocaleTexts& texts) {
    constexpr double HALF_A_SECOND = 0.5 / 86400;
    const double first = std::floor(range.from + HALF_A_SECOND);
    const double last = std::max(first, std::ceil(range.to - HALF_A_SECOND) - 1);
    std::string days = formatDateTime(first, texts.shortDate, texts);
    if (last > first) {
        days += " bis " + formatDateTime(last, texts.shortDate, texts);
    }
    return days;
}

} // namespace

std::string jobName(std::string_view station, std::string_view subject, const TimeRange& range,
                    const LocaleTexts& texts) {
    constexpr std::size_t MIN_STATION = 20; // characters that stay of the station
    std::string place = onOneLine(station);
    std::string what = onOneLine(subject);
    const std::string days = daysOf(range, texts);
    const std::size_t left = MAX_JOB_NAME - characters(days) - 2 * characters(BETWEEN);
    const std::size_t wanted = characters(what);
    shorten(place, std::max(MIN_STATION, left - std::min(left, wanted)));
    shorten(what, left - characters(place));
    std::string name;
    for (const std::string& part : {place, what, days}) {
        if (!part.empty()) {
            name.append(name.empty() ? "" : BETWEEN).append(part);
        }
    }
    return name;
}

} // namespace kelvrum
