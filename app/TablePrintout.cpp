// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/TablePrintout.h"

#include "app/TablePage.h"
#include "drawing/FittedText.h"
#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <cmath>

namespace kelvrum {

namespace {

using namespace tablepage;

// Millimetres.
constexpr double BELOW_HEADER = 5;

// These texts set the widths of the columns.
constexpr std::string_view TIME_SAMPLE = "31.12.2005  17:17";
constexpr std::string_view VALUE_SAMPLE = "12345678901234 [ert]";

const Font FOOT_FONT{"Arial", 8, false, false};

/// Takes the last character, which may be several bytes, off a UTF-8 text.
void dropLastCharacter(std::string& text) {
    while (!text.empty() && isContinuation(text.back())) {
        text.pop_back();
    }
    if (!text.empty()) {
        text.pop_back();
    }
}

/// Cuts a text that extends far beyond its column: what follows a start of twice the column's width cannot
/// fit. Measuring a long text anew for each dropped character costs the square of its length.
void cutFarBeyond(std::string& text, double column, const TextWidth& width) {
    constexpr std::size_t SHORT = 64;
    for (std::size_t front = SHORT; front < text.size(); front *= 2) {
        while (front < text.size() && isContinuation(text[front])) {
            ++front;
        }
        if (width(std::string_view(text).substr(0, front)) > 2 * column) {
            text.resize(std::min(front, text.size()));
            return;
        }
    }
}

std::string entryText(char mark, double millimetres) {
    std::string text;
    if (mark != 0) {
        text += mark;
    }
    return text + plainNumber(millimetres);
}

} // namespace

ColumnEntry parseColumnEntry(std::string_view entry) {
    ColumnEntry result;
    if (entry.starts_with('>') || entry.starts_with('^')) {
        result.mark = entry.front();
        entry.remove_prefix(1);
    }
    const double number = leadingNumber(entry);
    result.millimetres = std::isfinite(number) ? number : 0;
    return result;
}

std::string fitCell(std::string_view text, std::string_view entry, const TextWidth& width) {
    const auto [mark, column] = parseColumnEntry(entry);
    std::string cell(text);
    cutFarBeyond(cell, column, width);
    double printed = width(cell);
    while (!cell.empty() && printed > column) {
        dropLastCharacter(cell);
        printed = width(cell);
    }
    if (mark == 0) {
        cell.erase(cell.find_last_not_of(' ') + 1);
        return cell;
    }
    const double blank = width(" ");
    if (!(blank > 0) || !(column > printed)) {
        return cell;
    }
    constexpr double MAX_BLANKS = 10'000;
    constexpr double ROUNDING = 1e-9;
    const auto blanks =
        static_cast<std::size_t>(std::min(std::ceil((column - printed) / blank - ROUNDING), MAX_BLANKS));
    const std::size_t before = mark == '>' ? blanks : (blanks + 1) / 2;
    return std::string(before, ' ') + cell + std::string(blanks - before, ' ');
}

std::vector<PlacedCell> placeRow(std::string_view row, std::string_view columns, double lastWidth,
                                 const TextWidth& width) {
    return placeCells(split(row, '|'), columns, lastWidth, width);
}

std::vector<PlacedCell> placeCells(const std::vector<std::string_view>& cells, std::string_view columns,
                                   double lastWidth, const TextWidth& width) {
    const auto entries = split(columns, '|');
    std::vector<PlacedCell> placed;
    for (std::size_t i = 0; i < std::min(cells.size(), entries.size()); ++i) {
        const ColumnEntry entry = parseColumnEntry(entries[i]);
        const double columnWidth = i + 1 < entries.size()
                                       ? parseColumnEntry(entries[i + 1]).millimetres - entry.millimetres
                                       : lastWidth;
        placed.push_back({entry.millimetres, fitCell(cells[i], entryText(entry.mark, columnWidth), width)});
    }
    return placed;
}

TablePages::TablePages(const Table& table, Surface& trial)
    : table_(table) {
    trial.setFont(TITLE_FONT);
    belowTitle_ = FIRST_LINE + 2 * lineHeightOn(trial); // the title and an empty line
    trial.setFont(TEXT_FONT);
    lineHeight_ = lineHeightOn(trial);
    valueWidth_ = std::floor(widthOn(trial, VALUE_SAMPLE)) + 1;
    double position = LEFT_MARGIN;
    columns_ = entryText(0, position);
    position += std::floor(widthOn(trial, TIME_SAMPLE)) + 1;
    for (std::size_t i = 0; i < table.valueColumns; ++i) {
        columns_.append("|").append(entryText('>', position));
        position += valueWidth_;
    }
    const double lowest = millimetres(trial, trial.size().height) - LOWER_MARGIN;
    rowsOnFirst_ = rowsBelow(firstRowOf(0), lowest);
    rowsOnOthers_ = std::max<std::size_t>(1, rowsBelow(firstRowOf(1), lowest)); // else pages without end
    if (table.rows > rowsOnFirst_) {
        count_ += (table.rows - rowsOnFirst_ + rowsOnOthers_ - 1) / rowsOnOthers_;
    }
}

/// How many rows end above the lower margin when the first one begins at y.
std::size_t TablePages::rowsBelow(double y, double lowest) const {
    std::size_t rows = 0;
    while (rows < table_.rows && y + lineHeight_ <= lowest) {
        y += lineHeight_;
        ++rows;
    }
    return rows;
}

/// Where the first row of a page begins, below the header.
double TablePages::firstRowOf(std::size_t page) const {
    return (page == 0 ? belowTitle_ : FIRST_LINE) + lineHeight_ + BELOW_HEADER;
}

void TablePages::draw(std::size_t page, Surface& surface) const {
    surface.setPen(BLACK);
    if (page == 0) {
        drawTitle(surface, table_.title, TITLE_FONT, FIRST_LINE);
        if (!table_.note.empty()) {
            surface.setFont(FOOT_FONT);
            surface.text({dots(surface, LEFT_MARGIN), dots(surface, (FIRST_LINE + belowTitle_) / 2)},
                         table_.note);
        }
    }
    surface.setFont(TEXT_FONT);
    double y = firstRowOf(page);
    drawRow(table_.header, page == 0 ? belowTitle_ : FIRST_LINE, surface);
    const std::size_t first = page == 0 ? 0 : rowsOnFirst_ + (page - 1) * rowsOnOthers_;
    const std::size_t end = std::min(table_.rows, first + (page == 0 ? rowsOnFirst_ : rowsOnOthers_));
    for (std::size_t row = first; row < end; ++row) {
        drawRow(table_.rowText(row), y, surface);
        y += lineHeight_;
    }
    drawPageFoot(surface, table_.foot, page + 1, count_);
}

void TablePages::drawRow(const std::string& row, double y, Surface& surface) const {
    const auto width = [&surface](std::string_view text) { return widthOn(surface, text); };
    for (const PlacedCell& cell : placeRow(row, columns_, valueWidth_, width)) {
        surface.text({dots(surface, cell.x), dots(surface, y)}, cell.text);
    }
}

void drawTitle(Surface& page, const std::string& title, const Font& font, double y) {
    constexpr double MIN_POINTS = 8;
    const int room = page.size().width - dots(page, LEFT_MARGIN + RIGHT_MARGIN);
    const std::string text = fitText(page, font, title, room, MIN_POINTS);
    page.text({dots(page, LEFT_MARGIN), dots(page, y)}, text);
}

void drawPageFoot(Surface& page, const std::string& foot, std::size_t number, std::size_t count) {
    if (foot.empty()) {
        return;
    }
    constexpr double ABOVE_EDGE = 7; // of the upper edge of the line
    constexpr double GAP = 4;
    page.setPen(BLACK);
    page.setFont(FOOT_FONT);
    const std::string numberText = "Seite " + std::to_string(number) + " von " + std::to_string(count);
    const int left = dots(page, LEFT_MARGIN);
    const int right = page.size().width - dots(page, RIGHT_MARGIN);
    const int room = right - left;
    const Extent numberSize = page.textExtent(numberText);
    const auto beside = [&](const std::string& line) {
        return page.textExtent(line).width + dots(page, GAP) + numberSize.width <= room;
    };
    const auto maxLines = static_cast<std::size_t>(std::max(1, dots(page, LOWER_MARGIN) / numberSize.height));
    std::vector<std::string> lines = wrapText(page, foot, room, maxLines);
    if (!beside(lines.back()) && lines.size() < maxLines) {
        lines.emplace_back(); // of the number alone
    } else if (!beside(lines.back())) {
        lines.back() = cutText(page, lines.back(), room - dots(page, GAP) - numberSize.width);
    }
    int y = page.size().height - dots(page, lines.size() == 1 ? ABOVE_EDGE : LOWER_MARGIN);
    for (const std::string& line : lines) {
        if (!line.empty()) {
            page.text({left, y}, line);
        }
        y += numberSize.height;
    }
    page.text({right - numberSize.width, y - numberSize.height}, numberText);
}

void printTable(const Table& table, const std::function<Surface&()>& newPage) {
    Surface& first = newPage();
    const TablePages pages(table, first);
    pages.draw(0, first);
    for (std::size_t page = 1; page < pages.count(); ++page) {
        pages.draw(page, newPage());
    }
}

} // namespace kelvrum
