// SPDX-License-Identifier: GPL-3.0-or-later
// Copies of the picture and of the values.
#include "tests/app/DiagramHand.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QMimeData>
#include <QRadioButton>
#include <QRegularExpression>
#include <QTableView>
#include <QTest>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr int WIND_ROW = 1; // of the channel list
constexpr int HOUR_ROW = 4; // of the intervals

QStringList copiedLines() { return QGuiApplication::clipboard()->text().split(QLatin1Char('\n')); }

} // namespace

class f_copy_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void init() { QGuiApplication::clipboard()->clear(); }

    void thePictureIsCopiedInItsDots() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        hand.key(Qt::Key_Home); // a readout is no part of it
        const int drawings = hand.KS.drawings();
        hand.key(Qt::Key_C, Qt::ControlModifier);
        const QMimeData* data = QGuiApplication::clipboard()->mimeData();
        QImage picture = hand.KS.picture().toImage().convertToFormat(QImage::Format_RGB32);
        picture.setDevicePixelRatio(1); // a copy counts in dots
        QCOMPARE(QImage::fromData(data->data(QStringLiteral("image/png")), "PNG")
                     .convertToFormat(QImage::Format_RGB32),
                 picture);
        QVERIFY(data->hasImage());
        QCOMPARE(hand.KS.drawings(), drawings);
    }

    /// The curve leaves the scale; the drawing has to end at the plot, whatever reads it.
    void theSvgEndsAtThePlot() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        fixture.type("Text2", QStringLiteral("3"));
        fixture.trigger("menBild");
        const QString svg = QString::fromUtf8(
            QGuiApplication::clipboard()->mimeData()->data(QStringLiteral("image/svg+xml")));
        if (svg.isEmpty()) {
            QSKIP("built without SVG");
        }
        QVERIFY(svg.contains(QStringLiteral("Windgeschwindigkeit")));
        const QRegularExpression lines(QStringLiteral("<polyline[^>]*points=\"([^\"]*)\""));
        int seen = 0;
        for (auto found = lines.globalMatch(svg); found.hasNext();) {
            for (const QString& point :
                 found.next().captured(1).split(QLatin1Char(' '), Qt::SkipEmptyParts)) {
                const double y = point.section(QLatin1Char(','), 1, 1).toDouble();
                QVERIFY2(y >= 0 && y <= hand.KS.height() - 40 + 5, qPrintable(point));
                ++seen;
            }
        }
        QVERIFY(seen > 10);
    }

    void valuesOfTheDiagram() {
        const WindowFixture fixture;
        fixture.chooseInterval(HOUR_ROW);
        fixture.trigger("menWerte");
        const QStringList lines = copiedLines();
        QCOMPARE(lines[0], QStringLiteral("Zeit: Beginn des Intervalls, ohne Sommerzeit"));
        QCOMPARE(lines[1], QStringLiteral("Zeit\tWindgeschwindigkeit Wert [m/s]"));
        QVERIFY2(lines[2].startsWith(QStringLiteral("18.06.2020 00:00\t4,")), qPrintable(lines[2]));
        QVERIFY2(lines[7].startsWith(QStringLiteral("18.06.2020 07:00\t")),
                 qPrintable(lines[7])); // over the gap
        QCOMPARE(lines.size(), 2 + 22 + 1);
    }

    void valuesOfTheListAreTheSame() {
        const WindowFixture fixture;
        fixture.chooseInterval(HOUR_ROW);
        fixture.trigger("menWerte");
        const QStringList ofDiagram = copiedLines();
        fixture.the<QRadioButton>("optView(1)").click();
        auto& list = fixture.the<QTableView>("lView");
        QVERIFY(list.actions().contains(&fixture.the<QAction>("menWerte")));
        QCOMPARE(list.contextMenuPolicy(), Qt::ActionsContextMenu);
        QGuiApplication::clipboard()->clear();
        fixture.trigger("menWerte");
        QCOMPARE(copiedLines(), ofDiagram);
        list.selectRow(1);
        list.setFocus();
        QTest::keyClick(&list, Qt::Key_C, Qt::ControlModifier);
        QCOMPARE(copiedLines(), QStringList({ofDiagram[0], ofDiagram[1], ofDiagram[3], QString()}));
    }

    void samplesOfARose() {
        const WindowFixture fixture;
        fixture.chooseChannel(WIND_ROW);
        fixture.chooseInterval(HOUR_ROW);
        fixture.trigger("menPolar");
        fixture.trigger("menWerte");
        const QStringList lines = copiedLines();
        QCOMPARE(lines[0], QStringLiteral("Windrichtung Wert [Grad]\tWindgeschwindigkeit Wert [m/s]"));
        QCOMPARE(lines.size(), 1 + fixture.the<PolarSys>("KS").ListCount() + 1);
        QVERIFY2(lines[1].startsWith(QStringLiteral("333")) && lines[1].contains(QLatin1Char('\t')),
                 qPrintable(lines[1]));
    }

    void nothingIsLoadedForACopy() {
        const WindowFixture fixture;
        const int opened = fixture.files.opened;
        fixture.trigger("menBild");
        fixture.trigger("menWerte");
        QCOMPARE(fixture.files.opened, opened);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_copy_test)
#include "f_copy_test.moc"
