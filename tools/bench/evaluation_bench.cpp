// SPDX-License-Identifier: GPL-3.0-or-later
// The evaluation of a year of one channel: of its minutes in memory, beside one pass and one nth_element over
// them, and from its file, beside reading the same for the diagram.
#include "evaluation/Evaluation.h"
#include "evaluation/EvaluationReading.h"
#include "tools/bench/BenchStation.h"
#include "tools/bench/Ratios.h"
#include "tools/bench/Registers.h"
#include "tools/bench/Year.h"
#include "util/Validity.h"
#include "util/VectorRegisters.h"

#include <algorithm>

namespace kelvrum::bench {

namespace {

EvaluationRequest yearOf(EvaluatedKind kind, std::int32_t interval) {
    EvaluationRequest request;
    request.range = benchYear();
    request.interval = interval;
    request.kind = kind;
    request.limits = {50, 60};
    return request;
}

std::vector<IntervalReading> readingOf(const std::vector<double>& values, const std::vector<double>& speeds) {
    std::vector<IntervalReading> reading(values.size());
    for (std::size_t i = 0; i < values.size(); ++i) {
        reading[i].index = static_cast<std::int64_t>(i);
        reading[i].value = isPresent(values[i]) ? values[i] : INVALID_VALUE;
        reading[i].speed = isPresent(speeds[i]) ? speeds[i] : INVALID_VALUE;
        reading[i].present = isPresent(values[i]) ? 1 : 0;
    }
    return reading;
}

void nthElement(benchmark::State& state) {
    const auto values = yearOfMinutes(40, 30);
    std::vector<double> copy(values.size());
    for (auto _ : state) {
        cleanVectorRegisters();
        std::copy(values.begin(), values.end(), copy.begin());
        std::nth_element(copy.begin(), copy.begin() + static_cast<std::ptrdiff_t>(copy.size() / 2),
                         copy.end());
        benchmark::DoNotOptimize(copy.data());
    }
}
BENCHMARK(nthElement)->Unit(benchmark::kMillisecond);

void evaluation(benchmark::State& state) {
    const auto kind = static_cast<EvaluatedKind>(state.range(0));
    const bool isWind = kind == EvaluatedKind::direction;
    const auto reading =
        readingOf(isWind ? yearOfMinutes(200, 150) : yearOfMinutes(40, 30), yearOfMinutes(5, 4));
    for (auto _ : state) {
        cleanVectorRegisters(); // as each step of a reading leaves them
        benchmark::DoNotOptimize(evaluate(yearOf(kind, 1), reading).availability.evaluated);
    }
}
BENCHMARK(evaluation)
    ->Arg(static_cast<int>(EvaluatedKind::value))
    ->Arg(static_cast<int>(EvaluatedKind::direction))
    ->Unit(benchmark::kMillisecond);

void evaluationOfFile(benchmark::State& state) {
    const auto channel = static_cast<std::int32_t>(state.range(0));
    const auto interval = static_cast<std::int32_t>(state.range(1));
    const EvaluationRequest request = yearOf(evaluatedKind(station().config, channel), interval);
    const ReadingStep step = [] { return true; };
    for (auto _ : state) {
        afterPainting(state);
        Evaluator evaluator(request);
        readIntervals(
            station().config, {channel, {}, request.range, interval}, openFile,
            [&evaluator](std::span<const IntervalReading> intervals) { evaluator.add(intervals); }, step);
        benchmark::DoNotOptimize(evaluator.result().availability.evaluated);
    }
}
BENCHMARK(evaluationOfFile)->ArgsProduct({{DUST, RAIN, DIRECTION}, {1, 60}})->Unit(benchmark::kMillisecond);

const bool RATIOS =
    addRatio({"evaluation of a year of minutes", "evaluation/0", {"plainPass", "nthElement"}}) &&
    addRatio({"evaluation of a year of wind", "evaluation/2", {"plainPass", "sineAndCosine"}}) &&
    addRatio({"evaluation from the file, N = 1", "evaluationOfFile/7/1", {"reader/7/1", "evaluation/0"}}) &&
    addRatio(
        {"evaluation of wind from the file, N = 1", "evaluationOfFile/5/1", {"reader/5/1", "evaluation/2"}});

} // namespace

} // namespace kelvrum::bench
