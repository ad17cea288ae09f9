#include "tools/bench/Ratios.h"

#include <cstdio>
#include <utility>

namespace kelvrum::bench {

namespace {

std::vector<Ratio>& ratios() {
    static std::vector<Ratio> list;
    return list;
}

} // namespace

bool addRatio(Ratio ratio) {
    ratios().push_back(std::move(ratio));
    return true;
}

void RatioReporter::ReportRuns(const std::vector<Run>& runs) {
    for (const Run& run : runs) {
        constexpr double MS_PER_S = 1000;
        // The processor's time, which other programs disturb least; of processes that were waited for, the
        // clock's.
        const std::string name = run.benchmark_name();
        const bool byTheClock = name.ends_with("/real_time") || name.ends_with("/manual_time");
        const double seconds = byTheClock ? run.real_accumulated_time : run.cpu_accumulated_time;
        milliseconds_[name] = seconds / static_cast<double>(run.iterations) * MS_PER_S;
    }
    ConsoleReporter::ReportRuns(runs);
}

void RatioReporter::printRatios() const {
    std::printf("\n%-58s %10s %10s %8s\n", "ratio", "ms", "beside ms", "times");
    for (const Ratio& ratio : ratios()) {
        const auto found = milliseconds_.find(ratio.figure);
        double beside = 0;
        for (const std::string& name : ratio.beside) {
            const auto part = milliseconds_.find(name);
            beside += part == milliseconds_.end() ? 0 : part->second;
        }
        if (found != milliseconds_.end() && beside > 0) {
            std::printf("%-58s %10.3f %10.3f %8.2f\n", ratio.what.c_str(), found->second, beside,
                        found->second / beside);
        }
    }
}

} // namespace kelvrum::bench
