// SPDX-License-Identifier: GPL-3.0-or-later
// The program's identity on the desktop, and the language of Qt's own texts.
#pragma once

#include <QIcon>

class QGuiApplication;

namespace kelvrum {

/// The program's icon in the usual desktop sizes, from its resources.
QIcon programIcon();

/// Sets the application's name and version (for the desktop and the user's data folder), gives all
/// windows the icon and switches Qt's own texts to German.
void setUpApplication(QGuiApplication& application);

/// Qt's own texts (file dialogs, message boxes, the printer's set-up) become German, whatever the locale is:
/// all windows are. Returns false, and they stay English, where the system has no translations of Qt.
bool speakGerman(QGuiApplication& application);

} // namespace kelvrum
