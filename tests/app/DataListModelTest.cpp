// SPDX-License-Identifier: GPL-3.0-or-later
// The model of the data list keeps the rules of models through everything that a load does with it.
#include "app/DataListModel.h"

#include "tests/testing/Stations.h"
#include "tests/testing/TempFolder.h"
#include "util/DateTime.h"
#include "util/Validity.h"

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>
#include <array>

namespace kelvrum {

namespace {

const DateTime JUNE_18 = dateSerial(2020, 6, 18);
const std::vector<ListColumn> TIME_AND_VALUE = {{"Zeit", ""}, {"Wert", ""}};

/// Appends hours from number `first` on whose values are their numbers; every third has none.
void append(DataListModel& model, int first, int count) {
    const std::span<IntervalValue> room = model.room(static_cast<std::size_t>(count));
    for (int i = 0; i < count; ++i) {
        const int hour = first + i;
        room[static_cast<std::size_t>(i)] = {JUNE_18 + hour / 24.0,
                                             hour % 3 == 2 ? INVALID_VALUE : static_cast<double>(hour)};
    }
    model.added(static_cast<std::size_t>(count));
}

/// Records of a day's first minutes; the first of their two values is the minute.
DayRows recordsOf(int count) {
    static const testing::TempFolder folder; // where the rows find their values
    std::string bytes;
    for (int minute = 0; minute < count; ++minute) {
        bytes += testing::dayRecord(2020, 6, 18, minute, std::array{static_cast<float>(minute), 0.5F});
    }
    folder.write("20200618.KMH", bytes);
    const auto rows = readDayRows(testing::dayStation(folder), {JUNE_18, JUNE_18 + 1}, openFile, {});
    return rows.value_or(DayRows{});
}

} // namespace

class DataListModelTest : public QObject {
    Q_OBJECT

    DataListModel model_{LocaleTexts{}};
    QAbstractItemModelTester tester_{&model_, QAbstractItemModelTester::FailureReportingMode::QtTest};

    [[nodiscard]] QString shown(int row, int column) const {
        return model_.index(row, column).data().toString();
    }

  private Q_SLOTS:
    void init() { model_.setColumns(TIME_AND_VALUE); }

    void rowsAreSeenWhenTheyAreShown() {
        QCOMPARE(model_.columnCount(), 2);
        append(model_, 0, 3);
        QCOMPARE(model_.rowCount(), 0);
        model_.show();
        QCOMPARE(model_.rowCount(), 3);
        QCOMPARE(shown(1, 0), QStringLiteral("18.06.2020 01:00"));
        QCOMPARE(shown(1, 1), QStringLiteral("1"));
        QCOMPARE(model_.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Wert"));
    }

    /// The first rows reset the views, which is faster; later ones are inserted after them.
    void furtherRowsAreInserted() {
        const QSignalSpy resets(&model_, &QAbstractItemModel::modelReset);
        const QSignalSpy inserts(&model_, &QAbstractItemModel::rowsInserted);
        append(model_, 0, 2);
        model_.show();
        model_.show(); // nothing new
        QCOMPARE(resets.count(), 1);
        QCOMPARE(inserts.count(), 0);
        append(model_, 2, 1000);
        append(model_, 1002, 1);
        model_.show();
        QCOMPARE(resets.count(), 1);
        QCOMPARE(inserts.count(), 1);
        QCOMPARE(inserts[0][1].toInt(), 2);
        QCOMPARE(inserts[0][2].toInt(), 1002);
        QCOMPARE(model_.rowCount(), 1003);
        QCOMPARE(shown(0, 1), QStringLiteral("0"));
        QCOMPARE(shown(1002, 1), QStringLiteral("1002"));
    }

    void clearingRemovesAllRows() {
        const QSignalSpy resets(&model_, &QAbstractItemModel::modelReset);
        model_.clear(); // nothing to remove
        QCOMPARE(resets.count(), 0);
        model_.expect(10);
        append(model_, 0, 4);
        model_.show();
        model_.clear();
        QCOMPARE(resets.count(), 2);
        QCOMPARE(model_.rowCount(), 0);
        QCOMPARE(model_.columnCount(), 2);
        model_.releaseMemory();
        append(model_, 5, 1);
        model_.show();
        QCOMPARE(model_.rowCount(), 1);
        QCOMPARE(shown(0, 0), QStringLiteral("18.06.2020 05:00"));
    }

    void recordsAndValuesTakeEachOthersPlace() {
        model_.setColumns({{"Uhrzeit", "st"}, {"Wind", "s0"}, {"Staub", "s2"}});
        model_.setDayRows(recordsOf(3));
        QCOMPARE(model_.rowCount(), 0);
        model_.show();
        QCOMPARE(model_.rowCount(), 3);
        QCOMPARE(model_.columnCount(), 3);
        QCOMPARE(shown(2, 1), QStringLiteral("2"));
        QCOMPARE(shown(2, 2), QStringLiteral("0,5"));
        model_.setDayRows(recordsOf(1));
        model_.show();
        QCOMPARE(model_.rowCount(), 1);
        model_.setDayRows({});
        model_.show();
        QCOMPARE(model_.rowCount(), 0);
        model_.setDayRows(recordsOf(2));
        model_.show();
        append(model_, 0, 1); // of the other kind
        model_.show();
        QCOMPARE(model_.rowCount(), 1);
        model_.setColumns(TIME_AND_VALUE);
        QCOMPARE(model_.rowCount(), 0);
        QCOMPARE(model_.columnCount(), 2);
    }

    void aCopyKeepsItsRows() {
        append(model_, 0, 2);
        const ListRows copied = model_.copy();
        model_.clear();
        QCOMPARE(copied.count(), std::size_t(2));
        QCOMPARE(copied.text(1), std::string("18.06.2020 01:00|1"));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::DataListModelTest)
#include "DataListModelTest.moc"
