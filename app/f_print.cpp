// SPDX-License-Identifier: GPL-3.0-or-later
// Printing what the window shows.
#include "app/ChannelChoice.h"
#include "app/DataListModel.h"
#include "app/IntervalFrame.h"
#include "app/SecondChannel.h"
#include "app/TablePrintout.h"
#include "app/ViewArea.h"
#include "app/ViewSwitch.h"
#include "app/f.h"
#include "batchprint/fCPrint.h"
#include "config/ChannelList.h"
#include "diagram/CopiedText.h"
#include "diagram/PolarDiagram.h"
#include "diagram/PolarSys.h"
#include "drawing/JobName.h"
#include "drawing/PrintWait.h"
#include "util/BusyPointer.h"

#include "config/ConfigForms.h"
#include <QCoreApplication>
#include <QPrinter>
#include <exception>
#include <functional>
#include <memory>
#include <string>

namespace kelvrum {

namespace {

constexpr std::size_t PAGES_UNASKED = 20; // a list of more pages is printed only when the user says so

} // namespace

void f::say(QWidget& window, const std::exception& error) {
    environment_.dialogs->message(&window, QString::fromUtf8(error.what()), QStringLiteral("Drucken"));
}

/// Shows a message when the system has no printer, the current one has no name or the print system is silent.
bool f::printerReady(QWidget& window) {
    try {
        const PrintWait wait(printJob_, window);
        if (printJob_.hasPrinter()) {
            return true;
        }
    } catch (const PrintCancelled&) {
        return false;
    } catch (const PrintError& error) {
        say(window, error);
        return false;
    }
    environment_.dialogs->message(&window, QStringLiteral("Driver missing"), QStringLiteral("Printer"));
    return false;
}

/// Prints pages as a job of this name, once there is a printer and a file to print into. An error or the user
/// ends the job.
void f::printAs(const std::string& name, QWidget& window, const std::function<void()>& pages) {
    if (!printerReady(window)) {
        return;
    }
    printJob_.setName(name);
    if (!chooseFile(window)) {
        return;
    }
    try {
        pages();
    } catch (const PrintCancelled&) {
        printJob_.abandon();
    } catch (const std::exception& error) {
        printJob_.abandon();
        say(window, error);
    }
}

void f::printView() {
    loader_.whenIdle("menPrint", [this] { printNow(); }); // the page shows the finished view
}

void f::printNow() {
    finishEdits();
    printAs(nameOfView(), *this, [this] {
        if (optView->isDiagramChosen()) {
            printDiagram();
        } else {
            printList();
        }
    });
}

/// Asks for the name of the PDF file, where one is printed into; false when the user cancels.
bool f::chooseFile(QWidget& window) {
    if (!printJob_.needsFile()) {
        return true;
    }
    const QString file = environment_.dialogs->choosePdf(&window, printJob_.proposedFile());
    printJob_.setFile(file);
    return !file.isEmpty();
}

void f::printDiagram() {
    const BusyPointer busy;
    const PrintWait wait(printJob_, *this);
    view_->diagram().setPageNotes(pageNotes());
    bool finish = true;
    view_->diagram().PrintDiag(finish);
}

std::string f::nameOfView() const {
    const ChannelInfo& channel = station_.ChannelTable.at(selChan->channel());
    const bool allChannels = !optView->isDiagramChosen() && hasDayFiles(station_);
    return jobName(station_.Title, allChannels ? "Datenliste" : channel.Name, range(), environment_.texts);
}

std::string f::printingDate() const {
    const QDate today = environment_.today();
    return formatDateTime(dateSerial(today.year(), today.month(), today.day()), environment_.texts.shortDate,
                          environment_.texts);
}

std::string f::shownTime(DateTime t) const {
    const LocaleTexts& texts = environment_.texts;
    return formatDateTime(t, texts.shortDate, texts) + ", " + formatDateTime(t, "hh:mm", texts) + " Uhr";
}

std::string f::shownRange(const TimeRange& range) const {
    return shownTime(range.from) + " bis " + shownTime(range.to);
}

PageNotes f::pageNotes() const {
    PageNotes notes;
    if (!station_.DeviceNumber.empty()) {
        notes.left = "Gerätenummer " + station_.DeviceNumber;
    }
    notes.right = "Gedruckt am " + printingDate();
    const PolarSys& KS = view_->diagram();
    if (KS.DiagTyp() == KIND_POLAR) {
        const std::int64_t calms = classify(KS.samples(), KS.RadRaster()).calm;
        notes.polarFoot = footLine(roseShown(range(), KS.sampleCount(), calms));
    }
    return notes;
}

void f::setUpPrinterAndPrint() {
    loader_.whenIdle("menSelP", [this] {
        try {
            {
                const PrintWait wait(printJob_,
                                     *this); // which takes all input, so not while the dialog is open
                printJob_.requireAnswer();
            }
            if (!printJob_.setUp([this](QPrinter& printer) {
                    return environment_.dialogs->setUpPrinter(this, printer);
                })) {
                return; // cancelling ends it silently
            }
        } catch (const PrintCancelled&) {
            return;
        } catch (const PrintError& error) {
            say(*this, error);
            return;
        }
        printNow();
    });
}

void f::showBatchPrint() {
    loader_.whenIdle("menCPrint", [this] { openBatchPrint(); });
}

void f::openBatchPrint() {
    if (!printerReady(*this)) {
        return;
    }
    view_->diagram().setPageNotes(pageNotes());
    const auto read = [this](const ReadRequest& request, const DiagramSettings& settings) {
        const ReadingStep step = [] {
            QCoreApplication::processEvents();
            return true;
        };
        second_->hideForOthers(); // whatever the window shows, a page has one channel
        return reader_.readSeries(station_, request, settings, view_->diagram(), step);
    };
    fCPrint dialog({range(), station_, environment_.texts, view_->diagram(), printJob_, read,
                    [this] { LoadData(); }, *environment_.dialogs, batchFolder_},
                   this);
    dialog.exec();
}

/// Prints a copy of the rows, unless the user does not want so many pages.
void f::printList() {
    const ListRows rows = view_->rows().copy();
    Table table;
    table.title = station_.Title;
    table.header = tableHeader(station_, selChan->channel());
    table.valueColumns = listedChannels(station_).size();
    table.rows = rows.count();
    table.rowText = [&rows](std::size_t row) { return rows.text(row); };
    table.note = TIME_NOTE;
    table.foot = shownRange(range());
    if (!hasDayFiles(station_)) { // whose list shows the records themselves
        table.foot += ", Intervall: " + interval_->caption().toStdString();
    }
    table.foot += ", gedruckt am " + printingDate();

    const auto orientation = printJob_.printer().pageLayout().orientation();
    const std::unique_ptr<Surface> trial = printJob_.trialPage(orientation);
    const TablePages pages(table, *trial);
    const QString question =
        QStringLiteral("Die Liste hat %1 Seiten. Möchten Sie sie drucken?").arg(pages.count());
    if (pages.count() > PAGES_UNASKED &&
        !environment_.dialogs->ask(this, question, QStringLiteral("Drucken"))) {
        printJob_.abandon();
        return;
    }
    const BusyPointer busy;
    const PrintWait wait(printJob_, *this);
    printJob_.addPages(pages.count(), orientation,
                       [&pages](std::size_t page, Surface& surface) { pages.draw(page, surface); });
    printJob_.end();
}

} // namespace kelvrum
