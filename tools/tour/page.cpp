// SPDX-License-Identifier: GPL-3.0-or-later
// A printed page, drawn like a page of the print job, but into a picture.
#include "app/SystemLocale.h"
#include "diagram/LineDiagram.h"
#include "diagram/PageNotes.h"
#include "diagram/PolarSys.h"
#include "drawing/PageRecording.h"
#include "tools/tour/Chapters.h"
#include "tools/tour/Picture.h"

#include <QLocale>
#include <QPainter>

namespace kelvrum::tour {

namespace {

constexpr double DOTS_PER_INCH = 96;
constexpr double MILLIMETRES_PER_INCH = 25.4;

int dots(double millimetres) { return static_cast<int>(millimetres * DOTS_PER_INCH / MILLIMETRES_PER_INCH); }

} // namespace

void showPage(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    stage.chooseChannel("Staub PM10");
    stage.chooseInterval("15 Minuten");
    stage.click("Option1");
    stage.click("Check1");
    stage.click("Check2");
    const QSize paper(dots(297), dots(210)); // A4, landscape
    const Resolution resolution = Resolution::page(DOTS_PER_INCH);
    const auto page = pageRecording({paper.width(), paper.height()}, resolution);
    drawLineDiagram(*page, stage.the<PolarSys>("KS"), DiagramLayout::page(), localeTexts(QLocale()));
    drawPageNotes(*page,
                  {"Gerätenummer " + stage.window().station().DeviceNumber, "Gedruckt am 18.06.2026", {}},
                  false);

    QImage picture(paper, QImage::Format_RGB32);
    picture.fill(Qt::white);
    PainterSurface surface(picture, {paper.width(), paper.height()}, resolution);
    page->drawing().play(surface);
    surface.end();
    QPainter(&picture).drawRect(picture.rect().adjusted(0, 0, -1, -1)); // the paper's edge
    save(picture, pictures, QStringLiteral("page"));
}

} // namespace kelvrum::tour
