// SPDX-License-Identifier: GPL-3.0-or-later
// The main window.
#pragma once

#include "app/Environment.h"
#include "app/Loader.h"
#include "app/MainMenu.h"
#include "config/StationConfig.h"
#include "correction/Recalculation.h"
#include "data/DataReader.h"
#include "data/StoredValues.h"
#include "data/ViewHints.h"
#include "diagram/PageNotes.h"
#include "diagram/ReadoutText.h"
#include "diagram/RoseText.h"
#include "drawing/Colour.h"
#include "drawing/PrintJob.h"
#include "util/DateTime.h"
#include "util/MarkedCalendar.h"
#include "util/PeriodWidget.h"

#include <QAccessible>
#include <QMainWindow>
#include <QPointer>
#include <cstdint>
#include <exception>
#include <functional>
#include <map>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

class QFrame;
class QKeyEvent;
class QLabel;

namespace kelvrum {

class ChannelChoice;
class ColumnScroll;
class DateFrame;
class IntervalFrame;
class KindMenu;
class LimitFrame;
class RangeActions;
class ReadoutOverlay;
class ScaleFrame;
class ScrollFrame;
class SecondChannel;
class ViewArea;
class ViewSwitch;
class ZoomFrame;
struct EvaluationText;

/// The start object and only long-lived window: one channel of one station over a time range, as a data list
/// or as a diagram. It owns the StationConfig and its parts, each of which keeps its controls and their
/// rules; the window connects them and decides what follows. Controls bear their given names as object names.
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

    /// Sets the diagram's time axis to the range and draws.
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
    // --- f_parts.cpp: the parts, what connects them, keys of the window and of the diagram ---
    void buildParts();
    void buildFoot();
    void connectMenu();
    void connectParts();
    void buildKeys();
    void finishEdits();
    bool diagramKey(const QKeyEvent& key);

    // --- f_load.cpp: loading ---
    [[nodiscard]] FileOpener openAndAnswer();
    void loadView(const ReadingStep& step);
    bool FillListVarn(const TimeRange& shown, const ReadingStep& step);
    bool readViews(const ReadRequest& request, const ReadingStep& step);
    void showRows(std::span<const DateTime> starts, std::span<const double> values);
    void showNothing();
    void showChannel(std::int32_t channel);
    void describeView();
    void accessibilityActiveChanged(bool active) override;
    [[nodiscard]] DiagramSettings diagramSettings() const;

    // --- f_view.cpp: what follows from a change of range, scale, limits, mean or kind; the layout ---
    void rangeEdited(PeriodWidget::Side side, PeriodWidget::Part part);
    void scrollRange(int count);
    void intervalChosen();
    void viewChosen();
    void scaleChosen();
    void limitsToggled();
    void chooseKind(std::int32_t kind);
    void setKind(std::int32_t kind);
    void setAutomaticRange();
    void showKindMenu(const QPoint& place);
    void Form_Resize();

    // --- f_reading.cpp: readout and chosen ranges ---
    void buildReading();
    void showRange(const TimeRange& range);
    void nameSeries();
    void jumpTo(StoredEnd end);
    /// Records what is known about the view that has been loaded, and looks up the rest later.
    void noteView();
    void lookUpHint();
    void wantMarks(MarkedCalendar* calendar, int year, int month);
    void markMonth();
    void addCopies();
    void copyPicture();
    void copyValues();
    [[nodiscard]] std::string diagramText() const;
    /// How the values of a channel are named.
    [[nodiscard]] ReadoutSeries seriesOf(std::int32_t channel) const;
    void showHint();
    /// Writes notes beside a rose: what it shows.
    void showRose();
    /// The words for a rose of this range.
    [[nodiscard]] RoseText roseShown(const TimeRange& range, std::int64_t intervals,
                                     std::int64_t calms) const;
    /// Whether the window is visible, loads nothing and has had no request since number `requests`.
    [[nodiscard]] bool isNewest(unsigned requests) const;

    // --- f_second.cpp: the second channel ---
    void addSecond();
    [[nodiscard]] bool takesSecond() const;
    /// The second channel of the view that is chosen now; 0 = none.
    [[nodiscard]] std::int32_t secondShown() const;
    [[nodiscard]] std::optional<ReadoutSeries> secondSeries() const;
    [[nodiscard]] std::string summary() const;

    // --- f_print.cpp: printing ---
    // `window` is the parent of dialogs and messages.
    bool printerReady(QWidget& window);
    void printAs(const std::string& name, QWidget& window, const std::function<void()>& pages);
    void printView();
    void printNow();
    void setUpPrinterAndPrint();
    void showBatchPrint();
    void openBatchPrint();
    void printDiagram();
    void printList();
    bool chooseFile(QWidget& window);
    void say(QWidget& window, const std::exception& error);
    [[nodiscard]] std::string nameOfView() const;
    [[nodiscard]] std::string printingDate() const;
    [[nodiscard]] std::string shownTime(DateTime t) const;
    [[nodiscard]] std::string shownRange(const TimeRange& range) const;
    [[nodiscard]] PageNotes pageNotes() const;

    // --- f_evaluation.cpp ---
    void buildEvaluation();
    void openEvaluation();
    void printEvaluation(const EvaluationText& text, QWidget& window);

    // --- f_project.cpp: opening projects ---
    void chooseConfFile();
    void chooseProject();
    void adoptStation(StationConfig station);
    [[nodiscard]] std::string projectFolder() const;
    void setCaption();

    // --- f_correction.cpp ---
    void correct(CorrectionMode mode);
    void openCorrection(CorrectionMode mode);

    Environment environment_;
    StationConfig station_;
    DataReader reader_;
    Loader loader_;
    PrintJob printJob_;
    std::int32_t channelShown_ = 0;              // the channel that came into view last; 0 = none
    std::map<std::int32_t, std::int32_t> kinds_; // chosen for a channel, while the project is open
    Colour keptColour1_ = 0x800000;              // set at start, drawn nowhere
    Colour keptColour2_ = WHITE;
    std::string batchFolder_;   // of the batch print; set by readConf alone
    double lastWindFactor_ = 0; // shown when the correction dialog opens
    double lastDustFactor_ = 0;
    bool hasScreenReader_ = false; // a screen reader is active

    MainMenu menu_;
    QWidget* client_; // the window's inner area below the menu bar
    ViewArea* view_ = nullptr;
    KindMenu* menKS = nullptr;
    ReadoutOverlay* overlay_ = nullptr;
    RangeActions* ranges_ = nullptr;
    SecondChannel* second_ = nullptr;
    ViewFacts facts_;         // of the view that was loaded last
    bool isLookedUp_ = false; // the facts are complete

    /// The month that a calendar shows and waits for the marks of.
    struct WantedMonth {
        QPointer<MarkedCalendar> calendar;
        int year = 0;
        int month = 0;
        unsigned number = 0; // counts the months that were opened
    };
    WantedMonth wantedMonth_;
    ChannelChoice* selChan = nullptr;
    ViewSwitch* optView = nullptr;
    DateFrame* date_ = nullptr;
    ScrollFrame* scroll_ = nullptr;
    IntervalFrame* interval_ = nullptr;
    ScaleFrame* scale_ = nullptr;
    LimitFrame* limits_ = nullptr;
    ZoomFrame* zoom_ = nullptr;
    ColumnScroll* column_ = nullptr;
    QFrame* Frame2 = nullptr; // the strip at the foot of the left column
    QLabel* Label8 = nullptr; // "Lade Daten ..."
    QLabel* Label1 = nullptr;
};

} // namespace kelvrum
