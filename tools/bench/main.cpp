// SPDX-License-Identifier: GPL-3.0-or-later
// Runs all benchmarks, each several times and in turn with the others, and closes with the table of ratios.
#include "tools/bench/Ratios.h"

#include <QApplication>
#include <array>
#include <string>
#include <vector>

namespace {

/// Load from other programs affects all figures alike, and short runs let the best of several
/// be an undisturbed one. Command line options come later and take precedence.
std::vector<char*> withDefaults(int argc, char* argv[]) {
    static std::array<std::string, 3> defaults = {"--benchmark_repetitions=9", "--benchmark_min_time=0.02",
                                                  "--benchmark_enable_random_interleaving=true"};
    std::vector<char*> all = {argv[0]};
    for (std::string& option : defaults) {
        all.push_back(option.data());
    }
    all.insert(all.end(), argv + 1, argv + argc);
    return all;
}

} // namespace

int main(int argc, char* argv[]) {
    qputenv("QT_QPA_PLATFORM", "offscreen");
    const QApplication application(argc, argv);
    std::vector<char*> options = withDefaults(argc, argv);
    auto count = static_cast<int>(options.size());
    benchmark::Initialize(&count, options.data());
    kelvrum::bench::RatioReporter reporter;
    benchmark::RunSpecifiedBenchmarks(&reporter);
    reporter.print();
    return 0;
}
