// SPDX-License-Identifier: GPL-3.0-or-later
// Takes the pictures of the manual and of the README: tour FOLDER. The clock is fixed, the sample station
// is always the same and the screen is Qt's own without a display, so that the same program and the same
// fonts give the same bytes.
#include "app/Appearance.h"
#include "tools/tour/Chapters.h"

#include <QApplication>
#include <QDir>
#include <QFont>
#include <QLocale>
#include <QStyle>
#include <QStyleFactory>
#include <exception>
#include <iostream>

int main(int argc, char* argv[]) {
    using namespace kelvrum::tour;
    if (argc != 2) {
        std::cerr << "usage: tour FOLDER\n";
        return 2;
    }
    qputenv("QT_QPA_PLATFORM", "offscreen");
    qputenv("QT_SCALE_FACTOR", "1");
    QApplication application(argc, argv);
    if (!kelvrum::speakGerman(application)) {
        std::cerr << "tour: Qt has no German texts here (package qt6-translations-l10n)\n";
        return 1;
    }
    QApplication::setStyle(QStyleFactory::create(QStringLiteral("Fusion")));
    QApplication::setPalette(QApplication::style()->standardPalette());
    QApplication::setFont(QFont(QStringLiteral("Arial"), 9)); // not the one that a desktop would choose
    QApplication::setCursorFlashTime(0);
    QApplication::setEffectEnabled(Qt::UI_AnimateMenu, false);
    QApplication::setEffectEnabled(Qt::UI_AnimateCombo, false);
    QLocale::setDefault(QLocale(QLocale::German, QLocale::Germany));

    // The window makes the station's folder the current one.
    const QString pictures = QDir(QString::fromLocal8Bit(argv[1])).absolutePath();
    try {
        const SampleFolder station;
        for (const auto show : {showViews, showDiagrams, showReading, showDialogs, showPage}) {
            show(station, pictures);
        }
    } catch (const std::exception& error) {
        std::cerr << "tour: " << error.what() << '\n';
        return 1;
    }
    return 0;
}
