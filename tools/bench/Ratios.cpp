// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/bench/Ratios.h"

#include <algorithm>
#include <cstdio>
#include <fstream>
#include <optional>
#include <utility>

namespace kelvrum::bench {

namespace {

std::vector<Ratio>& ratios() {
    static std::vector<Ratio> list;
    return list;
}

/// The processor's model as the system names it, and how wide its vector registers are.
std::string processor() {
    std::string name = "of unknown model";
    std::ifstream info("/proc/cpuinfo");
    for (std::string line; std::getline(info, line);) {
        if (line.starts_with("model name")) {
            name = line.substr(line.find(':') + 2);
            break;
        }
    }
#if defined(__x86_64__) && defined(__GNUC__)
    name += __builtin_cpu_supports("avx512f") != 0 ? ", 512 bits"
            : __builtin_cpu_supports("avx") != 0   ? ", 256 bits"
                                                   : ", 128 bits";
#endif
    return name;
}

/// The processor's time, which other programs disturb least; of processes that were waited for, the clock's.
double millisecondsOf(const benchmark::BenchmarkReporter::Run& run) {
    constexpr double MS_PER_S = 1000;
    const std::string name = run.benchmark_name();
    const bool byTheClock = name.ends_with("/real_time") || name.ends_with("/manual_time");
    const double seconds = byTheClock ? run.real_accumulated_time : run.cpu_accumulated_time;
    return seconds / static_cast<double>(run.iterations) * MS_PER_S;
}

/// Why a run was skipped; nothing when it was not. Version 1.8 of the library has renamed the fields.
template<typename Run>
std::optional<std::string> errorOf(const Run& run) {
    if constexpr (requires { run.skip_message; }) {
        return static_cast<bool>(run.skipped) ? std::optional(run.skip_message) : std::nullopt;
    } else {
        return run.error_occurred ? std::optional(run.error_message) : std::nullopt;
    }
}

} // namespace

bool addRatio(Ratio ratio) {
    ratios().push_back(std::move(ratio));
    return true;
}

bool RatioReporter::ReportContext(const Context& context) {
    PrintBasicContext(&GetErrorStream(), context);
    std::printf("processor: %s\n\n", processor().c_str());
    return true;
}

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        if (const auto error = errorOf(run)) {
            std::printf("%s: %s\n", run.benchmark_name().c_str(), error->c_str());
        } else if (run.run_type == Run::RT_Iteration) {
            Figure& figure = figures_[run.run_name.str()];
            figure.milliseconds.push_back(millisecondsOf(run));
            figure.counters = run.counters;
        }
    }
}

void RatioReporter::print() const {
    printFigures();
    std::printf("\n%-58s %10s %10s %8s\n", "ratio of the best", "ms", "beside ms", "times");
    for (const Ratio& ratio : ratios()) {
        double beside = 0;
        for (const std::string& name : ratio.beside) {
            beside += best(name);
        }
        const double figure = best(ratio.figure);
        if (figure > 0 && beside > 0) {
            std::printf("%-58s %10.3f %10.3f %8.2f\n", ratio.what.c_str(), figure, beside, figure / beside);
        }
    }
}

void RatioReporter::printFigures() const {
    std::printf("%-46s %10s %10s\n", "figure", "best ms", "median ms");
    for (const auto& [name, figure] : figures_) {
        std::vector<double> sorted = figure.milliseconds;
        std::sort(sorted.begin(), sorted.end());
        std::printf("%-46s %10.3f %10.3f", name.c_str(), sorted.front(), sorted[sorted.size() / 2]);
        for (const auto& [what, counter] : figure.counters) {
            std::printf("  %s %.6g", what.c_str(), counter.value);
        }
        std::printf("\n");
    }
}

double RatioReporter::best(const std::string& name) const {
    const auto found = figures_.find(name);
    return found == figures_.end() ? 0 : std::ranges::min(found->second.milliseconds);
}

} // namespace kelvrum::bench
