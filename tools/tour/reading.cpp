// SPDX-License-Identifier: GPL-3.0-or-later
// Reading the picture: single values, days with data, a second channel.
#include "diagram/PolarSys.h"
#include "tools/tour/Chapters.h"
#include "tools/tour/Picture.h"

#include <QMenu>
#include <QTest>
#include <stdexcept>

namespace kelvrum::tour {

namespace {

/// Two values of a day of dust and the differences between them.
void readout(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    stage.chooseChannel("Staub PM10");
    stage.chooseInterval("15 Minuten");
    stage.click("Option1");
    auto& ks = stage.the<PolarSys>("KS");
    ks.setFocus();
    constexpr int FIRST = 26;
    constexpr int APART = 18;
    QTest::keyClick(&ks, Qt::Key_Home);
    for (int i = 0; i < FIRST; ++i) {
        QTest::keyClick(&ks, Qt::Key_Right);
    }
    QTest::keyClick(&ks, Qt::Key_Space);
    for (int i = 0; i < APART; ++i) {
        QTest::keyClick(&ks, Qt::Key_Right);
    }
    save(stage.picture(), pictures, QStringLiteral("readout"));
}

void calendar(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    stage.chooseChannel("Staub PM10");
    const QRect picker = stage.placeOf("DTPicker");
    auto& control = stage.the<QWidget>("DTPicker");
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(control.width() - 6, control.height() / 2));
    constexpr int UNTIL_MARKED = 500; // milliseconds: the days are read one after the other
    QTest::qWait(UNTIL_MARKED);
    const QRect place(QPoint(0, 0), picker.bottomRight() + QPoint(260, 230));
    save(pictureOf(stage.window()).copy(place), pictures, QStringLiteral("calendar"));
}

void secondChannel(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    stage.chooseChannel("Staub PM10");
    stage.chooseInterval("15 Minuten");
    stage.click("Option1");
    auto& menu = stage.the<QMenu>("menZweiter");
    for (QAction* entry : menu.actions()) {
        if (entry->text() == QStringLiteral("Windgeschwindigkeit")) {
            entry->trigger();
        }
    }
    if (stage.the<PolarSys>("KS").AchseText().find("Wind") == std::string::npos) {
        throw std::runtime_error("no second channel");
    }
    stage.rest();
    save(stage.picture(), pictures, QStringLiteral("second"));
}

} // namespace

void showReading(const SampleFolder& station, const QString& pictures) {
    readout(station, pictures);
    calendar(station, pictures);
    secondChannel(station, pictures);
}

} // namespace kelvrum::tour
