// SPDX-License-Identifier: GPL-3.0-or-later
// The state of the processor's vector registers, which painting may leave in a form that slows computing
// down.
#pragma once

namespace kelvrum {

/// Clears the upper halves of the vector registers; the lower halves and all values in them stay. A window
/// toolkit's painting may leave the upper halves in use. While they are, each step between code of 128 and
/// of 256 bits waits for them: sines and arctangents of the maths library take many times as long, until
/// the halves are cleared. Call it after events have run or something was painted, before a long
/// computation. Does nothing on processors without such registers.
void cleanVectorRegisters();

} // namespace kelvrum
