// SPDX-License-Identifier: GPL-3.0-or-later
// The dialog as it opens: its controls, where they are and what they enable.
#include "tests/batchprint/BatchFixture.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QDateTimeEdit>
#include <QLabel>
#include <QLineEdit>
#include <QProgressBar>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

constexpr const char* FIELDS[] = {"tMin", "tMax", "aMin", "aMax"};
constexpr const char* ROW_CONTROLS[] = {"chKanal",     "chAuto",      "tMin", "strich", "tMax",
                                        "selInterval", "chShowLines", "aMin", "aMax",   "chShowMittel"};

QRect placeOf(const QWidget& control) { return {control.mapTo(control.window(), QPoint()), control.size()}; }

} // namespace

class fcprint_test : public QObject {
    Q_OBJECT

    static void compareEnabled(const BatchFixture& fixture, int row, bool scale, bool limits) {
        for (const char* field : FIELDS) {
            QCOMPARE(fixture.the<QLineEdit>(field, row).isEnabled(), field[0] == 't' ? scale : limits);
        }
    }

  private Q_SLOTS:
    void rowsInTheirOrder() {
        const BatchFixture fixture;
        QCOMPARE(fixture.window->windowTitle(), QStringLiteral("Sammeldruck"));
        const char* names[] = {"Staub", "Lufttemperatur", "Wind && Wetter", "Niederschlag", "", "", "", "",
                               "",      "Luftfeuchte"};
        const char* numbers[] = {"Kanal 1", "Kanal 6", "Kanal 2",  "Kanal 12", "Kanal 13",
                                 "Kanal 8", "Kanal 9", "Kanal 10", "Kanal 14", "Kanal 15"};
        for (int i = 0; i < 10; ++i) {
            const auto& box = fixture.the<QCheckBox>("chKanal", i);
            QCOMPARE(box.text(), QString::fromUtf8(names[i]));
            QVERIFY(box.toolTip().contains(QString::fromUtf8(numbers[i])));
        }
        for (const char* control : ROW_CONTROLS) {
            QVERIFY(fixture.window->findChild<QWidget*>(QString::fromUtf8(control) +
                                                        QStringLiteral("(10)")) == nullptr);
        }
    }

    void firstState() {
        const BatchFixture fixture;
        for (int i = 0; i < 10; ++i) {
            for (const char* box : {"chKanal", "chAuto", "chShowLines", "chShowMittel"}) {
                QVERIFY(!fixture.the<QCheckBox>(box, i).isChecked());
            }
            const auto& intervals = fixture.the<QComboBox>("selInterval", i);
            QCOMPARE(intervals.currentIndex(), 0);
            QStringList entries;
            for (int k = 0; k < intervals.count(); ++k) {
                entries
                    << QStringLiteral("%1=%2").arg(intervals.itemText(k)).arg(intervals.itemData(k).toInt());
            }
            QCOMPARE(
                entries.join(QLatin1Char(' ')),
                QStringLiteral("1 Minute=1 5 Minuten=5 10 Minuten=10 15 Minuten=15 1 Stunde=60 1 Tag=1440"));
            QCOMPARE(fixture.textOf("tMin", i), QStringLiteral("0"));
            QCOMPARE(fixture.textOf("tMax", i), QStringLiteral("100"));
            compareEnabled(fixture, i, true, false);
            QVERIFY(fixture.the<QCheckBox>("chShowLines", i).isVisible());
        }
        QCOMPARE(fixture.textOf("aMin", 0), QStringLiteral("50"));
        QCOMPARE(fixture.textOf("aMax", 0), QStringLiteral("150.5"));
        QCOMPARE(fixture.textOf("aMin", 1), QStringLiteral("-5"));
        QCOMPARE(fixture.textOf("aMax", 1), QStringLiteral("0.0000001"));
        QCOMPARE(fixture.textOf("aMax", 4), QStringLiteral("0")); // not there
        QVERIFY(!fixture.the<QAbstractButton>(QStringLiteral("OKButton")).isEnabled());
        QVERIFY(fixture.the<QAbstractButton>(QStringLiteral("SaveButton")).isEnabled());
        QVERIFY(!fixture.the<QProgressBar>(QStringLiteral("PBar")).isVisible());
        QVERIFY(fixture.dialogs.messages.isEmpty());
        QVERIFY(fixture.events.isEmpty());
    }

    void periodOfTheOwner() {
        const BatchFixture fixture;
        const std::pair<const char*, const char*> texts[] = {{"DTPicker", "18.06.2020"},
                                                             {"DTPicker1", "06:30"},
                                                             {"DTPicker2", "19.06.2020"},
                                                             {"DTPicker3", "18:15"}};
        for (const auto& [name, text] : texts) {
            QCOMPARE(fixture.the<QDateTimeEdit>(QString::fromUtf8(name)).text(), QString::fromUtf8(text));
        }
        QCOMPARE(fixture.window->period().from, fixture.range.from);
        QCOMPARE(fixture.window->period().to, fixture.range.to);
    }

    /// What is being typed counts, also when no other control has had the focus since.
    void typedPeriod() {
        const BatchFixture fixture;
        fixture.typePicker("DTPicker", QStringLiteral("01022019"));
        fixture.typePicker("DTPicker1", QStringLiteral("2359"));
        fixture.typePicker("DTPicker2", QStringLiteral("29022020"));
        fixture.typePicker("DTPicker3", QStringLiteral("0001"));
        const TimeRange period = fixture.window->period();
        QCOMPARE(period.from, dateSerial(2019, 2, 1) + timeSerial(23, 59));
        QCOMPARE(period.to, dateSerial(2020, 2, 29) + timeSerial(0, 1));
    }

    void headings() {
        const BatchFixture fixture;
        QStringList texts;
        for (const auto* label : fixture.window->findChildren<QLabel*>()) {
            if (!label->objectName().startsWith(QLatin1String("strich"))) {
                texts << label->text();
                QVERIFY2(label->width() >= label->sizeHint().width(), qPrintable(label->text()));
            }
        }
        for (const char* text : {"Zeitraum von", "Skalierung", "auto      -      manuell", "Mittelung",
                                 "Grenzwerte", "anzeigen        grün                rot"}) {
            QVERIFY2(texts.contains(QString::fromUtf8(text)), text);
        }
    }

    /// 360 twips from row to row, and each control under the word of its heading.
    void rowsStandUnderTheirHeadings() {
        const BatchFixture fixture;
        for (int i = 1; i < 10; ++i) {
            for (const char* control : ROW_CONTROLS) {
                const QRect first = placeOf(fixture.the<QWidget>(control, 0));
                QCOMPARE(placeOf(fixture.the<QWidget>(control, i)), first.translated(0, 24 * i));
            }
        }
        struct Case {
            const char* caption;
            const char* word;
            const char* left;  // the heading is above the controls from this
            const char* right; // to this
        };
        const Case cases[] = {
            {"auto      -      manuell", "auto", "chAuto", "chAuto"},
            {"auto      -      manuell", "manuell", "tMin", "tMax"},
            {"Mittelung", "Mittelung", "selInterval", "selInterval"},
            {"anzeigen        grün                rot", "anzeigen", "chShowLines", "chShowLines"},
            {"anzeigen        grün                rot", "grün", "aMin", "aMin"},
            {"anzeigen        grün                rot", "rot", "aMax", "aMax"},
        };
        for (const Case& c : cases) {
            const QString caption = QString::fromUtf8(c.caption);
            for (const auto* label : fixture.window->findChildren<QLabel*>()) {
                if (label->text() == caption) {
                    const QFontMetrics metrics(label->font());
                    const QString before = caption.left(caption.indexOf(QString::fromUtf8(c.word)));
                    const int middle = placeOf(*label).left() + metrics.horizontalAdvance(before) +
                                       metrics.horizontalAdvance(QString::fromUtf8(c.word)) / 2;
                    QVERIFY2(middle >= placeOf(fixture.the<QWidget>(c.left, 0)).left(), c.word);
                    QVERIFY2(middle <= placeOf(fixture.the<QWidget>(c.right, 0)).right(), c.word);
                    QVERIFY(placeOf(*label).bottom() < placeOf(fixture.the<QWidget>(c.left, 0)).top());
                }
            }
        }
    }

    void longNamesHaveRoomWhateverTheFontOfTheApplication() {
        BatchFixture fixture;
        fixture.station.ChannelTable.grow(1).Name = "Niederschlagsmenge am Nordrand"; // the first row
        const QFont before = QApplication::font();
        for (const int pixels : {6, 11, 14}) {
            QFont other = before;
            other.setPixelSize(pixels);
            QApplication::setFont(other);
            fixture.open();
            QApplication::setFont(before);
            const auto& box = fixture.the<QCheckBox>("chKanal", 0);
            QVERIFY(box.width() > 110);
            QCOMPARE(box.width(), box.sizeHint().width());
        }
    }

    /// No text is cut, and no controls overlap.
    void everythingHasRoom() {
        const BatchFixture fixture;
        QList<QRect> places;
        QWidgetList controls;
        for (auto* control : fixture.window->findChildren<QWidget*>()) {
            const QString name = control->objectName();
            const bool inner =
                name.isEmpty() || name.startsWith(QLatin1String("qt_")) || name == QLatin1String("entries");
            if (inner || control->isWindow() || control->parentWidget()->inherits("QAbstractSpinBox")) {
                continue;
            }
            const QRect place = placeOf(*control);
            QVERIFY2(fixture.window->rect().contains(place), qPrintable(name));
            for (const QRect& other : places) {
                QVERIFY2(!place.intersects(other), qPrintable(name));
            }
            if (control->inherits("QCheckBox") || control->inherits("QComboBox") ||
                control->inherits("QAbstractSpinBox")) {
                QVERIFY2(control->width() >= control->minimumSizeHint().width(), qPrintable(name));
            }
            places << place;
        }
        QVERIFY(places.size() > 110);
    }

    void enabling() {
        const BatchFixture fixture;
        for (const int i : {0, 4, 9}) {
            fixture.click("chAuto", i);
            compareEnabled(fixture, i, false, false);
            fixture.click("chShowLines", i);
            compareEnabled(fixture, i, false, true);
            fixture.click("chAuto", i);
            compareEnabled(fixture, i, true, true);
            fixture.click("chShowLines", i);
            compareEnabled(fixture, i, true, false);
        }
        compareEnabled(fixture, 5, true, false);
    }

    void okWhileARowIsChecked() {
        const BatchFixture fixture;
        const auto& ok = fixture.the<QAbstractButton>(QStringLiteral("OKButton"));
        fixture.click("chKanal", 9);
        QVERIFY(ok.isEnabled());
        QTest::keyClick(&fixture.the<QWidget>("chKanal", 3), Qt::Key_Space);
        QVERIFY(ok.isEnabled());
        fixture.click("chKanal", 9);
        QVERIFY(ok.isEnabled());
        fixture.click("chKanal", 3);
        QVERIFY(!ok.isEnabled());
    }

    void redWhileNoNumber() {
        const BatchFixture fixture;
        struct Case {
            const char* text;
            bool red;
        };
        const Case cases[] = {{"", true},      {"abc", true},  {"1,5", true},  {"12abc", true},
                              {"1e999", true}, {"-", true},    {"nan", true},  {".5", false},
                              {"+3", false},   {"1e3", false}, {" 7 ", false}, {"-0.1", false}};
        for (const Case& c : cases) {
            fixture.type("tMax", 2, QString::fromUtf8(c.text));
            QVERIFY2(fixture.isRed("tMax", 2) == c.red, c.text);
        }
        QVERIFY(!fixture.isRed("tMin", 2));
    }

    void closes_data() {
        QTest::addColumn<QString>("way");
        for (const char* way : {"button", "escape", "alt", "enter"}) {
            QTest::newRow(way) << QString::fromUtf8(way);
        }
    }
    void closes() {
        QFETCH(QString, way);
        const BatchFixture fixture;
        auto& cancel = fixture.the<QWidget>(QStringLiteral("CancelButton"));
        if (way == QLatin1String("button")) {
            fixture.click(QStringLiteral("CancelButton"));
        } else if (way == QLatin1String("escape")) {
            QTest::keyClick(&fixture.the<QWidget>("tMin", 3), Qt::Key_Escape);
        } else if (way == QLatin1String("alt")) {
            QTest::keyClick(fixture.window.get(), Qt::Key_A, Qt::AltModifier);
        } else {
            cancel.setFocus();
            QTest::keyClick(&cancel, Qt::Key_Return);
        }
        QTRY_VERIFY(!fixture.window->isVisible());
        QVERIFY(fixture.events.isEmpty());
        QVERIFY(!QFile::exists(QStringLiteral("Sammeldruck.cfg")));
    }

    /// Enter ends an entry and starts nothing.
    void enterInAField() {
        const BatchFixture fixture;
        fixture.click("chKanal", 0);
        for (const QString& name : {QStringLiteral("tMin(0)"), QStringLiteral("DTPicker1"),
                                    QStringLiteral("DTPicker"), QStringLiteral("chKanal(0)")}) {
            auto& control = fixture.the<QWidget>(name);
            control.setFocus();
            QTest::keyClick(&control, Qt::Key_Return);
        }
        QVERIFY(fixture.window->isVisible());
        QVERIFY(fixture.events.isEmpty() && fixture.dialogs.messages.isEmpty());
    }

    /// The tab key walks through the period, along each row and to the buttons.
    void tabOrder() {
        const BatchFixture fixture;
        fixture.click("chKanal", 0);
        fixture.click("chShowLines", 0);
        QStringList walked;
        fixture.the<QWidget>(QStringLiteral("DTPicker")).setFocus();
        constexpr int MAX_STEPS = 200; // pickers have sections
        for (int i = 0; i < MAX_STEPS; ++i) {
            const QString name = QApplication::focusWidget()->objectName();
            if (!walked.isEmpty() && name == walked.first() && walked.size() > 1) {
                break;
            }
            if (walked.isEmpty() || walked.last() != name) {
                walked << name;
            }
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
        }
        QStringList expected = {QStringLiteral("DTPicker"), QStringLiteral("DTPicker1"),
                                QStringLiteral("DTPicker2"), QStringLiteral("DTPicker3")};
        for (int i = 0; i < 10; ++i) {
            for (const char* control : ROW_CONTROLS) {
                const bool limit = control[0] == 'a';
                if (QLatin1String(control) != QLatin1String("strich") && (i == 0 || !limit)) {
                    expected << QStringLiteral("%1(%2)").arg(QString::fromUtf8(control)).arg(i);
                }
            }
        }
        expected << QStringLiteral("SaveButton") << QStringLiteral("OKButton")
                 << QStringLiteral("CancelButton");
        QCOMPARE(walked, expected);
    }

    void accessibleNames() {
        const BatchFixture fixture;
        QStringList seen;
        for (const auto* control : fixture.window->findChildren<QWidget*>()) {
            const QString name = control->objectName();
            if (name.isEmpty() || name.startsWith(QLatin1String("qt_")) ||
                (control->focusPolicy() & Qt::TabFocus) == 0) {
                continue;
            }
            QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(name));
            QVERIFY2(!seen.contains(control->accessibleName()), qPrintable(name));
            QVERIFY2(!control->toolTip().isEmpty(), qPrintable(name));
            seen << control->accessibleName();
        }
        QCOMPARE(seen.size(), 4 + 10 * 9 + 3);
    }

    void buttons() {
        const BatchFixture fixture;
        const std::pair<const char*, const char*> captions[] = {
            {"SaveButton", "&Speichern"}, {"OKButton", "&Drucken"}, {"CancelButton", "&Abbrechen"}};
        for (const auto& [name, caption] : captions) {
            QCOMPARE(fixture.the<QAbstractButton>(QString::fromUtf8(name)).text(),
                     QString::fromUtf8(caption));
        }
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::fcprint_test)
#include "fcprint_test.moc"
