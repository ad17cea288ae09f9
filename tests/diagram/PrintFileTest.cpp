// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of a print job as a PDF file, and where there is no room or no folder for its document.
#include "tests/diagram/PrintedDiagram.h"
#include "tests/testing/FileSizeLimit.h"
#include "tests/testing/OrdinaryUser.h"
#include "tests/testing/SystemReason.h"
#include "tests/testing/TempFolder.h"

#include <QDir>
#include <QFile>
#include <QFileInfo>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTest>
#include <filesystem>
#include <optional>
#include <string>
#include <system_error>

namespace kelvrum {
namespace {

using kelvrum::testing::contentOf;
using kelvrum::testing::failureOf;
using kelvrum::testing::FileSizeLimit;
using kelvrum::testing::OrdinaryUser;
using kelvrum::testing::PrintedDiagram;
using kelvrum::testing::printedPages;
using kelvrum::testing::systemReason;
using kelvrum::testing::TempFolder;

enum Failing { THE_FILE, THE_FOLDER, THE_ROOM }; // what a new file fails for

/// Sends the job into a file, as the printer dialog does.
void chooseFile(PrintJob& job, const QString& path) {
    job.setUp([&path](QPrinter& printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        return true;
    });
}

} // namespace

class PrintFileTest : public testing::PrintTest {
    Q_OBJECT

  private Q_SLOTS:
    void aFileCountsAsAPrinter() {
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("Bericht.pdf"));
        cups().stop();
        PrintedDiagram diagram;
        QVERIFY(!diagram.job.hasPrinter());
        chooseFile(diagram.job, path);
        QVERIFY(diagram.job.hasPrinter());
        QVERIFY(!diagram.job.needsFile());
        diagram.print(false);
        diagram.print(true);
        QCOMPARE(printedPages(path).size(), std::size_t(2));
        QVERIFY(diagram.job.hasPrinter());
        QVERIFY(diagram.job.needsFile()); // each further job asks again
        diagram.job.setName("Staub 1/2");
        QCOMPARE(diagram.job.proposedFile(), folder.filePath(QStringLiteral("Staub 1_2.pdf")));
        const QString other = folder.filePath(QStringLiteral("Anderer.pdf"));
        diagram.job.setFile(other);
        diagram.print(true);
        QCOMPARE(printedPages(other).size(), std::size_t(1));
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files).size(), 2);
        QCOMPARE(diagram.job.receipt().place, QStringLiteral("in die Datei „%1“").arg(other));
        cups().start();
    }

    void aFileIsReplacedAsAWhole_data() {
        QTest::addColumn<bool>("cancelled");
        QTest::newRow("cancelled") << true;
        QTest::newRow("printed") << false;
    }
    void aFileIsReplacedAsAWhole() {
        QFETCH(bool, cancelled);
        const QByteArray old("the report of last year");
        const TempFolder folder;
        const QString path = QString::fromStdString(folder.write("Bericht.pdf", old.toStdString()));
        PrintedDiagram diagram;
        chooseFile(diagram.job, path);
        diagram.print(false);
        diagram.job.setStep([&](const PrintProgress&) {
            if (contentOf(path) != old) {
                qFatal("the old file is touched before the new one is complete");
            }
            return !cancelled;
        });
        failureOf(diagram.job);
        QCOMPARE(contentOf(path) == old, cancelled);
        QCOMPARE(QDir(QString::fromStdString(folder.path().string())).entryList(QDir::Files),
                 QStringList{QStringLiteral("Bericht.pdf")});
    }

    void theOldFileStaysWhenTheNewOneFails_data() {
        QTest::addColumn<int>("failing");
        QTest::addColumn<std::errc>("reason");
        QTest::newRow("the file is write-protected") << int(THE_FILE) << std::errc::permission_denied;
        QTest::newRow("the folder is write-protected") << int(THE_FOLDER) << std::errc::permission_denied;
        QTest::newRow("the disk is full") << int(THE_ROOM) << std::errc::file_too_large;
    }
    void theOldFileStaysWhenTheNewOneFails() {
#ifdef KELVRUM_HAS_LIMITS
        QFETCH(int, failing);
        QFETCH(std::errc, reason);
        QVERIFY(QFile::setPermissions(temporaryFolder(), QFile::Permissions(0x7777)));
        const OrdinaryUser user;
        const TempFolder folder;
        const std::string path = folder.write("Bericht.pdf", "the report of last year");
        PrintedDiagram diagram;
        chooseFile(diagram.job, QString::fromStdString(path));
        diagram.print(false);
        const auto protect = [](const std::filesystem::path& what, std::filesystem::perm_options how) {
            std::filesystem::permissions(what, std::filesystem::perms::owner_write, how);
        };
        const std::filesystem::path what =
            failing == THE_FOLDER ? folder.path() : std::filesystem::path(path);
        std::optional<FileSizeLimit> limit;
        if (failing == THE_ROOM) {
            limit.emplace(1000);
        } else {
            protect(what, std::filesystem::perm_options::remove);
        }
        const QString said = failureOf(diagram.job);
        limit.reset();
        protect(what, std::filesystem::perm_options::add);
        QCOMPARE(said, QStringLiteral("Die Datei „%1“ konnte nicht geschrieben werden: %2.")
                           .arg(QString::fromStdString(path), systemReason(reason)));
        QCOMPARE(contentOf(QString::fromStdString(path)), QByteArray("the report of last year"));
        QCOMPARE(QDir(QString::fromStdString(folder.at(""))).entryList(QDir::Files),
                 QStringList{QStringLiteral("Bericht.pdf")});
#else
        QSKIP("This system has no limit for the length of files.");
#endif
    }

    void whatCannotBeWrittenIsSaid_data() {
        QTest::addColumn<QString>("path");
        QTest::addColumn<std::errc>("reason");
        QTest::newRow("a full device") << QStringLiteral("/dev/full") << std::errc::no_space_on_device;
        QTest::newRow("no such folder")
            << QStringLiteral("/nirgends/Bericht.pdf") << std::errc::no_such_file_or_directory;
        QTest::newRow("a folder") << QStringLiteral("/tmp") << std::errc::is_a_directory;
    }
    void whatCannotBeWrittenIsSaid() {
        QFETCH(QString, path);
        QFETCH(std::errc, reason);
        PrintedDiagram diagram;
        chooseFile(diagram.job, path);
        diagram.print(false);
        QCOMPARE(failureOf(diagram.job), QStringLiteral("Die Datei „%1“ konnte nicht geschrieben werden: %2.")
                                             .arg(path, systemReason(reason)));
        QVERIFY(!diagram.job.isOpen());
        QVERIFY(QFileInfo::exists(QStringLiteral("/dev/full")));
    }

    /// The document of a queue has no room either.
    void noRoomForTheDocumentIsSaid() {
#ifdef KELVRUM_HAS_LIMITS
        PrintedDiagram diagram;
        diagram.print(false);
        std::optional<FileSizeLimit> limit(1000);
        const QString said = failureOf(diagram.job);
        limit.reset();
        QVERIFY2(said.endsWith(QStringLiteral("konnte nicht geschrieben werden: %1.")
                                   .arg(systemReason(std::errc::file_too_large))),
                 qPrintable(said));
        QCOMPARE(newJobs(), std::size_t(0));
#else
        QSKIP("This system has no limit for the length of files.");
#endif
    }

    void noFolderForTheDocumentIsSaid() {
        PrintedDiagram diagram;
        diagram.print(false);
        const QByteArray before = qgetenv("TMPDIR");
        qputenv("TMPDIR", "/nirgends");
        const QString said = failureOf(diagram.job);
        before.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
        QVERIFY2(said.endsWith(QStringLiteral(": Es gibt keinen Ordner für temporäre Dateien.")),
                 qPrintable(said));
        QCOMPARE(newJobs(), std::size_t(0));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::PrintFileTest)
#include "PrintFileTest.moc"
