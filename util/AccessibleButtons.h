// SPDX-License-Identifier: GPL-3.0-or-later
// Check boxes and option buttons for screen readers.
#pragma once

namespace kelvrum {

/// Lets a screen reader click the check boxes and option buttons of the program. The toolkit's own interface
/// would only set them, as the program itself does, and nothing would follow. Call it before a screen reader
/// looks at a window.
void makeButtonsClickable();

} // namespace kelvrum
