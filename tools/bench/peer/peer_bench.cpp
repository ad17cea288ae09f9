// SPDX-License-Identifier: GPL-3.0-or-later
// The same year in a window of a general plotting library: from the file to the painted curve, with the
// library's adaptive sampling and without antialiasing. It shows the stored minutes; of directions it
// computes no mean.
#include "data/ChannelFormat.h"
#include "tools/bench/BenchStation.h"
#include "tools/bench/Ratios.h"
#include "tools/bench/Year.h"
#include "util/FileSource.h"
#include "util/LittleEndian.h"
#include "util/Validity.h"

#include <QCoreApplication>
#include <limits>
#include <qcustomplot.h>
#include <vector>

namespace kelvrum::bench {

namespace {

/// The diagram's place in the window of the other benchmarks.
constexpr QSize PICTURE(900, 600);

void showFile(QCustomPlot& plot, const std::string& path, std::vector<double>& minutes) {
    minutes.resize(YEAR);
    openFile(path)->read(chn::HEADER_SIZE, std::as_writable_bytes(std::span(minutes)));
    fromLittle(minutes);
    QVector<QCPGraphData> points(static_cast<qsizetype>(minutes.size()));
    for (std::size_t i = 0; i < minutes.size(); ++i) {
        const double value = isPresent(minutes[i]) ? minutes[i] : std::numeric_limits<double>::quiet_NaN();
        points[static_cast<qsizetype>(i)] = {static_cast<double>(i), value}; // the curve breaks at a NaN
    }
    plot.graph(0)->data()->set(points, true);
    plot.rescaleAxes();
    plot.replot(QCustomPlot::rpImmediateRefresh);
    QCoreApplication::processEvents();
}

void peerView(benchmark::State& state, int channel) {
    QCustomPlot plot;
    plot.addGraph();
    plot.graph(0)->setAdaptiveSampling(true);
    plot.setNotAntialiasedElements(QCP::aeAll);
    plot.resize(PICTURE);
    plot.show();
    const std::string path = station().file(channel);
    std::vector<double> minutes;
    showFile(plot, path, minutes);
    for (auto _ : state) {
        showFile(plot, path, minutes);
    }
}
BENCHMARK_CAPTURE(peerView, temperature, TEMPERATURE)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(peerView, dust, DUST)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(peerView, speed, SPEED)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(peerView, direction, ANY_DIRECTION)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(peerView, rain, RAIN)->Unit(benchmark::kMillisecond);

const bool RATIOS =
    addRatio({"temperature, beside a plotting library", "wholeView/temperature", {"peerView/temperature"}}) &&
    addRatio({"dust, beside a plotting library", "wholeView/mean", {"peerView/dust"}}) &&
    addRatio({"wind speed, beside a plotting library", "wholeView/speed", {"peerView/speed"}}) &&
    addRatio({"direction, no two alike, beside a plotting library",
              "wholeView/anyWind",
              {"peerView/direction"}}) &&
    addRatio({"rain, beside a plotting library", "wholeView/sum", {"peerView/rain"}});

} // namespace

} // namespace kelvrum::bench
