// SPDX-License-Identifier: GPL-3.0-or-later
// The printer dialog's choices as options of a job.
#pragma once

#include <QPageLayout>
#include <QPrintEngine>
#include <string>
#include <utility>
#include <vector>

class QPrinter;

namespace kelvrum {

/// Where the toolkit's printer dialog keeps what the user has set for a queue: alternating names and values.
inline constexpr auto DIALOG_OPTIONS = QPrintEngine::PrintEnginePropertyKey(0xfe00);

/// Copies, collation, sides, colour, paper and source, and whatever else the user has set for the queue. The
/// orientation is that of the job's pages.
std::vector<std::pair<std::string, std::string>> queueOptions(QPrinter& printer,
                                                              QPageLayout::Orientation orientation);

} // namespace kelvrum
