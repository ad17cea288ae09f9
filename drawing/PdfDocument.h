// SPDX-License-Identifier: GPL-3.0-or-later
// A PDF document, written page by page to our own device.
#pragma once

#include "drawing/PageArea.h"
#include "drawing/PainterSurface.h"

#include <QPdfWriter>
#include <QString>
#include <optional>

namespace kelvrum {

class PdfDocument {
  public:
    struct Style {
        QString title;
        int dotsPerInch = 0;
        bool grey = false; // without colours
    };

    /// The device must be open for writing and outlive the document. Check the device itself for write
    /// errors.
    PdfDocument(QIODevice& device, const Style& style);

    /// Ends the current page and starts a new one. The surface is valid until the next page; nothing when the
    /// toolkit fails.
    Surface* startPage(const PageArea& area);

    /// Completes the document; false when the toolkit fails. Without this call the document is incomplete.
    bool finish();

  private:
    QPdfWriter writer_;
    Style style_;
    std::optional<PainterSurface> surface_; // from the first page on
};

} // namespace kelvrum
