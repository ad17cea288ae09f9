// SPDX-License-Identifier: GPL-3.0-or-later
// The real window for the benchmarks.
#pragma once

#include "app/f.h"
#include "tools/bench/BenchStation.h"
#include "tools/bench/FirstWindow.h"

#include <QAbstractButton>
#include <QComboBox>
#include <QCoreApplication>
#include <QDate>
#include <QKeyEvent>
#include <QListWidget>
#include <QSize>
#include <memory>

namespace kelvrum::bench {

inline constexpr QSize WINDOW(1020, 660); // leaves 900 x 600 for the diagram

/// The window on the shared station, a year of minutes of dust in view.
class Viewer {
  public:
    Viewer() {
        Environment environment;
        environment.today = [] { return QDate(2019, 12, 31); };
        environment.programFolder = QString::fromStdString(station().folder());
        window = std::make_unique<f>(environment);
        window->resize(WINDOW);
        window->Form_Load();
        window->show();
        showChannel(DUST);
        click("Option1"); // the automatic scale: all of the curve is visible
        showYear(*window);
        window->LoadData();
        QCoreApplication::processEvents();
    }

    template<typename Control>
    Control& the(const char* name) const {
        return *window->findChild<Control*>(QString::fromUtf8(name));
    }
    void click(const char* name) const {
        the<QAbstractButton>(name).click();
        QCoreApplication::processEvents();
    }
    void showChannel(int channel) const {
        auto& list = the<QListWidget>("selChan");
        for (int row = 0; row < list.count(); ++row) {
            if (list.item(row)->data(Qt::UserRole).toInt() == channel) {
                list.setCurrentRow(row);
            }
        }
        QCoreApplication::processEvents();
    }
    void pressInterval(Qt::Key key) const {
        QKeyEvent press(QEvent::KeyPress, key, Qt::NoModifier);
        QCoreApplication::sendEvent(&the<QComboBox>("selInterval"), &press);
        QCoreApplication::processEvents();
    }

    std::unique_ptr<f> window;
};

} // namespace kelvrum::bench
