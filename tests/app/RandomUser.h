// SPDX-License-Identifier: GPL-3.0-or-later
// A user who does anything at random on the main window, the same for the same seed on every system.
#pragma once

#include "app/f.h"
#include "tests/testing/AnsweredDialogs.h"

#include <QPointF>
#include <QString>
#include <QStringList>
#include <QTimer>
#include <cstdint>
#include <deque>
#include <functional>
#include <iterator>
#include <optional>
#include <random>
#include <vector>

class QDialog;

namespace kelvrum::testing {

/// Operates the controls with mouse and keys as far as they can be reached: a control outside the window or
/// below another one is operated with keys alone, a disabled one is left alone. Now and then a second action
/// is queued, which the window meets while it reads for the first one.
class RandomUser {
  public:
    /// `files` are the files that may be chosen for "Öffnen"; `opened` is the configuration of the project
    /// that is open now. Window and dialogs must outlive the user.
    RandomUser(f& window, AnsweredDialogs& dialogs, QStringList files, QString opened, std::uint64_t seed);

    /// One action, and all that follows from it.
    void act();

    /// The configuration file of the open project.
    [[nodiscard]] const QString& opened() const { return opened_; }

    /// What was done last, one action a line, the newest at the end.
    [[nodiscard]] QString lastActions() const;

  private:
    using Action = void (RandomUser::*)();
    static const std::vector<Action>& actions();

    void perform();
    void pressButton();
    void typeText();
    void typeDate();
    void typeTime();
    void dateKeys();
    void timeKeys();
    void chooseChannel();
    void channelKeys() { stepThrough("selChan"); }
    void chooseInterval() { stepThrough("selInterval"); }
    void chooseScrollUnit() { stepThrough("selScroll"); }
    void moveSlider() { stepThrough("Slider1"); }
    void moveScrollBar();
    void workList();
    void resizeWindow();
    void openFile();
    void selectProject();
    void answerSelection(QDialog& selection, bool byButton, const QString& file);

    // --- RandomUser_diagram.cpp: reading the picture ---
    void diagramKeys();
    void movePointer();
    void dragBand();
    void turnWheel();
    void goBackOrForward();
    void choosePreset();
    void chooseKind();
    void chooseSecond();
    void jumpToStored();
    void copyView();
    void foldCalendar();
    void evaluate();
    /// A place of the diagram that the mouse reaches; nothing when a part of the window covers it.
    std::optional<QPointF> placeInDiagram();
    void sendMouse(int type, const QPointF& place, Qt::MouseButton button, Qt::MouseButtons held) const;
    /// An entry of the diagram's menu, or of one of its submenus, chosen from the open menu.
    void chooseEntry(const char* menu, bool kinds);
    /// Triggers an action that opens a modal window, and works in it.
    void inModalWindow(const char* action, const std::function<void(QWidget&)>& act);

    /// A key that moves a list, a choice or the slider.
    void stepThrough(const char* name);
    void pickerKeys(const char* name);
    void typeInto(const char* picker, const QString& text);
    void leaveField(QWidget& field);
    void resizeTo(int width, int height);
    bool bringDateBack();

    template<typename Control>
    Control& the(const char* name) const {
        auto* control = window_.findChild<Control*>(QString::fromUtf8(name));
        if (control == nullptr) {
            qFatal("no control %s", name);
        }
        return *control;
    }
    /// Gives a control the focus, by mouse when it can be reached, else as the tab key does. False when it
    /// has not got it: a queued action may have taken it away meanwhile.
    bool enter(QWidget& control); // NOLINT(modernize-use-nodiscard)
    [[nodiscard]] QWidget* reachable(const QWidget& control, const QPoint& at) const;
    /// Clicks at a point of a control; does nothing, and is false, when it cannot be reached.
    bool click(const QWidget& control, const QPoint& at) const; // NOLINT(modernize-use-nodiscard)
    /// Writes an action down before it is done.
    void note(const QString& action);

    int below(int limit) { return static_cast<int>(numbers_() % static_cast<std::uint64_t>(limit)); }
    bool chance(int percent) { return below(100) < percent; }
    template<typename List>
    auto oneOf(const List& list) {
        return *std::next(std::begin(list), below(static_cast<int>(std::size(list))));
    }

    f& window_;
    AnsweredDialogs& dialogs_;
    QStringList files_;
    QString opened_;
    std::mt19937_64 numbers_;
    std::deque<QString> done_;
    int depth_ = 0;            // of actions within actions
    bool huge_ = false;        // the window has a size at which each drawing is slow
    bool isAnswering_ = false; // an action waits for the modal window that it opens
    QTimer stray_;             // closes modal windows that open later than expected
};

} // namespace kelvrum::testing
