// SPDX-License-Identifier: GPL-3.0-or-later
// The real main window on a sample station, with a fixed clock, and helpers to operate it.
#pragma once

#include "app/f.h"
#include "tests/testing/WindowDriver.h"
#include "util/Dialogs.h"

#include <QImage>
#include <QString>
#include <QTemporaryDir>
#include <QWidget>
#include <functional>
#include <memory>

namespace kelvrum::tour {

/// A folder with a sample station, other projects beside it, and the marker of the correction menu.
class SampleFolder {
  public:
    /// Throws std::runtime_error when the folder cannot be made.
    SampleFolder();
    /// The station's folder.
    [[nodiscard]] QString path() const;
    /// The configuration of a station with wide day files, of today alone.
    [[nodiscard]] QString wideStation() const;

  private:
    QTemporaryDir folder_;
};

/// The window as the program starts it. Controls are found by their object names; one that is missing throws
/// std::runtime_error, so that no picture shows less than its text says.
class Stage {
  public:
    explicit Stage(const SampleFolder& folder);
    Stage(const Stage&) = delete;
    Stage& operator=(const Stage&) = delete;
    ~Stage();

    [[nodiscard]] f& window() const { return *window_; }
    [[nodiscard]] testing::WindowDriver driver() const { return testing::WindowDriver(*window_); }
    template<typename Control>
    [[nodiscard]] Control& the(const char* name) const {
        return driver().the<Control>(name);
    }

    void click(const char* button) const { driver().click(QString::fromUtf8(button)); }
    void chooseChannel(const char* name) const;
    void chooseInterval(const char* caption) const;
    /// From 00:00 of the first date to 00:00 of the other, each "dd.mm.yyyy".
    void chooseDays(const char* from, const char* to) const;
    void type(const char* box, const char* text) const {
        driver().type(QString::fromUtf8(box), QString::fromUtf8(text));
    }
    /// Opens the context menu of the diagram; it stays open.
    void openKinds() const;
    /// Chooses a kind of diagram from it.
    void chooseKind(const char* action) const;
    /// Takes the focus from all controls, so that no picture shows one by chance.
    void rest() const;
    /// The place of a control in the window.
    [[nodiscard]] QRect placeOf(const char* name) const { return driver().placeOf(name); }
    /// Runs `open`, which opens a modal window, and `look` on that window; then closes it.
    static void inWindowOf(const std::function<void()>& open, const std::function<void(QWidget&)>& look) {
        testing::WindowDriver::inWindowOf(open, look);
    }

    /// The window as displayed, with its title bar.
    [[nodiscard]] QImage picture() const;

  private:
    void typeDate(const char* picker, const char* date) const;

    std::unique_ptr<f> window_;
};

} // namespace kelvrum::tour
