// SPDX-License-Identifier: GPL-3.0-or-later
// The clock and the time zone: what is shown depends on today at the start alone, and on no time zone.
#include "diagram/PolarSys.h"
#include "diagram/SeriesTable.h"
#include "tests/app/WindowFixture.h"
#include "tests/testing/ProcessTimeZone.h"

#include <QAbstractItemModel>
#include <QComboBox>
#include <QMap>
#include <QTableView>
#include <QTest>
#include <array>
#include <ctime>
#include <vector>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

/// The channel file of 2020 or 2021, made once; each minute has a value of its own.
const std::string& dustOf(int year) {
    static std::map<int, std::string> files;
    std::string& bytes = files[year];
    if (bytes.empty()) {
        std::vector<double> minutes(static_cast<std::size_t>(year == 2020 ? 366 : 365) * 1440);
        for (std::size_t m = 0; m < minutes.size(); ++m) {
            minutes[m] = year == 2020 ? 1 + static_cast<double>(m) : -1 - static_cast<double>(m);
        }
        bytes = channelFile(minutes);
    }
    return bytes;
}

/// Dust over the whole of 2020 and 2021.
std::unique_ptr<TempFolder> twoYears() {
    auto folder = std::make_unique<TempFolder>();
    folder->write("QEL.ini", "PROJEKTNAME=Halde\nDATAFOLDER=Data\nCHAN07|Staub|mg|0|500||0|1|2|1|0|0|ST\n");
    for (const int year : {2020, 2021}) {
        folder->write("Data/Kanal07_" + std::to_string(year) + ".chn", dustOf(year));
    }
    return folder;
}

} // namespace

class f_clock_test : public QObject {
    Q_OBJECT

    /// Everything that is seen of the range: pickers, axis, and the first and the last value of both
    /// views.
    static QString shown(const WindowFixture& fixture) {
        const auto [from, to] = fixture.shownRange();
        const auto& ks = fixture.the<PolarSys>("KS");
        QString text = QStringLiteral("%1 - %2, axis %3 - %4, %5 values")
                           .arg(from, to)
                           .arg(ks.XLow(), 0, 'g', 12)
                           .arg(ks.XHigh(), 0, 'g', 12)
                           .arg(ks.DataCount());
        for (const int i : {0, ks.DataCount() - 1}) {
            if (i >= 0 && ks.DataCount() > 0) {
                text +=
                    QStringLiteral(", %1 at %2")
                        .arg(seriesTable().row(SeriesTable::Y1)[static_cast<std::size_t>(i)], 0, 'g', 12)
                        .arg(seriesTable().row(SeriesTable::TIME)[static_cast<std::size_t>(i)], 0, 'g', 12);
            }
        }
        fixture.click("optView(1)");
        const QAbstractItemModel& rows = *fixture.the<QTableView>("lView").model();
        for (const int row : {0, rows.rowCount() - 1}) {
            text += QStringLiteral(", row %1=%2")
                        .arg(rows.index(row, 0).data().toString(), rows.index(row, 1).data().toString());
        }
        fixture.click("optView(0)");
        return text;
    }

    /// What is seen at the start, and on a way over the hours and days around it.
    static QStringList walk(const QDate& day) {
        const WindowFixture fixture(twoYears(), day);
        QStringList seen = {shown(fixture)};
        const auto press = [&](const char* button, int times) {
            for (int i = 0; i < times; ++i) {
                fixture.click(button);
            }
            seen << shown(fixture);
        };
        press("Command8", 1); // a day on
        press("Command7", 2); // two back
        auto& unit = fixture.the<QComboBox>("selScroll");
        QTest::keyClick(&unit, Qt::Key_Up); // hours
        for (int hour = 0; hour < 5; ++hour) {
            press("Command8", 1);
        }
        press("Command8", 23);
        fixture.typePicker("DTPicker1", QStringLiteral("0230"));
        QTest::keyClick(&fixture.the<QWidget>("DTPicker1"), Qt::Key_Return);
        seen << shown(fixture);
        fixture.chooseInterval(4); // hours
        seen << shown(fixture);
        fixture.chooseInterval(5); // days
        seen << shown(fixture);
        QTest::keyClick(&unit, Qt::Key_End); // months
        press("Command8", 1);
        press("Command7", 2);
        return seen;
    }

    QMap<QDate, QStringList> inUtc_;

  private Q_SLOTS:
    void everyZoneShowsWhatUtcShows_data() {
        QTest::addColumn<QDate>("day");
        QTest::addColumn<QByteArray>("zone");
        const std::array days = {
            QDate(2020, 3, 29),  // summer begins in Berlin: there is no 02:30
            QDate(2020, 10, 25), // and ends: 02:30 comes twice
            QDate(2020, 4, 5),   // ends in Auckland
            QDate(2020, 9, 27),  // begins in Auckland
            QDate(2020, 12, 31), QDate(2021, 1, 1), QDate(2020, 2, 29),
        };
        const auto row = [](const QDate& day, const char* zone) {
            QTest::addRow("%s in %s", qPrintable(day.toString(Qt::ISODate)), zone) << day << QByteArray(zone);
        };
        for (const QDate& day : days) {
            row(day, "Europe/Berlin");
            row(day, "Pacific/Auckland");
        }
        row(days[0], "Asia/Beirut");        // this day has no midnight there
        row(days[4], "Pacific/Kiritimati"); // fourteen hours ahead
        row(days[4], "Etc/GMT+12");         // twelve hours behind
    }
    void everyZoneShowsWhatUtcShows() {
        QFETCH(QDate, day);
        QFETCH(QByteArray, zone);
        QStringList& expected = inUtc_[day];
        if (expected.isEmpty()) {
            const ProcessTimeZone utc("UTC");
            expected = walk(day);
        }
        const ProcessTimeZone other(zone);
        const QStringList seen = walk(day);
        QCOMPARE(seen.size(), expected.size());
        for (qsizetype i = 0; i < seen.size(); ++i) {
            QCOMPARE(seen[i], expected[i]);
        }
        QVERIFY(expected[0].contains(QStringLiteral("1440 values")));
    }

    /// The clock goes on, or is set back, over a year's end while the program runs: what is shown stays.
    void theClockMovesOn_data() {
        QTest::addColumn<QDate>("later");
        QTest::newRow("a day") << QDate(2021, 1, 1);
        QTest::newRow("a year back") << QDate(2019, 12, 31);
        QTest::newRow("no date at all") << QDate();
    }
    void theClockMovesOn() {
        QFETCH(QDate, later);
        WindowFixture fixture(twoYears(), QDate(2020, 12, 31));
        const QString before = shown(fixture);
        QCOMPARE(fixture.clockAsked, 1);
        fixture.today = later;
        fixture.window->LoadData();
        QCOMPARE(shown(fixture), before);
        fixture.click("Command8");
        fixture.click("Command7");
        QCOMPARE(shown(fixture), before);
        QCOMPARE(fixture.clockAsked, 1);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_clock_test)
#include "f_clock_test.moc"
