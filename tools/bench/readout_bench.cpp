// SPDX-License-Identifier: GPL-3.0-or-later
// Reading the picture and finding values: a move of the pointer over a year of minutes, the marks of a
// calendar's month, the last stored value.
#include "data/DayCoverage.h"
#include "data/StoredValues.h"
#include "diagram/PolarSys.h"
#include "tools/bench/BenchStation.h"
#include "tools/bench/Ratios.h"
#include "tools/bench/Registers.h"
#include "tools/bench/Viewer.h"
#include "util/VectorRegisters.h"

#include <QMouseEvent>
#include <vector>

namespace kelvrum::bench {

namespace {

/// Moves the pointer over the diagram without a button.
void moveTo(PolarSys& diagram, const QPointF& place) {
    QMouseEvent move(QEvent::MouseMove, place, diagram.mapToGlobal(place), Qt::NoButton, Qt::NoButton,
                     Qt::NoModifier);
    QCoreApplication::sendEvent(&diagram, &move);
    QCoreApplication::processEvents();
}

void pointerMove(benchmark::State& state) {
    const Viewer viewer;
    auto& diagram = viewer.the<PolarSys>("KS");
    const QPointF centre = QRectF(diagram.rect()).center();
    int x = 0;
    for (auto _ : state) {
        x = (x + 37) % 400; // from value to value, seldom to the same one again
        moveTo(diagram, centre + QPointF(x - 200, 0));
    }
}
BENCHMARK(pointerMove)->Unit(benchmark::kMillisecond);

void overlayRepainted(benchmark::State& state) {
    const Viewer viewer;
    auto& diagram = viewer.the<PolarSys>("KS");
    moveTo(diagram, QRectF(diagram.rect()).center());
    auto& overlay = viewer.the<QWidget>("overlay");
    for (auto _ : state) {
        overlay.update();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(overlayRepainted)->Unit(benchmark::kMillisecond);

void calendarMonth(benchmark::State& state) {
    const auto channel = static_cast<std::int32_t>(state.range(0));
    for (auto _ : state) {
        afterPainting(state);
        auto month = readCoverage(station().config, channel, 2019, 7, openFile, {});
        benchmark::DoNotOptimize(month->minutes.front());
    }
}
BENCHMARK(calendarMonth)->Arg(DUST)->Arg(DIRECTION)->Unit(benchmark::kMillisecond);

/// A piece of a channel's file, read into a kept buffer.
void plainMinutes(benchmark::State& state) {
    std::vector<std::byte> buffer(static_cast<std::size_t>(state.range(0)) * sizeof(double));
    for (auto _ : state) {
        cleanVectorRegisters();
        const auto file = openFile(station().file(DUST));
        benchmark::DoNotOptimize(file->read(file->size() - buffer.size(), buffer));
    }
}
BENCHMARK(plainMinutes)->Arg(31LL * MINUTES_PER_DAY)->Arg(8LL * 1024)->Unit(benchmark::kMillisecond);

void lastValue(benchmark::State& state) {
    for (auto _ : state) {
        afterPainting(state);
        auto last = findStored(station().config, DUST, StoredEnd::last, openFile, {});
        benchmark::DoNotOptimize(last->time);
    }
}
BENCHMARK(lastValue)->Unit(benchmark::kMillisecond);

/// From the key to the painted view. Every second time back to the year, which is not counted.
void jumpToTheLastValue(benchmark::State& state) {
    const Viewer viewer;
    auto& jump = viewer.the<QAction>("menLetzter");
    for (auto _ : state) {
        jump.trigger();
        QCoreApplication::processEvents();
        state.PauseTiming();
        showYear(*viewer.window);
        viewer.window->LoadData();
        QCoreApplication::processEvents();
        state.ResumeTiming();
    }
}
BENCHMARK(jumpToTheLastValue)->Unit(benchmark::kMillisecond);

const bool RATIOS =
    addRatio(
        {"pointer moved over a year, beside repainting the overlay", "pointerMove", {"overlayRepainted"}}) &&
    addRatio({"marks of a month, beside a plain read of its minutes",
              "calendarMonth/7",
              {"plainMinutes/44640"}}) &&
    addRatio({"the same, directions and their speeds",
              "calendarMonth/5",
              {"plainMinutes/44640", "plainMinutes/44640"}}) &&
    addRatio({"last value found, beside a plain read of one piece", "lastValue", {"plainMinutes/8192"}}) &&
    addRatio({"jump to the last value, beside a view of the year", "jumpToTheLastValue", {"wholeView/mean"}});

} // namespace

} // namespace kelvrum::bench
