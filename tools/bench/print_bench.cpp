// A batch of ten year pages: from the series to a finished document.
#include "diagram/LineDiagram.h"
#include "diagram/PagePicture.h"
#include "diagram/PainterSurface.h"
#include "tools/bench/Ratios.h"
#include "tools/bench/Year.h"

#include <QFileInfo>
#include <QPrinter>
#include <QTemporaryDir>
#include <memory>
#include <vector>

namespace kelvrum::bench {

namespace {

constexpr DateTime START = 43466; // 2019-01-01
constexpr int PAGES = 10;

void batchOfTenYears(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("batch.pdf"));
    DiagramState control;
    control.initialise();
    const auto values = yearOfMinutes(50, 40);
    seriesTable().resize(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        seriesTable().set(i, START + static_cast<double>(i) / MINUTES_PER_DAY,
                          values[i] == 0 ? NoValue : values[i], NoValue);
    }
    control.SetArray(static_cast<std::int32_t>(values.size()));
    control.setXLow(START);
    control.setXHigh(START + 365);
    for (auto _ : state) {
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
        printer.setFullPage(true);
        printer.setPageOrientation(QPageLayout::Landscape);
        const QRectF paper = printer.paperRect(QPrinter::DevicePixel);
        const Extent size{static_cast<int>(paper.width()), static_cast<int>(paper.height())};
        const Resolution resolution = Resolution::page(printer.resolution());
        std::vector<std::unique_ptr<PagePicture>> pages;
        for (int i = 0; i < PAGES; ++i) {
            pages.push_back(std::make_unique<PagePicture>(size, resolution));
            drawLineDiagram(*pages.back(), control, DiagramLayout::page(), {});
        }
        PainterSurface surface(printer, size, resolution);
        for (int i = 0; i < PAGES; ++i) {
            if (i > 0) {
                printer.newPage();
            }
            pages[static_cast<std::size_t>(i)]->play(surface);
        }
        surface.end();
    }
    state.counters["document_kB"] = static_cast<double>(QFileInfo(file).size()) / 1000;
}
BENCHMARK(batchOfTenYears)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace kelvrum::bench
