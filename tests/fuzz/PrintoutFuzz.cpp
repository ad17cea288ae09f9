// SPDX-License-Identifier: GPL-3.0-or-later
// Any rows and columns of the printed table, on paper of any size. The input: sizes, then the line of the
// columns, the header, and rows.
#include "app/TablePrintout.h"
#include "tests/fuzz/Fuzzing.h"
#include "tests/testing/TestSurface.h"

#include <cmath>
#include <memory>
#include <string>
#include <vector>

namespace {

using namespace kelvrum;
using fuzzing::require;
using testing::TestSurface;

/// Millimetres by the first byte of each character: 0.5 to 4; a blank 1.
double widthOf(std::string_view text) {
    double width = 0;
    for (const char c : text) {
        const auto byte = static_cast<unsigned char>(c);
        width += (byte & 0xC0U) == 0x80U ? 0 : c == ' ' ? 1 : (byte % 8 + 1) * 0.5;
    }
    return width;
}

/// The rule to the letter: cut at the right, then a blank at a time.
std::string fittedByRule(std::string cell, char mark, double column) {
    while (!cell.empty() && widthOf(cell) > column) {
        while (cell.size() > 1 && (static_cast<unsigned char>(cell.back()) & 0xC0U) == 0x80U) {
            cell.pop_back();
        }
        cell.pop_back();
    }
    if (mark == 0) {
        cell.erase(cell.find_last_not_of(' ') + 1);
        return cell;
    }
    for (bool left = true; widthOf(cell) < column; left = !left) {
        cell.insert(mark == '>' || left ? 0 : cell.size(), 1, ' ');
    }
    return cell;
}

void checkCell(std::string_view text, std::string_view entry) {
    const auto [mark, column] = parseColumnEntry(entry);
    require(std::isfinite(column), "a column's width is finite");
    const std::string cell = fitCell(text, entry, widthOf);
    constexpr double MAX_PADDED = 300;
    // The fitter takes a column that is a hair wider than whole blanks for as wide as these.
    constexpr double HAIR = 1e-6;
    const double apart = std::fabs(column - std::round(column * 2) / 2); // all widths are halves
    const bool aHairWider = apart > 0 && apart < HAIR;
    if (column < MAX_PADDED && !aHairWider) {
        require(cell == fittedByRule(std::string(text), mark, column),
                "a cell is cut and padded by the rule");
    }
    require(!fuzzing::isUtf8(text) || fuzzing::isUtf8(cell), "characters are dropped as a whole");
}

void checkRow(std::string_view row, std::string_view columns, double lastWidth) {
    const auto cells = split(row, '|');
    const auto entries = split(columns, '|');
    const auto placed = placeRow(row, columns, lastWidth, widthOf);
    require(placed.size() == std::min(cells.size(), entries.size()), "each cell with an entry is placed");
    for (std::size_t i = 0; i < placed.size(); ++i) {
        require(placed[i].x == parseColumnEntry(entries[i]).millimetres, "a cell is at its entry");
        checkCell(cells[i], entries[i]);
    }
}

void checkPages(const Table& table, Extent paper, double scale) {
    std::vector<std::unique_ptr<TestSurface>> pages;
    printTable(table, [&]() -> Surface& {
        return *pages.emplace_back(std::make_unique<TestSurface>(paper, scale));
    });
    require(!pages.empty() && pages.size() <= table.rows + 1, "no page is without a row, but for the first");
    for (const auto& page : pages) {
        require(!page->texts().empty() && page->texts().back().at.y >= 0, "texts are on their page");
    }
}

} // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    fuzzing::Input input(data, size);
    const Extent paper = {input.between(0, 5000), input.between(0, 5000)};
    const double scale = input.between(1, 400) / 10.0;
    const double lastWidth = input.between(-50, 500) / 3.0;
    Table table;
    table.valueColumns = static_cast<std::size_t>(input.between(0, 40));
    const std::string_view columns = input.line();
    table.title = columns;
    table.header = input.line();
    const auto lines = split(input.rest(), '\n');
    constexpr std::size_t MAX_ROWS = 10;
    table.rows = std::min(lines.size(), MAX_ROWS);
    table.rowText = [&lines](std::size_t row) { return std::string(lines[row]); };
    checkRow(table.header, columns, lastWidth);
    for (std::size_t row = 0; row < table.rows; ++row) {
        checkRow(lines[row], columns, lastWidth);
    }
    checkPages(table, paper, scale);
    return 0;
}
