// SPDX-License-Identifier: GPL-3.0-or-later
// Saving the picture of the diagram control as a file.
#pragma once

#include <QPixmap>
#include <QString>
#include <functional>
#include <string>

namespace kelvrum {

/// A random name for the bitmap: 8 letters from "B" to "Y" and ".bmp". `random` gives uniform numbers in [0,
/// 1).
std::string temporaryBitmapName(const std::function<double()>& random);

/// Saves a picture under a file name, in the format of its extension (JPEG when it has none that is known),
/// after a bitmap of a temporary name in the current folder, which is deleted again in every case. An
/// existing target is deleted first, missing folders are made. Waits, with events running, until the old
/// target is gone and the new one is there; an empty name or a folder that cannot be made waits without
/// limit, on purpose. Any error ends it silently.
void savePicture(const QPixmap& picture, const QString& name);

} // namespace kelvrum
