// SPDX-License-Identifier: GPL-3.0-or-later
// From the start of a process to its first painted view, beside two other windows; and their memory.
#include "tools/bench/BenchStation.h"
#include "tools/bench/Ratios.h"

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>
#include <chrono>
#include <thread>

namespace kelvrum::bench {

namespace {

/// The program prints its memory use when its window is painted: that line ends the measurement, not the
/// process.
void start(benchmark::State& state, const char* program, const QStringList& further = {}) {
    using Clock = std::chrono::steady_clock;
    constexpr std::chrono::milliseconds PAUSE{
        30}; // the display is still cleaning up after the previous program
    const QString path =
        QCoreApplication::applicationDirPath() + QLatin1Char('/') + QString::fromUtf8(program);
    const QStringList arguments = QStringList(QString::fromStdString(station().folder())) + further;
    // On the display when there is one: that is where the program is used.
    QProcessEnvironment environment = QProcessEnvironment::systemEnvironment();
    if (environment.contains(QStringLiteral("DISPLAY"))) {
        environment.remove(QStringLiteral("QT_QPA_PLATFORM"));
    }
    double kilobytes = 0;
    for (auto _ : state) {
        std::this_thread::sleep_for(PAUSE);
        QProcess process;
        process.setProcessEnvironment(environment);
        const Clock::time_point begin = Clock::now();
        process.start(path, arguments);
        process.waitForReadyRead();
        state.SetIterationTime(std::chrono::duration<double>(Clock::now() - begin).count());
        process.waitForFinished();
        kilobytes = process.readAllStandardOutput().trimmed().toDouble();
    }
    if (kilobytes == 0) {
        state.SkipWithError("the program did not show its window");
    }
    state.counters["memory_MB"] = kilobytes / 1024;
}

void startAs(const char* name, const char* program, const QStringList& further = {}) {
    constexpr int STARTS = 3; // of each repetition
    benchmark::RegisterBenchmark(
        name, [program, further](benchmark::State& state) { start(state, program, further); })
        ->Unit(benchmark::kMillisecond)
        ->UseManualTime()
        ->Iterations(STARTS);
}

const bool RATIOS = [] {
    startAs("start/emptyWindow", "kelvrum_bench_empty_window");
    startAs("start/windowWithOneText", "kelvrum_bench_empty_window", {QStringLiteral("text")});
    startAs("start/firstView", "kelvrum_bench_first_view");
    startAs("start/yearInView", "kelvrum_bench_first_view", {QStringLiteral("year")});
    const std::string run = "/iterations:3/manual_time";
    return addRatio({"start to the first view, beside an empty window",
                     "start/firstView" + run,
                     {"start/emptyWindow" + run}}) &&
           addRatio({"beside a window with a menu and one text",
                     "start/firstView" + run,
                     {"start/windowWithOneText" + run}});
}();

} // namespace

} // namespace kelvrum::bench
