// SPDX-License-Identifier: GPL-3.0-or-later
// Long use: a random user operates the real main window, and its memory stays as it is.
// KELVRUM_RANDOM_ACTIONS says how long, KELVRUM_RANDOM_SEED on which way.
#include "diagram/PolarSys.h"
#include "tests/app/RandomStations.h"
#include "tests/app/RandomUser.h"
#include "tests/app/WindowFixture.h"

#include <QAction>
#include <QClipboard>
#include <QComboBox>
#include <QDateEdit>
#include <QGuiApplication>
#include <QListWidget>
#include <QRadioButton>
#include <QSignalBlocker>
#include <QTest>
#include <QTimeEdit>
#include <algorithm>
#include <fstream>
#include <string>
#include <utility>
#if defined(__GLIBC__)
#include <malloc.h>
#endif

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr std::uint64_t ACTIONS = 800;
constexpr std::uint64_t WARM_UP = 1500; // at least
constexpr int WIND_ROW = 1;             // of the channels of the first project
constexpr double ALLOWED_GROWTH = 0.01;
constexpr std::uint64_t LONG = 8000; // actions, after a quarter of which everything has been used once
constexpr double CACHES =
    4096; // kB that caches of the toolkit and kept buffers may still take in a short run

struct Memory {
    double inUse = 0;    // kB allocated on the heap; 0 where it is unknown
    double resident = 0; // kB
};

Memory memoryNow() {
    Memory memory;
#if defined(__GLIBC__)
    malloc_trim(0);
    const auto heap = mallinfo2();
    memory.inUse = static_cast<double>(heap.uordblks + heap.hblkhd) / 1024;
#endif
    std::ifstream status("/proc/self/status");
    for (std::string line; std::getline(status, line);) {
        if (line.rfind("VmRSS:", 0) == 0) {
            memory.resident = std::stod(line.substr(6));
        }
    }
    return memory;
}

} // namespace

class f_longuse_test : public QObject {
    Q_OBJECT

    /// The same view each time that the memory is measured: the first project, one day of its first channel.
    static Memory measured(f& window, const QString& project) {
        QGuiApplication::clipboard()->clear(); // the last copy was as large as the window
        window.resize(1000, 700);
        window.readConf(project.toStdString());
        window.findChild<PolarSys*>(QStringLiteral("KS"))
            ->Clear(); // samples of a polar diagram stay with a line
        auto* interval = window.findChild<QComboBox*>(QStringLiteral("selInterval"));
        interval->setCurrentIndex(0);
        for (const auto& [name, date] :
             {std::pair("DTPicker", TEST_DAY), std::pair("DTPicker2", TEST_DAY.addDays(1))}) {
            auto* picker = window.findChild<QDateEdit*>(QString::fromUtf8(name));
            const QSignalBlocker quiet(picker);
            picker->setDate(date);
        }
        for (const char* name : {"DTPicker1", "DTPicker3"}) {
            auto* picker = window.findChild<QTimeEdit*>(QString::fromUtf8(name));
            const QSignalBlocker quiet(picker);
            picker->setTime(QTime(0, 0));
        }
        for (const char* view : {"optView(1)", "optView(0)"}) {
            window.findChild<QRadioButton*>(QString::fromUtf8(view))->click();
            QCoreApplication::processEvents();
        }
        return memoryNow();
    }

    /// A year of minutes in every form: what is kept for the next reading has its full size afterwards.
    static void showYears(f& window, QStringList projects) {
        const auto action = [&window](const char* name) {
            auto* found = window.findChild<QAction*>(QString::fromUtf8(name));
            if (found != nullptr) {
                found->trigger();
                QCoreApplication::processEvents();
            }
        };
        projects.removeDuplicates();
        for (const QString& project : projects) {
            measured(window, project);
            action("menJahr");
            for (const char* view : {"optView(1)", "optView(0)"}) {
                window.findChild<QRadioButton*>(QString::fromUtf8(view))->click();
                QCoreApplication::processEvents();
            }
            action("menKanal(3)"); // of day files
            action("menKanal(7)");
            auto* channels = window.findChild<QListWidget*>(QStringLiteral("selChan"));
            if (channels->count() > WIND_ROW) {
                channels->setCurrentRow(WIND_ROW);
                action("menPolar");
            }
        }
    }

  private Q_SLOTS:
    void memoryStaysAsItIs() {
        const RandomStations stations;
        f window(stations.environment());
        window.resize(1000, 700);
        window.Form_Load();
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));

        RandomUser user(window, stations.dialogs(), stations.files(), stations.files()[0], randomSeed());
        const auto work = [&](std::uint64_t actions) {
            for (std::uint64_t i = 0; i < actions; ++i) {
                user.act();
                stations.dialogs().messages.clear(); // what the test itself keeps
                stations.dialogs().asked.clear();
            }
        };
        const std::uint64_t actions = randomActions(ACTIONS);
        work(std::max(actions / 4, WARM_UP)); // until everything has been used once
        showYears(window, stations.files());
        const Memory before = measured(window, stations.files()[0]);
        work(actions);
        const Memory after = measured(window, stations.files()[0]);
        qInfo("%llu actions: heap in use %.0f kB, then %.0f kB (%+.2f %%); resident %.0f kB, then %.0f kB "
              "(%+.2f %%)",
              static_cast<unsigned long long>(actions), before.inUse, after.inUse,
              100 * (after.inUse / before.inUse - 1), before.resident, after.resident,
              100 * (after.resident / before.resident - 1));
        const double allowed = actions >= LONG ? before.inUse * ALLOWED_GROWTH : CACHES;
        if (before.inUse == 0) {
            QSKIP("the heap does not tell how much of it is in use");
        }
        QVERIFY(after.inUse <= before.inUse + allowed);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_longuse_test)
#include "f_longuse_test.moc"
