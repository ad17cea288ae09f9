// SPDX-License-Identifier: GPL-3.0-or-later
// Without CUPS the toolkit's printer sends its document itself.
#include "drawing/PrintQueue.h"

namespace kelvrum {

bool PrintQueue::isSupported() { return false; }

QueueAnswer PrintQueue::probe(const QueueStep& /*step*/) { return {QueueAnswer::Fate::accepted, 0, {}}; }

QueueAnswer PrintQueue::print(const QueueJob& /*job*/, const QueueStep& /*step*/) { return {}; }

struct QueueWatch::Shared {};

QueueWatch::QueueWatch(const std::function<void()>& /*silent*/) {}

QueueWatch::~QueueWatch() = default;

std::chrono::steady_clock::duration QueueWatch::silence() const { return {}; }

} // namespace kelvrum
