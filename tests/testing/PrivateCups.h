// SPDX-License-Identifier: GPL-3.0-or-later
// A print scheduler of the test's own, which keeps the documents that it was sent.
#pragma once

#include "tests/testing/TempFolder.h"

#include <QProcess>
#include <QStringList>
#include <cstddef>
#include <map>
#include <vector>

namespace kelvrum::testing {

/// Output of a program that must be there and end well; otherwise throws std::runtime_error.
QByteArray outputOf(const QString& program, const QStringList& arguments);

/// A CUPS scheduler in a temporary folder, run by the current user and reached by this process alone. It ends
/// with this object, or with the process.
///
/// The printing library looks for its scheduler once in a process. Therefore make one object, before Qt looks
/// for printers, and start and stop that.
class PrivateCups {
  public:
    enum class Queue {
        DEFAULT, // there is one printer, "Testdrucker"
        OTHER,   // there is one printer, "Ersatzdrucker"
        NONE,    // there is no printer
        BORDERS, // there is one printer, "Randdrucker", which cannot print at the edges of its sheets
        ENDLESS, // there is one printer, "Dauerdrucker", which prints each job until it is cancelled
        FAILING, // there is one printer, "Fehldrucker", which aborts each job
        FILTER,  // there is one printer, "Filterdrucker", which goes on when it cannot read a job
        FORGETS, // there is one printer, "Kurzdrucker", whose scheduler drops each job that has ended
    };

    /// Whether the scheduler and the readers of its documents are installed.
    static bool isInstalled();

    /// Points the process to the scheduler, which does not run yet.
    PrivateCups();
    PrivateCups(const PrivateCups&) = delete;
    PrivateCups& operator=(const PrivateCups&) = delete;
    ~PrivateCups();

    /// Starts the scheduler, after stopping it where it runs, and returns when it answers. The jobs that this
    /// queue has had are there again. Throws std::runtime_error with the error log when it does not start.
    void start(Queue queue = Queue::DEFAULT);

    /// Makes the scheduler what it is after start(): starts it anew, unless nothing has been done to it
    /// since.
    void restore();

    /// Ends the scheduler in good order, or at once as a crash would. It is gone on return.
    void stop() { end(&QProcess::terminate); }
    void kill() { end(&QProcess::kill); }

    /// From now on the printer takes no jobs, or takes them and prints none, for a reason; or does both
    /// again.
    void reject(const QString& reason);
    void halt(const QString& reason);
    void resume() const;

    /// Adds a printer that prints into nothing, or removes one.
    void add(const QString& printer);
    void remove(const QString& printer);

    /// Cancels all jobs of the printer, as a person does at the queue.
    void cancelJobs() const;

    /// From now on the scheduler does nothing, but the system still accepts calls for it and takes a part of
    /// what is sent. Kill it or let it go on before anything else.
    void freeze() const;
    void thaw() const;

    /// Ends the scheduler; in its place there is a socket from now on which takes calls and never answers.
    void hang();

    /// The paths of the documents of all jobs that the queue has printed, oldest first. Waits for jobs under
    /// way; throws std::runtime_error when one does not end. The scheduler must run.
    [[nodiscard]] std::vector<QString> documents() const;

    /// The number of jobs that are neither printed nor cancelled. The scheduler must run.
    [[nodiscard]] std::size_t openJobs() const;

    /// The number of all jobs that the scheduler knows, whatever became of them.
    [[nodiscard]] std::size_t allJobs() const;

    /// What the scheduler keeps of its newest job: names of attributes and their values.
    [[nodiscard]] std::map<QString, QString> newestJob() const;

  private:
    void writeConfiguration() const;
    [[nodiscard]] QString printer() const;
    void end(void (QProcess::*how)());
    [[nodiscard]] QString path(const QString& name) const;

    TempFolder folder_;
    QProcess scheduler_;
    Queue queue_ = Queue::DEFAULT;
    bool changed_ = false;  // by reject(), halt(), add() or remove()
    int silentSocket_ = -1; // listens while `hang` is in force
};

} // namespace kelvrum::testing
