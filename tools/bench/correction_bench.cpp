// SPDX-License-Identifier: GPL-3.0-or-later
// The correction of a year, beside a copy of the channel's file.
#include "correction/Recalculation.h"
#include "tools/bench/BenchStation.h"
#include "tools/bench/Ratios.h"
#include "tools/bench/Registers.h"
#include "util/VectorRegisters.h"

#include <filesystem>

namespace kelvrum::bench {

namespace {

void correctionOfAYear(benchmark::State& state) {
    const TimeRange range{benchYear().from, benchYear().to - 1.0 / MINUTES_PER_DAY};
    double factor = 1;
    for (auto _ : state) {
        afterPainting(state);
        factor += 0.001;
        recalculate(station().config, {CorrectionMode::dust, range, factor});
    }
}
BENCHMARK(correctionOfAYear)->Unit(benchmark::kMillisecond);

void fileCopy(benchmark::State& state) {
    const std::filesystem::path copy = station().file(CORRECTED_DUST) + ".copy";
    for (auto _ : state) {
        cleanVectorRegisters();
        std::filesystem::copy_file(station().file(DUST), copy,
                                   std::filesystem::copy_options::overwrite_existing);
    }
    std::filesystem::remove(copy);
}
BENCHMARK(fileCopy)->Unit(benchmark::kMillisecond);

const bool RATIOS = addRatio({"correction of a year, beside a file copy", "correctionOfAYear", {"fileCopy"}});

} // namespace

} // namespace kelvrum::bench
