// The surface on a painter: what its primitives paint, and that a reduced series paints the very same picture
// as its segments and bars one by one.
#include "diagram/PainterSurface.h"

#include "diagram/Curve.h"
#include "diagram/PlotArea.h"
#include "diagram/ReducedCurve.h"

#include <QImage>
#include <QTest>
#include <algorithm>
#include <random>
#include <vector>

namespace kelvrum {
namespace {

constexpr Colour PASS_COLOURS[] = {0x0000FF, 0xFF0000, 0x008000};

/// Hands every segment, point and bar to the surface by itself.
class OneByOne {
  public:
    explicit OneByOne(Surface& surface)
        : surface_(surface) {
        pass(0);
    }
    void pass(int number) {
        colour_ = PASS_COLOURS[number];
        surface_.setPen(colour_);
    }
    void run(std::span<const Dot> dots) {
        surface_.moveTo(dots[0]);
        if (dots.size() == 1) {
            surface_.lineTo(dots[0]);
        }
        for (const Dot& dot : dots.subspan(1)) {
            surface_.lineTo(dot);
        }
    }
    void bar(const Box& box) { surface_.fill({&box, 1}, colour_); }

  private:
    Surface& surface_;
    Colour colour_ = BLACK;
};

/// Numbers that are the same with every standard library.
class Random {
  public:
    explicit Random(unsigned seed)
        : engine_(seed) {}
    double upTo(double limit) { return limit * static_cast<double>(engine_()) / 4294967296.0; }
    double between(double low, double high) { return low + upTo(high - low); }
    bool oneIn(int n) { return engine_() % static_cast<unsigned>(n) == 0; }
    std::size_t pick(std::size_t n) { return engine_() % n; }

  private:
    std::mt19937 engine_;
};

struct Trial {
    std::vector<double> times;
    std::vector<double> values;
    TimeRange range{0, 1};
    ValueRange heights{0, 100};
};

/// A series with gaps, spikes, lone points, plateaus and passes, seen through a random window.
Trial randomTrial(Random& random, bool directions) {
    const std::size_t lengths[] = {1, 2, 3, 40, 300, 1440, 6000};
    const int gapEvery[] = {2, 3, 30, 500};
    const std::size_t length = lengths[random.pick(std::size(lengths))];
    const int gaps = gapEvery[random.pick(std::size(gapEvery))];
    const double roughness = random.oneIn(2) ? 2 : 60;
    const bool ascending = random.oneIn(2); // as the readers of channel files lay their series
    const std::size_t passes = ascending ? 1 : 1 + random.pick(4);
    Trial trial;
    for (std::size_t pass = 0; pass < passes; ++pass) {
        double v = random.between(0, 100);
        for (std::size_t i = 0; i < length; ++i) {
            v = random.oneIn(40) ? v
                : directions     ? random.between(0, 360)
                                 : v + random.between(-roughness, roughness);
            v = v < -150 || v > 250 ? 50 : v;
            double shown = v;
            if (random.oneIn(gaps)) {
                shown = random.oneIn(2) ? 999999 : -99999900;
            } else if (random.oneIn(200)) {
                shown = random.oneIn(2) ? 999998 : -500000;
            } else if (random.oneIn(50)) {
                shown = 0;
            }
            const auto step = static_cast<double>(random.oneIn(100) ? (ascending ? i - i % 3 : 0) : i);
            trial.times.push_back(ascending && i > 0
                                      ? std::max(trial.times.back(), step / static_cast<double>(length))
                                      : step / static_cast<double>(length));
            trial.values.push_back(shown);
        }
    }
    if (random.oneIn(3)) { // zoomed into a part of the time
        trial.range.from = random.between(-0.2, 0.8);
        trial.range.to = trial.range.from + random.between(0.0001, 0.4);
    }
    if (directions) {
        trial.heights = {0, random.oneIn(3) ? 200.0 : 540.0};
    } else if (random.oneIn(3)) {
        trial.heights.low = random.between(-50, 80);
        trial.heights.high = trial.heights.low + random.between(0.001, 60);
    } else if (random.oneIn(8)) {
        trial.heights = {100, 0};
    }
    return trial;
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

/// Paints dark lines on white and tells which dots are painted, row by row.
QString painted(const QImage& image) {
    QString all;
    for (int y = 0; y < image.height(); ++y) {
        for (int x = 0; x < image.width(); ++x) {
            all += image.pixel(x, y) == qRgb(255, 255, 255) ? QLatin1Char('.') : QLatin1Char('#');
        }
        all += QLatin1Char('/');
    }
    return all;
}

} // namespace

class PainterSurfaceTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void coloursAreBlueGreenRed() {
        QCOMPARE(toQColor(255), QColor(255, 0, 0));
        QCOMPARE(toQColor(0xFF0000), QColor(0, 0, 255));
        QCOMPARE(toQColor(0x123456), QColor(0x56, 0x34, 0x12));
        QCOMPARE(toQColor(WHITE), QColor(255, 255, 255));
        QCOMPARE(toQColor(BLACK), QColor(0, 0, 0));
    }

    void linesIncludeBothEnds_data() {
        QTest::addColumn<double>("scale");
        QTest::addColumn<QString>("picture");
        QTest::newRow("1") << 1.0 << QStringLiteral("....../.####./....../.#..../....../");
        QTest::newRow("1.25") << 1.25 << QStringLiteral("....../.####./....../.#..../....../");
    }
    void linesIncludeBothEnds() {
        QFETCH(double, scale);
        QFETCH(QString, picture);
        const Segment segments[] = {{{1, 1}, {4, 1}}, {{1, 3}, {1, 3}}};
        QImage batch(6, 5, QImage::Format_RGB32);
        QImage single(6, 5, QImage::Format_RGB32);
        {
            PainterSurface surface(batch, {6, 5}, scale);
            surface.clear(WHITE);
            surface.setPen(RED);
            surface.lines(segments);
            PainterSurface other(single, {6, 5}, scale);
            other.clear(WHITE);
            other.setPen(RED);
            for (const Segment& segment : segments) {
                other.moveTo(segment.from);
                other.lineTo(segment.to);
            }
        }
        QCOMPARE(painted(batch), picture);
        QCOMPARE(single, batch);
        QCOMPARE(batch.pixel(2, 1), qRgb(255, 0, 0));
    }

    void aPenIsOneLogicalPixelWide_data() {
        QTest::addColumn<double>("scale");
        QTest::addColumn<int>("width");
        QTest::newRow("1") << 1.0 << 1;
        QTest::newRow("1.25") << 1.25 << 1;
        QTest::newRow("1.5") << 1.5 << 2;
        QTest::newRow("2") << 2.0 << 2;
        QTest::newRow("3") << 3.0 << 3;
    }
    void aPenIsOneLogicalPixelWide() {
        QFETCH(double, scale);
        QFETCH(int, width);
        QImage image(20, 20, QImage::Format_RGB32);
        {
            PainterSurface surface(image, {20, 20}, scale);
            surface.clear(WHITE);
            surface.setPen(BLACK);
            surface.moveTo({5, 10});
            surface.lineTo({15, 10});
        }
        int dark = 0;
        for (int y = 0; y < 20; ++y) {
            dark += image.pixel(10, y) == qRgb(0, 0, 0) ? 1 : 0;
        }
        QCOMPARE(dark, width);
    }

    void boxesEndBeforeTheirRightAndBottom() {
        QImage image(6, 4, QImage::Format_RGB32);
        {
            PainterSurface surface(image, {6, 4}, 1);
            surface.clear(WHITE);
            const Box boxes[] = {{1, 1, 3, 3}, {4, 0, 5, 4}, {5, 2, 5, 3}};
            surface.fill(boxes, BLUE);
        }
        QCOMPARE(painted(image), QStringLiteral("....#./.##.#./.##.#./....#./"));
        QCOMPARE(image.pixel(1, 1), qRgb(0, 0, 255));
    }

    void theClipLimitsDrawingUntilItIsLifted() {
        QImage image(6, 3, QImage::Format_RGB32);
        {
            PainterSurface surface(image, {6, 3}, 1);
            surface.clear(WHITE);
            surface.setPen(BLACK);
            surface.setClip(Box{2, 0, 4, 3});
            surface.moveTo({0, 0});
            surface.lineTo({5, 0});
            surface.setClip({});
            surface.moveTo({0, 2});
            surface.lineTo({5, 2});
        }
        QCOMPARE(painted(image), QStringLiteral("..##../....../######/"));
    }

    void farLinesAreDrawnWhereTheyCross() {
        QImage image(5, 5, QImage::Format_RGB32);
        {
            PainterSurface surface(image, {5, 5}, 1);
            surface.clear(WHITE);
            surface.setPen(BLACK);
            const Segment segments[] = {{{2, -32768}, {2, 32767}}, {{-32768, 4}, {32767, 4}}};
            surface.lines(segments);
        }
        QCOMPARE(painted(image), QStringLiteral("..#../..#../..#../..#../#####/"));
    }

    void textsHaveTheSizeOfTheScreenTimesTheScale() {
        QImage image(400, 100, QImage::Format_RGB32);
        PainterSurface one(image, {400, 100}, 1);
        const Extent small = one.textExtent("Niederschlagssumme");
        const Extent nothing = one.textExtent("");
        QCOMPARE(nothing.width, 0);
        QCOMPARE(nothing.height, small.height);
        QVERIFY2(small.height >= 11 && small.height <= 16, "8 points are 11 pixels");
        QVERIFY(small.width > 60 && small.width < 140);
        one.setFont({"Arial", 8, true, false});
        QVERIFY(one.textExtent("Niederschlagssumme").width > small.width);
        one.setFont({"Arial", 16, false, false});
        QVERIFY(qAbs(one.textExtent("Niederschlagssumme").width - 2 * small.width) <= 12);
        QImage other(400, 100, QImage::Format_RGB32);
        PainterSurface two(other, {400, 100}, 2);
        QVERIFY(qAbs(two.textExtent("Niederschlagssumme").width - 2 * small.width) <= 12);
        QVERIFY(two.textExtent("µg/m³").width < two.textExtent("µg/m³µ").width);
    }

    void textStandsRightBelowItsCorner() {
        QImage image(60, 40, QImage::Format_RGB32);
        Extent extent;
        {
            PainterSurface surface(image, {60, 40}, 1);
            surface.clear(WHITE);
            surface.setPen(RED);
            extent = surface.textExtent("Hg");
            surface.text({20, 10}, "Hg");
        }
        QRect dark;
        for (int y = 0; y < 40; ++y) {
            for (int x = 0; x < 60; ++x) {
                if (image.pixel(x, y) != qRgb(255, 255, 255)) {
                    dark |= QRect(x, y, 1, 1);
                }
            }
        }
        QVERIFY(!dark.isEmpty());
        QVERIFY(QRect(19, 10, extent.width + 2, extent.height).contains(dark));
    }

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
        const Extent sizes[] = {{90, 100}, {200, 150}, {333, 257}, {640, 200}};
        int different = 0;
        for (unsigned seed = 0; seed < 40; ++seed) {
            Random random(seed * 16 + static_cast<unsigned>(kind));
            const bool directions = kind == KIND_DIRECTION;
            const Trial trial = randomTrial(random, directions);
            const Extent logical = sizes[seed % std::size(sizes)];
            const Extent size{static_cast<int>(logical.width * scale),
                              static_cast<int>(logical.height * scale)};
            const PlotArea plot(DiagramLayout(), size, scale, trial.range);
            const ValueScale heights = plot.scaleOf(trial.heights);
            const PlottedSeries series{trial.times, trial.values, plot, heights, ascend(trial.times), true};
            const double interval = sampleInterval(trial.times);
            const QImage literal = paint(size, scale, plot, [&](Surface& surface) {
                OneByOne sink(surface);
                kind == KIND_PRECIPITATION
                    ? walkBars(trial.times, trial.values, interval, true, plot, heights, sink)
                    : walkCurve(trial.times, trial.values, directions, true, plot, heights, sink);
            });
            const QImage reduced = paint(size, scale, plot, [&](Surface& surface) {
                kind == KIND_PRECIPITATION ? drawBars(surface, series, interval, PASS_COLOURS)
                                           : drawCurve(surface, series, directions, PASS_COLOURS);
            });
            different += painted(literal).contains(QLatin1Char('#')) ? 1 : 0;
            QVERIFY2(literal == reduced, qPrintable(QStringLiteral("seed %1").arg(seed)));
        }
        QVERIFY2(different > 20, "most trials must paint something");
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::PainterSurfaceTest)
#include "PainterSurfaceTest.moc"
