// SPDX-License-Identifier: GPL-3.0-or-later
// What is typed into a date or a time, section by section, until the edit is finished.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvrum {

/// The sections of a date or time while the user types: nothing is checked before the entry is complete, so a
/// day may be typed that only the month typed after it has. A full section moves on to the next one
/// automatically; a separator typed nevertheless means that step and no further one.
class SectionTyping {
  public:
    enum class Unit { day, month, year, hour, minute };

    /// For a display format such as "dd.MM.yyyy" or "hh:mm"; other letters are separators.
    explicit SectionTyping(std::string_view format);

    /// Starts with what is shown; the next digit replaces the given section (the last one if there are
    /// fewer).
    void begin(std::string_view shown, std::size_t section);
    /// Ends without a result.
    void end() { active_ = false; }
    [[nodiscard]] bool isActive() const { return active_; }

    /// Digits, and any other characters as separators. As many numbers as there are sections, or more, begin
    /// with the first one; nothing is typed when they are in another order (a year where the day is).
    void type(std::string_view characters);
    /// Removes the digit that was typed last, or the last one of the section.
    void eraseDigit();
    /// Empties the section; if it was reached automatically, nothing is lost: acts as eraseDigit then.
    void eraseSection();
    /// Empties all sections and goes to the first one.
    void eraseAll();
    /// Goes to a neighbouring section; false when there is none.
    bool move(int steps);
    void moveToFirst();
    void moveToLast();

    [[nodiscard]] std::size_t section() const { return section_; }
    /// The text to show.
    [[nodiscard]] std::string text() const;
    /// Position and length of the section in that text.
    [[nodiscard]] std::size_t sectionStart() const;
    [[nodiscard]] std::size_t sectionLength() const { return sections_[section_].text.size(); }
    /// Whether the next digit replaces the section.
    [[nodiscard]] bool isFresh() const { return fresh_; }

    /// The number of a section; nothing when it is empty or there is no such section. A year of one or two
    /// digits is in 1970 to 2069.
    [[nodiscard]] std::optional<int> number(Unit unit) const;

  private:
    struct Section {
        Unit unit;
        std::string before; // the text before it
        std::string text;
    };

    [[nodiscard]] bool matches(const std::vector<std::size_t>& lengths) const;
    void typeOne(char c);
    void goTo(std::size_t section);
    [[nodiscard]] bool isFull() const;
    void moveOn();

    std::vector<Section> sections_;
    std::string after_; // the text after the last section
    std::size_t section_ = 0;
    bool fresh_ = true;
    bool movedOn_ = false; // automatically, and the separator may still be typed
    bool closed_ = false;  // a separator was typed after the last section
    bool active_ = false;
};

} // namespace kelvrum
