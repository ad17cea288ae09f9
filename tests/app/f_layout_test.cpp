// SPDX-License-Identifier: GPL-3.0-or-later
// The places of the views and labels at all sizes of the window.
#include "diagram/PolarSys.h"
#include "tests/app/WindowFixture.h"

#include <QTableView>
#include <QTest>

namespace kelvrum {

using namespace kelvrum::testing;

class f_layout_test : public QObject {
    Q_OBJECT

    /// Resizes the window so that its inner area gets a size, as far as the window allows it.
    static QSize resizeInner(const WindowFixture& fixture, const QSize& inner) {
        const QWidget& client = *fixture.window->centralWidget();
        fixture.window->resize(fixture.window->size() + inner - client.size());
        QTest::qWait(1);
        return client.size();
    }

    static QRect placeOf(const WindowFixture& fixture, const char* name) {
        return fixture.the<QWidget>(name).geometry();
    }

  private Q_SLOTS:
    void places_data() {
        QTest::addColumn<QSize>("inner");
        QTest::newRow("minimum width") << QSize(267, 500);
        QTest::newRow("odd") << QSize(641, 481);
        QTest::newRow("wide and low") << QSize(1500, 60);
        QTest::newRow("just high enough for the diagram") << QSize(500, 22);
        QTest::newRow("one more") << QSize(501, 23);
        QTest::newRow("usual") << QSize(1000, 680);
        QTest::newRow("high") << QSize(400, 1400);
        QTest::newRow("large") << QSize(3840, 2160);
    }
    void places() {
        QFETCH(QSize, inner);
        const WindowFixture fixture;
        const QPoint startzeit = fixture.the<QWidget>("Label1").pos();
        const QPoint frame2 = fixture.the<QWidget>("Frame2").pos();
        QCOMPARE(resizeInner(fixture, inner), inner);
        const int W = inner.width();
        const int H = inner.height();
        QCOMPARE(placeOf(fixture, "HScroll"), QRect(118, H - 17, W - 120, 16));
        QCOMPARE(placeOf(fixture, "KS"), QRect(118, 2, W - 120, H - 5));
        QCOMPARE(placeOf(fixture, "lView"), QRect(118, 2, W - 120, H - 2));
        QCOMPARE(placeOf(fixture, "Label1").topLeft(), QPoint(startzeit.x(), H - 17));
        QCOMPARE(placeOf(fixture, "Frame2").topLeft(), QPoint(frame2.x(), H - 30));
        QCOMPARE(fixture.the<PolarSys>("KS").picture().size(), QSize(W - 120, H - 5));
    }

    /// 4000 twips are 266.67 pixels of a 96th of an inch.
    void minimumWidth_data() {
        QTest::addColumn<int>("wanted");
        QTest::addColumn<int>("width");
        QTest::newRow("nothing") << 0 << 267;
        QTest::newRow("below the column") << 100 << 267;
        QTest::newRow("a pixel less") << 266 << 267;
        QTest::newRow("exactly") << 267 << 267;
        QTest::newRow("a pixel more") << 268 << 268;
    }
    void minimumWidth() {
        QFETCH(int, wanted);
        QFETCH(int, width);
        const WindowFixture fixture;
        fixture.window->resize(wanted, 600);
        QTest::qWait(1);
        QCOMPARE(fixture.window->width(), width);
        QCOMPARE(placeOf(fixture, "KS").width(), width - 120);
        fixture.window->resize(900, 600);
        QTest::qWait(1);
        QCOMPARE(fixture.window->width(), 900);
    }

    /// What would get a negative size keeps its place, all other steps run.
    void tooSmallForASubtraction_data() {
        QTest::addColumn<QSize>("inner");
        QTest::addColumn<QString>("kept"); // the controls whose step is skipped
        QTest::newRow("no room for the diagram") << QSize(600, 4) << QStringLiteral("KS");
        QTest::newRow("nor for the list") << QSize(600, 1) << QStringLiteral("KS lView");
        QTest::newRow("no height") << QSize(600, 0) << QStringLiteral("KS lView");
        QTest::newRow("narrower than the column") << QSize(119, 300) << QStringLiteral("KS lView HScroll");
        QTest::newRow("nothing at all") << QSize(0, 0) << QStringLiteral("KS lView HScroll");
        QTest::newRow("no width left") << QSize(120, 300) << QString();
    }
    void tooSmallForASubtraction() {
        QFETCH(QSize, inner);
        QFETCH(QString, kept);
        const WindowFixture fixture;
        resizeInner(fixture, {700, 500});
        const std::map<QString, QRect> before = {
            {QStringLiteral("KS"), placeOf(fixture, "KS")},
            {QStringLiteral("lView"), placeOf(fixture, "lView")},
            {QStringLiteral("HScroll"), placeOf(fixture, "HScroll")},
        };
        fixture.window->centralWidget()->resize(inner); // smaller than the window manager lets it be
        const int W = inner.width();
        const int H = inner.height();
        const std::map<QString, QRect> after = {
            {QStringLiteral("KS"), {118, 2, W - 120, H - 5}},
            {QStringLiteral("lView"), {118, 2, W - 120, H - 2}},
            {QStringLiteral("HScroll"), {118, H - 17, W - 120, 16}},
        };
        for (const auto& [name, place] : after) {
            const bool stays = kept.split(QLatin1Char(' ')).contains(name);
            QCOMPARE(placeOf(fixture, qPrintable(name)), stays ? before.at(name) : place);
        }
        QCOMPARE(placeOf(fixture, "Label1").top(), H - 17);
        QCOMPARE(placeOf(fixture, "Frame2").top(), H - 30);
    }

    void stacking() {
        const WindowFixture fixture;
        fixture.click("optView(1)");
        QWidget* client = fixture.window->centralWidget();
        const auto indexOf = [&](const char* name) {
            return client->children().indexOf(&fixture.the<QWidget>(name)); // from the lowest up
        };
        QVERIFY(indexOf("KS") < indexOf("HScroll"));
        QVERIFY(indexOf("HScroll") < indexOf("lView"));

        const QPoint onTheStrip = fixture.the<QWidget>("HScroll").geometry().center();
        auto& list = fixture.the<QTableView>("lView");
        QVERIFY(list.isAncestorOf(client->childAt(onTheStrip)));
        fixture.click("optView(0)");
        QCOMPARE(client->childAt(onTheStrip), &fixture.the<QWidget>("HScroll"));
        QCOMPARE(client->childAt(onTheStrip - QPoint(0, 40)), &fixture.the<QWidget>("KS"));
    }

    void drawnOnceForEachResize() {
        WindowFixture fixture;
        const auto& ks = fixture.the<PolarSys>("KS");
        QTest::qWait(1);
        fixture.files.opened = 0;
        for (const QSize& size : {QSize(900, 700), QSize(900, 500), QSize(1200, 800), QSize(300, 200)}) {
            const int drawings = ks.drawings();
            fixture.window->resize(size);
            QTRY_VERIFY(ks.drawings() > drawings);
            QTest::qWait(20); // another one would have time
            QCOMPARE(ks.drawings(), drawings + 1);
            QCOMPARE(ks.picture().size(), ks.size());
        }
        QCOMPARE(fixture.files.opened, 0);
    }

    /// With the design's font every text fits, and none becomes smaller.
    void columnKeepsItsFont() {
        const WindowFixture fixture;
        for (const QWidget* control : fixture.window->centralWidget()->findChildren<QWidget*>()) {
            if (control->window() == fixture.window.get() && control->x() < 118) {
                QVERIFY2(control->font().pixelSize() == 11, qPrintable(control->objectName()));
            }
        }
    }

    /// The column keeps its design, whatever the size.
    void columnStays() {
        const WindowFixture fixture;
        const auto places = [&] {
            std::map<QString, QRect> all;
            const auto controls = fixture.window->centralWidget()->findChildren<QWidget*>(
                QString(), Qt::FindDirectChildrenOnly);
            for (const QWidget* control : controls) {
                all[control->objectName()] = control->geometry();
            }
            for (const char* moved : {"KS", "HScroll", "lView", "Label1", "Frame2"}) {
                all.erase(QString::fromUtf8(moved));
            }
            return all;
        };
        const auto before = places();
        QVERIFY(before.size() >= 9);
        for (const QSize& size : {QSize(400, 300), QSize(1600, 1200)}) {
            fixture.window->resize(size);
            QTest::qWait(1);
            QVERIFY(places() == before);
        }
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_layout_test)
#include "f_layout_test.moc"
