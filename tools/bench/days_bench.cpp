// SPDX-License-Identifier: GPL-3.0-or-later
// A year of day files with 34 channels, as a list and as a diagram, beside one plain read of all files.
#include "data/DataReader.h"
#include "data/DayFiles.h"
#include "diagram/DiagramState.h"
#include "tools/bench/BenchStation.h"
#include "tools/bench/Ratios.h"
#include "tools/bench/Registers.h"
#include "util/VectorRegisters.h"

#include <memory>

namespace kelvrum::bench {

namespace {

const BenchDays& days(bool wide) {
    static std::unique_ptr<BenchDays> made; // one at a time: a wide year has 217 MB
    if (!made || made->config.WideRecords != wide) {
        made.reset();
        made = std::make_unique<BenchDays>(wide);
    }
    return *made;
}

void plainDays(benchmark::State& state) {
    const StationConfig& config = days(state.range(0) != 0).config;
    std::vector<std::byte> buffer;
    for (auto _ : state) {
        cleanVectorRegisters();
        for (int day = 0; day < 365; ++day) {
            const auto file = openFile(config.DataFolder + dayFileName(benchYear().from + day));
            buffer.resize(file->size());
            benchmark::DoNotOptimize(file->read(0, buffer));
        }
    }
}

void dayDiagram(benchmark::State& state) {
    const StationConfig& config = days(state.range(0) != 0).config;
    DataReader reader;
    DiagramState diagram;
    const ReadRequest request{17, {}, benchYear(), static_cast<std::int32_t>(state.range(1))};
    for (auto _ : state) {
        afterPainting(state);
        reader.readDayDiagram(config, request, {}, diagram, {});
        benchmark::DoNotOptimize(diagram.DataCount());
    }
    state.counters["columns"] = static_cast<double>(diagram.DataCount());
}

void dayList(benchmark::State& state) {
    const StationConfig& config = days(state.range(0) != 0).config;
    DataReader reader;
    std::size_t rows = 0;
    for (auto _ : state) {
        afterPainting(state);
        const auto list = reader.readDayList(config, benchYear(), {});
        rows = list->count();
    }
    state.counters["rows"] = static_cast<double>(rows);
}

// In this order each year is written only once.
BENCHMARK(plainDays)->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(dayDiagram)->ArgsProduct({{0}, {1, 60}})->Unit(benchmark::kMillisecond);
BENCHMARK(dayList)->Arg(0)->Unit(benchmark::kMillisecond);
BENCHMARK(plainDays)->Arg(1)->Unit(benchmark::kMillisecond);
BENCHMARK(dayDiagram)->ArgsProduct({{1}, {1, 60}})->Unit(benchmark::kMillisecond);
BENCHMARK(dayList)->Arg(1)->Unit(benchmark::kMillisecond);

const bool RATIOS = addRatio({"narrow day files, diagram, N = 1", "dayDiagram/0/1", {"plainDays/0"}}) &&
                    addRatio({"narrow day files, diagram, N = 60", "dayDiagram/0/60", {"plainDays/0"}}) &&
                    addRatio({"narrow day files, list", "dayList/0", {"plainDays/0"}}) &&
                    addRatio({"wide day files, diagram, N = 1", "dayDiagram/1/1", {"plainDays/1"}}) &&
                    addRatio({"wide day files, diagram, N = 60", "dayDiagram/1/60", {"plainDays/1"}}) &&
                    addRatio({"wide day files, list", "dayList/1", {"plainDays/1"}});

} // namespace

} // namespace kelvrum::bench
