// SPDX-License-Identifier: GPL-3.0-or-later
// The real main window on a station made for the test, and helpers to operate it with.
#pragma once

#include "app/f.h"
#include "tests/testing/AnsweredDialogs.h"
#include "tests/testing/Stations.h"
#include "tests/testing/TempFolder.h"
#include "tests/testing/WindowDriver.h"

#include <QDate>
#include <QDateTime>
#include <QObject>
#include <QString>
#include <QTest>
#include <QWidget>
#include <cstdint>
#include <functional>
#include <map>
#include <memory>
#include <string>
#include <vector>

namespace kelvrum::testing {

/// The first day of the generated station; the window's clock is set to it.
inline const QDate TEST_DAY(2020, 6, 18);

/// What a station holds: the ini text, and for each channel its minutes of 2020, from 1 January 00:00 on.
struct MadeStation {
    std::string ini;
    std::map<int, std::vector<double>> minutes;
};

/// Channels 4 (wind speed), 5 (wind direction, paired with 4), 7 (dust, with limits) and 12 (precipitation, a
/// sum) with values on the test day and the day after, some of them missing. The data folder is "Data".
MadeStation madeStation();

/// The same with eight days of dust, 10,000 and upwards, each value once: a list of more than 10,000 rows.
MadeStation longStation();

/// madeStation with two further channels, 1 and 8, which have rows in the batch print.
MadeStation batchStation();

/// Start and end as the pickers show them, "dd.mm.yyyy hh:mm".
struct ShownRange {
    QString from;
    QString to;
};

/// The time of such a text.
QDateTime pickedTime(const QString& text);

/// Counts what is opened; a hook may run whenever a file is read.
struct CountingFiles {
    int opened = 0;
    std::function<void()> onRead;

    [[nodiscard]] FileOpener opener();
};

class WindowFixture {
  public:
    explicit WindowFixture(const MadeStation& station = madeStation());
    /// A window whose program folder is `folder` as it is, started on a day.
    explicit WindowFixture(std::unique_ptr<TempFolder> folder, const QDate& day = TEST_DAY);

    WindowFixture(const WindowFixture&) = delete;
    WindowFixture& operator=(const WindowFixture&) = delete;
    ~WindowFixture();

    [[nodiscard]] WindowDriver driver() const { return WindowDriver(*window); }
    template<typename Control>
    Control& the(const char* name) const {
        return driver().the<Control>(name);
    }
    void click(const char* button) const { driver().click(QString::fromUtf8(button)); }
    void chooseChannel(int row) const { driver().chooseRow("selChan", row); }
    void chooseInterval(int row) const { driver().chooseEntry(QStringLiteral("selInterval"), row); }
    void trigger(const char* action) const { driver().trigger(action); }
    void type(const char* box, const QString& text) const { driver().type(QString::fromUtf8(box), text); }
    void typePicker(const char* picker, const QString& text) const { driver().typePicker(picker, text); }
    /// Brings the window to a range and an interval: dates from code, times as typed by the user. Where only
    /// the dates differ nothing is loaded: call LoadData() then.
    void arrange(const ShownRange& range, int interval) const;
    [[nodiscard]] ShownRange shownRange() const;
    /// The values of the diagram's columns.
    [[nodiscard]] std::vector<double> shownSeries() const;
    /// The number of the list's rows.
    [[nodiscard]] int shownRows() const;
    void inWindowOf(const std::function<void()>& open, const std::function<void(QWidget&)>& act) const {
        WindowDriver::inWindowOf(open, act);
    }

    std::unique_ptr<TempFolder> folder;
    QDate today;        // the clock's date
    int clockAsked = 0; // how often it was asked
    CountingFiles files;
    std::shared_ptr<AnsweredDialogs> dialogs = std::make_shared<AnsweredDialogs>();
    std::unique_ptr<f> window;

  private:
    void start();
    CurrentFolder before_;
};

} // namespace kelvrum::testing
