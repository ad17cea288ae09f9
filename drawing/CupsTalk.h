// The conversation with CUPS. It blocks and therefore runs in a thread of its own.
#pragma once

#include "drawing/PrintQueue.h"

#include <atomic>

namespace kelvrum {

/// Written by the talking thread, but for `withdrawn`, which its caller sets.
struct TalkProgress {
    std::atomic<double> sent = 0;        // part of the document, 0 to 1
    std::atomic<unsigned> changes = 0;   // counts what went on
    std::atomic<bool> withdrawn = false; // no job is wanted any more
};

/// See PrintQueue.
QueueAnswer cupsProbe(TalkProgress& progress);
QueueAnswer cupsPrint(const QueueJob& job, TalkProgress& progress);

} // namespace kelvrum
