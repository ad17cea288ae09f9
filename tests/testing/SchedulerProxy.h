// SPDX-License-Identifier: GPL-3.0-or-later
// Between the program and a print scheduler: passes questions on, and stops where the test wants.
#pragma once

#include <cstddef>
#include <memory>
#include <mutex>
#include <optional>
#include <string>
#include <thread>
#include <vector>

namespace kelvrum::testing {

/// Listens on a socket in a thread of its own and passes everything on to a scheduler. A question is one
/// HTTP request.
class SchedulerProxy {
  public:
    enum class End {
        silence, // takes calls and questions from then on and answers none
        hangUp,  // ends every connection and takes no more calls
        midway,  // the same, in the middle of a document; only for the first question that has one
    };

    /// Listens on `path` for the scheduler on `scheduler`, which may come and go. Throws std::runtime_error
    /// when it cannot.
    SchedulerProxy(std::string path, std::string scheduler);
    /// A proxy for the scheduler that CUPS_SERVER names, which names the proxy from then on; nothing where
    /// none is installed.
    static std::unique_ptr<SchedulerProxy> beforeScheduler();
    SchedulerProxy(const SchedulerProxy&) = delete;
    SchedulerProxy& operator=(const SchedulerProxy&) = delete;
    ~SchedulerProxy();

    /// Counts from 0 again, and passes everything on again. Earlier connections are closed.
    void begin();
    /// The same, but ends in this way when question `question`, from 1 on, arrives. Neither this nor a later
    /// one reaches the scheduler.
    void begin(std::size_t question, End end);

    /// Keeps documents from the scheduler, from their first 32 kB on; other questions pass.
    void hold();
    /// Passes on so many further pieces of at most 16 kB of what is held.
    void pass(std::size_t pieces);
    /// Passes on everything again.
    void passAll();

    /// The questions since the last `begin`: method and resource, "POST /printers/Testdrucker".
    [[nodiscard]] std::vector<std::string> questions() const;
    /// Whether the end that was set has come.
    [[nodiscard]] bool hasEnded() const;

  private:
    struct Call {
        int program;
        int scheduler;
        bool isAnswered = true; // the next bytes of the program are a question
        std::size_t bytes = 0;  // of the question
    };

    void run();
    void serve();
    void take();
    [[nodiscard]] bool isHeld(const Call& call) const;
    [[nodiscard]] bool passOn(Call& call, bool toScheduler);
    [[nodiscard]] bool admits(Call& call, const std::string& bytes);
    void restart(std::size_t question, End end);
    void listen();
    void stopListening();
    void hangUp();

    std::string path_;
    std::string scheduler_;
    mutable std::mutex mutex_; // for all below
    int socket_ = -1;
    std::vector<Call> calls_;
    std::vector<std::string> questions_;
    std::size_t last_ = 0; // the question that ends it; 0 for none
    End end_ = End::silence;
    bool hasEnded_ = false;
    std::optional<std::size_t> pieces_; // that may pass while documents are held
    bool stop_ = false;
    std::thread thread_;
};

} // namespace kelvrum::testing
