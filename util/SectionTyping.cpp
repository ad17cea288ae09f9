// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/SectionTyping.h"

#include "util/Text.h"

#include <algorithm>

namespace kelvrum {

namespace {

constexpr std::size_t YEAR_DIGITS = 4;
constexpr std::size_t OTHER_DIGITS = 2;

std::optional<SectionTyping::Unit> unitOf(char letter) {
    switch (letter) {
    case 'd':
        return SectionTyping::Unit::day;
    case 'M':
        return SectionTyping::Unit::month;
    case 'y':
        return SectionTyping::Unit::year;
    case 'h':
        return SectionTyping::Unit::hour;
    case 'm':
        return SectionTyping::Unit::minute;
    default:
        return std::nullopt;
    }
}

std::size_t digitsOf(SectionTyping::Unit unit) {
    return unit == SectionTyping::Unit::year ? YEAR_DIGITS : OTHER_DIGITS;
}

/// The greatest first digit after which a second one can stand.
char lastFirstDigit(SectionTyping::Unit unit) {
    switch (unit) {
    case SectionTyping::Unit::day:
        return '3';
    case SectionTyping::Unit::month:
        return '1';
    case SectionTyping::Unit::hour:
        return '2';
    case SectionTyping::Unit::minute:
        return '5';
    default:
        return '9';
    }
}

/// The length of each number in a text.
std::vector<std::size_t> numberLengths(std::string_view characters) {
    std::vector<std::size_t> lengths;
    bool inNumber = false;
    for (const char c : characters) {
        if (isDigit(c) && !inNumber) {
            lengths.push_back(0);
        }
        inNumber = isDigit(c);
        if (inNumber) {
            ++lengths.back();
        }
    }
    return lengths;
}

} // namespace

SectionTyping::SectionTyping(std::string_view format) {
    std::string before;
    for (std::size_t i = 0; i < format.size();) {
        const auto unit = unitOf(format[i]);
        if (!unit) {
            before += format[i++];
            continue;
        }
        sections_.push_back({*unit, before, {}});
        before.clear();
        i = std::min(format.find_first_not_of(format[i], i), format.size());
    }
    after_ = before;
}

void SectionTyping::begin(std::string_view shown, std::size_t section) {
    for (Section& one : sections_) {
        const auto start = std::find_if(shown.begin(), shown.end(), isDigit);
        const auto end = std::find_if_not(start, shown.end(), isDigit);
        one.text.assign(start, end);
        shown.remove_prefix(static_cast<std::size_t>(end - shown.begin()));
    }
    active_ = !sections_.empty();
    if (active_) {
        goTo(std::min(section, sections_.size() - 1));
    }
}

void SectionTyping::type(std::string_view characters) {
    const std::vector<std::size_t> lengths = numberLengths(characters);
    if (lengths.size() > 1 && lengths.size() >= sections_.size()) {
        if (!matches(lengths)) {
            return;
        }
        goTo(0);
    }
    for (const char c : characters) {
        typeOne(c);
    }
}

/// Whether numbers of these lengths, at least one for each section, can be in the order of the sections. The
/// first number may be a whole date.
bool SectionTyping::matches(const std::vector<std::size_t>& lengths) const {
    std::size_t all = 0;
    bool eachFits = true;
    bool hasYear = false;
    for (std::size_t i = 0; i < sections_.size(); ++i) {
        const std::size_t digits = digitsOf(sections_[i].unit);
        all += digits;
        eachFits = eachFits && lengths[i] <= digits;
        hasYear = hasYear || sections_[i].unit == Unit::year;
    }
    if (hasYear) {
        return eachFits || lengths[0] == all;
    }
    // "18.06.2026" is no time.
    return eachFits && std::find(lengths.begin(), lengths.end(), YEAR_DIGITS) == lengths.end();
}

void SectionTyping::typeOne(char c) {
    if (!isDigit(c)) {
        if (!movedOn_ && !fresh_) {
            moveOn();
        }
        movedOn_ = false;
        return;
    }
    if (closed_) {
        return;
    }
    std::string& text = sections_[section_].text;
    if (fresh_) {
        text.clear();
    }
    fresh_ = false;
    movedOn_ = false;
    if (text.size() < digitsOf(sections_[section_].unit)) {
        text += c;
    }
    if (isFull() && section_ + 1 < sections_.size()) {
        moveOn();
        movedOn_ = true;
    }
}

void SectionTyping::eraseDigit() {
    if (movedOn_) {
        goTo(section_ - 1);
    }
    std::string& text = sections_[section_].text;
    if (!text.empty()) {
        text.pop_back();
    }
    fresh_ = false;
    closed_ = false;
}

void SectionTyping::eraseSection() {
    if (movedOn_) {
        eraseDigit();
        return;
    }
    sections_[section_].text.clear();
    goTo(section_);
}

void SectionTyping::eraseAll() {
    for (Section& one : sections_) {
        one.text.clear();
    }
    goTo(0);
}

bool SectionTyping::move(int steps) {
    const int wanted = static_cast<int>(section_) + steps;
    if (wanted < 0 || wanted >= static_cast<int>(sections_.size())) {
        return false;
    }
    goTo(static_cast<std::size_t>(wanted));
    return true;
}

void SectionTyping::moveToFirst() { goTo(0); }

void SectionTyping::moveToLast() { goTo(sections_.size() - 1); }

void SectionTyping::goTo(std::size_t section) {
    section_ = section;
    fresh_ = true;
    movedOn_ = false;
    closed_ = false;
}

std::string SectionTyping::text() const {
    std::string text;
    for (const Section& one : sections_) {
        text += one.before + one.text;
    }
    return text + after_;
}

std::size_t SectionTyping::sectionStart() const {
    std::size_t start = 0;
    for (std::size_t i = 0; i < section_; ++i) {
        start += sections_[i].before.size() + sections_[i].text.size();
    }
    return start + sections_[section_].before.size();
}

std::optional<int> SectionTyping::number(Unit unit) const {
    const auto found = std::find_if(sections_.begin(), sections_.end(),
                                    [unit](const Section& one) { return one.unit == unit; });
    if (found == sections_.end() || found->text.empty()) {
        return std::nullopt;
    }
    int number = 0;
    for (const char c : found->text) {
        number = 10 * number + (c - '0');
    }
    if (unit == Unit::year && found->text.size() <= 2) {
        constexpr int FIRST_YEAR = 70;
        number += number < FIRST_YEAR ? 2000 : 1900;
    }
    return number;
}

bool SectionTyping::isFull() const {
    const Section& now = sections_[section_];
    return now.text.size() == digitsOf(now.unit) ||
           (now.unit != Unit::year && now.text[0] > lastFirstDigit(now.unit));
}

void SectionTyping::moveOn() {
    if (section_ + 1 < sections_.size()) {
        goTo(section_ + 1);
    } else {
        closed_ = true;
    }
}

} // namespace kelvrum
