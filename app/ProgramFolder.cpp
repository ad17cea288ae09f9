// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/ProgramFolder.h"

#include "config/ConfigForms.h"
#include "util/Paths.h"

#include <QDir>
#include <QFileInfo>

namespace kelvrum {

QString programFolder(const QString& executableFolder, const QString& userDataFolder) {
    if (fileExists(projectFile(executableFolder.toStdString())) || QFileInfo(executableFolder).isWritable()) {
        return executableFolder;
    }
    QDir().mkpath(userDataFolder);
    return userDataFolder;
}

} // namespace kelvrum
