// The batch print dialog.
#pragma once

#include "batchprint/BatchRows.h"
#include "config/Dialogs.h"
#include "config/StationConfig.h"
#include "data/DataReader.h"
#include "util/DateTime.h"
#include "util/Format.h"

#include <QDialog>
#include <exception>
#include <functional>
#include <stdexcept>
#include <string>
#include <vector>

class QCheckBox;
class QComboBox;
class QLabel;
class QLineEdit;
class QProgressBar;
class QPushButton;

namespace kelvrum {

class DatePicker;
class PolarSys;
class PrintJob;
class TimePicker;

/// "Sammeldruck": prints several channels over one period, each with its own scale, interval, limit lines and
/// mean line, as one print job. The settings of the rows are kept in "Sammeldruck.cfg" in the current folder.
/// Controls bear their given names, also as object names; chKanal[3] is named "chKanal(3)".
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
        std::function<Reading(const ReadRequest&, const DiagramSettings&)> readDiagram;
        std::function<void()> loadData; // shows the owner's own view again
        Dialogs& dialogs;
        std::string projectFolder = {}; // as the configuration's path gives it; handed over, not read here
    };

    /// Builds the rows and loads the settings; a damaged settings file is reported at once.
    explicit fCPrint(Owner owner, QWidget* parent = nullptr);
    /// Resets the pointer, should it still be the hourglass.
    ~fCPrint() override;

    /// What SaveButton does. With a field that holds no number nothing is written, and that field gets the
    /// focus.
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
    /// The controls of one row.
    struct Row {
        QCheckBox* chKanal = nullptr;
        QCheckBox* chAuto = nullptr;
        QLineEdit* tMin = nullptr;
        QLabel* strich = nullptr;
        QLineEdit* tMax = nullptr;
        QComboBox* selInterval = nullptr;
        QCheckBox* chShowLines = nullptr;
        QLineEdit* aMin = nullptr;
        QLineEdit* aMax = nullptr;
        QCheckBox* chShowMittel = nullptr;
    };
    struct Columns;

    /// A number field holds no number; what() says so to the user.
    struct NotANumber : std::runtime_error {
        NotANumber(const Row& rowOfField, QLineEdit& wrongField);
        const Row& row;
        QLineEdit& field;
    };

    // --- fCPrint_controls.cpp: the controls and their design ---
    void buildControls();
    [[nodiscard]] QString nameOf(std::size_t row) const;
    [[nodiscard]] Columns layOutColumns() const;
    void buildPeriod();
    void buildHeadings(const Columns& columns);
    void buildRow(std::size_t index, const Columns& columns);
    void buildFoot(int width);
    void nameRow(const Row& row, std::size_t index);
    void connectRow(const Row& row);

    // --- fCPrint.cpp: what the controls hold ---
    void loadSettings();
    static void applyChoices(const Row& row, const RowSettings& settings);
    static void applySettings(const Row& row, const RowSettings& settings);
    /// Throws NotANumber when one of the four number fields holds none, be it enabled or not.
    [[nodiscard]] static RowSettings settingsOf(const Row& row);
    static void enableRow(const Row& row);
    /// Red for a text that is no number.
    static void colourEntry(QLineEdit& field);
    void enableOk();
    [[nodiscard]] int lastChecked() const;
    /// Brings the user to a field that holds no number.
    static void leadTo(const NotANumber& wrong);

    // --- fCPrint_print.cpp: the print run ---
    std::exception_ptr tryPages(const TimeRange& range);
    void report(const std::exception_ptr& failure);
    void printPages(const TimeRange& range);
    void readRow(const Row& row, std::int32_t channel, const TimeRange& range);
    void setPrinting(bool printing);
    void showHourglass();
    void resetPointer();

    Owner owner_;
    bool printing_ = false;
    bool reloading_ = false; // the owner shows its view again after a run
    bool hourglass_ = false;

    QWidget* entries_ = nullptr; // all controls but the foot
    DatePicker* DTPicker = nullptr;
    TimePicker* DTPicker1 = nullptr;
    DatePicker* DTPicker2 = nullptr;
    TimePicker* DTPicker3 = nullptr;
    std::vector<Row> rows_;
    QProgressBar* PBar = nullptr;
    QPushButton* SaveButton = nullptr;
    QPushButton* OKButton = nullptr;
    QPushButton* CancelButton = nullptr;
};

} // namespace kelvrum
