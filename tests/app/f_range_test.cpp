// SPDX-License-Identifier: GPL-3.0-or-later
// The time range, operated with keys and clicks: pickers, buttons, interval. Every row tells the range
// before, what the user does, the range after and how many loads that makes.
#include "diagram/PolarSys.h"
#include "tests/app/WindowFixture.h"
#include "tests/testing/ProcessTimeZone.h"

#include <QComboBox>
#include <QDateEdit>
#include <QRegularExpression>
#include <QScrollBar>
#include <QSlider>
#include <QTest>
#include <QTimeEdit>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

enum Interval { MINUTE, MINUTES_5, MINUTES_10, MINUTES_15, HOUR, DAY };
enum Unit { MINUTES, HOURS, DAYS, MONTHS };

/// One channel, whose files of some years hold an hour each: every load opens one file.
std::unique_ptr<TempFolder> shortYears() {
    auto folder = std::make_unique<TempFolder>();
    folder->write("QEL.ini", "PROJEKTNAME=Nord\nDATAFOLDER=Data\nCHAN04|Wind|m/s|0|40||0|1|2|1|0|0|WG\n");
    for (const char* year : {"2018", "2019", "2020", "2021"}) {
        folder->write(std::string("Data/Kanal04_") + year + ".chn", channelFile(std::vector<double>(60, 7)));
    }
    return folder;
}

DateTime serial(const QDateTime& t) {
    return static_cast<double>(QDate(1899, 12, 30).daysTo(t.date())) +
           t.time().msecsSinceStartOfDay() / 864e5;
}

/// What a user does: "Command4" a click, "DTPicker=20.06.2020" typed and finished with Enter,
/// "DTPicker~20.06.2020" with Tab, "DTPicker1 up" and "DTPicker1 down" a step of the day or the minute,
/// "DTPicker1 hour up" of the hour.
void act(const WindowFixture& fixture, const QString& action) {
    if (action.startsWith(QLatin1String("Command"))) {
        fixture.click(qPrintable(action));
        return;
    }
    const auto at = action.indexOf(QRegularExpression(QStringLiteral("[=~ ]")));
    auto& picker = fixture.the<QDateTimeEdit>(qPrintable(action.left(at)));
    if (action[at] != QLatin1Char(' ')) {
        fixture.typePicker(qPrintable(action.left(at)), action.mid(at + 1));
        QTest::keyClick(&picker, action[at] == QLatin1Char('=') ? Qt::Key_Return : Qt::Key_Tab);
        return;
    }
    const bool first = qobject_cast<QDateEdit*>(&picker) != nullptr || action.contains(QLatin1String("hour"));
    QTest::keyClick(&picker, first ? Qt::Key_Home : Qt::Key_End);
    QTest::keyClick(&picker, action.endsWith(QLatin1String("up")) ? Qt::Key_Up : Qt::Key_Down);
}

void columns() {
    QTest::addColumn<QString>("from");
    QTest::addColumn<QString>("to");
    QTest::addColumn<int>("choice"); // interval or scroll unit
    QTest::addColumn<QString>("action");
    QTest::addColumn<QString>("fromAfter");
    QTest::addColumn<QString>("toAfter");
}

void row(const char* name, const char* from, const char* to, int choice, const char* action,
         const char* fromAfter, const char* toAfter) {
    QTest::newRow(name) << QString::fromUtf8(from) << QString::fromUtf8(to) << choice
                        << QString::fromUtf8(action) << QString::fromUtf8(fromAfter)
                        << QString::fromUtf8(toAfter);
}

} // namespace

class f_range_test : public QObject {
    Q_OBJECT

    /// The range and the diagram's time axis, which is always the same.
    static void compare(const WindowFixture& fixture, const QString& from, const QString& to) {
        QCOMPARE(fixture.shownRange().from, from);
        QCOMPARE(fixture.shownRange().to, to);
        QCOMPARE(fixture.the<PolarSys>("KS").XLow(), serial(pickedTime(from)));
        QCOMPARE(fixture.the<PolarSys>("KS").XHigh(), serial(pickedTime(to)));
    }

    /// A row: one action, one load.
    static void actOnce(WindowFixture& fixture) {
        QFETCH(QString, action);
        QFETCH(QString, fromAfter);
        QFETCH(QString, toAfter);
        fixture.files.opened = 0;
        act(fixture, action);
        compare(fixture, fromAfter, toAfter);
        QCOMPARE(fixture.files.opened, 1);
    }

  private Q_SLOTS:
    void pickers_data() {
        columns();
        // Dates: a crossed range pulls the other side.
        row("start date", "18.06.2020 10:00", "19.06.2020 12:00", MINUTE, "DTPicker=17.06.2020",
            "17.06.2020 10:00", "19.06.2020 12:00");
        row("start date, Tab", "18.06.2020 10:00", "19.06.2020 12:00", MINUTE, "DTPicker~17.06.2020",
            "17.06.2020 10:00", "19.06.2020 12:00");
        row("start date crosses", "18.06.2020 10:00", "19.06.2020 09:00", MINUTE, "DTPicker=19.06.2020",
            "19.06.2020 10:00", "19.06.2020 10:00");
        row("start date meets the end", "18.06.2020 10:00", "19.06.2020 10:00", MINUTE, "DTPicker=19.06.2020",
            "19.06.2020 10:00", "19.06.2020 10:00");
        row("start date far", "18.06.2020 10:00", "19.06.2020 09:00", MINUTE, "DTPicker=29.02.2020",
            "29.02.2020 10:00", "19.06.2020 09:00");
        row("start date up", "18.06.2020 10:00", "19.06.2020 09:00", MINUTE, "DTPicker up",
            "19.06.2020 10:00", "19.06.2020 10:00");
        row("start date down", "18.06.2020 10:00", "19.06.2020 09:00", MINUTE, "DTPicker down",
            "17.06.2020 10:00", "19.06.2020 09:00");
        row("end date before the start", "10.03.2020 06:00", "12.03.2020 05:00", MINUTE,
            "DTPicker2=09.03.2020", "09.03.2020 05:00", "09.03.2020 05:00");
        row("end date, Tab", "10.03.2020 06:00", "12.03.2020 05:00", MINUTE, "DTPicker2~10.03.2020",
            "10.03.2020 05:00", "10.03.2020 05:00");
        row("end date up", "10.03.2020 06:00", "12.03.2020 05:00", MINUTE, "DTPicker2 up", "10.03.2020 06:00",
            "13.03.2020 05:00");
        row("end date down", "10.03.2020 06:00", "11.03.2020 05:00", MINUTE, "DTPicker2 down",
            "10.03.2020 05:00", "10.03.2020 05:00");
        // Times: snapped first, then the other side follows.
        row("start time", "18.06.2020 10:00", "18.06.2020 12:00", MINUTE, "DTPicker1=11:07",
            "18.06.2020 11:07", "18.06.2020 12:00");
        row("start time, Tab", "18.06.2020 10:00", "18.06.2020 12:00", MINUTE, "DTPicker1~12:00",
            "18.06.2020 12:00", "18.06.2020 12:00");
        row("start time crosses", "18.06.2020 10:00", "18.06.2020 12:00", MINUTES_15, "DTPicker1=12:01",
            "18.06.2020 12:15", "18.06.2020 12:15");
        row("start time hour", "18.06.2020 10:00", "18.06.2020 10:30", MINUTE, "DTPicker1 hour up",
            "18.06.2020 11:00", "18.06.2020 11:00");
        row("end time crosses", "18.06.2020 10:00", "18.06.2020 12:00", MINUTES_15, "DTPicker3=09:59",
            "18.06.2020 09:45", "18.06.2020 09:45");
        row("end time crosses by snapping", "18.06.2020 10:00", "18.06.2020 12:00", HOUR, "DTPicker3=09:01",
            "18.06.2020 09:00", "18.06.2020 09:00");
        row("end time hour", "18.06.2020 10:00", "18.06.2020 10:30", MINUTE, "DTPicker3 hour down",
            "18.06.2020 09:30", "18.06.2020 09:30");
    }
    void pickers() {
        WindowFixture fixture(shortYears());
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(int, choice);
        fixture.arrange({from, to}, choice);
        compare(fixture, from, to);
        actOnce(fixture);
    }

    void snapping_data() {
        QTest::addColumn<QString>("picker");
        QTest::addColumn<int>("interval");
        QTest::addColumn<QString>("before");
        QTest::addColumn<QString>("action");
        QTest::addColumn<QString>("after");
        struct Row {
            int interval;
            const char *before, *action, *after;
        };
        constexpr Row ROWS[] = {
            {MINUTE, "10:00", " up", "10:01"},        {MINUTE, "10:00", " down", "09:59"},
            {MINUTE, "10:00", "=23:59", "23:59"},     {MINUTES_5, "10:00", " up", "10:05"},
            {MINUTES_5, "10:00", " down", "09:55"},   {MINUTES_5, "10:00", "=10:06", "10:10"},
            {MINUTES_5, "10:00", "=10:05", "10:05"},  {MINUTES_10, "10:00", " up", "10:10"},
            {MINUTES_10, "10:00", " down", "09:50"},  {MINUTES_10, "10:00", "=10:50", "10:50"},
            {MINUTES_10, "10:00", "=23:51", "00:00"}, {MINUTES_15, "10:00", " up", "10:15"},
            {MINUTES_15, "10:00", " down", "09:45"},  {MINUTES_15, "10:00", "=10:45", "10:45"},
            {MINUTES_15, "10:00", "=09:45", "09:45"}, {MINUTES_15, "10:00", "=23:46", "00:00"},
            {MINUTES_15, "10:00", "=00:14", "00:00"}, {HOUR, "10:00", " up", "11:00"},
            {HOUR, "10:00", " down", "09:00"},        {HOUR, "10:00", "=20:00", "20:00"},
            {HOUR, "10:00", "=23:01", "00:00"},       {HOUR, "10:00", "=09:59", "09:00"},
            {DAY, "00:00", " up", "00:00"},           {DAY, "00:00", "=23:59", "00:00"},
            {DAY, "00:00", "=12:00", "00:00"},
        };
        for (const char* picker : {"DTPicker1", "DTPicker3"}) {
            for (const Row& r : ROWS) {
                QTest::addRow("%s at %d: %s%s", picker, r.interval, r.before, r.action)
                    << QString::fromUtf8(picker) << r.interval << QString::fromUtf8(r.before)
                    << QString::fromUtf8(picker) + QString::fromUtf8(r.action) << QString::fromUtf8(r.after);
            }
        }
    }
    /// The dates stay, whatever the times do.
    void snapping() {
        QFETCH(QString, picker);
        QFETCH(int, interval);
        QFETCH(QString, before);
        QFETCH(QString, action);
        QFETCH(QString, after);
        WindowFixture fixture(shortYears());
        fixture.arrange({QStringLiteral("17.06.2020 ") + before, QStringLiteral("19.06.2020 ") + before},
                        interval);
        fixture.files.opened = 0;
        act(fixture, action);
        const bool start = picker == QLatin1String("DTPicker1");
        compare(fixture, QStringLiteral("17.06.2020 ") + (start ? after : before),
                QStringLiteral("19.06.2020 ") + (start ? before : after));
        QCOMPARE(fixture.files.opened, 1);
    }

    void dayButtons_data() {
        columns();
        row("Command3", "10.03.2020 00:00", "10.03.2020 06:00", MINUTE, "Command3", "09.03.2020 00:00",
            "10.03.2020 06:00");
        row("Command3 over a year's end", "01.01.2020 10:00", "10.03.2020 06:00", MINUTE, "Command3",
            "31.12.2019 10:00", "10.03.2020 06:00");
        row("Command4 crosses", "10.03.2020 00:00", "10.03.2020 06:00", MINUTE, "Command4",
            "11.03.2020 00:00", "11.03.2020 00:00");
        row("Command4 within", "10.03.2020 00:00", "12.03.2020 06:00", MINUTE, "Command4", "11.03.2020 00:00",
            "12.03.2020 06:00");
        row("Command4 meets the end", "28.02.2020 06:00", "29.02.2020 06:00", MINUTE, "Command4",
            "29.02.2020 06:00", "29.02.2020 06:00");
        row("Command6 crosses", "10.03.2020 00:00", "10.03.2020 06:00", MINUTE, "Command6",
            "09.03.2020 06:00", "09.03.2020 06:00");
        row("Command6 within", "10.03.2020 00:00", "12.03.2020 06:00", MINUTE, "Command6", "10.03.2020 00:00",
            "11.03.2020 06:00");
        row("Command5", "10.03.2020 00:00", "31.12.2020 06:00", MINUTE, "Command5", "10.03.2020 00:00",
            "01.01.2021 06:00");
    }
    void dayButtons() { pickers(); }

    void scrolling_data() {
        columns();
        row("minute back over midnight", "18.06.2020 00:00", "19.06.2020 00:00", MINUTES, "Command7",
            "17.06.2020 23:59", "18.06.2020 23:59");
        row("minute on over midnight", "17.06.2020 23:59", "18.06.2020 10:30", MINUTES, "Command8",
            "18.06.2020 00:00", "18.06.2020 10:31");
        row("hour back over midnight", "18.06.2020 00:30", "18.06.2020 12:00", HOURS, "Command7",
            "17.06.2020 23:30", "18.06.2020 11:00");
        row("hour on over midnight", "17.06.2020 23:30", "18.06.2020 23:00", HOURS, "Command8",
            "18.06.2020 00:30", "19.06.2020 00:00");
        row("day back over a year's end", "01.01.2020 10:07", "02.01.2020 10:08", DAYS, "Command7",
            "31.12.2019 10:07", "01.01.2020 10:08");
        row("day on over a year's end", "31.12.2020 10:07", "31.12.2020 10:08", DAYS, "Command8",
            "01.01.2021 10:07", "01.01.2021 10:08");
        row("day on in February", "28.02.2020 00:00", "29.02.2020 00:00", DAYS, "Command8",
            "29.02.2020 00:00", "01.03.2020 00:00");
        row("month on, clipped", "31.01.2020 10:07", "31.01.2020 12:00", MONTHS, "Command8",
            "29.02.2020 10:07", "29.02.2020 12:00");
        row("month on, no leap year", "31.01.2019 00:00", "01.02.2019 00:00", MONTHS, "Command8",
            "28.02.2019 00:00", "01.03.2019 00:00");
        row("month back, clipped", "31.03.2020 00:00", "31.05.2020 00:00", MONTHS, "Command7",
            "29.02.2020 00:00", "30.04.2020 00:00");
        row("month back over a year's end", "31.01.2020 23:59", "29.02.2020 00:00", MONTHS, "Command7",
            "31.12.2019 23:59", "29.01.2020 00:00");
        row("month on over a year's end", "15.12.2020 01:00", "31.12.2020 23:59", MONTHS, "Command8",
            "15.01.2021 01:00", "31.01.2021 23:59");
    }
    void scrolling() {
        WindowFixture fixture(shortYears());
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(int, choice);
        fixture.arrange({from, to}, MINUTE);
        auto& unit = fixture.the<QComboBox>("selScroll");
        fixture.files.opened = 0;
        while (unit.currentIndex() != choice) {
            QTest::keyClick(&unit, unit.currentIndex() < choice ? Qt::Key_Down : Qt::Key_Up);
        }
        QCOMPARE(fixture.files.opened, 0); // the unit alone loads nothing
        actOnce(fixture);
    }

    /// The times before a change handling are those after the last one, not those that scrolling shows.
    void previousTimesChangeWithTheirHandlingAlone() {
        WindowFixture fixture(shortYears());
        fixture.arrange({QStringLiteral("18.06.2020 10:00"), QStringLiteral("18.06.2020 20:00")}, MINUTES_15);
        QTest::keyClick(&fixture.the<QComboBox>("selScroll"), Qt::Key_Up); // hours
        fixture.click("Command8");
        compare(fixture, QStringLiteral("18.06.2020 11:00"), QStringLiteral("18.06.2020 21:00"));
        act(fixture, QStringLiteral("DTPicker1=10:50")); // later than 10:00
        compare(fixture, QStringLiteral("18.06.2020 11:00"), QStringLiteral("18.06.2020 21:00"));
        act(fixture, QStringLiteral("DTPicker1=10:50")); // now earlier than 11:00
        compare(fixture, QStringLiteral("18.06.2020 10:45"), QStringLiteral("18.06.2020 21:00"));
    }

    void intervals_data() {
        QTest::addColumn<int>("interval");
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::newRow("5") << int(MINUTES_5) << QStringLiteral("10:05") << QStringLiteral("22:55");
        QTest::newRow("10") << int(MINUTES_10) << QStringLiteral("10:00") << QStringLiteral("22:50");
        QTest::newRow("15") << int(MINUTES_15) << QStringLiteral("10:00") << QStringLiteral("22:45");
        QTest::newRow("hour") << int(HOUR) << QStringLiteral("10:00") << QStringLiteral("22:00");
        QTest::newRow("day") << int(DAY) << QStringLiteral("00:00") << QStringLiteral("00:00");
    }
    /// Both times go down to the new grid, and the view loads once, not three times.
    void intervals() {
        QFETCH(int, interval);
        QFETCH(QString, from);
        QFETCH(QString, to);
        for (const bool scrolled : {false, true}) {
            WindowFixture fixture(shortYears());
            // Scrolled times are later than those of the last change handling, and go down all the same.
            fixture.arrange(
                {scrolled ? QStringLiteral("17.06.2020 09:07") : QStringLiteral("17.06.2020 10:07"),
                 scrolled ? QStringLiteral("18.06.2020 21:59") : QStringLiteral("18.06.2020 22:59")},
                MINUTE);
            if (scrolled) {
                QTest::keyClick(&fixture.the<QComboBox>("selScroll"), Qt::Key_Up);
                fixture.click("Command8");
            }
            fixture.the<QComboBox>("selInterval")
                .setCurrentIndex(interval == DAY ? interval - 1 : interval + 1);
            fixture.files.opened = 0;
            fixture.chooseInterval(interval); // one step of the keyboard
            compare(fixture, QStringLiteral("17.06.2020 ") + from, QStringLiteral("18.06.2020 ") + to);
            QCOMPARE(fixture.files.opened, 1);
        }
    }

    /// A change is a finished edit: digits alone load nothing, and leaving an unchanged picker neither.
    void typingLoadsOnce_data() {
        QTest::addColumn<QString>("picker");
        QTest::addColumn<QString>("text");
        QTest::addColumn<int>("end");
        for (const Qt::Key end : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab}) {
            QTest::addRow("start date, %x", end)
                << QStringLiteral("DTPicker") << QStringLiteral("16.05.2019") << int(end);
            QTest::addRow("start time, %x", end)
                << QStringLiteral("DTPicker1") << QStringLiteral("01:23") << int(end);
            QTest::addRow("end date, %x", end)
                << QStringLiteral("DTPicker2") << QStringLiteral("16.05.2021") << int(end);
            QTest::addRow("end time, %x", end)
                << QStringLiteral("DTPicker3") << QStringLiteral("01:23") << int(end);
        }
    }
    void typingLoadsOnce() {
        QFETCH(QString, picker);
        QFETCH(QString, text);
        QFETCH(int, end);
        WindowFixture fixture(shortYears());
        auto& field = fixture.the<QDateTimeEdit>(qPrintable(picker));
        fixture.files.opened = 0;
        fixture.typePicker(qPrintable(picker), text);
        QCOMPARE(field.text(), text);
        QCOMPARE(fixture.files.opened, 0);
        QTest::keyClick(&field, Qt::Key(end));
        QCOMPARE(fixture.files.opened, 1);
        fixture.the<QWidget>("selChan").setFocus();
        QCOMPARE(fixture.files.opened, 1);
    }

    /// Ctrl+A, and a new date or time over all of it.
    void typedOverTheWholeText_data() {
        QTest::addColumn<QString>("picker");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("shown");
        const auto add = [](const char* picker, const char* typed, const char* shown) {
            QTest::newRow(typed) << QString::fromUtf8(picker) << QString::fromUtf8(typed)
                                 << QString::fromUtf8(shown);
        };
        add("DTPicker", "16.05.2019", "16.05.2019");
        add("DTPicker", "16052019", "16.05.2019");
        add("DTPicker2", "03.12.2020", "03.12.2020");
        add("DTPicker2", "3.9.2020", "03.09.2020");
        add("DTPicker1", "01:23", "01:23");
        add("DTPicker3", "0123", "01:23");
    }
    void typedOverTheWholeText() {
        QFETCH(QString, picker);
        QFETCH(QString, typed);
        WindowFixture fixture(shortYears());
        auto& field = fixture.the<QDateTimeEdit>(qPrintable(picker));
        field.setFocus(Qt::MouseFocusReason);
        QTest::keyClick(&field, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClicks(&field, typed);
        QTest::keyClick(&field, Qt::Key_Return);
        QTEST(field.text(), "shown");
    }

    void scrollBarAndSliderDrawOnly() {
        WindowFixture fixture(shortYears());
        const ShownRange before = fixture.shownRange();
        auto& ks = fixture.the<PolarSys>("KS");
        fixture.files.opened = 0;
        auto& bar = fixture.the<QScrollBar>("HScroll");
        auto& slider = fixture.the<QSlider>("Slider1");
        const auto clickBar = [&](int x) {
            QTest::mouseClick(&bar, Qt::LeftButton, {}, {x, bar.height() / 2});
        };
        const std::function<void()> actions[] = {
            [&] { clickBar(bar.width() - 4); },
            [&] { clickBar(bar.width() / 2); },
            [&] { clickBar(4); },
            [&] { QTest::keyClick(&slider, Qt::Key_Right); },
            [&] { QTest::keyClick(&slider, Qt::Key_End); },
            [&] { QTest::keyClick(&slider, Qt::Key_Left); },
        };
        for (const auto& action : actions) {
            ks.setXLow(1); // the range comes back
            ks.setXHigh(2);
            QTest::qWait(1);
            const int drawings = ks.drawings();
            action();
            compare(fixture, before.from, before.to);
            QTest::qWait(1);
            QCOMPARE(ks.drawings(), drawings + 1);
        }
        QCOMPARE(fixture.files.opened, 0);
    }

    /// Loaded like any other; the axis has no length and no curve.
    void emptyRange() {
        WindowFixture fixture(shortYears());
        fixture.arrange({QStringLiteral("01.01.2020 00:10"), QStringLiteral("02.01.2020 00:10")}, MINUTE);
        fixture.files.opened = 0;
        act(fixture, QStringLiteral("DTPicker2=01.01.2020"));
        compare(fixture, QStringLiteral("01.01.2020 00:10"), QStringLiteral("01.01.2020 00:10"));
        QCOMPARE(fixture.files.opened, 1);
        fixture.click("optView(1)");
        fixture.click("optView(0)");
        QCOMPARE(fixture.files.opened, 3);
        QTest::qWait(1);
        QVERIFY(!fixture.the<PolarSys>("KS").picture().isNull());
    }

    /// Only what a user does raises a change handling; a start ends with exactly one load.
    void startAgainLoadsOnce() {
        WindowFixture fixture(shortYears());
        fixture.arrange({QStringLiteral("02.02.2019 10:07"), QStringLiteral("03.02.2019 10:08")}, MINUTES_10);
        fixture.files.opened = 0;
        fixture.window->Form_Load();
        QCOMPARE(fixture.files.opened, 2); // the configuration and the channel
        compare(fixture, QStringLiteral("18.06.2020 00:00"), QStringLiteral("19.06.2020 00:00"));
    }

    /// Stations know no summer time: hours and midnights that a time zone leaves out are there.
    void summerTime_data() {
        QTest::addColumn<QByteArray>("zone");
        QTest::addColumn<QString>("day");
        QTest::newRow("Berlin, begin") << QByteArray("Europe/Berlin") << QStringLiteral("29.03.2020");
        QTest::newRow("Berlin, end") << QByteArray("Europe/Berlin") << QStringLiteral("25.10.2020");
        QTest::newRow("Beirut, no midnight") << QByteArray("Asia/Beirut") << QStringLiteral("29.03.2020");
        QTest::newRow("by rule") << QByteArray("CET-1CEST,M3.5.0,M10.5.0/3") << QStringLiteral("29.03.2020");
    }
    void summerTime() {
        QFETCH(QByteArray, zone);
        QFETCH(QString, day);
        const ProcessTimeZone other(zone);
        WindowFixture fixture(shortYears());
        const QString next =
            pickedTime(day + QStringLiteral(" 00:00")).addDays(1).toString(QStringLiteral("dd.MM.yyyy"));
        act(fixture, QStringLiteral("DTPicker2=") + next);
        act(fixture, QStringLiteral("DTPicker=") + day);
        compare(fixture, day + QStringLiteral(" 00:00"), next + QStringLiteral(" 00:00"));
        act(fixture, QStringLiteral("DTPicker1=02:30"));
        act(fixture, QStringLiteral("DTPicker3=00:30"));
        compare(fixture, day + QStringLiteral(" 02:30"), next + QStringLiteral(" 00:30"));
        QTest::keyClick(&fixture.the<QComboBox>("selScroll"), Qt::Key_Up);
        fixture.click("Command7");
        fixture.click("Command7");
        compare(fixture, day + QStringLiteral(" 00:30"), day + QStringLiteral(" 22:30"));
        fixture.click("Command8");
        fixture.click("Command8");
        compare(fixture, day + QStringLiteral(" 02:30"), next + QStringLiteral(" 00:30"));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_range_test)
#include "f_range_test.moc"
