// SPDX-License-Identifier: GPL-3.0-or-later
// An empty main window: shown, painted, ended. With two arguments it has a menu and a line of text in the
// font of the viewer.
#include "tools/bench/FirstWindow.h"

#include <QApplication>
#include <QLabel>
#include <QMainWindow>
#include <QMenuBar>

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    QMainWindow window;
    if (argc > 2) {
        window.menuBar()->addMenu(QStringLiteral("Datei"));
        auto* text = new QLabel(QStringLiteral("Messstation"), &window);
        QFont font(QStringLiteral("Arial"));
        font.setPixelSize(11);
        text->setFont(font);
        window.setCentralWidget(text);
    }
    window.resize(1000, 700);
    window.show();
    return kelvrum::bench::paintAndEnd();
}
