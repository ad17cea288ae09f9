// SPDX-License-Identifier: GPL-3.0-or-later
// Helpers to operate a window with, as a person does: controls are found by their object names, keys and
// clicks go through the toolkit. Shared by tests, tour and benchmarks.
#pragma once

#include <QRect>
#include <QString>
#include <QWidget>
#include <functional>
#include <stdexcept>
#include <string>

namespace kelvrum::testing {

/// A control of a window by its object name; throws std::runtime_error when there is none.
template<typename Control>
Control& controlOf(const QWidget& window, const QString& name) {
    auto* control = window.findChild<Control*>(name);
    if (control == nullptr) {
        throw std::runtime_error("no control " + name.toStdString());
    }
    return *control;
}
template<typename Control>
Control& controlOf(const QWidget& window, const char* name) {
    return controlOf<Control>(window, QString::fromUtf8(name));
}

/// What cannot be done throws std::runtime_error, so that no test and no picture goes on with less than it
/// says.
class WindowDriver {
  public:
    /// The window must outlive the driver.
    explicit WindowDriver(QWidget& window)
        : window_(window) {}

    /// Shows the window and waits until it is there and active.
    void show() const;

    /// A control by its object name.
    template<typename Control>
    [[nodiscard]] Control& the(const QString& name) const {
        return controlOf<Control>(window_, name);
    }
    template<typename Control>
    [[nodiscard]] Control& the(const char* name) const {
        return controlOf<Control>(window_, name);
    }

    /// Clicks a button, check box or option near its left edge.
    void click(const QString& button) const;
    /// Clicks a row of a list.
    void chooseRow(const char* list, int row) const;
    /// Walks through a drop-down list with the arrow keys.
    void chooseEntry(const QString& choice, int row) const;
    /// Triggers an action of the menus.
    void trigger(const char* action) const;
    /// Selects what an edit field holds and types over it.
    void type(const QString& field, const QString& text) const;
    /// Comes into a picker with the tab key and types over its sections, from the first on.
    void typePicker(const char* picker, const QString& text) const;
    /// Where a control is in the window, in pixels.
    [[nodiscard]] QRect placeOf(const char* control) const;

    /// Runs `open`, which opens a modal window, and `act` on that window; one that is still open afterwards
    /// is closed.
    static void inWindowOf(const std::function<void()>& open, const std::function<void(QWidget&)>& act);

  private:
    QWidget& window_;
};

} // namespace kelvrum::testing
