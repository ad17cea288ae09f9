// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/CaseFolding.h"

#include "util/Text.h"

#include <algorithm>
#include <cstdint>
#include <iterator>

namespace kelvrum {

namespace {

/// Every `step`-th character from first to last folds to the one `distance` further on.
struct Run {
    char32_t first;
    char32_t last;
    std::uint32_t step;
    std::int32_t distance;
};

/// In ascending order.
constexpr Run RUNS[] = {
#include "util/CaseFolding.inc"
};

char32_t folded(char32_t character) {
    const Run* run = std::lower_bound(std::begin(RUNS), std::end(RUNS), character,
                                      [](const Run& one, char32_t c) { return one.last < c; });
    if (run == std::end(RUNS) || character < run->first || (character - run->first) % run->step != 0) {
        return character;
    }
    return static_cast<char32_t>(static_cast<std::int32_t>(character) + run->distance);
}

} // namespace

std::string foldCase(std::string_view text) {
    std::string result;
    result.reserve(text.size());
    while (!text.empty()) {
        const Utf8Character front = firstCharacter(text);
        if (front.length == 0) {
            result += text.front();
            text.remove_prefix(1);
        } else {
            appendUtf8(result, folded(front.code));
            text.remove_prefix(front.length);
        }
    }
    return result;
}

} // namespace kelvrum
