// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/LineDiagram.h"

#include "diagram/Curve.h"
#include "diagram/LineScale.h"
#include "diagram/PlotArea.h"
#include "diagram/ReducedCurve.h"
#include "diagram/TimeTicks.h"
#include "drawing/FittedText.h"
#include "util/Text.h"
#include "util/VectorRegisters.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <span>
#include <string>
#include <string_view>
#include <vector>

namespace kelvrum {

namespace {

constexpr Colour TITLE_BAND = 0xF0F0F0;
constexpr Colour PASS_MINIMA = BLUE; // the means are drawn in D1
constexpr Colour PASS_MAXIMA = RED;
constexpr Colour LIMIT_1 = GREEN;
constexpr Colour LIMIT_2 = RED;
constexpr Colour MEAN = 0x0080FF; // orange

/// The axis captions: the parts of AchseText between semicolons.
std::vector<std::string_view> axisCaptions(const std::string& text) {
    constexpr std::ptrdiff_t SHORTEST = 2; // characters
    const auto starts = [](char c) { return !isContinuation(c); };
    return std::count_if(text.begin(), text.end(), starts) < SHORTEST ? std::vector<std::string_view>()
                                                                      : split(text, ';');
}

/// One drawing: its inputs and what its stages share.
class LinePainting {
  public:
    LinePainting(Surface& surface, const DiagramProperties& properties, const Series& series,
                 const DiagramLayout& layout, const LocaleTexts& texts)
        : surface_(surface)
        , properties_(properties)
        , layout_(layout)
        , texts_(texts)
        , scale_(surface.scale())
        , size_(surface.size())
        , range_{properties.XLow, properties.XHigh}
        , plot_(layout, size_, scale_, range_)
        , series_(series)
        , ascending_(isAscending(series_.times)) {}

    LineDrawing run() {
        scanRanges();
        if (layout_.background) {
            surface_.clear(properties_.BgCol);
        }
        surface_.setFont(fontOf(layout_.textPoints));
        drawTimeAxis();
        drawValueAxis(left_, plot_.left, -1, properties_.Y1axe);
        drawValueAxis(right_, plot_.right, +1, properties_.Y2axe);
        LineDrawing result{plot_, left_, right_, automaticRight_};
        result.kind = properties_.DiagTyp;
        if (plot_.hasTimeScale() && plot_.width() > 0 && plot_.height() > 0) {
            surface_.setClip(plot_.clip());
            result.passes = drawSeries();
            drawLevels();
            surface_.setClip({});
        }
        drawTexts();
        drawLegend(result.passes);
        drawTotal();
        return result;
    }

  private:
    void scanRanges() {
        scan_ = scanSeries(series_.y1);
        left_ = leftRange(properties_, scan_);
        const ValueRange right = rightRange(properties_, series_.y2);
        if (properties_.hasAutomaticRightRange()) {
            automaticRight_ = right;
        }
        right_ = withHeight(right);
    }

    [[nodiscard]] int dots(double length) const { return nearestDot(length * scale_); }

    /// SkalaFont, in the layout's size when it has one.
    [[nodiscard]] Font fontOf(const std::optional<double>& points) const {
        Font font = properties_.SkalaFont;
        font.Size = points.value_or(font.Size);
        return font;
    }

    void drawTimeAxis() {
        const int base = nearestDot(plot_.bottom);
        surface_.setPen(properties_.Xaxe);
        surface_.line({nearestDot(plot_.left), base}, {nearestDot(plot_.right), base});
        const TimeAxis axis{range_, plot_.width() / scale_, layout_.minLabelGap, layout_.minTickGap};
        for (const TimeTick& tick : timeTicks(axis, texts_)) {
            const int x = plot_.x(tick.time);
            surface_.line({x, base}, {x, base + dots(tick.labelled ? layout_.longTick : layout_.shortTick)});
            if (tick.labelled) {
                const int y = base + dots(layout_.longTick);
                centredText(x, y, tick.upper);
                centredText(x, y + dots(layout_.rowPitch), tick.lower);
            }
        }
    }

    /// `side` is -1 for labels left of the axis, +1 for labels right of it.
    void drawValueAxis(const ValueRange& range, double at, int side, Colour colour) {
        const int x = nearestDot(at);
        const ValueScale scale = plot_.scaleOf(range);
        surface_.setPen(colour);
        surface_.line({x, nearestDot(plot_.top)}, {x, nearestDot(plot_.bottom)});
        const double length = plot_.height() / scale_;
        for (const ValueTick& tick : valueTicks(range, length, layout_.minDivision, texts_)) {
            const int y = scale.y(tick.value);
            const int tickEnd = x + side * dots(layout_.longTick);
            surface_.line({x, y}, {tickEnd, y});
            const Extent extent = surface_.textExtent(tick.label);
            const int labelX =
                side < 0 ? tickEnd - dots(layout_.textGap) - extent.width
                         : std::min(tickEnd + dots(layout_.rightLabelGap), size_.width - extent.width);
            surface_.text({std::max(labelX, 0), y - extent.height / 2}, tick.label); // its start is never cut
        }
    }

    int drawSeries() {
        const std::array<Colour, MAX_PASSES> passColours = {properties_.D1, PASS_MINIMA, PASS_MAXIMA};
        const std::array<Colour, MAX_PASSES> secondColours = {properties_.D2, properties_.D2, properties_.D2};
        const int passes = drawOne(series_.y1, left_, true, passColours);
        drawOne(series_.y2, right_, false, secondColours);
        return passes;
    }

    int drawOne(std::span<const double> values, const ValueRange& range, bool detectPasses,
                std::span<const Colour> colours) {
        cleanVectorRegisters(); // axes and background have been painted
        const PlottedSeries series{series_.times,
                                   values,
                                   plot_,
                                   plot_.scaleOf(range),
                                   ascending_,
                                   detectPasses,
                                   static_cast<int>(std::ceil(layout_.loneDot * scale_))};
        return properties_.DiagTyp == KIND_PRECIPITATION
                   ? drawBars(surface_, series, barWidth(), colours)
                   : drawCurve(surface_, series, properties_.DiagTyp == KIND_DIRECTION, colours);
    }

    /// The interval of the series in days. If it is unknown, a single column extends over the rest of the
    /// range.
    [[nodiscard]] double barWidth() const {
        if (series_.interval > 0) {
            return series_.interval;
        }
        return series_.times.size() == 1 ? range_.to - series_.times[0] : sampleInterval(series_.times);
    }

    /// Limit lines and mean line, on the left scale.
    void drawLevels() {
        const auto level = [this](double value, Colour colour) {
            const int y = plot_.scaleOf(left_).y(value);
            surface_.setPen(colour);
            surface_.line({nearestDot(plot_.left), y}, {nearestDot(plot_.right), y});
        };
        const auto limit = [&](double value, Colour colour) {
            if (value != 0 && left_.low <= value && value <= left_.high) {
                level(value, colour);
            }
        };
        limit(properties_.Hilfslinie1, LIMIT_1);
        limit(properties_.Hilfslinie2, LIMIT_2);
        if (properties_.showMittel && scan_.count > 0) {
            level(scan_.sum / static_cast<double>(scan_.count), MEAN);
        }
    }

    /// On the screen the total shares the row of dates, the last one above the window's scroll bar. It is at
    /// the very right, on its own background, and covers as little of them as possible.
    void drawTotal() {
        if (properties_.DiagTyp != KIND_PRECIPITATION) {
            return;
        }
        const std::string unit = properties_.Einheit.empty() ? "" : " " + properties_.Einheit;
        const std::string total =
            "Niederschlagssumme = " + formatNumber(scan_.sum, "########0.0#", texts_) + unit;
        const Extent extent = surface_.textExtent(total);
        const int right = layout_.totalAtEdge ? size_.width : nearestDot(plot_.right);
        const Dot at{right - extent.width,
                     nearestDot(plot_.bottom) + dots(layout_.longTick + layout_.totalRow * layout_.rowPitch)};
        if (layout_.background) {
            const int gap = dots(layout_.rightLabelGap); // a date that is cut does not run into the text
            const std::array<Box, 1> ground = {Box{at.x - gap, at.y, right, at.y + extent.height}};
            surface_.fill(ground, properties_.BgCol);
        }
        surface_.setPen(properties_.Xaxe);
        surface_.text(at, total);
    }

    void centredText(int x, int y, const std::string& text) {
        if (!text.empty()) {
            surface_.text({x - surface_.textExtent(text).width / 2, y}, text);
        }
    }

    void drawTexts() {
        Font bold = fontOf(layout_.titlePoints);
        bold.Bold = true;
        const std::string headLine = fitted(bold, properties_.HeadLine, titleRoom());
        const Extent title = surface_.textExtent(headLine);
        if (layout_.titleBand) {
            const std::array<Box, 1> band = {
                Box{0, 0, size_.width, title.height + dots(layout_.bandBelowTitle)}};
            surface_.fill(band, TITLE_BAND);
        }
        surface_.setPen(BLACK);
        surface_.text({(size_.width - title.width) / 2, dots(layout_.titleY)}, headLine);

        // The unit, and captions, are beside the second title.
        const int beside = 2 * dots(std::max(layout_.left, layout_.right) + 2 * layout_.longTick);
        const int room2 =
            properties_.AchseText.empty() ? size_.width - beside : static_cast<int>(plot_.width() / 2);
        const std::string headLine2 = fitted(fontOf(layout_.title2Points), properties_.HeadLine2, room2);
        const Extent second = surface_.textExtent(headLine2);
        surface_.text({(size_.width - second.width) / 2, dots(layout_.title2Y)}, headLine2);

        surface_.setFont(fontOf(layout_.textPoints));
        const Extent note = surface_.textExtent(properties_.Fussnote);
        surface_.text(
            {nearestDot(plot_.left), size_.height - note.height - dots(layout_.foot + layout_.textGap)},
            properties_.Fussnote);
        drawAxisTexts(second.width);
    }

    /// The unit ends at the left axis, above its uppermost label; the first caption follows it inside of
    /// the plot's width, the second one ends at the right axis. The second title, as wide as this, is
    /// between.
    void drawAxisTexts(int titleWidth) {
        const std::string unit = " " + properties_.Einheit;
        const Extent extent = surface_.textExtent(unit);
        const int y = nearestDot(plot_.top) - extent.height - extent.height / 2 + dots(layout_.unitDrop);
        surface_.setPen(properties_.Y1axe);
        surface_.text({nearestDot(plot_.left) - extent.width, y}, unit);

        const auto captions = axisCaptions(properties_.AchseText);
        if (captions.empty()) {
            return;
        }
        std::string first(captions[0]);
        std::string second(captions.size() > 1 ? captions[1] : std::string_view());
        const int inset = dots(2 * layout_.longTick);
        const int x = nearestDot(plot_.left) + inset;
        if (layout_.fitsTexts) {
            first = shortened(std::move(first), (size_.width - titleWidth) / 2 - inset - x);
            second = shortened(std::move(second),
                               nearestDot(plot_.right) - (size_.width + titleWidth) / 2 - inset);
        } else {
            shareRow(first, second, nearestDot(plot_.right) - x - inset);
        }
        surface_.text({x, y}, first);
        if (captions.size() > 1) {
            surface_.setPen(properties_.Y2axe);
            surface_.text({nearestDot(plot_.right) - surface_.textExtent(second).width, y}, second);
        }
    }

    /// Sets a font and returns a text that fits, where texts are to fit.
    std::string fitted(const Font& font, std::string_view text, int room) {
        if (layout_.fitsTexts) {
            return fitText(surface_, font, text, room, layout_.textPoints.value_or(font.Size));
        }
        surface_.setFont(font);
        return std::string(text);
    }
    /// Titles are centred, and leave the margin on the right also on the left.
    [[nodiscard]] int titleRoom() const { return size_.width - 2 * dots(layout_.right); }

    /// Shortens two captions that are wider together than the row; one that needs less than half of it stays.
    void shareRow(std::string& first, std::string& second, int row) {
        const int firstWidth = surface_.textExtent(first).width;
        const int secondWidth = surface_.textExtent(second).width;
        if (second.empty() || firstWidth + secondWidth <= row) {
            return;
        }
        const int half = row / 2;
        first = shortened(std::move(first), std::max(half, row - secondWidth));
        second = shortened(std::move(second), std::max(half, row - firstWidth));
    }

    /// A caption that fits a width, its name cut before the unit. The unit stays, whatever its width.
    std::string shortened(std::string caption, int width) {
        if (surface_.textExtent(caption).width <= width) {
            return caption;
        }
        const std::size_t unitAt = std::min(caption.rfind(" ["), caption.size());
        const std::string unit = caption.substr(unitAt);
        return cutText(surface_, caption.substr(0, unitAt), width - surface_.textExtent(unit).width) + unit;
    }

    /// One word for each pass that is there: the means when they are not alone, the minima, the maxima.
    void drawLegend(int passes) {
        struct Word {
            const char* text;
            Colour colour;
        };
        constexpr std::array<Word, MAX_PASSES> WORDS = {
            {{"Mittelwerte", BLACK}, {"Minima", PASS_MINIMA}, {"Maxima", PASS_MAXIMA}}};
        if (!layout_.legendY || passes < 2) {
            return;
        }
        const int half = surface_.textExtent(WORDS[0].text).width / 2;
        int x = dots(layout_.left - layout_.legendInset) + (size_.width - dots(layout_.left)) / 2 - half;
        for (const Word& word : std::span(WORDS).first(static_cast<std::size_t>(passes))) {
            surface_.setPen(word.colour);
            surface_.text({x, dots(*layout_.legendY)}, word.text);
            x += surface_.textExtent(word.text).width + dots(layout_.legendGap);
        }
    }

    Surface& surface_;
    const DiagramProperties& properties_;
    const DiagramLayout& layout_;
    const LocaleTexts& texts_;
    double scale_;
    Extent size_;
    TimeRange range_;
    PlotArea plot_;
    Series series_;
    bool ascending_; // its times
    SeriesScan scan_;
    ValueRange left_;
    ValueRange right_;
    std::optional<ValueRange> automaticRight_;
};

} // namespace

LineDrawing drawLineDiagram(Surface& surface, const DiagramProperties& properties, const Series& series,
                            const DiagramLayout& layout, const LocaleTexts& texts) {
    cleanVectorRegisters(); // the drawing begins with passes over the series
    return LinePainting(surface, properties, series, layout, texts).run();
}

LineDrawing drawLineDiagram(Surface& surface, DiagramState& control, const DiagramLayout& layout,
                            const LocaleTexts& texts) {
    const LineDrawing found = drawLineDiagram(surface, control.properties(), control.series(), layout, texts);
    if (found.automaticRight) {
        control.setY2Low(found.automaticRight->low);
        control.setY2High(found.automaticRight->high);
    }
    return found;
}

} // namespace kelvrum
