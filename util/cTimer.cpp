// SPDX-License-Identifier: GPL-3.0-or-later
#include "util/cTimer.h"

#include "util/Format.h"

#include <chrono>
#include <utility>

namespace kelvrum {

CounterSource steadyCounter() {
    using namespace std::chrono;
    return {[] {
                return std::int64_t{
                    duration_cast<nanoseconds>(steady_clock::now().time_since_epoch()).count()};
            },
            std::nano::den};
}

cTimer::cTimer(CounterSource source)
    : source_(std::move(source)) {}

double cTimer::countAsDouble(std::int64_t count) {
    constexpr double TWO_32 = 4294967296.0;
    const auto bits = static_cast<std::uint64_t>(count);
    const auto half = [](std::uint64_t word) {
        const double value = static_cast<std::int32_t>(static_cast<std::uint32_t>(word));
        return value < 0 ? value + TWO_32 + 1 : value; // the 1 is kept on purpose
    };
    return half(bits >> 32U) * TWO_32 + half(bits & 0xFFFFFFFFU);
}

double cTimer::elapsed() const {
    constexpr double MS_PER_S = 1000;
    return (countAsDouble(stopCount_) - countAsDouble(startCount_)) / countAsDouble(source_.frequency) *
           MS_PER_S;
}

void cTimer::Calibrieren() {
    startCount_ = source_.read();
    stopCount_ = source_.read();
    overhead_ = elapsed();
}

double cTimer::RunTime() const { return elapsed() - overhead_; }

std::string timeReport(double milliseconds) {
    LocaleTexts point;
    point.decimalSeparator = ".";
    return "Zeitmessung: " + formatNumber(milliseconds, "0.000000", point) + " ms";
}

} // namespace kelvrum
