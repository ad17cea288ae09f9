// SPDX-License-Identifier: GPL-3.0-or-later
// A year of columns on a picture of 900 x 600, beside every segment drawn as a line of its own.
#include "diagram/Curve.h"
#include "diagram/LineDiagram.h"
#include "drawing/PainterSurface.h"
#include "tools/bench/Ratios.h"
#include "tools/bench/Registers.h"
#include "tools/bench/Year.h"
#include "util/VectorRegisters.h"

#include <QImage>
#include <vector>

namespace kelvrum::bench {

namespace {

constexpr Extent PICTURE{900, 600};
constexpr DateTime START = 43466; // 2019-01-01

/// A control with `count` columns in the shared table.
class Filled : public DiagramState {
  public:
    explicit Filled(std::size_t count) {
        initialise();
        const auto values = yearOfMinutes(50, 40);
        SeriesTable& table = seriesTable();
        table.resize(count);
        const double step = 365.0 / static_cast<double>(count);
        for (std::size_t i = 0; i < count; ++i) {
            const double v = values[i % values.size()];
            table.set(i, START + static_cast<double>(i) * step, v == 0 ? NoValue : v, NoValue);
        }
        SetArray(static_cast<std::int32_t>(count));
        setXLow(START);
        setXHigh(START + 365);
    }
};

/// Counts what reaches the picture.
class CountedSurface final : public Surface {
  public:
    explicit CountedSurface(Surface& surface)
        : surface_(surface) {}
    [[nodiscard]] Extent size() const override { return surface_.size(); }
    [[nodiscard]] double scale() const override { return surface_.scale(); }
    void clear(Colour background) override { surface_.clear(background); }
    void setPen(Colour colour) override { surface_.setPen(colour); }
    void setClip(std::optional<Box> box) override { surface_.setClip(box); }
    void line(Dot from, Dot to) override { surface_.line(from, to); }
    void lines(std::span<const Segment> segments) override {
        primitives += segments.size();
        surface_.lines(segments);
    }
    void fill(std::span<const Box> boxes, Colour colour) override {
        primitives += boxes.size();
        surface_.fill(boxes, colour);
    }
    void ellipse(const Box& box, std::optional<Colour> fill) override { surface_.ellipse(box, fill); }
    void pie(const Box& box, Dot from, Dot to, Colour fill) override { surface_.pie(box, from, to, fill); }
    void setFont(const Font& font) override { surface_.setFont(font); }
    void text(Dot at, std::string_view text) override { surface_.text(at, text); }
    Extent textExtent(std::string_view text) override { return surface_.textExtent(text); }

    std::size_t primitives = 0;

  private:
    Surface& surface_;
};

void drawing(benchmark::State& state) {
    Filled control(static_cast<std::size_t>(state.range(1)));
    control.setDiagTyp(static_cast<std::int32_t>(state.range(0)));
    QImage picture(PICTURE.width, PICTURE.height, QImage::Format_RGB32);
    PainterSurface painter(picture, PICTURE, 1);
    CountedSurface surface(painter);
    for (auto _ : state) {
        afterPainting(state);
        surface.primitives = 0;
        drawLineDiagram(surface, control, {}, {});
    }
    state.counters["primitives"] = static_cast<double>(surface.primitives);
}
BENCHMARK(drawing)
    ->ArgsProduct({{KIND_LINE, KIND_PRECIPITATION, KIND_DIRECTION, KIND_LINE_4},
                   {1'440, 525'600, 10'000'000}})
    ->Unit(benchmark::kMillisecond);

/// Every segment on its own, in one batch.
struct EverySegment {
    std::vector<Segment> segments;
    void pass(int /*number*/) {}
    void run(std::span<const Dot> dots) {
        if (dots.size() == 1) {
            segments.push_back({dots[0], dots[0]});
        }
        for (std::size_t i = 1; i < dots.size(); ++i) {
            segments.push_back({dots[i - 1], dots[i]});
        }
    }
};

void everySegment(benchmark::State& state) {
    const Filled control(YEAR);
    QImage picture(PICTURE.width, PICTURE.height, QImage::Format_RGB32);
    PainterSurface surface(picture, PICTURE, 1);
    const PlotArea plot({}, PICTURE, 1, {START, START + 365});
    const SeriesTable& table = seriesTable();
    EverySegment sink;
    for (auto _ : state) {
        surface.clear(WHITE);
        surface.setPen(BLUE);
        surface.setClip(plot.clip());
        sink.segments.clear();
        cleanVectorRegisters();
        walkCurve(table.row(SeriesTable::TIME), table.row(SeriesTable::Y1), false, true, plot,
                  plot.scaleOf({0, 100}), sink);
        surface.lines(sink.segments);
        surface.setClip({});
    }
}
BENCHMARK(everySegment)->Unit(benchmark::kMillisecond);

const bool RATIOS =
    addRatio({"drawing a year of minutes, beside every segment", "drawing/0/525600", {"everySegment"}});

} // namespace

} // namespace kelvrum::bench
