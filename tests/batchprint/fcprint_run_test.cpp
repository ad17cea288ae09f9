// SPDX-License-Identifier: GPL-3.0-or-later
// The print run up to the printer, of which there is none here.
#include "diagram/SeriesTable.h"
#include "tests/batchprint/BatchFixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QGuiApplication>
#include <QLineEdit>
#include <QProgressBar>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

bool isHourglass() {
    const QCursor* pointer = QGuiApplication::overrideCursor();
    return pointer != nullptr && pointer->shape() == Qt::WaitCursor;
}

/// What the main view has set on the diagram.
void setView(PolarSys& diagram) {
    diagram.setDiagTyp(KIND_DIRECTION);
    diagram.setY1Low(-3.5);
    diagram.setY1High(540);
    diagram.setHilfslinie1(7);
    diagram.setHilfslinie2(8);
    diagram.setShowMittel(true);
    diagram.setXLow(100);
    diagram.setXHigh(101);
    diagram.setHeadLine("Kopf");
    diagram.setHeadLine2("Fuß");
    diagram.setEinheit("mm");
}

QString viewOf(const PolarSys& diagram) {
    return QStringLiteral("%1: %2 to %3, lines %4 %5, mean %6, x %7 to %8")
        .arg(diagram.DiagTyp())
        .arg(diagram.Y1Low(), 0, 'g', 12)
        .arg(diagram.Y1High(), 0, 'g', 12)
        .arg(diagram.Hilfslinie1())
        .arg(diagram.Hilfslinie2())
        .arg(diagram.showMittel())
        .arg(diagram.XLow(), 0, 'g', 12)
        .arg(diagram.XHigh(), 0, 'g', 12);
}

const QString VIEW = QStringLiteral("3: -3.5 to 540, lines 7 8, mean 1, x 100 to 101");
const QString PERIOD_WRONG = QStringLiteral("Sammeldruck: Bitte überprüfen Sie die Angabe des Zeitraums!");

} // namespace

class fcprint_run_test : public QObject {
    Q_OBJECT

    /// As it was before the run, except for the reload.
    static void compareRestored(const BatchFixture& fixture) {
        QVERIFY(!fixture.the<QProgressBar>(QStringLiteral("PBar")).isVisible());
        for (const char* button : {"SaveButton", "OKButton", "CancelButton"}) {
            QVERIFY2(fixture.the<QAbstractButton>(QString::fromUtf8(button)).isEnabled(), button);
        }
        QVERIFY(fixture.the<QCheckBox>("chKanal", 0).isEnabled());
        QVERIFY(!isHourglass());
        QVERIFY(!fixture.job.isOpen());
        QVERIFY(fixture.diagram.updatesEnabled());
    }

  private Q_SLOTS:
    /// The row's settings are on the diagram when its channel is read.
    void settingsOfARow_data() {
        QTest::addColumn<int>("row");
        QTest::addColumn<bool>("automatic");
        QTest::addColumn<bool>("lines");
        QTest::addColumn<bool>("mean");
        QTest::addColumn<QString>("expected");
        QTest::addColumn<QString>("request");
        QTest::newRow("automatic") << 0 << true << false << false
                                   << QStringLiteral("0: 100000005 to 100000005, lines 0 0, mean 0")
                                   << QStringLiteral("1 60 1 Stunde no lines");
        QTest::newRow("manual") << 1 << false << true << true
                                << QStringLiteral("0: -2.5 to 40, lines 7 8, mean 1")
                                << QStringLiteral("6 60 1 Stunde 0.25 -9");
        QTest::newRow("no such channel")
            << 4 << false << true << false << QStringLiteral("0: -2.5 to 40, lines 7 8, mean 0")
            << QStringLiteral("13 60 1 Stunde 0.25 -9");
    }
    void settingsOfARow() {
        QFETCH(int, row);
        QFETCH(bool, automatic);
        QFETCH(bool, lines);
        QFETCH(bool, mean);
        BatchFixture fixture;
        setView(fixture.diagram);
        fixture.click("chKanal", row);
        fixture.type("tMin", row, QStringLiteral("-2.5"));
        fixture.type("tMax", row, QStringLiteral("40"));
        fixture.choose(row, 4);
        fixture.click("chShowLines", row);
        fixture.type("aMin", row, QStringLiteral(".25"));
        fixture.type("aMax", row, QStringLiteral("-9"));
        if (automatic) {
            fixture.click("chAuto", row);
        }
        if (!lines) {
            fixture.click("chShowLines", row);
        }
        if (mean) {
            fixture.click("chShowMittel", row);
        }
        QString view;
        QString request;
        fixture.onRead = [&](const ReadRequest& asked, const DiagramSettings& settings) {
            view = viewOf(fixture.diagram);
            request = QStringLiteral("%1 %2 %3")
                          .arg(asked.channel)
                          .arg(asked.interval)
                          .arg(QString::fromStdString(settings.intervalCaption));
            request += settings.auxiliaryLines ? QStringLiteral(" %1 %2")
                                                     .arg(settings.auxiliaryLines->first)
                                                     .arg(settings.auxiliaryLines->second)
                                               : QStringLiteral(" no lines");
            [&] {
                QVERIFY(asked.suffix.empty());
                QCOMPARE(asked.range.from, fixture.range.from);
                QCOMPARE(asked.range.to, fixture.range.to);
            }();
            return ReadStatus::complete;
        };
        fixture.click(QStringLiteral("OKButton"));
        const QString axis = QStringLiteral(", x %1 to %2")
                                 .arg(fixture.range.from, 0, 'g', 12)
                                 .arg(fixture.range.to, 0, 'g', 12);
        QFETCH(QString, expected);
        QCOMPARE(view, expected + axis);
        QTEST(request, "request");
    }

    /// Nothing can be started again, saved, edited or closed while it prints; the printer's absence ends it.
    void orderOfEvents() {
        BatchFixture fixture;
        setView(fixture.diagram);
        fixture.click("chKanal", 0);
        fixture.click("chKanal", 3);
        const auto& bar = fixture.the<QProgressBar>(QStringLiteral("PBar"));
        QStringList seen;
        fixture.onRead = [&](const ReadRequest&, const DiagramSettings&) {
            seen << QStringLiteral("bar %1 of %2, %3")
                        .arg(bar.value())
                        .arg(bar.maximum())
                        .arg(bar.isVisible() ? QStringLiteral("shown") : QStringLiteral("hidden"));
            for (const char* button : {"OKButton", "SaveButton", "CancelButton"}) {
                seen << (fixture.the<QAbstractButton>(QString::fromUtf8(button)).isEnabled()
                             ? QStringLiteral("enabled")
                             : QStringLiteral("disabled"));
                fixture.click(QString::fromUtf8(button));
            }
            fixture.click("chKanal", 0);
            QTest::keyClick(fixture.window.get(), Qt::Key_Escape);
            fixture.window->close();
            fixture.window->printRows();
            seen << (isHourglass() ? QStringLiteral("hourglass") : QStringLiteral("arrow"));
            return ReadStatus::complete;
        };
        fixture.onLoad = [&] {
            seen << viewOf(fixture.diagram)
                 << (bar.isVisible() ? QStringLiteral("shown") : QStringLiteral("hidden"))
                 << (isHourglass() ? QStringLiteral("hourglass") : QStringLiteral("arrow"));
        };
        fixture.dialogs.onMessage = [&] { compareRestored(fixture); };
        fixture.click(QStringLiteral("OKButton"));
        QCOMPARE(fixture.events, QStringList({QStringLiteral("read 1"), QStringLiteral("load")}));
        QCOMPARE(seen, QStringList({QStringLiteral("bar 1 of 12, shown"), QStringLiteral("disabled"),
                                    QStringLiteral("disabled"), QStringLiteral("disabled"),
                                    QStringLiteral("hourglass"), VIEW, QStringLiteral("hidden"),
                                    QStringLiteral("hourglass")}));
        QCOMPARE(fixture.dialogs.messages.size(), 1);
        QVERIFY(fixture.dialogs.messages[0].startsWith(QStringLiteral("Sammeldruck: Der Drucker ist nicht")));
        QVERIFY(fixture.window->isVisible());
        QVERIFY(fixture.the<QCheckBox>("chKanal", 0).isChecked());
        compareRestored(fixture);

        fixture.click(QStringLiteral("OKButton")); // and once more
        QCOMPARE(fixture.events.size(), 4);
        QCOMPARE(viewOf(fixture.diagram), VIEW);
        QCOMPARE(fixture.diagram.HeadLine(), std::string("Kopf"));
        QCOMPARE(fixture.diagram.HeadLine2(), std::string("Fuß"));
        QCOMPARE(fixture.diagram.Einheit(), std::string("mm"));
    }

    /// "Drucken" is enabled before the owner's view is there again; on a slow medium a second press waits in
    /// the queue of events by then.
    void aPressBeforeTheViewIsThereIsIgnored() {
        BatchFixture fixture;
        fixture.click("chKanal", 0);
        bool enabled = false;
        fixture.onLoad = [&] {
            enabled = fixture.the<QAbstractButton>(QStringLiteral("OKButton")).isEnabled();
            fixture.click(QStringLiteral("OKButton"));
            fixture.window->printRows();
        };
        fixture.click(QStringLiteral("OKButton"));
        QVERIFY(enabled);
        QCOMPARE(fixture.events, QStringList({QStringLiteral("read 1"), QStringLiteral("load")}));
        QCOMPARE(fixture.dialogs.messages.size(), 1);
        compareRestored(fixture);
        fixture.onLoad = nullptr;
        fixture.click(QStringLiteral("OKButton")); // now it starts again
        QCOMPARE(fixture.events.size(), 4);
    }

    /// The averaged data of the channel are on the diagram; here of the first hour and a half.
    void dataOfTheRow() {
        BatchFixture fixture;
        fixture.click("chKanal", 2);
        fixture.choose(2, 4);
        fixture.typePicker("DTPicker2", QStringLiteral("18062020"));
        fixture.typePicker("DTPicker3", QStringLiteral("0830"));
        QTest::keyClick(fixture.window.get(), Qt::Key_D, Qt::AltModifier);
        QTRY_COMPARE(fixture.events.size(), 2);
        QCOMPARE(fixture.diagram.DataCount(), 2);
        QCOMPARE(seriesTable().row(SeriesTable::Y1)[0], 390 + 30.5); // the values count minutes from 1
        QCOMPARE(seriesTable().row(SeriesTable::Y1)[1], 450 + 30.5);
    }

    /// The skipped rows move the bar too.
    void barOfALowerRow() {
        BatchFixture fixture;
        fixture.click("chKanal", 9);
        const auto& bar = fixture.the<QProgressBar>(QStringLiteral("PBar"));
        int value = 0;
        int maximum = 0;
        fixture.onRead = [&](const ReadRequest&, const DiagramSettings&) {
            value = bar.value();
            maximum = bar.maximum();
            return ReadStatus::complete;
        };
        fixture.click(QStringLiteral("OKButton"));
        QCOMPARE(value, 9 * 3 + 1);
        QCOMPARE(maximum, 30);
        QCOMPARE(fixture.events, QStringList({QStringLiteral("read 15"), QStringLiteral("load")}));
    }

    void noRow() {
        BatchFixture fixture;
        setView(fixture.diagram);
        fixture.window->printRows();
        QCOMPARE(fixture.events, QStringList{QStringLiteral("load")});
        QVERIFY(fixture.dialogs.messages.isEmpty());
        QVERIFY(!isHourglass());
        QVERIFY(!fixture.the<QProgressBar>(QStringLiteral("PBar")).isVisible());
        QVERIFY(!fixture.the<QAbstractButton>(QStringLiteral("OKButton")).isEnabled());
        QCOMPARE(viewOf(fixture.diagram), VIEW);
    }

    void wrongPeriod_data() {
        QTest::addColumn<QString>("start");
        QTest::addColumn<QString>("end");
        QTest::newRow("equal") << QStringLiteral("180620201200") << QStringLiteral("180620201200");
        QTest::newRow("a minute before") << QStringLiteral("180620201201") << QStringLiteral("180620201200");
        QTest::newRow("a year before") << QStringLiteral("180620201200") << QStringLiteral("180620191200");
    }
    /// Nothing is done, and the pointer stays the hourglass on purpose; a run to the end, or the end of the
    /// dialog, resets it.
    void wrongPeriod() {
        QFETCH(QString, start);
        QFETCH(QString, end);
        BatchFixture fixture;
        setView(fixture.diagram);
        fixture.click("chKanal", 0);
        fixture.typePicker("DTPicker", start.left(8));
        fixture.typePicker("DTPicker1", start.mid(8));
        fixture.typePicker("DTPicker2", end.left(8));
        fixture.typePicker("DTPicker3", end.mid(8));
        fixture.click(QStringLiteral("OKButton"));
        fixture.click(QStringLiteral("OKButton"));
        QCOMPARE(fixture.dialogs.messages, QStringList({PERIOD_WRONG, PERIOD_WRONG}));
        QVERIFY(fixture.events.isEmpty());
        QVERIFY(isHourglass());
        QVERIFY(fixture.the<QAbstractButton>(QStringLiteral("OKButton")).isEnabled());
        QVERIFY(!fixture.the<QProgressBar>(QStringLiteral("PBar")).isVisible());
        QCOMPARE(viewOf(fixture.diagram), VIEW);

        fixture.typePicker("DTPicker2", QStringLiteral("19062021"));
        fixture.click(QStringLiteral("OKButton"));
        QCOMPARE(fixture.events, QStringList({QStringLiteral("read 1"), QStringLiteral("load")}));
        QVERIFY(!isHourglass());

        fixture.typePicker("DTPicker2", QStringLiteral("01012000"));
        fixture.click(QStringLiteral("OKButton"));
        QVERIFY(isHourglass());
        fixture.window.reset();
        QVERIFY(!isHourglass());
    }

    /// All four fields of a checked row count, the disabled ones too.
    void badNumber_data() {
        QTest::addColumn<QByteArray>("field");
        for (const char* field : {"tMin", "tMax", "aMin", "aMax"}) {
            QTest::newRow(field) << QByteArray(field);
        }
    }
    void badNumber() {
        QFETCH(QByteArray, field);
        BatchFixture fixture;
        setView(fixture.diagram);
        fixture.click("chKanal", 0);
        fixture.click("chShowLines", 0);
        fixture.type(field.constData(), 0, QStringLiteral("1,5"));
        fixture.click(QStringLiteral("OKButton"));
        QCOMPARE(fixture.events, QStringList{QStringLiteral("load")});
        QCOMPARE(fixture.dialogs.messages.size(), 1);
        QVERIFY(fixture.dialogs.messages[0].contains(QStringLiteral("Zahl")));
        QVERIFY(fixture.dialogs.messages[0].contains(QStringLiteral("Staub")));
        QCOMPARE(QApplication::focusWidget(), &fixture.the<QWidget>(field.constData(), 0));
        QVERIFY(fixture.isRed(field.constData(), 0));
        QCOMPARE(viewOf(fixture.diagram), VIEW);
        compareRestored(fixture);

        fixture.click("chShowLines", 0);
        fixture.click(QStringLiteral("OKButton"));
        QCOMPARE(fixture.dialogs.messages.size(), 2);
        QVERIFY(fixture.dialogs.messages[1].contains(QStringLiteral("Zahl")));

        fixture.click("chKanal", 0); // in a row that is not printed nothing is looked at
        fixture.click("chKanal", 1);
        fixture.click(QStringLiteral("OKButton"));
        QVERIFY(fixture.events.contains(QStringLiteral("read 6")));
    }

    void readingFails_data() {
        QTest::addColumn<int>("way");
        QTest::addColumn<QString>("message");
        QTest::newRow("given up") << 0
                                  << QStringLiteral("Sammeldruck: Der Druck wurde abgebrochen: Die Daten "
                                                    "wurden nicht vollständig gelesen.");
        QTest::newRow("error") << 1 << QStringLiteral("Sammeldruck: Plattenfehler");
        QTest::newRow("no exception of ours")
            << 2 << QStringLiteral("Sammeldruck: Der Druck wurde abgebrochen.");
    }
    void readingFails() {
        QFETCH(int, way);
        QFETCH(QString, message);
        BatchFixture fixture;
        setView(fixture.diagram);
        fixture.click("chKanal", 0);
        fixture.click("chKanal", 1);
        fixture.onRead = [way](const ReadRequest&, const DiagramSettings&) -> ReadStatus {
            if (way == 1) {
                throw std::runtime_error("Plattenfehler");
            }
            if (way == 2) {
                throw 7;
            }
            return ReadStatus::givenUp;
        };
        fixture.click(QStringLiteral("OKButton"));
        QCOMPARE(fixture.events, QStringList({QStringLiteral("read 1"), QStringLiteral("load")}));
        QCOMPARE(fixture.dialogs.messages, QStringList{message});
        QCOMPARE(viewOf(fixture.diagram), VIEW);
        compareRestored(fixture);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::fcprint_run_test)
#include "fcprint_run_test.moc"
