// SPDX-License-Identifier: GPL-3.0-or-later
// The batch print dialog.
#pragma once

#include "config/StationConfig.h"
#include "data/DataReader.h"
#include "util/BusyPointer.h"
#include "util/DateTime.h"
#include "util/Dialogs.h"
#include "util/Format.h"

#include <QDialog>
#include <exception>
#include <functional>
#include <optional>
#include <string>
#include <vector>

class QLabel;
class QProgressBar;
class QPushButton;

namespace kelvrum {

class BatchRow;
class PeriodWidget;
class PolarSys;
class PrintJob;
struct BatchColumns;

/// "Sammeldruck": prints several channels over one period, each with its own scale, interval, limit lines and
/// mean line, as one print job. The settings of the rows are kept in "Sammeldruck.cfg" in the current folder.
/// Controls bear their given names, also as object names; BatchRow tells those of the rows.
class fCPrint : public QDialog {
    Q_OBJECT

  public:
    /// What the dialog needs from its owner. Everything referred to must outlive the dialog.
    struct Owner {
        TimeRange range;              // the period at the start
        const StationConfig& station; // must not change while the dialog is open
        LocaleTexts texts;
        PolarSys& diagram; // borrowed for the pages; its print job must be `job`
        PrintJob& job;
        /// Reads a channel into the diagram.
        std::function<ReadStatus(const ReadRequest&, const DiagramSettings&)> readDiagram;
        std::function<void()> loadData; // shows the owner's own view again
        Dialogs& dialogs;
        std::string projectFolder = {}; // of the configuration; no page or setting depends on it
    };

    /// Builds the rows and loads the settings; a damaged settings file is reported at once.
    explicit fCPrint(Owner owner, QWidget* parent = nullptr);
    /// Resets the busy cursor if it is still set.
    ~fCPrint() override;

    /// What SaveButton does. With a field that holds no number nothing is written, and that field, or the box
    /// that enables it, gets the focus.
    void saveSettings();

    /// What OKButton does: prints the checked rows in their order, then lets the owner load its view.
    /// An error drops the whole job and is reported. Entered again before the owner's view is there, it does
    /// nothing.
    void printRows();

    /// The period, as the pickers hold it.
    [[nodiscard]] TimeRange period() const;

    /// Closes the dialog, but not while it prints.
    void reject() override;

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    // --- fCPrint_controls.cpp: the controls and their design ---
    void buildControls();
    void buildPeriod();
    void buildHeadings(const BatchColumns& columns);
    void buildFoot(int width);

    // --- fCPrint.cpp: what the controls hold ---
    void loadSettings();
    void enableOk();
    [[nodiscard]] int lastChecked() const;

    // --- fCPrint_print.cpp: the print run ---
    std::exception_ptr tryPages(const TimeRange& range);
    void report(const std::exception_ptr& failure);
    bool chooseFile(const TimeRange& range);
    void printPages(const TimeRange& range);
    void showResult();
    void readRow(const BatchRow& row, const TimeRange& range);
    void setPrinting(bool printing);

    Owner owner_;
    bool printing_ = false;
    bool reloading_ = false; // the owner shows its view again after a run
    std::optional<BusyPointer> busy_;

    QWidget* entries_ = nullptr; // all controls but the foot
    PeriodWidget* period_ = nullptr;
    std::vector<BatchRow*> rows_;
    QProgressBar* PBar = nullptr;
    QLabel* lResult = nullptr; // in the bar's place: what the last run has printed
    QPushButton* SaveButton = nullptr;
    QPushButton* OKButton = nullptr;
    QPushButton* CancelButton = nullptr;
};

} // namespace kelvrum
