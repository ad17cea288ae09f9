// SPDX-License-Identifier: GPL-3.0-or-later
// A batch of ten year pages: from the channel files to a finished document.
#include "data/DataReader.h"
#include "diagram/LineDiagram.h"
#include "drawing/PageRecording.h"
#include "drawing/PainterSurface.h"
#include "tools/bench/BenchStation.h"
#include "tools/bench/Registers.h"

#include <QFileInfo>
#include <QPrinter>
#include <QTemporaryDir>
#include <benchmark/benchmark.h>
#include <memory>
#include <vector>

namespace kelvrum::bench {

namespace {

constexpr int PAGES = 10;

void batchOfTenYears(benchmark::State& state) {
    const QTemporaryDir folder;
    const QString file = folder.filePath(QStringLiteral("batch.pdf"));
    DataReader reader;
    DiagramState control;
    control.initialise();
    control.setXLow(benchYear().from);
    control.setXHigh(benchYear().to);
    for (auto _ : state) {
        afterPainting(state);
        QPrinter printer(QPrinter::HighResolution);
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(file);
        printer.setFullPage(true);
        printer.setPageOrientation(QPageLayout::Landscape);
        const QRectF paper = printer.paperRect(QPrinter::DevicePixel);
        const Extent size{static_cast<int>(paper.width()), static_cast<int>(paper.height())};
        const Resolution resolution = Resolution::page(printer.resolution());
        std::vector<std::unique_ptr<RecordingSurface>> pages;
        for (int i = 0; i < PAGES; ++i) {
            const std::int32_t channel = i % 2 == 0 ? DUST : SPEED;
            reader.readDiagram(station().config, {channel, {}, benchYear(), 1}, {}, control, {});
            pages.push_back(pageRecording(size, resolution));
            drawLineDiagram(*pages.back(), control, DiagramLayout::page(), {});
        }
        PainterSurface surface(printer, size, resolution);
        for (int i = 0; i < PAGES; ++i) {
            if (i > 0) {
                printer.newPage();
            }
            pages[static_cast<std::size_t>(i)]->drawing().play(surface);
        }
        surface.end();
    }
    state.counters["document_kB"] = static_cast<double>(QFileInfo(file).size()) / 1000;
}
BENCHMARK(batchOfTenYears)->Unit(benchmark::kMillisecond);

} // namespace

} // namespace kelvrum::bench
