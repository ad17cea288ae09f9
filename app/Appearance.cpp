// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/Appearance.h"

#include <QGuiApplication>
#include <QLibraryInfo>
#include <QTranslator>
#include <memory>

// A resource in a static library is linked only when it is initialised explicitly, from outside any
// namespace.
static void loadIcons() { Q_INIT_RESOURCE(icons); }

namespace kelvrum {

QIcon programIcon() {
    loadIcons();
    QIcon icon;
    for (const int size : {16, 32, 48, 128, 256}) {
        icon.addFile(QStringLiteral(":/kelvrum/kelvrum-%1.png").arg(size), QSize(size, size));
    }
    return icon;
}

void setUpApplication(QGuiApplication& application) {
    QCoreApplication::setApplicationName(QStringLiteral("kelvrum"));
    QCoreApplication::setApplicationVersion(QStringLiteral(KELVRUM_VERSION));
    // The name of the desktop entry: the desktop finds the window's entry and icon by it.
    QGuiApplication::setDesktopFileName(QStringLiteral("org.kelvrum.Kelvrum"));
    QGuiApplication::setWindowIcon(programIcon());
    speakGerman(application);
}

bool speakGerman(QGuiApplication& application) {
    auto texts = std::make_unique<QTranslator>();
    if (!texts->load(QStringLiteral("qtbase_de"), QLibraryInfo::path(QLibraryInfo::TranslationsPath))) {
        return false;
    }
    texts->setParent(&application);
    return QCoreApplication::installTranslator(texts.release());
}

} // namespace kelvrum
