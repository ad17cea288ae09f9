// SPDX-License-Identifier: GPL-3.0-or-later
// The system's print queues: sending a finished document, and its outcome.
#pragma once

#include <chrono>
#include <filesystem>
#include <functional>
#include <memory>
#include <string>
#include <utility>
#include <vector>

namespace kelvrum {

/// A document for a queue.
struct QueueJob {
    std::string queue;                                        // the queue's name
    std::string title;                                        // the job's name in the queue, UTF-8
    std::filesystem::path document;                           // a complete PDF file
    std::vector<std::pair<std::string, std::string>> options; // names and values as CUPS knows them
};

/// The outcome of a job.
struct QueueAnswer {
    enum class Fate {
        printed,     // printed, or accepted and no longer listed
        accepted,    // in the queue, waiting for its turn or being printed
        refused,     // not taken by the queue
        cancelled,   // taken, and cancelled or aborted since
        stopped,     // taken, but the queue is stopped
        halted,      // taken, but stopped itself, while the queue goes on
        silent,      // the print system does not answer
        unreachable, // there is no print system, or it ended the connection
        withdrawn,   // by the caller
    };
    Fate fate = Fate::silent;
    int number = 0;    // of the job; 0 when none is known to be in the queue
    std::string words; // of the print system itself; may be empty
};

/// Called some fifty times a second while there is something to wait for, with the part of the document that
/// is sent (0 to 1). Events may run in it; false withdraws the job.
using QueueStep = std::function<bool(double sent)>;

/// Talks to the print system in a helper thread, and gives up when it makes no progress for ten seconds while
/// it receives a job. Without CUPS, at build time or at run time, `isSupported` is false and `print` must not
/// be called.
class PrintQueue {
  public:
    static bool isSupported();

    /// Whether the print system answers: `accepted` when it does or when there is none, `silent` when it has
    /// not within a second, `withdrawn` when the step ended it.
    static QueueAnswer probe(const QueueStep& step);

    /// Sends a document and waits until its fate is known, though not longer than a few seconds for a healthy
    /// queue to print it. The queue gets the whole document or nothing: a job exists only once the
    /// last byte is there.
    static QueueAnswer print(const QueueJob& job, const QueueStep& step);
};

/// Asks the print system again and again in a helper thread, as long as this lives.
class QueueWatch {
  public:
    /// `silent` is called in the helper thread when there was no answer for a second.
    explicit QueueWatch(const std::function<void()>& silent);
    QueueWatch(const QueueWatch&) = delete;
    QueueWatch& operator=(const QueueWatch&) = delete;
    ~QueueWatch();

    /// The time since its last answer, or since there was none to wait for.
    [[nodiscard]] std::chrono::steady_clock::duration silence() const;

  private:
    struct Shared;
    std::shared_ptr<Shared> shared_;
};

} // namespace kelvrum
