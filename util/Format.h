// SPDX-License-Identifier: GPL-3.0-or-later
// Numbers and times as they are shown: by a format text, in the manner of the user's locale.
#pragma once

#include "util/DateTime.h"

#include <string>
#include <string_view>

namespace kelvrum {

/// What the plain core needs to know of the user's locale. Filled once from the system; tests set it.
struct LocaleTexts {
    std::string decimalSeparator = ",";
    std::string dateSeparator = ".";
    std::string shortDate = "dd.mm.yyyy"; // in the letters of formatDateTime, the year with four digits
};

/// Writes v by a format such as "######0.00" or "########0.0#": "0" is a digit that is always shown, "#" one
/// that is shown when needed. A half of the decimal value (15 significant digits) is rounded away from zero;
/// "-0" never appears. NaN and infinities give an empty text.
std::string formatNumber(double v, std::string_view format, const LocaleTexts& texts);

/// Writes t, rounded to the nearest second, by a format of the letters d, dd, m, mm, yy, yyyy, hh, ss; "m"
/// and "mm" after hours are minutes, "/" is the locale's date separator, all else stands for itself.
std::string formatDateTime(DateTime t, std::string_view format, const LocaleTexts& texts);

/// v as a plain decimal number in the user's locale: plainNumber with its decimal separator.
std::string shownNumber(double v, const LocaleTexts& texts);

/// The same of a single-precision number, with no more digits than it has.
std::string shownNumber(float v, const LocaleTexts& texts);

/// The same of a value in the data list: magnitudes up to 1e-200, which represent a measured zero, are shown
/// as 0.
std::string shownValue(double v, const LocaleTexts& texts);

/// The row text of the data list: the short date directly followed by " hh:mm".
std::string rowTime(DateTime t, const LocaleTexts& texts);

} // namespace kelvrum
