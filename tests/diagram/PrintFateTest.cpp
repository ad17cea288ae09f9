// SPDX-License-Identifier: GPL-3.0-or-later
// What becomes of a print job: whole or not at all, on a queue that takes it, refuses it, is stopped, dies or
// does not answer, and as a PDF file.
#include "tests/diagram/PrintedDiagram.h"
#include "tests/testing/FileSizeLimit.h"
#include "tests/testing/OrdinaryUser.h"
#include "tests/testing/SystemReason.h"
#include "tests/testing/TempFolder.h"

#include <QDir>
#include <QFile>
#include <QPrinter>
#include <QTemporaryDir>
#include <QTest>
#include <exception>
#include <filesystem>
#include <memory>
#include <optional>
#include <string>
#include <system_error>

namespace kelvrum {
namespace {

using kelvrum::testing::addNumberPages;
using kelvrum::testing::FileSizeLimit;
using kelvrum::testing::MANY_PAGES;
using kelvrum::testing::OrdinaryUser;
using kelvrum::testing::PrintedDiagram;
using kelvrum::testing::printedPages;
using kelvrum::testing::PrivateCups;
using kelvrum::testing::systemReason;
using kelvrum::testing::TempFolder;

using Queue = PrivateCups::Queue;
using Stage = PrintProgress::Stage;

constexpr const char* UNREACHABLE =
    "Der Drucker ist nicht erreichbar. Bitte prüfen Sie, ob er eingeschaltet und eingerichtet ist.";
constexpr const char* NO_ANSWER =
    "Das Drucksystem antwortet nicht. Bitte versuchen Sie es später noch einmal.";
enum Failing { THE_FILE, THE_FOLDER, THE_ROOM }; // what a new file fails for
const QString WORDS = QStringLiteral("Papier wird gewechselt");

/// What the end of a job says; nothing when all is well.
QString failure(PrintJob& job) {
    try {
        job.end();
    } catch (const std::exception& error) {
        return QString::fromUtf8(error.what());
    }
    return {};
}

QByteArray contentOf(const QString& path) {
    QFile file(path);
    return file.open(QIODevice::ReadOnly) ? file.readAll() : QByteArray();
}

/// Sends the job into a file, as the printer dialog does.
void chooseFile(PrintJob& job, const QString& path) {
    job.setUp([&path](QPrinter& printer) {
        printer.setOutputFormat(QPrinter::PdfFormat);
        printer.setOutputFileName(path);
        return true;
    });
}

} // namespace

class PrintFateTest : public testing::PrintTest {
    Q_OBJECT

  private Q_SLOTS:
    // --- the queue's answer ---

    void aPrintedJobSaysNothing() {
        PrintedDiagram diagram;
        diagram.print(false);
        QCOMPARE(failure(diagram.job), QString());
        QCOMPARE(newJobs(), std::size_t(1));
        QCOMPARE(diagram.job.receipt().pages, std::size_t(1));
        QCOMPARE(diagram.job.receipt().place, QStringLiteral("auf dem Drucker „Testdrucker“"));
    }

    void aQueueThatRefusesSaysWhy() {
        PrintedDiagram diagram;
        diagram.print(false);
        cups().reject(WORDS);
        const QString said = failure(diagram.job);
        QVERIFY2(said.startsWith(
                     QStringLiteral("Der Druckauftrag wurde vom Drucker „Testdrucker“ nicht angenommen: ")),
                 qPrintable(said));
        QVERIFY2(said.contains(WORDS), qPrintable(said));
        QVERIFY(!diagram.job.isOpen());
        QCOMPARE(newJobs(), std::size_t(0));
        cups().resume();
        diagram.print(true);
        QCOMPARE(newJobs(), std::size_t(1));
    }

    void aStoppedQueueSaysWhy() {
        PrintedDiagram diagram;
        diagram.print(false);
        cups().halt(WORDS);
        const QString said = failure(diagram.job);
        QVERIFY2(said.startsWith(QStringLiteral("Der Drucker „Testdrucker“ ist angehalten: ") + WORDS),
                 qPrintable(said));
        QCOMPARE(newJobs(), std::size_t(1)); // it waits
        cups().resume();
        QCOMPARE(documents().size(), std::size_t(1));
    }

    void aSchedulerThatDiesWhileItReceivesPrintsNothing() {
        PrintedDiagram diagram;
        diagram.print(false);
        diagram.job.setStep([this](const PrintProgress& progress) {
            if (progress.stage == Stage::making) {
                cups().kill(); // after the last question, before the first byte
            }
            return true;
        });
        QCOMPARE(failure(diagram.job), QString::fromUtf8(UNREACHABLE));
        diagram.job.setStep({});
        cups().start();
        QCOMPARE(newJobs(), std::size_t(0));
        diagram.print(true);
        QCOMPARE(newJobs(), std::size_t(1));
    }

    /// Killed when it has a part of the document.
    void aSchedulerKilledWhileItReceivesPrintsNothing() {
        PrintedDiagram diagram;
        addNumberPages(diagram.job, MANY_PAGES);
        bool partly = false;
        diagram.job.setStep([&](const PrintProgress& progress) {
            if (progress.stage == Stage::making && progress.done == progress.total) {
                cups().freeze();
            } else if (progress.stage == Stage::sending && progress.done > 0 && !partly) {
                partly = progress.done < progress.total;
                cups().kill();
            }
            return true;
        });
        QCOMPARE(failure(diagram.job), QString::fromUtf8(UNREACHABLE));
        QVERIFY(partly);
        diagram.job.setStep({});
        cups().start();
        QCOMPARE(newJobs(), std::size_t(0));
        diagram.print(true);
        QCOMPARE(newJobs(), std::size_t(1));
    }

    void aSchedulerThatDoesNotAnswerIsGivenUp_data() {
        QTest::addColumn<bool>("early");
        QTest::newRow("from the start") << true;
        QTest::newRow("when the document is sent") << false;
    }
    void aSchedulerThatDoesNotAnswerIsGivenUp() {
        QFETCH(bool, early);
        PrintedDiagram diagram;
        int steps = 0;
        if (early) {
            cups().hang();
            diagram.job.setStep([&](const PrintProgress&) { return ++steps > 0; });
            QVERIFY_THROWS_EXCEPTION(PrintError, std::ignore = diagram.job.hasPrinter());
        } else {
            diagram.print(false);
            cups().hang();
            diagram.job.setStep([&](const PrintProgress&) { return ++steps > 0; });
            QCOMPARE(failure(diagram.job), QString::fromUtf8(NO_ANSWER));
        }
        // Events have run meanwhile, every 20 ms: for a second when it is probed, for ten with a document.
        QVERIFY2(early ? steps > 1 && steps < 250 : steps > 10, qPrintable(QString::number(steps)));
        QVERIFY(!diagram.job.isOpen());
        diagram.job.setStep({});
        cups().start();
        QCOMPARE(newJobs(), std::size_t(0));
        diagram.print(true);
        QCOMPARE(newJobs(), std::size_t(1));
    }

    void aJobThatFailsLaterSaysWhy_data() {
        QTest::addColumn<int>("queue");
        QTest::addColumn<QString>("said");      // up to the print system's own words
        QTest::newRow("cancelled at the queue") // which has words for it only once the printer has begun
            << int(Queue::ENDLESS)
            << QStringLiteral("Der Druckauftrag wurde auf dem Drucker „Dauerdrucker“ abgebrochen");
        QTest::newRow("aborted by the printer")
            << int(Queue::FAILING)
            << QStringLiteral("Der Druckauftrag wurde auf dem Drucker „Fehldrucker“ abgebrochen: ");
        QTest::newRow("stopped, unlike its printer")
            << int(Queue::FILTER)
            << QStringLiteral("Der Druckauftrag wurde auf dem Drucker „Filterdrucker“ angehalten: ");
    }
    void aJobThatFailsLaterSaysWhy() {
        QFETCH(int, queue);
        QFETCH(QString, said);
        cups().start(Queue(queue));
        std::size_t known = cups().allJobs();
        PrintedDiagram diagram;
        diagram.print(false);
        diagram.job.setStep([&](const PrintProgress& progress) {
            if (queue == int(Queue::ENDLESS) && progress.stage == Stage::sending && cups().openJobs() > 0) {
                cups().cancelJobs();
            }
            return true;
        });
        QString message = failure(diagram.job);
        for (int again = 0; again < 2 && message.isEmpty(); ++again) { // a busy scheduler fails it too late
            ++known;
            diagram.print(false);
            message = failure(diagram.job);
        }
        QVERIFY2(message.startsWith(said), qPrintable(message));
        if (said.endsWith(QStringLiteral(": "))) {
            QVERIFY2(message.section(QStringLiteral(": "), 1).size() > 5, qPrintable(message));
        }
        QVERIFY(!diagram.job.isOpen());
        QCOMPARE(cups().allJobs(), known + 1);
    }

    /// A print system that keeps no list of what it has printed.
    void aJobThatHasLeftTheListCountsAsPrinted() {
        cups().start(Queue::FORGETS);
        PrintedDiagram diagram;
        diagram.print(false);
        QCOMPARE(failure(diagram.job), QString());
        QCOMPARE(diagram.job.receipt().pages, std::size_t(1));
        QCOMPARE(cups().allJobs(), std::size_t(0));
    }

    // --- the options of the job ---

    void theQueueGetsNameAndChoices() {
        cups().start(Queue::BORDERS); // its description has sides and sources
        PrintedDiagram diagram;
        diagram.job.setName("Kläranlage Nord – Staub PM10 – 18.06.2026");
        diagram.job.setUp([](QPrinter& printer) {
            printer.setCopyCount(3);
            printer.setCollateCopies(false);
            printer.setDuplex(QPrinter::DuplexShortSide);
            printer.setColorMode(QPrinter::GrayScale);
            printer.setPageSize(QPageSize(QPageSize::A5));
            printer.setPaperSource(QPrinter::Lower);
            return true;
        });
        diagram.print(true);
        const auto job = cups().newestJob();
        const auto is = [&job](const char* name, const char* value) {
            const auto found = job.find(QString::fromUtf8(name));
            const QString text = found != job.end() ? found->second : QStringLiteral("nothing");
            if (text != QString::fromUtf8(value)) {
                qWarning("%s: %s", name, qPrintable(text));
            }
            return text == QString::fromUtf8(value);
        };
        QVERIFY(is("job-name", "Kläranlage Nord – Staub PM10 – 18.06.2026"));
        QVERIFY(is("copies", "3"));
        QVERIFY(is("Collate", "false"));
        QVERIFY(is("sides", "two-sided-short-edge"));
        QVERIFY(is("print-color-mode", "monochrome"));
        QVERIFY(is("media", "A5"));
        QVERIFY(is("InputSlot", "Lower"));
        const QImage page = testing::picturedPage(cups().documents().back(), 0, 5);
        for (int y = 0; y < page.height(); ++y) {
            for (int x = 0; x < page.width(); ++x) {
                const QRgb dot = page.pixel(x, y);
                QVERIFY(qRed(dot) == qGreen(dot) && qGreen(dot) == qBlue(dot));
            }
        }
    }

    // --- files ---

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
        const QTemporaryDir folder;
        const QString path = folder.filePath(QStringLiteral("Bericht.pdf"));
        const QByteArray old("the report of last year");
        QFile file(path);
        QVERIFY(file.open(QIODevice::WriteOnly) && file.write(old) == old.size());
        file.close();
        PrintedDiagram diagram;
        chooseFile(diagram.job, path);
        diagram.print(false);
        diagram.job.setStep([&](const PrintProgress&) {
            if (contentOf(path) != old) {
                qFatal("the old file is touched before the new one is complete");
            }
            return !cancelled;
        });
        failure(diagram.job);
        QCOMPARE(contentOf(path) == old, cancelled);
        QCOMPARE(QDir(folder.path()).entryList(QDir::Files), QStringList{QStringLiteral("Bericht.pdf")});
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
        const QString said = failure(diagram.job);
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
        QCOMPARE(failure(diagram.job), QStringLiteral("Die Datei „%1“ konnte nicht geschrieben werden: %2.")
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
        const QString said = failure(diagram.job);
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
        const QString said = failure(diagram.job);
        before.isEmpty() ? qunsetenv("TMPDIR") : qputenv("TMPDIR", before);
        QVERIFY2(said.endsWith(QStringLiteral(": Es gibt keinen Ordner für temporäre Dateien.")),
                 qPrintable(said));
        QCOMPARE(newJobs(), std::size_t(0));
    }
};

} // namespace kelvrum

QTEST_MAIN(kelvrum::PrintFateTest)
#include "PrintFateTest.moc"
