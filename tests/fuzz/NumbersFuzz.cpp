// SPDX-License-Identifier: GPL-3.0-or-later
// Any text as a number, and any number as a text.
#include "tests/fuzz/Fuzzing.h"
#include "util/Numbers.h"

#include <cmath>
#include <string>

namespace {

using namespace kelvrum;
using fuzzing::require;

std::size_t digitsFrom(std::string_view text, std::size_t at) {
    return std::min(text.find_first_not_of("0123456789", at), text.size()) - at;
}

/// The part of a text that is its leading number, by the plain grammar; empty when it has none.
std::string numberIn(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
    std::size_t at = !text.empty() && (text[0] == '+' || text[0] == '-') ? 1 : 0;
    const std::size_t whole = digitsFrom(text, at);
    at += whole;
    if (at < text.size() && text[at] == '.') {
        const std::size_t decimals = digitsFrom(text, at + 1);
        if (whole + decimals == 0) {
            return {};
        }
        at += 1 + decimals;
    } else if (whole == 0) {
        return {};
    }
    if (at < text.size() && (text[at] == 'e' || text[at] == 'E')) {
        const bool sign = at + 1 < text.size() && (text[at + 1] == '+' || text[at + 1] == '-');
        const std::size_t digits = at + (sign ? 2 : 1);
        if (digits < text.size() && digitsFrom(text, digits) > 0) {
            at = digits + digitsFrom(text, digits);
        }
    }
    return std::string(text.substr(0, at));
}

void checkText(std::string_view text) {
    const std::string number = numberIn(text);
    const double leading = leadingNumber(text);
    require(leading == (number.empty() ? 0 : std::strtod(number.c_str(), nullptr)),
            "the leading number is right");
    if (const auto whole = wholeNumber(text)) {
        require(std::isfinite(*whole), "a whole number is finite");
        text.remove_prefix(text.find_first_not_of(" \t\r\n"));
        require(leadingNumber(text) == *whole, "a whole number is also the leading one");
    }
}

void checkNumber(double v) {
    require(!std::isfinite(v) || roundHalfEven(v) == std::nearbyint(v), "halves go to the even neighbour");
    if (const auto rounded = roundToInt32(v)) {
        require(std::fabs(*rounded - v) <= 0.5, "a rounded number is the nearest");
    }
    const std::string text = plainNumber(v);
    // Within 15 digits the largest doubles are rounded to what no double holds.
    constexpr double LARGEST_AS_TEXT = 1.797693134862315e308;
    if (std::fabs(v) <= LARGEST_AS_TEXT) {
        const auto back = wholeNumber(text);
        require(back.has_value(), "a written number is a number");
        require(plainNumber(*back) == text, "a number that was read back is written the same");
        require(std::fabs(*back - v) <= std::fabs(v) * 1e-14, "a written number is near to its value");
        const DecimalDigits digits = decimalDigits(v);
        require(digits.digits.size() <= 15, "a number has at most 15 digits");
        require(digits.digits.empty() == (v == 0), "only a zero has no digits");
        require(digits.digits.empty() || (digits.digits.front() != '0' && digits.digits.back() != '0'),
                "digits have no zeros around them");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzzing::Input input(data, size);
    checkText(input.rest());
    checkNumber(leadingNumber(input.rest()));
    checkNumber(input.take<double>());
    const auto single = input.take<float>();
    if (std::isfinite(single)) {
        require(static_cast<float>(decimalValue(single)) == single, "a float's decimal value is that float");
    }
    return 0;
}
