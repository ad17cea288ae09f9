#include "app/TablePrintout.h"

#include "util/Numbers.h"
#include "util/Text.h"

#include <algorithm>
#include <cmath>

namespace kelvrum {

namespace {

// Millimetres.
constexpr double LEFT_MARGIN = 20;
constexpr double FIRST_LINE = 10;
constexpr double LOWER_MARGIN = 10;
constexpr double BEHIND_HEADER = 5;

// These texts set the widths of the columns.
constexpr std::string_view TIME_SAMPLE = "31.12.2005  17:17";
constexpr std::string_view VALUE_SAMPLE = "12345678901234 [ert]";

const Font TITLE_FONT{"Arial", 12, true, false};
const Font TEXT_FONT{"Arial", 10, false, false};

/// True within a UTF-8 character, after its first byte.
bool isContinuation(char c) { return (static_cast<unsigned char>(c) & 0xC0U) == 0x80U; }

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
void dropFarBehind(std::string& text, double column, const TextWidth& width) {
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

/// Prints lines from the top of the first page on and goes to a new page when the next one would not fit.
class TablePrinter {
  public:
    TablePrinter(const Table& table, const std::function<Surface&()>& newPage)
        : table_(table)
        , newPage_(newPage)
        , page_(&newPage()) {}

    void run() {
        page_->setPen(BLACK);
        printTitle();
        page_->setFont(TEXT_FONT);
        setUpColumns();
        printHeader();
        for (std::size_t row = 0; row < table_.rows; ++row) {
            if (y_ + lineHeight_ > pageHeight() - LOWER_MARGIN) {
                page_ = &newPage_();
                page_->setPen(BLACK);
                page_->setFont(TEXT_FONT);
                y_ = FIRST_LINE;
                printHeader();
            }
            printRow(table_.rowText(row));
        }
    }

  private:
    [[nodiscard]] double millimetres(int dots) const { return dots / page_->scale(); }
    [[nodiscard]] int dots(double length) const {
        return static_cast<int>(roundHalfEven(length * page_->scale()));
    }
    [[nodiscard]] double pageHeight() const { return millimetres(page_->size().height); }
    [[nodiscard]] double widthOf(std::string_view text) const {
        return millimetres(page_->textExtent(text).width);
    }

    void printTitle() {
        page_->setFont(TITLE_FONT);
        page_->text({dots(LEFT_MARGIN), dots(FIRST_LINE)}, table_.title);
        const double line = millimetres(page_->textExtent("").height);
        y_ = FIRST_LINE + 2 * line; // the title and an empty line
    }

    void setUpColumns() {
        lineHeight_ = millimetres(page_->textExtent("").height);
        valueWidth_ = std::floor(widthOf(VALUE_SAMPLE)) + 1;
        double position = LEFT_MARGIN;
        columns_ = entryText(0, position);
        position += std::floor(widthOf(TIME_SAMPLE)) + 1;
        for (std::size_t i = 0; i < table_.valueColumns; ++i) {
            columns_.append("|").append(entryText('>', position));
            position += valueWidth_;
        }
    }

    void printHeader() {
        printRow(table_.header);
        y_ += BEHIND_HEADER;
    }

    void printRow(const std::string& row) {
        const auto width = [this](std::string_view text) { return widthOf(text); };
        for (const PlacedCell& cell : placeRow(row, columns_, valueWidth_, width)) {
            page_->text({dots(cell.x), dots(y_)}, cell.text);
        }
        y_ += lineHeight_;
    }

    const Table& table_;
    const std::function<Surface&()>& newPage_;
    Surface* page_;
    double y_ = 0; // of the next line, millimetres
    double lineHeight_ = 0;
    double valueWidth_ = 0;
    std::string columns_;
};

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
    dropFarBehind(cell, column, width);
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
    const auto cells = split(row, '|');
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

void printTable(const Table& table, const std::function<Surface&()>& newPage) {
    TablePrinter(table, newPage).run();
}

} // namespace kelvrum
