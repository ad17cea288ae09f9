// SPDX-License-Identifier: GPL-3.0-or-later
// What the user learns of a job's outcome.
#pragma once

#include "drawing/PrintQueue.h"

#include <QString>

namespace kelvrum {

/// Throws PrintError.
[[noreturn]] void throwError(const QString& text);

/// Throws PrintError: there is no printer, or none that can be reached.
[[noreturn]] void throwNoPrinter();
/// Throws PrintError: the print system does not answer.
[[noreturn]] void throwNoAnswer();

/// Throws PrintError if the user must be informed of the fate of a job on this printer, PrintCancelled if it
/// was withdrawn.
void checkFate(const QueueAnswer& answer, const QString& printer);

} // namespace kelvrum
