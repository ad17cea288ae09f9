// SPDX-License-Identifier: GPL-3.0-or-later
// Accessible names and tool tips of the main window's controls.
#pragma once

class QWidget;

namespace kelvrum {

/// Gives the controls in `area` their accessible names, their tool tips and their tab order, from the views
/// down the left column.
void nameControls(QWidget& area);

} // namespace kelvrum
