// SPDX-License-Identifier: GPL-3.0-or-later
// An evaluation on paper, on any surface.
#pragma once

#include "drawing/Surface.h"
#include "evaluation/EvaluationText.h"

#include <functional>
#include <string>

namespace kelvrum {

/// Prints title, summary and tables on as many pages as they need. A table begins with its title and header;
/// each further page of it repeats the header. Each page has the foot with its number, unless it is empty.
/// `newPage` starts a page and returns its surface in millimetres, which must live until the end.
void printEvaluationText(const EvaluationText& text, const std::string& station, const std::string& foot,
                         const std::function<Surface&()>& newPage);

} // namespace kelvrum
