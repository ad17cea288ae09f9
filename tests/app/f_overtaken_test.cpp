// SPDX-License-Identifier: GPL-3.0-or-later
// What comes while a load runs: keys held down, further choices, entries of the menus, another project.
#include "diagram/PolarSys.h"
#include "tests/app/WindowFixture.h"
#include "tests/testing/StackDepth.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QKeyEvent>
#include <QListWidget>
#include <QTableView>
#include <QTest>
#include <QTimer>
#include <vector>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr int DUST_ROW = 2; // of the channel list

/// A key as it comes from the system's queue of events, pressed and released.
void postKey(QWidget& control, int key) {
    for (const auto type : {QEvent::KeyPress, QEvent::KeyRelease}) {
        QCoreApplication::postEvent(&control, new QKeyEvent(type, key, Qt::NoModifier));
    }
}

/// A station in a folder of its own, with dust alone on the test day.
QString layOther(const TempFolder& folder) {
    folder.write("Andere/QEL.ini", "PROJEKTNAME=Andere\nSTANDORT=Ort\nGERAETNUMMER=3\nDATAFOLDER=Data\n"
                                   "CHAN07|Feinstaub|mg|0|500||0|1|2|1|0|0|ST\n");
    std::vector<double> minutes(TEST_DAY_MINUTE, 0.0);
    minutes.insert(minutes.end(), 1440, 7.5);
    folder.write("Andere/Data/Kanal07_2020.chn", channelFile(minutes));
    return QString::fromStdString((folder.path() / "Andere/QEL.ini").string());
}

} // namespace

class f_overtaken_test : public QObject {
    Q_OBJECT

    static void compareCalm(const WindowFixture& fixture) {
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
        QVERIFY(!fixture.the<QWidget>("Label8").isVisible());
    }

  private Q_SLOTS:
    void aKeyHeldDownLeavesOneLoadOnTheStack_data() {
        QTest::addColumn<QString>("control");
        QTest::addColumn<int>("key");
        QTest::addColumn<QString>("controlBack");
        QTest::addColumn<int>("keyBack");
        QTest::addColumn<bool>("list");
        const auto row = [](const char* name, const char* control, int key, const char* controlBack,
                            int keyBack, bool list) {
            QTest::newRow(name) << QString::fromUtf8(control) << key << QString::fromUtf8(controlBack)
                                << keyBack << list;
        };
        row("channels, diagram", "selChan", Qt::Key_Down, "selChan", Qt::Key_Home, false);
        row("channels, list", "selChan", Qt::Key_Down, "selChan", Qt::Key_Home, true);
        row("scrolling", "Command8", Qt::Key_Space, "Command7", Qt::Key_Space, false);
        row("page keys", "KS", Qt::Key_PageDown, "KS", Qt::Key_PageUp, false);
    }
    void aKeyHeldDownLeavesOneLoadOnTheStack() {
        QFETCH(QString, control);
        QFETCH(int, key);
        QFETCH(QString, controlBack);
        QFETCH(int, keyBack);
        QFETCH(bool, list);
        WindowFixture fixture;
        if (list) {
            fixture.click("optView(1)");
        }
        auto& held = *fixture.window->findChild<QWidget*>(control);
        auto& opposite = *fixture.window->findChild<QWidget*>(controlBack);
        held.setFocus();
        constexpr int REPEATS = 600;
        int reads = 0;
        StackDepth depth;
        fixture.files.onRead = [&] {
            depth.look();
            if (++reads >= REPEATS) {
                return;
            }
            const bool back = reads % 2 == 0; // to and fro, so that there are always values
            postKey(back ? opposite : held, back ? keyBack : key);
        };
        fixture.window->LoadData();
        QTRY_VERIFY(reads >= REPEATS);
        QCoreApplication::processEvents();
        QVERIFY2(depth.bytes() < MAX_LOAD_STACK, qPrintable(QString::number(depth.bytes())));
        compareCalm(fixture);

        // What is shown is what is chosen.
        fixture.files.onRead = nullptr;
        const auto series = fixture.shownSeries();
        const int rows = fixture.the<QTableView>("lView").model()->rowCount();
        const std::string headline = fixture.the<PolarSys>("KS").HeadLine();
        fixture.window->LoadData();
        QVERIFY(fixture.shownSeries() == series);
        QCOMPARE(fixture.the<QTableView>("lView").model()->rowCount(), rows);
        QCOMPARE(fixture.the<PolarSys>("KS").HeadLine(), headline);
        QCOMPARE(fixture.the<PolarSys>("KS").XLow(), fixture.window->range().from);
    }

    /// The list of channels marks what the window shows, also when a click came while another one was read.
    void theNewestClickIsMarked() {
        WindowFixture fixture;
        auto& list = fixture.the<QListWidget>("selChan");
        bool clicked = false;
        fixture.files.onRead = [&] {
            if (!clicked) {
                clicked = true;
                QTimer::singleShot(0, fixture.window.get(), [&] { fixture.chooseChannel(DUST_ROW); });
            }
        };
        fixture.chooseChannel(1);
        fixture.files.onRead = nullptr;
        QCoreApplication::processEvents();
        QCOMPARE(list.currentRow(), DUST_ROW);
        QCOMPARE(list.selectedItems(), QList<QListWidgetItem*>{list.item(DUST_ROW)});
        QVERIFY(fixture.the<PolarSys>("KS").HeadLine().find("Staub") != std::string::npos);
    }

    /// A request that comes while a load runs returns at once, and the load starts over for all of them.
    void requestsMeanwhileBecomeOneMoreLoad() {
        WindowFixture fixture;
        int reads = 0;
        int inside = 0; // reads that began within a request
        fixture.files.onRead = [&] {
            ++reads;
            if (reads > 1) {
                return;
            }
            const int before = reads;
            fixture.chooseChannel(0);
            fixture.chooseChannel(3);
            fixture.chooseChannel(DUST_ROW);
            inside = reads - before;
        };
        fixture.chooseChannel(3);
        QCOMPARE(inside, 0);
        QCOMPARE(reads, 2);
        QVERIFY(fixture.the<PolarSys>("KS").HeadLine().find("Staub") != std::string::npos);
        compareCalm(fixture);
    }

    /// What opens a window or prints waits for the view, and happens once.
    void entriesOfTheMenusWaitForTheView_data() {
        QTest::addColumn<QByteArray>("action");
        QTest::addColumn<QString>("windowName"); // empty: the dialog is answered at once
        QTest::newRow("open") << QByteArray("menOpen") << QString();
        QTest::newRow("projects") << QByteArray("menProj") << QStringLiteral("Form1");
        QTest::newRow("wind") << QByteArray("menWind") << QStringLiteral("fChange");
        QTest::newRow("dust") << QByteArray("menStaub") << QStringLiteral("fChange");
    }
    void entriesOfTheMenusWaitForTheView() {
        QFETCH(QByteArray, action);
        QFETCH(QString, windowName);
        MadeStation made = madeStation();
        made.ini += "WINDFAKTOR=1.5\n";
        WindowFixture fixture(made);
        fixture.folder->write("faktoren.cfg", "");
        fixture.window->checkMenu(true);
        int opened = 0;
        bool whileReading = false;
        bool reading = false;
        QTimer look;
        connect(&look, &QTimer::timeout, &look, [&] {
            if (QWidget* modal = QApplication::activeModalWidget(); modal != nullptr && modal->isVisible()) {
                ++opened;
                whileReading = whileReading || reading || fixture.the<QWidget>("Label8").isVisible();
                QCOMPARE(modal->objectName(), windowName);
                modal->close();
            }
        });
        look.start(5);
        int reads = 0;
        fixture.files.onRead = [&] {
            reading = true;
            if (++reads == 1) {
                fixture.trigger(action.constData());
                fixture.trigger(action.constData());
                QVERIFY(fixture.dialogs->asked.empty());
                QTest::qWait(30); // a window would have time to appear
            }
            reading = false;
        };
        fixture.chooseChannel(DUST_ROW);
        QTRY_COMPARE(opened + static_cast<int>(fixture.dialogs->asked.size()), 1);
        QTest::qWait(30);
        QCOMPARE(opened, windowName.isEmpty() ? 0 : 1);
        QVERIFY(!whileReading);
        compareCalm(fixture);
    }

    /// Two entries wait together: they run one after the other, never one inside the other.
    void tasksRunInTurn() {
        MadeStation made = madeStation();
        made.ini += "WINDFAKTOR=1.5\n";
        WindowFixture fixture(made);
        fixture.folder->write("faktoren.cfg", "");
        fixture.window->checkMenu(true);
        QStringList titles;
        QTimer look;
        connect(&look, &QTimer::timeout, &look, [&] {
            if (QWidget* modal = QApplication::activeModalWidget(); modal != nullptr && modal->isVisible()) {
                titles << modal->windowTitle();
                fixture.trigger("menOpen"); // from within: it waits for the window's end
                QVERIFY(fixture.dialogs->asked.empty());
                modal->close();
            }
        });
        look.start(5);
        int reads = 0;
        fixture.files.onRead = [&] {
            if (++reads == 1) {
                fixture.trigger("menStaub");
                fixture.trigger("menWind");
            }
        };
        fixture.chooseChannel(DUST_ROW);
        QTRY_COMPARE(titles.size(), 2);
        QCOMPARE(titles, QStringList({QStringLiteral("Korrekturfaktor Staub"),
                                      QStringLiteral("Korrekturfaktor Wind")}));
        QCOMPARE(fixture.dialogs->asked.size(), std::size_t(1));
    }

    void aClosedProjectDoesNotEndUpInTheNewOne_data() {
        QTest::addColumn<bool>("byMenu");
        QTest::addColumn<QByteArray>("view");
        QTest::newRow("by the menu, diagram") << true << QByteArray("optView(0)");
        QTest::newRow("by the menu, list") << true << QByteArray("optView(1)");
        QTest::newRow("at once, diagram") << false << QByteArray("optView(0)");
        QTest::newRow("at once, list") << false << QByteArray("optView(1)");
    }
    void aClosedProjectDoesNotEndUpInTheNewOne() {
        QFETCH(bool, byMenu);
        QFETCH(QByteArray, view);
        WindowFixture fixture;
        fixture.click(view.constData());
        const QString other = layOther(*fixture.folder);
        fixture.dialogs->file = other;
        int reads = 0;
        fixture.files.onRead = [&] {
            if (++reads > 1) {
                return;
            }
            if (byMenu) {
                fixture.trigger("menOpen");
            } else {
                fixture.window->readConf(other.toStdString());
            }
        };
        fixture.chooseChannel(DUST_ROW);
        QCOMPARE(fixture.window->station().ProjectName, std::string("Andere"));
        const auto& ks = fixture.the<PolarSys>("KS");
        const auto& rows = *fixture.the<QTableView>("lView").model();
        if (view == "optView(0)") {
            QVERIFY(fixture.shownSeries() == std::vector<double>(1440, 7.5));
            QCOMPARE(ks.HeadLine(), std::string("Andere - Feinstaub [mg]"));
            QCOMPARE(rows.rowCount(), 0);
        } else {
            QCOMPARE(rows.rowCount(), 1440);
            QCOMPARE(rows.index(0, 1).data().toString(), QStringLiteral("7,5"));
            QCOMPARE(ks.DataCount(), 0);
        }
        compareCalm(fixture);
    }

    /// Closed while it loads, with an entry of a menu waiting: neither the load nor the entry goes on.
    void closingDropsWhatWaits() {
        WindowFixture fixture;
        int reads = 0;
        fixture.files.onRead = [&] {
            if (++reads == 1) {
                fixture.trigger("menOpen");
                fixture.window->close();
            }
        };
        fixture.chooseChannel(DUST_ROW);
        QTest::qWait(20);
        QCOMPARE(reads, 1);
        QVERIFY(fixture.dialogs->asked.empty());
        QVERIFY(QGuiApplication::overrideCursor() == nullptr);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_overtaken_test)
#include "f_overtaken_test.moc"
