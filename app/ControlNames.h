// What readers of the screen and tool tips call the controls of the main window.
#pragma once

class QWidget;

namespace kelvrum {

/// Gives the controls in `area` their accessible names, their tool tips and their tab order, from the views
/// down the left column.
void nameControls(QWidget& area);

} // namespace kelvrum
