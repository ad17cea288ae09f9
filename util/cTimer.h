// SPDX-License-Identifier: GPL-3.0-or-later
// A stopwatch for measuring how long a piece of work takes, in milliseconds.
#pragma once

#include <cstdint>
#include <functional>
#include <string>

namespace kelvrum {

/// A high-resolution counter: its reading and its ticks per second.
struct CounterSource {
    std::function<std::int64_t()> read;
    std::int64_t frequency = 1;
};

/// The machine's monotonic clock in nanoseconds.
CounterSource steadyCounter();

/// Start, Halt, RunTime. Calibrieren measures what a start and a halt cost themselves; that is subtracted
/// from then on.
class cTimer {
  public:
    explicit cTimer(CounterSource source = steadyCounter());

    void Start() { startCount_ = source_.read(); }
    void Halt() { stopCount_ = source_.read(); }
    /// Takes two readings directly one after the other; their distance becomes the overhead. Overwrites what
    /// Start and Halt took.
    void Calibrieren();
    /// Milliseconds from Start to Halt without the overhead.
    [[nodiscard]] double RunTime() const;

    /// A counter reading as a double, from its two signed 32-bit halves. A negative half is raised by 2^32 +
    /// 1, on purpose: the low half then converts one tick too high, the high half 2^32 ticks.
    static double countAsDouble(std::int64_t count);

  private:
    [[nodiscard]] double elapsed() const;

    CounterSource source_;
    double overhead_ = 0; // milliseconds
    std::int64_t startCount_ = 0;
    std::int64_t stopCount_ = 0;
};

/// "Zeitmessung: " and the milliseconds with six decimals and their unit: "Zeitmessung: 1.500000 ms".
std::string timeReport(double milliseconds);

} // namespace kelvrum
