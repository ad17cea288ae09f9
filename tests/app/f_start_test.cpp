// SPDX-License-Identifier: GPL-3.0-or-later
// Start-up of the main window: its controls, its menus, its defaults, and its end.
#include "app/Appearance.h"
#include "app/ProgramFolder.h"
#include "app/SystemLocale.h"
#include "diagram/PolarSys.h"
#include "tests/app/WindowFixture.h"
#include "tests/testing/OrdinaryUser.h"

#include <QAction>
#include <QCheckBox>
#include <QComboBox>
#include <QDateEdit>
#include <QDir>
#include <QGroupBox>
#include <QGuiApplication>
#include <QIcon>
#include <QImage>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMenu>
#include <QMenuBar>
#include <QPushButton>
#include <QRadioButton>
#include <QScrollBar>
#include <QSlider>
#include <QTableView>
#include <QTest>
#include <QTimeEdit>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

QString plain(QString caption) { return caption.remove(QLatin1Char('&')); }

std::unique_ptr<TempFolder> emptyFolder() { return std::make_unique<TempFolder>(); }

QStringList items(const QComboBox& box) {
    QStringList texts;
    for (int i = 0; i < box.count(); ++i) {
        texts << box.itemText(i) + QLatin1Char('=') + box.itemData(i).toString();
    }
    return texts;
}

} // namespace

class f_start_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void controls_data() {
        QTest::addColumn<QByteArray>("kind");
        QTest::addColumn<QString>("caption");
        const auto row = [](const char* name, const char* kind, const char* caption) {
            QTest::newRow(name) << QByteArray(kind) << QString::fromUtf8(caption);
        };
        row("selChan", "QListWidget", "");
        row("optView(1)", "QRadioButton", "Datenliste");
        row("optView(0)", "QRadioButton", "Liniendiagramm");
        row("lView", "QTableView", "");
        row("KS", "kelvrum::PolarSys", "");
        row("Frame3", "QGroupBox", "Datum");
        row("DTPicker", "QDateEdit", "");
        row("DTPicker1", "QTimeEdit", "");
        row("DTPicker2", "QDateEdit", "");
        row("DTPicker3", "QTimeEdit", "");
        row("Label2", "QLabel", "von:");
        row("Label3", "QLabel", "bis:");
        row("Command3", "QPushButton", "<<");
        row("Command4", "QPushButton", ">>");
        row("Command5", "QPushButton", ">>");
        row("Command6", "QPushButton", "<<");
        row("Frame6", "QGroupBox", "Scrollen");
        row("selScroll", "QComboBox", "");
        row("Command7", "QPushButton", "<-");
        row("Command8", "QPushButton", "->");
        row("Frame4", "QGroupBox", "Mittelwerte-Intervall");
        row("selInterval", "QComboBox", "");
        row("Frame5", "QGroupBox", "Skalierung");
        row("Option1", "QRadioButton", "Automatisch");
        row("Option2", "QRadioButton", "Manuell");
        row("Label4", "QLabel", "Minimum:");
        row("Label5", "QLabel", "Maximum:");
        row("Text1", "QLineEdit", "0");
        row("Text2", "QLineEdit", "100");
        row("Frame7", "QGroupBox", "Hilfslinien");
        row("Check1", "QCheckBox", "anzeigen");
        row("Label6", "QLabel", "Grenzwert 1");
        row("Label7", "QLabel", "Grenzwert 2");
        row("Text3", "QLineEdit", "100");
        row("Text4", "QLineEdit", "0");
        row("Check2", "QCheckBox", "Mittelwert");
        row("Frame1", "QGroupBox", "Zoom");
        row("Command1", "QPushButton", "<<");
        row("Command2", "QPushButton", ">>");
        row("lZoom", "QLabel", "1");
        row("Slider1", "QSlider", "");
        row("HScroll", "QScrollBar", "");
        row("Frame2", "QFrame", "");
        row("Label8", "QLabel", "Lade Daten ...");
        row("Label1", "QLabel", "Startzeit");
    }
    void controls() {
        QFETCH(QByteArray, kind);
        QFETCH(QString, caption);
        const WindowFixture fixture(emptyFolder());
        const QWidget& control = fixture.the<QWidget>(QTest::currentDataTag());
        QVERIFY(control.inherits(kind.constData()));
        const char* property = kind == "QGroupBox" ? "title" : "text";
        if (!caption.isEmpty()) {
            QCOMPARE(plain(control.property(property).toString()), caption);
        }
    }

    void menus() {
        const WindowFixture fixture(emptyFolder());
        QStringList captions;
        for (const QAction* top : fixture.window->menuBar()->actions()) {
            captions << plain(top->text());
            for (const QAction* entry : top->menu()->actions()) {
                captions << entry->objectName() + QLatin1Char('=') +
                                (entry->isSeparator() ? QStringLiteral("-") : plain(entry->text()));
            }
        }
        const QStringList expected = {
            QStringLiteral("Datei"),
            QStringLiteral("menOpen=Öffnen"),
            QStringLiteral("menProj=Projektauswahl"),
            QStringLiteral("menPrint=Drucken"),
            QStringLiteral("menCPrint=Sammeldruck"),
            QStringLiteral("menSelP=Drucker einrichten"),
            QStringLiteral("Men001=-"),
            QStringLiteral("MenEnd=Ende"),
            QStringLiteral("Korrekturfaktoren"),
            QStringLiteral("menWind=Wind"),
            QStringLiteral("menStaub=Staub"),
        };
        QCOMPARE(captions, expected);
        QVERIFY(fixture.window->findChild<QMenu*>(QStringLiteral("menDat")) != nullptr);
        QVERIFY(fixture.window->findChild<QMenu*>(QStringLiteral("menKor")) != nullptr);
    }

    void listsOfChoices() {
        const WindowFixture fixture(emptyFolder());
        QCOMPARE(items(fixture.the<QComboBox>("selInterval")),
                 QStringList({QStringLiteral("1 Minute=1"), QStringLiteral("5 Minuten=5"),
                              QStringLiteral("10 Minuten=10"), QStringLiteral("15 Minuten=15"),
                              QStringLiteral("1 Stunde=60"), QStringLiteral("1 Tag=1440")}));
        QCOMPARE(items(fixture.the<QComboBox>("selScroll")),
                 QStringList({QStringLiteral("Minuten=110"), QStringLiteral("Stunden=104"),
                              QStringLiteral("Tage=100"), QStringLiteral("Monate=109")}));
    }

    void withoutProject() {
        const WindowFixture fixture(emptyFolder());
        QCOMPARE(fixture.the<QListWidget>("selChan").count(), 0);
        QCOMPARE(fixture.the<QDateEdit>("DTPicker").date(), TEST_DAY);
        QCOMPARE(fixture.the<QDateEdit>("DTPicker2").date(), TEST_DAY.addDays(1));
        QCOMPARE(fixture.the<QTimeEdit>("DTPicker1").time(), QTime(0, 0));
        QCOMPARE(fixture.the<QTimeEdit>("DTPicker3").time(), QTime(0, 0));
        QCOMPARE(fixture.the<QComboBox>("selInterval").currentText(), QStringLiteral("1 Minute"));
        QCOMPARE(fixture.the<QComboBox>("selScroll").currentText(), QStringLiteral("Tage"));
        QVERIFY(fixture.the<QRadioButton>("optView(0)").isChecked());
        QVERIFY(fixture.the<QRadioButton>("Option2").isChecked());
        QVERIFY(!fixture.the<QTableView>("lView").isVisible());
        QCOMPARE(fixture.the<QLineEdit>("Text1").text(), QStringLiteral("0"));
        QCOMPARE(fixture.the<QLineEdit>("Text2").text(), QStringLiteral("100"));
        QVERIFY(!fixture.the<QCheckBox>("Check1").isChecked());
        const auto& ks = fixture.the<PolarSys>("KS");
        QCOMPARE(ks.Hilfslinie1(), 0.0);
        QCOMPARE(ks.Hilfslinie2(), 0.0);
        QCOMPARE(ks.DataCount(), 0);
        QCOMPARE(fixture.window->windowTitle(), QStringLiteral("Kelvrum - Station "));
        QCOMPARE(fixture.files.opened, 0);
    }

    void diagramDefaults() {
        const WindowFixture fixture(emptyFolder());
        auto& ks = fixture.the<PolarSys>("KS");
        QCOMPARE(ks.D1(), Colour{0xFF0000});
        QCOMPARE(ks.Y1axe(), Colour{0x400000});
        QCOMPARE(ks.Y1Low(), -5.0);
        QCOMPARE(ks.Y1High(), 5.0);
        QCOMPARE(ks.properties().Y1MinLow, 0.2);
        QCOMPARE(ks.XLow(), dateSerial(2020, 6, 18));
        QCOMPARE(ks.XHigh(), dateSerial(2020, 6, 19));
        QCOMPARE(ks.AchseText(), std::string());
    }

    void withProject() {
        const WindowFixture fixture;
        QCOMPARE(fixture.window->windowTitle(), QStringLiteral("Kelvrum - Station Kläranlage Nord"));
        auto& list = fixture.the<QListWidget>("selChan");
        QCOMPARE(list.count(), 4);
        QCOMPARE(list.currentRow(), 0);
        QCOMPARE(list.item(1)->text(), QStringLiteral("Windrichtung"));
        QCOMPARE(list.item(1)->data(Qt::UserRole).toInt(), 5);
        QCOMPARE(QString::fromStdString(fixture.the<PolarSys>("KS").HeadLine()),
                 QStringLiteral("Kläranlage Nord - Windgeschwindigkeit [m/s]"));
        QCOMPARE(QString::fromStdString(fixture.the<PolarSys>("KS").HeadLine2()),
                 QStringLiteral("Köln-Süd - 17 - 1 Minute Mittelwert"));
        QCOMPARE(QDir::currentPath(), QString::fromStdString(fixture.folder->path().string()));
        QVERIFY(fixture.the<PolarSys>("KS").DataCount() > 1000);
    }

    /// The configuration is opened once, the channel file once: the start ends with exactly one load and
    /// draws the picture once.
    void startLoadsOnce() {
        const WindowFixture fixture;
        QCOMPARE(fixture.files.opened, 2);
        QTest::qWait(50);
        QCOMPARE(fixture.the<PolarSys>("KS").drawings(), 1);
    }

    void endQuitsAtOnce() {
        const WindowFixture fixture;
        QTest::keyClicks(&fixture.the<QLineEdit>("Text1"), QStringLiteral("7"));
        fixture.window->findChild<QAction*>(QStringLiteral("MenEnd"))->trigger();
        QVERIFY(!fixture.window->isVisible());
    }

    void columnStaysLeftOfTheViews() {
        const WindowFixture fixture;
        const QWidget* client = fixture.window->centralWidget();
        for (const QWidget* control : client->findChildren<QWidget*>(QString(), Qt::FindDirectChildrenOnly)) {
            const QString name = control->objectName();
            if (name != QLatin1String("KS") && name != QLatin1String("lView") &&
                name != QLatin1String("HScroll")) {
                QVERIFY2(control->geometry().right() < 118, qPrintable(name));
            }
        }
    }

    void placeOfTheProgram() {
        const TempFolder executable;
        const TempFolder user;
        const QString here = QString::fromStdString(executable.path().string());
        QCOMPARE(programFolder(here, QString::fromStdString(user.at("data"))), here); // can be written
        const QString nowhere = QString::fromStdString(executable.at("missing"));
        const QString data = QString::fromStdString(user.at("data/kelvrum"));
        QCOMPARE(programFolder(nowhere, data), data);
        QVERIFY(QDir(data).exists());
    }

    void withoutProgramFolder() {
        auto missing = emptyFolder();
        const QString path = QString::fromStdString(missing->path().string());
        QVERIFY(QDir().rmdir(path));
        const QString before = QDir::currentPath();
        const WindowFixture fixture(std::move(missing));
        QCOMPARE(fixture.dialogs->messages.size(), 1);
        const QString expected =
            QStringLiteral("Kelvrum: Der Programmordner „%1“ ist nicht zugänglich.").arg(path);
        QVERIFY2(fixture.dialogs->messages[0].startsWith(expected), qPrintable(fixture.dialogs->messages[0]));
        QVERIFY(fixture.dialogs->messages[0].contains(before));
        QCOMPARE(QDir::currentPath(), before);
        QCOMPARE(fixture.window->windowTitle(), QStringLiteral("Kelvrum - Station "));
    }

    void namedToTheDesktop() {
        setUpApplication(*qGuiApp);
        QCOMPARE(QCoreApplication::applicationName(), QStringLiteral("kelvrum"));
        QCOMPARE(QCoreApplication::applicationVersion(), QStringLiteral(KELVRUM_VERSION));
        QCOMPARE(QGuiApplication::desktopFileName(), QStringLiteral("org.kelvrum.Kelvrum"));
        const QIcon icon = QGuiApplication::windowIcon();
        for (const int size : {16, 32, 48, 128, 256}) {
            const QImage picture = icon.pixmap(size, size).toImage();
            QCOMPARE(picture.size(), QSize(size, size));
            QCOMPARE(qAlpha(picture.pixel(size / 2, size / 2)), 255);
        }
    }

    void qtSpeaksGerman() {
        if (!speakGerman(*qGuiApp)) {
            QSKIP("no German texts of Qt on this machine");
        }
        QCOMPARE(plain(QCoreApplication::translate("QPlatformTheme", "Cancel")), QStringLiteral("Abbrechen"));
    }

    /// Installed for all users: the folder of the program cannot be written, but may hold a project.
    void placeOfAnInstalledProgram() {
        const OrdinaryUser user;
        const TempFolder executable;
        const TempFolder home;
        const QString here = QString::fromStdString(executable.path().string());
        const QString data = QString::fromStdString(home.at("data/kelvrum"));
        const auto protect = [&executable] {
            std::filesystem::permissions(executable.path(), std::filesystem::perms::owner_read |
                                                                std::filesystem::perms::owner_exec);
        };
        protect();
        const QString without = programFolder(here, data);
        std::filesystem::permissions(executable.path(), std::filesystem::perms::owner_all);
        executable.write("QEL.ini", "");
        protect();
        const QString with = programFolder(here, data);
        std::filesystem::permissions(executable.path(),
                                     std::filesystem::perms::owner_all); // to remove it
        QCOMPARE(without, data);
        QCOMPARE(with, here);
    }

    void locales_data() {
        QTest::addColumn<QLocale>("locale");
        QTest::addColumn<QString>("expected"); // decimal, date separator, short date
        QTest::newRow("German") << QLocale(QLocale::German, QLocale::Germany)
                                << QStringLiteral(",|.|dd.mm.yyyy");
        QTest::newRow("American") << QLocale(QLocale::English, QLocale::UnitedStates)
                                  << QStringLiteral(".|/|m/d/yyyy");
        QTest::newRow("Arabic") << QLocale(QLocale::Arabic, QLocale::Egypt)
                                << QStringLiteral("٫|/|d\u200F/m\u200F/yyyy");
        QTest::newRow("C") << QLocale::c() << QStringLiteral(".|.|dd.mm.yyyy");
    }
    void locales() {
        QFETCH(QLocale, locale);
        QFETCH(QString, expected);
        const LocaleTexts texts = localeTexts(locale);
        QCOMPARE(QString::fromStdString(texts.decimalSeparator + "|" + texts.dateSeparator + "|" +
                                        texts.shortDate),
                 expected);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_start_test)
#include "f_start_test.moc"
