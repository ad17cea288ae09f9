// SPDX-License-Identifier: GPL-3.0-or-later
// The list of a year of minutes, from its rows to a finished document, beside the same lines written plainly
// with the toolkit.
#include "app/TablePrintout.h"
#include "diagram/CopiedText.h"
#include "drawing/PrintJob.h"
#include "tools/bench/Ratios.h"
#include "tools/bench/Registers.h"

#include <QFileInfo>
#include <QFontMetrics>
#include <QPainter>
#include <QPdfWriter>
#include <QPrinter>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <string>
#include <vector>

namespace kelvrum::bench {

namespace {

constexpr int ROWS = 365 * 1440;

/// "18.06.2026 00:07|12,34": each with its own time and value.
std::vector<std::string> rowsOfAYear() {
    const auto digits = [](int v, int count) {
        const std::string text = std::to_string(v);
        return std::string(static_cast<std::size_t>(count) - text.size(), '0') + text;
    };
    std::vector<std::string> rows;
    rows.reserve(ROWS);
    for (int i = 0; i < ROWS; ++i) {
        const int day = i / 1440;
        rows.push_back(digits(day % 28 + 1, 2) + '.' + digits(day / 31 + 1, 2) + ".2026 " +
                       digits(i / 60 % 24, 2) + ':' + digits(i % 60, 2) + '|' +
                       std::to_string(i % 997 * 7919 % 99) + ',' + digits(i % 89, 2));
    }
    return rows;
}

Table tableOf(const std::vector<std::string>& rows) {
    Table table;
    table.title = "Kläranlage Nord";
    table.header = "Uhrzeit|Staub PM10 [µg/m³]";
    table.rows = rows.size();
    table.rowText = [&rows](std::size_t row) { return rows[row]; };
    table.note = TIME_NOTE;
    table.foot =
        "01.01.2026, 00:00 Uhr bis 01.01.2027, 00:00 Uhr, Intervall: 1 Minute, gedruckt am 18.06.2026";
    return table;
}

void printedListOfAYear(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("list.pdf"));
    const std::vector<std::string> rows = rowsOfAYear();
    const Table table = tableOf(rows);
    for (auto _ : state) {
        afterPainting(state);
        PrintJob job;
        job.setUp([&file](QPrinter& printer) {
            printer.setOutputFormat(QPrinter::PdfFormat);
            printer.setOutputFileName(file);
            return true;
        });
        const auto trial = job.trialPage(QPageLayout::Portrait);
        const TablePages pages(table, *trial);
        job.addPages(pages.count(), QPageLayout::Portrait,
                     [&pages](std::size_t page, Surface& surface) { pages.draw(page, surface); });
        job.end();
        state.counters["pages"] = static_cast<double>(pages.count());
    }
    state.counters["document_kB"] = static_cast<double>(QFileInfo(file).size()) / 1000;
}
BENCHMARK(printedListOfAYear)->Unit(benchmark::kMillisecond)->Iterations(1);

void plainListOfAYear(benchmark::State& state) {
    constexpr double MARGIN = 20; // millimetres
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("plain.pdf"));
    const std::vector<std::string> rows = rowsOfAYear();
    for (auto _ : state) {
        afterPainting(state);
        QPdfWriter writer(file);
        writer.setPageSize(QPageSize(QPageSize::A4));
        writer.setPageMargins(QMarginsF());
        QPainter painter(&writer);
        painter.setFont(QFont(QStringLiteral("Arial"), 10));
        const double scale = writer.resolution() / 25.4;
        const int height = QFontMetrics(painter.font(), &writer).height();
        int y = static_cast<int>(MARGIN * scale);
        for (const std::string& row : rows) {
            if (y + height > writer.height() - MARGIN * scale) {
                writer.newPage();
                y = static_cast<int>(MARGIN * scale);
            }
            const QString text = QString::fromStdString(row);
            const auto bar = text.indexOf(QLatin1Char('|'));
            painter.drawText(static_cast<int>(MARGIN * scale), y, text.left(bar));
            painter.drawText(static_cast<int>(4 * MARGIN * scale), y, text.mid(bar + 1));
            y += height;
        }
        painter.end();
    }
    state.counters["document_kB"] = static_cast<double>(QFileInfo(file).size()) / 1000;
}
BENCHMARK(plainListOfAYear)->Unit(benchmark::kMillisecond)->Iterations(1);

const bool compared = addRatio({"printed list of a year, beside its lines written plainly with the toolkit",
                                "printedListOfAYear/iterations:1",
                                {"plainListOfAYear/iterations:1"}});

} // namespace

} // namespace kelvrum::bench
