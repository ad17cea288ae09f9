// SPDX-License-Identifier: GPL-3.0-or-later
// The print run: one page for each checked row, all pages as one job.
#include "batchprint/BatchRow.h"
#include "batchprint/fCPrint.h"
#include "diagram/PolarSys.h"
#include "drawing/JobName.h"
#include "drawing/PrintJob.h"
#include "drawing/PrintWait.h"

#include <QCoreApplication>
#include <QLabel>
#include <QPointer>
#include <QProgressBar>
#include <QPushButton>
#include <exception>
#include <optional>

namespace kelvrum {

namespace {

constexpr int STEPS = 3; // of the progress bar, for each row

/// The diagram is borrowed for pages: its properties are put back at the end, and the window shows none of
/// them.
class BorrowedDiagram {
  public:
    explicit BorrowedDiagram(PolarSys& diagram)
        : diagram_(diagram)
        , before_(diagram.properties())
        , updates_(diagram.updatesEnabled()) {
        diagram_.setUpdatesEnabled(false);
    }
    BorrowedDiagram(const BorrowedDiagram&) = delete;
    BorrowedDiagram& operator=(const BorrowedDiagram&) = delete;
    ~BorrowedDiagram() {
        diagram_.setProperties(before_);
        diagram_.setUpdatesEnabled(updates_);
    }

  private:
    PolarSys& diagram_;
    DiagramProperties before_;
    bool updates_;
};

/// Puts a row's settings on the diagram; the limit lines that are shown come with the reading.
void arrange(PolarSys& diagram, const RowSettings& row, const TimeRange& period) {
    diagram.setDiagTyp(KIND_LINE);
    diagram.setY1Low(row.automatic ? AUTOMATIC_RANGE : row.minimum);
    diagram.setY1High(row.automatic ? AUTOMATIC_RANGE : row.maximum);
    diagram.setXLow(period.from);
    diagram.setXHigh(period.to);
    diagram.setShowMittel(row.meanShown);
    if (!row.limitsShown) {
        diagram.setHilfslinie1(0);
        diagram.setHilfslinie2(0);
    }
}

DiagramSettings diagramSettings(const RowSettings& row, const QString& intervalCaption) {
    DiagramSettings settings;
    settings.intervalCaption = intervalCaption.toStdString();
    if (row.limitsShown) {
        settings.auxiliaryLines = AuxiliaryLines{row.lowerLimit, row.upperLimit};
    }
    return settings;
}

} // namespace

void fCPrint::printRows() {
    if (printing_ || reloading_) {
        return;
    }
    if (!busy_) { // set once, however often a period was wrong
        busy_.emplace();
    }
    const TimeRange range = period();
    if (!isEarlier(range.from, range.to)) {
        owner_.dialogs.message(this, QStringLiteral("Bitte überprüfen Sie die Angabe des Zeitraums!"),
                               windowTitle());
        return; // the busy cursor stays set on purpose
    }
    if (!chooseFile(range)) {
        busy_.reset();
        return;
    }
    const QPointer<QWidget> focused = focusWidget();
    setPrinting(true);
    lResult->hide();
    PBar->setValue(1);
    PBar->show();
    QCoreApplication::processEvents(); // the bar appears

    const bool printsPages = lastChecked() >= 0; // rows can be ticked again while the view is loaded
    const std::exception_ptr failure = tryPages(range);
    PBar->hide();
    setPrinting(false);
    if (focused) {
        focused->setFocus();
    }
    reloading_ = true; // the button is enabled already
    owner_.loadData();
    reloading_ = false;
    busy_.reset();
    if (failure) {
        report(failure);
    } else if (printsPages) {
        showResult();
    }
}

/// Names the job and asks for the PDF file, where one is printed into; false when the user cancels.
bool fCPrint::chooseFile(const TimeRange& range) {
    owner_.job.setName(jobName(owner_.station.Title, windowTitle().toStdString(), range, owner_.texts));
    if (!owner_.job.needsFile()) {
        return true;
    }
    const QString file = owner_.dialogs.choosePdf(this, owner_.job.proposedFile());
    owner_.job.setFile(file);
    return !file.isEmpty();
}

/// Says how many pages went where.
void fCPrint::showResult() {
    const PrintReceipt& receipt = owner_.job.receipt();
    const QString text = receipt.pages == 1
                             ? QStringLiteral("Eine Seite %1 gedruckt.").arg(receipt.place)
                             : QStringLiteral("%1 Seiten %2 gedruckt.").arg(receipt.pages).arg(receipt.place);
    lResult->setText(text);
    lResult->setToolTip(text); // the name of a file may be long
    lResult->show();
}

/// The one error handler of the run. Returns the error; null after success.
std::exception_ptr fCPrint::tryPages(const TimeRange& range) {
    try {
        printPages(range);
        return nullptr;
    } catch (...) {
        owner_.job.abandon();
        return std::current_exception();
    }
}

void fCPrint::report(const std::exception_ptr& failure) {
    const auto say = [this](const QString& text) { owner_.dialogs.message(this, text, windowTitle()); };
    try {
        std::rethrow_exception(failure);
    } catch (const BatchRow::NotANumber& wrong) {
        say(QString::fromUtf8(wrong.what()));
        wrong.row.focusField(wrong.field);
    } catch (const PrintCancelled&) {
        lResult->setText(QStringLiteral("Der Druck wurde abgebrochen."));
        lResult->show();
    } catch (const std::exception& error) {
        say(QString::fromUtf8(error.what()));
    } catch (...) {
        say(QStringLiteral("Der Druck wurde abgebrochen."));
    }
}

void fCPrint::printPages(const TimeRange& range) {
    const BorrowedDiagram borrowed(owner_.diagram);
    const int last = lastChecked();
    PBar->setMaximum((last + 1) * STEPS);
    for (int i = 0; i <= last; ++i) {
        const auto slot = static_cast<std::size_t>(i);
        if (rows_[slot]->isSelected()) {
            PBar->setValue(i * STEPS + 1);
            readRow(*rows_[slot], range);
            PBar->setValue(i * STEPS + 2);
            bool finish = i == last;
            std::optional<PrintWait> wait; // while the job is made and sent
            if (finish) {
                wait.emplace(owner_.job, *this);
            }
            owner_.diagram.PrintDiag(finish);
        }
        PBar->setValue((i + 1) * STEPS);
    }
}

void fCPrint::readRow(const BatchRow& row, const TimeRange& range) {
    const RowSettings settings = row.settings();
    arrange(owner_.diagram, settings, range);
    const ReadRequest request = {row.channel(), {}, range, row.minutes()};
    if (owner_.readDiagram(request, diagramSettings(settings, row.intervalCaption())) !=
        ReadStatus::complete) {
        throw std::runtime_error("Der Druck wurde abgebrochen: Die Daten wurden nicht vollständig gelesen.");
    }
}

/// Nothing can be edited, saved, closed or started again meanwhile.
void fCPrint::setPrinting(bool printing) {
    printing_ = printing;
    entries_->setEnabled(!printing);
    SaveButton->setEnabled(!printing);
    CancelButton->setEnabled(!printing);
    enableOk();
}

} // namespace kelvrum
