// SPDX-License-Identifier: GPL-3.0-or-later
// Fits captions into a fixed layout when the font differs from the one it was designed for.
#pragma once

class QWidget;

namespace kelvrum {

/// Gives every label, button, check box, option button, frame title, picker and choice in `window` whose text
/// is wider than its place a smaller font in which it fits, but none below 6 pixels; controls of one kind in
/// one frame get the same size. If all of their texts fit, they are not changed. Call it once, when the
/// controls have their texts and places.
void fitCaptions(QWidget& window);

} // namespace kelvrum
