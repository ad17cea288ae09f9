// SPDX-License-Identifier: GPL-3.0-or-later
// The readout of a diagram for screen readers.
#pragma once

namespace kelvrum {

class PolarSys;
class ReadoutOverlay;

/// Exposes the readout of an overlay as the accessible value of the diagram that it covers. Call it before
/// an assistive tool queries a diagram.
void makeReadoutsAccessible();

/// Reports each readout of `overlay` as a change of that value.
void reportReadouts(PolarSys& diagram, ReadoutOverlay& overlay);

} // namespace kelvrum
