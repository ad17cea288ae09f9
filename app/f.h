// The main window.
#pragma once

#include "app/Environment.h"
#include "app/Loader.h"
#include "config/StationConfig.h"
#include "correction/Recalculation.h"
#include "data/DataReader.h"
#include "diagram/Colour.h"
#include "diagram/PrintJob.h"
#include "util/DateTime.h"

#include <QAccessible>
#include <QMainWindow>
#include <cstdint>
#include <span>
#include <string>
#include <string_view>

class QAction;
class QCheckBox;
class QComboBox;
class QDateEdit;
class QFrame;
class QGroupBox;
class QKeyEvent;
class QLabel;
class QLineEdit;
class QListWidget;
class QListWidgetItem;
class QMenu;
class QPushButton;
class QRadioButton;
class QScrollBar;
class QSlider;
class QTableView;
class QTimeEdit;

namespace kelvrum {

class ColumnScroll;
class DataListModel;
class DatePicker;
class PolarSys;
class TimePicker;

/// The start object and only long-lived window: one channel of one station over a time range, as a data list
/// or as a diagram. It owns the StationConfig, the four pickers (which are the range), the interval and the
/// diagram control KS. Controls bear their given names, also as object names.
class f : public QMainWindow, private QAccessible::ActivationObserver {
    Q_OBJECT

  public:
    explicit f(Environment environment);
    ~f() override;

    /// Start-up: defaults of all controls, then the project in the program folder. Ends with one LoadData.
    void Form_Load();

    /// Opens the project of a configuration file: replaces the station, refills the channel list and the
    /// columns of the data list and selects the first channel. A path that names no configuration changes
    /// nothing. Loads nothing.
    void readConf(std::string_view ConfFile);

    /// Opens the configuration file that the user chooses, and loads in every case. While a load runs, the
    /// dialog appears after it.
    void OpenFile();

    /// Shows the project selection window, after the load that runs.
    void showProjects();

    /// Reads the selected channel over the range at the interval and shows it. While a load runs, that one
    /// starts over with what is chosen now, and this returns at once.
    void LoadData();

    /// Hands the range to the diagram's time axis and draws.
    void SetXHigh();

    /// Adds a row of the data list; INVALID_VALUE and beyond adds none.
    void ShowValue(DateTime MessZeit, double MessWert);

    /// Sets up the menu "Korrekturfaktoren"; returns whether it is enabled.
    bool checkMenu(bool allowed);

    /// The range, as the pickers hold it.
    [[nodiscard]] TimeRange range() const;
    /// The averaging interval in minutes.
    [[nodiscard]] std::int32_t interval() const;
    [[nodiscard]] const StationConfig& station() const { return station_; }

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

  private:
    // --- f_controls.cpp: the controls and their design ---
    void buildMenus();
    void buildViews();
    void buildColumn();
    void buildRangeFrames();
    void buildScaleFrames();
    void connectControls();
    void nameForReaders();
    QGroupBox* frame(const char* name, const QString& caption, const QRect& place);

    // --- f_load.cpp: loading ---
    void loadView(const ReadingStep& step);
    bool FillListVarn(const TimeRange& shown, const ReadingStep& step);
    bool readViews(const ReadRequest& request, const ReadingStep& step);
    void showRows(std::span<const IntervalValue> intervals);
    void showNothing();
    void describeView();
    void accessibilityActiveChanged(bool active) override;
    void showChannel(std::int32_t channel);
    [[nodiscard]] bool diagramSelected() const;
    [[nodiscard]] std::int32_t selectedChannel() const;
    [[nodiscard]] DiagramSettings diagramSettings() const;

    // --- f_keys.cpp: keys of the whole window and of the diagram ---
    void buildKeys();
    void finishEdits();
    bool diagramKey(const QKeyEvent& key);

    // --- f_range.cpp: the pickers and what moves them ---
    enum class Side { start, end };
    [[nodiscard]] DateTime timeOf(Side side) const;
    void setTime(Side side, DateTime t);
    void pullOther(Side changed);
    void stepDate(Side side, int days);
    void scrollRange(int count);
    void dateEdited(Side side);
    void timeEdited(Side side);
    void snapTime(Side side);
    void intervalChosen();
    QDateEdit& datePicker(Side side) const;
    QTimeEdit& timePicker(Side side) const;

    // --- f_scale.cpp: scale, limits, mean, zoom ---
    void scaleAutomatic();
    void scaleManual();
    void scaleEdited(bool maximum);
    void scaleLeft(bool maximum);
    /// The number of a limit box; a NaN when it holds none, which the validity test turns into INVALID_VALUE.
    static double limitOf(const QLineEdit& box);
    void limitsToggled();
    void limitEdited(int number);
    void meanToggled();
    void zoomBy(int steps);

    // --- f_kinds.cpp: the kinds of diagram ---
    void buildKindMenu();
    void showKinds();
    void chooseKind(std::int32_t kind);
    void setKind(std::int32_t kind);
    void setAutomaticRange();

    // --- f_layout.cpp ---
    void Form_Resize();

    // --- f_print.cpp: printing ---
    bool printerReady();
    void printView();
    void printNow();
    void setUpPrinterAndPrint();
    void showBatchPrint();
    void openBatchPrint();
    void printList();

    // --- f_project.cpp: opening projects ---
    void chooseConfFile();
    void chooseProject();
    void adoptStation(StationConfig station);
    [[nodiscard]] std::string projectFolder() const;

    // --- f_correction.cpp ---
    void correct(CorrectionMode mode);
    void openCorrection(CorrectionMode mode);

    void viewChosen();
    void channelChosen();
    void channelClicked(QListWidgetItem* item);
    void setCaption();

    Environment environment_;
    StationConfig station_;
    DataReader reader_;
    Loader loader_;
    PrintJob printJob_;
    bool pressLoaded_ = false;      // the press of the mouse has chosen another channel
    std::int32_t channelShown_ = 0; // the channel that came into view last; 0 = none
    int zoom_ = 1;                  // 1 to 25, read by nothing but the two zoom buttons
    double manualMinimum_ = 0;
    double manualMaximum_ = 100;
    Colour keptColour1_ = 0x800000; // set at start, drawn nowhere
    Colour keptColour2_ = WHITE;
    std::string batchFolder_;   // project folder of the batch print
    double lastWindFactor_ = 0; // shown when the correction dialog opens
    double lastDustFactor_ = 0;
    int previousStartTime_ = 0; // minutes; the time pickers' values after their last change handling
    int previousEndTime_ = 0;
    bool isReadOut_ = false;      // somebody has the screen read out
    bool suppressReload_ = false; // while the interval re-rounds the times

    QWidget* client_ = nullptr; // the window's inner area below the menu bar
    QMenu* menDat = nullptr;
    QAction* menOpen = nullptr;
    QAction* menProj = nullptr;
    QAction* menPrint = nullptr;
    QAction* menCPrint = nullptr;
    QAction* menSelP = nullptr;
    QAction* MenEnd = nullptr;
    QMenu* menKor = nullptr;
    QMenu* menKS = nullptr; // context menu of KS
    QAction* menWind = nullptr;
    QAction* menStaub = nullptr;

    PolarSys* KS = nullptr;
    QScrollBar* HScroll = nullptr;
    QTableView* lView = nullptr;
    DataListModel* rows_ = nullptr;
    ColumnScroll* column_ = nullptr; // of the left column
    QListWidget* selChan = nullptr;
    QRadioButton* optView[2] = {};
    DatePicker* DTPicker = nullptr;
    TimePicker* DTPicker1 = nullptr;
    DatePicker* DTPicker2 = nullptr;
    TimePicker* DTPicker3 = nullptr;
    QPushButton* Command1 = nullptr;
    QPushButton* Command2 = nullptr;
    QPushButton* Command3 = nullptr;
    QPushButton* Command4 = nullptr;
    QPushButton* Command5 = nullptr;
    QPushButton* Command6 = nullptr;
    QPushButton* Command7 = nullptr;
    QPushButton* Command8 = nullptr;
    QComboBox* selScroll = nullptr;
    QComboBox* selInterval = nullptr;
    QRadioButton* Option1 = nullptr;
    QRadioButton* Option2 = nullptr;
    QLabel* Label4 = nullptr;
    QLabel* Label5 = nullptr;
    QLabel* Label6 = nullptr;
    QLabel* Label7 = nullptr;
    QLineEdit* Text1 = nullptr;
    QLineEdit* Text2 = nullptr;
    QLineEdit* Text3 = nullptr;
    QLineEdit* Text4 = nullptr;
    QCheckBox* Check1 = nullptr;
    QCheckBox* Check2 = nullptr;
    QLabel* lZoom = nullptr;
    QSlider* Slider1 = nullptr;
    QFrame* Frame2 = nullptr;
    QLabel* Label8 = nullptr;
    QLabel* Label1 = nullptr;
};

} // namespace kelvrum
