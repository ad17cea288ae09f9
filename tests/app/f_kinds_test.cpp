// SPDX-License-Identifier: GPL-3.0-or-later
// The kinds of diagram, chosen from the context menu of the diagram.
#include "diagram/PolarSys.h"
#include "tests/app/WindowFixture.h"

#include <QAction>
#include <QApplication>
#include <QContextMenuEvent>
#include <QMenu>
#include <QTest>
#include <array>
#include <cmath>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr int WIND_ROW = 1; // of the channel list

/// Opens the context menu by mouse or by key and returns it.
QMenu& openMenu(const WindowFixture& fixture, QContextMenuEvent::Reason reason) {
    auto& ks = fixture.the<PolarSys>("KS");
    const QPoint middle = ks.rect().center();
    QContextMenuEvent event(reason, middle, ks.mapToGlobal(middle));
    QCoreApplication::sendEvent(&ks, &event);
    return fixture.the<QMenu>("menKS");
}

QStringList visible(const QMenu& menu) {
    QStringList names;
    for (const QAction* action : menu.actions()) {
        if (action->isVisible() &&
            action->isCheckable()) { // the kinds; what else the menu offers is never ticked
            names << action->text().remove(QLatin1Char('&')) +
                         (action->isChecked() ? QStringLiteral("*") : QString());
        }
    }
    return names;
}

void choose(const WindowFixture& fixture, const char* name) {
    QMenu& menu = openMenu(fixture, QContextMenuEvent::Mouse);
    auto* action = menu.findChild<QAction*>(QString::fromUtf8(name));
    if (action == nullptr) {
        qFatal("no entry %s", name);
    }
    menu.setActiveAction(action);
    QTest::keyClick(&menu, Qt::Key_Return);
}

} // namespace

class f_kinds_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void offeredKinds() {
        const WindowFixture fixture;
        const QStringList without = {QStringLiteral("Liniendiagramm*"),
                                     QStringLiteral("Niederschlagsdiagramm"),
                                     QStringLiteral("Richtungsdiagramm")};
        QCOMPARE(visible(openMenu(fixture, QContextMenuEvent::Mouse)), without);
        fixture.the<QMenu>("menKS").close();
        QCOMPARE(visible(openMenu(fixture, QContextMenuEvent::Keyboard)), without);
        QVERIFY(fixture.the<QMenu>("menKS").isVisible());
        fixture.the<QMenu>("menKS").close();
        fixture.chooseChannel(WIND_ROW);
        QCOMPARE(visible(openMenu(fixture, QContextMenuEvent::Mouse)).last(),
                 QStringLiteral("Polardiagramm"));
        fixture.the<QMenu>("menKS").close();
    }

    /// The diagram is reached with the tab key, so that the menu key opens its menu.
    void menuKey() {
        const WindowFixture fixture;
        auto& ks = fixture.the<PolarSys>("KS");
        QVERIFY((ks.focusPolicy() & Qt::TabFocus) != 0);
        fixture.the<QWidget>("Slider1").setFocus();
        QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        QCOMPARE(QApplication::focusWidget(), &ks);
    }

    void onlyOneIsChecked() {
        const WindowFixture fixture;
        choose(fixture, "menNiederschlag");
        QCOMPARE(visible(openMenu(fixture, QContextMenuEvent::Keyboard)),
                 QStringList({QStringLiteral("Liniendiagramm"), QStringLiteral("Niederschlagsdiagramm*"),
                              QStringLiteral("Richtungsdiagramm")}));
        fixture.the<QMenu>("menKS").close();
    }

    /// A project without channels shows nothing of the rose before it.
    void noRoseOfAnotherProject() {
        const WindowFixture fixture;
        const TempFolder other;
        auto& ks = fixture.the<PolarSys>("KS");
        fixture.chooseChannel(WIND_ROW);
        choose(fixture, "menPolar");
        QVERIFY(ks.sampleCount() > 0);
        fixture.window->readConf(other.write("QEL.ini", "PROJEKTNAME=Leer\n"));
        fixture.window->LoadData();
        QCOMPARE(ks.DiagTyp(), 0);
        QCOMPARE(ks.sampleCount(), 0);
    }

    /// Ten minutes a sample: the direction of the block, the mean of its speeds.
    void polarSamplesOfTenMinutes() {
        const MadeStation made = madeStation();
        const WindowFixture fixture(made);
        auto& ks = fixture.the<PolarSys>("KS");
        fixture.chooseChannel(WIND_ROW);
        fixture.chooseInterval(2);
        choose(fixture, "menPolar");
        QCOMPARE(ks.sampleCount(), 144 - 12); // two hours of outage
        double speed = 0;
        for (std::size_t i = 0; i < 10; ++i) {
            speed += made.minutes.at(4)[TEST_DAY_MINUTE + i];
        }
        QVERIFY(std::fabs(ks.speedList()[0] - speed / 10) < 1e-9);
        QVERIFY(std::fabs(ks.directionList()[0] * RADIANS_TO_DEGREES - 330.45) < 0.01);
        QCOMPARE(ks.Bogenmass(), 0);
    }

    void kinds_data() {
        QTest::addColumn<QByteArray>("entry");
        QTest::addColumn<int>("kind");
        QTest::newRow("line") << QByteArray("menLinie") << 0;
        QTest::newRow("precipitation") << QByteArray("menNiederschlag") << 2;
        QTest::newRow("direction") << QByteArray("menRichtung") << 3;
        QTest::newRow("polar") << QByteArray("menPolar") << 1;
    }
    void kinds() {
        QFETCH(QByteArray, entry);
        QFETCH(int, kind);
        WindowFixture fixture;
        auto& ks = fixture.the<PolarSys>("KS");
        fixture.chooseChannel(WIND_ROW);
        fixture.files.opened = 0;
        const int before = ks.drawings();
        choose(fixture, entry.constData());
        QTest::qWait(20);
        QCOMPARE(ks.DiagTyp(), kind);
        QVERIFY(ks.drawings() > before);
        QCOMPARE(fixture.files.opened, kind == 1 ? 2 : 0); // only the polar diagram needs other data
        fixture.chooseInterval(1);
        QCOMPARE(ks.DiagTyp(), kind); // a reload keeps it
        fixture.chooseChannel(0);
        QCOMPARE(ks.DiagTyp(), 0); // another channel does not
    }

    void automaticScaleOfDirections() {
        const WindowFixture fixture;
        auto& ks = fixture.the<PolarSys>("KS");
        fixture.chooseChannel(WIND_ROW);
        choose(fixture, "menRichtung");
        QCOMPARE(ks.Y1High(), 5.0); // the manual scale stays
        fixture.click("Option1");
        QCOMPARE(ks.Y1Low(), 0.0);
        QCOMPARE(ks.Y1High(), 540.0);
        choose(fixture, "menLinie");
        QCOMPARE(ks.Y1Low(), AUTOMATIC_RANGE);
        QCOMPARE(ks.Y1High(), AUTOMATIC_RANGE);
        choose(fixture, "menRichtung");
        QCOMPARE(ks.Y1High(), 540.0);
        fixture.click("Option2");
        QCOMPARE(ks.Y1High(), 100.0);
    }

    /// Each interval with a direction is a sample: that direction, and the mean speed of the paired channel.
    void polarSamples() {
        const MadeStation made = madeStation();
        const WindowFixture fixture(made);
        auto& ks = fixture.the<PolarSys>("KS");
        fixture.chooseChannel(WIND_ROW);
        choose(fixture, "menPolar");
        std::vector<std::array<double, 2>> expected;
        for (int i = 0; i < 1440; ++i) {
            const auto at = static_cast<std::size_t>(TEST_DAY_MINUTE + i);
            const double direction = made.minutes.at(5)[at];
            const double speed = made.minutes.at(4)[at];
            if (speed != 0 && direction != 0 && direction < 99999900) {
                expected.push_back({speed, direction});
            }
        }
        QCOMPARE(static_cast<std::size_t>(ks.sampleCount()), expected.size());
        for (std::size_t i = 0; i < expected.size(); ++i) {
            QCOMPARE(ks.speedList()[i], expected[i][0]);
            QVERIFY(std::fabs(ks.directionList()[i] * RADIANS_TO_DEGREES - expected[i][1]) < 1e-6);
        }
        QCOMPARE(ks.DataCount(), 0);
        QVERIFY(ks.HeadLine().find("Windrichtung") != std::string::npos);
        choose(fixture, "menLinie");
        QVERIFY(ks.DataCount() > 1000);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_kinds_test)
#include "f_kinds_test.moc"
