// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/app/SecondChannelHand.h"

#include "util/Validity.h"

#include <QAction>
#include <QClipboard>
#include <QContextMenuEvent>
#include <QGuiApplication>
#include <QMenu>
#include <QTest>
#include <algorithm>

namespace kelvrum::testing {

void chooseSecond(const WindowFixture& fixture, const char* entry) {
    auto& KS = fixture.the<PolarSys>("KS");
    const QPoint middle = KS.rect().center();
    QContextMenuEvent event(QContextMenuEvent::Keyboard, middle, KS.mapToGlobal(middle));
    QCoreApplication::sendEvent(&KS, &event);
    QTest::keyClick(&fixture.the<QMenu>("menKS"), Qt::Key_Z);
    auto& menu = fixture.the<QMenu>("menZweiter");
    QVERIFY(QTest::qWaitFor([&menu] { return menu.isVisible(); }));
    const auto& wanted = fixture.the<QAction>(entry);
    for (int i = 0; i < menu.actions().size() && menu.activeAction() != &wanted; ++i) {
        QTest::keyClick(&menu, Qt::Key_Down);
    }
    QCOMPARE(menu.activeAction(), &wanted);
    QTest::keyClick(&menu, Qt::Key_Return);
}

QStringList offered(const WindowFixture& fixture) {
    QStringList texts;
    for (const QAction* action : fixture.the<QMenu>("menZweiter").actions()) {
        texts << action->objectName() + QLatin1Char(' ') + action->text() +
                     (action->isChecked() ? QStringLiteral("*") : QString());
    }
    return texts;
}

std::vector<double> rowOf(const PolarSys& KS, SeriesTable::Row row) {
    const auto values = seriesTable().row(row).first(static_cast<std::size_t>(KS.DataCount()));
    return {values.begin(), values.end()};
}

std::vector<double> validOf(std::vector<double> values) {
    values.erase(std::remove_if(values.begin(), values.end(), [](double v) { return v == INVALID_VALUE; }),
                 values.end());
    return values;
}

void expectWithout(const PolarSys& KS) {
    QCOMPARE(KS.Y2Low(), 0.0);
    QCOMPARE(KS.Y2High(), 100.0);
    QCOMPARE(KS.D2(), BLUE);
    QCOMPARE(KS.Y2axe(), BLUE);
    QCOMPARE(KS.AchseText(), std::string());
    for (const double v : rowOf(KS, SeriesTable::Y2)) {
        QCOMPARE(v, INVALID_VALUE);
    }
}

QString copied(const WindowFixture& fixture) {
    QGuiApplication::clipboard()->clear();
    fixture.trigger("menWerte");
    return QGuiApplication::clipboard()->text();
}

} // namespace kelvrum::testing
