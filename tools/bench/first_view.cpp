// SPDX-License-Identifier: GPL-3.0-or-later
// The main window on the project in a folder, as the program starts: shown, painted, ended. With one more
// argument it shows a year.
#include "app/SystemLocale.h"
#include "app/f.h"
#include "tools/bench/FirstWindow.h"

#include <QApplication>

int main(int argc, char* argv[]) {
    const QApplication application(argc, argv);
    kelvrum::Environment environment;
    environment.today = [] { return QDate(2019, 6, 18); };
    environment.programFolder = QString::fromLocal8Bit(argc > 1 ? argv[1] : ".");
    environment.texts = kelvrum::localeTexts(QLocale::system());
    kelvrum::f window(environment);
    window.resize(1000, 700);
    window.Form_Load();
    window.show();
    if (argc > 2) { // a year instead of the project's own range
        kelvrum::bench::showYear(window);
        window.LoadData();
    }
    return kelvrum::bench::paintAndEnd();
}
