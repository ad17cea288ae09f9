// SPDX-License-Identifier: GPL-3.0-or-later
// The corrections from the window's menu to the view of the new values.
#include "diagram/PolarSys.h"
#include "diagram/SeriesTable.h"
#include "tests/app/WindowFixture.h"
#include "tests/correction/YearFiles.h"
#include "tests/testing/FileContent.h"
#include "util/Validity.h"

#include <QAction>
#include <QLabel>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTableView>
#include <QTest>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr int WIND_ROW = 2; // of the channel list: 4, 5, 6, 7, 12, 15
constexpr int DUST_ROW = 5;

/// The made station with a wind factor line and the corrected channels in its list.
MadeStation correctedStation(const std::string& factorLine) {
    MadeStation made = madeStation();
    made.ini += "CHAN06|Wind korrigiert|m/s|0|40||0|1|2|1|0|0|WK\nCHAN15|Staub "
                "korrigiert|mg|0|500||0|1|2|1|0|0|SK\n" +
                factorLine;
    return made;
}

void lay(const TempFolder& folder, const std::string& place, const MadeStation& made) {
    folder.write(place + "QEL.ini", made.ini);
    for (const auto& [channel, minutes] : made.minutes) {
        folder.write(place + "Data/" + YearFiles::name(channel, 2020), channelFile(minutes));
    }
}

/// A window in a program folder with that station, with or without the file that marks corrections.
WindowFixture window(const std::string& factorLine, bool marked) {
    auto folder = std::make_unique<TempFolder>();
    lay(*folder, "", correctedStation(factorLine));
    if (marked) {
        folder->write("faktoren.cfg", "");
    }
    return WindowFixture(std::move(folder));
}

QAction& menu(const WindowFixture& fixture) { return *fixture.the<QMenu>("menKor").menuAction(); }

/// What the correction dialog shows, and the user's answer.
struct Shown {
    QString caption;
    QString label;
    QString factor;
};

/// Chooses an entry, types a factor into the dialog and presses a button.
Shown answer(const WindowFixture& fixture, const char* entry, const QString& factor, const char* button) {
    Shown shown;
    fixture.inWindowOf([&] { fixture.trigger(entry); },
                       [&](QWidget& dialog) {
                           auto& box = *dialog.findChild<QLineEdit*>(QStringLiteral("Text1"));
                           shown = {dialog.windowTitle(),
                                    dialog.findChild<QLabel*>(QStringLiteral("Label1"))->text(), box.text()};
                           box.selectAll();
                           QTest::keyClicks(&box, factor);
                           QTest::mouseClick(dialog.findChild<QPushButton*>(QString::fromUtf8(button)),
                                             Qt::LeftButton);
                       });
    return shown;
}

/// The series shown is `value(minute)` for every minute of the test day that has one.
template<typename Value>
bool showsDay(const WindowFixture& fixture, const Value& value) {
    std::vector<double> expected;
    bool before = false;
    for (int m = TEST_DAY_MINUTE; m < TEST_DAY_MINUTE + 1440; ++m) {
        const double v = value(static_cast<std::size_t>(m));
        const bool present = v != 0 && std::fabs(v) < INVALID_VALUE;
        if (present || before) {
            expected.push_back(present ? v : INVALID_VALUE);
        }
        before = present;
    }
    const auto shown = seriesTable().row(SeriesTable::Y1);
    return static_cast<std::size_t>(fixture.the<PolarSys>("KS").DataCount()) == expected.size() &&
           std::equal(expected.begin(), expected.end(), shown.begin());
}

} // namespace

class f_correction_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void menuState_data() {
        QTest::addColumn<QByteArray>("factorLine");
        QTest::addColumn<bool>("marked");
        QTest::addColumn<bool>("allowed");
        QTest::addColumn<bool>("enabled");
        QTest::addColumn<bool>("visible");
        const auto row = [](const char* line, bool marked, bool allowed, bool enabled, bool visible) {
            QTest::addRow("'%s', file %d, allowed %d", line, marked, allowed)
                << QByteArray(line) << marked << allowed << enabled << visible;
        };
        row("WINDFAKTOR=1.1", true, true, true, true);
        row("WINDFAKTOR=1.1", false, true, false, false);
        row("WINDFAKTOR=-2", true, true, true, true);
        row("WINDFAKTOR=0", true, true, false, true);
        row("WINDFAKTOR=0", false, true, false, true);
        row("WINDFAKTOR=abc", true, true, false, true);
        row("", true, true, false, true);
        row("", false, true, false, true);
        row("STAUBFAKTOR=2", true, true, false, true); // the wind factor alone counts
        row("WINDFAKTOR=1.1", true, false, false, true);
        row("WINDFAKTOR=1.1", false, false, false, false); // hidden by the start's own check
    }
    void menuState() {
        QFETCH(QByteArray, factorLine);
        QFETCH(bool, marked);
        QFETCH(bool, allowed);
        QFETCH(bool, enabled);
        QFETCH(bool, visible);
        const WindowFixture fixture = window(factorLine.toStdString() + "\n", marked);
        if (allowed) { // as the start-up's loading left it
            QCOMPARE(menu(fixture).isEnabled(), enabled);
            QCOMPARE(menu(fixture).isVisible(), visible);
        }
        QCOMPARE(fixture.window->checkMenu(allowed), enabled);
        QCOMPARE(menu(fixture).isEnabled(), enabled);
        QCOMPARE(menu(fixture).isVisible(), visible);
    }

    /// The current folder decides, wherever the project is; every load checks again.
    void markIsSoughtInTheCurrentFolder() {
        const TempFolder elsewhere;
        lay(elsewhere, "Projekt/", correctedStation("WINDFAKTOR=2\n"));
        const WindowFixture fixture = window("", true);
        QVERIFY(!menu(fixture).isEnabled());
        fixture.dialogs->file = QString::fromStdString(elsewhere.at("Projekt/QEL.ini"));
        fixture.trigger("menOpen");
        QVERIFY(menu(fixture).isEnabled());
        QVERIFY(menu(fixture).isVisible());

        std::filesystem::remove(fixture.folder->path() / "faktoren.cfg");
        elsewhere.write("Projekt/faktoren.cfg", "");
        elsewhere.write("Projekt/Data/faktoren.cfg", "");
        fixture.chooseChannel(1);
        QVERIFY(!menu(fixture).isEnabled());
        QVERIFY(!menu(fixture).isVisible());

        const CurrentFolder moved(elsewhere.path() / "Projekt");
        fixture.chooseChannel(0);
        QVERIFY(menu(fixture).isEnabled());
        QVERIFY(menu(fixture).isVisible());
    }

    void dustIsCorrectedAndShown() {
        const WindowFixture fixture = window("WINDFAKTOR=1\n", true);
        const MadeStation made = madeStation();
        fixture.chooseChannel(DUST_ROW);
        QCOMPARE(fixture.the<PolarSys>("KS").DataCount(), 0);
        const auto path = fixture.folder->path() / "Data" / "Kanal15_2020.chn";
        const std::string source = contentOf(fixture.folder->path() / "Data" / "Kanal07_2020.chn");

        const Shown first = answer(fixture, "menStaub", QStringLiteral("1,05"), "OKButton");
        QCOMPARE(first.caption, QStringLiteral("Korrekturfaktor Staub"));
        QCOMPARE(first.label, QStringLiteral("Korrekturfaktor Staub:"));
        QCOMPARE(first.factor, QStringLiteral("0"));
        QVERIFY(showsDay(fixture, [&](std::size_t m) { return made.minutes.at(7)[m] * 1.05; }));
        const std::string day =
            corrected({}, {source}, TEST_DAY_MINUTE, TEST_DAY_MINUTE + 1440, 1.05); // midnight included
        QVERIFY(contentOf(path) == day);

        // Another factor for another stretch: the range of the moment counts.
        fixture.window->activateWindow(); // typing goes to the window again
        QVERIFY(QTest::qWaitForWindowActive(fixture.window.get()));
        fixture.arrange({QStringLiteral("18.06.2020 06:00"), QStringLiteral("18.06.2020 07:00")}, 0);
        QCOMPARE(fixture.shownRange().from, QStringLiteral("18.06.2020 06:00"));
        QCOMPARE(fixture.shownRange().to, QStringLiteral("18.06.2020 07:00"));
        QCOMPARE(answer(fixture, "menStaub", QStringLiteral("-2"), "OKButton").factor,
                 QStringLiteral("1.05"));
        QVERIFY(contentOf(path) ==
                corrected(day, {source}, TEST_DAY_MINUTE + 360, TEST_DAY_MINUTE + 420, -2));
        QVERIFY(!std::filesystem::exists(fixture.folder->path() / "Data" / "Kanal06_2020.chn"));
        QVERIFY(contentOf(fixture.folder->path() / "Data" / "Kanal07_2020.chn") == source);
    }

    void windIsCorrectedAndShownInTheList() {
        const WindowFixture fixture = window("WINDFAKTOR=1\n", true);
        const MadeStation made = madeStation();
        fixture.chooseChannel(WIND_ROW);
        fixture.click("optView(1)");
        const QAbstractItemModel& rows = *fixture.the<QTableView>("lView").model();
        QCOMPARE(rows.rowCount(), 0);
        const Shown first = answer(fixture, "menWind", QStringLiteral("0.01"), "OKButton");
        QCOMPARE(first.caption, QStringLiteral("Korrekturfaktor Wind"));
        QCOMPARE(first.label, QStringLiteral("Korrekturfaktor Wind:"));
        QVERIFY(rows.rowCount() > 0);
        fixture.click("optView(0)");
        QVERIFY(showsDay(
            fixture, [&](std::size_t m) { return made.minutes.at(4)[m] * made.minutes.at(5)[m] * 0.01; }));
        QVERIFY(!std::filesystem::exists(fixture.folder->path() / "Data" / "Kanal15_2020.chn"));
    }

    /// Each mode keeps its own factor; a cancelled dialog keeps the one before and writes nothing.
    void lastFactorOfEachMode() {
        const WindowFixture fixture = window("WINDFAKTOR=1\n", true);
        const int drawings = fixture.the<PolarSys>("KS").drawings();
        QCOMPARE(answer(fixture, "menWind", QStringLiteral("3"), "CancelButton").factor, QStringLiteral("0"));
        QVERIFY(!std::filesystem::exists(fixture.folder->path() / "Data" / "Kanal06_2020.chn"));
        QCOMPARE(fixture.the<PolarSys>("KS").drawings(), drawings);
        QCOMPARE(answer(fixture, "menWind", QStringLiteral("1,5"), "OKButton").factor, QStringLiteral("0"));
        QCOMPARE(answer(fixture, "menStaub", QStringLiteral("2"), "OKButton").factor, QStringLiteral("0"));
        QCOMPARE(answer(fixture, "menWind", QStringLiteral("9"), "CancelButton").factor,
                 QStringLiteral("1.5"));
        QCOMPARE(answer(fixture, "menWind", QStringLiteral("9"), "CancelButton").factor,
                 QStringLiteral("1.5"));
        QCOMPARE(answer(fixture, "menStaub", QStringLiteral("9"), "CancelButton").factor,
                 QStringLiteral("2"));
    }

    void failureIsShown() {
        const WindowFixture fixture = window("WINDFAKTOR=1\n", true);
        std::filesystem::create_directory(fixture.folder->path() / "Data" / "Kanal15_2020.chn");
        answer(fixture, "menStaub", QStringLiteral("2"), "OKButton");
        QCOMPARE(fixture.dialogs->messages.size(), 1);
        QVERIFY(fixture.dialogs->messages.first().contains(QLatin1String("Kanal15_2020.chn")));
        QVERIFY(fixture.dialogs->messages.first().startsWith(QLatin1String("Korrekturfaktor Staub: ")));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_correction_test)
#include "f_correction_test.moc"
