// SPDX-License-Identifier: GPL-3.0-or-later
// The window "Auswertung", opened by key and menu, read, copied and closed by hand.
#include "app/EvaluationModel.h"
#include "tests/app/EvaluationDriver.h"

#include <QAbstractItemModelTester>
#include <QAction>
#include <QCheckBox>
#include <QClipboard>
#include <QGuiApplication>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QScrollBar>
#include <QSplitter>
#include <QTabWidget>
#include <QTableView>
#include <QTest>
#include <map>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

// Rows of the channel list: 4, 5, 7, 12.
constexpr int SPEED_ROW = 0;
constexpr int DIRECTION_ROW = 1;
constexpr int DUST_ROW = 2;
constexpr int RAIN_ROW = 3;

std::map<QString, QString> summaryOf(const QWidget& window) {
    const QAbstractItemModel& model = *controlOf<QTableView>(window, "vwKennzahlen").model();
    std::map<QString, QString> summary;
    for (int row = 0; row < model.rowCount(); ++row) {
        summary[model.index(row, 0).data().toString()] = model.index(row, 1).data().toString();
    }
    return summary;
}

} // namespace

class EvaluationTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void showsTheViewAsItIs();
    void opensFromTheMenusOfDiagramAndList();
    void allColumnsAreVisible_data();
    void allColumnsAreVisible();
    void limitsOfTheBoxes();
    void onlyCoveredIntervals();
    void directionsHaveATableOfTheirOwn();
    void sumsHaveATotal();
    void copiesAllOfIt();
    void readsOnce();
    void closingGivesUp();
    void waitsForTheLoad();
    void withoutAChannelThereIsNone();
    void modelsKeepTheRulesOfModels();
};

void EvaluationTest::showsTheViewAsItIs() {
    WindowFixture fixture;
    fixture.chooseChannel(DUST_ROW);
    fixture.chooseInterval(4); // an hour
    inEvaluation(fixture, [](QWidget& window) {
        QVERIFY(window.windowTitle().startsWith(QStringLiteral("Auswertung: ")));
        QVERIFY(window.windowTitle().endsWith(
            QStringLiteral(", 18.06.2020 00:00 bis 19.06.2020 00:00, 1 Stunde")));
        const auto summary = summaryOf(window);
        QCOMPARE(summary.at(QStringLiteral("Intervalle")), QStringLiteral("24"));
        QVERIFY(summary.contains(QStringLiteral("98. Perzentil")));
        auto& tabs = controlOf<QTabWidget>(window, "tabTabellen");
        QCOMPARE(tabs.count(), 1);
        QCOMPARE(controlOf<QTableView>(window, "vwTabelle(0)").model()->rowCount(), 24);
        QCOMPARE(
            controlOf<QLabel>(window, "lblFuss").text(),
            QStringLiteral("Zeit: Beginn des Intervalls, ohne Sommerzeit. Gespeicherte Nullen gelten als "
                           "fehlend."));
        QVERIFY(!controlOf<QLabel>(window, "lblLesen").isVisible());
    });
}

void EvaluationTest::opensFromTheMenusOfDiagramAndList() {
    WindowFixture fixture;
    auto& action = fixture.the<QAction>("menAuswertung");
    QCOMPARE(action.text(), QStringLiteral("&Auswertung"));
    QCOMPARE(action.shortcut(), QKeySequence(Qt::Key_F6));
    QVERIFY(fixture.the<QMenu>("menKS").actions().contains(&action));
    auto& list = fixture.the<QTableView>("lView");
    QVERIFY(list.actions().contains(&action));
    bool opened = false;
    fixture.inWindowOf(
        [&] { action.trigger(); },
        [&](QWidget& window) { opened = window.objectName() == QStringLiteral("Auswertung"); });
    QVERIFY(opened);
}

void EvaluationTest::allColumnsAreVisible_data() {
    QTest::addColumn<int>("channel");
    QTest::addColumn<QString>("end");
    QTest::newRow("hours, with both limits") << DUST_ROW << QStringLiteral("19.06.2020 00:00");
    QTest::newRow("days, with both limits") << DUST_ROW << QStringLiteral("18.08.2020 00:00");
    QTest::newRow("months, with both limits") << DUST_ROW << QStringLiteral("01.12.2020 00:00");
    QTest::newRow("directions") << DIRECTION_ROW << QStringLiteral("19.06.2020 00:00");
}

/// Neither the summary nor a table is cut when the window opens, and the divider stays where the user puts
/// it.
void EvaluationTest::allColumnsAreVisible() {
    QFETCH(int, channel);
    QFETCH(QString, end);
    const WindowFixture fixture;
    fixture.chooseChannel(channel);
    fixture.arrange({QStringLiteral("18.06.2020 00:00"), end}, 2);
    inEvaluation(fixture, [](QWidget& window) {
        const auto& summary = controlOf<QTableView>(window, "vwKennzahlen");
        QVERIFY(summary.columnWidth(0) + summary.columnWidth(1) <= summary.viewport()->width());
        for (int row = 0; row < summary.model()->rowCount(); ++row) {
            const QModelIndex index = summary.model()->index(row, 1);
            QVERIFY2(summary.sizeHintForIndex(index).width() <= summary.columnWidth(1),
                     qPrintable(index.data().toString()));
        }
        auto& tabs = controlOf<QTabWidget>(window, "tabTabellen");
        for (int tab = 0; tab < tabs.count(); ++tab) {
            tabs.setCurrentIndex(tab);
            QCOMPARE(qobject_cast<QTableView*>(tabs.widget(tab))->horizontalScrollBar()->maximum(), 0);
        }
        auto& divider = *window.findChild<QSplitter*>();
        divider.setSizes({300, divider.width() - 300});
        const QList<int> sizes = divider.sizes();
        QTest::keyClick(&controlOf<QCheckBox>(window, "chkMinuten"), Qt::Key_Space);
        QCOMPARE(divider.sizes(), sizes);
    });
}

void EvaluationTest::limitsOfTheBoxes() {
    struct Row {
        bool shown;
        const char* first;
        const char* second;
        const char* sentence;
    };
    const Row rows[] = {
        {false, "20", "35.5", "Ausgewertet mit Grenzwert 1: 20 mg und Grenzwert 2: 35,5 mg."},
        {false, "0", "35", "Ausgewertet mit Grenzwert 2: 35 mg."},
        {true, "0", "35", "Ausgewertet mit Grenzwert 1: 0 mg und Grenzwert 2: 35 mg."},
        {true, "x", "", "Ausgewertet ohne Grenzwerte."},
        {true, "99999900", "-1", "Ausgewertet mit Grenzwert 2: -1 mg."},
    };
    WindowFixture fixture;
    fixture.chooseChannel(DUST_ROW);
    for (const Row& row : rows) {
        auto& shown = fixture.the<QCheckBox>("Check1");
        if (!shown.isChecked()) {
            fixture.click("Check1");
        }
        fixture.type("Text3", QString::fromUtf8(row.first));
        fixture.type("Text4", QString::fromUtf8(row.second));
        if (!row.shown) {
            fixture.click("Check1");
        }
        const QString unit = QString::fromStdString(fixture.window->station().ChannelTable.at(7).Unit);
        const QString sentence = QString::fromUtf8(row.sentence).replace(QStringLiteral("mg"), unit);
        inEvaluation(fixture, [&](QWidget& window) {
            QCOMPARE(controlOf<QLabel>(window, "lblGrenzwerte").text(), sentence);
        });
    }
}

void EvaluationTest::onlyCoveredIntervals() {
    WindowFixture fixture;
    fixture.chooseChannel(SPEED_ROW);
    fixture.chooseInterval(4);
    inEvaluation(fixture, [](QWidget& window) {
        QVERIFY(!summaryOf(window).contains(QStringLiteral("davon ausgewertet")));
        auto& box = controlOf<QCheckBox>(window, "chkMinuten");
        QVERIFY(!box.isChecked());
        QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
        QVERIFY(summaryOf(window).contains(QStringLiteral("davon ausgewertet")));
        QTest::mouseClick(&box, Qt::LeftButton, {}, QPoint(8, box.height() / 2));
        QVERIFY(!summaryOf(window).contains(QStringLiteral("davon ausgewertet")));
    });
}

void EvaluationTest::directionsHaveATableOfTheirOwn() {
    WindowFixture fixture;
    fixture.chooseChannel(DIRECTION_ROW);
    inEvaluation(fixture, [](QWidget& window) {
        QCOMPARE(controlOf<QTabWidget>(window, "tabTabellen").count(), 2);
        QCOMPARE(controlOf<QTableView>(window, "vwTabelle(0)").model()->rowCount(), 13);
        QVERIFY(summaryOf(window).contains(QStringLiteral("Beständigkeit")));
        QCOMPARE(controlOf<QLabel>(window, "lblGrenzwerte").text(),
                 QStringLiteral("Für Windrichtungen gelten keine Grenzwerte."));
    });
}

void EvaluationTest::sumsHaveATotal() {
    WindowFixture fixture;
    fixture.chooseChannel(RAIN_ROW);
    inEvaluation(fixture, [](QWidget& window) {
        const auto summary = summaryOf(window);
        QVERIFY(summary.contains(QStringLiteral("Summe")));
        QCOMPARE(summary.at(QStringLiteral("Verfügbarkeit")), QStringLiteral("–"));
    });
}

void EvaluationTest::copiesAllOfIt() {
    WindowFixture fixture;
    fixture.chooseChannel(DUST_ROW);
    inEvaluation(fixture, [](QWidget& window) {
        QGuiApplication::clipboard()->clear();
        QTest::mouseClick(&controlOf<QPushButton>(window, "cmdKopieren"), Qt::LeftButton);
        const QString text = QGuiApplication::clipboard()->text();
        QVERIFY(text.startsWith(window.windowTitle() + QStringLiteral("\n\nIntervalle\t1440\n")));
        QVERIFY(text.contains(controlOf<QLabel>(window, "lblGrenzwerte").text()));
        QVERIFY(text.trimmed().endsWith(controlOf<QLabel>(window, "lblFuss").text()));
    });
}

void EvaluationTest::readsOnce() {
    WindowFixture fixture;
    fixture.chooseChannel(DUST_ROW);
    const int before = fixture.files.opened;
    inEvaluation(fixture, [](QWidget& window) {
        QTest::keyClick(window.focusWidget(), Qt::Key_Space); // that of the check box
        QVERIFY(controlOf<QCheckBox>(window, "chkMinuten").isChecked());
    });
    QCOMPARE(fixture.files.opened - before, 1);
}

void EvaluationTest::closingGivesUp() {
    WindowFixture fixture;
    fixture.chooseChannel(DUST_ROW);
    int reads = 0;
    fixture.files.onRead = [&] {
        ++reads;
        if (QWidget* window = QApplication::activeModalWidget()) {
            window->close();
        }
    };
    QTest::keyClick(fixture.window.get(), Qt::Key_F6); // returns when the window is closed
    QVERIFY(reads > 0);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void EvaluationTest::waitsForTheLoad() {
    WindowFixture fixture;
    bool nested = false;
    bool pressed = false;
    fixture.files.onRead = [&] {
        if (!std::exchange(pressed, true)) {
            fixture.the<QAction>("menAuswertung").trigger();
            nested = QApplication::activeModalWidget() != nullptr;
        }
    };
    QString opened;
    fixture.inWindowOf([&] { fixture.chooseChannel(DUST_ROW); },
                       [&](QWidget& window) { opened = window.objectName(); });
    QVERIFY(pressed);
    QVERIFY(!nested);
    QCOMPARE(opened, QStringLiteral("Auswertung"));
}

void EvaluationTest::withoutAChannelThereIsNone() {
    MadeStation station;
    station.ini = "PROJEKTNAME=Leer\n";
    WindowFixture fixture(station);
    QTest::keyClick(fixture.window.get(), Qt::Key_F6);
    QVERIFY(QApplication::activeModalWidget() == nullptr);
}

void EvaluationTest::modelsKeepTheRulesOfModels() {
    EvaluationModel model(EvaluationModel::Columns::numbers);
    const QAbstractItemModelTester tester(&model, QAbstractItemModelTester::FailureReportingMode::QtTest);
    model.setTable({"Nach Tagen", {"Tag", "Intervalle"}, {{"18.06.2020", "24"}, {"19.06.2020", "–"}}});
    QCOMPARE(model.rowCount(), 2);
    QCOMPARE(model.index(1, 1).data().toString(), QStringLiteral("–"));
    QCOMPARE(model.headerData(1, Qt::Horizontal, Qt::DisplayRole).toString(), QStringLiteral("Intervalle"));
    model.setTable({});
    QCOMPARE(model.rowCount(), 0);
    QCOMPARE(model.columnCount(), 0);
}

} // namespace kelvrum

QTEST_MAIN(kelvrum::EvaluationTest)
#include "f_evaluation_test.moc"
