// SPDX-License-Identifier: GPL-3.0-or-later
// The pickers as a user operates them: a typed change is one finished edit.
#include "util/Pickers.h"

#include <QCalendarWidget>
#include <QClipboard>
#include <QGuiApplication>
#include <QLineEdit>
#include <QSignalSpy>
#include <QTest>
#include <QVBoxLayout>
#include <random>

namespace kelvrum {

namespace {

const QString DATE = QStringLiteral("dd.MM.yyyy");
const QString TIME = QStringLiteral("HH:mm");

/// A window with the two pickers and something else to focus.
struct Desk {
    QWidget window;
    QLineEdit other{&window};
    DatePicker date{LocaleTexts{}, &window};
    TimePicker time{&window};
    QSignalSpy dates{&date, &QDateEdit::userDateChanged};
    QSignalSpy times{&time, &QTimeEdit::userTimeChanged};

    Desk() {
        QVBoxLayout* layout = new QVBoxLayout(&window);
        layout->addWidget(&other);
        layout->addWidget(&date);
        layout->addWidget(&time);
        window.show();
        window.activateWindow();
        if (!QTest::qWaitForWindowActive(&window)) {
            qFatal("the window does not show");
        }
    }

    /// The picker with the date, reached by the tab key.
    void show(const QDate& shown) {
        other.setFocus();
        date.setDate(shown);
        dates.clear();
        date.setFocus(Qt::TabFocusReason);
    }
    void show(const QTime& shown) {
        other.setFocus();
        time.setTime(shown);
        times.clear();
        time.setFocus(Qt::TabFocusReason);
    }
    /// Folds the calendar out.
    QCalendarWidget* unfold() {
        QTest::mouseClick(&date, Qt::LeftButton, {}, {date.width() - 6, date.height() / 2});
        auto* calendar = date.findChild<QCalendarWidget*>();
        return calendar != nullptr && calendar->isVisible() ? calendar : nullptr;
    }
};

QDate dateOf(const QString& text) { return QDate::fromString(text, DATE); }

} // namespace

class PickersTest : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void typedDates_data() {
        QTest::addColumn<QString>("shown");
        QTest::addColumn<QString>("typed");
        QTest::addColumn<QString>("result");
        const auto add = [](const char* shown, const char* typed, const char* result) {
            QTest::addRow("%s over %s", typed, shown)
                << QString::fromUtf8(shown) << QString::fromUtf8(typed) << QString::fromUtf8(result);
        };
        add("18.06.2020", "31.01.2020", "31.01.2020"); // a day that the month before lacks
        add("29.02.2020", "31.12.2019", "31.12.2019");
        add("29.02.2020", "31032020", "31.03.2020");
        add("18.06.2019", "29.02.2020", "29.02.2020");
        add("18.06.2020", "31.12.9999", "31.12.9999");
        add("18.06.2020", "1.7.2020", "01.07.2020");
        add("18.06.2020", "2/12/2020", "02.12.2020");
        add("18.06.2020", "16.05.19", "16.05.2019");
        add("18.06.2020", "31.02.2026", "18.06.2020"); // a date that does not exist
        add("18.06.2020", "31.06.2021", "18.06.2020");
        add("18.06.2020", "29.2.2021", "18.06.2020");
        add("18.06.2020", "29.02.1900", "18.06.2020");
        add("18.06.2020", "31", "18.06.2020");
        add("31.01.2020", "28.2", "28.02.2020");
        add("29.02.2020", "28.02.2026", "28.02.2026");
        add("18.06.2020", "7", "07.06.2020"); // the other sections stay
        add("18.06.2020", "7.9", "07.09.2020");
        add("18.06.2020", "32.01.2020", "18.06.2020"); // no date
        add("18.06.2020", "0.01.2020", "18.06.2020");
        add("18.06.2020", "01.13.2020", "18.06.2020");
        add("18.06.2020", "01.07.202", "01.07.0202");
        add("18.06.2020", "01.07.0050", "18.06.2020"); // before the calendar
    }
    void typedDates() {
        QFETCH(QString, shown);
        QFETCH(QString, typed);
        QFETCH(QString, result);
        for (const Qt::Key end : {Qt::Key_Return, Qt::Key_Enter, Qt::Key_Tab}) {
            Desk desk;
            desk.show(dateOf(shown));
            QTest::keyClicks(&desk.date, typed);
            QCOMPARE(desk.date.date(), dateOf(shown));
            QCOMPARE(desk.dates.count(), 0);
            QTest::keyClick(&desk.date, end);
            while (end == Qt::Key_Tab && desk.date.hasFocus()) { // through the remaining sections
                QTest::keyClick(&desk.date, end);
            }
            QCOMPARE(desk.date.text(), result);
            QCOMPARE(desk.date.date(), dateOf(result));
            QCOMPARE(desk.dates.count(), result == shown ? 0 : 1);
            desk.other.setFocus();
            QCOMPARE(desk.dates.count(), result == shown ? 0 : 1);
        }
    }

    void anyDateOverAnyOther() {
        Desk desk;
        std::mt19937 random(1); // NOLINT(cert-msc51-cpp): the same dates at every run
        const auto draw = [&random] { return QDate(2018, 1, 1).addDays(static_cast<int>(random() % 2190U)); };
        for (const char* form : {"dd.MM.yyyy", "d.M.yyyy", "ddMMyyyy", "dd.MM.yy"}) {
            for (int i = 0; i < 150; ++i) {
                const QDate before = draw();
                const QDate wanted = draw();
                const QString typed = wanted.toString(QString::fromUtf8(form));
                desk.show(before);
                QTest::keyClicks(&desk.date, typed);
                QCOMPARE(desk.dates.count(), 0);
                QTest::keyClick(&desk.date, Qt::Key_Return);
                QVERIFY2(desk.date.date() == wanted,
                         qPrintable(typed + QStringLiteral(" over ") + before.toString(DATE)));
            }
        }
    }

    void anyTimeOverAnyOther() {
        Desk desk;
        std::mt19937 random(2); // NOLINT(cert-msc51-cpp): the same times at every run
        const auto draw = [&random] {
            return QTime(static_cast<int>(random() % 24U), static_cast<int>(random() % 60U));
        };
        for (const char* form : {"HH:mm", "H:mm", "HHmm", "H.m"}) {
            for (int i = 0; i < 150; ++i) {
                const QTime before = draw();
                const QTime wanted = draw();
                const QString typed = wanted.toString(QString::fromUtf8(form));
                desk.show(before);
                QTest::keyClicks(&desk.time, typed);
                QCOMPARE(desk.times.count(), 0);
                QTest::keyClick(&desk.time, Qt::Key_Return);
                QVERIFY2(desk.time.time() == wanted,
                         qPrintable(typed + QStringLiteral(" over ") + before.toString(TIME)));
                QCOMPARE(desk.times.count(), before == wanted ? 0 : 1);
            }
        }
    }

    void noTime() {
        Desk desk;
        for (const char* typed : {"24:00", "29:00", "1260"}) {
            desk.show(QTime(10, 7));
            QTest::keyClicks(&desk.time, QString::fromUtf8(typed));
            QTest::keyClick(&desk.time, Qt::Key_Return);
            QCOMPARE(desk.time.text(), QStringLiteral("10:07"));
            QCOMPARE(desk.times.count(), 0);
        }
    }

    void returnInAnUnchangedPickerIsNoChange() {
        Desk desk;
        desk.show(QTime(10, 7));
        QTest::keyClick(&desk.time, Qt::Key_Return);
        desk.show(QDate(2020, 6, 18));
        QTest::keyClick(&desk.date, Qt::Key_Enter);
        QTest::keyClicks(&desk.date, QStringLiteral("18.06.2020\r"));
        QCOMPARE(desk.times.count() + desk.dates.count(), 0);
    }

    void escapeRestoresWhatWasThere() {
        Desk desk;
        desk.show(QDate(2020, 6, 18));
        QTest::keyClicks(&desk.date, QStringLiteral("3112"));
        QTest::keyClick(&desk.date, Qt::Key_Escape);
        QCOMPARE(desk.date.text(), QStringLiteral("18.06.2020"));
        QTest::keyClick(&desk.date, Qt::Key_Return);
        QCOMPARE(desk.dates.count(), 0);
    }

    void aValueThatIsSetMeanwhileCounts() {
        Desk desk;
        desk.show(QDate(2020, 6, 18));
        QTest::keyClicks(&desk.date, QStringLiteral("05.07"));
        desk.date.setDate(QDate(2019, 1, 31));
        QTest::keyClick(&desk.date, Qt::Key_Return);
        QCOMPARE(desk.date.text(), QStringLiteral("31.01.2019"));
        QTest::keyClicks(&desk.date, QStringLiteral("05.07"));
        desk.date.setDate(QDate(2018, 1, 31));
        desk.other.setFocus();
        QCOMPARE(desk.date.date(), QDate(2018, 1, 31));
    }

    void aClickChoosesTheSectionToTypeInto() {
        Desk desk;
        desk.show(QTime(10, 0));
        desk.other.setFocus();
        auto* line = desk.time.findChild<QLineEdit*>();
        const auto clickAt = [line](int character) {
            line->setCursorPosition(character);
            const QPoint there = line->inputMethodQuery(Qt::ImCursorRectangle).toRectF().center().toPoint();
            line->setCursorPosition(0);
            QTest::mouseClick(line, Qt::LeftButton, {}, there);
        };
        clickAt(0);
        QTest::keyClicks(&desk.time, QStringLiteral("09:30\r"));
        QCOMPARE(desk.time.time(), QTime(9, 30));
        clickAt(4);
        QTest::keyClicks(&desk.time, QStringLiteral("45"));
        QTest::keyClick(&desk.time, Qt::Key_Return);
        QCOMPARE(desk.time.time(), QTime(9, 45));
    }

    void stepsTakeOverWhatWasTyped() {
        Desk desk;
        desk.show(QTime(10, 0));
        QTest::keyClicks(&desk.time, QStringLiteral("0959"));
        QTest::keyClick(&desk.time, Qt::Key_Up);
        QCOMPARE(desk.time.time(), QTime(10, 0));
        desk.show(QDate(2020, 6, 18));
        QTest::keyClicks(&desk.date, QStringLiteral("2"));
        QTest::keyClick(&desk.date, Qt::Key_Right);
        QTest::keyClicks(&desk.date, QStringLiteral("1"));
        QTest::keyClick(&desk.date, Qt::Key_Up);
        QCOMPARE(desk.date.date(), QDate(2020, 2, 2));
    }

    /// Keys to the line itself are the picker's.
    void keysToTheLine() {
        Desk desk;
        desk.show(QDate(2020, 6, 18));
        auto* line = desk.date.findChild<QLineEdit*>();
        QTest::keyClicks(line, QStringLiteral("31.01.2019"));
        QTest::keyClick(line, Qt::Key_Return);
        QCOMPARE(desk.date.date(), QDate(2019, 1, 31));
        QCOMPARE(desk.dates.count(), 1);
    }

    /// What an input method gives, and what comes by the line's own menu.
    void otherWaysIn() {
        Desk desk;
        desk.show(QTime(10, 0));
        QTest::keyClicks(&desk.time, QStringLiteral("09"));
        QInputMethodEvent composed;
        composed.setCommitString(QStringLiteral("3"));
        QCoreApplication::sendEvent(&desk.time, &composed);
        QCOMPARE(desk.times.count(), 0);
        QTest::keyClicks(&desk.time, QStringLiteral("0\r"));
        QCOMPARE(desk.time.time(), QTime(9, 30));
        QCOMPARE(desk.times.count(), 1);

        auto* line = desk.time.findChild<QLineEdit*>();
        QGuiApplication::clipboard()->setText(QStringLiteral("11:45"));
        line->selectAll();
        line->paste();
        QTest::keyClick(&desk.time, Qt::Key_Return);
        QCOMPARE(desk.time.time(), QTime(11, 45));

        for (const auto& [pasted, result] :
             {std::pair("31.12.2019", QDate(2019, 12, 31)), std::pair("31.02.2026", QDate(2020, 6, 18))}) {
            desk.show(QDate(2020, 6, 18));
            line = desk.date.findChild<QLineEdit*>();
            QGuiApplication::clipboard()->setText(QString::fromUtf8(pasted));
            line->selectAll();
            line->paste();
            QTest::keyClick(&desk.date, Qt::Key_Return);
            QCOMPARE(desk.date.date(), result);
        }
    }

    void movesAndErases_data() {
        QTest::addColumn<QString>(
            "keys"); // H Home, E End, A Ctrl+A, X Delete, B Backspace, L and R the arrows
        QTest::addColumn<QString>("result");
        QTest::newRow("home") << QStringLiteral("5H23") << QStringLiteral("23.06.2020");
        QTest::newRow("end") << QStringLiteral("05E2019") << QStringLiteral("05.06.2019");
        QTest::newRow("all again") << QStringLiteral("05.07A31.12.2019") << QStringLiteral("31.12.2019");
        QTest::newRow("highlighted") << QStringLiteral("X25") << QStringLiteral("25.06.2020");
        QTest::newRow("the digit before") << QStringLiteral("31B0") << QStringLiteral("30.06.2020");
        QTest::newRow("to the right") << QStringLiteral("R7") << QStringLiteral("18.07.2020");
        QTest::newRow("and back") << QStringLiteral("RRL9") << QStringLiteral("18.09.2020");
        QTest::newRow("a day beyond the month") << QStringLiteral("31") << QStringLiteral("18.06.2020");
        QTest::newRow("a month without the day") << QStringLiteral("3002") << QStringLiteral("18.06.2020");
        QTest::newRow("moves alone") << QStringLiteral("RLRH") << QStringLiteral("18.06.2020");
    }
    void movesAndErases() {
        QFETCH(QString, keys);
        QFETCH(QString, result);
        Desk desk;
        desk.show(QDate(2020, 6, 18));
        for (const QChar key : keys) {
            switch (key.toLatin1()) {
            case 'H':
                QTest::keyClick(&desk.date, Qt::Key_Home);
                break;
            case 'E':
                QTest::keyClick(&desk.date, Qt::Key_End);
                break;
            case 'A':
                QTest::keyClick(&desk.date, Qt::Key_A, Qt::ControlModifier);
                break;
            case 'X':
                QTest::keyClick(&desk.date, Qt::Key_Delete);
                break;
            case 'B':
                QTest::keyClick(&desk.date, Qt::Key_Backspace);
                break;
            case 'L':
                QTest::keyClick(&desk.date, Qt::Key_Left);
                break;
            case 'R':
                QTest::keyClick(&desk.date, Qt::Key_Right);
                break;
            default:
                QTest::keyClicks(&desk.date, QString(key));
            }
        }
        QTest::keyClick(&desk.date, Qt::Key_Return);
        QCOMPARE(desk.date.text(), result);
        QCOMPARE(desk.dates.count(), result == QStringLiteral("18.06.2020") ? 0 : 1);
    }

    /// One date after the other, each ended with the return key.
    void typedOnceMore() {
        Desk desk;
        desk.show(QDate(2020, 6, 18));
        QTest::keyClicks(&desk.date, QStringLiteral("17.06.2020\r16.05.2019\r"));
        QCOMPARE(desk.date.date(), QDate(2019, 5, 16));
        desk.show(QTime(23, 0));
        QTest::keyClicks(&desk.time, QStringLiteral("1"));
        QTest::keyClick(&desk.time, Qt::Key_Up);
        QCOMPARE(desk.time.time(), QTime(2, 0));
    }

    void pasted_data() {
        QTest::addColumn<QString>("text");
        QTest::addColumn<QDate>("date");
        QTest::newRow("with blanks around it") << QStringLiteral(" 31.12.2019\n") << QDate(2019, 12, 31);
        QTest::newRow("in another order") << QStringLiteral("2026-03-05") << QDate(2020, 2, 29);
    }
    void pasted() {
        QFETCH(QString, text);
        QFETCH(QDate, date);
        Desk desk;
        QGuiApplication::clipboard()->setText(text);
        const QDate before(2020, 2, 29);
        desk.show(before);
        QTest::keyClick(&desk.date, Qt::Key_A, Qt::ControlModifier);
        QTest::keyClick(&desk.date, Qt::Key_V, Qt::ControlModifier);
        QTest::keyClick(&desk.date, Qt::Key_Return);
        QCOMPARE(desk.date.date(), date);
        QCOMPARE(desk.dates.count(), date == before ? 0 : 1);
    }

    void theWholeTextErased() {
        Desk desk;
        for (const Qt::Key erase : {Qt::Key_Delete, Qt::Key_Backspace}) {
            desk.show(QDate(2020, 2, 29));
            QTest::keyClick(&desk.date, Qt::Key_A, Qt::ControlModifier);
            QTest::keyClick(&desk.date, erase);
            QTest::keyClicks(&desk.date, QStringLiteral("31.12.2019\r"));
            QCOMPARE(desk.date.date(), QDate(2019, 12, 31));
        }
    }

    /// However many days are walked over, the choice is one change.
    void theCalendarWalkedThrough_data() {
        QTest::addColumn<int>("end");
        QTest::addColumn<QDate>("result");
        QTest::newRow("return") << int(Qt::Key_Return) << QDate(2020, 6, 20);
        QTest::newRow("escape") << int(Qt::Key_Escape) << QDate(2020, 6, 18);
        QTest::newRow("a click elsewhere") << 0 << QDate(2020, 6, 18);
    }
    void theCalendarWalkedThrough() {
        QFETCH(int, end);
        QFETCH(QDate, result);
        Desk desk;
        desk.show(QDate(2020, 6, 18));
        for (int round = 0; round < 2; ++round) {
            desk.date.setDate(QDate(2020, 6, 18));
            desk.dates.clear();
            QCalendarWidget* calendar = desk.unfold();
            QVERIFY(calendar != nullptr);
            QWidget* view = calendar->focusProxy() != nullptr ? calendar->focusProxy() : calendar;
            QTest::keyClick(view, Qt::Key_Right);
            QTest::keyClick(view, Qt::Key_Right);
            QCOMPARE(desk.dates.count(), 0);
            if (end != 0) {
                QTest::keyClick(view, Qt::Key(end));
            } else {
                QTest::mouseClick(calendar->window(), Qt::LeftButton, {}, {-5, -5});
            }
            QTRY_VERIFY(!calendar->isVisible());
            QCOMPARE(desk.date.date(), result);
            QCOMPARE(desk.date.text(), result.toString(DATE));
            QCOMPARE(desk.dates.count(), result == QDate(2020, 6, 18) ? 0 : 1);
        }
        desk.date.setDate(QDate(2019, 1, 1)); // reports as before
        QVERIFY(desk.dates.count() > 0);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::PickersTest)
#include "PickersTest.moc"
