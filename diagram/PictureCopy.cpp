// SPDX-License-Identifier: GPL-3.0-or-later
#include "diagram/PictureCopy.h"

#include "diagram/PolarSys.h"

#include <QBuffer>
#include <QImage>

namespace kelvrum {

std::unique_ptr<QMimeData> copiedPicture(PolarSys& diagram) {
    auto data = std::make_unique<QMimeData>();
    QImage image = diagram.picture().toImage();
    QByteArray png;
    QBuffer buffer(&png);
    buffer.open(QIODevice::WriteOnly);
    image.save(&buffer, "PNG");
    data->setData(QStringLiteral("image/png"), png);
    data->setImageData(image);
    const QByteArray svg = pictureAsSvg(diagram);
    if (!svg.isEmpty()) {
        data->setData(QStringLiteral("image/svg+xml"), svg);
    }
    return data;
}

} // namespace kelvrum
