// SPDX-License-Identifier: GPL-3.0-or-later
// The picture of a diagram for the clipboard.
#pragma once

#include <QByteArray>
#include <QMimeData>
#include <memory>

namespace kelvrum {

class PolarSys;

/// The diagram as it would be drawn now, as SVG; empty when it draws nothing, and where the program is built
/// without the toolkit's SVG module.
QByteArray pictureAsSvg(PolarSys& diagram);

/// The picture as it was drawn last, as PNG in its device pixels, and as SVG.
std::unique_ptr<QMimeData> copiedPicture(PolarSys& diagram);

} // namespace kelvrum
