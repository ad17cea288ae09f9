// SPDX-License-Identifier: GPL-3.0-or-later
// Small helpers for texts. Texts are UTF-8 throughout the program; files may bring another encoding.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace kelvrum {

/// Whether the character is one of 0 to 9, in every locale.
constexpr bool isDigit(char c) { return c >= '0' && c <= '9'; }

/// Whether a byte continues a UTF-8 character that an earlier byte has begun.
constexpr bool isContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

/// The text without blanks (only blanks, no tabs) at both ends.
std::string_view trimBlanks(std::string_view text);

/// Splits at every separator: n separators give n + 1 parts, empty ones included.
std::vector<std::string_view> split(std::string_view text, char separator);

/// The text with the letters a to z as capitals.
std::string upperAscii(std::string_view text);

/// Position of the first occurrence of `part` without regard to the case of a to z, or npos.
std::size_t findNoCase(std::string_view text, std::string_view part, std::size_t from = 0);

/// Every occurrence of `part`, in any case of letters, replaced.
std::string replaceAllNoCase(std::string_view text, std::string_view part, std::string_view by);

/// Appends a character of Unicode as UTF-8.
void appendUtf8(std::string& text, char32_t code);

/// A character of a UTF-8 text.
struct Utf8Character {
    char32_t code = 0;
    std::size_t length = 0; // bytes; 0 where the text is no valid UTF-8
};

/// The first character of a text.
Utf8Character firstCharacter(std::string_view text);

/// Windows-1252 bytes as UTF-8. The five codes without a character become the control of the same number.
std::string fromWindows1252(std::string_view bytes);

/// A fixed-length text field of a binary file: every NUL becomes a blank, blanks at both ends are dropped,
/// what remains is read as Windows-1252.
std::string cleanFixedText(std::string_view bytes);

/// Tells whether bytes that arrive piece by piece are valid UTF-8.
class Utf8Check {
  public:
    void feed(std::string_view bytes);
    /// Whether the bytes so far form a valid text.
    [[nodiscard]] bool isValid() const { return valid_ && pending_ == 0; }

  private:
    bool valid_ = true;
    int pending_ = 0;          // continuation bytes still to come
    unsigned char low_ = 0x80; // range of the next continuation byte
    unsigned char high_ = 0xBF;
};

} // namespace kelvrum
