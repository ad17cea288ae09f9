// SPDX-License-Identifier: GPL-3.0-or-later
#include "tools/tour/Stage.h"

#include "app/SystemLocale.h"
#include "diagram/PolarSys.h"
#include "tools/makestation/FileWriting.h"
#include "tools/makestation/StationWriter.h"
#include "tools/tour/Picture.h"

#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDateEdit>
#include <QListWidget>
#include <QLocale>
#include <QMenu>
#include <QTest>
#include <array>

namespace kelvrum::tour {

namespace {

const QDate TODAY(2026, 6, 18);
constexpr int DAYS = 60; // of the station before today
constexpr int WIDTH = 960;
constexpr int HEIGHT = 700;

const QString WIDE_FOLDER = QStringLiteral("Tagesdateien");

struct OtherProject {
    const char* folder;
    const char* ini;
};
constexpr std::array<OtherProject, 2> OTHER_PROJECTS = {{
    {"Deponie", "PROJEKTNAME=Deponie Nordhang\nSTANDORT=Messfeld 2\nGERAETNUMMER=QEL-0388\n"},
    {"Steinbruch", "PROJEKTNAME=Steinbruch Ost\nSTANDORT=Brecherhalle\nGERAETNUMMER=QEL-0402\n"},
}};

} // namespace

SampleFolder::SampleFolder() {
    if (!folder_.isValid()) {
        throw std::runtime_error(folder_.errorString().toStdString());
    }
    sample::StationPlan plan;
    plan.until = dateSerial(TODAY.year(), TODAY.month(), TODAY.day()) + 1;
    plan.days = DAYS;
    sample::writeStation(path().toStdString(), plan);
    plan.form = sample::StationForm::wide;
    plan.days = 1;
    sample::writeStation(folder_.filePath(WIDE_FOLDER).toStdString(), plan);
    for (const OtherProject& project : OTHER_PROJECTS) {
        const std::filesystem::path folder =
            folder_.filePath(QString::fromUtf8(project.folder)).toStdString();
        sample::makeFolder(folder);
        sample::writeFile(folder / "QEL.ini", project.ini);
    }
}

QString SampleFolder::path() const { return folder_.filePath(QStringLiteral("Klaeranlage")); }

QString SampleFolder::wideStation() const {
    return folder_.filePath(WIDE_FOLDER + QStringLiteral("/VARNIX.CFG"));
}

Stage::Stage(const SampleFolder& folder) {
    Environment environment;
    environment.today = [] { return TODAY; };
    environment.programFolder = folder.path();
    environment.texts = localeTexts(QLocale());
    window_ = std::make_unique<f>(environment);
    window_->resize(WIDTH, HEIGHT);
    window_->Form_Load();
    driver().show();
    rest();
}

Stage::~Stage() = default;

void Stage::chooseChannel(const char* name) const {
    auto& list = the<QListWidget>("selChan");
    const auto found = list.findItems(QString::fromUtf8(name), Qt::MatchExactly);
    if (found.isEmpty()) {
        throw std::runtime_error(std::string("no channel ") + name);
    }
    driver().chooseRow("selChan", list.row(found.front()));
}

void Stage::chooseInterval(const char* caption) const {
    auto& box = the<QComboBox>("selInterval");
    const int row = box.findText(QString::fromUtf8(caption));
    if (row < 0) {
        throw std::runtime_error(std::string("no interval ") + caption);
    }
    driver().chooseEntry(QStringLiteral("selInterval"), row);
}

void Stage::typeDate(const char* picker, const char* date) const {
    auto& field = the<QDateEdit>(picker);
    driver().typePicker(picker, QString::fromUtf8(date));
    QTest::keyClick(&field, Qt::Key_Return);
    if (field.text() != QString::fromUtf8(date)) {
        throw std::runtime_error(std::string("the date is not taken: ") + date + " gives " +
                                 field.text().toStdString());
    }
}

void Stage::chooseDays(const char* from, const char* to) const {
    typeDate("DTPicker", from);
    typeDate("DTPicker2", to);
    rest();
}

void Stage::openKinds() const {
    auto& ks = the<PolarSys>("KS");
    const QPoint middle = ks.rect().center();
    QContextMenuEvent event(QContextMenuEvent::Mouse, middle, ks.mapToGlobal(middle));
    QCoreApplication::sendEvent(&ks, &event);
}

void Stage::chooseKind(const char* action) const {
    openKinds();
    auto& menu = the<QMenu>("menKS");
    auto* entry = menu.findChild<QAction*>(QString::fromUtf8(action));
    if (entry == nullptr || !entry->isVisible()) {
        throw std::runtime_error(std::string("no kind ") + action);
    }
    menu.setActiveAction(entry);
    QTest::keyClick(&menu, Qt::Key_Return);
    driver().show(); // the menu had the keyboard
    rest();
}

void Stage::rest() const {
    if (QWidget* focused = QApplication::focusWidget()) {
        focused->clearFocus();
    }
    QCoreApplication::processEvents();
}

QImage Stage::picture() const { return framed(pictureOf(*window_), window_->windowTitle()); }

} // namespace kelvrum::tour
