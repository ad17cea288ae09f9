// SPDX-License-Identifier: GPL-3.0-or-later
// Ratios of figures that were measured in one run: what the program needs beside the limit or the naive way.
#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

namespace kelvrum::bench {

/// One line of the final table: a figure compared with the sum of others.
struct Ratio {
    std::string what;
    std::string figure;              // name of a benchmark
    std::vector<std::string> beside; // names of the benchmarks whose times are added up
};

/// Adds a line to the final table; call it while the program starts.
bool addRatio(Ratio ratio);

/// Collects what was measured and shows it at the end.
class RatioReporter : public benchmark::BenchmarkReporter {
  public:
    bool ReportContext(const Context& context) override;
    void ReportRuns(const std::vector<Run>& runs) override;

    /// The figures, then their ratios.
    void print() const;

  private:
    struct Figure {
        std::vector<double> milliseconds; // of each repetition
        benchmark::UserCounters counters;
    };

    void printFigures() const;
    /// The best repetition, milliseconds; 0 when it was not measured.
    [[nodiscard]] double best(const std::string& name) const;

    std::map<std::string, Figure> figures_; // by name
};

} // namespace kelvrum::bench
