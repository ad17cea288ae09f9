// A PDF document that is made page by page on a device of ours.
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

    /// The device must be open for writing and outlive the document. Its errors are its own: ask it.
    PdfDocument(QIODevice& device, const Style& style);

    /// Ends the page before and starts one. The surface is there until the next page; nothing when the
    /// toolkit fails.
    Surface* startPage(const PageArea& area);

    /// Completes the document; false when the toolkit fails. A document without this is no whole one.
    bool finish();

  private:
    QPdfWriter writer_;
    Style style_;
    std::optional<PainterSurface> surface_; // from the first page on
};

} // namespace kelvrum
