// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/Numbers.h"

#include "util/Text.h"

#include <algorithm>
#include <array>
#include <charconv>
#include <cmath>
#include <limits>

namespace kelvrum {

namespace {

constexpr int SIGNIFICANT_DIGITS = 15;

// Of 0.d1d2d3... times 10^exponent: 1e-15 is the smallest number written without an exponent, 1e15 the first
// large one that is written with one.
constexpr int FIRST_PLAIN_EXPONENT = -14;
constexpr int LAST_PLAIN_EXPONENT = 15;

struct Scanned {
    double value = 0;
    std::size_t length = 0; // characters used; 0 = no number
};

/// For an unsigned number that no double can hold: true when it is too small, false when it is too large. It
/// is too small when its first non-zero digit, moved by the exponent, lies after the point.
bool isBelowOne(std::string_view number) {
    const std::size_t e = std::min(number.find_first_of("eE"), number.size());
    const std::string_view mantissa = number.substr(0, e);
    const std::size_t point = std::min(mantissa.find('.'), mantissa.size());
    const std::size_t first = mantissa.find_first_of("123456789");
    long long exponent = 0;
    if (e < number.size()) {
        const bool negative = number[e + 1] == '-';
        const std::size_t digits = e + 1 + (negative || number[e + 1] == '+' ? 1 : 0);
        constexpr long long HUGE_EXPONENT = std::numeric_limits<std::int32_t>::max();
        exponent = HUGE_EXPONENT; // stays when the exponent itself is too long
        std::from_chars(number.data() + digits, number.data() + number.size(), exponent);
        exponent = std::min(exponent, HUGE_EXPONENT); // leaves room for the places of the digits
        exponent = negative ? -exponent : exponent;
    }
    return first == std::string_view::npos ||
           static_cast<long long>(point) - static_cast<long long>(first) + exponent <= 0;
}

/// Reads sign, digits, point, digits, exponent from the very start of the text.
Scanned scanNumber(std::string_view text) {
    std::size_t at = 0;
    const bool negative = !text.empty() && text[0] == '-';
    if (!text.empty() && (text[0] == '-' || text[0] == '+')) {
        ++at;
    }
    const std::string_view body = text.substr(at);
    // from_chars also takes "inf" and "nan", which are no numbers here.
    const bool starts =
        !body.empty() && (isDigit(body[0]) || (body[0] == '.' && body.size() > 1 && isDigit(body[1])));
    if (!starts) {
        return {};
    }
    double value = 0;
    const auto [end, error] = std::from_chars(body.data(), body.data() + body.size(), value);
    const auto used = static_cast<std::size_t>(end - body.data());
    if (error == std::errc::result_out_of_range) {
        value = isBelowOne(body.substr(0, used)) ? 0 : std::numeric_limits<double>::infinity();
    }
    return {negative ? -value : value, at + used};
}

std::string_view trimWhite(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t\r\n");
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(" \t\r\n") - first + 1);
}

} // namespace

double leadingNumber(std::string_view text) {
    const std::size_t first = text.find_first_not_of(" \t");
    return first == std::string_view::npos ? 0 : scanNumber(text.substr(first)).value;
}

std::optional<double> wholeNumber(std::string_view text) {
    const std::string_view trimmed = trimWhite(text);
    const Scanned number = scanNumber(trimmed);
    if (number.length == 0 || number.length != trimmed.size() || !std::isfinite(number.value)) {
        return std::nullopt;
    }
    return number.value;
}

double roundHalfEven(double v) {
    const double down = std::floor(v);
    const double rest = v - down;
    if (rest < 0.5) {
        return down;
    }
    if (rest > 0.5) {
        return down + 1;
    }
    return std::fmod(down, 2) == 0 ? down : down + 1;
}

std::optional<std::int32_t> roundToInt32(double v) {
    const double rounded = roundHalfEven(v);
    if (!(rounded >= std::numeric_limits<std::int32_t>::min() &&
          rounded <= std::numeric_limits<std::int32_t>::max())) {
        return std::nullopt;
    }
    return static_cast<std::int32_t>(rounded);
}

DecimalDigits decimalDigits(double v) {
    DecimalDigits result;
    result.negative = v < 0;
    if (v == 0) {
        return result;
    }
    std::array<char, 40> text{};
    const auto [end, error] = std::to_chars(text.data(), text.data() + text.size(), std::fabs(v),
                                            std::chars_format::scientific, SIGNIFICANT_DIGITS - 1);
    const std::string_view written(text.data(), static_cast<std::size_t>(end - text.data()));
    const std::size_t e = written.find('e');
    for (const char c : written.substr(0, e)) {
        if (isDigit(c)) {
            result.digits += c;
        }
    }
    result.digits.erase(result.digits.find_last_not_of('0') + 1);
    const std::string_view power = written.substr(e + 1);
    std::from_chars(power.data() + (power[0] == '+' ? 1 : 0), power.data() + power.size(), result.exponent);
    ++result.exponent; // from d.ddd to 0.dddd
    return result;
}

double decimalValue(float v) {
    if (!std::isfinite(v)) {
        return v;
    }
    std::array<char, 40> text{};
    const auto end = std::to_chars(text.data(), text.data() + text.size(), v).ptr;
    return leadingNumber({text.data(), end});
}

std::string plainNumber(double v) {
    if (std::isnan(v)) {
        return "nan";
    }
    if (std::isinf(v)) {
        return v < 0 ? "-inf" : "inf";
    }
    const DecimalDigits d = decimalDigits(v);
    if (d.digits.empty()) {
        return "0";
    }
    const int count = static_cast<int>(d.digits.size());
    std::string text = d.negative ? "-" : "";
    // The written value decides, not the exact double, so that a text that is read back is written the same.
    if (d.exponent > LAST_PLAIN_EXPONENT || d.exponent < FIRST_PLAIN_EXPONENT) {
        text += d.digits[0];
        if (count > 1) {
            text.append(".").append(d.digits, 1);
        }
        return text.append("e").append(std::to_string(d.exponent - 1));
    }
    if (d.exponent <= 0) {
        return text.append("0.").append(static_cast<std::size_t>(-d.exponent), '0').append(d.digits);
    }
    const auto whole = static_cast<std::size_t>(d.exponent);
    if (count <= d.exponent) {
        return text.append(d.digits).append(whole - d.digits.size(), '0');
    }
    return text.append(d.digits, 0, whole).append(".").append(d.digits, whole);
}

} // namespace kelvrum
