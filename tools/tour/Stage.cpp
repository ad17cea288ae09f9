#include "tools/tour/Stage.h"

#include "app/SystemLocale.h"
#include "diagram/PolarSys.h"
#include "tools/makestation/FileWriting.h"
#include "tools/makestation/StationWriter.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QContextMenuEvent>
#include <QDateEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QLocale>
#include <QMenu>
#include <QTest>
#include <QTimer>
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
    window_->show();
    activate();
    rest();
}

Stage::~Stage() = default;

void Stage::activate() const {
    window_->activateWindow();
    if (!QTest::qWaitForWindowExposed(window_.get()) || !QTest::qWaitForWindowActive(window_.get())) {
        throw std::runtime_error("the window does not show");
    }
}

void Stage::click(const char* button) const {
    auto& control = the<QAbstractButton>(button);
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(8, control.height() / 2));
}

void Stage::chooseChannel(const char* name) const {
    auto& list = the<QListWidget>("selChan");
    const auto found = list.findItems(QString::fromUtf8(name), Qt::MatchExactly);
    if (found.isEmpty()) {
        throw std::runtime_error(std::string("no channel ") + name);
    }
    list.scrollToItem(found.front());
    QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, list.visualItemRect(found.front()).center());
}

void Stage::chooseInterval(const char* caption) const {
    auto& box = the<QComboBox>("selInterval");
    const int row = box.findText(QString::fromUtf8(caption));
    if (row < 0) {
        throw std::runtime_error(std::string("no interval ") + caption);
    }
    while (box.currentIndex() != row) {
        QTest::keyClick(&box, box.currentIndex() < row ? Qt::Key_Down : Qt::Key_Up);
    }
}

void Stage::typeDate(const char* picker, const char* date) const {
    auto& field = the<QDateEdit>(picker);
    field.clearFocus();
    field.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&field, QString::fromUtf8(date));
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

void Stage::type(const char* box, const char* text) const {
    auto& field = the<QLineEdit>(box);
    field.setFocus();
    field.selectAll();
    QTest::keyClick(&field, Qt::Key_Delete);
    QTest::keyClicks(&field, QString::fromUtf8(text));
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
    activate(); // the menu had the keyboard
    rest();
}

void Stage::rest() const {
    if (QWidget* focused = QApplication::focusWidget()) {
        focused->clearFocus();
    }
    QCoreApplication::processEvents();
}

QRect Stage::placeOf(const char* name) const {
    const auto& control = the<QWidget>(name);
    return {control.mapTo(window_.get(), QPoint(0, 0)), control.size()};
}

void Stage::inWindowOf(const std::function<void()>& open, const std::function<void(QWidget&)>& look) {
    constexpr int LOOK_AGAIN = 10; // milliseconds
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        QWidget* modal = QApplication::activeModalWidget();
        if (modal != nullptr && modal->isVisible()) {
            timer.stop();
            look(*modal);
            modal->close();
        }
    });
    timer.start(LOOK_AGAIN);
    open();
    if (timer.isActive()) {
        throw std::runtime_error("no window opened");
    }
}

} // namespace kelvrum::tour
