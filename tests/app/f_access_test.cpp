// SPDX-License-Identifier: GPL-3.0-or-later
// For those who work without a mouse or without seeing the window: names, tab order, mnemonics.
#include "diagram/PolarSys.h"
#include "tests/app/WindowFixture.h"

#include <QAbstractButton>
#include <QAccessible>
#include <QAction>
#include <QApplication>
#include <QComboBox>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QTest>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

/// The letter after the "&" of a caption; a null character when there is none.
QChar mnemonic(const QString& caption) {
    const QKeySequence keys = QKeySequence::mnemonic(caption);
    return keys.isEmpty() ? QChar() : QChar(keys[0].key()).toUpper();
}

/// Toggles the row with that text in a list or in the folded list of a choice, as a screen reader does.
void toggle(QWidget* control, const QString& text) {
    QAccessibleInterface* list = QAccessible::queryAccessibleInterface(control);
    if (list->role() == QAccessible::ComboBox) {
        list = list->child(0);
    }
    for (int i = 0; i < list->childCount(); ++i) {
        if (list->child(i)->text(QAccessible::Name) == text) {
            list->child(i)->actionInterface()->doAction(QAccessibleActionInterface::toggleAction());
            return;
        }
    }
    qFatal("no row");
}

} // namespace

class f_access_test : public QObject {
    Q_OBJECT

    /// Each caption has a mnemonic, and none is there twice.
    static void compareMnemonics(const QStringList& captions) {
        QString seen;
        for (const QString& caption : captions) {
            const QChar letter = mnemonic(caption);
            QVERIFY2(!letter.isNull(), qPrintable(caption));
            QVERIFY2(!seen.contains(letter), qPrintable(caption));
            seen += letter;
        }
    }

    static QStringList captionsOf(const QWidget& menu) {
        QStringList captions;
        for (const QAction* action : menu.actions()) {
            if (!action->isSeparator()) {
                captions << action->text();
            }
        }
        return captions;
    }

  private Q_SLOTS:
    void everyControlHasItsName() {
        const WindowFixture fixture;
        QStringList seen;
        for (const char* name :
             {"selChan",   "optView(1)", "optView(0)", "DTPicker",  "DTPicker1",   "DTPicker2",
              "DTPicker3", "Command1",   "Command2",   "Command3",  "Command4",    "Command5",
              "Command6",  "Command7",   "Command8",   "selScroll", "selInterval", "Option1",
              "Option2",   "Text1",      "Text2",      "Text3",     "Text4",       "Check1",
              "Check2",    "Slider1",    "HScroll",    "lView",     "KS",          "lZoom"}) {
            const auto& control = fixture.the<QWidget>(name);
            const QString said = control.accessibleName();
            QVERIFY2(!said.isEmpty(), name);
            // The buttons have only symbols on them: their names say what they do, and no two say the same.
            if (control.inherits("QAbstractButton") || control.inherits("QAbstractSpinBox") ||
                control.inherits("QLineEdit") || control.inherits("QComboBox")) {
                QVERIFY2(!seen.contains(said), name);
                seen << said;
                QVERIFY2(!control.toolTip().isEmpty(), name);
            }
        }
    }

    /// Everything that takes part in the tab order has a name, also what later joins the window.
    void nothingNamelessInTheTabOrder() {
        const WindowFixture fixture;
        for (const QWidget* control : fixture.window->findChildren<QWidget*>()) {
            const bool inner =
                control->objectName().isEmpty() || control->objectName().startsWith(QLatin1String("qt_"));
            if (!inner && (control->focusPolicy() & Qt::TabFocus) != 0) {
                QVERIFY2(!control->accessibleName().isEmpty(), qPrintable(control->objectName()));
            }
        }
    }

    /// The tab key walks down the column: each control is lower than the one before, or on the same line
    /// further to the right.
    void tabOrderFollowsTheColumn() {
        const WindowFixture fixture;
        QWidget* client = fixture.window->centralWidget();
        fixture.click("Check1"); // its boxes take part
        fixture.click("Command2");
        fixture.the<QWidget>("selChan").setFocus();
        QStringList walked = {QStringLiteral("selChan")};
        QPoint before = fixture.the<QWidget>("selChan").mapTo(client, QPoint());
        constexpr int MAX_STEPS = 100; // pickers have sections
        for (int i = 0; i < MAX_STEPS; ++i) {
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Tab);
            const QWidget* now = QApplication::focusWidget();
            QVERIFY(now != nullptr);
            const QString name = now->objectName();
            if (name == walked.last()) {
                continue; // the next section of a picker
            }
            if (walked.contains(name) || !client->isAncestorOf(now) || name == QLatin1String("HScroll") ||
                name == QLatin1String("lView") || name == QLatin1String("KS")) {
                break;
            }
            walked << name;
            const QPoint place = now->mapTo(client, QPoint());
            const bool lower = place.y() >= before.y() + 10;
            const bool right = std::abs(place.y() - before.y()) < 10 && place.x() > before.x();
            QVERIFY2(lower || right, qPrintable(walked.join(QLatin1Char(' '))));
            before = place;
        }
        for (const char* name :
             {"DTPicker1", "Command3",  "Command4", "DTPicker", "DTPicker3",   "Command6", "Command5",
              "DTPicker2", "selScroll", "Command7", "Command8", "selInterval", "Text1",    "Text2",
              "Check1",    "Text3",     "Text4",    "Check2",   "Command1",    "Command2", "Slider1"}) {
            QVERIFY2(walked.contains(QString::fromUtf8(name)),
                     qPrintable(QString::fromUtf8(name) + QStringLiteral(" not in ") +
                                walked.join(QLatin1Char(' '))));
        }
    }

    /// Of a group of option buttons the tab key reaches one, the arrow keys the other.
    void optionsByKey() {
        const WindowFixture fixture;
        const std::pair<const char*, const char*> groups[] = {{"optView(1)", "optView(0)"},
                                                              {"Option1", "Option2"}};
        for (const auto& [upper, lower] : groups) {
            auto& first = fixture.the<QAbstractButton>(upper);
            auto& second = fixture.the<QAbstractButton>(lower);
            QVERIFY(second.isChecked());
            QVERIFY2((second.focusPolicy() & Qt::TabFocus) != 0, lower); // the chosen one alone
            QVERIFY2((first.focusPolicy() & Qt::TabFocus) == 0, upper);
            second.setFocus();
            QTest::keyClick(&second, Qt::Key_Up);
            QVERIFY2(first.isChecked(), upper);
            QVERIFY2((first.focusPolicy() & Qt::TabFocus) != 0, upper);
            QVERIFY2((second.focusPolicy() & Qt::TabFocus) == 0, lower);
            QTest::keyClick(&first, Qt::Key_Down);
            QVERIFY2(second.isChecked(), lower);
        }
    }

    void mnemonicsOfTheMenus() {
        const WindowFixture fixture;
        compareMnemonics(captionsOf(*fixture.window->menuBar()));
        compareMnemonics(captionsOf(fixture.the<QMenu>("menDat")));
        compareMnemonics(captionsOf(fixture.the<QMenu>("menKor")));
    }

    /// Within the window, the menu bar included: Alt and a letter means one thing.
    void mnemonicsOfTheWindow() {
        const WindowFixture fixture;
        QStringList captions = captionsOf(*fixture.window->menuBar());
        for (const auto* button : fixture.window->centralWidget()->findChildren<QAbstractButton*>()) {
            if (!mnemonic(button->text()).isNull()) {
                captions << button->text();
            }
        }
        for (const auto* label : fixture.window->centralWidget()->findChildren<QLabel*>()) {
            if (!mnemonic(label->text()).isNull()) {
                QVERIFY2(label->buddy() != nullptr, qPrintable(label->text()));
                captions << label->text();
            }
        }
        compareMnemonics(captions);
    }

    /// The captions of words are reached with Alt.
    void mnemonicsAct() {
        const WindowFixture fixture;
        struct Row {
            const char* name;
            bool buddy; // the label leads to its box
        };
        const Row rows[] = {{"optView(1)", false}, {"optView(0)", false}, {"Option1", false},
                            {"Option2", false},    {"Label4", true},      {"Label5", true},
                            {"Check1", false},     {"Label6", true},      {"Label7", true},
                            {"Check2", false}};
        for (const Row& row : rows) {
            auto& control = fixture.the<QWidget>(row.name);
            const QChar letter = mnemonic(control.property("text").toString());
            QVERIFY2(!letter.isNull(), row.name);
            fixture.the<QWidget>("selChan").setFocus();
            const bool before = control.property("checked").toBool();
            QTest::keyClick(fixture.window.get(), Qt::Key(letter.unicode()), Qt::AltModifier);
            if (row.buddy) {
                QCOMPARE(QApplication::focusWidget(), static_cast<QLabel&>(control).buddy());
            } else {
                QTRY_VERIFY2(control.property("checked").toBool() != before, row.name);
            }
        }
    }

    void menusOpenByKey() {
        const WindowFixture fixture;
        auto& menu = fixture.the<QMenu>("menDat");
        const QChar letter = mnemonic(menu.title());
        QTest::keyClick(fixture.window.get(), Qt::Key(letter.unicode()), Qt::AltModifier);
        QTRY_VERIFY(menu.isVisible());
        QTest::keyClick(&menu, Qt::Key_Escape);
        QTRY_VERIFY(!menu.isVisible());
    }

    /// Every button and every choice can be worked from the keyboard alone.
    void buttonsByKey() {
        WindowFixture fixture;
        for (const char* name : {"Command3", "Command4", "Command5", "Command6", "Command7", "Command8"}) {
            auto& button = fixture.the<QWidget>(name);
            button.setFocus();
            QCOMPARE(QApplication::focusWidget(), &button);
            const TimeRange before = fixture.window->range();
            QTest::keyClick(&button, Qt::Key_Space);
            QVERIFY2(fixture.window->range().from != before.from || fixture.window->range().to != before.to,
                     name);
        }
        QTest::keyClick(&fixture.the<QWidget>("selChan"), Qt::Key_Down);
        QCOMPARE(fixture.the<QListWidget>("selChan").currentRow(), 1);
        fixture.files.opened = 0;
        QTest::keyClick(&fixture.the<QWidget>("selInterval"), Qt::Key_Down);
        QVERIFY(fixture.files.opened > 0);
        QTest::keyClick(&fixture.the<QWidget>("Command2"), Qt::Key_Space);
        QCOMPARE(fixture.the<QLabel>("lZoom").text(), QStringLiteral("2"));
    }

    /// A screen reader works the controls through its own interfaces, and the view follows as if by the user.
    void aScreenReaderChoosesAChannel() {
        const WindowFixture fixture;
        auto& list = fixture.the<QListWidget>("selChan");
        for (const int row : {2, 0, 3}) {
            toggle(&list, list.item(row)->text());
            QTRY_COMPARE(list.currentRow(), row);
            QCOMPARE(list.selectedItems(), QList<QListWidgetItem*>{list.item(row)});
            QVERIFY(fixture.the<PolarSys>("KS").HeadLine().find(list.item(row)->text().toStdString()) !=
                    std::string::npos);
        }
        toggle(&list, list.item(3)->text()); // one is selected at all times
        QCoreApplication::processEvents();
        QCOMPARE(list.selectedItems(), QList<QListWidgetItem*>{list.item(3)});
    }

    void aScreenReaderChoosesAnInterval() {
        WindowFixture fixture;
        auto& choice = fixture.the<QComboBox>("selInterval");
        fixture.files.opened = 0;
        for (const int row : {4, 1}) {
            toggle(&choice, choice.itemText(row));
            QCOMPARE(choice.currentIndex(), row);
        }
        QCOMPARE(fixture.window->interval(), 5);
        QVERIFY(fixture.files.opened >= 2);
        // What is marked in the unfolded list is not chosen before a key says so.
        choice.showPopup();
        QTRY_VERIFY(choice.view()->isVisible());
        QTest::keyClick(choice.view(), Qt::Key_Down);
        QTest::keyClick(choice.view(), Qt::Key_Escape);
        QCoreApplication::processEvents();
        QCOMPARE(choice.currentIndex(), 1);
    }

    void aScreenReaderClicksBoxesAndOptions() {
        const WindowFixture fixture;
        const auto click = [&fixture](const char* name) {
            QAccessible::queryAccessibleInterface(&fixture.the<QWidget>(name))
                ->actionInterface()
                ->doAction(QAccessibleActionInterface::toggleAction());
        };
        click("Check1");
        QVERIFY(fixture.the<QWidget>("Text3").isEnabled());
        click("Check2");
        QVERIFY(fixture.the<PolarSys>("KS").showMittel());
        click("optView(1)");
        QVERIFY(fixture.the<QWidget>("lView").isVisible());
        click("Option1");
        QVERIFY(!fixture.the<QWidget>("Text1").isEnabled());
        const auto* face = QAccessible::queryAccessibleInterface(&fixture.the<QWidget>("Check1"));
        QVERIFY(face->state().checked);
        QCOMPARE(face->role(), QAccessible::CheckBox);
        QCOMPARE(face->text(QAccessible::Name), QStringLiteral("Grenzwerte anzeigen"));
    }

    void barsAndStripsHaveNames() {
        const WindowFixture fixture;
        const std::pair<QWidget*, const char*> rows[] = {
            {fixture.window->menuBar(), "Menüleiste"},
            {&fixture.the<QWidget>("menDat"), "Datei"},
            {&fixture.the<QWidget>("menKor"), "Korrekturfaktoren"},
            {&fixture.the<QWidget>("menKS"), "Diagramm"},
            {&fixture.the<QWidget>("Frame2"), "Status"}};
        for (const auto& [widget, name] : rows) {
            const auto* face = QAccessible::queryAccessibleInterface(widget);
            QCOMPARE(face->text(QAccessible::Name), QString::fromUtf8(name));
        }
        const auto* face = QAccessible::queryAccessibleInterface(&fixture.the<QWidget>("KS"));
        QCOMPARE(face->role(), QAccessible::Chart);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_access_test)
#include "f_access_test.moc"
