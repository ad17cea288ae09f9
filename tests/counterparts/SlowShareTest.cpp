// SPDX-License-Identifier: GPL-3.0-or-later
// The window on a share that answers slowly, then not at all for a while, then with errors. The library that
// makes it so is preloaded by tools/checks/slowshare.sh.
#include "tests/counterparts/SlowShare.h"
#include "diagram/PolarSys.h"
#include "tests/app/WindowFixture.h"
#include "tests/testing/StackDepth.h"
#include "util/MarkedCalendar.h"
#include "util/Pickers.h"
#include "util/Validity.h"

#include <QAbstractItemModel>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <algorithm>
#include <ctime>
#include <iostream>
#include <limits>
#include <string>
#include <vector>

namespace kelvrum {

using namespace kelvrum::testing;
using std::chrono::milliseconds;
using std::chrono::nanoseconds;

namespace {

constexpr long ALL = std::numeric_limits<long>::max();
constexpr int DUST_ROW = 2; // of the channel list
constexpr milliseconds LONGEST_WORK{200};
constexpr long MAX_CALLS = 4; // in a row, of 50 ms each

const ShownRange YEAR = {QStringLiteral("01.01.2020 00:00"), QStringLiteral("31.12.2020 00:00")};

milliseconds silence() {
    bool isSet = false;
    const int set = qEnvironmentVariableIntValue("KELVRUM_SHARE_SILENCE", &isSet);
    return milliseconds(isSet ? set : 300);
}

nanoseconds workSoFar() {
    timespec spent{};
    ::clock_gettime(CLOCK_THREAD_CPUTIME_ID, &spent);
    return std::chrono::seconds(spent.tv_sec) + nanoseconds(spent.tv_nsec);
}

/// Looks at the share whenever the window answers: how many calls were made since it last did, and how long
/// it computed. Waiting for the share is not the window's, and neither is waiting for a busy machine.
class Watch : public QObject {
  public:
    Watch() {
        connect(&timer_, &QTimer::timeout, this, &Watch::look);
        timer_.start(0);
    }
    void look() {
        const ShareCalls calls = takeShareCalls();
        const nanoseconds work = workSoFar();
        if (calls.count > 0) {
            longest = std::max(longest, work - before_);
            inARow = std::max(inARow, calls.kept);
            made += calls.count;
            ++answers;
            stack.look();
            if (onAnswer) {
                onAnswer();
            }
        }
        before_ = workSoFar();
    }

    std::function<void()> onAnswer;
    nanoseconds longest{0};
    long inARow = 0;
    long made = 0;
    int answers = 0;
    StackDepth stack;

  private:
    QTimer timer_;
    nanoseconds before_ = workSoFar();
};

/// The share is there as long as this lives.
class Share {
  public:
    Share(const std::string& folder, long answers) {
        beginShare(folder, {answers, milliseconds(50), silence()});
    }
    Share(const Share&) = delete;
    Share& operator=(const Share&) = delete;
    ~Share() { endShare(); }
};

MadeStation fullStation() {
    MadeStation station = madeStation();
    station.ini += "CHAN06|Wind korrigiert|m/s|0|40||0|1|2|1|0|0|WK\nWINDFAKTOR=1\n";
    int i = 0;
    for (double& v : station.minutes[7]) {
        v = 1 + i++ % 400;
    }
    station.minutes[6] = station.minutes[7];
    return station;
}

/// Whether what a broken reading shows is the beginning of the whole, up to gaps.
bool isPartOf(const std::vector<double>& shown, const std::vector<double>& whole) {
    return shown.size() <= whole.size() &&
           std::equal(shown.begin(), shown.end(), whole.begin(),
                      [](double a, double b) { return a == b || !isValidPoint(a); });
}

MarkedCalendar& openCalendar(const WindowFixture& fixture) {
    auto& picker = fixture.the<DatePicker>("DTPicker");
    QTest::mouseClick(&picker, Qt::LeftButton, {}, QPoint(picker.width() - 6, picker.height() / 2));
    return *picker.findChild<MarkedCalendar*>();
}

/// Forty days of a binary station, a record every ten minutes.
void layDayFiles(const TempFolder& folder, bool wide) {
    folder.write("Tage/VARNIX.CFG", varnixFile("Tage", std::vector<std::string>{"Ozon", "Druck"}, wide));
    const std::size_t fields = wide ? 6 : 2;
    for (int day = 0; day < 40; ++day) {
        std::string bytes;
        const int month = day < 30 ? 6 : 7;
        const int number = day < 30 ? day + 1 : day - 29;
        for (int minute = 0; minute < 1440; minute += 10) {
            const std::vector<float> values(fields, static_cast<float>(1 + day));
            bytes += dayRecord(2020, month, number, minute, values);
        }
        const QString name = QStringLiteral("Tage/2020%1%2.KMH")
                                 .arg(month, 2, 10, QLatin1Char('0'))
                                 .arg(number, 2, 10, QLatin1Char('0'));
        folder.write(name.toStdString(), bytes);
    }
}

} // namespace

class f_slowshare_check : public QObject {
    Q_OBJECT

    /// The share falls silent at any of these calls, or never.
    static void plans(const std::vector<const char*>& views) {
        QTest::addColumn<QByteArray>("view");
        QTest::addColumn<long>("answers");
        for (const char* view : views) {
            for (const long answers : {ALL, 0L, 3L, 9L}) {
                const QByteArray silent =
                    answers == ALL ? QByteArray("slow") : "silent after " + QByteArray::number(int(answers));
                QTest::addRow("%s, %s", view, silent.constData()) << QByteArray(view) << answers;
            }
        }
    }

    static std::string dataOf(const WindowFixture& fixture) { return fixture.folder->at("Data"); }

    static void show(const char* what, const Watch& watch) {
        const auto work = std::chrono::duration_cast<milliseconds>(watch.longest);
        std::cout << what << ": " << watch.made << " calls, " << watch.answers
                  << " answers of the window, at most " << watch.inARow << " calls between two, at most "
                  << work.count() << " ms of work\n";
    }

    static void compareAnswers(const Watch& watch, long most = MAX_CALLS) {
        show(QTest::currentTestFunction(), watch);
        QVERIFY2(watch.inARow <= most, qPrintable(QString::number(watch.inARow)));
        QVERIFY(watch.longest <= LONGEST_WORK);
    }

    static void compareCalm(const WindowFixture& fixture) {
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QTRY_VERIFY(QGuiApplication::overrideCursor() == nullptr);
        QVERIFY(!fixture.the<QWidget>("Label8").isVisible());
    }

    static void openDays(WindowFixture& fixture, bool wide) {
        layDayFiles(*fixture.folder, wide);
        fixture.dialogs->file = QString::fromStdString(fixture.folder->at("Tage/VARNIX.CFG"));
        fixture.trigger("menOpen");
        fixture.arrange({QStringLiteral("01.06.2020 00:00"), QStringLiteral("11.07.2020 00:00")}, 4);
    }

    /// Chooses the last row of the list while the share is as planned, and others before it at each answer.
    static void compareNewest(WindowFixture& fixture, const std::string& share, long answers, int rows,
                              int requests) {
        const int last = rows - 1;
        fixture.chooseChannel(last);
        const auto whole = fixture.shownSeries();
        const int wholeRows = fixture.shownRows();
        const std::string headline = fixture.the<PolarSys>("KS").HeadLine();
        fixture.chooseChannel(0);
        Watch watch;
        int made = 0;
        watch.onAnswer = [&] {
            if (made < requests) {
                const int row = ++made == requests ? last : made % last;
                QTimer::singleShot(0, fixture.window.get(), [&fixture, row] { fixture.chooseChannel(row); });
            }
        };
        {
            const Share there(share, answers);
            fixture.chooseChannel(1 % last);
            while (made < requests) { // with errors a load is short
                QTest::qWait(1);
                fixture.window->LoadData();
            }
            QTest::qWait(20);
            compareCalm(fixture);
            const auto& channels = fixture.the<QListWidget>("selChan");
            QCOMPARE(channels.currentRow(), last);
            QCOMPARE(channels.selectedItems(), QList<QListWidgetItem*>{channels.item(last)});
            QCOMPARE(fixture.the<PolarSys>("KS").HeadLine(), headline);
            QVERIFY(isPartOf(fixture.shownSeries(), whole));
            QVERIFY(fixture.shownRows() <= wholeRows);
            if (answers == ALL) {
                QVERIFY(fixture.shownSeries() == whole);
                QCOMPARE(fixture.shownRows(), wholeRows);
            }
        }
        QVERIFY2(watch.stack.bytes() < MAX_LOAD_STACK, qPrintable(QString::number(watch.stack.bytes())));
        constexpr long PAINTED_ROWS = 5; // opening a file and reading its values to the end
        compareAnswers(watch, wholeRows > 0 ? PAINTED_ROWS : MAX_CALLS);
        QCOMPARE(fixture.dialogs->messages, QStringList());
        fixture.window->LoadData(); // the share answers again
        QVERIFY(fixture.shownSeries() == whole);
        QCOMPARE(fixture.shownRows(), wholeRows);
    }

  private Q_SLOTS:
    void initTestCase() { QVERIFY2(isShareThere(), "start this with tools/checks/slowshare.sh"); }

    void channelFiles_data() { plans({"optView(0)", "optView(1)"}); }
    void channelFiles() {
        QFETCH(QByteArray, view);
        QFETCH(long, answers);
        WindowFixture fixture(fullStation());
        fixture.click(view.constData());
        fixture.arrange(YEAR, 0);
        compareNewest(fixture, dataOf(fixture), answers, DUST_ROW + 1, 5);
    }

    void manyRequestsLeaveOneReading() {
        WindowFixture fixture(fullStation());
        fixture.arrange(YEAR, 0);
        compareNewest(fixture, dataOf(fixture), ALL, DUST_ROW + 1, 60);
    }

    void dayFiles_data() { plans({"narrow diagram", "wide diagram", "narrow list"}); }
    void dayFiles() {
        QFETCH(QByteArray, view);
        QFETCH(long, answers);
        WindowFixture fixture(fullStation());
        openDays(fixture, view.startsWith("wide"));
        fixture.click(view.endsWith("list") ? "optView(1)" : "optView(0)");
        compareNewest(fixture, fixture.folder->at("Tage"), answers, 2, 3);
    }

    void calendar_data() { plans({"channel file", "day files"}); }
    void calendar() {
        QFETCH(QByteArray, view);
        QFETCH(long, answers);
        WindowFixture fixture(fullStation());
        const bool isDays = view.startsWith("day");
        if (isDays) {
            openDays(fixture, false);
        }
        Watch watch;
        int made = 0;
        {
            const Share there(fixture.folder->at(isDays ? "Tage" : "Data"), answers);
            MarkedCalendar& calendar = openCalendar(fixture);
            watch.onAnswer = [&] {
                if (++made == 1) {
                    calendar.showNextMonth();
                }
            };
            QTRY_VERIFY_WITH_TIMEOUT(made > 0, 20'000);
            QTRY_VERIFY_WITH_TIMEOUT(answers != ALL || calendar.markOf(QDate(2020, 7, 12)) == DayMark::empty,
                                     60'000);
            QTest::qWait(50);
            QCOMPARE(calendar.markOf(QDate(2020, 6, 18)), DayMark::none); // of the month that was left
            calendar.parentWidget()->close();
            compareCalm(fixture);
        }
        watch.onAnswer = {};
        compareAnswers(watch);
        MarkedCalendar& calendar = openCalendar(fixture);
        QTRY_VERIFY(calendar.markOf(QDate(2020, 7, 12)) == DayMark::empty ||
                    calendar.markOf(QDate(2020, 6, 18)) != DayMark::none);
        calendar.parentWidget()->close();
    }

    void evaluation_data() { plans({"to its end", "closed meanwhile"}); }
    void evaluation() {
        QFETCH(QByteArray, view);
        QFETCH(long, answers);
        WindowFixture fixture(fullStation());
        fixture.arrange(YEAR, 0);
        fixture.chooseChannel(DUST_ROW);
        const bool isClosed = view.startsWith("closed");
        Watch watch;
        {
            const Share there(dataOf(fixture), answers);
            // From outside of the reading, which the events of the window interrupt.
            QTimer user;
            connect(&user, &QTimer::timeout, &user, [&] {
                QWidget* shown = QApplication::activeModalWidget();
                const auto isReady = [&] {
                    return isClosed ? watch.answers > 0
                                    : !shown->findChild<QLabel*>(QStringLiteral("lblLesen"))->isVisible();
                };
                if (shown != nullptr && shown->isVisible() && isReady()) {
                    shown->close();
                }
            });
            user.start(10);
            fixture.trigger("menAuswertung");
            compareCalm(fixture);
        }
        compareAnswers(watch);
    }

    void jumps_data() { plans({"menErster", "menLetzter"}); }
    void jumps() {
        QFETCH(QByteArray, view);
        QFETCH(long, answers);
        WindowFixture fixture(fullStation());
        fixture.chooseChannel(0);
        Watch watch;
        {
            const Share there(dataOf(fixture), answers);
            fixture.trigger(view.constData());
            QTest::qWait(20);
            compareCalm(fixture);
        }
        compareAnswers(watch);
        fixture.trigger(view.constData());
        QVERIFY(fixture.the<PolarSys>("KS").DataCount() > 0);
    }

    void corrections_data() { plans({"menWind"}); }
    void corrections() {
        QFETCH(QByteArray, view);
        QFETCH(long, answers);
        MadeStation made = fullStation();
        auto folder = std::make_unique<TempFolder>();
        folder->write("QEL.ini", made.ini);
        folder->write("faktoren.cfg", "");
        for (const auto& [channel, minutes] : made.minutes) {
            const std::string number = std::string(channel < 10 ? "0" : "").append(std::to_string(channel));
            folder->write("Data/Kanal" + number + "_2020.chn", channelFile(minutes));
        }
        WindowFixture fixture(std::move(folder));
        fixture.arrange(YEAR, 0);
        Watch watch;
        {
            const Share there(dataOf(fixture), answers);
            fixture.inWindowOf(
                [&] { fixture.trigger(view.constData()); },
                [&](QWidget& dialog) {
                    dialog.findChild<QLineEdit*>(QStringLiteral("Text1"))->setText(QStringLiteral("2"));
                    QTest::mouseClick(dialog.findChild<QPushButton*>(QStringLiteral("OKButton")),
                                      Qt::LeftButton);
                });
            compareCalm(fixture);
        }
        constexpr long YEAR_OF_CALLS = 24;
        compareAnswers(watch, YEAR_OF_CALLS); // its dialog takes no input, and events run after each year
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_slowshare_check)
#include "SlowShareTest.moc"
