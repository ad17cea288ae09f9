// SPDX-License-Identifier: GPL-3.0-or-later
// The menu bar.
#pragma once

class QAction;
class QMainWindow;
class QMenu;

namespace kelvrum {

/// The menus of the main window and their entries, owned by its menu bar. Their owner connects them.
struct MainMenu {
    explicit MainMenu(QMainWindow& window);

    QMenu* menDat;
    QAction* menOpen;
    QAction* menProj;
    QAction* menPrint;
    QAction* menCPrint;
    QAction* menSelP;
    QAction* MenEnd;
    QMenu* menKor;
    QAction* menWind;
    QAction* menStaub;
};

} // namespace kelvrum
