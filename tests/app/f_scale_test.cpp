// SPDX-License-Identifier: GPL-3.0-or-later
// Scale, limit lines, mean line and zoom: what each control does to the diagram, and that none of them reads
// a file.
#include "diagram/PolarSys.h"
#include "tests/app/WindowFixture.h"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QTest>
#include <array>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

/// The colour of a text box.
QColor background(const QLineEdit& box) { return box.palette().color(QPalette::Active, QPalette::Base); }

const QColor PURE_RED(255, 0, 0);

/// The left range of the diagram, or its two limit lines.
using Pair = std::array<double, 2>;

} // namespace

class f_scale_test : public QObject {
    Q_OBJECT

    static Pair scale(const WindowFixture& fixture) {
        const auto& ks = fixture.the<PolarSys>("KS");
        return {ks.Y1Low(), ks.Y1High()};
    }
    static Pair lines(const WindowFixture& fixture) {
        const auto& ks = fixture.the<PolarSys>("KS");
        return {ks.Hilfslinie1(), ks.Hilfslinie2()};
    }

    /// Text boxes are enabled and unlocked, or disabled and locked, together with their labels.
    static void compareUsable(const WindowFixture& fixture, std::initializer_list<const char*> boxes,
                              std::initializer_list<const char*> labels, bool usable) {
        for (const char* name : boxes) {
            const auto& box = fixture.the<QLineEdit>(name);
            QCOMPARE(box.isEnabled(), usable);
            QCOMPARE(box.isReadOnly(), !usable);
        }
        for (const char* name : labels) {
            QCOMPARE(fixture.the<QLabel>(name).isEnabled(), usable);
        }
    }

    /// Acts, and tells that the diagram was drawn once and nothing was read.
    static void drawsOnce(WindowFixture& fixture, const std::function<void()>& act) {
        const auto& ks = fixture.the<PolarSys>("KS");
        QTest::qWait(1);
        const int drawings = ks.drawings();
        fixture.files.opened = 0;
        const DateTime from = ks.XLow();
        const DateTime to = ks.XHigh();
        act();
        QTest::qWait(1);
        QCOMPARE(ks.drawings(), drawings + 1);
        QCOMPARE(fixture.files.opened, 0);
        QCOMPARE(ks.XLow(), from);
        QCOMPARE(ks.XHigh(), to);
    }

  private Q_SLOTS:
    void automaticAndManual() {
        WindowFixture fixture;
        QCOMPARE(scale(fixture), (Pair{-5, 5})); // until the user touches the scale
        drawsOnce(fixture, [&] { fixture.click("Option1"); });
        QCOMPARE(scale(fixture), (Pair{100000005, 100000005}));
        compareUsable(fixture, {"Text1", "Text2"}, {"Label4", "Label5"}, false);
        drawsOnce(fixture, [&] { fixture.click("Option2"); });
        QCOMPARE(scale(fixture), (Pair{0, 100}));
        compareUsable(fixture, {"Text1", "Text2"}, {"Label4", "Label5"}, true);
    }

    void scaleEntries_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<bool>("valid");
        QTest::addColumn<double>("value");
        const auto row = [](const char* text, bool valid, double value) {
            QTest::newRow(*text == '\0' ? "empty" : text) << QString::fromUtf8(text) << valid << value;
        };
        row("abc", false, 0);
        row("", false, 0);
        row("1,5", false, 0);
        row("12abc", false, 0);
        row("-", false, 0);
        row("1e", false, 0);
        row("nan", false, 0);
        row("inf", false, 0);
        row("1e999", false, 0);
        row("0x10", false, 0);
        row("--1", false, 0);
        row("1 2", false, 0);
        row(".5", true, 0.5);
        row("+3", true, 3);
        row("1e3", true, 1000);
        row("-12.25", true, -12.25);
        row(" 7 ", true, 7);
        row("0", true, 0);
        row("5.", true, 5);
        row("123456789", true, 123456789); // the scale knows no bounds
        row("1E-3", true, 0.001);
    }
    /// An entry is applied at once; what is no number turns the field red and nothing else, and leaving the
    /// field brings back the last good value.
    void scaleEntries() {
        QFETCH(QString, text);
        QFETCH(bool, valid);
        QFETCH(double, value);
        for (const bool maximum : {false, true}) {
            WindowFixture fixture;
            const char* name = maximum ? "Text2" : "Text1";
            const char* otherName = maximum ? "Text1" : "Text2";
            const auto& box = fixture.the<QLineEdit>(name);
            const auto& other = fixture.the<QLineEdit>(otherName);
            const QColor good = background(box);
            QVERIFY(good != PURE_RED);
            fixture.click("Option2");
            fixture.type(name, QStringLiteral("42"));
            fixture.type(name, QStringLiteral("x"));
            QCOMPARE(background(box), PURE_RED);
            const Pair before = scale(fixture);
            QCOMPARE(before, (maximum ? Pair{0, 42} : Pair{42, 100}));
            fixture.files.opened = 0;

            // The clipboard's way: the whole text comes as one change.
            auto& field = fixture.the<QLineEdit>(name);
            field.selectAll();
            const int drawings = fixture.the<PolarSys>("KS").drawings();
            text.isEmpty() ? field.del() : field.insert(text);
            QTest::qWait(1);
            QCOMPARE(box.text(), text);
            QCOMPARE(background(box), valid ? good : PURE_RED);
            Pair after = before;
            after[maximum ? 1 : 0] = valid ? value : 42;
            QCOMPARE(scale(fixture), after);
            QCOMPARE(fixture.the<PolarSys>("KS").drawings(), drawings + (valid ? 1 : 0));
            QCOMPARE(background(other), good);
            QCOMPARE(other.text(), maximum ? QStringLiteral("0") : QStringLiteral("100"));

            fixture.the<QWidget>("selChan").setFocus();
            QCOMPARE(box.text(), valid ? text : QStringLiteral("42"));
            QCOMPARE(background(box), good);
            QCOMPARE(scale(fixture), after);
            QCOMPARE(fixture.files.opened, 0);
        }
    }

    void typedScale() {
        WindowFixture fixture;
        fixture.type("Text1", QStringLiteral("abc"));
        QCOMPARE(background(fixture.the<QLineEdit>("Text1")), PURE_RED);
        QCOMPARE(scale(fixture), (Pair{-5, 5}));
        QTest::keyClick(&fixture.the<QLineEdit>("Text1"), Qt::Key_Tab);
        QCOMPARE(fixture.the<QLineEdit>("Text1").text(), QStringLiteral("0"));
        fixture.type("Text1", QStringLiteral("2"));
        QCOMPARE(scale(fixture), (Pair{2, 5})); // the maximum is not touched yet
        drawsOnce(fixture, [&] { QTest::keyClicks(&fixture.the<QLineEdit>("Text1"), QStringLiteral("5")); });
        QCOMPARE(scale(fixture), (Pair{25, 5})); // not compared with each other
        fixture.type("Text2", QStringLiteral("-30"));
        QCOMPARE(scale(fixture), (Pair{25, -30}));
        fixture.click("Option1");
        QTest::keyClicks(&fixture.the<QLineEdit>("Text1"), QStringLiteral("9")); // locked
        QCOMPARE(scale(fixture), (Pair{100000005, 100000005}));
        fixture.click("Option2");
        QCOMPARE(scale(fixture), (Pair{25, -30}));
    }

    void limitEntries_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<double>("line");
        const auto row = [](const char* text, double line) {
            QTest::newRow(*text == '\0' ? "empty" : text) << QString::fromUtf8(text) << line;
        };
        row("0", 1e-300);
        row("-0.0", 1e-300);
        row("123456789", 99999900);
        row("-123456789", 99999900);
        row("99999900", 99999900);
        row("-99999900", 99999900);
        row("99999999", 99999900);
        row("99999899", 99999899);
        row("-99999899", -99999899);
        row("99999899.5", 99999899.5);
        row("x", 99999900);
        row("", 99999900);
        row("1,5", 99999900);
        row("12abc", 99999900);
        row("nan", 99999900);
        row("inf", 99999900);
        row(".5", 0.5);
        row("+3", 3);
        row("1e3", 1000);
        row("-7.25", -7.25);
    }
    void limitEntries() {
        QFETCH(QString, text);
        QFETCH(double, line);
        for (const char* name : {"Text3", "Text4"}) {
            const bool second = std::string_view(name) == "Text4";
            WindowFixture fixture;
            fixture.click("Check1");
            fixture.type(name, QStringLiteral("5"));
            const Pair before = lines(fixture);
            auto& box = fixture.the<QLineEdit>(name);
            box.selectAll();
            drawsOnce(fixture, [&] { text.isEmpty() ? box.del() : box.insert(text); });
            QCOMPARE(lines(fixture)[second ? 1 : 0], line);
            QCOMPARE(lines(fixture)[second ? 0 : 1], before[second ? 0 : 1]);
            QVERIFY(background(box) != PURE_RED); // the limit boxes never turn red

            // The same through the check box.
            fixture.click("Check1");
            QCOMPARE(lines(fixture), (Pair{0, 0}));
            fixture.click("Check1");
            QCOMPARE(lines(fixture)[second ? 1 : 0], line);
        }
    }

    void limitsOnAndOff() {
        WindowFixture fixture;
        fixture.chooseChannel(2); // limits 50 and 150.5
        compareUsable(fixture, {"Text3", "Text4"}, {"Label6", "Label7"}, false);
        QCOMPARE(lines(fixture), (Pair{0, 0}));
        drawsOnce(fixture, [&] { fixture.click("Check1"); });
        compareUsable(fixture, {"Text3", "Text4"}, {"Label6", "Label7"}, true);
        QCOMPARE(lines(fixture), (Pair{50, 150.5}));
        drawsOnce(fixture, [&] { fixture.click("Check1"); });
        compareUsable(fixture, {"Text3", "Text4"}, {"Label6", "Label7"}, false);
        QCOMPARE(lines(fixture), (Pair{0, 0}));
    }

    /// A limit of 0 is a line at zero, and no limit is none: the pictures differ.
    void limitOfZeroIsDrawn() {
        WindowFixture fixture;
        const auto& ks = fixture.the<PolarSys>("KS");
        QTest::qWait(1);
        const QImage without = ks.picture().toImage();
        fixture.click("Check1"); // both limits of this channel are 0
        QTest::qWait(1);
        QVERIFY(ks.picture().toImage() != without);
        fixture.click("Check1");
        QTest::qWait(1);
        QCOMPARE(ks.picture().toImage(), without);
    }

    void meanLine() {
        WindowFixture fixture;
        const auto& ks = fixture.the<PolarSys>("KS");
        QVERIFY(!ks.showMittel());
        drawsOnce(fixture, [&] { fixture.click("Check2"); });
        QVERIFY(ks.showMittel());
        drawsOnce(fixture, [&] { fixture.click("Check2"); });
        QVERIFY(!ks.showMittel());
    }

    void zoomFromOneToTwenty() {
        WindowFixture fixture;
        const auto& smaller = fixture.the<QPushButton>("Command1");
        const auto& greater = fixture.the<QPushButton>("Command2");
        const auto& label = fixture.the<QLabel>("lZoom");
        const auto& ks = fixture.the<PolarSys>("KS");
        const QRect place = ks.geometry();
        QTest::qWait(1);
        const QImage picture = ks.picture().toImage();
        QVERIFY(!smaller.isEnabled());
        fixture.click("Command1"); // greyed
        QCOMPARE(label.text(), QStringLiteral("1"));
        for (int zoom = 2; zoom <= 20; ++zoom) {
            QVERIFY(greater.isEnabled());
            drawsOnce(fixture, [&] { fixture.click("Command2"); });
            QCOMPARE(label.text(), QString::number(zoom));
            QVERIFY(smaller.isEnabled());
        }
        QVERIFY(!greater.isEnabled());
        fixture.click("Command2"); // greyed
        QCOMPARE(label.text(), QStringLiteral("20"));
        QCOMPARE(ks.geometry(), place); // the zoom is wired to nothing
        QCOMPARE(ks.picture().toImage(), picture);
        for (int zoom = 19; zoom >= 1; --zoom) {
            QVERIFY(smaller.isEnabled());
            drawsOnce(fixture, [&] { fixture.click("Command1"); });
            QCOMPARE(label.text(), QString::number(zoom));
            QVERIFY(greater.isEnabled());
        }
        QVERIFY(!smaller.isEnabled());
    }

    void surviveAReload() {
        WindowFixture fixture;
        fixture.type("Text1", QStringLiteral("-3"));
        fixture.type("Text2", QStringLiteral("33"));
        fixture.click("Check1");
        fixture.type("Text3", QStringLiteral("1"));
        fixture.type("Text4", QStringLiteral("2"));
        fixture.click("Check2");
        fixture.click("Command2");
        fixture.files.opened = 0;
        fixture.chooseInterval(2);
        fixture.click("optView(1)");
        fixture.click("optView(0)");
        QVERIFY(fixture.files.opened >= 3);
        QCOMPARE(scale(fixture), (Pair{-3, 33}));
        QCOMPARE(lines(fixture), (Pair{1, 2}));
        QVERIFY(fixture.the<PolarSys>("KS").showMittel());
        QCOMPARE(fixture.the<QLabel>("lZoom").text(), QStringLiteral("2"));
        QVERIFY(fixture.the<QPushButton>("Command1").isEnabled());

        fixture.click("Option1");
        fixture.chooseChannel(2); // another channel brings its own limits, the rest stays
        QCOMPARE(scale(fixture), (Pair{100000005, 100000005}));
        QCOMPARE(lines(fixture), (Pair{50, 150.5}));
        QVERIFY(fixture.the<PolarSys>("KS").showMittel());
        QCOMPARE(fixture.the<QLineEdit>("Text1").text(), QStringLiteral("-3"));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_scale_test)
#include "f_scale_test.moc"
