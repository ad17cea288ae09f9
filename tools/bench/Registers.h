// SPDX-License-Identifier: GPL-3.0-or-later
// The state of the vector registers in which a benchmark measures. Painting leaves them in a state that slows
// the maths library down: users are in it whenever a window has painted, and a limit must never be.
#pragma once

#include <benchmark/benchmark.h>

namespace kelvrum::bench {

/// Paints as a window does. The time is not counted. Called at the start of each turn of a figure's loop.
void afterPainting(benchmark::State& state);

} // namespace kelvrum::bench
