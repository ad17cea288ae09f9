// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/testing/PrivateCups.h"

#include "tests/testing/PrinterDescriptions.h"
#include "tests/testing/SocketAddress.h"

#include <QDeadlineTimer>
#include <QDir>
#include <QFile>
#include <QStandardPaths>
#include <QThread>
#include <algorithm>
#include <csignal>
#include <fcntl.h>
#include <stdexcept>
#include <string>
#include <sys/socket.h>
#include <sys/un.h>
#include <unistd.h>
#include <utility>

#ifdef KELVRUM_CUPS
#include <cups/cups.h>
#endif

#ifdef __linux__
#include <sys/prctl.h>
#endif

namespace kelvrum::testing {

namespace {

constexpr int PATIENCE = 20000; // milliseconds, for what takes a few when all is well
constexpr unsigned long PAUSE = 5;

// %1 is the folder, %2 that of the jobs: a scheduler without a printer would drop the jobs of one that it
// had.
constexpr const char* FILES_CONF = R"(ServerRoot %1
StateDir %1/state
CacheDir %1/%2/cache
RequestRoot %1/%2/spool
TempDir %1/tmp
AccessLog %1/access.log
ErrorLog %1/error.log
PageLog %1/page.log
FileDevice Yes
)";

constexpr const char* CUPSD_CONF = R"(Listen %1/socket
Browsing Off
WebInterface No
DefaultAuthType None
PreserveJobHistory %2
PreserveJobFiles %2
MaxJobs 0
DirtyCleanInterval 0
LogLevel info
<Location />
Order allow,deny
Allow all
</Location>
<Policy default>
<Limit All>
Order deny,allow
Allow all
</Limit>
</Policy>
)";

// A printer without description prints documents as they come ("raw").
constexpr const char* PRINTERS_CONF = R"(<DefaultPrinter %1>
Info %1
DeviceURI %2
State Idle
Accepting Yes
Shared No
ErrorPolicy abort-job
</DefaultPrinter>
)";

// Further devices: one that prints until the job is cancelled, and one that fails.
struct Device {
    const char* name;
    const char* script;
};
constexpr Device DEVICES[] = {{"endless", "#!/bin/sh\nexec sleep 60\n"}, {"failing", "#!/bin/sh\nexit 1\n"}};

/// A queue's name, the folder of its jobs and its device.
struct QueueNames {
    const char* printer;
    const char* folder;
    const char* device = "file:///dev/null";
};

const QueueNames& namesOf(PrivateCups::Queue queue) {
    static constexpr QueueNames NAMES[] = {
        {"Testdrucker", "jobs"},
        {"Ersatzdrucker", "other"},
        {"", "none"},
        {"Randdrucker", "borders"},
        {"Dauerdrucker", "endless", "endless://device"},
        {"Fehldrucker", "failing", "failing://device"},
        {"Filterdrucker", "filter"},
        {"Kurzdrucker", "forgets"},
    };
    return NAMES[static_cast<std::size_t>(queue)];
}

/// The path of a program; system programs are not on every user's search path. Empty when it is not there.
QString programPath(const QString& name) {
    const QString found = QStandardPaths::findExecutable(name);
    return !found.isEmpty() ? found
                            : QStandardPaths::findExecutable(name, {QStringLiteral("/usr/sbin"),
                                                                    QStringLiteral("/usr/local/sbin"),
                                                                    QStringLiteral("/sbin")});
}

/// The folder of the scheduler's own programs.
QString schedulerPrograms() {
    const QString folders[] = {QStringLiteral("/usr/lib/cups"), QStringLiteral("/usr/libexec/cups"),
                               QStringLiteral("/usr/lib64/cups")};
    const auto* found = std::find_if(std::begin(folders), std::end(folders), [](const QString& folder) {
        return QFile::exists(folder + QStringLiteral("/daemon"));
    });
    return found != std::end(folders) ? *found : folders[0];
}

void write(const QString& path, const QString& text) {
    QFile file(path);
    if (!file.open(QIODevice::WriteOnly) || file.write(text.toUtf8()) < 0) {
        throw std::runtime_error("cannot write " + path.toStdString());
    }
}

/// Whether a server listens on a socket.
bool answers(const std::string& path) {
    const sockaddr_un address = socketAddress(path);
    const int handle = ::socket(AF_UNIX, SOCK_STREAM, 0);
    const bool connected =
        ::connect(handle, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) == 0;
    ::close(handle);
    return connected;
}

/// The numbers of the jobs in a state. They are listed as "Testdrucker-12  user  1024  date", one per line.
std::vector<int> jobs(const char* state) {
    std::vector<int> numbers;
    const auto lines = outputOf(QStringLiteral("lpstat"),
                                {QStringLiteral("-W"), QString::fromLatin1(state), QStringLiteral("-o")})
                           .split('\n');
    for (const QByteArray& line : lines) {
        const QByteArray name = line.left(line.indexOf(' '));
        if (const qsizetype dash = name.lastIndexOf('-'); dash >= 0) {
            numbers.push_back(name.mid(dash + 1).toInt());
        }
    }
    std::sort(numbers.begin(), numbers.end());
    return numbers;
}

} // namespace

QByteArray outputOf(const QString& program, const QStringList& arguments) {
    QProcess process;
    process.start(programPath(program), arguments);
    if (!process.waitForFinished(PATIENCE) || process.exitStatus() != QProcess::NormalExit ||
        process.exitCode() != 0) {
        throw std::runtime_error(program.toStdString() + ": " + process.errorString().toStdString() + " " +
                                 process.readAllStandardError().toStdString());
    }
    return process.readAllStandardOutput();
}

bool PrivateCups::isInstalled() {
#ifndef KELVRUM_CUPS
    return false; // the program would not know what became of a job
#else
    const char* const programs[] = {"cupsd", "lpstat", "pdftotext", "pdffonts", "pdfimages", "pdftoppm"};
    return std::all_of(std::begin(programs), std::end(programs),
                       [](const char* name) { return !programPath(QString::fromLatin1(name)).isEmpty(); });
#endif
}

PrivateCups::PrivateCups() {
    qputenv("CUPS_SERVER", QFile::encodeName(path(QStringLiteral("socket"))));
    qunsetenv("PRINTER"); // both would name another default printer
    qunsetenv("LPDEST");
    QDir folder(path({}));
    for (const char* name : {"state", "tmp", "ppd", "programs/backend"}) {
        folder.mkpath(QString::fromLatin1(name));
    }
    for (const Queue queue : {Queue::DEFAULT, Queue::OTHER, Queue::NONE, Queue::BORDERS, Queue::ENDLESS,
                              Queue::FAILING, Queue::FILTER, Queue::FORGETS}) {
        for (const char* name : {"/cache", "/spool"}) {
            folder.mkpath(QString::fromLatin1(namesOf(queue).folder) + QString::fromLatin1(name));
        }
    }
    for (const Device& device : DEVICES) {
        const QString script = path(QStringLiteral("programs/backend/")) + QString::fromLatin1(device.name);
        write(script, QString::fromLatin1(device.script));
        QFile::setPermissions(script, QFile::ReadOwner | QFile::ExeOwner); // the scheduler wants no more
    }
    const QString programs = schedulerPrograms();
    for (const char* name : {"daemon", "filter"}) {
        QFile::link(programs + QLatin1Char('/') + QString::fromLatin1(name),
                    path(QStringLiteral("programs/")) + QString::fromLatin1(name));
    }
    scheduler_.setProcessChannelMode(QProcess::MergedChannels);
#ifdef __linux__
    scheduler_.setChildProcessModifier([] { ::prctl(PR_SET_PDEATHSIG, SIGKILL); });
#endif
}

PrivateCups::~PrivateCups() { stop(); }

QString PrivateCups::path(const QString& name) const { return QString::fromStdString(folder_.at("")) + name; }

void PrivateCups::writeConfiguration() const {
    const QString folder = QString::fromStdString(folder_.path().string());
    const QString jobFolder = QString::fromLatin1(namesOf(queue_).folder);
    const QString printer = QString::fromLatin1(namesOf(queue_).printer);
    const QString device = QString::fromLatin1(namesOf(queue_).device);
    QString files = QString::fromLatin1(FILES_CONF).arg(folder, jobFolder);
    if (!device.startsWith(QStringLiteral("file:"))) {
        files += QStringLiteral("ServerBin %1/programs\n").arg(folder);
    }
    write(path(QStringLiteral("cups-files.conf")), files);
    const QString keeps = queue_ == Queue::FORGETS ? QStringLiteral("No") : QStringLiteral("Yes");
    write(path(QStringLiteral("cupsd.conf")), QString::fromLatin1(CUPSD_CONF).arg(folder, keeps));
    write(path(QStringLiteral("printers.conf")),
          printer.isEmpty() ? QString() : QString::fromLatin1(PRINTERS_CONF).arg(printer, device));
    const QString borders = path(QStringLiteral("ppd/Randdrucker.ppd"));
    const QString filter = path(QStringLiteral("ppd/Filterdrucker.ppd"));
    QFile::remove(borders);
    QFile::remove(filter);
    if (queue_ == Queue::BORDERS) {
        write(borders, QString::fromLatin1(BORDERS_PPD));
    } else if (queue_ == Queue::FILTER) {
        write(filter, QString::fromLatin1(FILTER_PPD).arg(programPath(QStringLiteral("false"))));
    }
}

QString PrivateCups::printer() const { return QString::fromLatin1(namesOf(queue_).printer); }

void PrivateCups::restore() {
    if (scheduler_.state() != QProcess::Running || queue_ != Queue::DEFAULT || changed_) {
        start();
        resume();
    }
}

void PrivateCups::reject(const QString& reason) {
    changed_ = true;
    outputOf(QStringLiteral("cupsreject"), {QStringLiteral("-r"), reason, printer()});
}

void PrivateCups::halt(const QString& reason) {
    changed_ = true;
    outputOf(QStringLiteral("cupsdisable"), {QStringLiteral("-r"), reason, printer()});
}

void PrivateCups::resume() const {
    outputOf(QStringLiteral("cupsaccept"), {printer()});
    outputOf(QStringLiteral("cupsenable"), {printer()});
}

void PrivateCups::add(const QString& printer) {
    changed_ = true;
    outputOf(QStringLiteral("lpadmin"), {QStringLiteral("-p"), printer, QStringLiteral("-E"),
                                         QStringLiteral("-v"), QStringLiteral("file:///dev/null")});
}

void PrivateCups::remove(const QString& printer) {
    changed_ = true;
    outputOf(QStringLiteral("lpadmin"), {QStringLiteral("-x"), printer});
}

void PrivateCups::cancelJobs() const {
    outputOf(QStringLiteral("cancel"), {QStringLiteral("-a"), printer()});
}

void PrivateCups::freeze() const { ::kill(static_cast<pid_t>(scheduler_.processId()), SIGSTOP); }

void PrivateCups::thaw() const { ::kill(static_cast<pid_t>(scheduler_.processId()), SIGCONT); }

void PrivateCups::hang() {
    kill();
    const sockaddr_un address = socketAddress(folder_.at("socket"));
    silentSocket_ = ::socket(AF_UNIX, SOCK_STREAM, 0);
    constexpr int CALLS = 50;
    if (::bind(silentSocket_, reinterpret_cast<const sockaddr*>(&address), sizeof(address)) != 0 ||
        ::listen(silentSocket_, CALLS) != 0) {
        throw std::runtime_error("no socket to be silent on");
    }
}

void PrivateCups::start(Queue queue) {
    stop();
    queue_ = queue;
    changed_ = false;
    writeConfiguration();
    scheduler_.start(programPath(QStringLiteral("cupsd")),
                     {QStringLiteral("-f"), QStringLiteral("-c"), path(QStringLiteral("cupsd.conf")),
                      QStringLiteral("-s"), path(QStringLiteral("cups-files.conf"))});
    const QDeadlineTimer deadline(PATIENCE);
    const bool running = scheduler_.waitForStarted(PATIENCE);
    const std::string socket = folder_.at("socket");
    while (!running || !answers(socket)) {
        if (!running || scheduler_.waitForFinished(PAUSE) || deadline.hasExpired()) {
            QFile log(path(QStringLiteral("error.log")));
            const QByteArray why = log.open(QIODevice::ReadOnly) ? log.readAll() : QByteArray();
            throw std::runtime_error("the scheduler does not start: " + scheduler_.readAll().toStdString() +
                                     why.toStdString());
        }
    }
}

void PrivateCups::end(void (QProcess::*how)()) {
    if (scheduler_.state() != QProcess::NotRunning) {
        (scheduler_.*how)();
        if (!scheduler_.waitForFinished(PATIENCE)) {
            scheduler_.kill();
            scheduler_.waitForFinished(PATIENCE);
        }
    }
    if (silentSocket_ >= 0) {
        ::close(std::exchange(silentSocket_, -1));
    }
    QFile::remove(path(QStringLiteral("socket"))); // a killed one leaves it behind
}

std::vector<QString> PrivateCups::documents() const {
    for (const QDeadlineTimer deadline(PATIENCE); openJobs() > 0; QThread::msleep(PAUSE)) {
        if (deadline.hasExpired()) {
            throw std::runtime_error("a print job does not end");
        }
    }
    std::vector<QString> found;
    for (const int number : jobs("completed")) {
        found.push_back(path(QStringLiteral("%1/spool/d%2-001")
                                 .arg(QString::fromLatin1(namesOf(queue_).folder))
                                 .arg(number, 5, 10, QLatin1Char('0'))));
    }
    return found;
}

std::size_t PrivateCups::openJobs() const { return jobs("not-completed").size(); }

std::size_t PrivateCups::allJobs() const { return jobs("all").size(); }

std::map<QString, QString> PrivateCups::newestJob() const {
    std::map<QString, QString> found;
    const std::vector<int> numbers = jobs("all");
    if (numbers.empty()) {
        return found;
    }
    [[maybe_unused]] const QString file = path(QStringLiteral("%1/spool/c%2")
                                                   .arg(QString::fromLatin1(namesOf(queue_).folder))
                                                   .arg(numbers.back(), 5, 10, QLatin1Char('0')));
#ifdef KELVRUM_CUPS
    const int handle = ::open(QFile::encodeName(file).constData(), O_RDONLY);
    ipp_t* job = ippNew();
    ippReadFile(handle, job);
    ::close(handle);
    for (ipp_attribute_t* one = ippFirstAttribute(job); one != nullptr; one = ippNextAttribute(job)) {
        if (ippGetName(one) != nullptr) {
            std::string value(ippAttributeString(one, nullptr, 0) + 1, '\0');
            ippAttributeString(one, value.data(), value.size());
            value.pop_back();
            found[QString::fromUtf8(ippGetName(one))] = QString::fromStdString(value);
        }
    }
    ippDelete(job);
#endif
    return found;
}

} // namespace kelvrum::testing
