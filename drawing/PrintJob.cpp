// SPDX-License-Identifier: GPL-3.0-or-later
#include "drawing/PrintJob.h"

#include "drawing/DocumentFile.h"
#include "drawing/PageRecording.h"
#include "drawing/PainterSurface.h"
#include "drawing/PdfDocument.h"
#include "drawing/PrintQueue.h"
#include "drawing/QueueOptions.h"
#include "util/VectorRegisters.h"

#include <QFileInfo>
#include <QPrinter>
#include <QPrinterInfo>
#include <numeric>
#include <string>
#include <utility>

namespace kelvrum {

namespace {

constexpr const char* NO_PRINTER =
    "Der Drucker ist nicht erreichbar. Bitte prüfen Sie, ob er eingeschaltet und eingerichtet ist.";
constexpr const char* NO_ANSWER =
    "Das Drucksystem antwortet nicht. Bitte versuchen Sie es später noch einmal.";
const QString DEFAULT_NAME = QStringLiteral("Kelvrum");

QString titleOf(const QString& name) { return name.isEmpty() ? DEFAULT_NAME : name; }

[[noreturn]] void throwError(const QString& text) { throw PrintError(text.toStdString()); }

/// The message of the print system, to append to a statement.
QString behindColon(const QueueAnswer& answer) {
    return answer.words.empty() ? QString() : QStringLiteral(": ") + QString::fromStdString(answer.words);
}

/// Throws if the user must be informed of a job's fate.
void checkFate(const QueueAnswer& answer, const QString& printer) {
    using Fate = QueueAnswer::Fate;
    const QString words = behindColon(answer);
    switch (answer.fate) {
    case Fate::printed:
    case Fate::accepted:
        return;
    case Fate::withdrawn:
        throw PrintCancelled();
    case Fate::unreachable:
        throw PrintError(NO_PRINTER);
    case Fate::silent:
        throw PrintError(NO_ANSWER);
    case Fate::refused:
        throwError(QStringLiteral("Der Druckauftrag wurde vom Drucker „%1“ nicht angenommen%2\n"
                                  "Bitte prüfen Sie den Drucker und drucken Sie noch einmal.")
                       .arg(printer, words.isEmpty() ? QStringLiteral(".") : words));
    case Fate::cancelled:
        throwError(QStringLiteral("Der Druckauftrag wurde auf dem Drucker „%1“ abgebrochen%2")
                       .arg(printer, words.isEmpty() ? QStringLiteral(".") : words));
    case Fate::halted:
        throwError(QStringLiteral("Der Druckauftrag wurde auf dem Drucker „%1“ angehalten%2\n"
                                  "Bitte prüfen Sie den Drucker und drucken Sie noch einmal.")
                       .arg(printer, words.isEmpty() ? QStringLiteral(".") : words));
    case Fate::stopped:
        throwError(QStringLiteral("Der Drucker „%1“ ist angehalten%2\n"
                                  "Der Auftrag wartet und wird gedruckt, sobald der Drucker wieder läuft.")
                       .arg(printer, words.isEmpty() ? QStringLiteral(".") : words));
    }
}

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
    checkFate(PrintQueue::probe([this](double) { return !step_ || step_({}); }), {});
}

bool PrintJob::hasPrinter() {
    if (printsToFile()) {
        return true;
    }
    requireAnswer();
    const QStringList names = QPrinterInfo::availablePrinterNames();
    if (names.isEmpty()) {
        return false;
    }
    if (printer_ && !names.contains(printer_->printerName()) && !isOpen()) {
        printer_.reset(); // the printer is gone, another one is there
    }
    return !printer().printerName().isEmpty();
}

bool PrintJob::setUp(const std::function<bool(QPrinter&)>& dialog) {
    const QMarginsF before = marginsOf(printer());
    auto kept = copyOf(printer()); // the toolkit's dialog changes the printer even when it is cancelled
    if (!dialog(printer())) {
        printer_ = std::move(kept);
        return false;
    }
    if (printsToFile()) {
        file_ = dialogFile_; // the same name, confirmed once more
    }
    if (const QMarginsF now = marginsOf(printer()); differ(now, before)) {
        margins_ = differ(now, toolkitMargins(printer())) ? std::optional(now) : std::nullopt;
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
        throw PrintError(NO_PRINTER);
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
        receipt_.place = QStringLiteral("an den Drucker „%1“").arg(printer().printerName());
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
    receipt_.place = QStringLiteral("an den Drucker „%1“").arg(printer().printerName());
}

void PrintJob::abandon() { sheets_.clear(); }

} // namespace kelvrum
