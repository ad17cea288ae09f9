// SPDX-License-Identifier: GPL-3.0-or-later
// Any formats for numbers and times.
#include "tests/fuzz/Fuzzing.h"
#include "util/Format.h"
#include "util/Numbers.h"

#include <cmath>
#include <string>

namespace {

using namespace kelvrum;
using fuzzing::require;

const LocaleTexts ENGLISH{".", "/", "m/d/yyyy"};

void checkNumber(double v, std::string_view format) {
    const std::string text = formatNumber(v, format, ENGLISH);
    if (!std::isfinite(v)) {
        require(text.empty(), "what is no number is not shown");
        return;
    }
    constexpr std::size_t MAX_DIGITS = 320; // of a double
    require(text.size() <= MAX_DIGITS + format.size(), "a number is as long as its digits and its format");
    require(text.find_first_not_of("-.0123456789") == std::string::npos, "a number holds nothing else");
    require(!text.starts_with('-') || text.find_first_of("123456789") != std::string::npos,
            "-0 is never shown");
    const std::size_t decimals = format.substr(std::min(format.find('.'), format.size())).size();
    const double step = std::pow(10, -(decimals == 0 ? 0.0 : static_cast<double>(decimals) - 1));
    constexpr double ROUNDS_TO_A_DOUBLE =
        1e308; // 15 digits of the largest doubles are more than a double holds
    require(std::fabs(v) > ROUNDS_TO_A_DOUBLE ||
                std::fabs(leadingNumber(text) - v) <= 0.5000001 * step + std::fabs(v) * 1e-14,
            "a shown number is rounded to its last place");
}

void checkTime(DateTime t, std::string_view format) {
    const std::string text = formatDateTime(t, format, {});
    constexpr std::size_t LONGEST_PART = 4;
    require(text.size() <= format.size() * LONGEST_PART, "a time is no longer than its letters make it");
    const std::string letters = formatDateTime(t, "d.m.yy dd.mm.yyyy hh:mm:ss", {});
    require(letters.find_first_not_of(".: 0123456789") == std::string::npos, "a time is shown in digits");
    const std::string row = rowTime(t, ENGLISH);
    require(row.size() >= 14 && row[row.size() - 3] == ':', "a row begins with a date and a time");
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzzing::Input input(data, size);
    const auto any = input.take<double>();
    const auto time = input.take<std::int32_t>() / 97.0;
    const std::string_view format = input.rest();
    checkNumber(any, format);
    checkNumber(time, format);
    checkTime(any, format);
    checkTime(time, format);
    std::string shown = shownNumber(any, {});
    if (const std::size_t comma = shown.find(','); comma != std::string::npos) {
        shown[comma] = '.';
    }
    require(shown == plainNumber(any), "only the separator is the locale's");
    return 0;
}
