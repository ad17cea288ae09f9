// SPDX-License-Identifier: GPL-3.0-or-later
// Where the data are: jumps to the first and last stored value, and hints at the foot of the plot.
#include "tests/app/DiagramHand.h"

#include <QAction>
#include <QClipboard>
#include <QGuiApplication>
#include <QImage>
#include <QLabel>
#include <QMenu>
#include <QScrollBar>
#include <QTest>
#include <string>
#include <vector>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

// Of the channel list.
constexpr int SPEED_ROW = 0;
constexpr int DIRECTION_ROW = 1;

QString text(const ShownRange& range) { return range.from + QStringLiteral(" - ") + range.to; }

/// The window on another range, loaded once.
void show(const WindowFixture& fixture, const char* from, const char* to) {
    fixture.arrange({QString::fromUtf8(from), QString::fromUtf8(to)}, 0);
    fixture.window->LoadData();
}

/// A station whose channel 8 has no file, and whose channel 9 has a file without a value.
MadeStation stationWithEmptyChannels() {
    MadeStation station = madeStation();
    station.ini += "CHAN08|Leer|m|0|40||0|1|2|1|0|0|LE\nCHAN09|Stumm|m|0|40||0|1|2|1|0|0|ST\n";
    station.minutes[9].assign(1000, 0.0);
    return station;
}
constexpr int EMPTY_ROW = 3; // between dust and precipitation
constexpr int MUTE_ROW = 4;

} // namespace

class f_hints_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void jumpsBringTheStoredValuesIntoView() {
        const WindowFixture fixture; // values from 18.06. 00:00 to 19.06. 23:59
        const DiagramHand hand(fixture);
        show(fixture, "01.02.2021 00:00", "02.02.2021 00:00");
        hand.key(Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("19.06.2020 00:00 - 20.06.2020 00:00"));
        hand.key(Qt::Key_End);
        QVERIFY(hand.text().startsWith(QStringLiteral("19.06.2020 23:59, ")));
        hand.key(Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("18.06.2020 00:00 - 19.06.2020 00:00"));
        show(fixture, "01.01.2019 00:00", "01.01.2020 00:00"); // a year does not fit before June
        fixture.trigger("menLetzter");
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("01.01.2020 00:00 - 31.12.2020 00:00"));
        fixture.trigger("menErster");
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("18.06.2020 00:00 - 18.06.2021 00:00"));
        QTest::keyClick(fixture.window.get(), Qt::Key_Left, Qt::AltModifier); // a jump is a range shown
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("01.01.2020 00:00 - 31.12.2020 00:00"));
    }

    /// Day files have no years: a jump and a range go over New Year, and no hint speaks of it.
    void jumpsAndHintsOfDayFiles_data() {
        QTest::addColumn<bool>("wide");
        QTest::newRow("narrow") << false;
        QTest::newRow("wide") << true;
    }
    void jumpsAndHintsOfDayFiles() {
        QFETCH(bool, wide);
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        const std::vector<std::string> names = {"Luft", "-", "Boden"};
        const auto record = [wide](int year, int month, int day, int minute) {
            return dayRecord(year, month, day, minute,
                             wide ? std::vector<float>{2, 1, 3, 5, 4, 6} : std::vector<float>{2, 5});
        };
        fixture.folder->write("Tag/20191231.KMH", record(2019, 12, 31, 1380) + record(2019, 12, 31, 1381));
        fixture.folder->write("Tag/20200102.KMH", record(2020, 1, 2, 60));
        fixture.window->readConf(fixture.folder->write("Tag/VARNIX.CFG", varnixFile("Station", names, wide)));
        show(fixture, "01.06.2020 00:00", "04.06.2020 00:00");
        QTRY_COMPARE(hand.overlay.hint(),
                     QStringLiteral(
                         "Keine Werte im Zeitraum. Letzter Wert: 02.01.2020 01:00 (im Diagramm: Strg+Ende)"));
        hand.key(Qt::Key_End, Qt::ControlModifier);
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("30.12.2019 01:01 - 02.01.2020 01:01"));
        QCOMPARE(hand.overlay.hint(), QString());
        hand.key(Qt::Key_End);
        QCOMPARE(hand.text(), wide ? QStringLiteral("02.01.2020 01:00, 2, Minimum 1, Maximum 3")
                                   : QStringLiteral("02.01.2020 01:00, 2"));
        hand.key(Qt::Key_Home, Qt::ControlModifier);
        QCOMPARE(text(fixture.shownRange()), QStringLiteral("31.12.2019 23:00 - 03.01.2020 23:00"));
    }

    void aJumpWithoutAValueLoadsNothing() {
        const WindowFixture fixture(stationWithEmptyChannels());
        for (const int row : {EMPTY_ROW, MUTE_ROW}) {
            fixture.chooseChannel(row);
            const QString before = text(fixture.shownRange());
            const int drawings = fixture.the<PolarSys>("KS").drawings();
            fixture.trigger("menLetzter");
            fixture.trigger("menErster");
            QCOMPARE(text(fixture.shownRange()), before);
            QCOMPARE(fixture.the<PolarSys>("KS").drawings(), drawings);
        }
    }

    void hintsTellWhyNothingIsSeen() {
        const WindowFixture fixture(stationWithEmptyChannels());
        const DiagramHand hand(fixture);
        QCOMPARE(hand.overlay.hint(), QString());
        show(fixture, "18.03.2020 00:00", "19.03.2020 00:00");
        QTRY_COMPARE(hand.overlay.hint(),
                     QStringLiteral(
                         "Keine Werte im Zeitraum. Letzter Wert: 19.06.2020 23:59 (im Diagramm: Strg+Ende)"));
        show(fixture, "18.03.2021 00:00", "19.03.2021 00:00"); // no file of that year
        QTRY_COMPARE(hand.overlay.hint(),
                     QStringLiteral(
                         "Keine Werte im Zeitraum. Letzter Wert: 19.06.2020 23:59 (im Diagramm: Strg+Ende)"));
        fixture.chooseChannel(EMPTY_ROW);
        QTRY_COMPARE(hand.overlay.hint(), QStringLiteral("Der Kanal hat noch keine Datei"));
        fixture.chooseChannel(MUTE_ROW);
        QTRY_COMPARE(hand.overlay.hint(), QStringLiteral("Keine Werte im Zeitraum"));
        fixture.chooseChannel(SPEED_ROW);
        show(fixture, "18.06.2020 00:00", "19.06.2020 00:00");
        QCOMPARE(hand.overlay.hint(), QString());
    }

    void aRangeOverNewYear() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        show(fixture, "18.06.2020 00:00", "02.01.2021 12:00");
        QCOMPARE(hand.overlay.hint(),
                 QStringLiteral("Der Zeitraum reicht über den Jahreswechsel: gezeigt wird "
                                "18.06.2020 00:00 bis 01.01.2021 00:00"));
        show(fixture, "18.06.2020 00:00", "01.01.2021 00:00");
        QCOMPARE(hand.overlay.hint(), QString());
    }

    void valuesOutsideOfTheScale() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        const QString outside = QStringLiteral("Alle Werte liegen außerhalb der Skala (Automatisch: Alt+A)");
        fixture.type("Text1", QStringLiteral("200")); // from 200 to 5: no value lies between
        QCOMPARE(hand.overlay.hint(), QString());     // 5 does
        fixture.type("Text2", QStringLiteral("300"));
        QCOMPARE(hand.overlay.hint(), outside);
        const QImage picture = hand.KS.picture().toImage();
        fixture.click("Option1");
        QCOMPARE(hand.overlay.hint(), QString());
        QVERIFY(hand.KS.picture().toImage() != picture);
    }

    void theHintIsGreyTextInTheOverlay() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        show(fixture, "18.06.2020 00:00", "02.01.2021 12:00");
        const auto& label = fixture.the<QLabel>("hint");
        QVERIFY(label.isVisible());
        QCOMPARE(label.text(), hand.overlay.hint()); // a reader of the screen finds the text itself
        QCOMPARE(label.parentWidget(), &hand.overlay);
        const int foot = hand.KS.height() - 40;
        QVERIFY(label.geometry().bottom() < foot && label.geometry().top() > foot - 40);
        const QImage picture = hand.KS.picture().toImage();
        hand.overlay.setHint({});
        QVERIFY(!label.isVisible());
        QCOMPARE(hand.KS.picture().toImage(), picture);
    }

    /// A rose has notes in its corner, as its page has them, and its hint is not under the scroll bar.
    void aRoseTellsWhatItShows() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        fixture.chooseChannel(DIRECTION_ROW);
        fixture.chooseInterval(3);
        QCOMPARE(hand.overlay.notes(), QString());
        fixture.the<QMenu>("menKS").findChild<QAction*>(QStringLiteral("menPolar"))->trigger();
        const auto& label = fixture.the<QLabel>("notes");
        const auto& bar = fixture.the<QScrollBar>("HScroll");
        const auto isSeen = [&](const QLabel& shown) {
            const QRect place(shown.mapTo(fixture.window.get(), QPoint()), shown.size());
            const QRect covered(bar.mapTo(fixture.window.get(), QPoint()), bar.size());
            return shown.isVisible() && !place.intersects(covered);
        };
        const PolarDrawing& rose = *hand.KS.polarShown();
        QVERIFY(rose.samples > 50 && rose.classes.calm != 1);
        QCOMPARE(hand.overlay.notes(),
                 QStringLiteral("18.06.2020, 00:00 Uhr bis 19.06.2020, 00:00 Uhr\nIntervall: 15 Minuten\n"
                                "%1 Intervalle, davon %2 Kalmen\nAngaben in Prozent")
                     .arg(rose.samples)
                     .arg(rose.classes.calm));
        QVERIFY(isSeen(label));
        QVERIFY(label.geometry().left() < 20 && label.height() >= label.sizeHint().height());
        fixture.window->resize(fixture.window->width() + 100, fixture.window->height() + 80);
        QVERIFY(isSeen(label));
        const QImage picture = hand.KS.picture().toImage();
        hand.overlay.setNotes({});
        QVERIFY(!label.isVisible());
        QCOMPARE(hand.KS.picture().toImage(), picture);

        fixture.arrange({QStringLiteral("18.06.2020 00:00"), QStringLiteral("18.06.2020 00:15")}, 3);
        fixture.window->LoadData();
        QVERIFY(hand.overlay.notes().contains(QStringLiteral("\n1 Intervall, davon ")));
        show(fixture, "01.02.2020 00:00", "02.02.2020 00:00"); // no values
        QTRY_VERIFY(hand.overlay.hint().startsWith(QStringLiteral("Keine Werte im Zeitraum")));
        QVERIFY(hand.overlay.notes().contains(QStringLiteral("\n0 Intervalle, davon 0 Kalmen\n")));
        const auto& hint = fixture.the<QLabel>("hint");
        QVERIFY(isSeen(hint));
        QVERIFY(!hint.geometry().intersects(label.geometry()));
        fixture.the<QMenu>("menKS").findChild<QAction*>(QStringLiteral("menLinie"))->trigger();
        QVERIFY(!label.isVisible());
    }

    /// In a small window the notes become shorter, move to another corner or go: they cover neither rings nor
    /// letters.
    void theNotesOfARoseCoverNothing_data() {
        QTest::addColumn<QSize>("size");
        QTest::addColumn<int>("lines");
        QTest::newRow("wide") << QSize(1600, 700) << 4;
        QTest::newRow("usual") << QSize(1000, 700) << 4;
        QTest::newRow("smaller") << QSize(800, 600) << 4;
        QTest::newRow("high") << QSize(500, 900) << 5;
        QTest::newRow("small") << QSize(560, 420) << 2;
        QTest::newRow("low") << QSize(700, 300) << 2;
        QTest::newRow("smallest") << QSize(320, 240) << 0;
    }
    void theNotesOfARoseCoverNothing() {
        QFETCH(QSize, size);
        QFETCH(int, lines);
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        fixture.chooseChannel(DIRECTION_ROW);
        fixture.chooseInterval(3);
        fixture.the<QMenu>("menKS").findChild<QAction*>(QStringLiteral("menPolar"))->trigger();
        const QString notes = hand.overlay.notes();
        fixture.window->resize(size);
        QTRY_COMPARE(fixture.window->size(), size);
        fixture.window->grab(); // drawn anew
        auto& label = fixture.the<QLabel>("notes");
        QCOMPARE(hand.overlay.notes(), notes);
        QCOMPARE(label.isVisible() ? label.text().count(QLatin1Char('\n')) + 1 : 0, lines);
        if (lines == 0) {
            return;
        }
        const double ratio = label.devicePixelRatioF();
        QImage text((QSizeF(label.size()) * ratio).toSize(), QImage::Format_ARGB32);
        text.setDevicePixelRatio(ratio);
        text.fill(Qt::transparent);
        label.render(&text, {}, {}, QWidget::DrawChildren);
        const QImage picture = hand.KS.picture().toImage();
        const PolarGeometry& rose = hand.KS.polarShown()->geometry;
        int letters = 0;
        for (int y = 0; y < text.height(); ++y) {
            for (int x = 0; x < text.width(); ++x) {
                if (qAlpha(text.pixel(x, y)) > 0) {
                    const QPoint at = (QPointF(label.pos()) * ratio).toPoint() + QPoint(x, y);
                    const double dx = double(at.x() - rose.xCentre) / rose.dx(rose.rings);
                    const double dy = double(at.y() - rose.yCentre) / rose.dy(rose.rings);
                    QVERIFY(dx * dx + dy * dy > 1);
                    QVERIFY(picture.rect().contains(at) && picture.pixel(at) == qRgb(255, 255, 255));
                    ++letters;
                }
            }
        }
        QVERIFY(letters > 100);
    }

    /// One line where there is room, else more of them: nothing of it is cut.
    void aLongHintIsWhole() {
        const WindowFixture fixture;
        const DiagramHand hand(fixture);
        show(fixture, "18.06.2020 00:00", "02.01.2021 12:00");
        const auto& label = fixture.the<QLabel>("hint");
        const int line = label.fontMetrics().height();
        QVERIFY(label.height() < 2 * line);
        for (const int width : {1000, 480, 360}) {
            fixture.window->resize(width, 500);
            QCoreApplication::processEvents();
            QVERIFY2(label.height() >= label.heightForWidth(label.width()),
                     qPrintable(QString::number(width)));
            QVERIFY(label.fontMetrics().horizontalAdvance(label.text()) <= label.width() ||
                    label.height() >= 2 * line);
            QVERIFY(label.geometry().left() >= 40 && label.geometry().right() <= hand.KS.width() - 30);
            QVERIFY(label.geometry().bottom() < hand.KS.height() - 40);
        }
    }

    /// What else is requested during a lookup does not wait for its end; the hint comes after it.
    void anotherRequestGoesBeforeTheLookUp() {
        MadeStation station = stationWithEmptyChannels();
        station.minutes[9].assign(500000, 0.0);
        WindowFixture fixture(station);
        const DiagramHand hand(fixture);
        fixture.the<QMenu>("menKS"); // there before the file is read
        int reads = 0;
        int readsBefore = 0;
        bool isWanted = false;
        const auto copied = connect(QGuiApplication::clipboard(), &QClipboard::dataChanged, this,
                                    [&] { readsBefore = reads; });
        fixture.chooseChannel(MUTE_ROW);
        fixture.files.onRead = [&] {
            if (++reads == 3) {
                isWanted = true;
                fixture.trigger("menWerte");
            }
        };
        QTRY_COMPARE(hand.overlay.hint(), QStringLiteral("Keine Werte im Zeitraum"));
        fixture.files.onRead = {};
        disconnect(copied);
        QVERIFY(isWanted);
        QVERIFY2(readsBefore >= 3 && readsBefore < 10, qPrintable(QString::number(readsBefore)));
        QVERIFY(reads > 50); // the whole lookup came after it
    }

    /// A lookup that a newer request overtakes tells nothing.
    void aNewerRequestDropsTheLookUp() {
        WindowFixture fixture(stationWithEmptyChannels());
        const DiagramHand hand(fixture);
        fixture.chooseChannel(MUTE_ROW);
        bool chosen = false;
        fixture.files.onRead = [&] {
            if (!chosen) {
                chosen = true;
                fixture.chooseChannel(EMPTY_ROW);
            }
        };
        QTRY_COMPARE(hand.overlay.hint(), QStringLiteral("Der Kanal hat noch keine Datei"));
        fixture.files.onRead = {};
        QVERIFY(chosen);
        QTest::qWait(50);
        QCOMPARE(hand.overlay.hint(), QStringLiteral("Der Kanal hat noch keine Datei"));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_hints_test)
#include "f_hints_test.moc"
