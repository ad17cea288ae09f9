// SPDX-License-Identifier: GPL-3.0-or-later
// Two evaluations compared, figure by figure.
#pragma once

#include "evaluation/Evaluation.h"

#include <string>

namespace kelvrum::testing {

/// What differs between two evaluations, or an empty text. Counts and times have to be equal, figures within
/// `tolerance` of each other, as part of the magnitudes that occur.
std::string differenceOf(const Evaluation& one, const Evaluation& other, double tolerance = 1e-12);

} // namespace kelvrum::testing
