// SPDX-License-Identifier: GPL-3.0-or-later
// One year of one channel at every interval, from the file to the SeriesTable, beside one plain read of the
// file and one plain pass over its values.
#include "data/ChannelFormat.h"
#include "data/DataReader.h"
#include "diagram/DiagramState.h"
#include "tools/bench/BenchStation.h"
#include "tools/bench/Ratios.h"
#include "tools/bench/Registers.h"
#include "tools/bench/Year.h"
#include "util/Validity.h"
#include "util/VectorRegisters.h"

#include <array>
#include <string>

namespace kelvrum::bench {

namespace {

void plainRead(benchmark::State& state) {
    static std::vector<std::byte> buffer(chn::HEADER_SIZE + YEAR * chn::VALUE_SIZE);
    for (auto _ : state) {
        cleanVectorRegisters();
        const auto file = openFile(station().file(DUST));
        benchmark::DoNotOptimize(file->read(0, buffer));
    }
}
BENCHMARK(plainRead)->Unit(benchmark::kMillisecond);

void plainPass(benchmark::State& state) {
    const auto values = yearOfMinutes(40, 30);
    for (auto _ : state) {
        cleanVectorRegisters();
        double sum = 0;
        int count = 0;
        for (const double v : values) {
            if (isPresent(v)) {
                sum += v;
                ++count;
            }
        }
        benchmark::DoNotOptimize(sum);
        benchmark::DoNotOptimize(count);
    }
}
BENCHMARK(plainPass)->Unit(benchmark::kMillisecond);

void sineAndCosine(benchmark::State& state) {
    const auto directions = yearOfMinutes(200, 150);
    const auto speeds = yearOfMinutes(5, 4);
    for (auto _ : state) {
        cleanVectorRegisters();
        double x = 0;
        double y = 0;
        for (std::size_t i = 0; i < YEAR; ++i) {
            if (isPresent(directions[i]) && isPresent(speeds[i])) {
                const double angle = directions[i] * DEGREES_TO_RADIANS;
                x += std::sin(angle) * speeds[i];
                y += std::cos(angle) * speeds[i];
            }
        }
        benchmark::DoNotOptimize(x);
        benchmark::DoNotOptimize(y);
    }
}
BENCHMARK(sineAndCosine)->Unit(benchmark::kMillisecond);

void reader(benchmark::State& state) {
    const auto channel = static_cast<std::int32_t>(state.range(0));
    const auto interval = static_cast<std::int32_t>(state.range(1));
    DataReader data;
    DiagramState diagram;
    const ReadRequest request{channel, {}, benchYear(), interval};
    for (auto _ : state) {
        afterPainting(state);
        data.readDiagram(station().config, request, {}, diagram, {});
        benchmark::DoNotOptimize(diagram.DataCount());
    }
    state.counters["columns"] = static_cast<double>(diagram.DataCount());
}
BENCHMARK(reader)
    ->ArgsProduct({{DUST, RAIN, DIRECTION, DIRECTION_IN_TENTHS, ANY_DIRECTION}, {1, 5, 10, 15, 60, 1440}})
    ->Unit(benchmark::kMillisecond);

const bool RATIOS = [] {
    const std::array<int, 6> intervals = {1, 5, 10, 15, 60, 1440};
    for (const int n : intervals) {
        const std::string minutes = std::to_string(n);
        addRatio({"reader, mean, N = " + minutes, "reader/7/" + minutes, {"plainRead", "plainPass"}});
        addRatio({"reader, sum, N = " + minutes, "reader/12/" + minutes, {"plainRead", "plainPass"}});
        const std::vector<std::string> windLimit = {"plainRead", "plainRead", "sineAndCosine"};
        addRatio({"reader, wind, whole degrees, N = " + minutes, "reader/5/" + minutes, windLimit});
        addRatio({"reader, wind, tenths, N = " + minutes, "reader/6/" + minutes, windLimit});
        addRatio({"reader, wind, no two alike, N = " + minutes, "reader/9/" + minutes, windLimit});
    }
    return true;
}();

} // namespace

} // namespace kelvrum::bench
