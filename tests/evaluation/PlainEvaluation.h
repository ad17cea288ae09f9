// SPDX-License-Identifier: GPL-3.0-or-later
// The same figures once more, computed straightforwardly: every interval with its start, in plain lists, with
// sorting, long sums and no thought of speed or memory.
#pragma once

#include "evaluation/Evaluation.h"

#include <span>
#include <string>

namespace kelvrum::testing {

/// For ranges of a reasonable number of intervals only.
Evaluation plainEvaluation(const EvaluationRequest& request, std::span<const IntervalReading> intervals);

/// What differs between two evaluations, or an empty text. Counts and times have to be equal, figures within
/// `tolerance` of each other, as part of the magnitudes that occur.
std::string differenceOf(const Evaluation& one, const Evaluation& other, double tolerance = 1e-12);

} // namespace kelvrum::testing
