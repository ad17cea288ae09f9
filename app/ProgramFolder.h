// SPDX-License-Identifier: GPL-3.0-or-later
// The folder in which the program works.
#pragma once

#include <QString>

namespace kelvrum {

/// The executable's folder when it holds a project (projectFile) or is writable; otherwise, as
/// after an installation for all users, the user's data folder of the application, which is made when it is
/// missing.
QString programFolder(const QString& executableFolder, const QString& userDataFolder);

} // namespace kelvrum
