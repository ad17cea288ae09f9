// SPDX-License-Identifier: GPL-3.0-or-later
// A thousand random user actions on the real main window. After each of them the window must show what a
// fresh window with the same settings shows: nothing may depend on the way that led there.
//
// The actions follow from a fixed seed. Others are tried with the environment variable KELVRUM_RANDOM_SEED,
// a longer run with KELVRUM_RANDOM_ACTIONS.
#include "diagram/PolarSys.h"
#include "diagram/ReadoutOverlay.h"
#include "diagram/SeriesTable.h"
#include "tests/app/RandomStations.h"
#include "tests/app/RandomUser.h"
#include "tests/app/WindowFixture.h"
#include "util/Validity.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QRadioButton>
#include <QRegularExpression>
#include <QSignalBlocker>
#include <QTableView>
#include <QTest>
#include <QTimeEdit>
#include <array>
#include <cmath>
#include <span>
#include <vector>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr std::uint64_t ACTIONS = 1000;

template<typename Control>
Control& the(const f& window, const char* name) {
    auto* control = window.findChild<Control*>(QString::fromUtf8(name));
    if (control == nullptr) {
        qFatal("no control %s", name);
    }
    return *control;
}

bool diagramShown(const f& window) { return the<QRadioButton>(window, "optView(0)").isChecked(); }

// --- what a window shows ---

struct Shown {
    QString caption;
    QStringList texts; // headlines, unit, channels, columns of the list
    std::vector<QStringList> rows;
    std::array<std::vector<double>, SeriesTable::ROWS> series;
    std::array<std::vector<double>, 2> samples; // of a rose: directions and speeds
};

Shown shownBy(const f& window) {
    Shown shown;
    shown.caption = window.windowTitle();
    const auto& ks = the<PolarSys>(window, "KS");
    if (diagramShown(window)) { // the diagram below the list is renewed when it is shown again
        shown.texts << QString::fromStdString(ks.HeadLine()) << QString::fromStdString(ks.Einheit());
        if (window.station().ChannelTable.count() > 0) { // else it tells which way the project was opened
            shown.texts << QString::fromStdString(ks.HeadLine2());
        }
        shown.texts << QString::fromStdString(ks.AchseText())
                    << QStringLiteral("kind %1, colours %2 %3, right from %4 to %5")
                           .arg(ks.DiagTyp())
                           .arg(ks.D2())
                           .arg(ks.Y2axe())
                           .arg(ks.Y2Low(), 0, 'g', 17)
                           .arg(ks.Y2High(), 0, 'g', 17);
        if (ks.DiagTyp() == KIND_POLAR) {
            const auto count = static_cast<std::size_t>(ks.sampleCount());
            const auto used = [count](const std::vector<double>& values) {
                const auto first = std::span(values).first(count);
                return std::vector<double>(first.begin(), first.end());
            };
            shown.samples = {used(ks.directionList()), used(ks.speedList())};
        }
    }
    const auto& channels = the<QListWidget>(window, "selChan");
    for (int row = 0; row < channels.count(); ++row) {
        shown.texts << channels.item(row)->text();
    }
    const QAbstractItemModel& list = *the<QTableView>(window, "lView").model();
    for (int column = 0; column < list.columnCount(); ++column) {
        shown.texts << list.headerData(column, Qt::Horizontal).toString();
    }
    for (int row = 0; row < list.rowCount(); ++row) {
        QStringList cells;
        for (int column = 0; column < list.columnCount(); ++column) {
            cells << list.index(row, column).data().toString();
        }
        shown.rows.push_back(cells);
    }
    for (std::size_t row = 0; row < SeriesTable::ROWS; ++row) {
        const auto values = seriesTable().row(static_cast<SeriesTable::Row>(row));
        const auto used = values.first(static_cast<std::size_t>(ks.DataCount()));
        shown.series[row].assign(used.begin(), used.end());
    }
    return shown;
}

/// A window that was never used, with the settings of another one.
Shown shownByFresh(const f& window, const Environment& environment, const QString& configuration) {
    f fresh(environment);
    fresh.Form_Load();
    fresh.readConf(configuration.toStdString());
    for (const char* name : {"DTPicker", "DTPicker1", "DTPicker2", "DTPicker3"}) {
        auto& picker = the<QDateTimeEdit>(fresh, name);
        const QSignalBlocker silent(picker);
        picker.setDateTime(the<QDateTimeEdit>(window, name).dateTime());
    }
    the<QComboBox>(fresh, "selInterval")
        .setCurrentIndex(the<QComboBox>(window, "selInterval").currentIndex());
    for (const char* name : {"optView(0)", "optView(1)"}) {
        if (the<QRadioButton>(window, name).isChecked()) {
            the<QRadioButton>(fresh, name).setChecked(true);
        }
    }
    auto& channels = the<QListWidget>(fresh, "selChan");
    {
        const QSignalBlocker silent(channels);
        channels.setCurrentRow(the<QListWidget>(window, "selChan").currentRow());
    }
    fresh.LoadData();
    for (const QAction* entry : the<QMenu>(window, "menZweiter").actions()) {
        if (entry->isChecked()) {
            the<QAction>(fresh, entry->objectName().toUtf8().constData()).trigger();
        }
    }
    for (QAction* entry : the<QMenu>(fresh, "menKS").actions()) {
        const int kind = the<PolarSys>(window, "KS").DiagTyp();
        if (entry->isCheckable() && entry->data().toInt() == kind && kind != KIND_LINE) {
            entry->trigger();
        }
    }
    return shownBy(fresh);
}

/// The table of all windows, restored afterwards.
class KeptSeries {
  public:
    KeptSeries()
        : kept_(seriesTable()) {}
    KeptSeries(const KeptSeries&) = delete;
    KeptSeries& operator=(const KeptSeries&) = delete;
    ~KeptSeries() { seriesTable() = kept_; }

  private:
    SeriesTable kept_;
};

/// The first place where two windows differ; empty when they show the same.
QString difference(const Shown& used, const Shown& fresh) {
    if (used.caption != fresh.caption || used.texts != fresh.texts) {
        return QStringLiteral("texts: %1 %2 | fresh: %3 %4")
            .arg(used.caption, used.texts.join(u"; "), fresh.caption, fresh.texts.join(u"; "));
    }
    if (used.rows.size() != fresh.rows.size()) {
        return QStringLiteral("%1 list rows | fresh: %2").arg(used.rows.size()).arg(fresh.rows.size());
    }
    for (std::size_t i = 0; i < used.rows.size(); ++i) {
        if (used.rows[i] != fresh.rows[i]) {
            return QStringLiteral("list row %1: %2 | fresh: %3")
                .arg(i)
                .arg(used.rows[i].join(u"; "), fresh.rows[i].join(u"; "));
        }
    }
    if (used.samples != fresh.samples) {
        return QStringLiteral("%1 samples | fresh: %2")
            .arg(used.samples[0].size())
            .arg(fresh.samples[0].size());
    }
    for (std::size_t row = 0; row < SeriesTable::ROWS; ++row) {
        if (used.series[row].size() != fresh.series[row].size()) {
            return QStringLiteral("%1 columns | fresh: %2")
                .arg(used.series[row].size())
                .arg(fresh.series[row].size());
        }
        for (std::size_t i = 0; i < used.series[row].size(); ++i) {
            if (used.series[row][i] != fresh.series[row][i]) {
                return QStringLiteral("series row %1, column %2: %3 | fresh: %4")
                    .arg(row)
                    .arg(i)
                    .arg(used.series[row][i], 0, 'g', 17)
                    .arg(fresh.series[row][i], 0, 'g', 17);
            }
        }
    }
    return {};
}

// --- what holds after every action ---

bool isNumber(const QString& text) {
    static const QRegularExpression form(QRegularExpression::anchoredPattern(
        QStringLiteral("[+-]?([0-9]+\\.?[0-9]*|\\.[0-9]+)([eE][+-]?[0-9]+)?")));
    const QString trimmed = text.trimmed();
    return form.match(trimmed).hasMatch() && std::isfinite(trimmed.toDouble()); // an overflow is infinite
}

/// The limit line that a box stands for.
double limitLine(const f& window, const char* box) {
    if (!the<QCheckBox>(window, "Check1").isChecked()) {
        return 0;
    }
    const QString text = the<QLineEdit>(window, box).text().trimmed();
    const double value = isNumber(text) ? text.toDouble() : INVALID_VALUE;
    if (std::fabs(value) >= INVALID_VALUE) {
        return INVALID_VALUE;
    }
    return value == 0 ? 1e-300 : value;
}

/// Whether what the overlay reads out is in the series.
bool readsWhatIsShown(const f& window) {
    const auto& overlay = the<ReadoutOverlay>(window, "overlay");
    const auto time = overlay.readTime();
    if (!time) {
        return true;
    }
    const Series series = seriesInUse(the<PolarSys>(window, "KS").DataCount());
    for (std::size_t i = 0; i < series.times.size(); ++i) {
        if (series.times[i] == *time && (!overlay.readValue() || series.y1[i] == *overlay.readValue())) {
            return true;
        }
    }
    return false;
}

/// What is wrong with a single window; empty when nothing is.
QString wrongWith(const f& window) {
    const auto& ks = the<PolarSys>(window, "KS");
    const auto red = [&](const char* box) {
        return the<QLineEdit>(window, box).palette().color(QPalette::Base) == QColor(255, 0, 0);
    };
    const auto number = [&](const char* box) { return isNumber(the<QLineEdit>(window, box).text()); };
    const auto left = [&](const char* box) { return !the<QLineEdit>(window, box).hasFocus(); };
    const bool diagram = diagramShown(window);
    const struct {
        bool holds;
        const char* otherwise;
    } rules[] = {
        {QApplication::activeModalWidget() == nullptr, "a modal window is open"},
        {QApplication::activePopupWidget() == nullptr, "a popup is open"},
        {QGuiApplication::overrideCursor() == nullptr, "the pointer is still busy"},
        {the<QLabel>(window, "Label8").isHidden(), "the loading notice is still there"},
        {ks.XLow() == window.range().from, "XLow is not the start of the range"},
        {ks.XHigh() == window.range().to, "XHigh is not the end of the range"},
        {window.range().from <= window.range().to, "the range is crossed"},
        {the<QTableView>(window, "lView").isVisible() != diagram, "the wrong view is shown"},
        {red("Text1") == !number("Text1"), "Text1 has the wrong background"},
        {red("Text2") == !number("Text2"), "Text2 has the wrong background"},
        {number("Text1") || !left("Text1"), "Text1 was left without a number"},
        {number("Text2") || !left("Text2"), "Text2 was left without a number"},
        {!diagram || ks.Hilfslinie1() == limitLine(window, "Text3"), "limit line 1 is not that of Text3"},
        {!diagram || ks.Hilfslinie2() == limitLine(window, "Text4"), "limit line 2 is not that of Text4"},
        {ks.showMittel() == the<QCheckBox>(window, "Check2").isChecked(), "the mean line is not as ticked"},
        {!diagram || readsWhatIsShown(window), "the readout tells a value that is not there"},
    };
    for (const auto& rule : rules) {
        if (!rule.holds) {
            return QString::fromUtf8(rule.otherwise);
        }
    }
    return {};
}

} // namespace

class f_random_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void showsWhatAFreshWindowShows() {
        const std::uint64_t seed = randomSeed();
        const std::uint64_t count = randomActions(ACTIONS);
        qInfo("seed %s", qPrintable(QString::number(seed))); // also seen when the program breaks down
        const RandomStations stations;
        const Environment environment = stations.environment();
        f window(environment);
        window.resize(1000, 700);
        window.Form_Load();
        window.show();
        QVERIFY(QTest::qWaitForWindowActive(&window));
        RandomUser user(window, stations.dialogs(), stations.files(), stations.files()[0], seed);
        std::uint64_t withData = 0;
        for (std::uint64_t i = 1; i <= count; ++i) {
            user.act();
            QString finding = wrongWith(window);
            if (finding.isEmpty()) {
                const KeptSeries series;
                const Shown used = shownBy(window);
                const bool isEmpty = used.series[0].empty() && used.rows.empty() && used.samples[0].empty();
                withData += isEmpty ? 0 : 1;
                finding = difference(used, shownByFresh(window, environment, user.opened()));
            }
            if (!finding.isEmpty()) {
                QFAIL(qPrintable(QStringLiteral("seed %1, action %2: %3\nThe last actions:%4")
                                     .arg(seed)
                                     .arg(i)
                                     .arg(finding, user.lastActions())));
            }
        }
        QVERIFY2(withData > count / 3, qPrintable(QStringLiteral("values after %1 actions").arg(withData)));
    }

    /// A window that ends with a half-typed date reads nothing any more.
    void unfinishedEditAtTheEnd() {
        WindowFixture fixture;
        QVERIFY(QTest::qWaitForWindowActive(fixture.window.get()));
        auto& picker = fixture.the<QDateEdit>("DTPicker");
        picker.setFocus();
        QTest::keyClick(&picker, Qt::Key_1);
        fixture.files.opened = 0;
        fixture.window.reset();
        QCOMPARE(fixture.files.opened, 0);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_random_test)
#include "f_random_test.moc"
