// SPDX-License-Identifier: GPL-3.0-or-later
// Pages that record what is printed on them.
#pragma once

#include "tests/testing/TestSurface.h"

#include <algorithm>
#include <cstddef>
#include <memory>
#include <string>
#include <vector>

namespace kelvrum::testing {

/// Pages of 297 x 210 mm at 10 dots per millimetre; a character is 6 dots wide and a line 12 dots high.
struct RecordedPages {
    std::vector<std::unique_ptr<TestSurface>> pages;

    Surface& next() {
        pages.push_back(std::make_unique<TestSurface>(Extent{2970, 2100}, 10));
        return *pages.back();
    }
    /// The texts of a page in the order of drawing, without the blanks in front of them.
    [[nodiscard]] std::vector<std::string> textsOf(std::size_t page) const {
        std::vector<std::string> texts;
        for (const auto& text : pages[page]->texts()) {
            texts.push_back(text.text.substr(std::min(text.text.find_first_not_of(' '), text.text.size())));
        }
        return texts;
    }
};

} // namespace kelvrum::testing
