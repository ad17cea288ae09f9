// SPDX-License-Identifier: GPL-3.0-or-later
// The calendars of the date pickers mark the days with data.
#include "tests/app/DiagramHand.h"
#include "util/MarkedCalendar.h"
#include "util/Pickers.h"

#include <QDateEdit>
#include <QTableView>
#include <QTest>
#include <QTextCharFormat>
#include <string>
#include <utility>
#include <vector>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr int RAIN_ROW = 3; // of the channel list

/// Folds the calendar of a picker out by a click on its arrow.
MarkedCalendar& openCalendar(const WindowFixture& fixture, const char* name) {
    auto& picker = fixture.the<DatePicker>(name);
    QTest::mouseClick(&picker, Qt::LeftButton, {}, QPoint(picker.width() - 6, picker.height() / 2));
    auto* calendar = picker.findChild<MarkedCalendar*>();
    if (calendar == nullptr) {
        qFatal("no calendar");
    }
    return *calendar;
}

QString toolTip(const MarkedCalendar& calendar, const QDate& day) {
    return calendar.dateTextFormat(day).toolTip();
}

} // namespace

class f_calendar_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void daysOfTheMonthAreMarked() {
        const WindowFixture fixture; // 120 minutes of 18 June are missing, none of 19 June
        const int drawings = fixture.the<PolarSys>("KS").drawings();
        for (const char* picker : {"DTPicker", "DTPicker2"}) {
            MarkedCalendar& calendar = openCalendar(fixture, picker);
            QTRY_COMPARE(calendar.markOf(QDate(2020, 6, 18)), DayMark::half);
            QCOMPARE(calendar.markOf(QDate(2020, 6, 19)), DayMark::full);
            QCOMPARE(calendar.markOf(QDate(2020, 6, 17)), DayMark::empty);
            QCOMPARE(calendar.markOf(QDate(2020, 6, 30)), DayMark::empty); // after the file's end
            QCOMPARE(calendar.markOf(QDate(2020, 7, 1)), DayMark::none);   // a neighbouring month
            QCOMPARE(calendar.markOf(QDate(2020, 5, 31)), DayMark::none);
            QCOMPARE(toolTip(calendar, QDate(2020, 6, 18)),
                     QStringLiteral("1320 von 1440 Minuten vorhanden"));
            QCOMPARE(toolTip(calendar, QDate(2020, 6, 17)), QStringLiteral("Keine Werte"));
            QVERIFY(!calendar.dateTextFormat(QDate(2020, 6, 21)).hasProperty(QTextFormat::ForegroundBrush));
            calendar.parentWidget()->close();
        }
        QCOMPARE(fixture.the<PolarSys>("KS").drawings(), drawings); // nothing was loaded
    }

    void anotherMonthIsMarkedAnew() {
        const WindowFixture fixture;
        MarkedCalendar& calendar = openCalendar(fixture, "DTPicker");
        QTRY_COMPARE(calendar.markOf(QDate(2020, 6, 19)), DayMark::full);
        calendar.showNextMonth();
        QTRY_COMPARE(calendar.markOf(QDate(2020, 7, 1)), DayMark::empty);
        QCOMPARE(calendar.markOf(QDate(2020, 6, 19)), DayMark::none);
        calendar.showPreviousMonth();
        QTRY_COMPARE(calendar.markOf(QDate(2020, 6, 19)), DayMark::full);
        calendar.parentWidget()->close();
    }

    void drySummedDaysAreNotCalledEmpty() {
        const WindowFixture fixture;
        fixture.chooseChannel(RAIN_ROW);
        MarkedCalendar& calendar = openCalendar(fixture, "DTPicker");
        QTRY_COMPARE(calendar.markOf(QDate(2020, 6, 18)), DayMark::full);
        QCOMPARE(calendar.markOf(QDate(2020, 6, 17)), DayMark::none);
        QCOMPARE(toolTip(calendar, QDate(2020, 6, 17)), QString());
        QCOMPARE(toolTip(calendar, QDate(2020, 6, 18)), QStringLiteral("180 Minuten mit Wert"));
        calendar.parentWidget()->close();
    }

    /// Keys fold the calendar out, walk through it and read what a day has, without a change before Return.
    void keysReadTheDays() {
        const WindowFixture fixture;
        auto& picker = fixture.the<DatePicker>("DTPicker");
        const auto& KS = fixture.the<PolarSys>("KS");
        for (const auto& [key, modifiers] :
             {std::pair(Qt::Key_F4, Qt::KeyboardModifiers()),
              std::pair(Qt::Key_Down, Qt::KeyboardModifiers(Qt::AltModifier))}) {
            picker.setFocus(Qt::TabFocusReason);
            const QDate before = picker.date();
            QTest::keyClick(&picker, key, modifiers);
            auto* calendar = picker.findChild<MarkedCalendar*>();
            QVERIFY(calendar != nullptr && calendar->isVisible());
            QTRY_COMPARE(calendar->accessibleDescription(),
                         QStringLiteral("1320 von 1440 Minuten vorhanden"));
            QWidget* days = calendar->findChild<QTableView*>();
            QVERIFY(days != nullptr);
            QTest::keyClick(days, Qt::Key_Right);
            QCOMPARE(calendar->accessibleDescription(), QStringLiteral("1440 von 1440 Minuten vorhanden"));
            QTest::keyClick(days, Qt::Key_Right);
            QCOMPARE(calendar->accessibleDescription(), QStringLiteral("Keine Werte"));
            const int drawings = KS.drawings();
            QTest::keyClick(days, Qt::Key_Escape);
            QVERIFY(!calendar->isVisible());
            QCOMPARE(picker.date(), before);
            QCOMPARE(KS.drawings(), drawings);
        }
    }

    /// Of day files, whatever year they are of.
    void daysOfDayFiles() {
        const WindowFixture fixture;
        const std::vector<std::string> names = {"Luft", "-", "Boden"};
        const std::string conf = fixture.folder->write("Tag/VARNIX.CFG", varnixFile("Station", names, false));
        std::string day;
        for (int minute = 0; minute < 1440; ++minute) {
            day += dayRecord(2020, 6, 18, minute, std::vector<float>{1, minute < 700 ? 2.0F : 0.0F});
        }
        fixture.folder->write("Tag/20200618.KMH", day);
        fixture.window->readConf(conf);
        fixture.window->LoadData();
        MarkedCalendar& calendar = openCalendar(fixture, "DTPicker2");
        QTRY_COMPARE(calendar.markOf(QDate(2020, 6, 18)), DayMark::full);
        QCOMPARE(calendar.markOf(QDate(2020, 6, 19)), DayMark::empty);
        calendar.parentWidget()->close();
        fixture.chooseChannel(1);
        openCalendar(fixture, "DTPicker2");
        QTRY_COMPARE(calendar.markOf(QDate(2020, 6, 18)), DayMark::half);
        QCOMPARE(toolTip(calendar, QDate(2020, 6, 18)), QStringLiteral("700 von 1440 Minuten vorhanden"));
        calendar.parentWidget()->close();
    }

    /// A month that is opened while another one is read wins.
    void theNewestMonthWins() {
        WindowFixture fixture;
        MarkedCalendar& calendar = openCalendar(fixture, "DTPicker");
        bool turned = false;
        fixture.files.onRead = [&] {
            if (!turned) {
                turned = true;
                calendar.showNextMonth();
            }
        };
        QTRY_COMPARE(calendar.markOf(QDate(2020, 7, 1)), DayMark::empty);
        QVERIFY(turned);
        fixture.files.onRead = {};
        QCOMPARE(calendar.markOf(QDate(2020, 6, 19)), DayMark::none);
        calendar.parentWidget()->close();
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_calendar_test)
#include "f_calendar_test.moc"
