// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/MainMenu.h"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

namespace kelvrum {

namespace {

QMenu* addMenu(QMainWindow& window, const char* name, const char* caption) {
    QMenu* menu = window.menuBar()->addMenu(QString::fromUtf8(caption));
    menu->setObjectName(QString::fromUtf8(name));
    menu->setAccessibleName(menu->title().remove(QLatin1Char('&')));
    return menu;
}

QAction* addEntry(QMenu* menu, const char* name, const char* caption, const QKeySequence& keys = {}) {
    QAction* action = menu->addAction(QString::fromUtf8(caption));
    action->setObjectName(QString::fromUtf8(name));
    action->setShortcut(keys);
    return action;
}

QAction* addLastEntry(QMenu* menu, const char* name, const char* caption) {
    menu->addSeparator()->setObjectName(QStringLiteral("Men001"));
    return addEntry(menu, name, caption);
}

} // namespace

MainMenu::MainMenu(QMainWindow& window)
    : menDat(addMenu(window, "menDat", "&Datei"))
    , menOpen(addEntry(menDat, "menOpen", "Ö&ffnen", Qt::CTRL | Qt::Key_O))
    , menProj(addEntry(menDat, "menProj", "&Projektauswahl"))
    , menPrint(addEntry(menDat, "menPrint", "&Drucken", Qt::CTRL | Qt::Key_P))
    , menCPrint(addEntry(menDat, "menCPrint", "&Sammeldruck"))
    , menSelP(addEntry(menDat, "menSelP", "Drucker e&inrichten"))
    , MenEnd(addLastEntry(menDat, "MenEnd", "&Ende"))
    , menKor(addMenu(window, "menKor", "&Korrekturfaktoren"))
    , menWind(addEntry(menKor, "menWind", "&Wind"))
    , menStaub(addEntry(menKor, "menStaub", "&Staub")) {
    window.menuBar()->setAccessibleName(QStringLiteral("Menüleiste"));
}

} // namespace kelvrum
