// SPDX-License-Identifier: GPL-3.0-or-later
// The data list of a station with day files: which records, which columns, which texts; and copying rows.
#include "tests/app/WindowFixture.h"

#include <QClipboard>
#include <QDateEdit>
#include <QGuiApplication>
#include <QItemSelectionModel>
#include <QListWidget>
#include <QTableView>
#include <QTest>
#include <QTimeEdit>
#include <limits>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

using Floats = std::vector<float>;

/// The slots of the station: two channels with a gap between them.
const std::vector<std::string> SLOTS = {"Wind", "-", "Staub"};

std::string record(int day, int minute, const Floats& fields) {
    return dayRecord(2020, 6, day, minute, fields);
}

std::unique_ptr<TempFolder> dayStation(bool wide,
                                       const std::vector<std::pair<std::string, std::string>>& files) {
    auto folder = std::make_unique<TempFolder>();
    folder->write("varnix.cfg", varnixFile("Deponie S\xfc"
                                           "d",
                                           SLOTS, wide));
    for (const auto& [name, bytes] : files) {
        folder->write(name, bytes);
    }
    return folder;
}

} // namespace

class f_list_test : public QObject {
    Q_OBJECT

    /// Opens the station of the window's folder and shows the data list.
    static void openList(const WindowFixture& fixture) {
        fixture.dialogs->file = QString::fromStdString(fixture.folder->at("varnix.cfg"));
        fixture.trigger("menOpen");
        fixture.click("optView(1)");
    }

    /// Types the range: times as hh:mm; the end date is the start date and a number of days.
    static void showRange(const WindowFixture& fixture, const QString& from, const QString& to, int days) {
        const auto type = [&](const char* name, const QString& text) {
            fixture.typePicker(name, text);
            QTest::keyClick(&fixture.the<QDateTimeEdit>(name), Qt::Key_Return);
        };
        type("DTPicker2", TEST_DAY.addDays(days).toString(QStringLiteral("dd.MM.yyyy")));
        type("DTPicker3", to);
        type("DTPicker1", from);
    }

    /// All cells, "|" between columns.
    static QStringList rowsOf(const WindowFixture& fixture) {
        const QAbstractItemModel& model = *fixture.the<QTableView>("lView").model();
        QStringList rows;
        for (int row = 0; row < model.rowCount(); ++row) {
            QStringList cells;
            for (int column = 0; column < model.columnCount(); ++column) {
                cells << model.index(row, column).data().toString();
            }
            rows << cells.join(QLatin1Char('|'));
        }
        return rows;
    }

    static QStringList headersOf(const WindowFixture& fixture) {
        const QAbstractItemModel& model = *fixture.the<QTableView>("lView").model();
        QStringList headers;
        for (int column = 0; column < model.columnCount(); ++column) {
            headers << model.headerData(column, Qt::Horizontal).toString();
        }
        return headers;
    }

    static QStringList lines(std::initializer_list<const char*> texts) {
        QStringList list;
        for (const char* text : texts) {
            list << QString::fromUtf8(text);
        }
        return list;
    }

  private Q_SLOTS:
    void narrowAndWide_data() {
        QTest::addColumn<bool>("wide");
        QTest::newRow("narrow") << false;
        QTest::newRow("wide") << true;
    }
    /// One column for each active channel; of a wide field the mean. Every channel is shown, whichever is
    /// chosen, and the interval changes nothing: these are the records themselves.
    void narrowAndWide() {
        QFETCH(bool, wide);
        const auto fields = [&](float a, float b) {
            return wide ? Floats{a, -1, 1, b, -2, 2} : Floats{a, b};
        };
        const WindowFixture fixture(dayStation(
            wide, {{"20200618.KMH", record(18, 0, fields(1.5, 20)) + record(18, 7, fields(-3, 0.25)) +
                                        record(18, 1439, fields(1e6, 40))}}));
        openList(fixture);
        QCOMPARE(headersOf(fixture), lines({"Uhrzeit", "Wind", "Staub"}));
        const QStringList expected =
            lines({"18.06.2020 00:00|1,5|20", "18.06.2020 00:07|-3|0,25", "18.06.2020 23:59|1000000|40"});
        QCOMPARE(rowsOf(fixture), expected);
        fixture.chooseChannel(1);
        QCOMPARE(rowsOf(fixture), expected);
        fixture.chooseInterval(4);
        QCOMPARE(rowsOf(fixture), expected);
    }

    void ranges_data() {
        QTest::addColumn<QString>("from");
        QTest::addColumn<QString>("to");
        QTest::addColumn<int>("days");
        QTest::addColumn<QStringList>("rows"); // the first channel counts through
        const auto row = [](const char* name, const char* from, const char* to, int days,
                            std::initializer_list<const char*> rows) {
            QTest::newRow(name) << QString::fromUtf8(from) << QString::fromUtf8(to) << days << lines(rows);
        };
        row("start and end inclusive", "10:00", "10:20", 0,
            {"18.06.2020 10:00|1|0", "18.06.2020 10:10|2|0", "18.06.2020 10:20|3|0"});
        row("a minute inside", "10:01", "10:19", 0, {"18.06.2020 10:10|2|0"});
        row("start is end", "10:10", "10:10", 0, {"18.06.2020 10:10|2|0"});
        row("between records", "10:11", "10:19", 0, {});
        row("over midnight", "10:20", "00:00", 1,
            {"18.06.2020 10:20|3|0", "18.06.2020 23:59|4|0", "19.06.2020 00:00|5|0"});
        row("the next day too", "23:59", "12:00", 1,
            {"18.06.2020 23:59|4|0", "19.06.2020 00:00|5|0", "19.06.2020 12:00|6|0"});
        row("over a day without a file", "23:59", "23:59", 3,
            {"18.06.2020 23:59|4|0", "19.06.2020 00:00|5|0", "19.06.2020 12:00|6|0", "21.06.2020 01:00|7|0"});
    }
    void ranges() {
        QFETCH(QString, from);
        QFETCH(QString, to);
        QFETCH(int, days);
        QFETCH(QStringList, rows);
        const WindowFixture fixture(
            dayStation(false, {{"20200619.kmh", record(19, 0, {5, 0}) + record(19, 720, {6, 0})},
                               {"20200618.KMH", record(18, 600, {1, 0}) + record(18, 610, {2, 0}) +
                                                    record(18, 620, {3, 0}) + record(18, 1439, {4, 0})},
                               {"20200621.Kmh", record(21, 60, {7, 0})},
                               {"20200617.KMH", record(17, 1439, {0.5, 0})},
                               {"20200618.TXT", record(18, 600, {99, 0})}}));
        openList(fixture);
        showRange(fixture, from, to, days);
        QCOMPARE(rowsOf(fixture), rows);
    }

    /// Rows are in the order of the files; the first two files of a day are exchanged when the first one
    /// begins earlier.
    void twoFilesOfOneDay_data() {
        QTest::addColumn<int>("first");
        QTest::addColumn<int>("second");
        QTest::addColumn<QStringList>("rows");
        QTest::newRow("first earlier")
            << 600 << 700 << lines({"18.06.2020 11:40|2|0", "18.06.2020 10:00|1|0"});
        QTest::newRow("first later") << 700 << 600 << lines({"18.06.2020 11:40|1|0", "18.06.2020 10:00|2|0"});
        QTest::newRow("equal") << 600 << 600 << lines({"18.06.2020 10:00|1|0", "18.06.2020 10:00|2|0"});
        QTest::newRow("second byte counts")
            << 255 << 256 << lines({"18.06.2020 04:16|2|0", "18.06.2020 04:15|1|0"});
    }
    void twoFilesOfOneDay() {
        QFETCH(int, first);
        QFETCH(int, second);
        QFETCH(QStringList, rows);
        const WindowFixture fixture(dayStation(false, {{"20200618a.KMH", record(18, first, {1, 0})},
                                                       {"20200618b.kmh", record(18, second, {2, 0})}}));
        openList(fixture);
        QCOMPARE(rowsOf(fixture), rows);
    }

    /// The list writes whatever number a file holds.
    void numbersAsTheyAre() {
        constexpr float NAN_FLOAT = std::numeric_limits<float>::quiet_NaN();
        constexpr float INFINITE = std::numeric_limits<float>::infinity();
        const WindowFixture fixture(dayStation(
            false, {{"20200618.KMH", record(18, 0, {0, 99999900.0F}) + record(18, 1, {NAN_FLOAT, 1}) +
                                         record(18, 2, {-99999900.0F, 12.25}) + record(18, 3, {INFINITE, 2}) +
                                         record(18, 1440, {3, 3}) + record(18, 4, {7, 8}).substr(0, 13)}}));
        openList(fixture);
        const QStringList rows = rowsOf(fixture);
        QCOMPARE(rows.size(), 4); // no impossible minute, no torn record
        QVERIFY(rows[0].startsWith(QLatin1String("18.06.2020 00:00|0|999999")));
        QVERIFY(rows[1].startsWith(QLatin1String("18.06.2020 00:01|")) &&
                rows[1].endsWith(QLatin1String("|1")));
        QVERIFY(!rows[1].endsWith(QLatin1String("|0|1"))); // no number is not zero
        QVERIFY(rows[2].startsWith(QLatin1String("18.06.2020 00:02|-999999")));
        QVERIFY(rows[2].endsWith(QLatin1String("|12,25")));
        QVERIFY(rows[3].startsWith(QLatin1String("18.06.2020 00:03|")) &&
                rows[3].endsWith(QLatin1String("|2")));
    }

    /// Nothing of the last station or range stays.
    void noChannelNoRows() {
        const WindowFixture fixture(dayStation(false, {{"20200618.KMH", record(18, 0, {1, 2})}}));
        openList(fixture);
        QCOMPARE(rowsOf(fixture).size(), 1);
        fixture.click("Command4"); // 19 June has no file
        fixture.click("Command5");
        QCOMPARE(rowsOf(fixture).size(), 0);
        const std::vector<std::string> none;
        fixture.dialogs->file =
            QString::fromStdString(fixture.folder->write("leer/VARNIX.CFG", varnixFile("Leer", none, false)));
        fixture.trigger("menOpen");
        QCOMPARE(headersOf(fixture), lines({"Uhrzeit"}));
        QCOMPARE(rowsOf(fixture).size(), 0);
        QCOMPARE(fixture.the<QListWidget>("selChan").count(), 0);
    }

    void copying_data() {
        QTest::addColumn<QList<int>>("clicked"); // rows, with Ctrl held from the second on
        QTest::addColumn<QString>("text");
        QTest::newRow("one") << QList<int>{1} << QStringLiteral("18.06.2020 00:01\t1,5\t-1\n");
        QTest::newRow("in list order")
            << QList<int>{3, 0} << QStringLiteral("18.06.2020 00:00\t0,5\t0\n18.06.2020 00:03\t3,5\t-3\n");
        QTest::newRow("neighbours and another")
            << QList<int>{4, 1, 2}
            << QStringLiteral(
                   "18.06.2020 00:01\t1,5\t-1\n18.06.2020 00:02\t2,5\t-2\n18.06.2020 00:04\t4,5\t-4\n");
        QTest::newRow("taken back") << QList<int>{4, 1, 4} << QStringLiteral("18.06.2020 00:01\t1,5\t-1\n");
    }
    /// Tab-separated text of the selected rows below the header.
    void copying() {
        QFETCH(QList<int>, clicked);
        QFETCH(QString, text);
        std::string bytes;
        for (int i = 0; i < 6; ++i) {
            bytes += record(18, i, {static_cast<float>(i) + 0.5F, static_cast<float>(-i)});
        }
        const WindowFixture fixture(dayStation(false, {{"20200618.KMH", bytes}}));
        openList(fixture);
        auto& list = fixture.the<QTableView>("lView");
        QGuiApplication::clipboard()->setText(QStringLiteral("before"));
        QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("before")); // nothing is selected

        Qt::KeyboardModifiers held;
        for (const int row : clicked) {
            const QModelIndex cell = list.model()->index(row, 1); // any cell selects its row
            QTest::mouseClick(list.viewport(), Qt::LeftButton, held, list.visualRect(cell).center());
            held = Qt::ControlModifier;
        }
        QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(), QStringLiteral("Uhrzeit\tWind\tStaub\n") + text);
    }

    void selectionByKey() {
        const WindowFixture fixture(dayStation(
            false,
            {{"20200618.KMH", record(18, 0, {1, 2}) + record(18, 1, {3, 4}) + record(18, 2, {5, 6})}}));
        openList(fixture);
        auto& list = fixture.the<QTableView>("lView");
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_Home, Qt::ControlModifier);
        QTest::keyClick(&list, Qt::Key_Down, Qt::ShiftModifier);
        QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(QGuiApplication::clipboard()->text(),
                 QStringLiteral("Uhrzeit\tWind\tStaub\n18.06.2020 00:00\t1\t2\n18.06.2020 00:01\t3\t4\n"));
        QTest::keyClick(&list, Qt::Key_A, Qt::ControlModifier);
        QCOMPARE(list.selectionModel()->selectedRows().size(), 3);
        fixture.click("Command8"); // another range: nothing stays selected
        QVERIFY(!list.selectionModel()->hasSelection());
        QTest::keyClick(&list, Qt::Key_Tab);
        QVERIFY(!list.hasFocus());
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_list_test)
#include "f_list_test.moc"
