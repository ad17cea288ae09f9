// SPDX-License-Identifier: GPL-3.0-or-later
// Channels, views and intervals clicked through on the real window; rows and series are compared with values
// computed from the made minutes by other means.
#include "diagram/PolarSys.h"
#include "diagram/SeriesTable.h"
#include "tests/app/WindowFixture.h"
#include "util/Validity.h"

#include <QCursor>
#include <QLineEdit>
#include <QListWidget>
#include <QTableView>
#include <QTest>
#include <array>
#include <cmath>
#include <optional>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

struct Row {
    double time;
    double value;
};

constexpr std::array<int, 6> INTERVALS = {1, 5, 10, 15, 60, 1440};
constexpr std::array<int, 4> CHANNELS = {4, 5, 7, 12};

bool present(double v) { return std::fabs(v) < 99999900 && v != 0; }

/// The mean direction by plain vector addition.
std::optional<double> windOf(const double* directions, const double* speeds, int n) {
    double x = 0;
    double y = 0;
    bool used = false;
    for (int i = 0; i < n; ++i) {
        if (present(directions[i]) && present(speeds[i])) {
            x += std::sin(directions[i] * M_PI / 180) * speeds[i];
            y += std::cos(directions[i] * M_PI / 180) * speeds[i];
            used = true;
        }
    }
    const double d = std::atan2(x, y) * 180 / M_PI;
    return used ? std::optional(d <= 0 ? d + 360 : d) : std::nullopt;
}

/// Counts the paintings of a widget.
class Paintings : public QObject {
  public:
    explicit Paintings(QWidget& widget) { widget.installEventFilter(this); }

    bool eventFilter(QObject* /*watched*/, QEvent* event) override {
        count += event->type() == QEvent::Paint ? 1 : 0;
        return false;
    }

    int count = 0;
};

std::optional<double> averageOf(const MadeStation& station, int channel, int from, int n) {
    const double* values = station.minutes.at(channel).data() + from;
    if (channel == 5) {
        return windOf(values, station.minutes.at(4).data() + from, n);
    }
    double sum = 0;
    int count = 0;
    for (int i = 0; i < n; ++i) {
        if (present(values[i])) {
            sum += values[i];
            ++count;
        }
    }
    if (count == 0) {
        return std::nullopt;
    }
    return channel == 12 ? sum : sum / count;
}

/// The intervals of the test day.
std::vector<Row> expectedRows(const MadeStation& station, int channel, int interval, bool withGaps) {
    std::vector<Row> rows;
    bool before = false;
    for (int i = 0; i * interval < 1440; ++i) {
        const auto value = averageOf(station, channel, TEST_DAY_MINUTE + i * interval, interval);
        const double time = dateSerial(2020, 6, 18) + i * interval / 1440.0;
        if (value) {
            rows.push_back({time, *value});
        } else if (withGaps && before) {
            rows.push_back({time, INVALID_VALUE});
        }
        before = value.has_value();
    }
    return rows;
}

} // namespace

class f_load_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void viewsChannelsIntervals_data() {
        QTest::addColumn<int>("channelRow");
        QTest::addColumn<int>("intervalRow");
        for (int channel = 0; channel < 4; ++channel) {
            for (int interval = 0; interval < 6; ++interval) {
                QTest::addRow("channel %d, %d minutes", CHANNELS[static_cast<std::size_t>(channel)],
                              INTERVALS[static_cast<std::size_t>(interval)])
                    << channel << interval;
            }
        }
    }
    void viewsChannelsIntervals() {
        QFETCH(int, channelRow);
        QFETCH(int, intervalRow);
        const MadeStation made = madeStation();
        const WindowFixture fixture(made);
        fixture.chooseChannel(channelRow);
        fixture.chooseInterval(intervalRow);
        const int channel = CHANNELS[static_cast<std::size_t>(channelRow)];
        const int interval = INTERVALS[static_cast<std::size_t>(intervalRow)];

        const auto series = expectedRows(made, channel, interval, true);
        QCOMPARE(static_cast<std::size_t>(fixture.the<PolarSys>("KS").DataCount()), series.size());
        for (std::size_t i = 0; i < series.size(); ++i) {
            QCOMPARE(seriesTable().row(SeriesTable::TIME)[i], series[i].time);
            QVERIFY(std::fabs(seriesTable().row(SeriesTable::Y1)[i] - series[i].value) < 1e-6);
            QCOMPARE(seriesTable().row(SeriesTable::Y2)[i], INVALID_VALUE);
        }

        fixture.click("optView(1)");
        const auto rows = expectedRows(made, channel, interval, false);
        auto& list = fixture.the<QTableView>("lView");
        QVERIFY(list.isVisible());
        QCOMPARE(list.model()->headerData(0, Qt::Horizontal).toString(), QStringLiteral("Zeit"));
        QCOMPARE(list.model()->headerData(1, Qt::Horizontal).toString(), QStringLiteral("Wert"));
        QCOMPARE(static_cast<std::size_t>(list.model()->rowCount()), rows.size());
        for (std::size_t i = 0; i < rows.size(); ++i) {
            const auto cell = [&](int column) {
                return list.model()->index(static_cast<int>(i), column).data().toString();
            };
            const int minute = static_cast<int>(std::lround((rows[i].time - dateSerial(2020, 6, 18)) * 1440));
            QCOMPARE(cell(0), QString::asprintf("18.06.2020 %02d:%02d", minute / 60, minute % 60));
            QVERIFY(std::fabs(cell(1).replace(QLatin1Char(','), QLatin1Char('.')).toDouble() -
                              rows[i].value) < 1e-6);
        }

        fixture.click("optView(0)");
        QVERIFY(!list.isVisible());
        QCOMPARE(static_cast<std::size_t>(fixture.the<PolarSys>("KS").DataCount()), series.size());
    }

    /// One choice, one read, one drawing.
    void oneLoadReadsAndDrawsOnce() {
        WindowFixture fixture;
        QTest::qWait(50);
        const auto& ks = fixture.the<PolarSys>("KS");
        fixture.files.opened = 0;
        int drawings = ks.drawings();
        fixture.chooseChannel(2);
        QTest::qWait(50);
        QCOMPARE(fixture.files.opened, 1);
        QCOMPARE(ks.drawings(), drawings + 1);

        fixture.files.opened = 0;
        drawings = ks.drawings();
        fixture.chooseInterval(1);
        QTest::qWait(50);
        QCOMPARE(fixture.files.opened, 1);
        QCOMPARE(ks.drawings(), drawings + 1);
    }

    /// While it reads, the window paints neither the emptied list nor what the list covers. The rows are
    /// shown from the first one on.
    void aLoadPaintsTheListOnce() {
        WindowFixture fixture;
        fixture.click("optView(1)");
        QTest::qWait(50);
        auto& list = fixture.the<QTableView>("lView");
        const int rows = list.model()->rowCount();
        const Paintings listed(*list.viewport());
        list.scrollToBottom();
        QTRY_VERIFY(listed.count > 0);
        QTest::qWait(50); // none is outstanding
        QVERIFY(list.rowAt(0) > 0);
        const int before = listed.count;
        const Paintings covered(fixture.the<PolarSys>("KS"));
        QTest::keyClick(fixture.window.get(), Qt::Key_F5);
        QTRY_VERIFY(listed.count > before);
        QTest::qWait(50); // another one would have time
        QCOMPARE(list.model()->rowCount(), rows);
        QCOMPARE(listed.count, before + 1);
        QCOMPARE(covered.count, 0);
        QCOMPARE(list.rowAt(0), 0);
    }

    /// The channel that is shown is read again by a click, and no click takes its selection away.
    void clickOnTheShownChannelLoadsAgain() {
        WindowFixture fixture;
        auto& list = fixture.the<QListWidget>("selChan");
        fixture.files.opened = 0;
        fixture.chooseChannel(0);
        QCOMPARE(fixture.files.opened, 1);
        fixture.chooseChannel(2); // another one: once, not once for the choice and once for the click
        QCOMPARE(fixture.files.opened, 2);
        QTest::keyClick(&list, Qt::Key_Down);
        QCOMPARE(fixture.files.opened, 3);
        fixture.chooseChannel(3);
        QCOMPARE(fixture.files.opened, 4);
        QTest::mouseClick(list.viewport(), Qt::LeftButton, Qt::ControlModifier,
                          list.visualItemRect(list.item(3)).center());
        QCOMPARE(list.selectedItems().size(), 1);
        QCOMPARE(list.currentRow(), 3);
        // Below the last row.
        fixture.files.opened = 0;
        QTest::mouseClick(list.viewport(), Qt::LeftButton, {}, {40, list.viewport()->height() - 3});
        QCOMPARE(list.selectedItems().size(), 1);
        QTest::keyClick(&list, Qt::Key_Space, Qt::ControlModifier);
        QCOMPARE(list.selectedItems().size(), 1);
        QCOMPARE(list.currentRow(), 3);
        QCOMPARE(fixture.files.opened, 0);
    }

    void limitsFollowTheChannel() {
        const WindowFixture fixture;
        QCOMPARE(fixture.the<QLineEdit>("Text3").text(), QStringLiteral("0"));
        fixture.chooseChannel(2);
        QCOMPARE(fixture.the<QLineEdit>("Text3").text(), QStringLiteral("50"));
        QCOMPARE(fixture.the<QLineEdit>("Text4").text(), QStringLiteral("150.5"));
        QCOMPARE(fixture.the<PolarSys>("KS").Hilfslinie1(), 0.0); // not requested

        fixture.click("Check1");
        QCOMPARE(fixture.the<PolarSys>("KS").Hilfslinie1(), 50.0);
        QCOMPARE(fixture.the<PolarSys>("KS").Hilfslinie2(), 150.5);
        auto& box = fixture.the<QLineEdit>("Text3");
        box.selectAll();
        QTest::keyClicks(&box, QStringLiteral("77"));
        fixture.chooseInterval(1); // a reload keeps what was typed
        QCOMPARE(box.text(), QStringLiteral("77"));
        QCOMPARE(fixture.the<PolarSys>("KS").Hilfslinie1(), 77.0);
        fixture.chooseChannel(0);
        QCOMPARE(box.text(), QStringLiteral("0"));
        QCOMPARE(fixture.the<PolarSys>("KS").Hilfslinie1(), ZERO_VALUE);
    }

    void busyPointerWhileReading() {
        WindowFixture fixture;
        bool busy = false;
        fixture.files.onRead = [&busy] {
            busy = QGuiApplication::overrideCursor() != nullptr &&
                   QGuiApplication::overrideCursor()->shape() == Qt::WaitCursor;
        };
        fixture.chooseChannel(1);
        QVERIFY(busy);
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        QVERIFY(!fixture.the<QWidget>("Label8").isVisible());
    }

    /// A choice made while a reading is under way wins, and nothing of the given up reading is mixed in.
    void newestChoiceWins() {
        const MadeStation made = madeStation();
        WindowFixture fixture(made);
        bool once = true;
        fixture.files.onRead = [&] {
            if (once) {
                once = false;
                fixture.chooseChannel(2); // while channel row 1 is being read
            }
        };
        fixture.chooseChannel(1);
        const auto series = expectedRows(made, 7, 1, true);
        QCOMPARE(static_cast<std::size_t>(fixture.the<PolarSys>("KS").DataCount()), series.size());
        for (std::size_t i = 0; i < series.size(); ++i) {
            QCOMPARE(seriesTable().row(SeriesTable::Y1)[i], series[i].value);
        }
        QVERIFY(fixture.the<PolarSys>("KS").HeadLine().find("Staub") != std::string::npos);
    }

    void missingFileLeavesNoOldCurve() {
        MadeStation made = madeStation();
        made.minutes.erase(7);
        const WindowFixture fixture(made);
        QVERIFY(fixture.the<PolarSys>("KS").DataCount() > 0);
        fixture.chooseChannel(2);
        QCOMPARE(fixture.the<PolarSys>("KS").DataCount(), 0);
        QVERIFY(fixture.the<PolarSys>("KS").HeadLine().find("Staub") != std::string::npos);
        QCOMPARE(fixture.the<QLineEdit>("Text3").text(), QStringLiteral("50"));
        QCOMPARE(fixture.the<PolarSys>("KS").Einheit(), std::string("µg/m³"));
    }

    void showValueRows_data() {
        QTest::addColumn<double>("value");
        QTest::addColumn<QString>("text"); // empty: no row
        QTest::newRow("marker") << 99999900.0 << QString();
        QTest::newRow("negative marker") << -99999900.0 << QString();
        QTest::newRow("NaN") << std::nan("") << QString();
        QTest::newRow("zero") << 0.0 << QStringLiteral("0");
        QTest::newRow("zero marker") << 1e-300 << QStringLiteral("0");
        QTest::newRow("tiny") << 1e-250 << QStringLiteral("0");
        QTest::newRow("number") << -12.5 << QStringLiteral("-12,5");
        QTest::newRow("a thirtieth") << 1.0 / 30 << QStringLiteral("0,0333333333333333");
    }
    void showValueRows() {
        QFETCH(double, value);
        QFETCH(QString, text);
        const WindowFixture fixture;
        fixture.window->ShowValue(dateSerial(2020, 6, 18) + 0.5, value);
        const QAbstractItemModel& rows = *fixture.the<QTableView>("lView").model();
        QCOMPARE(rows.rowCount(), text.isEmpty() ? 0 : 1);
        if (!text.isEmpty()) {
            QCOMPARE(rows.index(0, 0).data().toString(), QStringLiteral("18.06.2020 12:00"));
            QCOMPARE(rows.index(0, 1).data().toString(), text);
        }
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_load_test)
#include "f_load_test.moc"
