// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/PolarDiagram.h"

#include "drawing/FittedText.h"
#include "drawing/PlacedSurface.h"
#include "util/Numbers.h"
#include "util/VectorRegisters.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>

namespace kelvrum {

namespace {

constexpr Colour SECTOR_LINE = RED;
constexpr Colour SECTOR_FILL = 0x00FFFF; // yellow
constexpr double CALM_BELOW = 0.5;       // speed

/// Every float becomes an integer by rounding halves to even. Throws when it does not fit or is no number.
int rounded(double v) {
    const auto whole = roundToInt32(v);
    if (!whole) {
        throw std::overflow_error("Überlauf");
    }
    return *whole;
}

/// A sector's radius is computed from count times radius, a 32-bit integer in drawing units.
void requireProduct(std::int32_t count, int radius) {
    if (std::int64_t{count} * radius > std::numeric_limits<std::int32_t>::max()) {
        throw std::overflow_error("Überlauf");
    }
}

/// One drawing: its inputs and what its stages share.
class PolarPainting {
  public:
    /// On a page the paper is the background, and the head line keeps within the frame.
    PolarPainting(Surface& surface, const DiagramProperties& properties, const PolarSamples& samples,
                  const LocaleTexts& texts, bool isPage)
        : surface_(surface)
        , properties_(properties)
        , samples_(samples)
        , texts_(texts)
        , isPage_(isPage)
        , paper_(isPage ? WHITE : properties.BgCol)
        , size_(surface.size())
        , head_(headExtent())
        , geometry_(size_, head_.height, properties.LongRaster, surface.scale()) {}

    /// The y of the centre in drawing units; nothing on an empty surface.
    [[nodiscard]] std::optional<std::int32_t> yCentre() const {
        return size_.width > 0 && size_.height > 0
                   ? std::optional(rounded(geometry_.yCentre / surface_.scale()))
                   : std::nullopt;
    }

    PolarDrawing run() {
        PolarDrawing result{geometry_, {}, samples_.count, startAngle(), yCentre(), {}};
        if (result.yCentre) {
            surface_.clear(properties_.BgCol);
            surface_.setPen(BLACK);
            drawGrid();
            if (samples_.count > 0) {
                result.classes = classify(samples_, properties_.RadRaster);
                if (result.classes.maxCount > 0) {
                    drawSectors(result.classes);
                }
                surface_.setPen(BLACK);
                drawRingLabels(result.classes);
            }
        }
        surface_.setPen(BLACK);
        drawCompass();
        drawFootnote();
        drawFrame();
        drawHeadLine();
        result.texts = std::move(drawnTexts_);
        return result;
    }

  private:
    [[nodiscard]] Font bold() const {
        Font font = properties_.SkalaFont;
        font.Bold = true;
        return font;
    }

    Extent headExtent() {
        surface_.setFont(bold()); // the font of the head line
        const Extent extent = surface_.textExtent(properties_.HeadLine);
        surface_.setFont(properties_.SkalaFont);
        return extent;
    }

    /// Drawing units as dots.
    [[nodiscard]] int units(int length) const { return rounded(length * surface_.scale()); }

    [[nodiscard]] double sector() const { return TWO_PI / properties_.RadRaster; }
    [[nodiscard]] int outerX() const { return geometry_.dx(geometry_.rings); }
    [[nodiscard]] int outerY() const { return geometry_.dy(geometry_.rings); }
    /// The screen angle of direction 0, in radians.
    [[nodiscard]] double startAngle() const { return properties_.AngelOffset; }

    void drawText(Dot at, std::string_view text) {
        const Extent extent = surface_.textExtent(text);
        drawnTexts_.push_back({at.x, at.y, at.x + extent.width, at.y + extent.height});
        surface_.text(at, text);
    }

    /// Rings, spokes, and the white disc that covers the spokes inside of the first ring.
    void drawGrid() {
        const int xc = geometry_.xCentre;
        const int yc = geometry_.yCentre;
        for (std::int32_t i = 1; i <= geometry_.rings; ++i) {
            const int dx = geometry_.dx(i);
            const int dy = geometry_.dy(i);
            surface_.ellipse({xc - dx, yc - dy, xc + dx, yc + dy}, {});
        }
        double a = startAngle();
        for (std::int32_t k = 0; k < properties_.RadRaster; ++k) {
            surface_.line({xc, yc},
                          {xc + rounded(outerX() * std::cos(a)), yc + rounded(outerY() * std::sin(a))});
            a += sector();
        }
        surface_.ellipse({rounded(xc - geometry_.stepX), rounded(yc - geometry_.stepY),
                          rounded(xc + geometry_.stepX), rounded(yc + geometry_.stepY)},
                         WHITE);
    }

    /// Each sector is centred on its spoke; the fullest class reaches the outermost ring.
    void drawSectors(const DirectionClasses& classes) {
        const int xc = geometry_.xCentre;
        const int yc = geometry_.yCentre;
        double a = startAngle() - sector() / 2;
        surface_.setPen(SECTOR_LINE);
        for (std::int32_t j = 0; j < properties_.RadRaster; ++j) {
            const std::int32_t c = classes.counts[static_cast<std::size_t>(j)];
            requireProduct(c, rounded(outerX() / surface_.scale()));
            requireProduct(c, rounded(outerY() / surface_.scale()));
            const double rx = static_cast<double>(c) * outerX() / classes.maxCount;
            const double ry = static_cast<double>(c) * outerY() / classes.maxCount;
            const auto end = [&](double angle) {
                return Dot{rounded(xc + outerX() * std::cos(angle) * c / classes.maxCount),
                           rounded(yc + outerY() * std::sin(angle) * c / classes.maxCount)};
            };
            const Dot first = end(a);
            a += sector();
            const Dot second = end(a);
            // A sector too small for two different ends would be drawn as the whole circle.
            const bool tooSmall = first == second && properties_.RadRaster > 1;
            const Box box = tooSmall
                                ? Box{xc, yc, xc, yc}
                                : Box{rounded(xc - rx), rounded(yc - ry), rounded(xc + rx), rounded(yc + ry)};
            surface_.pie(box, second, first, SECTOR_FILL);
            if (tooSmall && first != Dot{xc, yc}) {
                surface_.line({xc, yc}, first); // its outline alone
            }
        }
    }

    /// The share of all samples, calms included, that a sector reaching the ring represents.
    void drawRingLabels(const DirectionClasses& classes) {
        for (std::int32_t i = 1; i <= geometry_.rings; ++i) {
            const auto share =
                static_cast<float>(classes.maxCount * 100 / samples_.count * i / geometry_.rings);
            const std::string label = formatNumber(decimalValue(share), "#0.0", texts_);
            const Extent extent = surface_.textExtent(label);
            const Dot at{size_.width / 2 - extent.width / 2,
                         geometry_.yCentre - geometry_.dy(i) - extent.height};
            if (geometry_.dy(i) >=
                upwardReach(classes)) { // the spoke underneath would hide the decimal separator
                const int xc = geometry_.xCentre;
                const std::array<Box, 1> behind = {
                    Box{xc - units(1), at.y, xc + units(1) + 1, at.y + extent.height}};
                surface_.fill(behind, paper_);
            }
            drawText(at, label);
        }
    }

    /// How far the sector that points up reaches, in dots; it already covers the spoke.
    [[nodiscard]] double upwardReach(const DirectionClasses& classes) const {
        if (classes.maxCount <= 0) {
            return 0;
        }
        const double up = NormWinkel(-TWO_PI / 4 - startAngle() + sector() / 2);
        const auto k = std::min(static_cast<std::size_t>(up / sector()), classes.counts.size() - 1);
        return static_cast<double>(classes.counts[k]) * outerY() / classes.maxCount;
    }

    /// The letters stay at their places whatever the screen angle of direction 0 is.
    void drawCompass() {
        constexpr int BOLD_FROM = 12; // points
        const int points = rounded(size_.height / surface_.scale()) / 40;
        Font font = properties_.SkalaFont;
        font.Size = points;
        font.Bold = font.Bold || points >= BOLD_FROM;
        surface_.setFont(font);
        const int fs = units(points);
        const int middle = geometry_.top + (size_.height - geometry_.top) / 2 - fs / 2;
        drawText({size_.width / 2 - units(3), geometry_.top + fs / 2}, "N");
        drawText({size_.width / 2 - units(3), size_.height - fs - units(10)}, "S");
        drawText({units(9), middle}, "W");
        drawText({size_.width - units(18), middle}, "E");
        surface_.setFont(properties_.SkalaFont);
    }

    void drawFootnote() {
        if (!properties_.Fussnote.empty()) {
            const int width = surface_.textExtent(properties_.Fussnote).width;
            drawText({size_.width - width - units(8), size_.height - units(16)}, properties_.Fussnote);
        }
    }

    void drawFrame() {
        const int right = size_.width - 1;
        const int bottom = size_.height - 1;
        surface_.line({0, 0}, {0, bottom});
        surface_.line({0, bottom}, {right, bottom});
        surface_.line({right, 0}, {right, bottom});
        surface_.line({0, 0}, {right, 0}); // the box around the head band
        surface_.line({right, 0}, {right, geometry_.top});
        surface_.line({right, geometry_.top}, {0, geometry_.top});
        surface_.line({0, geometry_.top}, {0, 0});
    }

    void drawHeadLine() {
        constexpr double MIN_POINTS = 6;
        surface_.setFont(bold());
        const std::string text =
            isPage_ ? fitText(surface_, bold(), properties_.HeadLine, size_.width - 2 * units(3), MIN_POINTS)
                    : properties_.HeadLine;
        surface_.text({(size_.width - surface_.textExtent(text).width) / 2, units(3)}, text);
        surface_.setFont(properties_.SkalaFont);
    }

    Surface& surface_;
    const DiagramProperties& properties_;
    const PolarSamples& samples_;
    const LocaleTexts& texts_;
    bool isPage_;
    Colour paper_; // the background
    Extent size_;
    Extent head_;
    PolarGeometry geometry_;
    std::vector<Box> drawnTexts_; // but the head line
};

} // namespace

DirectionClasses classify(const PolarSamples& samples, std::int32_t classCount) {
    cleanVectorRegisters(); // background and grid have been painted
    const double sector = TWO_PI / classCount;
    const double half = sector / 2;
    DirectionClasses classes;
    classes.counts.assign(static_cast<std::size_t>(classCount) + 1, 0);
    for (std::size_t i = 0; i < static_cast<std::size_t>(samples.count); ++i) {
        if (samples.speed[i] < CALM_BELOW) {
            ++classes.calm;
            continue;
        }
        const double angle = NormWinkel(samples.direction[i] + half);
        ++classes.counts[std::min(static_cast<std::size_t>(angle / sector), classes.counts.size() - 1)];
    }
    const auto fullest = std::max_element(classes.counts.begin(), classes.counts.end() - 1);
    classes.maxCount = *fullest;
    return classes;
}

PolarGeometry::PolarGeometry(Extent size, int headHeight, std::int32_t ringCount, double scale)
    : top(headHeight + rounded(7 * scale))
    , xCentre(size.width / 2)
    , yCentre(top + (size.height - top) / 2)
    , rings(ringCount) {
    const int margin = rounded(12 * scale);
    const auto step = [&](int length) {
        const int available = (length - top) / 2 - margin;
        return available / (static_cast<double>(rings) + 1) * 0.99;
    };
    // The head band is subtracted from the width as well, so that the rings are round on a square.
    stepX = step(size.width);
    stepY = step(size.height);
}

int PolarGeometry::dx(std::int32_t i) const { return rounded(i * stepX); }

int PolarGeometry::dy(std::int32_t i) const { return rounded(i * stepY); }

namespace {

/// Draws what a control has in use. Its Ycenter is set first: it stays when an error ends the drawing.
PolarDrawing drawControl(Surface& surface, DiagramState& control, const LocaleTexts& texts, bool isPage) {
    const DiagramProperties properties = control.properties();
    PolarPainting drawing(surface, properties, control.samples(), texts, isPage);
    if (const auto y = drawing.yCentre()) {
        control.setYcenter(*y);
    }
    return drawing.run();
}

/// Calls `draw` with the place of the picture on the page, when there is a picture.
template<typename Draw>
void placePicture(Surface& page, Extent picture, Draw draw) {
    constexpr double MARGIN = 20;                    // millimetres
    constexpr double POINTS_PER_MM = 72 / 25.4;      // of the page's fonts
    constexpr double PIXELS_PER_POINT = 96.0 / 72.0; // of the picture's fonts
    const Extent paper = page.size();
    const double margin = 2 * MARGIN * page.scale();
    if (picture.width < 1 || picture.height < 1) {
        return;
    }
    const double dotsPerPixel =
        std::min((paper.width - margin) / picture.width, (paper.height - margin) / picture.height);
    const Extent size{rounded(picture.width * dotsPerPixel), rounded(picture.height * dotsPerPixel)};
    const Dot corner{(paper.width - size.width) / 2, (paper.height - size.height) / 2};
    const double dotsPerPoint = page.scale() / POINTS_PER_MM;
    PlacedSurface placed(page, corner, size, dotsPerPixel, dotsPerPixel * PIXELS_PER_POINT / dotsPerPoint);
    draw(placed);
}

} // namespace

PolarDrawing drawPolarDiagram(Surface& surface, const DiagramProperties& properties,
                              const PolarSamples& samples, const LocaleTexts& texts) {
    return PolarPainting(surface, properties, samples, texts, false).run();
}

PolarDrawing drawPolarDiagram(Surface& surface, DiagramState& control, const LocaleTexts& texts) {
    return drawControl(surface, control, texts, false);
}

void printPolarDiagram(Surface& page, Extent picture, DiagramState& control, const LocaleTexts& texts) {
    placePicture(page, picture, [&](Surface& placed) { drawControl(placed, control, texts, true); });
}

} // namespace kelvrum
