// SPDX-License-Identifier: GPL-3.0-or-later
// The program: one main window on the station in the program folder.
#include "app/Appearance.h"
#include "app/ProgramFolder.h"
#include "app/SystemLocale.h"
#include "app/f.h"

#include <QApplication>
#include <QStandardPaths>

int main(int argc, char* argv[]) {
    QApplication application(argc, argv);
    kelvrum::setUpApplication(application);

    kelvrum::Environment environment;
    environment.today = QDate::currentDate;
    environment.now = [] { return kelvrum::stationTime(QDateTime::currentDateTime()); };
    environment.programFolder =
        kelvrum::programFolder(QCoreApplication::applicationDirPath(),
                               QStandardPaths::writableLocation(QStandardPaths::AppDataLocation));
    environment.texts = kelvrum::localeTexts(QLocale::system());

    kelvrum::f window(environment);
    window.resize(1000, 700);
    window.Form_Load();
    window.show();
    return QApplication::exec();
}
