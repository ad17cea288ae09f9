// SPDX-License-Identifier: GPL-3.0-or-later
// The same figures once more, computed straightforwardly: every interval with its start, in plain lists, with
// sorting, long sums and no thought of speed or memory.
#pragma once

#include "evaluation/Evaluation.h"

#include <span>

namespace kelvrum::testing {

/// For ranges of a reasonable number of intervals only.
Evaluation plainEvaluation(const EvaluationRequest& request, std::span<const IntervalReading> intervals);

} // namespace kelvrum::testing
