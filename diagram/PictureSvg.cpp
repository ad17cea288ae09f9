// SPDX-License-Identifier: GPL-3.0-or-later
// The picture as SVG, by the toolkit's generator.
#include "diagram/PictureCopy.h"
#include "diagram/PolarSys.h"
#include "drawing/ClippedSurface.h"
#include "drawing/PainterSurface.h"

#include <QBuffer>
#include <QSvgGenerator>
#include <exception>

namespace kelvrum {

namespace {
constexpr int SCREEN_DOTS_PER_INCH = 96;
} // namespace

QByteArray pictureAsSvg(PolarSys& diagram) {
    QByteArray svg;
    QBuffer buffer(&svg);
    QSvgGenerator generator;
    generator.setOutputDevice(&buffer);
    generator.setSize(diagram.size());
    generator.setViewBox(diagram.rect());
    generator.setResolution(SCREEN_DOTS_PER_INCH);
    generator.setTitle(QString::fromStdString(diagram.HeadLine()));
    try {
        // The generator ignores every clip.
        PainterSurface painter(generator, {diagram.width(), diagram.height()}, 1);
        ClippedSurface surface(painter);
        if (!diagram.drawOn(surface)) {
            return {};
        }
    } catch (const std::exception&) {
        return {}; // a drawing that ends with an error has no picture
    }
    return svg;
}

} // namespace kelvrum
