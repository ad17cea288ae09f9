// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/PrintJob.h"

#include "drawing/DocumentFile.h"
#include "drawing/PageRecording.h"
#include "drawing/PainterSurface.h"
#include "drawing/PdfDocument.h"
#include "drawing/PrintFate.h"
#include "drawing/PrintQueue.h"
#include "drawing/QueueOptions.h"
#include "drawing/ToolkitPatience.h"
#include "util/VectorRegisters.h"

#include <QApplication>
#include <QDialog>
#include <QFileInfo>
#include <QPrinter>
#include <QPrinterInfo>
#include <QTimer>
#include <chrono>
#include <numeric>
#include <string>
#include <utility>

namespace kelvrum {

namespace {

const QString DEFAULT_NAME = QStringLiteral("Kelvrum");

QString titleOf(const QString& name) { return name.isEmpty() ? DEFAULT_NAME : name; }

[[noreturn]] void throwFileError(const DocumentFile& document, const QString& target) {
    throwError(QStringLiteral("Die Datei „%1“ konnte nicht geschrieben werden: %2.")
                   .arg(target.isEmpty() ? document.path() : target, document.reason()));
}

std::unique_ptr<QPrinter> newPrinter() {
    auto printer = std::make_unique<QPrinter>(QPrinter::HighResolution);
    printer->setFullPage(true);
    printer->setColorMode(QPrinter::Color); // a queue without a description counts as grey otherwise
    printer->setCreator(DEFAULT_NAME);
    return printer;
}

QMarginsF millimetres(QPageLayout layout, QMarginsF (QPageLayout::*margins)() const) {
    layout.setUnits(QPageLayout::Millimeter);
    return (layout.*margins)();
}

QMarginsF marginsOf(const QPrinter& printer) {
    return millimetres(printer.pageLayout(), &QPageLayout::margins);
}

/// The toolkit's default margins for a printer.
QMarginsF toolkitMargins(const QPrinter& printer) {
    QPrinter fresh(QPrinter::HighResolution);
    if (!printer.printerName().isEmpty()) {
        fresh.setPrinterName(printer.printerName());
    }
    fresh.setOutputFormat(printer.outputFormat());
    fresh.setPageSize(printer.pageLayout().pageSize());
    return marginsOf(fresh);
}

/// A printer with the same settings.
std::unique_ptr<QPrinter> copyOf(const QPrinter& printer) {
    auto copy = newPrinter();
    if (printer.outputFormat() == QPrinter::PdfFormat) {
        copy->setOutputFormat(QPrinter::PdfFormat);
        copy->setOutputFileName(printer.outputFileName());
    } else {
        copy->setPrinterName(printer.printerName());
    }
    copy->setPageLayout(printer.pageLayout());
    copy->setCopyCount(printer.copyCount());
    copy->setCollateCopies(printer.collateCopies());
    copy->setDuplex(printer.duplex());
    copy->setColorMode(printer.colorMode());
    copy->setPaperSource(printer.paperSource());
    copy->printEngine()->setProperty(DIALOG_OPTIONS, printer.printEngine()->property(DIALOG_OPTIONS));
    return copy;
}

bool differ(const QMarginsF& a, const QMarginsF& b) {
    constexpr double ROUNDING = 0.05; // millimetres, between units of the dialog
    const QMarginsF d = a - b;
    return std::abs(d.left()) > ROUNDING || std::abs(d.top()) > ROUNDING || std::abs(d.right()) > ROUNDING ||
           std::abs(d.bottom()) > ROUNDING;
}

} // namespace

PrintJob::PrintJob() = default;

PrintJob::~PrintJob() = default;

QPrinter& PrintJob::printer() {
    if (!printer_) {
        printer_ = newPrinter();
    }
    return *printer_;
}

bool PrintJob::printsToFile() {
    if (!printer_ || printer_->outputFormat() != QPrinter::PdfFormat) {
        return false;
    }
    if (printer_->outputFileName() != dialogFile_) { // just chosen
        dialogFile_ = printer_->outputFileName();
        file_ = dialogFile_;
    }
    return !dialogFile_.isEmpty();
}

void PrintJob::requireAnswer() {
    checkFate(PrintQueue::probe([this](double) {
                  if (!step_) {
                      QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
                  }
                  return !step_ || step_({});
              }),
              {});
}

/// Runs a call of the toolkit that asks the print system. Throws PrintError when that does not answer, before
/// the call or during it.
template<typename Call>
auto PrintJob::askToolkit(Call call) {
    requireAnswer();
    const ToolkitPatience patience;
    auto result = call();
    if (patience.isOver()) {
        throwNoAnswer();
    }
    return result;
}

void PrintJob::makePrinter() {
    if (!printer_) {
        printer_ = askToolkit(newPrinter);
    }
}

bool PrintJob::hasPrinter() {
    if (printsToFile()) {
        return true;
    }
    const QStringList names = askToolkit(QPrinterInfo::availablePrinterNames);
    if (names.isEmpty()) {
        return false;
    }
    if (printer_ && !names.contains(printer_->printerName()) && !isOpen()) {
        leavePrinter();
    }
    makePrinter();
    return !printer_->printerName().isEmpty();
}

/// Drops a printer that no longer exists. If the user had chosen it, throws PrintError, which names the
/// printer that replaces it.
void PrintJob::leavePrinter() {
    const auto gone = std::exchange(printer_, nullptr);
    if (std::exchange(isChosen_, false) && !gone->printerName().isEmpty()) {
        makePrinter();
        throwError(
            QStringLiteral("Den Drucker „%1“ gibt es nicht mehr. Der nächste Druck geht an den Drucker „%2“.")
                .arg(gone->printerName(), printer_->printerName()));
    }
}

namespace {

/// Runs the dialog, which asks the print system at any time.
bool runDialog(const std::function<bool(QPrinter&)>& dialog, QPrinter& printer) {
    constexpr auto LOOK_EVERY = std::chrono::milliseconds(100);
    constexpr auto RENEW_EVERY = std::chrono::seconds(5);
    ToolkitPatience patience;
    QTimer look;
    QTimer renewal;
    const QWidget* before = QApplication::activeModalWidget();
    QObject::connect(&look, &QTimer::timeout, &look, [&patience, before] {
        // The dialog is incomplete without the replies; a dialog of its own may be on top of it.
        auto* open = qobject_cast<QDialog*>(QApplication::activeModalWidget());
        while (patience.isOver() && open != nullptr && open != before) {
            open->reject();
            auto* below = qobject_cast<QDialog*>(QApplication::activeModalWidget());
            open = below != open ? below : nullptr;
        }
    });
    QObject::connect(&renewal, &QTimer::timeout, &renewal, [&patience] { patience.renew(); });
    look.start(LOOK_EVERY);
    renewal.start(RENEW_EVERY);
    const bool isAccepted = dialog(printer);
    if (patience.isOver()) {
        throwNoAnswer();
    }
    return isAccepted;
}

} // namespace

bool PrintJob::setUp(const std::function<bool(QPrinter&)>& dialog) {
    makePrinter();
    const QMarginsF before = marginsOf(*printer_);
    // The toolkit's dialog changes the printer even when it is cancelled.
    auto kept = askToolkit([this] { return copyOf(*printer_); });
    try {
        requireAnswer();
        if (!runDialog(dialog, *printer_)) {
            printer_ = std::move(kept);
            return false;
        }
        if (const QMarginsF now = marginsOf(*printer_); differ(now, before)) {
            const QMarginsF given = askToolkit([this] { return toolkitMargins(*printer_); });
            margins_ = differ(now, given) ? std::optional(now) : std::nullopt;
        }
    } catch (const PrintError&) {
        printer_ = std::move(kept);
        throw;
    }
    isChosen_ = true;
    if (printsToFile()) {
        file_ = dialogFile_; // the same name, confirmed once more
    }
    return true;
}

bool PrintJob::needsFile() { return printsToFile() && file_.isEmpty(); }

QString PrintJob::proposedFile() {
    QString name = titleOf(name_);
    for (QChar& c : name) {
        if (QStringLiteral("\\/:*?\"<>|").contains(c)) {
            c = QLatin1Char('_');
        }
    }
    const QString before = lastFile_.isEmpty() ? dialogFile_ : lastFile_;
    return QFileInfo(before).path() + QLatin1Char('/') + name + QStringLiteral(".pdf");
}

PageArea PrintJob::areaOf(QPageLayout::Orientation orientation) {
    const QPageLayout layout = printer().pageLayout();
    const PageMargins margins = {millimetres(layout, &QPageLayout::minimumMargins), margins_};
    return pageArea(layout.pageSize(), orientation, margins, printer().resolution());
}

void PrintJob::open() {
    if (!isOpen() && !hasPrinter()) {
        throwNoPrinter();
    }
}

std::unique_ptr<RecordingSurface> PrintJob::recording(Extent size) {
    return pageRecording(size, Resolution::page(printer().resolution()));
}

Surface& PrintJob::newPage(QPageLayout::Orientation orientation) {
    open();
    const PageArea area = areaOf(orientation);
    const std::shared_ptr<RecordingSurface> page = recording(area.size);
    sheets_.push_back({area, 1, [page](std::size_t, Surface& surface) { page->drawing().play(surface); }});
    return *page;
}

void PrintJob::addPages(std::size_t count, QPageLayout::Orientation orientation, DrawPage draw) {
    open();
    const PageArea area = areaOf(orientation);
    // Texts are measured as on any other page, which the document's own surface would not do.
    const std::shared_ptr<RecordingSurface> page = recording(area.size);
    sheets_.push_back({area, count, [page, draw = std::move(draw)](std::size_t number, Surface& surface) {
                           page->restart();
                           draw(number, *page);
                           page->drawing().play(surface);
                       }});
}

std::unique_ptr<Surface> PrintJob::trialPage(QPageLayout::Orientation orientation) {
    return recording(areaOf(orientation).size);
}

void PrintJob::step(const PrintProgress& progress) const {
    if (step_ && !step_(progress)) {
        throw PrintCancelled();
    }
    cleanVectorRegisters(); // the step may have let windows paint
}

void PrintJob::make(const std::vector<Sheets>& sheets, DocumentFile& document) {
    if (!document.open(QIODevice::WriteOnly)) {
        return;
    }
    PrintProgress progress{PrintProgress::Stage::making, 0, receipt_.pages};
    PdfDocument pdf(document,
                    {titleOf(name_), printer().resolution(), printer().colorMode() == QPrinter::GrayScale});
    for (const Sheets& pages : sheets) {
        for (std::size_t i = 0; i < pages.count && !document.hasFailed(); ++i) {
            Surface* surface = pdf.startPage(pages.area);
            if (surface == nullptr) {
                throwError(QStringLiteral("Die Seite konnte nicht erstellt werden."));
            }
            pages.play(i, *surface);
            ++progress.done;
            step(progress);
        }
    }
    if (!pdf.finish() && !document.hasFailed()) {
        throwError(QStringLiteral("Das Dokument konnte nicht erstellt werden."));
    }
}

void PrintJob::send(const DocumentFile& document, QPageLayout::Orientation orientation, std::size_t pages) {
    const QString name = printer().printerName();
    QueueJob job;
    job.queue = name.section(QLatin1Char('/'), 0, 0).toStdString(); // without the instance of its settings
    job.title = titleOf(name_).toStdString();
    job.document = std::filesystem::path(document.path().toStdU16String());
    job.options = queueOptions(printer(), orientation);
    const QueueAnswer answer = PrintQueue::print(job, [&](double sent) {
        const auto done = static_cast<std::size_t>(sent * static_cast<double>(pages));
        return !step_ || step_({PrintProgress::Stage::sending, done, pages});
    });
    checkFate(answer, name);
}

/// Where there is no CUPS the toolkit makes the document and sends it; it does not say what becomes of it.
void PrintJob::sendByToolkit(const std::vector<Sheets>& sheets) {
    QPrinter& device = printer();
    const QPageLayout::Orientation chosen = device.pageLayout().orientation();
    device.setDocName(titleOf(name_));
    device.setPageOrientation(sheets.front().area.orientation);
    PainterSurface surface(device, sheets.front().area.size, Resolution::page(device.resolution()));
    bool printed = surface.isActive();
    for (const Sheets& pages : sheets) {
        for (std::size_t i = 0; i < pages.count && printed; ++i) {
            device.setPageOrientation(pages.area.orientation);
            printed = (&pages == &sheets.front() && i == 0) || device.newPage();
            if (printed) {
                surface.startPage(pages.area.corner, pages.area.size);
                pages.play(i, surface);
            }
        }
    }
    if (!printed) {
        device.abort();
    }
    printed = surface.end() && printed && device.printerState() != QPrinter::Error;
    device.setPageOrientation(chosen);
    if (!printed) {
        checkFate({QueueAnswer::Fate::refused, 0, {}}, device.printerName());
    }
}

void PrintJob::end() {
    const auto sheets = std::exchange(sheets_, {});
    if (sheets.empty()) {
        return;
    }
    const auto add = [](std::size_t sum, const Sheets& pages) { return sum + pages.count; };
    receipt_ = {std::accumulate(sheets.begin(), sheets.end(), std::size_t{0}, add), {}};
    const bool inFile = printsToFile();
    const QString target = inFile ? std::exchange(file_, {}) : QString();
    if (inFile && target.isEmpty()) {
        throwError(QStringLiteral("Für die PDF-Datei ist kein Name gewählt."));
    }
    if (!inFile && !PrintQueue::isSupported()) {
        sendByToolkit(sheets);
        receipt_.place = QStringLiteral("auf dem Drucker „%1“").arg(printer().printerName());
        return;
    }
    const auto document = inFile ? std::make_unique<DocumentFile>(target) : std::make_unique<DocumentFile>();
    make(sheets, *document);
    if (!document->finish()) {
        throwFileError(*document, target);
    }
    if (inFile) {
        lastFile_ = target;
        receipt_.place = QStringLiteral("in die Datei „%1“").arg(target);
        return;
    }
    send(*document, sheets.front().area.orientation, receipt_.pages);
    receipt_.place = QStringLiteral("auf dem Drucker „%1“").arg(printer().printerName());
}

void PrintJob::abandon() {
    sheets_.clear();
    file_.clear();
}

} // namespace kelvrum
