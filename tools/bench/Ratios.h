// Ratios of figures that were measured in one run: what the program needs beside the limit or the naive way.
#pragma once

#include <benchmark/benchmark.h>
#include <map>
#include <string>
#include <vector>

namespace kelvrum::bench {

/// One line of the closing table: a figure beside the sum of others.
struct Ratio {
    std::string what;
    std::string figure;              // name of a benchmark
    std::vector<std::string> beside; // names of the benchmarks whose times are added up
};

/// Adds a line to the closing table; to be called while the program starts.
bool addRatio(Ratio ratio);

/// Prints as usual and keeps the times.
class RatioReporter : public benchmark::ConsoleReporter {
  public:
    void ReportRuns(const std::vector<Run>& runs) override;
    /// The closing table.
    void printRatios() const;

  private:
    std::map<std::string, double> milliseconds_;
};

} // namespace kelvrum::bench
