// How the program presents itself to the desktop, and Qt's own texts.
#pragma once

#include <QIcon>

class QGuiApplication;

namespace kelvrum {

/// The icon of the program in the sizes of a desktop, from the program itself.
QIcon programIcon();

/// Names the application and its version to the desktop and to the folder of the user's data, gives all
/// windows the icon and lets Qt speak German.
void setUpApplication(QGuiApplication& application);

/// Qt's own texts (file dialogs, message boxes, the printer's set-up) become German, whatever the locale is:
/// all windows are. Returns false, and they stay English, where the system has no translations of Qt.
bool speakGerman(QGuiApplication& application);

} // namespace kelvrum
