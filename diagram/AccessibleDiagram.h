// SPDX-License-Identifier: GPL-3.0-or-later
// The readout of a diagram for readers of the screen.
#pragma once

namespace kelvrum {

class PolarSys;
class ReadoutOverlay;

/// Makes what an overlay reads out the accessible value of the diagram that it covers. Call it
/// before anything looks at a diagram from outside.
void makeReadoutsAccessible();

/// Reports each readout of `overlay` as a change of that value.
void reportReadouts(PolarSys& diagram, ReadoutOverlay& overlay);

} // namespace kelvrum
