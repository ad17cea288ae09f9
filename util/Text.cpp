// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/Text.h"

#include <algorithm>
#include <array>

namespace kelvrum {

namespace {

char upper(char c) { return c >= 'a' && c <= 'z' ? static_cast<char>(c - 'a' + 'A') : c; }

/// Windows-1252, codes 0x80 to 0x9F; the rest equals Latin-1.
constexpr std::array<char32_t, 32> WINDOWS_1252 = {
    0x20AC, 0x0081, 0x201A, 0x0192, 0x201E, 0x2026, 0x2020, 0x2021, 0x02C6, 0x2030, 0x0160,
    0x2039, 0x0152, 0x008D, 0x017D, 0x008F, 0x0090, 0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
    0x2013, 0x2014, 0x02DC, 0x2122, 0x0161, 0x203A, 0x0153, 0x009D, 0x017E, 0x0178};

} // namespace

std::string_view trimBlanks(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    if (first == std::string_view::npos) {
        return {};
    }
    return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

std::vector<std::string_view> split(std::string_view text, char separator) {
    std::vector<std::string_view> parts;
    std::size_t start = 0;
    for (std::size_t at = text.find(separator); at != std::string_view::npos;
         at = text.find(separator, start)) {
        parts.push_back(text.substr(start, at - start));
        start = at + 1;
    }
    parts.push_back(text.substr(start));
    return parts;
}

std::string upperAscii(std::string_view text) {
    std::string result(text);
    std::transform(result.begin(), result.end(), result.begin(), upper);
    return result;
}

std::size_t findNoCase(std::string_view text, std::string_view part, std::size_t from) {
    if (from > text.size()) {
        return std::string_view::npos;
    }
    const auto same = [](char a, char b) { return upper(a) == upper(b); };
    const auto start = text.begin() + static_cast<std::ptrdiff_t>(from);
    const auto found = std::search(start, text.end(), part.begin(), part.end(), same);
    return found == text.end() && !part.empty() ? std::string_view::npos
                                                : static_cast<std::size_t>(found - text.begin());
}

std::string replaceAllNoCase(std::string_view text, std::string_view part, std::string_view by) {
    std::string result;
    std::size_t start = 0;
    if (!part.empty()) {
        for (std::size_t at = findNoCase(text, part); at != std::string_view::npos;
             at = findNoCase(text, part, start)) {
            result.append(text.substr(start, at - start)).append(by);
            start = at + part.size();
        }
    }
    return result.append(text.substr(start));
}

void appendUtf8(std::string& text, char32_t code) {
    const auto tail = [&text](char32_t bits) { text += static_cast<char>(0x80U | (bits & 0x3FU)); };
    if (code < 0x80) {
        text += static_cast<char>(code);
    } else if (code < 0x800) {
        text += static_cast<char>(0xC0U | (code >> 6U));
        tail(code);
    } else if (code < 0x10000) {
        text += static_cast<char>(0xE0U | (code >> 12U));
        tail(code >> 6U);
        tail(code);
    } else {
        text += static_cast<char>(0xF0U | (code >> 18U));
        tail(code >> 12U);
        tail(code >> 6U);
        tail(code);
    }
}

Utf8Character firstCharacter(std::string_view text) {
    const auto byte = [text](std::size_t i) { return static_cast<unsigned char>(text[i]); };
    if (text.empty()) {
        return {};
    }
    if (byte(0) < 0x80) {
        return {byte(0), 1};
    }
    const std::size_t length = byte(0) >= 0xF0 ? 4 : byte(0) >= 0xE0 ? 3 : 2;
    Utf8Check check;
    check.feed(text.substr(0, length));
    if (!check.isValid()) {
        return {};
    }
    char32_t code = byte(0) & (0xFFU >> (length + 1));
    for (std::size_t i = 1; i < length; ++i) {
        code = (code << 6U) | (byte(i) & 0x3FU);
    }
    return {code, length};
}

std::string fromWindows1252(std::string_view bytes) {
    std::string result;
    result.reserve(bytes.size());
    for (const char c : bytes) {
        const auto byte = static_cast<unsigned char>(c);
        appendUtf8(result, byte >= 0x80 && byte < 0xA0 ? WINDOWS_1252.at(byte - 0x80U) : byte);
    }
    return result;
}

std::string cleanFixedText(std::string_view bytes) {
    std::string text(bytes);
    std::replace(text.begin(), text.end(), '\0', ' ');
    return fromWindows1252(trimBlanks(text));
}

void Utf8Check::feed(std::string_view bytes) {
    for (const char c : bytes) {
        if (!valid_) {
            return;
        }
        const auto byte = static_cast<unsigned char>(c);
        if (pending_ > 0) {
            valid_ = byte >= low_ && byte <= high_;
            low_ = 0x80;
            high_ = 0xBF;
            --pending_;
        } else if (byte >= 0x80) {
            // Lead bytes; E0, ED, F0 and F4 narrow the byte after them (no overlong forms, no surrogates,
            // nothing above U+10FFFF).
            valid_ = byte >= 0xC2 && byte <= 0xF4;
            pending_ = byte >= 0xF0 ? 3 : byte >= 0xE0 ? 2 : 1;
            low_ = byte == 0xE0 ? 0xA0 : byte == 0xF0 ? 0x90 : 0x80;
            high_ = byte == 0xED ? 0x9F : byte == 0xF4 ? 0x8F : 0xBF;
        }
    }
}

} // namespace kelvrum
