// SPDX-License-Identifier: GPL-3.0-or-later
// Opening projects on the real window: by the file dialog and by the project selection window.
#include "diagram/PolarSys.h"
#include "tests/app/WindowFixture.h"

#include <QDir>
#include <QFileDialog>
#include <QLabel>
#include <QListWidget>
#include <QPushButton>
#include <QRegularExpression>
#include <QTableView>
#include <QTest>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

/// A project with one channel and two hours of data on the test day.
void layProject(const TempFolder& folder, const std::string& name, const std::string& title) {
    folder.write(name + "/QEL.ini", "PROJEKTNAME=" + title +
                                        "\nSTANDORT=Halle\nGERAETNUMMER=9\nDATAFOLDER=Data\n"
                                        "CHAN07|Staub|mg|0|500||0|1|2|1|0|0|ST\n");
    std::vector<double> minutes(TEST_DAY_MINUTE + 120, 0.0);
    std::fill(minutes.end() - 120, minutes.end(), 5.0);
    folder.write(name + "/Data/Kanal07_2020.chn", channelFile(minutes));
}

const std::vector<std::string> SLOTS = {"Wind", "-", "Staub"};

QString q(const std::string& text) { return QString::fromStdString(text); }

/// What the window shows of its project.
struct Shown {
    QString caption;
    QStringList channels;
    QStringList columns;
    QString headLine;
    QString headLine2;
    int values = 0;

    bool operator==(const Shown&) const = default;
};

Shown shown(const WindowFixture& fixture) {
    Shown all;
    all.caption = fixture.window->windowTitle();
    const auto& list = fixture.the<QListWidget>("selChan");
    for (int i = 0; i < list.count(); ++i) {
        all.channels << list.item(i)->text();
    }
    const QAbstractItemModel& rows = *fixture.the<QTableView>("lView").model();
    for (int i = 0; i < rows.columnCount(); ++i) {
        all.columns << rows.headerData(i, Qt::Horizontal).toString();
    }
    const auto& ks = fixture.the<PolarSys>("KS");
    all.headLine = q(ks.HeadLine());
    all.headLine2 = q(ks.HeadLine2());
    all.values = ks.DataCount();
    return all;
}

/// The captions of the project buttons, in the order of their names.
QStringList buttonsOf(const QWidget& form) {
    QStringList captions;
    for (int k = 0;; ++k) {
        const auto* button = form.findChild<QPushButton*>(QStringLiteral("Button(%1)").arg(k));
        if (button == nullptr) {
            return captions;
        }
        captions << button->text();
    }
}

void clickOn(const QWidget& form, const char* name) {
    QTest::mouseClick(form.findChild<QPushButton*>(QString::fromUtf8(name)), Qt::LeftButton);
}

} // namespace

class f_project_test : public QObject {
    Q_OBJECT

    static void openFile(const WindowFixture& fixture, const std::string& path) {
        fixture.dialogs->file = q(path);
        fixture.trigger("menOpen");
    }

    /// Opens the project selection from the menu and acts in it.
    static void inSelection(const WindowFixture& fixture, const std::function<void(QWidget&)>& act) {
        fixture.inWindowOf([&] { fixture.trigger("menProj"); }, act);
    }

    /// The buttons that the project selection offers for a program folder without a project of its own.
    static QStringList offered(std::unique_ptr<TempFolder> folder) {
        const WindowFixture fixture(std::move(folder));
        QStringList captions;
        inSelection(fixture, [&](const QWidget& form) {
            captions = buttonsOf(form);
            const auto* none = form.findChild<QLabel*>(QStringLiteral("Label1"));
            QCOMPARE(none->isVisible(), captions.isEmpty());
            QCOMPARE(none->text(), QStringLiteral("Es wurden keine QEL-Projekte gefunden."));
            QVERIFY(form.findChild<QPushButton*>(QStringLiteral("Command2"))->isEnabled());
        });
        return captions;
    }

  private Q_SLOTS:
    /// The return key means the button that has the focus, not a project beside it.
    void manualSearchByKey() {
        auto folder = std::make_unique<TempFolder>();
        folder->write("A/QEL.ini", "PROJEKTNAME=A\n");
        folder->write("B/QEL.ini", "PROJEKTNAME=Umweltmessnetz Oberes Donautal, Abschnitt Nordhang\n");
        const WindowFixture fixture(std::move(folder));
        inSelection(fixture, [&](QWidget& form) {
            QCOMPARE(buttonsOf(form).size(), 2);
            for (const QPushButton* button : form.findChildren<QPushButton*>()) {
                QVERIFY2(button->width() >= button->sizeHint().width(), qPrintable(button->text()));
            }
            QTest::keyClick(QApplication::focusWidget(), Qt::Key_Backtab);
            auto* search = form.findChild<QPushButton*>(QStringLiteral("Command2"));
            QVERIFY(search->hasFocus()); // the tab key goes from button to button
            fixture.dialogs->folder = q(fixture.folder->at("B"));
            QTest::keyClick(search, Qt::Key_Return);
        });
        QCOMPARE(fixture.dialogs->asked.size(), 1U);
        QVERIFY(fixture.window->station().ProjectName.starts_with("Umweltmessnetz"));
    }

    void fileDialog() {
        const WindowFixture fixture;
        fixture.trigger("menOpen");
        QCOMPARE(fixture.dialogs->asked.size(), 1U);
        const auto& question = fixture.dialogs->asked[0];
        QCOMPARE(question.title, QStringLiteral("Datei öffnen ..."));
        QCOMPARE(QDir(question.folder), QDir(q(fixture.folder->path().string())));
        QCOMPARE(question.filters.size(), 2U);
        QCOMPARE(question.filters[0].description, QStringLiteral("QEL-Datenbank"));
        QCOMPARE(question.filters[0].fileName, QStringLiteral("QEL.ini"));
        QCOMPARE(question.filters[1].description, QStringLiteral("Varnix Konfigurationsdateien"));
        QCOMPARE(question.filters[1].fileName, QStringLiteral("VARNIX.CFG"));
    }

    void filtersMatchAnyCase_data() {
        QTest::addColumn<int>("filter"); // that matches; -1: none
        QTest::newRow("QEL.ini") << 0;
        QTest::newRow("qel.ini") << 0;
        QTest::newRow("QEL.INI") << 0;
        QTest::newRow("qEl.InI") << 0;
        QTest::newRow("VARNIX.CFG") << 1;
        QTest::newRow("Varnix.cfg") << 1;
        QTest::newRow("varnix.CFG") << 1;
        QTest::newRow("QEL.ini.bak") << -1;
        QTest::newRow("xQEL.ini") << -1;
        QTest::newRow("QELxini") << -1;
        QTest::newRow("VARNIX") << -1;
        QTest::newRow("") << -1;
    }
    /// Exactly the name, in any case of letters, also where the file system tells letters apart.
    void filtersMatchAnyCase() {
        QFETCH(int, filter);
        const WindowFixture fixture;
        fixture.trigger("menOpen");
        const auto& question = fixture.dialogs->asked[0];
        QFileDialog dialog;
        setUpFileDialog(dialog, question.title, question.folder, question.filters);
        QCOMPARE(dialog.windowTitle(), QStringLiteral("Datei öffnen ..."));
        QCOMPARE(dialog.fileMode(), QFileDialog::ExistingFile);
        const QStringList filters = dialog.nameFilters();
        QCOMPARE(filters.size(), 2);
        for (int i = 0; i < 2; ++i) {
            const QString pattern = filters[i].section(QLatin1Char('('), -1).chopped(1);
            const auto wildcard = QRegularExpression::fromWildcard(pattern, Qt::CaseSensitive);
            QCOMPARE(wildcard.match(q(QTest::currentDataTag())).hasMatch(), i == filter);
        }
    }

    /// Ini form, binary form, a broken file, and good ones again.
    void oneAfterTheOther() {
        WindowFixture fixture;
        const TempFolder other;
        other.write("VARNIX.CFG", varnixFile("Deponie S\xfc"
                                             "d",
                                             SLOTS, false));
        other.write("20200618.KMH", dayRecord(2020, 6, 18, 5, std::vector<float>{1, 2}));
        other.write("kaputt/varnix.cfg", "kurz");
        layProject(other, "B", "Hafen");

        openFile(fixture, other.at("VARNIX.CFG"));
        const QStringList dayColumns = {QStringLiteral("Uhrzeit"), QStringLiteral("Wind"),
                                        QStringLiteral("Staub")};
        const QStringList twoColumns = {QStringLiteral("Zeit"), QStringLiteral("Wert")};
        Shown now = shown(fixture);
        QCOMPARE(now.caption, QStringLiteral("Kelvrum - Station Deponie Süd"));
        QCOMPARE(now.channels, dayColumns.mid(1));
        QCOMPARE(now.columns, dayColumns);
        QVERIFY(now.values > 0);
        QCOMPARE(fixture.the<QListWidget>("selChan").currentRow(), 0);

        openFile(fixture, other.at("kaputt/varnix.cfg"));
        QCOMPARE(QDir(fixture.dialogs->asked.back().folder), QDir(q(other.path().string())));
        now = shown(fixture);
        QCOMPARE(now.caption, QStringLiteral("Kelvrum - Station "));
        QCOMPARE(now.channels, QStringList());
        QCOMPARE(now.columns, dayColumns.mid(0, 1));
        QCOMPARE(now.values, 0);
        QCOMPARE(now.headLine, QString());

        openFile(fixture, other.at("B/missing/QEL.ini"));
        QCOMPARE(shown(fixture).columns, twoColumns);
        QCOMPARE(shown(fixture).channels, QStringList());

        openFile(fixture, other.at("B/QEL.ini"));
        now = shown(fixture);
        QCOMPARE(now, (Shown{QStringLiteral("Kelvrum - Station Hafen"),
                             {QStringLiteral("Staub")},
                             twoColumns,
                             QStringLiteral("Hafen - Staub [mg]"),
                             QStringLiteral("Halle - 9 - 1 Minute Mittelwert"),
                             now.values}));
        QVERIFY(now.values >= 120);

        openFile(fixture, fixture.folder->at("QEL.ini"));
        QCOMPARE(shown(fixture).caption, QStringLiteral("Kelvrum - Station Kläranlage Nord"));
        QCOMPARE(shown(fixture).channels.size(), 4);
        QVERIFY(shown(fixture).values > 1000);
    }

    void nothingChosen_data() {
        QTest::addColumn<QString>("file");
        QTest::newRow("cancelled") << QString();
        QTest::newRow("no configuration") << QStringLiteral("/Messung.txt");
        QTest::newRow("nearly one") << QStringLiteral("/QEL_ini");
    }
    /// The project stays, and the view is loaded all the same.
    void nothingChosen() {
        QFETCH(QString, file);
        WindowFixture fixture;
        const Shown before = shown(fixture);
        fixture.files.opened = 0;
        openFile(fixture, file.toStdString());
        QVERIFY(shown(fixture) == before);
        QCOMPARE(fixture.files.opened, 1);
    }

    void noProjects() { QCOMPARE(offered(std::make_unique<TempFolder>()), QStringList()); }

    /// Folders without QEL.ini or without a PROJEKTNAME line are skipped; the others come in byte order.
    void foundProjects() {
        auto folder = std::make_unique<TempFolder>();
        folder->write("Z/QEL.ini", "PROJEKTNAME=Zeche\n");
        folder->write("a/qel.INI", "STANDORT=x\nPROJEKTNAME = \"Nord & Süd\" \n");
        folder->write("Ä/QEL.ini", "PROJEKTNAME=Äcker\n");
        folder->write("B/QEL.ini", "projektname=Werk &1\n");
        folder->write("B/C/QEL.ini", "PROJEKTNAME=zu tief\n");
        folder->write("ohne/QEL.ini", "STANDORT=Halle\nCHAN07|Staub|mg|0|500||0|1|2|1|0|0|ST\n");
        folder->write("kein Gleich/QEL.ini", "PROJEKTNAME\n");
        folder->write("leer/Daten.txt", "PROJEKTNAME=x\n");
        folder->write("Ordner/QEL.ini/x", "PROJEKTNAME=x\n");
        folder->write("VARNIX/VARNIX.CFG", varnixFile("Deponie", SLOTS, false));
        QCOMPARE(offered(std::move(folder)),
                 QStringList({QStringLiteral("Werk &&1"), QStringLiteral("Zeche"),
                              QStringLiteral("Nord && Süd"), QStringLiteral("Äcker")}));
    }

    void twelveProjects_data() {
        QTest::addColumn<int>("opened");
        QTest::newRow("first") << 0;
        QTest::newRow("tenth") << 9;
        QTest::newRow("last") << 11;
    }
    void twelveProjects() {
        QFETCH(int, opened);
        auto folder = std::make_unique<TempFolder>();
        QStringList captions;
        for (int k = 0; k < 12; ++k) {
            const std::string name(1, static_cast<char>('A' + k));
            layProject(*folder, name, "Projekt " + name);
            captions << q("Projekt " + name);
        }
        const WindowFixture fixture(std::move(folder));
        inSelection(fixture, [&](QWidget& form) {
            QCOMPARE(form.windowTitle(), QStringLiteral("Projektauswahl"));
            QVERIFY(form.isModal());
            QCOMPARE(buttonsOf(form), captions);
            auto* button = form.findChild<QPushButton*>(QStringLiteral("Button(%1)").arg(opened));
            button->setFocus(); // the list scrolls to it
            QTest::keyClick(button, Qt::Key_Space);
            QVERIFY(!form.isVisible());
        });
        const Shown now = shown(fixture);
        QCOMPARE(now.caption, QStringLiteral("Kelvrum - Station ") + captions[opened]);
        QCOMPARE(now.channels, QStringList{QStringLiteral("Staub")});
        QCOMPARE(now.headLine, captions[opened] + QStringLiteral(" - Staub [mg]"));
        QCOMPARE(now.headLine2, QStringLiteral("Halle - 9 - 1 Minute Mittelwert"));
        QVERIFY(now.values >= 120);

        // The next search looks around the open project, and "Öffnen" begins in it.
        inSelection(fixture, [&](QWidget& form) { QCOMPARE(buttonsOf(form), captions); });
        QVERIFY(shown(fixture) == now);
        fixture.trigger("menOpen");
        QCOMPARE(QDir(fixture.dialogs->asked.back().folder),
                 QDir(q(fixture.folder->at(std::string(1, static_cast<char>('A' + opened))))));
    }

    void clickOpens() {
        auto folder = std::make_unique<TempFolder>();
        layProject(*folder, "A", "Hafen");
        const WindowFixture fixture(std::move(folder));
        inSelection(fixture, [](QWidget& form) {
            clickOn(form, "Button(0)");
            QVERIFY(!form.isVisible());
        });
        QCOMPARE(shown(fixture).caption, QStringLiteral("Kelvrum - Station Hafen"));
    }

    /// Without a channel the headlines are those of the project.
    void projectWithoutChannels() {
        auto folder = std::make_unique<TempFolder>();
        folder->write("A/QEL.ini", "PROJEKTNAME=Hafen\nSTANDORT=Halle\nGERAETNUMMER=9\n");
        const WindowFixture fixture(std::move(folder));
        inSelection(fixture, [](const QWidget& form) { clickOn(form, "Button(0)"); });
        const Shown now = shown(fixture);
        QCOMPARE(now.caption, QStringLiteral("Kelvrum - Station Hafen"));
        QCOMPARE(now.headLine, QStringLiteral("Hafen"));
        QCOMPARE(now.headLine2, QStringLiteral("Halle - 9"));
        QCOMPARE(now.values, 0);
    }

    void searchByHand() {
        const TempFolder elsewhere;
        layProject(elsewhere, "Süd Werk", "Werk");
        for (const char* end : {"", "/", "\\"}) {
            const WindowFixture fixture(std::make_unique<TempFolder>());
            fixture.dialogs->folder = q(elsewhere.at("Süd Werk") + end);
            inSelection(fixture, [](QWidget& form) {
                clickOn(form, "Command2");
                QVERIFY(!form.isVisible());
            });
            QCOMPARE(fixture.dialogs->asked.size(), 1U);
            QCOMPARE(fixture.dialogs->asked[0].title, QStringLiteral("Projektordner auswählen ..."));
            QCOMPARE(QDir(fixture.dialogs->asked[0].folder), QDir(q(fixture.folder->path().string())));
            QCOMPARE(shown(fixture).caption, QStringLiteral("Kelvrum - Station Werk"));
            QCOMPARE(shown(fixture).headLine, QStringLiteral("Werk - Staub [mg]"));
            QVERIFY(shown(fixture).values >= 120);
        }
    }

    /// A folder without a configuration opens an empty project.
    void searchByHandFindsNothing() {
        auto around = std::make_unique<TempFolder>();
        layProject(*around, "A", "Hafen");
        around->write("leer/x", "");
        const WindowFixture fixture(std::move(around));
        openFile(fixture, fixture.folder->at("A/QEL.ini"));
        QVERIFY(shown(fixture).values >= 120);
        fixture.dialogs->folder = q(fixture.folder->at("leer"));
        inSelection(fixture, [](const QWidget& form) { clickOn(form, "Command2"); });
        QCOMPARE(shown(fixture).caption, QStringLiteral("Kelvrum - Station "));
        QCOMPARE(shown(fixture).channels, QStringList());
        QCOMPARE(shown(fixture).values, 0);
    }

    /// A cancelled browser does nothing, a closed selection neither, and looking touches no open project.
    void lookingChangesNothing() {
        auto around = std::make_unique<TempFolder>();
        layProject(*around, "A", "Hafen");
        layProject(*around, "B", "Werk");
        WindowFixture fixture(std::move(around));
        openFile(fixture, fixture.folder->at("B/QEL.ini"));
        const Shown before = shown(fixture);
        const StationConfig& station = fixture.window->station();
        const std::string base = station.BaseFolder;
        QTest::qWait(1);
        const int drawings = fixture.the<PolarSys>("KS").drawings();
        inSelection(fixture, [&](QWidget& form) {
            QCOMPARE(buttonsOf(form), QStringList({QStringLiteral("Hafen"), QStringLiteral("Werk")}));
            QVERIFY(shown(fixture) == before);
            clickOn(form, "Command2");
            QCOMPARE(fixture.dialogs->asked.back().title, QStringLiteral("Projektordner auswählen ..."));
            QVERIFY(form.isVisible()); // still there after a cancelled browser
            QTest::keyClick(&form, Qt::Key_Escape);
            QVERIFY(!form.isVisible());
        });
        QTest::qWait(1);
        QVERIFY(shown(fixture) == before);
        QCOMPARE(station.ProjectName, std::string("Werk"));
        QCOMPARE(station.BaseFolder, base);
        QCOMPARE(fixture.the<PolarSys>("KS").drawings(), drawings);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_project_test)
#include "f_project_test.moc"
