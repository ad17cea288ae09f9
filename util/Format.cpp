// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/Format.h"

#include "util/Numbers.h"

#include <algorithm>
#include <cmath>

namespace kelvrum {

namespace {

/// Rounds the digits to `decimals` after the point, a half away from zero.
void roundDigits(DecimalDigits& d, int decimals) {
    const int keep = d.exponent + decimals; // digits that stay
    if (keep >= static_cast<int>(d.digits.size())) {
        return;
    }
    if (keep < 0) {
        d = {};
        return;
    }
    const auto cut = static_cast<std::size_t>(keep);
    const bool up = d.digits[cut] >= '5';
    d.digits.erase(cut);
    if (up) {
        std::size_t at = cut;
        while (at > 0 && d.digits[at - 1] == '9') {
            d.digits[--at] = '0';
        }
        if (at == 0) {
            d.digits.insert(d.digits.begin(), '1');
            ++d.exponent;
        } else {
            ++d.digits[at - 1];
        }
    }
    d.digits.erase(d.digits.find_last_not_of('0') + 1);
}

void appendPadded(std::string& out, int value, std::size_t width) {
    const std::string digits = std::to_string(value);
    out.append(width > digits.size() ? width - digits.size() : 0, '0').append(digits);
}

void replacePoint(std::string& text, const LocaleTexts& texts) {
    const std::size_t point = text.find('.');
    if (point != std::string::npos) {
        text.replace(point, 1, texts.decimalSeparator);
    }
}

} // namespace

std::string formatNumber(double v, std::string_view format, const LocaleTexts& texts) {
    if (!std::isfinite(v)) {
        return {};
    }
    const std::size_t point = std::min(format.find('.'), format.size());
    const std::string_view before = format.substr(0, point);
    const std::string_view afterPoint = point < format.size() ? format.substr(point + 1) : std::string_view();
    const int minWhole = static_cast<int>(std::count(before.begin(), before.end(), '0'));
    const int minDecimals = static_cast<int>(std::count(afterPoint.begin(), afterPoint.end(), '0'));

    DecimalDigits d = decimalDigits(v);
    roundDigits(d, static_cast<int>(afterPoint.size()));
    const auto digit = [&d](int place) { // place 0 is the first digit after the point, -1 the one before it
        const int at = d.exponent + place;
        return at >= 0 && at < static_cast<int>(d.digits.size()) ? d.digits[static_cast<std::size_t>(at)]
                                                                 : '0';
    };
    std::string text = d.negative && !d.digits.empty() ? "-" : "";
    const int whole = std::max(d.digits.empty() ? 0 : d.exponent, minWhole);
    for (int place = -whole; place < 0; ++place) {
        text += digit(place);
    }
    const int decimals = std::max(static_cast<int>(d.digits.size()) - d.exponent, 0);
    const int shown = std::max(d.digits.empty() ? 0 : decimals, minDecimals);
    if (shown > 0) {
        text += texts.decimalSeparator;
        for (int place = 0; place < shown; ++place) {
            text += digit(place);
        }
    }
    return text;
}

std::string formatDateTime(DateTime t, std::string_view format, const LocaleTexts& texts) {
    const CalendarTime parts = shownTime(t);
    std::string text;
    bool afterHours = false;
    for (std::size_t at = 0; at < format.size();) {
        const char letter = format[at];
        const std::size_t end = std::min(format.find_first_not_of(letter, at), format.size());
        const std::size_t count = end - at;
        switch (letter) {
        case 'd':
            appendPadded(text, parts.day, count);
            break;
        case 'm':
            appendPadded(text, afterHours ? parts.minute : parts.month, count);
            break;
        case 'y':
            appendPadded(text, count > 2 ? parts.year : parts.year % 100, count);
            break;
        case 'h':
            appendPadded(text, parts.hour, count);
            break;
        case 's':
            appendPadded(text, parts.second, count);
            break;
        case '/':
            for (std::size_t i = 0; i < count; ++i) {
                text += texts.dateSeparator;
            }
            break;
        default:
            text.append(format.substr(at, count));
        }
        afterHours = letter == 'h' || (afterHours && letter == ':');
        at = end;
    }
    return text;
}

std::string shownNumber(double v, const LocaleTexts& texts) {
    std::string text = plainNumber(v);
    replacePoint(text, texts);
    return text;
}

std::string shownNumber(float v, const LocaleTexts& texts) { return shownNumber(decimalValue(v), texts); }

std::string shownValue(double v, const LocaleTexts& texts) {
    constexpr double MEASURED_ZERO = 1e-200;
    return shownNumber(std::fabs(v) > MEASURED_ZERO ? v : 0, texts);
}

std::string rowTime(DateTime t, const LocaleTexts& texts) {
    return formatDateTime(t, texts.shortDate, texts) + formatDateTime(t, " hh:mm", texts);
}

} // namespace kelvrum
