// SPDX-License-Identifier: GPL-3.0-or-later
// A whole view in the real window, from the file to the painted picture, compared with the sum of its
// necessary parts: the reading, one pass that finds the extremes of each column of dots, their lines, and a
// picture painted on a window.
#include "diagram/PolarSys.h"
#include "tools/bench/BenchStation.h"
#include "tools/bench/Ratios.h"
#include "tools/bench/Viewer.h"
#include "tools/bench/Year.h"
#include "util/VectorRegisters.h"

#include <QPainter>
#include <QTableView>
#include <algorithm>
#include <string>
#include <vector>

namespace kelvrum::bench {

namespace {

void wholeView(benchmark::State& state, int channel) {
    const Viewer viewer;
    viewer.showChannel(channel);
    for (auto _ : state) {
        viewer.window->LoadData();
        QCoreApplication::processEvents();
    }
    state.counters["columns"] = static_cast<double>(viewer.the<PolarSys>("KS").DataCount());
}
BENCHMARK_CAPTURE(wholeView, mean, DUST)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(wholeView, temperature, TEMPERATURE)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(wholeView, speed, SPEED)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(wholeView, sum, RAIN)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(wholeView, wind, DIRECTION)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(wholeView, windInTenths, DIRECTION_IN_TENTHS)->Unit(benchmark::kMillisecond);
BENCHMARK_CAPTURE(wholeView, anyWind, ANY_DIRECTION)->Unit(benchmark::kMillisecond);

/// Finds the extremes of each column of dots and draws them, without axes, gaps or clipping.
void barePicture(benchmark::State& state) {
    const auto values = yearOfMinutes(50, 40);
    QImage picture(900, 600, QImage::Format_RGB32);
    std::vector<QLine> lines;
    for (auto _ : state) {
        picture.fill(Qt::white);
        lines.clear();
        cleanVectorRegisters();
        int column = 0;
        int low = 600;
        int high = 0;
        for (std::size_t i = 0; i < values.size(); ++i) {
            const int x = static_cast<int>(static_cast<double>(i) * (900.0 / YEAR));
            const int y = 600 - static_cast<int>(values[i] * 6);
            if (x != column) {
                lines.emplace_back(column, low, column, high);
                lines.emplace_back(column, high, x, y);
                column = x;
                low = y;
                high = y;
            }
            low = std::min(low, y);
            high = std::max(high, y);
        }
        QPainter painter(&picture);
        painter.setPen(Qt::blue);
        painter.drawLines(lines.data(), static_cast<int>(lines.size()));
    }
}
BENCHMARK(barePicture)->Unit(benchmark::kMillisecond);

class PictureWidget : public QWidget {
  public:
    QPixmap picture{900, 600};

  protected:
    void paintEvent(QPaintEvent* /*event*/) override { QPainter(this).drawPixmap(0, 0, picture); }
};

void barePainting(benchmark::State& state) {
    PictureWidget widget;
    widget.picture.fill(Qt::white);
    widget.resize(widget.picture.size());
    widget.show();
    QCoreApplication::processEvents();
    for (auto _ : state) {
        widget.update();
        QCoreApplication::processEvents();
    }
}
BENCHMARK(barePainting)->Unit(benchmark::kMillisecond);

void changeOfChannel(benchmark::State& state) {
    const Viewer viewer;
    int channel = DUST;
    for (auto _ : state) {
        channel = channel == DUST ? SPEED : DUST;
        viewer.showChannel(channel);
    }
}
BENCHMARK(changeOfChannel)->Unit(benchmark::kMillisecond);

void changeOfInterval(benchmark::State& state) {
    const Viewer viewer;
    bool longer = true;
    for (auto _ : state) {
        viewer.pressInterval(longer ? Qt::Key_Down : Qt::Key_Up);
        longer = !longer;
    }
}
BENCHMARK(changeOfInterval)->Unit(benchmark::kMillisecond);

void scrollByADay(benchmark::State& state) {
    const Viewer viewer;
    bool forward = true; // before the year there is no file
    for (auto _ : state) {
        viewer.click(forward ? "Command8" : "Command7");
        forward = !forward;
    }
    state.counters["columns"] = static_cast<double>(viewer.the<PolarSys>("KS").DataCount());
}
BENCHMARK(scrollByADay)->Unit(benchmark::kMillisecond);

void resizing(benchmark::State& state) {
    const Viewer viewer;
    int step = 0;
    for (auto _ : state) {
        viewer.window->resize(WINDOW + QSize(step % 2 == 0 ? 40 : 0, 0));
        QCoreApplication::processEvents();
        ++step;
    }
}
BENCHMARK(resizing)->Unit(benchmark::kMillisecond);

void changeOfScale(benchmark::State& state) {
    const Viewer viewer;
    bool automatic = true;
    for (auto _ : state) {
        viewer.click(automatic ? "Option1" : "Option2");
        automatic = !automatic;
    }
}
BENCHMARK(changeOfScale)->Unit(benchmark::kMillisecond);

void zoom(benchmark::State& state) {
    const Viewer viewer;
    bool nearer = true;
    for (auto _ : state) {
        viewer.click(nearer ? "Command2" : "Command1");
        nearer = !nearer;
    }
}
BENCHMARK(zoom)->Unit(benchmark::kMillisecond);

/// The list of the real window: read, filled, laid out and painted anew.
void listRefilled(benchmark::State& state) {
    const Viewer viewer;
    viewer.click("optView(1)");
    for (auto _ : state) {
        viewer.window->LoadData();
        QCoreApplication::processEvents();
    }
    state.counters["rows"] = viewer.the<QTableView>("lView").model()->rowCount();
}
BENCHMARK(listRefilled)->Unit(benchmark::kMillisecond);

void listScrolledToItsEnd(benchmark::State& state) {
    const Viewer viewer;
    viewer.click("optView(1)");
    auto& list = viewer.the<QTableView>("lView");
    bool down = true;
    for (auto _ : state) {
        down ? list.scrollToBottom() : list.scrollToTop();
        QCoreApplication::processEvents();
        down = !down;
    }
}
BENCHMARK(listScrolledToItsEnd)->Unit(benchmark::kMillisecond);

const std::vector<std::string> READ_AND_DRAW = {"plainRead", "plainPass", "barePicture", "barePainting"};
const std::vector<std::string> READ_AND_DRAW_WIND = {"plainRead", "plainRead", "sineAndCosine", "barePicture",
                                                     "barePainting"};
const std::vector<std::string> DRAW = {"barePicture", "barePainting"};

const bool RATIOS =
    addRatio({"whole view, mean, beside the sum of its limits", "wholeView/mean", READ_AND_DRAW}) &&
    addRatio({"whole view, sum, beside the sum of its limits", "wholeView/sum", READ_AND_DRAW}) &&
    addRatio({"whole view, wind in whole degrees", "wholeView/wind", READ_AND_DRAW_WIND}) &&
    addRatio({"whole view, wind in tenths", "wholeView/windInTenths", READ_AND_DRAW_WIND}) &&
    addRatio({"whole view, wind, no two alike", "wholeView/anyWind", READ_AND_DRAW_WIND}) &&
    addRatio({"change of channel", "changeOfChannel", READ_AND_DRAW}) &&
    addRatio({"change of interval (1 and 5 minutes)", "changeOfInterval", READ_AND_DRAW}) &&
    addRatio({"scroll by a day", "scrollByADay", READ_AND_DRAW}) &&
    addRatio({"resizing", "resizing", DRAW}) && addRatio({"change of scale", "changeOfScale", DRAW}) &&
    addRatio({"zoom", "zoom", DRAW}) &&
    addRatio({"list of the window refilled, beside reading and a bare view",
              "listRefilled",
              {"plainRead", "plainPass", "bareListOfAYear"}});

} // namespace

} // namespace kelvrum::bench
