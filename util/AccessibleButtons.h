// SPDX-License-Identifier: GPL-3.0-or-later
// Check boxes and options for readers of the screen.
#pragma once

namespace kelvrum {

/// Lets a screen reader click the check boxes and options of the program. The toolkit's own interface would
/// only set them, as the program itself does, and nothing would follow. Call it before anything
/// looks at a window from outside.
void makeButtonsClickable();

} // namespace kelvrum
