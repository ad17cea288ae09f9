#include "diagram/PrintJob.h"

#include "diagram/PagePicture.h"
#include "diagram/PainterSurface.h"

#include <QPrinter>
#include <QPrinterInfo>
#include <string>
#include <utility>

namespace kelvrum {

namespace {

constexpr const char* NO_PRINTER =
    "Der Drucker ist nicht erreichbar. Bitte prüfen Sie, ob er eingeschaltet und eingerichtet ist.";

Extent paperOf(const QPrinter& printer) {
    const QRectF paper = printer.paperRect(QPrinter::DevicePixel);
    return {static_cast<int>(paper.width()), static_cast<int>(paper.height())};
}

} // namespace

struct PrintJob::Page {
    Page(QPageLayout::Orientation turned, Extent size, const Resolution& resolution)
        : orientation(turned)
        , picture(size, resolution) {}

    QPageLayout::Orientation orientation;
    PagePicture picture;
};

PrintJob::PrintJob() = default;

PrintJob::~PrintJob() = default;

QPrinter& PrintJob::printer() {
    if (!printer_) {
        printer_ = std::make_unique<QPrinter>(QPrinter::HighResolution);
        printer_->setFullPage(true);
        printer_->setColorMode(QPrinter::Color); // a queue without a description counts as grey otherwise
        printer_->setCreator(QStringLiteral("Kelvrum"));
        printer_->setDocName(QStringLiteral("Kelvrum")); // its name in the queue
    }
    return *printer_;
}

bool PrintJob::hasPrinter() {
    const QStringList names = QPrinterInfo::availablePrinterNames();
    if (names.isEmpty()) {
        return false;
    }
    if (printer_ && !names.contains(printer_->printerName()) && !isOpen()) {
        printer_.reset(); // the printer is gone, another one is there
    }
    return !printer().printerName().isEmpty();
}

Surface& PrintJob::newPage(QPageLayout::Orientation orientation) {
    if (!isOpen() && !hasPrinter()) {
        throw PrintError(NO_PRINTER);
    }
    if (!isOpen()) {
        chosen_ = printer().pageLayout().orientation();
    }
    printer().setPageOrientation(orientation);
    const Resolution resolution = Resolution::page(printer().resolution());
    pages_.push_back(std::make_unique<Page>(orientation, paperOf(printer()), resolution));
    return pages_.back()->picture;
}

void PrintJob::restoreOrientation() { printer().setPageOrientation(chosen_); }

bool PrintJob::send(const std::vector<std::unique_ptr<Page>>& pages) {
    printer().setPageOrientation(pages.front()->orientation);
    PainterSurface surface(printer(), paperOf(printer()), Resolution::page(printer().resolution()));
    bool printed = surface.isActive();
    for (std::size_t i = 0; i < pages.size() && printed; ++i) {
        printed = i == 0 || (printer().setPageOrientation(pages[i]->orientation), printer().newPage());
        if (printed) {
            pages[i]->picture.play(surface);
        }
    }
    if (!printed) {
        printer().abort();
    }
    return surface.end() && printed && printer().printerState() != QPrinter::Error;
}

void PrintJob::end() {
    const auto pages = std::exchange(pages_, {});
    if (pages.empty()) {
        return;
    }
    const QString name = printer().printerName();
    const auto isThere = [&name] { return QPrinterInfo::availablePrinterNames().contains(name); };
    if (!isThere()) {
        restoreOrientation();
        throw PrintError(NO_PRINTER);
    }
    const bool printed = send(pages) && isThere();
    restoreOrientation();
    if (!printed) {
        throw PrintError("Der Druckauftrag wurde vom Drucker „" + name.toStdString() +
                         "“ nicht angenommen. Bitte prüfen Sie den Drucker und drucken Sie noch einmal.");
    }
}

void PrintJob::abandon() {
    if (isOpen()) {
        pages_.clear();
        restoreOrientation();
    }
}

} // namespace kelvrum
