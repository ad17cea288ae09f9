// SPDX-License-Identifier: GPL-3.0-or-later
// The scale, the limits and the kinds of diagram.
#include "diagram/PolarSys.h"
#include "tools/tour/Chapters.h"
#include "tools/tour/Picture.h"

#include <QMenu>
#include <QTest>
#include <stdexcept>

namespace kelvrum::tour {

namespace {

/// The whole diagram on its own: in the window the scroll bar covers its bottom edge.
QImage diagram(const Stage& stage) {
    const auto& ks = stage.the<PolarSys>("KS");
    if (ks.DataCount() == 0 && ks.sampleCount() == 0) {
        throw std::runtime_error("a diagram without values");
    }
    return ks.picture().toImage().convertToFormat(QImage::Format_RGB32);
}

void scales(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    stage.chooseChannel("Windgeschwindigkeit");
    stage.chooseInterval("15 Minuten");
    stage.click("Option1");
    stage.rest();
    save(stage.picture(), pictures, QStringLiteral("scale-automatic"));
    stage.click("Option2");
    stage.type("Text1", "0");
    stage.type("Text2", "12.5");
    stage.rest();
    save(stage.picture(), pictures, QStringLiteral("scale-manual"));
}

void limits(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    stage.chooseChannel("Staub PM10");
    stage.chooseInterval("10 Minuten");
    stage.click("Option1");
    stage.click("Check1");
    stage.type("Text3", "20");
    stage.type("Text4", "25");
    stage.click("Check2");
    stage.rest();
    save(stage.picture(), pictures, QStringLiteral("limits"));
}

void kindMenu(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    stage.chooseChannel("Windrichtung");
    stage.chooseInterval("10 Minuten");
    stage.click("Option1");
    stage.rest();
    stage.openKinds();
    QTest::qWait(100);
    save(stage.picture(), pictures, QStringLiteral("kinds"));
    stage.the<QMenu>("menKS").close();
}

void eachKind(const SampleFolder& station, const QString& pictures) {
    struct Kind {
        const char* picture;
        const char* channel;
        const char* interval;
        const char* from;
        const char* to;
        const char* entry;
    };
    const Kind kinds[] = {
        {"line", "Lufttemperatur", "10 Minuten", "16.06.2026", "19.06.2026", "menLinie"},
        {"precipitation", "Niederschlag", "1 Stunde", "15.06.2026", "18.06.2026", "menNiederschlag"},
        {"direction", "Windrichtung", "10 Minuten", "06.06.2026", "07.06.2026", "menRichtung"},
        {"polar", "Windrichtung", "10 Minuten", "05.06.2026", "19.06.2026", "menPolar"},
    };
    const Stage stage(station);
    stage.click("Option1");
    for (const Kind& kind : kinds) {
        stage.chooseChannel(kind.channel);
        stage.chooseInterval(kind.interval);
        stage.chooseDays(kind.from, kind.to);
        stage.chooseKind(kind.entry);
        save(diagram(stage), pictures, QString::fromUtf8(kind.picture));
    }
}

void extremes(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    stage.window().readConf(station.wideStation().toStdString());
    stage.window().LoadData();
    stage.chooseChannel("Lufttemperatur");
    stage.chooseInterval("1 Stunde");
    stage.click("Option1");
    stage.rest();
    save(diagram(stage), pictures, QStringLiteral("extremes"));
}

} // namespace

void showDiagrams(const SampleFolder& station, const QString& pictures) {
    scales(station, pictures);
    limits(station, pictures);
    kindMenu(station, pictures);
    eachKind(station, pictures);
    extremes(station, pictures);
}

} // namespace kelvrum::tour
