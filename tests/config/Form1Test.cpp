// SPDX-License-Identifier: GPL-3.0-or-later
// The project selection window on its own, on folders made for the test.
#include "config/Form1.h"
#include "tests/testing/AnsweredDialogs.h"
#include "tests/testing/TempFolder.h"
#include "tests/testing/WindowDriver.h"

#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QTimer>
#include <memory>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

/// The window on a folder, and what it tells its owner.
struct Fixture {
    explicit Fixture(const TempFolder& searched) {
        Form1::Owner owner;
        owner.openProject = [this](const std::string& folder) { opened.push_back(folder); };
        owner.forgetFactors = [this] { ++forgotten; };
        window = std::make_unique<Form1>(searched.path().string(), owner, openFile, dialogs);
        driver().show();
    }

    [[nodiscard]] WindowDriver driver() const { return WindowDriver(*window); }
    /// The captions of the project buttons in their order.
    [[nodiscard]] QStringList captions() const {
        QStringList texts;
        while (const auto* button =
                   window->findChild<QPushButton*>(QStringLiteral("Button(%1)").arg(texts.size()))) {
            texts << button->text();
        }
        return texts;
    }

    AnsweredDialogs dialogs;
    std::vector<std::string> opened;
    int forgotten = 0;
    std::unique_ptr<Form1> window;
};

void layProject(const TempFolder& folder, const std::string& name, const std::string& projectName) {
    folder.write(name + "/QEL.ini", "PROJEKTNAME=" + projectName + "\n");
}

} // namespace

class form1_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    /// The window lists nothing before the search is started.
    void searchesWhenReadDirsIsCalled() {
        const TempFolder folder;
        layProject(folder, "A", "Erstes");
        Fixture fixture(folder);
        QCOMPARE(fixture.captions(), QStringList());
        QCOMPARE(fixture.forgotten, 0);
        QVERIFY(fixture.window->readDirs());
        QCOMPARE(fixture.captions(), QStringList{QStringLiteral("Erstes")});
        QCOMPARE(fixture.forgotten, 1);
    }

    void oneButtonForEachProject() {
        const TempFolder folder;
        layProject(folder, "B", "Zweites & Drittes");
        layProject(folder, "A", "Erstes");
        folder.write("C/QEL.ini", "STANDORT=ohne Namen\n");
        folder.write("D/anderes.ini", "PROJEKTNAME=anderes\n");
        Fixture fixture(folder);
        QVERIFY(fixture.window->readDirs());
        QCOMPARE(fixture.captions(),
                 QStringList({QStringLiteral("Erstes"), QStringLiteral("Zweites && Drittes")}));
        QVERIFY(!fixture.driver().the<QLabel>("Label1").isVisible());

        fixture.driver().click(QStringLiteral("Button(1)"));
        QCOMPARE(fixture.opened.size(), std::size_t(1));
        QCOMPARE(QString::fromStdString(fixture.opened[0]).right(1), QStringLiteral("B"));
        QVERIFY(!fixture.window->isVisible());
    }

    void toolTipsAreNativePaths() {
        const TempFolder folder;
        layProject(folder, "A", "Erstes");
        Fixture fixture(folder);
        QVERIFY(fixture.window->readDirs());
        QCOMPARE(fixture.driver().the<QPushButton>("Button(0)").toolTip(),
                 QString::fromStdString((folder.path() / "A").string()));
    }

    /// Searching again replaces the buttons.
    void searchesAnew() {
        const TempFolder folder;
        layProject(folder, "A", "Erstes");
        Fixture fixture(folder);
        QVERIFY(fixture.window->readDirs());
        std::filesystem::remove_all(folder.path() / "A");
        layProject(folder, "E", "Neues");
        QVERIFY(fixture.window->readDirs());
        QCOMPARE(fixture.captions(), QStringList{QStringLiteral("Neues")});
        QCOMPARE(fixture.forgotten, 2);
    }

    void noProjects() {
        const TempFolder folder;
        Fixture fixture(folder);
        QVERIFY(!fixture.window->readDirs());
        const auto& label = fixture.driver().the<QLabel>("Label1");
        QVERIFY(label.isVisible());
        QCOMPARE(label.text(), QStringLiteral("Es wurden keine QEL-Projekte gefunden."));
        QVERIFY(fixture.driver().the<QPushButton>("Command2").isEnabled());
        QCOMPARE(fixture.forgotten, 1);
    }

    void searchByHand() {
        const TempFolder folder;
        Fixture fixture(folder);
        fixture.window->readDirs();
        fixture.driver().click(QStringLiteral("Command2")); // cancelled
        QVERIFY(fixture.opened.empty());
        QVERIFY(fixture.window->isVisible());
        QCOMPARE(fixture.dialogs.asked.size(), std::size_t(1));
        QCOMPARE(fixture.dialogs.asked[0].title, QStringLiteral("Projektordner auswählen ..."));
        QCOMPARE(fixture.dialogs.asked[0].folder, QString::fromStdString(folder.path().string()));

        fixture.dialogs.folder = QStringLiteral("/irgendwo/Projekt");
        fixture.driver().click(QStringLiteral("Command2"));
        QCOMPARE(fixture.opened, std::vector<std::string>{"/irgendwo/Projekt"});
        QVERIFY(!fixture.window->isVisible());
    }

    /// The first project has the focus; the window is operated without a mouse.
    void openedByKeys_data() {
        QTest::addColumn<QList<Qt::Key>>("keys");
        QTest::addColumn<QString>("opened");
        QTest::newRow("enter") << QList<Qt::Key>{Qt::Key_Return} << QStringLiteral("A");
        QTest::newRow("tab, enter") << QList<Qt::Key>{Qt::Key_Tab, Qt::Key_Return} << QStringLiteral("B");
        QTest::newRow("tab, space") << QList<Qt::Key>{Qt::Key_Tab, Qt::Key_Space} << QStringLiteral("B");
        QTest::newRow("escape") << QList<Qt::Key>{Qt::Key_Escape} << QString();
    }
    void openedByKeys() {
        QFETCH(QList<Qt::Key>, keys);
        QFETCH(QString, opened);
        const TempFolder folder;
        layProject(folder, "A", "Erstes");
        layProject(folder, "B", "Zweites");
        Fixture fixture(folder);
        QVERIFY(fixture.window->readDirs());
        QTRY_VERIFY(fixture.driver().the<QPushButton>("Button(0)").hasFocus());
        for (const Qt::Key key : keys) {
            QTest::keyClick(fixture.window->focusWidget(), key);
        }
        QVERIFY(!fixture.window->isVisible());
        QCOMPARE(fixture.opened.size(), std::size_t(opened.isEmpty() ? 0 : 1));
        QVERIFY(opened.isEmpty() || QString::fromStdString(fixture.opened[0]).endsWith(opened));
    }

    /// Room for the longest name, within limits.
    void asWideAsItsNames() {
        const TempFolder folder;
        layProject(folder, "A", "Erstes");
        Fixture fixture(folder);
        fixture.window->readDirs();
        const int narrow = fixture.window->width();
        layProject(folder, "B", "Deponie Großbeuchow-Süd, Meßstation an der Zufahrt zum Sickerwasserbecken");
        fixture.window->readDirs();
        const int wide = fixture.window->width();
        layProject(folder, "C", std::string(300, 'W'));
        fixture.window->readDirs();
        QCOMPARE(narrow, 340);
        QVERIFY2(wide > narrow && wide < 640, qPrintable(QString::number(wide)));
        QCOMPARE(fixture.window->width(), 640);
    }

    /// What waits in the event queue runs before the search.
    void pendingEventsRunBeforeTheSearch() {
        const TempFolder folder;
        Fixture fixture(folder);
        QTimer::singleShot(0, fixture.window.get(), [&folder] { layProject(folder, "A", "Erstes"); });
        QVERIFY(fixture.window->readDirs());
    }

    void noFolderOpensNothing() {
        const TempFolder folder;
        Fixture fixture(folder);
        QVERIFY(!fixture.window->OpenF(""));
        QVERIFY(fixture.opened.empty());
        QVERIFY(fixture.window->isVisible());
        QVERIFY(fixture.window->OpenF("/anderswo"));
        QCOMPARE(fixture.opened, std::vector<std::string>{"/anderswo"});
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::form1_test)
#include "Form1Test.moc"
