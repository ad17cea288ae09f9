// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/PdfDocument.h"

#include <QMarginsF>

namespace kelvrum {

PdfDocument::PdfDocument(QIODevice& device, const Style& style)
    : writer_(&device)
    , style_(style) {
    writer_.setResolution(style.dotsPerInch);
    writer_.setTitle(style.title);
    writer_.setCreator(QStringLiteral("Kelvrum"));
}

Surface* PdfDocument::startPage(const PageArea& area) {
    writer_.setPageLayout(QPageLayout(area.sheet, area.orientation, QMarginsF()));
    if (!surface_) {
        surface_.emplace(writer_, area.size, Resolution::page(style_.dotsPerInch));
        surface_->setGrey(style_.grey);
        if (!surface_->isActive()) {
            return nullptr;
        }
    } else if (!writer_.newPage()) {
        return nullptr;
    }
    surface_->startPage(area.corner, area.size);
    return &*surface_;
}

bool PdfDocument::finish() { return surface_ && surface_->end(); }

} // namespace kelvrum
