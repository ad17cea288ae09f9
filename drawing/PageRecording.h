// SPDX-License-Identifier: GPL-3.0-or-later
// A recorded page, kept until it is printed or dropped.
#pragma once

#include "drawing/PainterSurface.h"
#include "drawing/RecordedDrawing.h"

#include <memory>

namespace kelvrum {

/// Records a page of a resolution, on which it is to be played. Texts are measured as on the screen.
std::unique_ptr<RecordingSurface> pageRecording(Extent size, const Resolution& resolution);

} // namespace kelvrum
