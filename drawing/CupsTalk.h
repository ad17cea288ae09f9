// SPDX-License-Identifier: GPL-3.0-or-later
// The communication with CUPS. It blocks and therefore runs in its own thread.
#pragma once

#include "drawing/PrintQueue.h"

#include <atomic>

namespace kelvrum {

/// Written by the helper thread, except for `withdrawn`, which the caller sets.
struct TalkProgress {
    std::atomic<double> sent = 0;        // part of the document, 0 to 1
    std::atomic<unsigned> changes = 0;   // counts the changes
    std::atomic<int> number = 0;         // of the job, once the queue has it
    std::atomic<bool> withdrawn = false; // the job is no longer wanted
};

/// See PrintQueue. Call these only if CupsLibrary::load returns the library.
QueueAnswer cupsProbe(TalkProgress& progress);
QueueAnswer cupsPrint(const QueueJob& job, TalkProgress& progress);

} // namespace kelvrum
