// SPDX-License-Identifier: GPL-3.0-or-later
// The line diagram on paper: what is where on a page. All lengths are millimetres from its upper left
// corner.
#include "drawing/PainterSurface.h"
#include "tests/diagram/PrintedDiagram.h"

#include <QFileInfo>
#include <QImage>
#include <QTest>
#include <cmath>

namespace kelvrum {
namespace {

using kelvrum::testing::Column;
using kelvrum::testing::DAY;
using kelvrum::testing::fillSeries;
using kelvrum::testing::fontsIn;
using kelvrum::testing::hourlyPasses;
using kelvrum::testing::PAGE_HEIGHT;
using kelvrum::testing::PAGE_WIDTH;
using kelvrum::testing::picturedPage;
using kelvrum::testing::picturesIn;
using kelvrum::testing::PrintedDiagram;
using kelvrum::testing::PrintedPage;
using kelvrum::testing::printedPages;
using kelvrum::testing::PrintedWord;

constexpr double LEFT = 20;
constexpr double RIGHT = 284;
constexpr double TOP = 23;
constexpr double BASE = 170; // 40 above the lower edge
constexpr double NEAR = 0.3;

/// Whether two lengths are the same on paper; says so when they are not.
bool near(double actual, double expected) {
    if (std::abs(actual - expected) <= NEAR) {
        return true;
    }
    qWarning("%g instead of %g", actual, expected);
    return false;
}

QByteArray shown(const PrintedWord& word) {
    const QRectF& box = word.box;
    return QStringLiteral("%1 at %2..%3, %4..%5")
        .arg(word.text)
        .arg(box.left())
        .arg(box.right())
        .arg(box.top())
        .arg(box.bottom())
        .toUtf8();
}

/// A page as a picture, addressed in millimetres.
struct Picture {
    static constexpr int DOTS = 10; // per millimetre
    QImage image;

    /// Whether there is a dot of a colour in a box.
    [[nodiscard]] bool has(Colour colour, const QRectF& box) const {
        const QRgb wanted = toQColor(colour).rgb();
        const QRect dots = QRectF(box.topLeft() * DOTS, box.size() * DOTS).toAlignedRect() & image.rect();
        for (int y = dots.top(); y <= dots.bottom(); ++y) {
            for (int x = dots.left(); x <= dots.right(); ++x) {
                if (image.pixel(x, y) == wanted) {
                    return true;
                }
            }
        }
        return false;
    }
    [[nodiscard]] bool has(Colour colour, double x, double y) const {
        constexpr double REACH = 0.1;
        return has(colour, QRectF(x - REACH, y - REACH, 2 * REACH, 2 * REACH));
    }
};

/// Each minute of a year.
std::vector<Column> yearOfMinutes() {
    constexpr int MINUTES = 365 * 1440;
    std::vector<Column> columns;
    columns.reserve(MINUTES);
    for (int i = 0; i < MINUTES; ++i) {
        const double noise = i % 1009 * 7919 % 1009 / 1009.0;
        columns.push_back({DAY + i / 1440.0, 30 + 10 * std::sin(i / 8e4) + 5 * std::sin(i / 229.2) + noise});
    }
    return columns;
}

} // namespace

class PrintPageTest : public testing::PrintTest {
    Q_OBJECT

  private:
    /// Prints one page and returns the document.
    [[nodiscard]] QString printed(PrintedDiagram& diagram) const {
        diagram.print(true);
        return documents().back();
    }
    [[nodiscard]] PrintedPage printedPage(PrintedDiagram& diagram) const {
        return printedPages(printed(diagram)).at(0);
    }
    [[nodiscard]] Picture picture(PrintedDiagram& diagram) const {
        return {picturedPage(printed(diagram), 0, Picture::DOTS)};
    }

  private Q_SLOTS:

    // --- texts ---

    void texts_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QList<double>>("x"); // left, centre, right; below 0: not given
        QTest::addColumn<double>("top");
        const auto row = [](const char* text, double left, double centre, double right, double top) {
            QTest::newRow(text) << QString::fromUtf8(text) << QList<double>{left, centre, right} << top;
        };
        row("Station Güldenstein", -1, PAGE_WIDTH / 2, -1, 3);
        row("Feinstaub PM10", -1, PAGE_WIDTH / 2, -1, 16);
        row("µg/m³", -1, -1, LEFT, 18.3);
        row("Staub", LEFT + 4, -1, -1, 18.3);
        row("Feuchte", -1, -1, RIGHT, 18.3);
        row("Fußnote", LEFT, -1, -1, 185.8); // its line ends 1 above the 20 that are not used
        row("06:00", -1, LEFT + 66, -1, BASE + 2);
        row("12:00", -1, LEFT + 132, -1, BASE + 2);
        row("18:00", -1, LEFT + 198, -1, BASE + 2);
        row("02.01.24", -1, RIGHT, -1, BASE + 5.5);
        row("50", -1, -1, LEFT - 3, BASE - 147 * 5 / 6.0 - 1.6);
        row("10", -1, -1, LEFT - 3, BASE - 147 / 6.0 - 1.6);
        row("90", RIGHT + 3, -1, -1, BASE - 147 * 0.9 - 1.6);
        row("15", RIGHT + 3, -1, -1, BASE - 147 * 0.15 - 1.6);
        row("Niederschlagssumme = 282,0 µg/m³", -1, -1, RIGHT, BASE + 9);
    }
    void texts() {
        QFETCH(QString, text);
        QFETCH(QList<double>, x);
        QFETCH(double, top);
        PrintedDiagram diagram;
        // The unit is on the page once more with the total.
        diagram.control.setDiagTyp(text == QStringLiteral("µg/m³") ? KIND_LINE : KIND_PRECIPITATION);
        diagram.control.setAchseText("Staub;Feuchte");
        diagram.control.setFussnote("Fußnote");
        const auto found = printedPage(diagram).find(text);
        QCOMPARE(found.size(), std::size_t(1));
        const QRectF box = found[0].box;
        QVERIFY(x[0] < 0 || near(box.left(), x[0]));
        QVERIFY(x[1] < 0 || near(box.center().x(), x[1]));
        QVERIFY(x[2] < 0 || near(box.right(), x[2]));
        QVERIFY(near(box.top(), top));
    }

    void onlyPrecipitationHasATotal() {
        PrintedDiagram diagram;
        for (const std::int32_t kind : {KIND_LINE, KIND_DIRECTION, KIND_LINE_4}) {
            diagram.control.setDiagTyp(kind);
            QVERIFY(!printedPage(diagram).has(QStringLiteral("Niederschlagssumme")));
        }
    }

    void fontsHaveTheirSizes() {
        PrintedDiagram diagram;
        const PrintedPage page = printedPage(diagram);
        const double line = 25.4 / 72 * 1.117; // of a font of one point
        QVERIFY(near(page.find(QStringLiteral("Feinstaub")).at(0).box.height(), 10 * line));
        QVERIFY(near(page.find(QStringLiteral("50")).at(0).box.height(), 8 * line));
        QVERIFY(page.find(QStringLiteral("Station")).at(0).box.height() > 11 * line);
    }

    void textsKeepApart_data() {
        QTest::addColumn<int>("kind");
        QTest::addColumn<int>("passes");
        QTest::addColumn<int>("days");
        QTest::addColumn<double>("high");
        QTest::newRow("three passes of a day") << 0 << 3 << 1 << 60.0;
        QTest::newRow("precipitation of a day") << 2 << 1 << 1 << 70.0;
        QTest::newRow("precipitation of a month") << 2 << 1 << 31 << 0.5;
        QTest::newRow("a year") << 0 << 2 << 366 << 350000.0;
        QTest::newRow("directions") << 3 << 1 << 7 << 540.0;
    }
    void textsKeepApart() {
        QFETCH(int, kind);
        QFETCH(int, passes);
        QFETCH(int, days);
        QFETCH(double, high);
        PrintedDiagram diagram;
        diagram.control.setDiagTyp(kind);
        diagram.control.setXHigh(DAY + days);
        diagram.control.setY1High(high);
        diagram.control.setAchseText("Staub;Feuchte");
        diagram.control.setFussnote("Fußnote");
        fillSeries(diagram.control, hourlyPasses(passes));
        const std::vector<PrintedWord> words = printedPage(diagram).words;
        QVERIFY(words.size() > 20);
        const QRectF paper(3, 2.9, PAGE_WIDTH - 6, PAGE_HEIGHT - 6); // what printers reach
        for (std::size_t i = 0; i < words.size(); ++i) {
            QVERIFY2(paper.contains(words[i].box), shown(words[i]));
            for (std::size_t j = 0; j < i; ++j) { // lines may touch, letters do not
                const QRectF letters = words[i].box.adjusted(0, 0.3, 0, -0.3);
                QVERIFY2(!letters.intersects(words[j].box), shown(words[i]) + " on " + shown(words[j]));
            }
        }
    }

    void legend_data() {
        QTest::addColumn<int>("passes");
        QTest::addColumn<int>("words");
        QTest::newRow("one pass, no word") << 1 << 0;
        QTest::newRow("means and minima") << 2 << 2;
        QTest::newRow("all three") << 3 << 3;
        QTest::newRow("a fourth pass is not drawn") << 4 << 3;
    }
    void legend() {
        QFETCH(int, passes);
        QFETCH(int, words);
        struct Word {
            const char* text;
            Colour colour;
        };
        constexpr Word WORDS[] = {{"Mittelwerte", BLACK}, {"Minima", BLUE}, {"Maxima", RED}};
        PrintedDiagram diagram;
        fillSeries(diagram.control, hourlyPasses(passes));
        const QString document = printed(diagram);
        const PrintedPage page = printedPages(document).at(0);
        const Picture seen{picturedPage(document, 0, Picture::DOTS)};
        double left = 0;
        for (int i = 0; i < 3; ++i) {
            const auto found = page.find(QString::fromLatin1(WORDS[i].text));
            QCOMPARE(found.size(), std::size_t(i < words ? 1 : 0));
            if (found.empty()) {
                continue;
            }
            const QRectF box = found[0].box;
            const double centred = LEFT + (PAGE_WIDTH - LEFT) / 2 - 13 - box.width() / 2;
            QVERIFY(near(box.left(), i == 0 ? centred : left));
            QVERIFY(near(box.top(), TOP - 14));
            for (const Word& other : WORDS) {
                QCOMPARE(seen.has(other.colour, box), other.colour == WORDS[i].colour);
            }
            left = box.right() + 5;
        }
    }

    // --- lines ---

    void axesAreAtTheMargins() {
        constexpr Colour TIME = 0x010203;
        constexpr Colour FIRST = 0x102030;
        constexpr Colour SECOND = 0x302010;
        PrintedDiagram diagram;
        diagram.control.setXaxe(TIME);
        diagram.control.setY1axe(FIRST);
        diagram.control.setY2axe(SECOND);
        const Picture page = picture(diagram);
        QVERIFY(near(page.image.width() / double(Picture::DOTS), PAGE_WIDTH));
        QVERIFY(near(page.image.height() / double(Picture::DOTS), PAGE_HEIGHT));
        for (const double y : {TOP + 0.3, 60.0, 131.0, BASE - 0.3}) {
            QVERIFY(page.has(FIRST, LEFT, y));
            QVERIFY(page.has(SECOND, RIGHT, y));
        }
        for (const double y : {TOP - 0.5, BASE + 0.5}) {
            QVERIFY(!page.has(FIRST, LEFT, y));
            QVERIFY(!page.has(SECOND, RIGHT, y));
        }
        for (const double x : {LEFT + 0.3, 100.0, 200.5, RIGHT - 0.3}) {
            QVERIFY(page.has(TIME, x, BASE));
        }
        QVERIFY(page.has(TIME, LEFT + 66, BASE + 1.8)); // the tick of a label
        QVERIFY(!page.has(TIME, LEFT - 0.5, BASE));
        QVERIFY(!page.has(TIME, RIGHT + 0.5, BASE));
    }

    void linesAreAtTheirValues() {
        constexpr Colour MEAN = 0x0080FF;
        constexpr Colour SERIES = 0x123456;
        PrintedDiagram diagram;
        diagram.control.setD1(SERIES);
        diagram.control.setHilfslinie1(15);
        diagram.control.setHilfslinie2(45);
        diagram.control.setShowMittel(true);
        fillSeries(diagram.control,
                   {{DAY, 20}, {DAY + 0.5, 20}, {DAY + 0.6, 999999}, {DAY + 0.7, 40}, {DAY + 1, 40}});
        const Picture page = picture(diagram);
        const auto y = [](double value) { return BASE - value * 147 / 60; };
        for (const double x : {LEFT + 1, 120.0, RIGHT - 1}) {
            QVERIFY(page.has(GREEN, x, y(15)));
            QVERIFY(page.has(RED, x, y(45)));
            QVERIFY(page.has(MEAN, x, y(30)));
        }
        QVERIFY(page.has(SERIES, LEFT + 0.4 * 264, y(20)));
        QVERIFY(page.has(SERIES, LEFT + 0.8 * 264, y(40)));
        QVERIFY(!page.has(SERIES, QRectF(LEFT + 0.52 * 264, TOP, 0.16 * 264, BASE - TOP))); // the gap
    }

    void nothingLeavesThePlot_data() {
        QTest::addColumn<int>("kind");
        for (const int kind : {0, 2, 3, 4}) {
            QTest::addRow("kind %d", kind) << kind;
        }
    }
    void nothingLeavesThePlot() {
        QFETCH(int, kind);
        constexpr Colour SERIES = 0x123456;
        constexpr double PEN = 0.3;
        PrintedDiagram diagram;
        diagram.control.setDiagTyp(kind);
        diagram.control.setY1High(540);
        diagram.control.setD1(SERIES);
        fillSeries(diagram.control,
                   {{DAY - 1, -900000}, {DAY + 0.2, 900000}, {DAY + 0.5, 30}, {DAY + 2, -900000}});
        const Picture page = picture(diagram);
        QVERIFY(page.has(SERIES, QRectF(LEFT, TOP, RIGHT - LEFT, BASE - TOP)));
        QVERIFY(!page.has(SERIES, QRectF(0, 0, PAGE_WIDTH, TOP - PEN)));
        QVERIFY(!page.has(SERIES, QRectF(0, 0, LEFT - PEN, PAGE_HEIGHT)));
        QVERIFY(!page.has(SERIES, QRectF(0, BASE + PEN, PAGE_WIDTH, PAGE_HEIGHT - BASE - PEN)));
        QVERIFY(!page.has(SERIES, QRectF(RIGHT + PEN, 0, PAGE_WIDTH - RIGHT - PEN, PAGE_HEIGHT)));
    }

    // --- the document ---

    void aYearOfMinutesIsASmallDocumentOfLines() {
        PrintedDiagram diagram;
        diagram.control.setXHigh(DAY + 365);
        fillSeries(diagram.control, yearOfMinutes());
        const QString document = printed(diagram);
        QCOMPARE(printedPages(document).size(), std::size_t(1));
        QCOMPARE(picturesIn(document), QStringList());
        QVERIFY2(QFileInfo(document).size() < 500000,
                 qPrintable(QString::number(QFileInfo(document).size())));
        const Picture page{picturedPage(document, 0, Picture::DOTS)};
        QVERIFY(page.has(diagram.control.D1(), QRectF(60, BASE - 38 * 147 / 60.0, 1, 0.1)));
        QVERIFY(!page.has(diagram.control.D1(), QRectF(60, BASE - 32 * 147 / 60.0, 1, 0.1)));
    }

    void allFontsAreInTheDocument() {
        constexpr int FROM_THE_END = 5; // embedded, subset, unicode, object (2)
        PrintedDiagram diagram;
        const QStringList fonts = fontsIn(printed(diagram));
        QCOMPARE(fonts.size(), 2); // plain and bold
        for (const QString& font : fonts) {
            const QStringList cells = font.simplified().split(QLatin1Char(' '));
            QCOMPARE(cells.value(cells.size() - FROM_THE_END), QStringLiteral("yes"));
        }
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::PrintPageTest)
#include "PrintPageTest.moc"
