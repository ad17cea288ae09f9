// SPDX-License-Identifier: GPL-3.0-or-later
// The modal windows.
#include "app/SystemLocale.h"
#include "batchprint/fCPrint.h"
#include "diagram/PolarSys.h"
#include "drawing/PrintJob.h"
#include "tools/tour/Chapters.h"
#include "tools/tour/Picture.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <QLocale>
#include <QPushButton>
#include <QTest>
#include <QTimer>

namespace kelvrum::tour {

namespace {

void saveDialog(QWidget& dialog, const QString& pictures, const char* name) {
    QTest::qWait(100); // until it is laid out
    save(framed(pictureOf(dialog), dialog.windowTitle()), pictures, QString::fromUtf8(name));
}

void projects(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    Stage::inWindowOf([&] { stage.the<QAction>("menProj").trigger(); },
                      [&](QWidget& dialog) { saveDialog(dialog, pictures, "projects"); });
}

void correction(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    Stage::inWindowOf([&] { stage.the<QAction>("menWind").trigger(); },
                      [&](QWidget& dialog) {
                          auto* factor = dialog.findChild<QLineEdit*>(QStringLiteral("Text1"));
                          QTest::keyClicks(factor, QStringLiteral("1,05"));
                          saveDialog(dialog, pictures, "correction");
                      });
}

void evaluation(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    stage.chooseChannel("Staub PM10");
    stage.chooseInterval("15 Minuten");
    stage.click("Check1");
    stage.type("Text3", "25");
    stage.type("Text4", "35");
    QTimer look; // until it has read, but not within the reading, which lets events run
    QObject::connect(&look, &QTimer::timeout, &look, [&] {
        QWidget* dialog = QApplication::activeModalWidget();
        const auto* copy =
            dialog == nullptr ? nullptr : dialog->findChild<QPushButton*>(QStringLiteral("cmdKopieren"));
        if (copy != nullptr && copy->isEnabled()) {
            look.stop();
            dialog->resize(1220, 480); // all columns; a picture of all rows would be too large
            saveDialog(*dialog, pictures, "evaluation");
            dialog->close();
        }
    });
    look.start(10);
    stage.the<QAction>("menAuswertung").trigger();
}

/// Ticks a box of a row, as a click does.
void tick(const QWidget& dialog, const char* box, int row) {
    const QString name = QStringLiteral("%1(%2)").arg(QString::fromUtf8(box)).arg(row);
    dialog.findChild<QCheckBox*>(name)->setChecked(true);
}

/// Types over what a number field of a row holds.
void type(const QWidget& dialog, const char* box, int row, const char* number) {
    auto* field = dialog.findChild<QLineEdit*>(QStringLiteral("%1(%2)").arg(QString::fromUtf8(box)).arg(row));
    field->selectAll();
    QTest::keyClicks(field, QString::fromUtf8(number));
}

void choose(const QWidget& dialog, int row, const char* interval) {
    auto* box = dialog.findChild<QComboBox*>(QStringLiteral("selInterval(%1)").arg(row));
    box->setCurrentText(QString::fromUtf8(interval));
}

/// The dialog gets the same arguments as from the main window, which first checks for a printer, which may be
/// missing where pictures are taken.
void batchPrint(const SampleFolder& station, const QString& pictures) {
    const Stage stage(station);
    PrintJob job;
    Dialogs dialogs;
    const auto read = [](const ReadRequest&, const DiagramSettings&) { return ReadStatus::complete; };
    fCPrint dialog({stage.window().range(), stage.window().station(), localeTexts(QLocale()),
                    stage.the<PolarSys>("KS"), job, read, [] {}, dialogs},
                   &stage.window());
    struct Row {
        const char* interval;
        int row;
        bool automatic;
        bool limits;
        bool mean;
    };
    const Row rows[] = {
        {"10 Minuten", 0, true, false, false},
        {"10 Minuten", 1, false, true, true},
        {"1 Stunde", 3, true, false, false},
        {"15 Minuten", 5, false, false, true},
    };
    for (const Row& row : rows) {
        tick(dialog, "chKanal", row.row);
        choose(dialog, row.row, row.interval);
        for (const auto& [box, wanted] :
             {std::pair{"chAuto", row.automatic}, std::pair{"chShowLines", row.limits},
              std::pair{"chShowMittel", row.mean}}) {
            if (wanted) {
                tick(dialog, box, row.row);
            }
        }
    }
    type(dialog, "tMax", 1, "12.5");
    type(dialog, "tMin", 5, "-10");
    type(dialog, "tMax", 5, "30");
    dialog.show();
    saveDialog(dialog, pictures, "batch");
}

} // namespace

void showDialogs(const SampleFolder& station, const QString& pictures) {
    projects(station, pictures);
    correction(station, pictures);
    evaluation(station, pictures);
    batchPrint(station, pictures);
}

} // namespace kelvrum::tour
