// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers as files and edit fields write them: "." as decimal point whatever the locale.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

namespace kelvrum {

/// The number at the start of a text: blanks and tabs before it are skipped, it may have a sign, a fraction
/// and an exponent, and ends at the first character that does not belong to it. No number gives 0; one
/// beyond the range of a double gives an infinity, one too small for it 0.
double leadingNumber(std::string_view text);

/// The value of a text that is, without the white space around it, one decimal number as a whole
/// (".5", "+3", "1e3"); nothing for all other texts and for numbers that no double holds.
std::optional<double> wholeNumber(std::string_view text);

/// v rounded to the nearest whole number, a half to the even neighbour.
double roundHalfEven(double v);

/// roundHalfEven as a 32-bit integer; nothing when it does not fit (NaN included).
std::optional<std::int32_t> roundToInt32(double v);

/// The shortest text of v with at most 15 significant digits: without an exponent from 1e-15 up to (not
/// including) 1e15 in magnitude ("0.0333333333333333"), with one beyond ("1e15"). NaN and
/// infinities give "nan", "inf" and "-inf".
std::string plainNumber(double v);

/// The double that is written like a float, with no more digits than it has: 0.1F gives 0.1.
double decimalValue(float v);

/// The decimal digits of a number, rounded to 15 significant ones: 0.d1d2d3... times 10^exponent.
struct DecimalDigits {
    bool negative = false;
    std::string digits; // without trailing zeros; empty for 0
    int exponent = 0;
};

/// v must be finite.
DecimalDigits decimalDigits(double v);

} // namespace kelvrum
