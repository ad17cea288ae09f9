// SPDX-License-Identifier: GPL-3.0-or-later
// The window as a whole and what is chosen in its left column.
#include "tools/tour/Chapters.h"
#include "tools/tour/Picture.h"

#include <QComboBox>
#include <QMenu>
#include <QTableView>
#include <QTest>

namespace kelvrum::tour {

namespace {

/// The picture of the README: a day of dust with mean and limits.
void wholeWindow(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    stage.chooseChannel("Staub PM10");
    stage.chooseInterval("15 Minuten");
    stage.click("Option1");
    stage.click("Check1");
    stage.type("Text3", "25");
    stage.type("Text4", "35");
    stage.click("Check2");
    stage.rest();
    save(stage.picture(), pictures, QStringLiteral("window"));
}

void atTheStart(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    save(stage.picture(), pictures, QStringLiteral("start"));
}

/// A close-up of the column from one control down to another, with a numbered disc beside each that the text
/// names.
QImage closeUp(const Stage& stage, const QRect& place, const std::vector<const char*>& controls) {
    constexpr int DOTS = 2;
    constexpr int MARGIN = 44; // dots, for the marks
    const QRect dots(place.topLeft() * DOTS, place.size() * DOTS);
    QImage picture = widened(enlarged(stage.window(), DOTS).copy(dots), MARGIN);
    std::vector<Mark> marks;
    for (const char* name : controls) {
        const int y = (stage.placeOf(name).center().y() - place.top()) * DOTS;
        marks.push_back({{picture.width() - MARGIN / 2, y}, static_cast<int>(marks.size()) + 1});
    }
    mark(picture, marks);
    return picture;
}

void range(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    const QRect place = stage.placeOf("Frame3").united(stage.placeOf("Frame6"));
    save(closeUp(stage, place, {"DTPicker1", "DTPicker", "DTPicker3", "DTPicker2", "selScroll", "Command7"}),
         pictures, QStringLiteral("range"));
}

void averages(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    stage.chooseChannel("Windgeschwindigkeit");
    stage.chooseInterval("1 Stunde");
    stage.click("Option1");
    auto& box = stage.the<QComboBox>("selInterval");
    box.showPopup();
    QTest::qWait(300); // until the list is open
    save(stage.picture(), pictures, QStringLiteral("averages"));
    box.hidePopup();
}

void list(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    stage.chooseChannel("Lufttemperatur");
    stage.chooseInterval("15 Minuten");
    stage.click("optView(1)");
    auto& view = stage.the<QTableView>("lView");
    const auto rowAt = [&view](int row) { return view.visualRect(view.model()->index(row, 0)).center(); };
    constexpr int FIRST = 4;
    constexpr int LAST = 9;
    QTest::mouseClick(view.viewport(), Qt::LeftButton, {}, rowAt(FIRST));
    QTest::mouseClick(view.viewport(), Qt::LeftButton, Qt::ShiftModifier, rowAt(LAST));
    save(stage.picture(), pictures, QStringLiteral("list"));
}

void fileMenu(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    auto& menu = stage.the<QMenu>("menDat");
    auto* bar = stage.the<QWidget>("menDat").parentWidget();
    menu.popup(bar->mapToGlobal(QPoint(0, bar->height())));
    QTest::qWait(100);
    constexpr QRect CORNER(0, 0, 320, 220);
    save(pictureOf(stage.window()).copy(CORNER), pictures, QStringLiteral("file-menu"));
    menu.close();
}

} // namespace

void showViews(const SampleFolder& station, const QString& pictures) {
    wholeWindow(station, pictures);
    atTheStart(station, pictures);
    range(station, pictures);
    averages(station, pictures);
    list(station, pictures);
    fileMenu(station, pictures);
}

} // namespace kelvrum::tour
