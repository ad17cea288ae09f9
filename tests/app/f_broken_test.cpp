// SPDX-License-Identifier: GPL-3.0-or-later
// Broken files: the window stays upright, shows nothing where nothing can be read, asks nothing, and opens
// the next good project as usual.
#include "diagram/PolarSys.h"
#include "tests/app/WindowFixture.h"
#include "tests/testing/OrdinaryUser.h"

#include <QApplication>
#include <QListWidget>
#include <QTableView>
#include <QTest>
#include <cmath>
#include <filesystem>
#include <random>

namespace kelvrum {

using namespace kelvrum::testing;

namespace {

std::string randomBytes(std::size_t count) {
    std::mt19937 random(7);
    std::string bytes(count, '\0');
    for (char& byte : bytes) {
        byte = static_cast<char>(random() & 0xFFU);
    }
    return bytes;
}

const char* const ONE_CHANNEL = "DATAFOLDER=Data\nCHAN07|Staub|mg|0|500||0|1|2|1|0|0|ST\n";

/// Whether the window has shown no message and asked no question so far.
bool saysNothing(const WindowFixture& fixture) {
    return fixture.dialogs->messages.isEmpty() && fixture.dialogs->questions.isEmpty() &&
           fixture.dialogs->asked.empty();
}

} // namespace

class f_broken_test : public QObject {
    Q_OBJECT

    /// Both views of a window whose program folder holds a broken project, then a good one.
    static void survive(std::unique_ptr<TempFolder> folder) {
        const TempFolder good;
        good.write("QEL.ini", madeStation().ini);
        const WindowFixture fixture(std::move(folder));
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        fixture.click("optView(1)");
        fixture.click("optView(0)");
        for (int row = 0; row < std::min(fixture.the<QListWidget>("selChan").count(), 5); ++row) {
            fixture.chooseChannel(row);
        }
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(saysNothing(fixture));
        fixture.window->readConf(good.at("QEL.ini"));
        fixture.window->LoadData();
        QCOMPARE(fixture.the<QListWidget>("selChan").count(), 4);
        QCOMPARE(fixture.window->windowTitle(), QStringLiteral("Kelvrum - Station Kläranlage Nord"));
    }

  private Q_SLOTS:
    void configurations_data() {
        QTest::addColumn<QByteArray>("ini");
        QTest::newRow("empty") << QByteArray();
        QTest::newRow("random bytes") << QByteArray::fromStdString(randomBytes(100'000));
        QTest::newRow("only separators") << QByteArray(10'000, '|');
        QTest::newRow("channel numbers")
            << QByteArray("CHAN0|a||0|0||0|0|0|1|0|0|t\nCHAN-3|b||0|0||0|0|0|1|0|0|t\n"
                          "CHAN999999999|c||0|0||0|0|0|1|0|0|t\n"
                          "CHAN99999999999|d||0|0||0|0|0|1|0|0|t\n");
    }
    void configurations() {
        QFETCH(QByteArray, ini);
        auto folder = std::make_unique<TempFolder>();
        folder->write("QEL.ini", ini.toStdString());
        survive(std::move(folder));
    }

    void configurationIsAFolder() {
        auto folder = std::make_unique<TempFolder>();
        std::filesystem::create_directory(folder->path() / "QEL.ini");
        survive(std::move(folder));
    }

    void hugeLine() {
        auto folder = std::make_unique<TempFolder>();
        folder->write("QEL.ini", std::string("CHAN1|a||0|0||0|0|0|1|0|0|t\n"));
        std::filesystem::resize_file(folder->path() / "QEL.ini", 200'000'000); // NULs without a line end
        survive(std::move(folder));
    }

    void channelFiles_data() {
        QTest::addColumn<QByteArray>("chn");
        QTest::addColumn<int>("columns");
        for (const int size : {0, 1023, 1024, 1031}) {
            QTest::addRow("%d bytes", size) << QByteArray(size, 'x') << 0;
        }
        QByteArray values(1024 + TEST_DAY_MINUTE * 8, '\0');
        for (const double v : {std::nan(""), HUGE_VAL, -HUGE_VAL, 1e308, -1e308, 5e-324}) {
            values.append(reinterpret_cast<const char*>(&v), sizeof v);
        }
        QTest::newRow("no numbers") << values << 1; // only the last one is a value
    }
    void channelFiles() {
        QFETCH(QByteArray, chn);
        QFETCH(int, columns);
        auto folder = std::make_unique<TempFolder>();
        folder->write("QEL.ini", ONE_CHANNEL);
        folder->write("Data/Kanal07_2020.chn", chn.toStdString());
        {
            auto copy = std::make_unique<TempFolder>();
            copy->write("QEL.ini", ONE_CHANNEL);
            copy->write("Data/Kanal07_2020.chn", chn.toStdString());
            const WindowFixture fixture(std::move(copy));
            QCOMPARE(fixture.the<PolarSys>("KS").DataCount(), columns);
            fixture.click("optView(1)");
            QCOMPARE(fixture.the<QTableView>("lView").model()->rowCount(), columns);
        }
        survive(std::move(folder));
    }

    void channelFileIsAFolder() {
        auto folder = std::make_unique<TempFolder>();
        folder->write("QEL.ini", ONE_CHANNEL);
        std::filesystem::create_directories(folder->path() / "Data" / "Kanal07_2020.chn");
        survive(std::move(folder));
    }

    void unreadableFiles_data() {
        QTest::addColumn<QString>("name");
        QTest::addColumn<int>("channels");
        QTest::newRow("configuration") << QStringLiteral("QEL.ini") << 0;
        QTest::newRow("channel file") << QStringLiteral("Data/Kanal07_2020.chn") << 1;
        QTest::newRow("data folder") << QStringLiteral("Data") << 1;
    }
    void unreadableFiles() {
        QFETCH(QString, name);
        QFETCH(int, channels);
        const OrdinaryUser user;
        const TempFolder closed;
        closed.write("QEL.ini", ONE_CHANNEL);
        closed.write("Data/Kanal07_2020.chn", channelFile(std::vector<double>(TEST_DAY_MINUTE + 1440, 1.5)));
        const std::filesystem::path path = closed.path() / name.toStdString();
        std::filesystem::permissions(path, std::filesystem::perms::none);
        const WindowFixture fixture;
        fixture.window->readConf(closed.at("QEL.ini"));
        fixture.window->LoadData();
        QCOMPARE(fixture.the<QListWidget>("selChan").count(), channels);
        QCOMPARE(fixture.the<PolarSys>("KS").DataCount(), 0);
        fixture.click("optView(1)");
        QCOMPARE(fixture.the<QTableView>("lView").model()->rowCount(), 0);
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(saysNothing(fixture));

        // Once it may be read, everything is there.
        std::filesystem::permissions(path, std::filesystem::perms::owner_all);
        fixture.window->readConf(closed.at("QEL.ini"));
        fixture.window->LoadData();
        QCOMPARE(fixture.the<QTableView>("lView").model()->rowCount(), 1440);
    }

    void unreadableAtStart() {
        const OrdinaryUser user;
        auto folder = std::make_unique<TempFolder>();
        std::filesystem::permissions(folder->write("QEL.ini", ONE_CHANNEL), std::filesystem::perms::none);
        survive(std::move(folder));
    }

    void binaryConfigurations_data() {
        QTest::addColumn<int>("size");
        for (const int size : {0, 6544, 6545, 6546}) {
            QTest::addRow("%d bytes", size) << size;
        }
    }
    void binaryConfigurations() {
        QFETCH(int, size);
        const TempFolder binary;
        const std::vector<std::string> names = {"Wind", "-", "Staub"};
        std::string record = varnixFile("Binär", names, false);
        record.resize(static_cast<std::size_t>(size));
        const std::string path = binary.write("VARNIX.CFG", record);
        const WindowFixture fixture;
        fixture.window->readConf(path);
        fixture.window->LoadData();
        QCOMPARE(fixture.the<QListWidget>("selChan").count(), size == 6545 ? 2 : 0);
        QCOMPARE(fixture.the<PolarSys>("KS").DataCount(), 0);
        QVERIFY(QApplication::activeModalWidget() == nullptr);
        QVERIFY(saysNothing(fixture));
        fixture.window->readConf(fixture.folder->at("QEL.ini"));
        fixture.window->LoadData();
        QVERIFY(fixture.the<PolarSys>("KS").DataCount() > 0);
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::f_broken_test)
#include "f_broken_test.moc"
