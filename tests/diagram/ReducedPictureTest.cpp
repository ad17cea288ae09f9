// SPDX-License-Identifier: GPL-3.0-or-later
// A reduced series paints the very same picture as its segments and bars one by one, whatever the series.
#include "diagram/Curve.h"
#include "diagram/PlotArea.h"
#include "diagram/ReducedCurve.h"
#include "drawing/PainterSurface.h"
#include "tests/testing/Property.h"

#include <QImage>
#include <QTest>
#include <algorithm>
#include <array>
#include <cmath>
#include <ostream>
#include <vector>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr std::uint64_t CASES = 100;
constexpr Colour PASS_COLOURS[] = {0x0000FF, 0xFF0000, 0x008000};

/// Passes every segment, point and bar to the surface separately.
class OneByOne {
  public:
    OneByOne(Surface& surface, int loneDot)
        : surface_(surface)
        , loneDot_(loneDot) {
        pass(0);
    }
    void pass(int number) {
        colour_ = PASS_COLOURS[number];
        surface_.setPen(colour_);
    }
    void run(std::span<const Dot> dots) {
        if (dots.size() == 1) {
            bar(loneBox(dots[0], loneDot_));
        }
        for (std::size_t i = 1; i < dots.size(); ++i) {
            surface_.line(dots[i - 1], dots[i]);
        }
    }
    void bar(const Box& box) { surface_.fill({&box, 1}, colour_); }

  private:
    Surface& surface_;
    int loneDot_;
    Colour colour_ = BLACK;
};

/// A value of a series and its time as a part of the whole time.
struct Sample {
    double time = 0;
    double value = 0;
};

struct Trial {
    std::vector<Sample> samples;
    TimeRange range{0, 1};
    ValueRange heights{0, 100};
    Extent size; // in pixels of the layout

    friend std::ostream& operator<<(std::ostream& out, const Trial& trial) {
        out.precision(17);
        out << trial.size.width << " x " << trial.size.height << ", " << trial.range.from << " to "
            << trial.range.to << ", " << trial.heights.low << " to " << trial.heights.high << ":";
        for (const Sample& sample : trial.samples) {
            out << " (" << sample.time << ", " << sample.value << ")";
        }
        return out;
    }
};

/// One pass of a series with gaps, spikes, lone points and plateaus; its times may stand still, or go back.
void addPass(Trial& trial, Numbers& numbers, bool directions, bool ascending) {
    const std::size_t length = numbers.oneOf(std::array<std::size_t, 7>{1, 2, 3, 40, 300, 1440, 6000});
    const int gaps = numbers.oneOf(std::array{2, 3, 30, 500});
    const double roughness = numbers.oneIn(2) ? 2 : 60;
    double v = numbers.between(0, 100);
    for (std::size_t i = 0; i < length; ++i) {
        v = numbers.oneIn(40) ? v
            : directions      ? numbers.between(0, 360)
                              : v + numbers.between(-roughness, roughness);
        v = v < -150 || v > 250 ? 50 : v;
        double shown = v;
        if (numbers.oneIn(gaps)) {
            shown = numbers.oneIn(2) ? 999999 : -99999900;
        } else if (numbers.oneIn(200)) {
            shown = numbers.oneIn(2) ? 999998 : -500000;
        } else if (numbers.oneIn(50)) {
            shown = 0;
        }
        const auto step = static_cast<double>(!numbers.oneIn(100) ? i : ascending ? i - i % 3 : 0);
        const double time = step / static_cast<double>(length);
        trial.samples.push_back(
            {ascending && i > 0 ? std::max(trial.samples.back().time, time) : time, shown});
    }
}

/// A series of one to four passes, seen through a made window.
Trial madeTrial(Numbers& numbers, bool directions) {
    constexpr std::array<Extent, 5> SIZES = {{{90, 100}, {200, 150}, {333, 257}, {640, 200}, {71, 92}}};
    Trial trial;
    trial.size = numbers.oneOf(SIZES);
    const bool ascending = numbers.oneIn(2); // as the readers of channel files lay their series
    for (int passes = ascending ? 1 : numbers.whole(1, 4); passes > 0; --passes) {
        addPass(trial, numbers, directions, ascending);
    }
    if (numbers.oneIn(3)) { // zoomed into a part of the time
        trial.range.from = numbers.between(-0.2, 0.8);
        trial.range.to = trial.range.from + numbers.between(0.0001, 0.4);
    }
    if (directions) {
        trial.heights = {0, numbers.oneIn(3) ? 200.0 : 540.0};
    } else if (numbers.oneIn(3)) {
        trial.heights.low = numbers.between(-50, 80);
        trial.heights.high = trial.heights.low + numbers.between(0.001, 60);
    } else if (numbers.oneIn(8)) {
        trial.heights = {100, 0};
    }
    return trial;
}

std::vector<Trial> smallerTrials(const Trial& trial) {
    std::vector<Trial> smaller;
    const auto plainer = [](const Sample& sample) {
        std::vector<Sample> samples;
        for (const double v : smallerNumbers(sample.value)) {
            samples.push_back({sample.time, v});
        }
        return samples;
    };
    for (auto& samples : smallerLists(trial.samples, plainer)) {
        if (!samples.empty()) {
            smaller.push_back({std::move(samples), trial.range, trial.heights, trial.size});
        }
    }
    if (trial.range.from != 0 || trial.range.to != 1) {
        smaller.push_back({trial.samples, {0, 1}, trial.heights, trial.size});
    }
    if (trial.heights.low != 0 || trial.heights.high != 100) {
        smaller.push_back({trial.samples, trial.range, {0, 100}, trial.size});
    }
    return smaller;
}

template<typename Draw>
QImage paint(Extent size, double scale, const PlotArea& plot, Draw draw) {
    QImage image(size.width, size.height, QImage::Format_RGB32);
    PainterSurface surface(image, size, scale);
    surface.clear(WHITE);
    surface.setClip(plot.clip());
    draw(surface);
    return image;
}

struct Pictures {
    QImage literal;
    QImage reduced;
};

Pictures paintBoth(const Trial& trial, int kind, double scale) {
    std::vector<double> times;
    std::vector<double> values;
    for (const Sample& sample : trial.samples) {
        times.push_back(sample.time);
        values.push_back(sample.value);
    }
    const Extent size{static_cast<int>(trial.size.width * scale),
                      static_cast<int>(trial.size.height * scale)};
    const PlotArea plot(DiagramLayout(), size, scale, trial.range);
    const ValueScale heights = plot.scaleOf(trial.heights);
    const bool directions = kind == KIND_DIRECTION;
    const int loneDot = static_cast<int>(std::ceil(DiagramLayout().loneDot * scale));
    const PlottedSeries series{times, values, plot, heights, isAscending(times), true, loneDot};
    const double interval = sampleInterval(times);
    Pictures pictures;
    pictures.literal = paint(size, scale, plot, [&](Surface& surface) {
        OneByOne sink(surface, loneDot);
        kind == KIND_PRECIPITATION ? walkBars(times, values, interval, true, plot, heights, sink)
                                   : walkCurve(times, values, directions, true, plot, heights, sink);
    });
    pictures.reduced = paint(size, scale, plot, [&](Surface& surface) {
        kind == KIND_PRECIPITATION ? drawBars(surface, series, interval, PASS_COLOURS)
                                   : drawCurve(surface, series, directions, PASS_COLOURS);
    });
    return pictures;
}

} // namespace

class ReducedPictureTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void aReducedSeriesIsTheSamePicture_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<double>("scale");
        for (const int kind : {KIND_LINE, KIND_PRECIPITATION, KIND_DIRECTION, KIND_LINE_4}) {
            for (const double scale : {1.0, 1.25, 1.5, 2.0}) {
                QTest::addRow("kind %d, scale %g", kind, scale) << kind << scale;
            }
        }
    }
    void aReducedSeriesIsTheSamePicture() {
        QFETCH(int, kind);
        QFETCH(double, scale);
        int painted = 0;
        const auto generate = [kind](Numbers& numbers) { return madeTrial(numbers, kind == KIND_DIRECTION); };
        const auto check = [&](const Trial& trial) -> std::string {
            const Pictures pictures = paintBoth(trial, kind, scale);
            QImage empty = pictures.literal;
            empty.fill(Qt::white);
            painted += pictures.literal == empty ? 0 : 1;
            return pictures.literal == pictures.reduced ? "" : "the pictures differ";
        };
        const std::uint64_t seed = 100 * static_cast<std::uint64_t>(kind);
        const std::string finding = forAll(seed, CASES, generate, smallerTrials, check);
        QVERIFY2(finding.empty(), finding.c_str());
        QVERIFY2(propertySetting("KELVRUM_PROPERTY_COUNT", CASES) < CASES ||
                     painted > static_cast<int>(CASES) / 2,
                 "most trials must paint something");
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::ReducedPictureTest)
#include "ReducedPictureTest.moc"
