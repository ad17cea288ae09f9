// SPDX-License-Identifier: GPL-3.0-or-later
// The window on files that answer slowly, change or go while it works, and on a program folder that is
// removed.
#include "diagram/PolarSys.h"
#include "tests/app/WindowFixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QTest>
#include <QThread>
#include <QTimer>
#include <filesystem>
#include <vector>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

namespace fs = std::filesystem;

const ShownRange YEAR = {QStringLiteral("01.01.2020 00:00"), QStringLiteral("31.12.2020 00:00")};
constexpr int DUST_ROW = 2; // of the channel list
const char* const DUST_FILE = "Data/Kanal07_2020.chn";

/// A station whose dust has a value in each minute up to the end of the test days.
MadeStation fullStation() {
    MadeStation station = madeStation();
    int i = 0;
    for (double& v : station.minutes[7]) {
        v = 1 + i++ % 400;
    }
    return station;
}

} // namespace

class f_faults_test : public QObject {
    Q_OBJECT

    static void bothViews() {
        QTest::addColumn<QByteArray>("view");
        QTest::newRow("diagram") << QByteArray("optView(0)");
        QTest::newRow("list") << QByteArray("optView(1)");
    }

    static void compareCalm(const WindowFixture& fixture) {
        QCOMPARE(fixture.dialogs->messages, QStringList());
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        QVERIFY(!fixture.the<QWidget>("Label8").isVisible());
    }

  private Q_SLOTS:
    /// Between any two pieces of a long reading the window does what has come up.
    void aSlowShareLeavesTheWindowAnswering_data() { bothViews(); }
    void aSlowShareLeavesTheWindowAnswering() {
        QFETCH(QByteArray, view);
        WindowFixture fixture(fullStation());
        fixture.click(view.constData());
        fixture.arrange(YEAR, 0);
        QString order; // r: a piece was requested, t: the window has done something
        QTimer events;
        connect(&events, &QTimer::timeout, this, [&order] { order += QLatin1Char('t'); });
        fixture.files.onRead = [&] {
            QThread::msleep(20);
            order += QLatin1Char('r');
        };
        events.start(0);
        fixture.chooseChannel(DUST_ROW);
        events.stop();
        fixture.files.onRead = nullptr;
        QVERIFY2(order.count(QLatin1Char('r')) > 3, qPrintable(order));
        QVERIFY2(!order.contains(QLatin1String("rr")), qPrintable(order));
        compareCalm(fixture);
    }

    /// Of many clicks while slow readings are under way the last one counts.
    void onASlowShareTheNewestRequestWins_data() { bothViews(); }
    void onASlowShareTheNewestRequestWins() {
        QFETCH(QByteArray, view);
        WindowFixture fixture(fullStation());
        fixture.click(view.constData());
        fixture.arrange(YEAR, 0);
        fixture.chooseChannel(DUST_ROW);
        const auto series = fixture.shownSeries();
        const int rows = fixture.shownRows();
        const std::string headline = fixture.the<PolarSys>("KS").HeadLine();
        fixture.chooseChannel(0);
        QVERIFY(fixture.shownSeries() != series || fixture.shownRows() != rows);

        const std::vector<int> clicks = {1, 0, 3, 1, DUST_ROW};
        std::size_t next = 0;
        int reads = 0;
        fixture.files.onRead = [&] {
            ++reads;
            QThread::msleep(10);
            if (next < clicks.size()) {
                QTimer::singleShot(0, fixture.window.get(),
                                   [&fixture, row = clicks[next++]] { fixture.chooseChannel(row); });
            }
        };
        fixture.chooseChannel(3);
        fixture.files.onRead = nullptr;
        QCOMPARE(next, clicks.size());
        QVERIFY(fixture.shownSeries() == series);
        QCOMPARE(fixture.shownRows(), rows);
        QCOMPARE(fixture.the<PolarSys>("KS").HeadLine(), headline);
        // What was given up was not read to its end.
        QVERIFY2(reads < 70, qPrintable(QString::number(reads)));
        compareCalm(fixture);
    }

    void closedWhileASlowShareIsRead() {
        WindowFixture fixture(fullStation());
        fixture.arrange(YEAR, 0);
        int reads = 0;
        fixture.files.onRead = [&] {
            QThread::msleep(10);
            if (++reads == 1) {
                QTimer::singleShot(0, fixture.window.get(), &QWidget::close);
            }
        };
        fixture.chooseChannel(DUST_ROW);
        QVERIFY(!fixture.window->isVisible());
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    }

    void filesThatChangeWhileTheyAreRead_data() {
        QTest::addColumn<QByteArray>("view");
        QTest::addColumn<QByteArray>("change");
        QTest::addColumn<int>("left"); // minutes that the next reading finds
        for (const char* view : {"optView(0)", "optView(1)"}) {
            QTest::addRow("%s shrinks", view) << QByteArray(view) << QByteArray("shrinks") << 70'000;
            QTest::addRow("%s grows", view) << QByteArray(view) << QByteArray("grows") << 400'000;
            QTest::addRow("%s vanishes", view) << QByteArray(view) << QByteArray("vanishes") << 0;
            QTest::addRow("%s becomes a folder", view) << QByteArray(view) << QByteArray("folder") << 0;
        }
    }
    void filesThatChangeWhileTheyAreRead() {
        QFETCH(QByteArray, view);
        QFETCH(QByteArray, change);
        QFETCH(int, left);
        WindowFixture fixture(fullStation());
        fixture.click(view.constData());
        fixture.arrange(YEAR, 0);
        const fs::path file = fixture.folder->path() / DUST_FILE;
        int reads = 0;
        fixture.files.onRead = [&] {
            if (++reads != 2) {
                return;
            }
            if (change == "shrinks") {
                fs::resize_file(file, 1024 + 8 * static_cast<std::uintmax_t>(left));
            } else if (change == "grows") {
                fixture.folder->write(DUST_FILE,
                                      channelFile(std::vector<double>(static_cast<std::size_t>(left), 2)));
            } else {
                fs::remove(file);
                if (change == "folder") {
                    fs::create_directory(file);
                }
            }
        };
        const auto shown = [&] {
            return view == "optView(1)" ? fixture.shownRows() : fixture.the<PolarSys>("KS").DataCount();
        };
        fixture.chooseChannel(DUST_ROW);
        QVERIFY(reads >= 2);
        QVERIFY2(shown() >= 16'000, qPrintable(QString::number(shown()))); // the first piece at least
        compareCalm(fixture);

        fixture.files.onRead = nullptr;
        fixture.window->LoadData();
        QCOMPARE(shown(), left);
        compareCalm(fixture);
        fixture.chooseChannel(0);
        QVERIFY(shown() > 0);
    }

    /// The program folder, which is the current one, is removed under the running program.
    void theProgramFolderIsRemoved() {
        const TempFolder other;
        const MadeStation made = madeStation();
        other.write("QEL.ini", made.ini);
        other.write(DUST_FILE, channelFile(made.minutes.at(7)));
        WindowFixture fixture;
        fs::remove_all(fixture.folder->path());
        for (const char* view : {"optView(1)", "optView(0)"}) {
            fixture.click(view);
            for (int row = 0; row < 4; ++row) {
                fixture.chooseChannel(row);
                QCOMPARE(fixture.the<PolarSys>("KS").DataCount(), 0);
                QCOMPARE(fixture.shownRows(), 0);
            }
        }
        fixture.click("Command8");
        fixture.window->checkMenu(true);
        fixture.inWindowOf([&] { fixture.trigger("menProj"); },
                           [](QWidget& form) {
                               QVERIFY(form.findChild<QAbstractButton*>(QStringLiteral("Button(0)")) ==
                                       nullptr);
                           });
        compareCalm(fixture);

        // Another project is opened and read as before.
        fixture.click("Command7");
        fixture.dialogs->file = QString::fromStdString(other.at("QEL.ini"));
        fixture.trigger("menOpen");
        fixture.chooseChannel(DUST_ROW);
        QVERIFY(fixture.the<PolarSys>("KS").DataCount() > 1000);
        fixture.inWindowOf([&] { fixture.trigger("menProj"); }, [](QWidget&) {});
        compareCalm(fixture);
        QVERIFY(!fs::exists(fixture.folder->path()));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_faults_test)
#include "f_faults_test.moc"
