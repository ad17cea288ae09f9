// SPDX-License-Identifier: GPL-3.0-or-later
// The data list as a printed table: row printer and cell fitter, on any surface.
#pragma once

#include "drawing/Surface.h"

#include <cstddef>
#include <functional>
#include <string>
#include <string_view>
#include <vector>

namespace kelvrum {

/// The width of a text in millimetres, as it is printed.
using TextWidth = std::function<double(std::string_view text)>;

/// One column entry: its position, a number in millimetres, optionally after an alignment mark.
struct ColumnEntry {
    char mark = 0; // '>' right, '^' centred, 0 left
    double millimetres = 0;

    bool operator==(const ColumnEntry&) const = default;
};

/// Reads an entry such as "20", ">57" or "^12.5"; what is no number counts as 0.
ColumnEntry parseColumnEntry(std::string_view entry);

/// Fits a text into a column: `entry` is the column's mark and width. The text is cut from the right until
/// its width does not exceed the column's, then padded with blanks until it reaches it: on the left for ">",
/// in turns on both sides, left first, for "^", and not at all for a left-aligned cell.
std::string fitCell(std::string_view text, std::string_view entry, const TextWidth& width);

/// One cell as it is printed.
struct PlacedCell {
    double x = 0; // millimetres from the paper's left edge
    std::string text;

    bool operator==(const PlacedCell&) const = default;
};

/// The cells of one line: row text and column entries are split at "|". A column is as wide as the distance
/// to the next one's position; the last one is `lastWidth` (mm) wide. Cells without an entry are left out.
std::vector<PlacedCell> placeRow(std::string_view row, std::string_view columns, double lastWidth,
                                 const TextWidth& width);

/// The same with the row as separate cells, whose texts may contain "|".
std::vector<PlacedCell> placeCells(const std::vector<std::string_view>& cells, std::string_view columns,
                                   double lastWidth, const TextWidth& width);

/// What is printed.
struct Table {
    std::string title;  // the station's name
    std::string header; // row text of the header line
    std::size_t valueColumns = 1;
    std::size_t rows = 0;
    std::function<std::string(std::size_t row)> rowText; // cells separated by "|"
    std::string note = {};                               // below the title, once
    std::string foot = {}; // in the lower margin of each page, with the page's number; empty: no foot
};

/// A table on as many pages as it needs. Each page can be drawn separately.
class TablePages {
  public:
    /// `trial` is a page to measure on; all pages are alike. The table must outlive the pages.
    TablePages(const Table& table, Surface& trial);

    [[nodiscard]] std::size_t count() const { return count_; }

    /// Draws a page, counted from 0, on a surface of the trial page's size.
    void draw(std::size_t page, Surface& surface) const;

  private:
    [[nodiscard]] std::size_t rowsBelow(double y, double lowest) const;
    [[nodiscard]] double firstRowOf(std::size_t page) const;
    void drawRow(const std::string& row, double y, Surface& surface) const;

    const Table& table_;
    std::string columns_;
    double valueWidth_ = 0;
    double lineHeight_ = 0;
    double belowTitle_ = 0; // where the header of the first page is
    std::size_t rowsOnFirst_ = 0;
    std::size_t rowsOnOthers_ = 1;
    std::size_t count_ = 1;
};

/// Writes a title at the left margin, in a smaller font where the page is too narrow, and cut where that is
/// still too wide. `y` is in millimetres.
void drawTitle(Surface& page, const std::string& title, const Font& font, double y);

/// Writes a foot into the lower margin of a page, with the page's number, which counts from 1. On narrow
/// paper it takes several lines, and is cut where they do not suffice. An empty foot is none.
void drawPageFoot(Surface& page, const std::string& foot, std::size_t number, std::size_t count);

/// Prints a table on as many pages as it needs; each further page repeats the header line. `newPage` starts a
/// page and returns its surface in millimetres. Columns beyond the paper's right edge are not wrapped.
void printTable(const Table& table, const std::function<Surface&()>& newPage);

} // namespace kelvrum
