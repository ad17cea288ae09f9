// Captions in a design of fixed places, where the font is another than the one that it was made for.
#pragma once

class QWidget;

namespace kelvrum {

/// Gives every label, button, check box, option button, frame title, picker and choice in `window` whose text
/// is wider than its place a smaller font, in which it fits; those of one kind in one frame stay alike. A
/// control whose text fits is not touched. To be called once, when the controls have their texts and places.
void fitCaptions(QWidget& window);

} // namespace kelvrum
