// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/EvaluationPrintout.h"

#include "app/TablePage.h"
#include "app/TablePrintout.h"
#include "drawing/FittedText.h"
#include "util/Numbers.h"

#include <algorithm>
#include <numeric>
#include <string_view>
#include <vector>

namespace kelvrum {

namespace {

using namespace tablepage;

// Millimetres.
constexpr double BELOW_COLUMN_NAMES = 2;
constexpr double BETWEEN_COLUMNS = 4;

constexpr std::size_t MAX_LINES = 4; // of a value

const Font HEADING_FONT{"Arial", 10, true, false};

/// Prints lines from the top of the first page on and goes to a new page when the next one would not fit.
class EvaluationPrinter {
  public:
    explicit EvaluationPrinter(const std::function<Surface&()>& newPage)
        : newPage_(newPage) {
        startPage();
        setFont(TEXT_FONT);
    }

    void printTitle(const std::string& title) { printHeading(title, TITLE_FONT); }

    /// Names and values in two columns; a long value takes several lines.
    void printEntries(const std::vector<EvaluationEntry>& entries) {
        double names = 0;
        for (const EvaluationEntry& entry : entries) {
            names = std::max(names, widthOn(*page_, entry.label));
        }
        const double valueAt = LEFT_MARGIN + names + BETWEEN_COLUMNS;
        const std::string columns = plainNumber(LEFT_MARGIN) + "|" + plainNumber(valueAt);
        const double width = millimetres(*page_, page_->size().width) - valueAt;
        for (const EvaluationEntry& entry : entries) {
            std::string label = entry.label;
            for (const std::string& line :
                 wrapText(*page_, entry.value, dots(*page_, width - RIGHT_MARGIN), MAX_LINES)) {
                if (!hasRoom(1)) {
                    startPage();
                }
                printRow({label, line}, columns, width);
                label.clear();
            }
        }
        y_ += lineHeight_;
    }

    void printTable(const EvaluationTable& table) {
        constexpr int MIN_LINES = 6; // else the table begins on the next page
        if (!hasRoom(MIN_LINES)) {
            startPage();
        }
        printHeading(table.title, HEADING_FONT);
        const std::vector<double> widths = fitColumns(table);
        double position = LEFT_MARGIN;
        std::string columns;
        for (std::size_t i = 0; i < widths.size(); ++i) {
            columns += (i > 0 ? "|>" : "") + plainNumber(position);
            position += widths[i];
        }
        printHeader(table, columns, widths.back());
        for (const auto& row : table.rows) {
            if (!hasRoom(1)) {
                startPage();
                printHeader(table, columns, widths.back());
            }
            printRow(row, columns, widths.back());
        }
        setFont(TEXT_FONT);
        y_ += lineHeight_;
    }

  private:
    [[nodiscard]] bool hasRoom(int lines) const {
        return y_ + lines * lineHeight_ <= millimetres(*page_, page_->size().height) - LOWER_MARGIN;
    }

    void startPage() {
        page_ = &newPage_();
        page_->setPen(BLACK);
        page_->setFont(font_);
        y_ = FIRST_LINE;
    }

    void setFont(const Font& font) {
        font_ = font;
        page_->setFont(font_);
        lineHeight_ = lineHeightOn(*page_);
    }

    /// A line in its own font and an empty one.
    void printHeading(const std::string& text, const Font& font) {
        page_->setFont(font);
        const double height = lineHeightOn(*page_);
        drawTitle(*page_, text, font, y_);
        y_ += 1.5 * height;
        page_->setFont(font_);
    }

    void printHeader(const EvaluationTable& table, const std::string& columns, double lastWidth) {
        printRow(table.header, columns, lastWidth);
        y_ += BELOW_COLUMN_NAMES;
    }

    void printRow(const std::vector<std::string>& cells, const std::string& columns, double lastWidth) {
        const auto width = [this](std::string_view text) { return widthOn(*page_, text); };
        const std::vector<std::string_view> row(cells.begin(), cells.end());
        for (const PlacedCell& cell : placeCells(row, columns, lastWidth, width)) {
            page_->text({dots(*page_, cell.x), dots(*page_, y_)}, cell.text);
        }
        y_ += lineHeight_;
    }

    /// Each column is as wide as its widest cell.
    [[nodiscard]] std::vector<double> columnWidths(const EvaluationTable& table) const {
        std::vector<double> widths(table.header.size(), 0);
        const auto widen = [&](const std::vector<std::string>& row) {
            for (std::size_t i = 0; i < widths.size(); ++i) {
                widths[i] = std::max(widths[i], widthOn(*page_, row[i]) + BETWEEN_COLUMNS);
            }
        };
        widen(table.header);
        for (const auto& row : table.rows) {
            widen(row);
        }
        return widths;
    }

    /// The widths in the largest font in which all columns are on the page; the smallest one where none is.
    std::vector<double> fitColumns(const EvaluationTable& table) {
        constexpr double MIN_POINTS = 5;
        const double room = millimetres(*page_, page_->size().width) - LEFT_MARGIN - RIGHT_MARGIN;
        std::vector<double> widths = columnWidths(table);
        for (Font font = TEXT_FONT;
             font.Size > MIN_POINTS && std::accumulate(widths.begin(), widths.end(), 0.0) > room;) {
            --font.Size;
            setFont(font);
            widths = columnWidths(table);
        }
        return widths;
    }

    const std::function<Surface&()>& newPage_;
    Font font_ = TEXT_FONT; // of the rows
    Surface* page_ = nullptr;
    double y_ = 0; // of the next line, millimetres
    double lineHeight_ = 0;
};

} // namespace

void printEvaluationText(const EvaluationText& text, const std::string& station, const std::string& foot,
                         const std::function<Surface&()>& newPage) {
    std::vector<Surface*> pages;
    const std::function<Surface&()> nextPage = [&]() -> Surface& {
        pages.push_back(&newPage());
        return *pages.back();
    };
    EvaluationPrinter printer(nextPage);
    printer.printTitle(text.title);
    std::vector<EvaluationEntry> entries = {{"Station", station}};
    entries.insert(entries.end(), text.summary.begin(), text.summary.end());
    entries.push_back({"Grenzwerte", text.limits});
    entries.push_back({"Hinweis", text.foot});
    printer.printEntries(entries);
    for (const EvaluationTable& table : text.tables) {
        printer.printTable(table);
    }
    for (std::size_t i = 0; i < pages.size(); ++i) {
        drawPageFoot(*pages[i], foot, i + 1, pages.size());
    }
}

} // namespace kelvrum
