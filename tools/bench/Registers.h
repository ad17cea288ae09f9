// SPDX-License-Identifier: GPL-3.0-or-later
// The state of the vector registers in which a benchmark measures. Painting leaves them in a state that slows
// the maths library down. A figure is measured in that state, as a user meets it; a limit never is.
#pragma once

#include <benchmark/benchmark.h>

namespace kelvrum::bench {

/// Paints as a window does. The time is not counted. Called at the start of each turn of a figure's loop.
void afterPainting(benchmark::State& state);

} // namespace kelvrum::bench
