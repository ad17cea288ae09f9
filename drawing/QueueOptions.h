// SPDX-License-Identifier: GPL-3.0-or-later
// The printer dialog's choices as options of a job.
#pragma once

#include <QPageLayout>
#include <string>
#include <utility>
#include <vector>

class QPrinter;

namespace kelvrum {

/// Copies, collation, sides, colour, paper and source, and whatever else the user has set for the queue. The
/// orientation is that of the job's pages.
std::vector<std::pair<std::string, std::string>> queueOptions(QPrinter& printer,
                                                              QPageLayout::Orientation orientation);

} // namespace kelvrum
