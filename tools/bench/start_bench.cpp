// From the start of a process to its first painted view, beside an empty main window; and their memory.
#include "tools/bench/BenchStation.h"
#include "tools/bench/Ratios.h"

#include <QCoreApplication>
#include <QProcess>
#include <QProcessEnvironment>

namespace kelvrum::bench {

namespace {

void start(benchmark::State& state, const char* program, const QStringList& further = {}) {
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
        QProcess process;
        process.setProcessEnvironment(environment);
        process.start(path, arguments);
        process.waitForFinished();
        kilobytes = process.readAllStandardOutput().trimmed().toDouble();
    }
    if (kilobytes == 0) {
        state.SkipWithError("the program did not show its window");
    }
    state.counters["memory_MB"] = kilobytes / 1024;
}
BENCHMARK_CAPTURE(start, emptyWindow, "kelvrum_bench_empty_window")
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();
BENCHMARK_CAPTURE(start, firstView, "kelvrum_bench_first_view")->Unit(benchmark::kMillisecond)->UseRealTime();
BENCHMARK_CAPTURE(start, yearInView, "kelvrum_bench_first_view", QStringList(QStringLiteral("year")))
    ->Unit(benchmark::kMillisecond)
    ->UseRealTime();

const bool RATIOS = addRatio({"start to the first view, beside an empty window",
                              "start/firstView/real_time",
                              {"start/emptyWindow/real_time"}});

} // namespace

} // namespace kelvrum::bench
