// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bench/Registers.h"

#include "tools/bench/Ratios.h"
#include "tools/bench/Year.h"
#include "util/VectorRegisters.h"

#include <QImage>
#include <QPainter>
#include <cmath>
#include <cstddef>

namespace kelvrum::bench {

namespace {

double sinesAndCosines() {
    double sum = 0;
    for (std::size_t i = 0; i < YEAR; ++i) {
        const double angle = static_cast<double>(i) / 230;
        sum += std::sin(angle) + std::cos(angle);
    }
    return sum;
}

void sinesBeforePainting(benchmark::State& state) {
    for (auto _ : state) {
        cleanVectorRegisters();
        benchmark::DoNotOptimize(sinesAndCosines());
    }
}
BENCHMARK(sinesBeforePainting)->Unit(benchmark::kMillisecond);

void sinesAfterPainting(benchmark::State& state) {
    for (auto _ : state) {
        afterPainting(state);
        benchmark::DoNotOptimize(sinesAndCosines());
    }
}
BENCHMARK(sinesAfterPainting)->Unit(benchmark::kMillisecond);

void sinesAfterCleaning(benchmark::State& state) {
    for (auto _ : state) {
        afterPainting(state);
        cleanVectorRegisters();
        benchmark::DoNotOptimize(sinesAndCosines());
    }
}
BENCHMARK(sinesAfterCleaning)->Unit(benchmark::kMillisecond);

const bool RATIOS =
    addRatio(
        {"sine and cosine after painting, beside before", "sinesAfterPainting", {"sinesBeforePainting"}}) &&
    addRatio({"the same, the registers cleaned in between", "sinesAfterCleaning", {"sinesBeforePainting"}});

} // namespace

void afterPainting(benchmark::State& state) {
    state.PauseTiming();
    static QImage picture(64, 64, QImage::Format_RGB32);
    QPainter(&picture).fillRect(picture.rect(), Qt::white); // the last step of a window before it is idle
    state.ResumeTiming();
}

} // namespace kelvrum::bench
