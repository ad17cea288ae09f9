// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/RandomUser.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QDateEdit>
#include <QDialog>
#include <QKeySequence>
#include <QLineEdit>
#include <QListWidget>
#include <QScrollBar>
#include <QTableView>
#include <QTest>
#include <QTimeEdit>
#include <QTimer>
#include <array>
#include <initializer_list>
#include <utility>

namespace kelvrum::testing {

namespace {

constexpr std::size_t REMEMBERED = 10; // actions
constexpr int QUEUED_PERCENT = 6;      // of the actions have a second one queued after them
constexpr int STRAY_PERCENT = 35;      // of the actions bring a stray date back
constexpr int LOST_PERCENT = 25;       // of the actions open another project when this one has no channel

constexpr std::array BUTTONS = {"Command1",   "Command2", "Command3", "Command4", "Command5",
                                "Command6",   "Command7", "Command8", "Command3", "Command4",
                                "Command5",   "Command6", "Command7", "Command8", "optView(0)",
                                "optView(1)", "Option1",  "Option2",  "Check1",   "Check2"};
constexpr std::array FIELDS = {"Text1", "Text2", "Text1", "Text2", "Text3", "Text4"};
constexpr std::array TIMES = {"DTPicker1", "DTPicker3"};

constexpr std::array NUMBERS_AND_NONSENSE = {
    "",         "abc",       "1,5",   "12abc",  "-",     ".",      "1e",  "nan", "inf",      "0x10", "--3",
    "1 2",      "1e400",     "5",     "-3.5",   ".5",    "+3",     "1e3", "0",   "-0",       " 7 ",  "100",
    "99999900", "123456789", "-1e12", "1e-300", "1e300", "-1e300", "360", "40",  "100000005"};
// A full section of a picker moves on to the next one: digits alone make a whole date or time.
struct DatePicker {
    const char* name;
    QDate first; // the days at which there are values to show
    QDate last;
    std::array<const char*, 4> typed;
};
const std::array DATES = {
    DatePicker{"DTPicker", {2020, 6, 17}, {2020, 6, 19}, {"17062020", "18062020", "18062020", "19062020"}},
    DatePicker{"DTPicker2", {2020, 6, 18}, {2020, 6, 21}, {"18062020", "19062020", "19062020", "20062020"}}};
constexpr std::array ODD_DAYS = {"31122019", "01012020", "29022020", "31122020", "30121899",  "01010100",
                                 "31129999", "99999999", "31022020", "abc",      "18.06.2020"};
constexpr std::array HOURS = {"0000", "0001", "0230", "0507", "0600", "1200",
                              "1234", "1845", "2359", "2400", "9999", "x"};

constexpr std::array SECTION_KEYS = {Qt::Key_Up,        Qt::Key_Down,   Qt::Key_Up,     Qt::Key_Down,
                                     Qt::Key_Left,      Qt::Key_Right,  Qt::Key_Home,   Qt::Key_End,
                                     Qt::Key_Backspace, Qt::Key_Delete, Qt::Key_PageUp, Qt::Key_PageDown};
constexpr std::array LIST_KEYS = {Qt::Key_Up,  Qt::Key_Down,   Qt::Key_Home,
                                  Qt::Key_End, Qt::Key_PageUp, Qt::Key_PageDown};

struct Size {
    int width;
    int height;
};
constexpr std::array SIZES = {Size{1000, 700}, Size{1000, 700}, Size{1000, 700}, Size{900, 720},
                              Size{800, 600},  Size{640, 480},  Size{400, 900},  Size{1280, 300},
                              Size{267, 200},  Size{121, 40},   Size{1, 1}};
constexpr Size HUGE_SIZE = {4000, 3000};

QString text(const char* s) { return QString::fromUtf8(s); }

} // namespace

RandomUser::RandomUser(f& window, AnsweredDialogs& dialogs, QStringList files, QString opened,
                       std::uint64_t seed)
    : window_(window)
    , dialogs_(dialogs)
    , files_(std::move(files))
    , opened_(std::move(opened))
    , numbers_(seed) {
    constexpr int LOOK_AGAIN = 50; // milliseconds
    QObject::connect(&stray_, &QTimer::timeout, &window_, [this] {
        if (QWidget* modal = QApplication::activeModalWidget(); modal != nullptr && !isAnswering_) {
            QTest::keyClick(modal, Qt::Key_Escape);
        }
    });
    stray_.start(LOOK_AGAIN);
}

/// The frequency of each action, in percent.
const std::vector<RandomUser::Action>& RandomUser::actions() {
    struct Weighted {
        std::size_t weight;
        Action action;
    };
    static const std::vector<Action> all = [] {
        std::vector<Action> result;
        for (const Weighted& entry : std::initializer_list<Weighted>{
                 {16, &RandomUser::pressButton},    {7, &RandomUser::typeText},
                 {6, &RandomUser::typeDate},        {6, &RandomUser::typeTime},
                 {3, &RandomUser::dateKeys},        {4, &RandomUser::timeKeys},
                 {7, &RandomUser::chooseChannel},   {3, &RandomUser::channelKeys},
                 {4, &RandomUser::chooseInterval},  {2, &RandomUser::chooseScrollUnit},
                 {1, &RandomUser::moveSlider},      {2, &RandomUser::moveScrollBar},
                 {3, &RandomUser::workList},        {3, &RandomUser::resizeWindow},
                 {3, &RandomUser::openFile},        {1, &RandomUser::selectProject},
                 {6, &RandomUser::diagramKeys},     {3, &RandomUser::movePointer},
                 {3, &RandomUser::dragBand},        {3, &RandomUser::turnWheel},
                 {3, &RandomUser::goBackOrForward}, {2, &RandomUser::choosePreset},
                 {3, &RandomUser::chooseKind},      {2, &RandomUser::chooseSecond},
                 {1, &RandomUser::jumpToStored},    {1, &RandomUser::copyView},
                 {1, &RandomUser::foldCalendar},    {1, &RandomUser::evaluate},
             }) {
            result.insert(result.end(), entry.weight, entry.action);
        }
        return result;
    }();
    return all;
}

void RandomUser::act() {
    if (chance(QUEUED_PERCENT)) {
        QTimer::singleShot(0, &window_, [this] { perform(); });
    }
    perform();
    QCoreApplication::processEvents();
}

void RandomUser::perform() {
    if (QApplication::activeModalWidget() != nullptr) {
        return; // the main window is out of reach
    }
    ++depth_;
    if (huge_) {
        resizeTo(1000, 700);
    } else if (the<QListWidget>("selChan").count() == 0 && chance(LOST_PERCENT)) {
        openFile();
    } else if (!chance(STRAY_PERCENT) || !bringDateBack()) {
        (this->*oneOf(actions()))();
    }
    --depth_;
}

/// Types a date with values into the first picker that has left them; false when none has.
bool RandomUser::bringDateBack() {
    for (const DatePicker& picker : DATES) {
        const QDate date = the<QDateEdit>(picker.name).date();
        if (date < picker.first || date > picker.last) {
            typeInto(picker.name, text(oneOf(picker.typed)));
            return true;
        }
    }
    return false;
}

void RandomUser::pressButton() {
    const char* name = oneOf(BUTTONS);
    auto& button = the<QAbstractButton>(name);
    const QPoint at(8, button.height() / 2);
    if (!button.isEnabled()) {
        note(text(name) + QStringLiteral(" is disabled"));
    } else if (reachable(button, at) != nullptr && chance(80)) {
        note(QStringLiteral("click ") + text(name));
        click(button, at);
    } else {
        note(QStringLiteral("space key on ") + text(name));
        button.setFocus(Qt::TabFocusReason);
        QTest::keyClick(&button, Qt::Key_Space);
    }
}

void RandomUser::typeText() {
    const char* name = oneOf(FIELDS);
    auto& field = the<QLineEdit>(name);
    if (!field.isEnabled()) {
        note(text(name) + QStringLiteral(" is disabled"));
        return;
    }
    const bool replace = chance(70);
    const QString typed = text(oneOf(NUMBERS_AND_NONSENSE));
    note(QStringLiteral("%1 \"%2\" into %3").arg(replace ? text("type") : text("add"), typed, text(name)));
    if (!enter(field)) {
        return;
    }
    if (replace) {
        QTest::keySequence(&field, QKeySequence::SelectAll);
        QTest::keyClick(&field, Qt::Key_Delete);
    }
    QTest::keyClicks(&field, typed);
    if (chance(15)) {
        QTest::keyClick(&field, Qt::Key_Backspace);
    }
    leaveField(field);
}

/// Leaves a field by a key, or stays in it.
void RandomUser::leaveField(QWidget& field) {
    switch (below(3)) {
    case 0:
        QTest::keyClick(&field, Qt::Key_Tab);
        break;
    case 1:
        QTest::keyClick(&field, Qt::Key_Return);
        break;
    default:
        break;
    }
}

void RandomUser::typeDate() {
    const DatePicker& picker = DATES[static_cast<std::size_t>(below(2))];
    typeInto(picker.name, text(chance(15) ? oneOf(ODD_DAYS) : oneOf(picker.typed)));
}

void RandomUser::typeTime() {
    const char* name = oneOf(TIMES);
    typeInto(name, text(oneOf(HOURS)));
}

void RandomUser::typeInto(const char* picker, const QString& typed) {
    note(QStringLiteral("type %1 into %2").arg(typed, text(picker)));
    auto& control = the<QDateTimeEdit>(picker);
    if (!enter(control)) {
        return;
    }
    control.setSelectedSection(control.sectionAt(0)); // where the tab key enters
    QTest::keyClicks(&control, typed);
    leaveField(control);
}

void RandomUser::dateKeys() { pickerKeys(oneOf(DATES).name); }

void RandomUser::timeKeys() { pickerKeys(oneOf(TIMES)); }

void RandomUser::pickerKeys(const char* name) {
    auto& picker = the<QDateTimeEdit>(name);
    QList<QKeyCombination> keys;
    for (int left = 1 + below(5); left > 0; --left) {
        if (chance(20)) {
            keys << QKeyCombination(static_cast<Qt::Key>(Qt::Key_0 + below(10)));
        } else {
            keys << QKeyCombination(chance(10) ? Qt::ControlModifier : Qt::NoModifier, oneOf(SECTION_KEYS));
        }
    }
    QStringList names;
    for (const QKeyCombination& key : keys) {
        names << QKeySequence(key).toString(QKeySequence::PortableText);
    }
    note(QStringLiteral("keys %1 in %2").arg(names.join(QLatin1Char(' ')), text(name)));
    bool inside = enter(picker);
    for (const QKeyCombination& key : keys) {
        if (inside) {
            QTest::keyClick(&picker, key.key(), key.keyboardModifiers());
        }
        inside = inside && picker.hasFocus();
    }
    if (inside) {
        leaveField(picker);
    }
}

void RandomUser::chooseChannel() {
    auto& list = the<QListWidget>("selChan");
    if (list.count() == 0) {
        note(QStringLiteral("no channel to choose"));
        return;
    }
    const int row = below(list.count());
    list.scrollToItem(list.item(row));
    const QPoint at = list.visualItemRect(list.item(row)).center();
    note(QStringLiteral("click channel row %1").arg(row));
    click(*list.viewport(), at);
}

void RandomUser::stepThrough(const char* name) {
    const Qt::Key key = oneOf(LIST_KEYS);
    note(QStringLiteral("key %1 in %2").arg(QKeySequence(key).toString(), text(name)));
    auto& control = the<QWidget>(name);
    control.setFocus(Qt::TabFocusReason);
    QTest::keyClick(&control, key);
}

void RandomUser::moveScrollBar() {
    auto& bar = the<QScrollBar>("HScroll");
    const QPoint at(below(bar.width()), bar.height() / 2);
    note(QStringLiteral("click the scroll bar at %1").arg(at.x()));
    click(bar, at);
}

void RandomUser::workList() {
    auto& list = the<QTableView>("lView");
    if (!list.isVisible()) {
        note(QStringLiteral("the list is not shown"));
        return;
    }
    const bool copy = chance(20);
    const Qt::Key key = oneOf(LIST_KEYS);
    note(copy ? QStringLiteral("copy the selected rows")
              : QStringLiteral("key %1 in the list").arg(QKeySequence(key).toString()));
    list.setFocus(Qt::TabFocusReason);
    if (copy) {
        QTest::keySequence(&list, QKeySequence::Copy);
    } else {
        QTest::keyClick(&list, key, chance(30) ? Qt::ShiftModifier : Qt::NoModifier);
    }
}

void RandomUser::resizeWindow() {
    const Size size = chance(6) ? HUGE_SIZE : oneOf(SIZES);
    resizeTo(size.width, size.height);
    huge_ = size.width == HUGE_SIZE.width;
}

void RandomUser::resizeTo(int width, int height) {
    note(QStringLiteral("resize to %1x%2").arg(width).arg(height));
    window_.resize(width, height);
    huge_ = false;
}

void RandomUser::openFile() {
    dialogs_.file = chance(10) ? QString() : oneOf(files_);
    note(QStringLiteral("open \"%1\"").arg(dialogs_.file));
    if (!dialogs_.file.isEmpty()) {
        opened_ = dialogs_.file;
    }
    window_.findChild<QAction*>(QStringLiteral("menOpen"))->trigger();
}

void RandomUser::selectProject() {
    if (depth_ > 1) {
        note(QStringLiteral("no selection while reading"));
        return;
    }
    const bool byButton = chance(40);
    const QString file = chance(20) ? QString() : oneOf(files_);
    note(QStringLiteral("select the project %1").arg(byButton ? text("by its button") : file));
    inModalWindow("menProj", [&](QWidget& window) {
        if (auto* selection = qobject_cast<QDialog*>(&window)) {
            answerSelection(*selection, byButton, file);
        }
    });
}

/// A modal window runs its own event loop: a timer waits for it.
void RandomUser::inModalWindow(const char* action, const std::function<void(QWidget&)>& act) {
    QTimer wait;
    QObject::connect(&wait, &QTimer::timeout, &window_, [&] {
        if (QWidget* modal = QApplication::activeModalWidget()) {
            wait.stop();
            act(*modal);
        }
    });
    wait.start(0);
    isAnswering_ = true;
    window_.findChild<QAction*>(text(action))->trigger();
    isAnswering_ = false;
    window_.activateWindow();
    (void)QTest::qWaitForWindowActive(&window_); // the field with the focus has it again
}

void RandomUser::answerSelection(QDialog& selection, bool byButton, const QString& file) {
    const QString folder = file.left(file.lastIndexOf(QLatin1Char('/')));
    auto* button = selection.findChild<QAbstractButton*>(byButton ? QStringLiteral("Button(0)")
                                                                  : QStringLiteral("Command2"));
    dialogs_.folder = folder;
    if (button != nullptr) {
        const QString chosen = byButton ? button->toolTip() : folder;
        if (!chosen.isEmpty()) {
            opened_ = chosen + QStringLiteral("/QEL.ini");
        }
        QTest::mouseClick(button, Qt::LeftButton);
    }
    if (QApplication::activeModalWidget() == &selection) {
        QTest::keyClick(&selection, Qt::Key_Escape);
    }
}

bool RandomUser::enter(QWidget& control) {
    if (!click(control, QPoint(5, control.height() / 2))) {
        control.setFocus(Qt::TabFocusReason);
    }
    return control.hasFocus();
}

/// The widget at a point of a control: the control or a part of it; none when the point cannot be reached.
QWidget* RandomUser::reachable(const QWidget& control, const QPoint& at) const {
    const QPoint point = control.mapTo(&window_, at);
    QWidget* there = window_.rect().contains(point) ? window_.childAt(point) : nullptr;
    return there == &control || control.isAncestorOf(there) ? there : nullptr;
}

bool RandomUser::click(const QWidget& control, const QPoint& at) const {
    QWidget* there = reachable(control, at);
    if (there != nullptr) {
        QTest::mouseClick(there, Qt::LeftButton, {}, there->mapFrom(&window_, control.mapTo(&window_, at)));
    }
    return there != nullptr;
}

void RandomUser::note(const QString& action) {
    done_.push_back(depth_ > 1 ? QStringLiteral("  meanwhile ") + action : action);
    if (done_.size() > REMEMBERED) {
        done_.pop_front();
    }
}

QString RandomUser::lastActions() const {
    QString lines;
    for (const QString& action : done_) {
        lines += QStringLiteral("\n  ") + action;
    }
    return lines;
}

} // namespace kelvrum::testing
