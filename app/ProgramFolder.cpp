#include "app/ProgramFolder.h"

#include "util/Paths.h"

#include <QDir>
#include <QFileInfo>

namespace kelvrum {

QString programFolder(const QString& executableFolder, const QString& userDataFolder) {
    const QString startUpProject = executableFolder + QStringLiteral("/QEL.ini");
    if (fileExists(startUpProject.toStdString()) || QFileInfo(executableFolder).isWritable()) {
        return executableFolder;
    }
    QDir().mkpath(userDataFolder);
    return userDataFolder;
}

} // namespace kelvrum
