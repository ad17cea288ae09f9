// SPDX-License-Identifier: GPL-3.0-or-later
// Loading and saving the settings by the dialog.
#include "tests/batchprint/BatchFixture.h"
#include "tests/batchprint/SettingsBytes.h"
#include "tests/testing/FileContent.h"
#include "tests/testing/FileSizeLimit.h"
#include "tests/testing/OrdinaryUser.h"
#include "tests/testing/SystemReason.h"
#include "util/Paths.h"

#include <QAbstractButton>
#include <QApplication>
#include <QCheckBox>
#include <QComboBox>
#include <QLineEdit>
#include <filesystem>
#include <limits>
#include <optional>
#include <system_error>

namespace kelvrum {

/// What the message of a failed saving ends with.
const QString ADVICE =
    QStringLiteral(".\nDie bisherigen Einstellungen bleiben. Bitte sorgen Sie für Platz und "
                   "Schreibrecht und speichern Sie noch einmal.");

using namespace kelvrum::testing;

namespace {

namespace fs = std::filesystem;

const QString SAVED = QStringLiteral("Sammeldruck: Die Einstellungen wurden gespeichert.");
const QString NOT_LOADED = QStringLiteral("Sammeldruck: Fehler beim Laden der Einstellungen.");

/// Everything that a row shows.
QString rowText(const BatchFixture& fixture, int row) {
    QStringList parts;
    for (const char* box : {"chKanal", "chAuto", "chShowLines", "chShowMittel"}) {
        parts << (fixture.the<QCheckBox>(box, row).isChecked() ? QStringLiteral("x") : QStringLiteral("o"));
    }
    for (const char* field : {"tMin", "tMax", "aMin", "aMax"}) {
        parts << fixture.textOf(field, row);
    }
    return (parts << fixture.the<QComboBox>("selInterval", row).currentText()).join(QLatin1Char(' '));
}

QStringList allRows(const BatchFixture& fixture) {
    QStringList rows;
    for (int i = 0; i < 10; ++i) {
        rows << rowText(fixture, i);
    }
    return rows;
}

} // namespace

class fcprint_settings_test : public QObject {
    Q_OBJECT

  private Q_SLOTS:
    void savedByteForByte() {
        const BatchFixture fixture;
        fixture.click("chKanal", 0);
        fixture.type("tMin", 0, QStringLiteral(" -0.1 "));
        fixture.type("tMax", 0, QStringLiteral("1e3"));
        fixture.choose(0, 5);
        fixture.click("chShowLines", 9);
        fixture.type("aMin", 9, QStringLiteral(".5"));
        fixture.type("aMax", 9, QStringLiteral("99.25"));
        fixture.click("chAuto", 9);
        fixture.click("chShowMittel", 9);
        fixture.click(QStringLiteral("SaveButton"));
        QCOMPARE(fixture.dialogs.messages, QStringList{SAVED});
        const MadeRecord plain = {0, 0, 0, 100, 0, 0, 0, 0, 0};
        std::vector<MadeRecord> records(10, plain);
        records[0] = {1, 0, -0.1, 1000, 5, 0, 50, 150.5, 0};
        records[1] = {0, 0, 0, 100, 0, 0, -5, 1e-7, 0};
        records[9] = {0, 1, 0, 100, 0, 1, 0.5, 99.25, 1};
        QVERIFY(contentOf(fixture.folder.at("Sammeldruck.cfg")) == fileOf(records));
    }

    void reopenedExactly() {
        BatchFixture fixture;
        const char* numbers[] = {"0.1",  "-1234567.125",    "0.000001",     "99999999", "3.14159265358979",
                                 "-0.5", "123456789012345", "0.3333333333", "7",        "0"};
        for (int i = 0; i < 10; ++i) {
            fixture.click("chShowLines", i);
            fixture.type("tMin", i, QString::fromUtf8(numbers[i]));
            fixture.type("tMax", i, QString::fromUtf8(numbers[(i + 1) % 10]));
            fixture.type("aMin", i, QString::fromUtf8(numbers[(i + 2) % 10]));
            fixture.type("aMax", i, QString::fromUtf8(numbers[(i + 3) % 10]));
            fixture.choose(i, i % 6);
            if (i % 2 == 0) {
                fixture.click("chKanal", i);
                fixture.click("chShowLines", i);
            }
            if (i % 3 == 0) {
                fixture.click("chAuto", i);
                fixture.click("chShowMittel", i);
            }
        }
        const QStringList before = allRows(fixture);
        QTest::keyClick(fixture.window.get(), Qt::Key_S, Qt::AltModifier);
        QTRY_COMPARE(fixture.dialogs.messages, QStringList{SAVED});
        fixture.open();
        QCOMPARE(allRows(fixture), before);
        QVERIFY(fixture.the<QAbstractButton>(QStringLiteral("OKButton")).isEnabled());
        QVERIFY(!fixture.the<QLineEdit>("tMin", 0).isEnabled());
        QVERIFY(!fixture.the<QLineEdit>("aMin", 0).isEnabled());
        QVERIFY(fixture.the<QLineEdit>("tMin", 1).isEnabled());
        QVERIFY(fixture.the<QLineEdit>("aMin", 1).isEnabled());
    }

    void damagedFile_data() {
        QTest::addColumn<QByteArray>("bytes");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("short") << QByteArray(1343, '\1');
        QTest::newRow("long") << QByteArray(1345, '\1');
    }
    void damagedFile() {
        QFETCH(QByteArray, bytes);
        BatchFixture fixture;
        const QStringList before = allRows(fixture);
        fixture.folder.write("Sammeldruck.cfg", bytes.toStdString());
        fixture.open();
        QCOMPARE(fixture.dialogs.messages, QStringList{NOT_LOADED});
        QCOMPARE(allRows(fixture), before);
    }

    /// The rows before the bad one are kept as they were received, and the fields before its interval.
    void badInterval_data() {
        QTest::addColumn<QByteArray>("position");
        QTest::newRow("6") << QByteArray("\x06\0", 2);
        QTest::newRow("-1") << QByteArray("\xFF\xFF", 2);
    }
    void badInterval() {
        QFETCH(QByteArray, position);
        BatchFixture fixture;
        const QStringList before = allRows(fixture);
        const MadeRecord record = {1, 1, -1, 2.5, 3, 1, 4, 5, 1};
        const std::string file = fileOf(std::vector<MadeRecord>(10, record));
        fixture.folder.write("Sammeldruck.cfg", patched(file, 2 * 84 + 24, position.toStdString()));
        fixture.open();
        QCOMPARE(fixture.dialogs.messages, QStringList{NOT_LOADED});
        for (int i = 0; i < 10; ++i) {
            const QString partly = QStringLiteral("x x") + before[i].mid(3);
            QCOMPARE(rowText(fixture, i),
                     i < 2 ? QStringLiteral("x x x x -1 2.5 4 5 15 Minuten") : (i == 2 ? partly : before[i]));
        }
        QVERIFY(!fixture.the<QLineEdit>("tMin", 2).isEnabled());
        QVERIFY(fixture.the<QAbstractButton>(QStringLiteral("OKButton")).isEnabled());
    }

    void loadedNumberThatIsNone() {
        BatchFixture fixture;
        constexpr double NO_NUMBER = std::numeric_limits<double>::quiet_NaN();
        const std::string file = fileOf({{1, 0, NO_NUMBER, 1, 0, 0, 0, 0, 0}});
        fixture.folder.write("Sammeldruck.cfg", file);
        fixture.open();
        QVERIFY(fixture.dialogs.messages.isEmpty());
        QVERIFY(fixture.isRed("tMin", 0));
        QVERIFY(!fixture.isRed("tMax", 0));
        fixture.click(QStringLiteral("SaveButton"));
        QVERIFY(fixture.dialogs.messages.isEmpty());
        QCOMPARE(QApplication::focusWidget(), &fixture.the<QWidget>("tMin", 0));
    }

    /// The field is red and has the focus; nothing is written, and no message appears.
    void badNumber_data() {
        QTest::addColumn<QByteArray>("field");
        QTest::addColumn<int>("row");
        QTest::addColumn<QString>("text");
        QTest::newRow("letters") << QByteArray("tMin") << 0 << QStringLiteral("abc");
        QTest::newRow("comma") << QByteArray("tMax") << 9 << QStringLiteral("1,5");
        QTest::newRow("empty") << QByteArray("aMin") << 3 << QString();
        QTest::newRow("tail") << QByteArray("aMax") << 4 << QStringLiteral("12abc");
    }
    void badNumber() {
        QFETCH(QByteArray, field);
        QFETCH(int, row);
        QFETCH(QString, text);
        const BatchFixture fixture;
        fixture.folder.write("Sammeldruck.cfg", "old");
        fixture.click("chShowLines", row);
        fixture.type(field.constData(), row, text);
        fixture.click("chKanal", 0);
        fixture.click(QStringLiteral("SaveButton"));
        QVERIFY(fixture.dialogs.messages.isEmpty());
        QCOMPARE(contentOf(fixture.folder.at("Sammeldruck.cfg")), std::string("old"));
        QVERIFY(fixture.isRed(field.constData(), row));
        QCOMPARE(QApplication::focusWidget(), &fixture.the<QWidget>(field.constData(), row));

        fixture.type(field.constData(), row, QStringLiteral("1"));
        fixture.click(QStringLiteral("SaveButton"));
        QCOMPARE(fixture.dialogs.messages, QStringList{SAVED});
    }

    /// The box that frees a disabled field gets the focus in its place.
    void badNumberInADisabledField() {
        const BatchFixture fixture;
        fixture.type("tMin", 1, QStringLiteral("x"));
        fixture.click("chAuto", 1);
        fixture.click(QStringLiteral("SaveButton"));
        QVERIFY(fixture.dialogs.messages.isEmpty());
        QCOMPARE(QApplication::focusWidget(), &fixture.the<QWidget>("chAuto", 1));
        QVERIFY(fixture.isRed("tMin", 1));
        QVERIFY(!std::filesystem::exists(fixture.folder.at("Sammeldruck.cfg")));
    }

    void writingFails_data() {
        QTest::addColumn<QByteArray>("fault");
        QTest::addColumn<int>("reason");
        const auto row = [](const char* fault, std::errc reason) {
            QTest::newRow(fault) << QByteArray(fault) << static_cast<int>(reason);
        };
        row("a folder of that name", std::errc::is_a_directory);
        row("protected file", std::errc::permission_denied);
        row("protected folder", std::errc::permission_denied);
#ifdef KELVRUM_HAS_LIMITS
        row("full disk", std::errc::file_too_large); // a limit for files stands for it
#endif
        row("the current folder is gone", std::errc::no_such_file_or_directory);
    }
    /// The message names the reason, and the old file stays as it was.
    void writingFails() {
        QFETCH(QByteArray, fault);
        QFETCH(int, reason);
        const OrdinaryUser user;
        const BatchFixture fixture;
        const fs::path path = fixture.folder.path();
        const std::string file = fixture.folder.at("Sammeldruck.cfg");
        const std::string old = "old";
        const bool gone = fault == "the current folder is gone";
        if (fault == "a folder of that name") {
            fs::create_directory(file);
        } else {
            fixture.folder.write("Sammeldruck.cfg", old);
        }
        if (fault == "protected file") {
            fs::permissions(file, fs::perms::owner_read);
        } else if (fault == "protected folder") {
            fs::permissions(path, fs::perms::owner_read | fs::perms::owner_exec);
        } else if (gone) {
            fs::remove_all(path);
        }
        const std::vector<std::string> names = filesIn(fixture.folder.base());
        {
#ifdef KELVRUM_HAS_LIMITS
            std::optional<FileSizeLimit> full;
            if (fault == "full disk") {
                full.emplace(0);
            }
#endif
            fixture.click(QStringLiteral("SaveButton"));
        }
        if (!gone) { // it is to be removed
            fs::permissions(path, fs::perms::owner_all);
        }
        QCOMPARE(
            fixture.dialogs.messages,
            QStringList{
                QStringLiteral("Sammeldruck: Die Datei „Sammeldruck.cfg“ konnte nicht geschrieben werden: ") +
                systemReason(static_cast<std::errc>(reason)) + ADVICE});
        QVERIFY(fixture.window->isVisible());
        if (fs::is_regular_file(file)) {
            QCOMPARE(contentOf(file), old);
        }
        QCOMPARE(fs::exists(path), !gone);
        QCOMPARE(filesIn(fixture.folder.base()), gone ? std::vector<std::string>() : names);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::fcprint_settings_test)
#include "fcprint_settings_test.moc"
