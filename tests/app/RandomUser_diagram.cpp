// SPDX-License-Identifier: GPL-3.0-or-later
// What the random user does to read the picture: pointer, wheel and keys of the diagram, its menu, the
// calendar, the evaluation.
#include "diagram/PolarSys.h"
#include "tests/app/RandomUser.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QDateEdit>
#include <QKeySequence>
#include <QMenu>
#include <QMouseEvent>
#include <QPushButton>
#include <QTableView>
#include <QTest>
#include <QWheelEvent>
#include <array>

namespace kelvrum::testing {

namespace {

constexpr std::array DIAGRAM_KEYS = {
    QKeyCombination(Qt::Key_Left),
    QKeyCombination(Qt::Key_Right),
    QKeyCombination(Qt::Key_Home),
    QKeyCombination(Qt::Key_End),
    QKeyCombination(Qt::Key_Space),
    QKeyCombination(Qt::Key_Escape),
    QKeyCombination(Qt::Key_Return),
    QKeyCombination(Qt::ControlModifier, Qt::Key_Left),
    QKeyCombination(Qt::ControlModifier, Qt::Key_Right),
    QKeyCombination(Qt::ControlModifier, Qt::Key_Plus),
    QKeyCombination(Qt::ControlModifier, Qt::Key_Minus),
    QKeyCombination(Qt::ControlModifier, Qt::Key_Home),
    QKeyCombination(Qt::ControlModifier, Qt::Key_End),
    QKeyCombination(Qt::ControlModifier, Qt::Key_C),
    QKeyCombination(Qt::ShiftModifier, Qt::Key_Left),
    QKeyCombination(Qt::ShiftModifier, Qt::Key_Right),
    QKeyCombination(Qt::ShiftModifier, Qt::Key_Right),
};
constexpr std::array PRESETS = {Qt::Key_1, Qt::Key_1, Qt::Key_2, Qt::Key_3, Qt::Key_4};
constexpr std::array CALENDAR_KEYS = {Qt::Key_Left, Qt::Key_Right,  Qt::Key_Up,
                                      Qt::Key_Down, Qt::Key_PageUp, Qt::Key_PageDown};
constexpr std::array WHEEL_UNITS = {120, 120, -120, 60, -60, 15, -15, 360};

} // namespace

std::optional<QPointF> RandomUser::placeInDiagram() {
    const auto& KS = the<PolarSys>("KS");
    if (KS.width() < 1 || KS.height() < 1) {
        return std::nullopt;
    }
    const QPoint place(below(KS.width()), below(KS.height()));
    return reachable(KS, place) == &KS ? std::optional(QPointF(place)) : std::nullopt;
}

void RandomUser::sendMouse(int type, const QPointF& place, Qt::MouseButton button,
                           Qt::MouseButtons held) const {
    auto& KS = the<PolarSys>("KS");
    QMouseEvent event(static_cast<QEvent::Type>(type), place, KS.mapToGlobal(place), button, held,
                      Qt::NoModifier);
    QCoreApplication::sendEvent(&KS, &event);
}

void RandomUser::diagramKeys() {
    auto& KS = the<PolarSys>("KS");
    QList<QKeyCombination> keys;
    QStringList names;
    for (int left = 1 + below(6); left > 0; --left) {
        keys << oneOf(DIAGRAM_KEYS);
        names << QKeySequence(keys.back()).toString(QKeySequence::PortableText);
    }
    note(QStringLiteral("keys %1 in the diagram").arg(names.join(QLatin1Char(' '))));
    KS.setFocus(Qt::TabFocusReason);
    for (const QKeyCombination& key : keys) {
        if (KS.hasFocus()) {
            QTest::keyClick(&KS, key.key(), key.keyboardModifiers());
        }
    }
}

void RandomUser::movePointer() {
    const auto place = placeInDiagram();
    if (!place) {
        note(QStringLiteral("the diagram is covered"));
        return;
    }
    note(QStringLiteral("point at %1, %2").arg(place->x()).arg(place->y()));
    sendMouse(QEvent::MouseMove, *place, Qt::NoButton, Qt::NoButton);
    if (chance(20)) {
        QEvent leave(QEvent::Leave);
        QCoreApplication::sendEvent(&the<PolarSys>("KS"), &leave);
    }
}

/// Some drags leave the diagram, some end with Escape, and some never get their release.
void RandomUser::dragBand() {
    const auto from = placeInDiagram();
    if (!from) {
        note(QStringLiteral("the diagram is covered"));
        return;
    }
    const QPointF to = *from + QPointF(below(600) - 300, below(200) - 100);
    const bool escapes = chance(15);
    const bool isReleased = chance(90);
    note(QStringLiteral("drag from %1 to %2%3%4")
             .arg(from->x())
             .arg(to.x())
             .arg(escapes ? QStringLiteral(", Escape") : QString(),
                  isReleased ? QString() : QStringLiteral(", release lost")));
    sendMouse(QEvent::MouseMove, *from, Qt::NoButton, Qt::NoButton);
    sendMouse(QEvent::MouseButtonPress, *from, Qt::LeftButton, Qt::LeftButton);
    sendMouse(QEvent::MouseMove, (*from + to) / 2, Qt::NoButton, Qt::LeftButton);
    if (chance(10)) {
        QCoreApplication::processEvents(); // what is queued comes in the middle
    }
    sendMouse(QEvent::MouseMove, to, Qt::NoButton, Qt::LeftButton);
    if (escapes) {
        QTest::keyClick(&the<PolarSys>("KS"), Qt::Key_Escape);
    }
    if (isReleased) {
        sendMouse(QEvent::MouseButtonRelease, to, Qt::LeftButton, Qt::NoButton);
    }
}

void RandomUser::turnWheel() {
    const auto place = placeInDiagram();
    if (!place) {
        note(QStringLiteral("the diagram is covered"));
        return;
    }
    const int units = oneOf(WHEEL_UNITS);
    note(QStringLiteral("Ctrl and wheel by %1 at %2").arg(units).arg(place->x()));
    auto& KS = the<PolarSys>("KS");
    QWheelEvent event(*place, KS.mapToGlobal(*place), {}, {0, units}, Qt::NoButton,
                      chance(90) ? Qt::ControlModifier : Qt::NoModifier, Qt::NoScrollPhase, false);
    QCoreApplication::sendEvent(&KS, &event);
}

void RandomUser::goBackOrForward() {
    const bool back = chance(60);
    note(back ? QStringLiteral("back") : QStringLiteral("forward"));
    QWidget* focused = QApplication::focusWidget();
    QTest::keyClick(focused == nullptr ? &window_ : focused, back ? Qt::Key_Left : Qt::Key_Right,
                    Qt::AltModifier);
}

void RandomUser::choosePreset() {
    const Qt::Key key = oneOf(PRESETS);
    note(QStringLiteral("Ctrl+%1").arg(QChar(key)));
    QTest::keyClick(&window_, key, Qt::ControlModifier);
}

void RandomUser::chooseEntry(const char* menu, bool kinds) {
    auto& KS = the<PolarSys>("KS");
    const QPoint middle = KS.rect().center();
    if (reachable(KS, middle) != &KS) {
        note(QStringLiteral("the diagram is covered"));
        return;
    }
    QContextMenuEvent event(QContextMenuEvent::Keyboard, middle, KS.mapToGlobal(middle));
    QCoreApplication::sendEvent(&KS, &event);
    QList<QAction*> entries;
    for (QAction* entry : the<QMenu>(menu).actions()) {
        if (entry->isVisible() && entry->isEnabled() && !entry->isSeparator() && entry->isCheckable()) {
            entries << entry;
        }
    }
    the<QMenu>("menKS").close();
    if (!entries.isEmpty()) {
        QAction* entry = entries[below(static_cast<int>(entries.size()))];
        note((kinds ? QStringLiteral("kind ") : QStringLiteral("second channel ")) + entry->objectName());
        entry->trigger();
    }
}

void RandomUser::chooseKind() { chooseEntry("menKS", true); }

void RandomUser::chooseSecond() { chooseEntry("menZweiter", false); }

void RandomUser::jumpToStored() {
    const char* name = chance(50) ? "menErster" : "menLetzter";
    note(QString::fromUtf8(name));
    the<QAction>(name).trigger();
}

void RandomUser::copyView() {
    const char* name = chance(50) ? "menBild" : "menWerte";
    note(QString::fromUtf8(name));
    the<QAction>(name).trigger();
}

void RandomUser::foldCalendar() {
    const char* name = chance(50) ? "DTPicker" : "DTPicker2";
    const bool chooses = chance(50);
    note(QStringLiteral("fold out %1%2")
             .arg(QString::fromUtf8(name), chooses ? QStringLiteral(", choose") : QString()));
    auto& picker = the<QDateEdit>(name);
    picker.setFocus(Qt::TabFocusReason);
    if (picker.hasFocus()) {
        QTest::keyClick(&picker, Qt::Key_F4);
    }
    for (int left = below(5); left > 0; --left) {
        if (auto* days = qobject_cast<QTableView*>(QApplication::focusWidget());
            QApplication::activePopupWidget() != nullptr && days != nullptr) {
            QTest::keyClick(days, oneOf(CALENDAR_KEYS));
            QCoreApplication::processEvents(); // marks are read
        }
    }
    if (QWidget* popup = QApplication::activePopupWidget()) {
        QWidget* focused = popup->focusWidget();
        QTest::keyClick(focused == nullptr ? popup : focused, chooses ? Qt::Key_Return : Qt::Key_Escape);
    }
    if (QWidget* popup = QApplication::activePopupWidget()) {
        popup->close();
    }
}

void RandomUser::evaluate() {
    if (depth_ > 1) {
        note(QStringLiteral("no evaluation while reading"));
        return;
    }
    const bool copies = chance(50);
    note(copies ? QStringLiteral("evaluate and copy") : QStringLiteral("evaluate"));
    inModalWindow("menAuswertung", [copies](QWidget& window) {
        auto* copy = window.findChild<QPushButton*>(QStringLiteral("cmdKopieren"));
        if (copies && copy != nullptr && copy->isEnabled()) {
            QTest::mouseClick(copy, Qt::LeftButton);
        }
        QTest::keyClick(&window, Qt::Key_Escape);
    });
}

} // namespace kelvrum::testing
