// SPDX-License-Identifier: GPL-3.0-or-later
// What the main window needs from its environment. Tests supply their own.
#pragma once

#include "util/DateTime.h"
#include "util/Dialogs.h"
#include "util/FileSource.h"
#include "util/Format.h"

#include <QDate>
#include <QString>
#include <functional>
#include <memory>

namespace kelvrum {

struct Environment {
    std::function<QDate()> today; // the clock
    QString programFolder;        // holds the start-up project; becomes the current folder
    LocaleTexts texts;            // how numbers and dates are shown
    FileOpener open = openFile;   // how the station's files are opened
    std::shared_ptr<Dialogs> dialogs = std::make_shared<Dialogs>(); // how the user is asked
    /// The current date and time as stations count it, without summer time. Intervals that begin later are
    /// not evaluated.
    std::function<DateTime()> now = [] { return LAST_DATE; };
};

} // namespace kelvrum
