// SPDX-License-Identifier: GPL-3.0-or-later
// The real batch print dialog on a station made for the test, and helpers to operate it with.
#pragma once

#include "batchprint/fCPrint.h"
#include "diagram/PolarSys.h"
#include "drawing/PrintJob.h"
#include "tests/testing/AnsweredDialogs.h"
#include "tests/testing/TempFolder.h"
#include "tests/testing/WindowDriver.h"

#include <QStringList>
#include <QTest>
#include <functional>
#include <memory>
#include <string>

namespace kelvrum::testing {

/// The station has the channels 1, 6, 2, 12 and 15 of the row slots, with one day of data in each but 15. Its
/// folder is the current one. There is no printer: nothing is ever printed.
class BatchFixture {
  public:
    BatchFixture();
    BatchFixture(const BatchFixture&) = delete;
    BatchFixture& operator=(const BatchFixture&) = delete;
    ~BatchFixture();

    /// Opens the dialog (anew).
    void open();

    [[nodiscard]] WindowDriver driver() const { return WindowDriver(*window); }
    template<typename Control>
    Control& the(const QString& name) const {
        return driver().the<Control>(name);
    }
    template<typename Control>
    Control& the(const char* name, int row) const {
        return the<Control>(nameOf(name, row));
    }
    void click(const QString& button) const { driver().click(button); }
    void click(const char* box, int row) const { driver().click(nameOf(box, row)); }
    void type(const char* field, int row, const QString& text) const {
        driver().type(nameOf(field, row), text);
    }
    void choose(int row, int interval) const { driver().chooseEntry(nameOf("selInterval", row), interval); }
    void typePicker(const char* picker, const QString& text) const { driver().typePicker(picker, text); }
    [[nodiscard]] QString textOf(const char* field, int row) const;
    [[nodiscard]] bool isRed(const char* field, int row) const;

    TempFolder folder;
    CurrentFolder inside;
    StationConfig station;
    TimeRange range; // of the owner; 18 June 2020, 06:30, to 19 June, 18:15
    PolarSys diagram{LocaleTexts{}};
    PrintJob job;
    AnsweredDialogs dialogs;
    QStringList events; // "read 6" and "load", in order
    std::function<ReadStatus(const ReadRequest&, const DiagramSettings&)> onRead; // says how a reading ends
    std::function<void()> onLoad;
    std::unique_ptr<fCPrint> window;

  private:
    /// Object name of a control of a row.
    static QString nameOf(const char* control, int row) {
        return QStringLiteral("%1(%2)").arg(QString::fromUtf8(control)).arg(row);
    }
    ReadStatus read(const ReadRequest& request, const DiagramSettings& settings);
    DataReader reader_;
};

} // namespace kelvrum::testing
