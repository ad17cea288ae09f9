// Printing what the window shows.
#include "app/ChannelChoice.h"
#include "app/DataListModel.h"
#include "app/DateFrame.h"
#include "app/TablePrintout.h"
#include "app/ViewArea.h"
#include "app/ViewSwitch.h"
#include "app/f.h"
#include "batchprint/fCPrint.h"
#include "config/ChannelList.h"
#include "diagram/PolarSys.h"
#include "util/BusyPointer.h"

#include <QCoreApplication>
#include <QPrinter>
#include <exception>

namespace kelvrum {

/// Shows a message when the system has no printer or the current one has no name.
bool f::printerReady() {
    try {
        if (printJob_.hasPrinter()) {
            return true;
        }
        environment_.dialogs->message(this, QStringLiteral("Driver missing"), QStringLiteral("Printer"));
    } catch (const PrintError& error) { // the print system does not answer
        environment_.dialogs->message(this, QString::fromUtf8(error.what()), QStringLiteral("Drucken"));
    }
    return false;
}

void f::printView() {
    loader_.whenIdle("menPrint", [this] { printNow(); }); // the page shows the finished view
}

void f::printNow() {
    finishEdits();
    if (!printerReady()) {
        return;
    }
    QString failure;
    try {
        const BusyPointer busy;
        if (optView->diagramSelected()) {
            bool finish = true;
            view_->diagram().PrintDiag(finish);
        } else {
            printList();
        }
    } catch (const std::exception& error) {
        printJob_.abandon();
        failure = QString::fromUtf8(error.what());
    }
    if (!failure.isEmpty()) {
        environment_.dialogs->message(this, failure, QStringLiteral("Drucken"));
    }
}

void f::setUpPrinterAndPrint() {
    loader_.whenIdle("menSelP", [this] {
        // Cancelling ends it silently.
        if (environment_.dialogs->setUpPrinter(this, printJob_.printer())) {
            printNow();
        }
    });
}

void f::showBatchPrint() {
    loader_.whenIdle("menCPrint", [this] { openBatchPrint(); });
}

void f::openBatchPrint() {
    if (!printerReady()) {
        return;
    }
    const auto read = [this](const ReadRequest& request, const DiagramSettings& settings) {
        const ReadingStep step = [] {
            QCoreApplication::processEvents();
            return true;
        };
        return reader_.readSeries(station_, request, settings, view_->diagram(), step);
    };
    fCPrint dialog({range(), station_, environment_.texts, view_->diagram(), printJob_, read,
                    [this] { LoadData(); }, *environment_.dialogs, batchFolder_},
                   this);
    dialog.exec();
}

void f::printList() {
    const DataListModel& rows = view_->rows();
    Table table;
    table.title = station_.Title;
    table.header = tableHeader(station_, selChan->channel());
    table.valueColumns = listedChannels(station_).size();
    table.rows = static_cast<std::size_t>(rows.rowCount());
    table.rowText = [&rows](std::size_t row) {
        std::string text;
        for (int column = 0; column < rows.columnCount(); ++column) {
            text.append(column > 0 ? "|" : "").append(rows.text(static_cast<int>(row), column).toStdString());
        }
        return text;
    };
    const auto orientation = printJob_.printer().pageLayout().orientation();
    printTable(table, [&]() -> Surface& { return printJob_.newPage(orientation); });
    printJob_.end();
}

} // namespace kelvrum
