// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/testing/WindowDriver.h"

#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLineEdit>
#include <QListWidget>
#include <QPointer>
#include <QTest>
#include <QTimer>

namespace kelvrum::testing {

void WindowDriver::show() const {
    window_.show();
    window_.activateWindow();
    if (!QTest::qWaitForWindowExposed(&window_) || !QTest::qWaitForWindowActive(&window_)) {
        throw std::runtime_error("the window does not show");
    }
}

void WindowDriver::click(const QString& button) const {
    auto& control = the<QAbstractButton>(button);
    QTest::mouseClick(&control, Qt::LeftButton, {}, QPoint(8, control.height() / 2));
}

void WindowDriver::chooseRow(const char* list, int row) const {
    auto& rows = the<QListWidget>(list);
    QListWidgetItem* item = rows.item(row);
    if (item == nullptr) {
        throw std::runtime_error("no row " + std::to_string(row) + " in " + list);
    }
    rows.scrollToItem(item);
    QTest::mouseClick(rows.viewport(), Qt::LeftButton, {}, rows.visualItemRect(item).center());
}

void WindowDriver::chooseEntry(const QString& choice, int row) const {
    auto& box = the<QComboBox>(choice);
    if (row < 0 || row >= box.count()) {
        throw std::runtime_error("no entry " + std::to_string(row) + " in " + choice.toStdString());
    }
    while (box.currentIndex() != row) {
        QTest::keyClick(&box, box.currentIndex() < row ? Qt::Key_Down : Qt::Key_Up);
    }
}

void WindowDriver::trigger(const char* action) const { the<QAction>(action).trigger(); }

void WindowDriver::type(const QString& field, const QString& text) const {
    auto& box = the<QLineEdit>(field);
    box.setFocus();
    box.selectAll();
    QTest::keyClick(&box, Qt::Key_Delete);
    QTest::keyClicks(&box, text);
}

void WindowDriver::typePicker(const char* picker, const QString& text) const {
    if (!window_.isActiveWindow()) { // a dialog has just been closed
        window_.activateWindow();
        (void)QTest::qWaitForWindowActive(&window_);
    }
    auto& field = the<QDateTimeEdit>(picker);
    field.clearFocus();
    field.setFocus(Qt::TabFocusReason);
    QTest::keyClicks(&field, text);
}

QRect WindowDriver::placeOf(const char* control) const {
    const auto& found = the<QWidget>(control);
    return {found.mapTo(&window_, QPoint(0, 0)), found.size()};
}

void WindowDriver::inWindowOf(const std::function<void()>& open, const std::function<void(QWidget&)>& act) {
    constexpr int LOOK_AGAIN = 10; // milliseconds
    QTimer timer;
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        const QPointer<QWidget> modal = QApplication::activeModalWidget();
        if (modal == nullptr || !modal->isVisible()) {
            return;
        }
        timer.stop();
        modal->activateWindow(); // an older request of the window below may come in between
        (void)QTest::qWaitFor([&modal] { return modal == nullptr || modal->isActiveWindow(); });
        if (modal != nullptr) {
            act(*modal);
        }
        if (modal != nullptr) {
            modal->close();
        }
    });
    timer.start(LOOK_AGAIN);
    open();
    if (timer.isActive()) {
        throw std::runtime_error("no modal window opened");
    }
}

} // namespace kelvrum::testing
